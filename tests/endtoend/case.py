"""What the tests share: the machines, and the product started on one of them."""

import os
import pathlib
import shutil
import tempfile
import time
import unittest

import pictures
import screen
import session
from session import LIMIT, NotReached, wait_until

SETTINGS = "Software\\Tessellarium\\Settings"
DESKTOP = "Control Panel\\Desktop"
VERSION = "Software\\Wine\\AppDefaults\\Tessellarium.scr"
CAPTION = "Screen Saver Main Form"
BANNER = pictures.Bitmap(pathlib.Path(__file__).resolve().parents[2] / "resources" / "banner.bmp")

# Wraps around to 464 milliseconds. For tests that lose nothing when a look at the screen comes too late for
# a step.
QUICK = "66"

# What Wine says of one start in some thousands, in which it finds its place in memory taken: no program has run.
NOT_STARTED = "failed to map the shared user data"

FAILED = 1  # the exit code after a failure that nobody handled

TOPMOST = 0x8
TOOL_WINDOW = 0x80
APP_WINDOW = 0x40000


class Machines:
    """The machines of a run, each made at its first use; all end with the run."""

    current = None

    def __init__(self, product, helpers, template, folder, failures, shots=None):
        self.product = product
        self.helpers = helpers
        self.failures = failures
        self.shots = shots
        self._template = template
        self._folder = folder
        self._sessions = {}
        self._made = 0

    def __enter__(self):
        shutil.rmtree(self.failures, ignore_errors=True)
        Machines.current = self
        return self

    def __exit__(self, *_):
        for machine in self._sessions.values():
            machine.close()
        Machines.current = None

    def session(self, *kind):
        """`kind` is what tells machines apart: size, dpi, whether there is sound."""
        if kind not in self._sessions:
            self._sessions[kind] = self.make_session(*kind)
        return self._sessions[kind]

    def make_session(self, *kind):
        """A machine that no test has used, for its maker to close."""
        self._made += 1
        folder = os.path.join(self._folder, f"screen{self._made}")
        return session.Session(self._template, self.helpers, folder, *kind)


