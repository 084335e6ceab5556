"""The transitions: each in its midst and at its end, and what ends a show inside them."""

import time

from password_case import PasswordCase
from session import wait_until
from steps import BLOCKS, CURTAINS, SLIDES, step
from transition_case import LONG, TransitionCase

# What stands on the screen so long is no more what stood there before.
SETTLED = 0.1  # seconds


class MidstAndEndTest(TransitionCase):
    """`RefusedTest` sees all transitions in natural size."""

    def check_steps(self, show, steps, **options):
        for expected in steps:
            with self.subTest(expected.name):
                self.check_step(show, expected, **options)
        self.end_by_key(show)

    def test_normal_comes_at_once(self):
        show, steps = self.start_steps(["Normal", BLOCKS], (300, 200), 10)
        self.check_steps(show, steps[:1], midst=0)

    def test_on_the_full_screen(self):
        # 29 blocks leave a column of pixels that is never drawn.
        show, steps = self.start_steps([BLOCKS, "Top/Bottom To Center", "Left To Right"], (290, 232), 29,
                                       FullScreen="1", DissolveDelay="20")
        self.check_steps(show, steps)

    def test_of_a_picture_too_large_for_the_screen(self):
        show, steps = self.start_steps([BLOCKS, "Left/Right To Center", "Bottom To Top"], (1000, 700), 10,
                                       DissolveDelay="60")
        self.check_steps(show, steps)

    def test_slides_of_a_picture_as_large_as_the_screen(self):
        show, steps = self.start_steps(["Slide Bottom To Center", "Slide Right To Center"], self.size, 10)
        self.check_steps(show, steps, midst=1)


class OutOfSightTest(TransitionCase):
    """What stands on the screen when a comment tells that the transition is over."""

    interval = "1"

    def comments(self, name):
        return [name]

    def check_end(self, show, name, frame):
        """What the screen shows while the comment is up; what was painted may follow a little behind it."""
        problem = "the comment doesn't come"
        place, since = None, None  # of the comment, and since when all is as it should be

        def stands():
            nonlocal problem, place, since
            show.must_run()
            comment = self.comment(show)
            shot = self.machine.shot()
            if comment is None or comment.text != name or self.comment(show) != comment:
                since = None
                return False
            if place != comment[-4:]:
                place = comment[-4:]
                frame.ignore(*place)
            problem = frame.difference(shot)
            since = None if problem else since or time.monotonic()
            if since is None or time.monotonic() - since < SETTLED:
                return False
            self.keep_shot(shot, f"{name} end")
            return True
        wait_until(stands, lambda: f"{name}: {problem}", LONG)

    def test_random_curtains_after_a_slide(self):
        names = ["Slide Left To Center", "Random Vertical", "Random Horizontal", "Top To Bottom"]
        show, steps = self.start_steps(names, (300, 200), 10)
        for name in names[1:3]:
            self.check_end(show, name, self.frame())
        self.check_end(show, names[3], steps[3].frame(steps[3].end))
        self.end_by_key(show)

    def test_slides_from_the_edge_where_a_picture_lies_already(self):
        names = ["Slide Top To Center", "Slide Left To Center"]
        show, _ = self.start_steps(names, self.size, 10)
        for name in names:
            self.check_end(show, name, self.frame())
        self.end_by_key(show)

    def test_a_picture_too_large_for_a_slide_is_shown_plainly(self):
        width, height = self.size
        for size, names in ((width + 1, 100), SLIDES[::2]), ((100, height + 1), SLIDES[1::2]):
            with self.subTest(size):
                show, steps = self.start_steps(names, size, 10)
                for slide in steps:
                    plain = step("Normal", slide.grid, width, height)
                    self.check_end(show, slide.name, plain.frame(plain.end))
                self.end_by_key(show)


class EndingInsideTest(TransitionCase):
    """A show that is ended in the midst of a transition."""

    def check_ends(self, names, *actions, again=False, **settings):
        for name in names:
            with self.subTest(name):
                show, steps = self.start_steps([name], (330, 220), 10, DissolveDelay="200", **settings)
                self.wait_for_midst(show, steps[0])
                self.machine.act(*actions)
                if again:
                    wait_until(lambda: not show.running() or self.machine.act(*actions), "the moves don't end it")
                show.wait_for_end()

    def test_by_a_key(self):
        self.check_ends([BLOCKS, *CURTAINS, *SLIDES], "key", "space")

    def test_by_a_click(self):
        # Over the picture, or the form where a slide has hidden it.
        middle = self.size[0] // 2, self.size[1] // 2
        self.check_ends([*CURTAINS[::2], *SLIDES[::2]], "mousemove", *middle, "click", 1)

    def test_by_enough_moves(self):
        moves = [word for i in range(20) for word in ("mousemove", 100 + i, 100, "sleep", 0.01)]
        # A loaded machine makes one of several moves that come close together.
        self.check_ends([BLOCKS, *CURTAINS[1::2], *SLIDES[1::2]], *moves, again=True, MouseSensitivity="10")


class RefusedTest(TransitionCase, PasswordCase):
    """A transition goes on to its end when the password is refused in its midst."""

    def settle(self, frame):
        return frame.ignore(0, 0, 60, 60)  # the cursor shows while the password is asked

    def check_refused(self, names, delay, **settings):
        self.answer()
        show, steps = self.start_steps(names, (331, 220), 11, DissolveDelay=delay, **settings)
        for expected in steps:
            with self.subTest(expected.name):
                self.check_step(show, expected, in_midst=lambda: self.refuse(show, expected))
        self.answer(1)
        self.end_by_key(show)

    def refuse(self, show, expected):
        """Whether a request for the end was refused while the transition still ran."""
        before = len(self.calls())
        self.machine.act("key", "Shift_L")
        self.wait_for_calls(max(before, 1))
        _, state, _ = self.look(show, expected)
        return state not in (None, expected.end)

    def test_blocks_and_curtains(self):
        self.check_refused([BLOCKS, *CURTAINS], "60")

    def test_vertical_slides(self):
        self.check_refused(SLIDES[:2], "60", FullScreen="1")  # which slides don't heed

    def test_horizontal_slides(self):
        self.check_refused(SLIDES[2:], "15", FullScreen="1")
