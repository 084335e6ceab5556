"""What the tests of the settings dialog share."""

import os

from case import SETTINGS, EndToEndCase
from dialog import Dialog


class DialogCase(EndToEndCase):
    def open(self, **settings):
        return Dialog(self, self.start("/c", **settings))

    def windows_folder(self, *names):
        """The folder of the test's pictures, or what lies in it, as the machine names it."""
        return self.machine.windows_path(os.path.join(self.pictures, *names))

    def stored(self):
        return {name: data.rstrip("\0") for name, (_, data) in self.machine.values(SETTINGS).items()}

    def check_show(self, frame):
        """The settings, as they stand, bring this to the screen."""
        show = self.start_program(self.program, "/s")
        show.wait_for_frame(frame)
        self.end_by_key(show)
