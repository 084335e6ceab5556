"""What the tests of the password share."""

import os
import shutil

from case import DESKTOP, VERSION, EndToEndCase
from session import wait_until


class PasswordCase(EndToEndCase):
    """A machine of the non-NT family that asks for a password."""

    def setUp(self):
        super().setUp()
        self.library = os.path.join(self.machine.drive, "windows", "system32", "password.cpl")
        shutil.copy(os.path.join(self.helpers, "password.cpl"), self.library)
        self.addCleanup(lambda: os.path.exists(self.library) and os.remove(self.library))
        self.state = os.path.join(self.machine.drive, "password")
        shutil.rmtree(self.state, ignore_errors=True)
        os.mkdir(self.state)
        self.machine.set_value(VERSION, "Version", "win98")
        self.machine.set_value(DESKTOP, "ScreenSaveUsePassword", 1)

    def answer(self, *answers):
        """What the library will answer: 0 is a wrong password, as is every answer after these."""
        with open(os.path.join(self.state, "answers"), "w", encoding="ascii") as file:
            file.writelines(f"{answer}\n" for answer in answers)

    def calls(self):
        """What the library noted; nothing when it was never loaded."""
        try:
            with open(os.path.join(self.state, "calls"), encoding="ascii") as file:
                return file.read().splitlines()
        except FileNotFoundError:
            return []

    def wait_for_calls(self, count):
        wait_until(lambda: len(self.calls()) > count, lambda: f"calls: {self.calls()}")
        self.assertEqual(self.calls()[0], "loaded")
