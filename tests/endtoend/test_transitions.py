"""The transitions: each in its midst and at its end, and what ends a show inside them."""

import time

from case import QUICK, EndToEndCase
from pictures import Grid
from session import wait_until
from steps import BLOCKS, CURTAINS, SLIDES, grid_edges, step
from test_password import PasswordCase

# Enough for a transition that is missed to come again.
LONG = 40  # seconds

# What stands on the screen so long is no more what stood there before.
SETTLED = 0.1  # seconds


class TransitionCase(EndToEndCase):
    size = (800, 600)
    interval = QUICK

    def start_steps(self, names, size, blocks, **settings):
        """A show of a picture of its own under each of these transitions, and its steps. The cells of the
        pictures are the blocks of their own size; the comments are the names."""
        grids = [self.add(f"{number}.bmp", Grid(*(grid_edges(side, blocks) for side in size), 40 + 15 * number))
                 for number in range(len(names))]
        lines = [line for number, name in enumerate(names)
                 for line in (f"IMAGE={number}.bmp", f"DISSOLVE={name}", *self.comments(name))]
        show = self.start_template(*lines, Blocks=str(blocks), **settings)
        return show, [step(name, grid, self.machine.width, self.machine.height, settings.get("FullScreen") == "1")
                      for name, grid in zip(names, grids)]

    def comments(self, _name):
        return []

    def look(self, show, expected):
        """Whether anything of a step's picture is there, the state that the whole screen shows, and the shot.
        No state when it isn't one of the step's, also when the screen was just being painted."""
        show.must_run()
        shot = self.machine.shot()
        state = expected.state(shot)
        if state is None:
            return False, None, shot
        if not expected.allowed(state):
            self.problem = f"{state} is no state of it"
            return True, None, shot
        difference = self.settle(expected.frame(state)).difference(shot)
        if difference:
            self.problem = f"{state}: {difference}"
            return True, None, shot
        return True, state, shot

    def settle(self, frame):
        """Takes out of a frame what else may stand on the screen."""
        return frame

    def wait_for_midst(self, show, expected):
        """Waits until a transition is caught, not yet at its end."""
        self.problem = "nothing is seen of it"

        def caught():
            _, state, _ = self.look(show, expected)
            return state not in (None, expected.end)
        wait_until(caught, lambda: f"{expected.name}: {self.problem}", LONG)

    def check_step(self, show, expected, midst=2, in_midst=lambda: True):
        """Catches one showing of a picture so many times in the midst of its transition, and then what
        stands until the picture goes. `in_midst` is called when it is first caught; when that gives nothing
        the next showing is looked at."""
        self.problem = "nothing is seen of it"
        seen = []  # the states of this showing
        wrong = 0  # looks since the last of them

        def finished():
            nonlocal wrong
            there, state, shot = self.look(show, expected)
            if not there:
                if len(seen) > midst and seen[-1] == expected.end:
                    return True
                if seen:
                    self.problem = f"it came through {seen}"
                seen.clear()
            elif state is None:
                wrong += 1
                if wrong > 1:
                    # Something stands there that is no state, also behind the end.
                    seen.clear()
                return False
            elif not seen or state != seen[-1]:
                if seen and not state > seen[-1]:
                    seen.clear()  # another showing
                seen.append(state)
                if len(seen) < 6 or state == expected.end:
                    self.keep_shot(shot, f"{expected.name} {'end' if state == expected.end else 'midst'}")
                if midst and len(seen) == 1 and (state == expected.end or not in_midst()):
                    seen.clear()
            wrong = 0
            return False
        wait_until(finished, lambda: f"{expected.name}: {self.problem}", LONG)


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
