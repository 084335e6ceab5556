"""What the tests of transitions share."""

from case import QUICK, EndToEndCase
from pictures import Grid
from session import wait_until
from steps import grid_edges, step

# Enough for a transition that is missed to come again.
LONG = 40  # seconds


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
