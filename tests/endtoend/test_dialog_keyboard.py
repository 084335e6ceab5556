"""The settings dialog by keyboard alone."""

from dialog import Dialog
from dialog_case import DialogCase
from pictures import quarters
from session import wait_until


class KeyboardTest(DialogCase):
    def open(self, **settings):
        dialog = super().open(**settings)
        # Without a window manager keys go where the pointer is.
        self.machine.act("mousemove", self.machine.width // 2, self.machine.height // 2)
        return dialog

    def press(self, dialog, *keys):
        for key in keys:
            self.machine.act_on(dialog.form, "key", key)

    def test_a_folder_is_chosen_and_shown_from_opening_to_done(self):
        picture = self.add("a.bmp", quarters(300, 200))
        dialog = self.open(ImagePath=self.machine.windows_path(self.folder) + "\\", AllImages="0",
                           DissolveType="Random Vertical")
        # From "Template Mode" past its three buttons and the text to "Folder Mode"
        self.press(dialog, *["Tab"] * 5, "space")
        dialog.wait_for_text("edit", self.machine.windows_path(self.folder) + "\\")
        self.press(dialog, "Tab", "space")  # "Select"
        self.press(dialog, "Tab", "Home", "Right")  # the delay
        dialog.wait_for_text("static", "Delay Interval: 2 Seconds")
        self.press(dialog, "Left")
        dialog.wait_for_text("static", "Delay Interval: 1 Seconds")
        self.press(dialog, *["Tab"] * 5)  # past the other bars and "Ignore Mouse" to the drives
        self.press(dialog, "Tab", "End", "Return")  # the last folder, and into it
        dialog.wait_for_text("edit", self.windows_folder() + "\\")
        self.press(dialog, "Tab", "Tab", "Home", "Down")  # past the files to the transitions
        self.press(dialog, "Tab", "Down", "Up")  # the size, over "Full Screen" back to "Original"
        self.press(dialog, "Tab", "Tab", "Up")  # the placement, the order: from "Sequential" to "Random"
        self.press(dialog, "Tab", "space")  # "Done"
        dialog.show.wait_for_end()
        stored = self.stored()
        self.assertEqual({key: stored[key] for key in ("AllImages", "ImageInterval", "DissolveType", "FullScreen",
                                                  "ImagePositionRandom", "ImageOrderRandom")},
                         {"AllImages": "1", "ImageInterval": "1", "DissolveType": "Normal", "FullScreen": "0",
                          "ImagePositionRandom": "0", "ImageOrderRandom": "1"})
        self.check_show(self.frame().centre(picture))

    def test_a_template_is_chosen_from_opening_to_done(self):
        self.write("a.txt", b"")
        self.write("b.txt", b"")
        dialog = self.open(ImagePath=self.windows_folder() + "\\", AllImages="0")
        self.press(dialog, "Tab", "space")  # "Select"
        # Past its neighbours, the text, "Folder Mode", the bars, "Ignore Mouse" and the drives
        self.press(dialog, *["Tab"] * 11)
        self.press(dialog, "Tab", "Down", "Down")  # the files
        dialog.wait_for_text("edit", self.windows_folder("b.txt"))
        self.press(dialog, *["Tab"] * 4, "Return")
        dialog.show.wait_for_end()
        self.assertEqual(self.stored()["ImageListFile"], "b.txt")

    def test_the_menu_opens_the_about_box_and_escape_closes_it(self):
        dialog = self.open()
        self.machine.act("key", "alt+h")
        self.machine.act("key", "a")
        about = Dialog(self, dialog.show, "About Tessellarium")
        self.machine.act("key", "Escape")
        wait_until(lambda: all(window.handle != about.form.handle for window in self.probe.windows()),
                   "the about box stays")
        self.press(dialog, "Tab", "space")  # the keyboard is back: "Select"
        self.assertEqual(len(dialog.lists()), 2)
        dialog.close()
        dialog.show.wait_for_end()
