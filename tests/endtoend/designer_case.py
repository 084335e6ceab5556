"""What the tests of the template designer and of its item editor share."""

import os

from case import EndToEndCase
from designer_dialog import Designer
from dialog import Dialog
from session import wait_until


class DesignerCase(EndToEndCase):
    def open(self, template=None, lines=()):
        """The settings dialog, and the designer from its "New", or from its "Edit" on a template."""
        if template:
            self.write(template, "".join(line + "\r\n" for line in lines).encode("cp1252"))
            show = self.start("/c", ImagePath=self.windows(""), ImageListFile=template)
        else:
            show = self.start("/c")
        settings = Dialog(self, show)
        settings.click("Edit" if template else "New")
        caption = "Template Designer" + (f" - {self.windows(template)}" if template else "")
        return settings, Designer(self, show, caption)

    def windows(self, name):
        return self.machine.windows_path(self.pictures) + "\\" + name

    def content(self, name):
        with open(os.path.join(self.pictures, name), "rb") as file:
            return file.read()

    def create(self, designer, name):
        """The path of the package, once it is finished."""
        designer.name_file("Create", self.windows(name))
        return self.wait_for_package(name + ".scr")

    def wait_for_package(self, name):
        def finished():
            try:
                return self.content(name).endswith(b"Tessellarium\r\n")
            except FileNotFoundError:  # also while a former one gives way to it
                return False
        wait_until(finished, "the package isn't finished")
        return os.path.join(self.pictures, name)

    def finish(self, settings, designer, template):
        """Closes both dialogs and keeps the template."""
        designer.click("Ok")
        settings.wait_for_text("edit", self.windows(template))
        settings.click("Done")
        settings.show.wait_for_end()

    def check_inside(self, dialog, when=""):
        """Each control lies within what it stands in."""
        self.keep_shot(self.machine.shot(), f"{dialog.form.text} at {self.dpi} {when}")
        inside = {dialog.form.handle: dialog.form}
        for control in dialog.all_controls():
            inside[control.handle] = control
            if control.visible:
                outer = inside[control.parent]
                self.assertGreaterEqual(control.left, outer.left, control)
                self.assertGreaterEqual(control.top, outer.top, control)
                self.assertLessEqual(control.right, outer.right, control)
                self.assertLessEqual(control.bottom, outer.bottom, control)
