"""A machine for the tests: an X display and a Wine prefix of its own, and a probe that runs inside it."""

import collections
import contextlib
import importlib.machinery
import importlib.util
import os
import pathlib
import subprocess
import sys
import time
import urllib.parse

import screen

TOOLS = pathlib.Path(__file__).resolve().parents[2] / "tools"
sys.path.append(str(TOOLS))

from processes import end  # noqa: E402


def _load_tool(name):
    """A script of `tools` as a module."""
    loader = importlib.machinery.SourceFileLoader(name.replace("-", "_"), str(TOOLS / name))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


with_wine = _load_tool("with-wine")  # knows how to make a screen and a prefix
with_sound = _load_tool("with-sound")  # knows how to make a sound server

# Loaded machines are slow: a limit is what no run should reach, never a wait.
LIMIT = 30  # seconds


class NotReached(AssertionError):
    """What was waited for didn't come."""


def wait_until(condition, what, limit=LIMIT):
    """Polls until the condition gives something true, which is the result. `what` may be a function."""
    end = time.monotonic() + limit
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise NotReached(f"after {limit} seconds: {what() if callable(what) else what}")
        time.sleep(0.02)


Window = collections.namedtuple(
    "Window", "handle parent process kind text style extended visible left top right bottom")


class Probe:
    """The helper program that looks at the machine from inside."""

    def __init__(self, command, environment):
        self._process = subprocess.Popen(command, env=environment, stdin=subprocess.PIPE,
                                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def ask(self, *fields):
        line = "\t".join(urllib.parse.quote(str(field), safe="", encoding="latin-1") for field in fields)
        self._process.stdin.write(line.encode("ascii") + b"\n")
        self._process.stdin.flush()
        answers = []
        while True:
            answer = self._process.stdout.readline()
            if not answer:
                raise RuntimeError(f"the probe ended at {line}")
            answer = answer.decode("ascii").rstrip("\r\n")
            if not answer:
                break
            answers.append([urllib.parse.unquote(field, encoding="latin-1") for field in answer.split("\t")])
        if answers and answers[0][0] == "problem":
            raise RuntimeError(f"{line}: {answers[0][1]}")
        return answers

    def _windows(self, *question):
        return [Window(*(field if name in ("kind", "text") else int(field)
                         for name, field in zip(Window._fields, fields)))
                for fields in self.ask(*question)]

    def windows(self):
        """The top-level windows, uppermost first."""
        return self._windows("windows")

    def children(self, window):
        return self._windows("children", window.handle)

    def settle(self, window):
        """Returns when what lay in the queue of the window's thread has gone through; whether it still
        is there."""
        return self.ask("settle", window.handle) == [["settled"]]

    def close(self):
        end(self._process)


class Session:
    """One machine with its screen, from its start to its `close`; `sound` is its sound server, or None for a
    machine that has nothing to play a sound on."""

    def __init__(self, template, helpers, folder, size, dpi, sound):
        self.width, self.height = size
        with contextlib.ExitStack() as stack:
            os.makedirs(folder)
            display = stack.enter_context(
                with_wine.virtual_screen(f"{self.width}x{self.height}", "-fbdir", folder))
            self._screen = screen.Screen(os.path.join(folder, "Xvfb_screen0"))
            stack.callback(self._screen.close)
            with_wine.ensure_template(template, display)
            self.environment = stack.enter_context(with_wine.fresh_prefix(template, dpi, display))
            self.sound = None
            if sound:
                self.sound = with_sound.SoundServer(os.path.join(folder, "sound"))
                stack.callback(self.sound.close)
                self.environment.update(self.sound.environment)
            self.drive = os.path.join(self.environment["WINEPREFIX"], "drive_c")
            self._probe_program = os.path.join(helpers, "probe.exe")
            self.probe = self.start_probe()
            stack.callback(self.probe.close)
            # A crash ends a program at once.
            self.set_value("Software\\Wine\\WineDbg", "ShowCrashDialog", 0)
            self.set_value("Software\\Wine\\Drivers", "Audio", "pulse" if sound else "")
            # So that a form that doesn't cover the screen shows.
            self.hold("backdrop", 0, 0, *size)
            self.close = stack.pop_all().close

    def start_probe(self):
        """Another probe, for its starter to close."""
        return Probe(["wine", self._probe_program], self.environment)

    def hold(self, caption, left, top, width, height):
        """Another program's window, grey, until it is released or the machine ends."""
        self.probe.ask("hold", caption, left, top, width, height)

    def release(self, caption):
        self.probe.ask("release", caption)

    def start(self, program, *arguments, errors=subprocess.DEVNULL, **environment):
        """Runs a program of the machine, named by its path on this one. The result's exit code is its; what
        Wine has to say of errors goes to the file `errors`."""
        return subprocess.Popen(["wine", program, *arguments],
                                env={**self.environment, "WINEDEBUG": "fixme-all", **environment},
                                cwd=os.path.dirname(program), stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=errors)

    def windows_path(self, path):
        return "C:\\" + os.path.relpath(path, self.drive).replace("/", "\\")

    def shot(self):
        return self._screen.shot()

    def act(self, *arguments):
        """Mouse and keyboard, as xdotool names them."""
        subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True)

    def act_on(self, window, *arguments):
        """As `act`, and returns when the window's thread has taken what came of it; whether it still is
        there."""
        before = self.probe.ask("last input")
        self.act(*arguments)
        wait_until(lambda: self.probe.ask("last input") != before, "the input doesn't arrive")
        return self.probe.settle(window)

    def set_value(self, key, name, value):
        """A value of the current user's registry: a text or a number; None takes it away."""
        if value is None:
            self.probe.ask("unset", key, name)
        elif isinstance(value, int):
            self.probe.ask("set", key, name, "number", value)
        else:
            self.probe.ask("set", key, name, "text", value)

    def values(self, key):
        """The values of a key of the current user, as they are stored: type and bytes by their names."""
        return {name: (int(kind), data) for name, kind, data in self.probe.ask("values", key)}

    def clear_key(self, key):
        self.probe.ask("clear", key)
