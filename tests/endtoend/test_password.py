"""The password of the non-NT family, asked through a stand-in for the system's library."""

import os
import shutil

from case import DESKTOP, FAILED, QUICK, VERSION
from password_case import PasswordCase
from pictures import quarters
from session import wait_until


class PasswordTest(PasswordCase):
    interval = QUICK

    def setUp(self):
        super().setUp()
        self.frames = {name: self.frame().centre(self.add(name, quarters(*size)))
                       for name, size in {"one.bmp": (300, 200), "two.gif": (200, 300)}.items()}

    def start_asking(self, *answers, **settings):
        """The show, with what the library will answer."""
        self.answer(*answers)
        show = self.start(AllImages="1", **settings)
        show.form = show.wait_for_form()
        show.watch(self.frames, 1)
        return show

    def assert_calls(self, show, count):
        """So many requests so far, and no more to come."""
        self.wait_for_calls(count)
        self.probe.settle(show.form)
        show.watch(self.frames, 2)
        self.assertEqual(len(self.calls()), count + 1, self.calls())

    def test_a_wrong_password_keeps_the_show_and_a_right_one_ends_it(self):
        show = self.start_asking(0, 1)
        self.machine.act("key", "Shift_L")
        self.assert_calls(show, 1)
        self.machine.act("key", "Shift_L")
        show.wait_for_end()
        self.assertEqual(self.calls()[1:], [f"{show.form.handle} cursor"] * 2)

    def test_a_refused_key_asks_for_its_press_and_its_character(self):
        show = self.start_asking(0, 0, 1)
        self.machine.act("key", "a")
        self.assert_calls(show, 2)
        self.machine.act("key", "a")
        show.wait_for_end()
        self.assertEqual(len(self.calls()), 4)

    def test_a_refused_click_asks_for_its_press_and_itself(self):
        show = self.start_asking(0, 0, 1)
        self.machine.act("click", 1)
        self.assert_calls(show, 2)
        # Another button has no click.
        self.machine.act("click", 3)
        show.wait_for_end()
        self.assertEqual(len(self.calls()), 4)

    def test_refused_moves_count_anew(self):
        show = self.start_asking(0, 0, 1, MouseSensitivity="10")
        for asked in 1, 2:
            for i in range(10):
                self.assertEqual(len(self.calls()[1:]), asked - 1)
                self.machine.act_on(show.form, "mousemove", 100 + i, 100 * asked)
            self.assert_calls(show, asked)
        self.machine.act("key", "Shift_L")
        show.wait_for_end()

    def test_only_the_low_half_of_the_answer_counts(self):
        show = self.start_asking(0x10000, 0x8000)
        self.machine.act("key", "Shift_L")
        self.assert_calls(show, 1)
        self.machine.act("key", "Shift_L")
        show.wait_for_end()

    def test_the_show_goes_on_while_the_password_is_asked(self):
        show = self.start_asking("wait", 1)
        self.machine.act("key", "Shift_L")
        self.wait_for_calls(1)
        # The cursor shows now, and the screen has it.
        for frame in self.frames.values():
            frame.ignore(0, 0, 60, 60)
        show.watch(self.frames, 3)
        self.assertEqual(self.probe.ask("pointer")[0][2], "1")
        with open(os.path.join(self.state, "go"), "wb"):
            pass
        wait_until(lambda: self.probe.ask("pointer")[0][2] == "0", "the cursor shows")
        show.watch(self.frames, 2)
        self.machine.act("key", "Shift_L")
        show.wait_for_end()
        self.assertEqual(len(self.calls()), 3)

    def test_a_text_turns_the_password_on_too(self):
        self.machine.set_value(DESKTOP, "ScreenSaveUsePassword", "1")
        show = self.start_asking(1)
        self.machine.act("key", "Shift_L")
        show.wait_for_end()
        self.assertEqual(len(self.calls()), 2)

    def test_without_a_password_nobody_is_asked(self):
        for value in 0, "0", "", None:
            with self.subTest(value):
                self.machine.set_value(DESKTOP, "ScreenSaveUsePassword", value)
                show = self.start_asking(0)
                self.end_by_key(show)
                self.assertEqual(self.calls(), [])

    def test_without_the_library_the_first_request_ends_the_show(self):
        os.remove(self.library)
        show = self.start_asking()
        self.machine.act("key", "Shift_L")
        show.wait_for_end(FAILED)

    def test_the_nt_family_never_loads_the_library(self):
        self.machine.set_value(VERSION, "Version", "win10")
        show = self.start_asking(0)
        self.end_by_key(show)
        self.assertEqual(self.calls(), [])

    def test_the_library_comes_from_the_system_folder_alone(self):
        decoy = os.path.join(self.folder, "password.cpl")
        shutil.copy(os.path.join(self.helpers, "decoy.dll"), decoy)
        show = self.start_asking(1)
        self.machine.act("key", "Shift_L")
        show.wait_for_end()
        self.assertEqual(len(self.calls()), 2)
        self.assertFalse(os.path.exists(decoy + ".loaded"))