class Show:
    """A started product."""

    def __init__(self, machine, program, arguments, environment):
        self._machine = machine
        # A program that has just ended may have windows for a moment yet.
        self._former = {window.handle for window in machine.probe.windows()}
        self._errors = tempfile.TemporaryFile()
        self._start = lambda: machine.start(program, *arguments, errors=self._errors, **environment)
        self.process = self._start()

    def running(self):
        if self.process.poll() and NOT_STARTED in self._said():
            self._errors.seek(0)
            self._errors.truncate()
            self.process = self._start()
        return self.process.poll() is None

    def wait_for_form(self):
        """The show's window, once it can be seen."""
        def form():
            self.must_run()
            return next((window for window in self.forms() if window.visible), None)
        return wait_until(form, "the show's form doesn't come up")

    def windows(self):
        """The top-level windows that have come up since its start, uppermost first."""
        return [window for window in self._machine.probe.windows() if window.handle not in self._former]

    def forms(self):
        return [window for window in self.windows() if window.text == CAPTION and window.kind != "Static"]

    def must_run(self):
        """Fails when the product has ended."""
        if not self.running():
            raise NotReached(f"the product {self._end()}")

    def _end(self):
        return f"ended with {self.process.returncode}; Wine said: {self._said()!r}"

    def _said(self):
        self._errors.seek(0)
        return self._errors.read().decode(errors="replace")

    def wait_for_frame(self, frame, limit=LIMIT):
        """Waits until the screen shows just this."""
        difference = ""

        def shown():
            nonlocal difference
            self.must_run()
            difference = frame.difference(self._machine.shot())
            return not difference
        wait_until(shown, lambda: f"the screen doesn't show it: {difference}", limit)

    def watch(self, frames, changes):
        """The names of the frames, a dictionary, in the order in which they come on the screen: as many
        as `changes`. What lasts shorter than a look and is none of them doesn't count."""
        seen = []

        def enough():
            self.must_run()
            shot = self._machine.shot()
            name = next((name for name, frame in frames.items() if not frame.difference(shot)), None)
            if name and (not seen or seen[-1] != name):
                seen.append(name)
            return len(seen) >= changes
        wait_until(enough, lambda: f"of the frames came only {seen}", LIMIT + 3 * changes)
        return seen

    def wait_for_end(self, code=0):
        """Waits until the process has ended, with this exit code, and left no window."""
        wait_until(lambda: not self.running(), "the product doesn't end")
        if self.process.returncode != code:
            raise AssertionError(f"the product {self._end()}, and not with {code}")
        wait_until(lambda: not self.forms(), "the show's window is left", 5)

    def must_stay(self, seconds):
        """For what must not happen there is no event: looks for a while."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.must_run()
            time.sleep(0.05)

    def stop(self):
        session.end(self.process)
        self._errors.close()


class EndToEndCase(unittest.TestCase):
    """A test on a machine, with a folder of its own where the product and its pictures lie."""

    size = (1366, 768)
    dpi = 96
    sound = False  # whether the machine has a sound device
    interval = "1"  # seconds

    def setUp(self):
        machines = Machines.current
        self.helpers = machines.helpers
        self.failures = machines.failures
        self.machine = machines.session(self.size, self.dpi, self.sound)
        self.probe = self.machine.probe
        self.environment = {}  # what the product's is to have besides
        self._clear()
        self.addCleanup(self._clear)
        self.folder = os.path.join(self.machine.drive, "test")
        shutil.rmtree(self.folder, ignore_errors=True)
        os.mkdir(self.folder)
        self.program = shutil.copy(machines.product, os.path.join(self.folder, "Tessellarium.scr"))
        self.pictures = os.path.join(self.folder, "pictures")
        os.mkdir(self.pictures)
        self.machine.act("mousemove", 5, 5)

    def _clear(self):
        self.machine.clear_key("Software\\Tessellarium")
        self.machine.clear_key(VERSION)
        self.machine.set_value(DESKTOP, "ScreenSaveUsePassword", None)

    def start(self, *arguments, **settings):
        """Starts the product with "/s", or with the given arguments, on these settings and no others but
        the folder of the test's pictures and the interval of its class."""
        self.machine.clear_key(SETTINGS)
        settings = {"ImagePath": self.machine.windows_path(self.pictures), "ImageInterval": self.interval,
                    **settings}
        for name, value in settings.items():
            self.machine.set_value(SETTINGS, name, value)
        return self.start_program(self.program, *(arguments or ("/s",)))

    def start_program(self, program, *arguments):
        """Starts a copy of the product, on the settings as they stand."""
        show = Show(self.machine, program, arguments, self.environment)
        self.addCleanup(show.stop)
        return show

    def start_template(self, *lines, **settings):
        """Starts the show of a template of these lines."""
        self.write("show.txt", "".join(line + "\r\n" for line in lines).encode("cp1252"))
        return self.start(ImageListFile="show.txt", **settings)

    def write(self, name, content):
        """A file in the folder of the pictures."""
        path = os.path.join(self.pictures, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(content)
        return path

    def add(self, name, picture, *options):
        """A picture in the folder of the pictures; it comes back."""
        return picture.save(os.path.join(self.pictures, name), *options)

    def end_by_key(self, show):
        self.machine.act("key", "space")
        show.wait_for_end()

    def check_silent(self, show, code=0):
        """The program ends by itself, and never has a window to see."""
        def ended():
            self.assertEqual([window for window in show.windows() if window.visible], [])
            return not show.running()
        wait_until(ended, "the program doesn't end")
        show.wait_for_end(code)

    def comment(self, show):
        """The window of the text at the bottom left, or nothing when there is none."""
        form = show.wait_for_form()
        left = int(5 * self.dpi / 1440 + 0.5)  # 5 twips
        return next((child for child in self.probe.children(form)
                     if child.visible and child.text and child.left == left
                     and child.bottom == form.bottom), None)

    def wait_for_text(self, show, wanted):
        """The comment, once `wanted` holds of its text."""
        def shown():
            comment = self.comment(show)
            return comment if comment and wanted(comment.text) else None
        return wait_until(shown, lambda: f"the comment is not that one but {self.comment(show)}")

    def wait_for_comment(self, show, text):
        return self.wait_for_text(show, lambda shown: shown == text)

    def frame(self):
        """A black screen, for a test to paint on what it expects."""
        return screen.Frame(self.machine.width, self.machine.height)

    def banner_frame(self, comment=None):
        """The banner in the middle, with the place of a comment left out."""
        frame = self.frame().centre(BANNER)
        if comment:
            frame.ignore(comment.left, comment.top, comment.right, comment.bottom)
        return frame

    def keep_shot(self, shot, name):
        """Saves what the screen showed, when the run was asked to keep it."""
        folder = Machines.current.shots
        if folder:
            os.makedirs(folder, exist_ok=True)
            shot.save(os.path.join(folder, f"{self._testMethodName} {name}.png".replace("/", "-")))

    def keep_screen(self):
        """Saves what the screen shows, for whoever looks after a failure."""
        os.makedirs(self.failures, exist_ok=True)
        self.machine.shot().save(os.path.join(self.failures, f"{self.id()}.png"))
