"""The settings dialog, worked from outside through its real windows."""

import os

from case import EndToEndCase
from pictures import quarters
from session import wait_until

WM_CLOSE = 0x10
BM_CLICK = 0xF5
LB_SETCURSEL = 0x186
WM_COMMAND = 0x111
WM_HSCROLL = 0x114
LBN_SELCHANGE, LBN_DBLCLK = 1, 2
SB_THUMBPOSITION = 4


class Dialog:
    """A dialog of a started product, by its caption."""

    def __init__(self, test, show, caption="Tessellarium Settings"):
        self._probe = test.probe
        self._caption = caption
        self.show = show
        self.form = wait_until(self._find, f"the dialog {caption} doesn't come up")

    def _find(self):
        self.show.must_run()
        return next((window for window in self._probe.windows()
                     if window.text == self._caption and window.visible), None)

    def controls(self, kind, text=None):
        """The visible ones of a class, in the order of the tab key."""
        return [child for child in self._probe.children(self.form)
                if child.kind.lower() == kind and child.visible and text in (None, child.text)]

    def post(self, window, message, first=0, second=0):
        self._probe.ask("post", window, message, first, second)
        self._probe.settle(self.form)

    def click(self, text, index=0):
        # A busy machine's window may not tell its text in time.
        buttons = wait_until(lambda: self.controls("button", text)[index:], f"there is no button {text}")
        self.post(buttons[0].handle, BM_CLICK)

    def choose(self, box, index, *notices):
        self.post(box.handle, LB_SETCURSEL, index)
        for notice in notices:
            self.post(box.parent, WM_COMMAND, notice << 16, box.handle)

    def scroll(self, bar, position):
        self.post(bar.parent, WM_HSCROLL, position << 16 | SB_THUMBPOSITION, bar.handle)

    def wait_for_text(self, kind, text):
        wait_until(lambda: self.controls(kind, text),
                   lambda: f"no {text!r} among {[control.text for control in self.controls(kind)]}")


class DialogTest(EndToEndCase):
    def open(self, **settings):
        return Dialog(self, self.start("/c", **settings))

    def test_a_folder_chosen_in_the_dialog_is_shown(self):
        picture = self.add("a.bmp", quarters(300, 200))
        self.add("b.bmp", quarters(200, 100))
        dialog = self.open(ImagePath=self.machine.windows_path(self.folder) + "\\")
        self.assertEqual([box.text for box in dialog.controls("button") if "Mode" in box.text],
                         ["Template Mode", "Folder Mode"])
        dialog.click("Folder Mode")
        dialog.click("Select", 1)
        folders, _ = dialog.controls("listbox")
        dialog.choose(folders, 2, LBN_SELCHANGE, LBN_DBLCLK)
        dialog.wait_for_text("edit", self.machine.windows_path(self.pictures) + "\\")
        dialog.scroll(dialog.controls("scrollbar")[0], 1)
        dialog.wait_for_text("static", "Delay Interval: 1 Seconds")
        self.keep_shot(self.machine.shot(), "folder")
        dialog.click("Done")
        dialog.show.wait_for_end()
        show = self.start_program(self.program, "/s")
        show.wait_for_frame(self.frame().centre(picture))
        self.end_by_key(show)

    def test_a_template_chosen_in_the_dialog_is_shown(self):
        picture = self.add("a.bmp", quarters(300, 200))
        self.write("t1.txt", b"IMAGE=a.bmp\r\n")
        dialog = self.open(ImagePath=self.machine.windows_path(self.pictures) + "\\")
        dialog.click("Select")
        _, files = dialog.controls("listbox")
        dialog.choose(files, sorted(os.listdir(self.pictures)).index("t1.txt"), LBN_SELCHANGE)
        dialog.wait_for_text("edit", self.machine.windows_path(os.path.join(self.pictures, "t1.txt")))
        dialog.click("Done")
        dialog.show.wait_for_end()
        show = self.start_program(self.program, "/s")
        show.wait_for_frame(self.frame().centre(picture))
        self.end_by_key(show)

    def test_cancel_and_the_close_box_save_nothing(self):
        picture = self.add("a.bmp", quarters(300, 200))
        for end in (lambda dialog: dialog.click("Cancel"),
                    lambda dialog: dialog.post(dialog.form.handle, WM_CLOSE)):
            dialog = self.open(AllImages="1")
            dialog.click("Full Screen")
            end(dialog)
            dialog.show.wait_for_end()
            show = self.start_program(self.program, "/s")
            show.wait_for_frame(self.frame().centre(picture))
            self.end_by_key(show)
