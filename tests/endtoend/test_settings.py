"""A registry that holds something else than the settings dialog would write."""

from case import DESKTOP, FAILED, QUICK, EndToEndCase
from pictures import quarters


class JunkTest(EndToEndCase):
    interval = QUICK

    def setUp(self):
        super().setUp()
        self.picture = self.add("a.bmp", quarters(300, 200))
        self.centred = self.frame().centre(self.picture)
        self.filled = self.frame().stretch(self.picture, 10)

    def check_moves(self, show, moves):
        """Just so many moves end the show."""
        form = show.wait_for_form()
        for i in range(1, moves):
            self.assertTrue(self.machine.act_on(form, "mousemove", 200 + i, 200), f"move {i} of {moves} ends it")
        self.machine.act("mousemove", 200, 200)
        show.wait_for_end()

    def test_all_keys_of_no_sense(self):
        names = ["ImageInterval", "FullScreen", "ImagePositionRandom", "ImageOrderRandom", "Blocks",
                 "DissolveType", "DissolveDelay", "MouseSensitivity", "IgnoreMouse"]
        for value in "abc", "", "-", "12abc xyz" * 5000:
            with self.subTest(value[:12]):
                # AllImages: any number but 0 is Folder Mode.
                settings = {"AllImages": " -7.4 pictures", **{name: value for name in names}}
                if value.startswith("12"):
                    settings.update(ImageInterval=QUICK, ImagePositionRandom="0")
                show = self.start(**settings)
                show.wait_for_frame(self.centred)
                self.end_by_key(show)

    def test_no_settings_at_all(self):
        show = self.start(ImagePath=None, ImageInterval=None)
        show.wait_for_form()
        show.must_stay(0.5)
        self.end_by_key(show)

    def test_only_exactly_1_fills_the_screen(self):
        for value, frame in {"1": self.filled, "1.4": self.filled, "  1x": self.filled, "1.5": self.centred,
                             "0.5": self.centred, "2": self.centred, "-1": self.centred}.items():
            with self.subTest(value):
                show = self.start(AllImages="1", FullScreen=value)
                show.wait_for_frame(frame)
                self.end_by_key(show)

    def test_a_number_in_place_of_a_text_is_no_setting(self):
        show = self.start(AllImages="1", FullScreen=1, IgnoreMouse=1, MouseSensitivity="10")
        show.wait_for_frame(self.centred)
        self.check_moves(show, 10)

    def test_numbers_are_rounded_with_halves_to_even(self):
        for value, moves in {"12.5": 12, "13.5": 14, "12abc": 12, "abc": 10}.items():
            with self.subTest(value):
                show = self.start(AllImages="1", MouseSensitivity=value)
                self.check_moves(show, moves)

    def test_a_number_out_of_16_bits_ends_the_program_silently(self):
        # The settings are read before the road is chosen: nobody is told, on the way to the settings neither.
        for switch, name, value in (("/s", "ImageInterval", "40000"), ("/s", "FullScreen", "-32769"),
                                    ("/c", "IgnoreMouse", "1e9"), ("/x", "Blocks", "32768")):
            with self.subTest(name):
                self.check_silent(self.start(switch, **{name: value}), FAILED)


class PasswordSettingTest(EndToEndCase):
    def test_a_password_setting_of_no_sense(self):
        for value in "", "abc", "1" * 300, 2**32 - 1:
            with self.subTest(str(value)[:5]):
                self.machine.set_value(DESKTOP, "ScreenSaveUsePassword", value)
                show = self.start("/s")
                show.wait_for_form()
                self.end_by_key(show)
