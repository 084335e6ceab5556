"""The settings dialog by the mouse alone, as the user holds it: by what lies beneath the pointer."""

from dialog_case import DialogCase
from pictures import quarters

LB_GETITEMHEIGHT = 0x1A1


def middle(window):
    return (window.left + window.right) // 2, (window.top + window.bottom) // 2


class MouseTest(DialogCase):
    def click(self, dialog, text, index=0):
        self.act(dialog, *middle(dialog.controls("button", text)[index]), "click", 1)

    def act(self, dialog, x, y, *actions):
        """Moves the pointer there, and goes on from there."""
        self.machine.act_on(dialog.form, "mousemove", x, y, *actions)

    def row(self, dialog, box, number):
        """The middle of a row of a list, counted from 1."""
        height = dialog.send(box.handle, LB_GETITEMHEIGHT)
        return (box.left + box.right) // 2, box.top + 2 + height * number - height // 2

    def drag_to_end(self, dialog, bar):
        """Takes the thumb of a bar, which stands at the beginning, behind its arrow."""
        x, y = middle(bar)
        thumb = bar.left + (bar.bottom - bar.top) + 5
        self.act(dialog, thumb, y, "mousedown", 1)
        self.act(dialog, x, y)
        self.act(dialog, bar.right - 2, y, "mouseup", 1)

    def test_a_folder_is_chosen_and_shown_from_opening_to_done(self):
        picture = self.add("a.bmp", quarters(300, 200))
        dialog = self.open(ImagePath=self.machine.windows_path(self.folder) + "\\", AllImages="0", Blocks="10")
        self.click(dialog, "Folder Mode")
        dialog.wait_for_text("edit", self.machine.windows_path(self.folder) + "\\")
        self.click(dialog, "Select", 1)
        folders, _ = dialog.lists()
        self.act(dialog, *self.row(dialog, folders, 3), "click", "--repeat", 2, "--delay", 20, 1)
        dialog.wait_for_text("edit", self.windows_folder() + "\\")
        self.drag_to_end(dialog, dialog.controls("scrollbar")[1])
        dialog.wait_for_text("static", "Dissolve Size: 50")
        self.click(dialog, "Full Screen")
        self.keep_shot(self.machine.shot(), "chosen")
        self.click(dialog, "Done")
        dialog.show.wait_for_end()
        stored = self.stored()
        self.assertEqual([stored[key] for key in ("AllImages", "ImagePath", "Blocks", "FullScreen")],
                         ["1", self.windows_folder() + "\\", "50", "1"])
        self.check_show(self.frame().stretch(picture, blur=8))

    def test_a_template_is_chosen_from_opening_to_done(self):
        self.write("a.txt", b"")
        self.write("b.txt", b"")
        dialog = self.open(ImagePath=self.windows_folder() + "\\", AllImages="0")
        self.click(dialog, "Select")
        _, files = dialog.lists()
        self.act(dialog, *self.row(dialog, files, 2), "click", 1)
        dialog.wait_for_text("edit", self.windows_folder("b.txt"))
        self.click(dialog, "Ignore Mouse")
        self.click(dialog, "Random", 1)
        self.click(dialog, "Done")
        dialog.show.wait_for_end()
        stored = self.stored()
        self.assertEqual([stored[key] for key in ("ImageListFile", "IgnoreMouse", "ImagePositionRandom",
                                                  "ImageOrderRandom")], ["b.txt", "1", "0", "1"])
