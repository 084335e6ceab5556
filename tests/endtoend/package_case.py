"""What the tests of packaged screen savers share."""

import os
import shutil
import subprocess

from case import SETTINGS, EndToEndCase, Machines


class PackageCase(EndToEndCase):
    """`start_template` packages the template, and starts the package with no setting but the given ones."""

    def setUp(self):
        super().setUp()
        self.alone = os.path.join(self.folder, "alone")
        os.mkdir(self.alone)

    def write_package(self, *lines):
        """A package in a folder of its own; the template and its files are gone then."""
        self.write("show.txt", "".join(line + "\r\n" for line in lines).encode("cp1252"))
        package = os.path.join(self.alone, "Holiday.scr")
        tool = os.path.join(os.path.dirname(Machines.current.product), "tessellarium-inspect")
        subprocess.run([tool, "write", "--drive", "C=" + self.pictures, "--exe", self.program,
                        "--template", r"C:\show.txt", "--out", package], check=True)
        shutil.rmtree(self.pictures)
        os.mkdir(self.pictures)
        os.remove(self.program)
        return package

    def start_package(self, package, **settings):
        self.machine.clear_key(SETTINGS)
        for name, value in settings.items():
            self.machine.set_value(SETTINGS, name, value)
        return self.start_program(package, "/s")

    def start_template(self, *lines, **settings):
        return self.start_package(self.write_package(*lines), **settings)

    def wait_for_picture(self, show, picture, comment):
        """Waits until the screen shows this picture with this comment, and nothing else."""
        label = self.wait_for_comment(show, comment)
        frame = self.frame().centre(picture)
        show.wait_for_frame(frame.ignore(label.left, label.top, label.right, label.bottom))
