"""What ends a show, and what doesn't."""

from case import QUICK, EndToEndCase
from pictures import quarters

WM_CLOSE = 0x10


class EndingTest(EndToEndCase):
    interval = QUICK

    def setUp(self):
        super().setUp()
        # The pointer stands now over a picture and now beside one.
        self.frames = {name: self.frame().centre(self.add(name, quarters(*size)))
                       for name, size in {"small.bmp": (100, 100), "large.gif": (600, 400)}.items()}

    def start_folder(self, **settings):
        show = self.start(AllImages="1", **settings)
        show.form = show.wait_for_form()
        return show

    def start_with_pointer(self, x, y, **settings):
        self.machine.act("mousemove", x, y)
        return self.start_folder(**settings)

    def test_a_key_ends_it(self):
        show = self.start_folder()
        self.machine.act("key", "a")
        show.wait_for_end()

    def test_shift_alone_ends_it(self):
        show = self.start_folder()
        show.watch(self.frames, 1)
        self.machine.act("keydown", "Shift_L")
        self.addCleanup(self.machine.act, "keyup", "Shift_L")
        show.wait_for_end()

    def test_any_mouse_button_ends_it(self):
        for button in 1, 2, 3:
            with self.subTest(button):
                show = self.start_folder()
                self.machine.act("mousedown", button)
                self.addCleanup(self.machine.act, "mouseup", button)
                show.wait_for_end()

    def test_a_press_over_the_picture_ends_it(self):
        show = self.start_with_pointer(self.machine.width // 2, self.machine.height // 2)
        show.watch(self.frames, 1)
        self.machine.act("click", 1)
        show.wait_for_end()

    def test_a_request_to_close_ends_it(self):
        show = self.start_folder()
        self.probe.ask("post", show.form.handle, WM_CLOSE, 0, 0)
        show.wait_for_end()

    def test_as_many_moves_as_the_sensitivity_end_it(self):
        middle = self.machine.width // 2, self.machine.height // 2
        show = self.start_with_pointer(*middle, MouseSensitivity="10")
        for i in range(9):
            # Over the picture and beside it, over the form: they add up.
            self.machine.act_on(show.form, "mousemove", middle[0] + 250 * (i % 2), middle[1] + i + 1)
        # A window that comes or goes beneath the pointer isn't a move.
        self.assertEqual(len(show.watch(self.frames, 4)), 4)
        self.assertTrue(show.running())
        self.machine.act("mousemove", *middle)
        show.wait_for_end()

    def test_a_sensitivity_below_the_least_takes_the_least(self):
        show = self.start_folder(MouseSensitivity="3")
        for i in range(9):
            self.machine.act_on(show.form, "mousemove", 100 + i, 100)
        self.assertTrue(show.running())
        self.machine.act("mousemove", 100, 100)
        show.wait_for_end()

    def test_moves_can_be_ignored(self):
        show = self.start_folder(MouseSensitivity="10", IgnoreMouse="1")
        for i in range(25):
            self.machine.act_on(show.form, "mousemove", 100 + i, 100)
        show.watch(self.frames, 2)
        self.assertTrue(show.running())
        # A press is no move, and needs no release.
        self.addCleanup(self.machine.act, "mouseup", 1)
        self.machine.act("mousedown", 1)
        show.wait_for_end()


class CommentTest(EndToEndCase):
    """What happens over the comment is nobody's."""

    interval = QUICK

    def setUp(self):
        super().setUp()
        self.frame = self.frame().centre(self.add("a.bmp", quarters(300, 200)))
        self.show = self.start_template("IMAGE=a.bmp", "A comment to point at", MouseSensitivity="10")
        self.form = self.show.wait_for_form()
        self.text = self.wait_for_comment(self.show, "A comment to point at")
        self.middle = (self.text.top + self.text.bottom) // 2

    def test_moves_over_the_comment_do_not_count(self):
        for i in range(20):
            self.machine.act_on(self.form, "mousemove", self.text.left + 10 + i, self.middle)
        self.assertTrue(self.show.running())
        # Steps hide the comment and show it again above a pointer that doesn't move.
        self.show.must_stay(1.5)
        self.end_by_key(self.show)

    def test_a_click_on_the_comment_does_not_end_it(self):
        self.machine.act("mousemove", self.text.left + 10, self.middle)
        self.machine.act_on(self.form, "click", 1)
        self.show.must_stay(0.5)
        self.end_by_key(self.show)
