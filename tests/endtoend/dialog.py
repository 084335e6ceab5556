"""A dialog of the started product, worked from outside through its real windows."""

from session import wait_until

WM_CLOSE = 0x10
WM_COMMAND = 0x111
WM_HSCROLL = 0x114
BM_CLICK = 0xF5
LB_SETCURSEL = 0x186
CB_SETCURSEL = 0x14E
LBN_SELCHANGE, LBN_DBLCLK = 1, 2
CBN_SELCHANGE = 1
SB_THUMBPOSITION = 4
CONTENTS, HOME_PAGE, ABOUT = 0x101, 0x102, 0x103  # the identifiers of the menu's entries

SYSTEM_DIALOG = "#32770"  # the window class of the system's own dialogs


class Dialog:
    """By its caption; the settings dialog unless another is given."""

    def __init__(self, test, show, caption="Tessellarium Settings"):
        self._test = test
        self._probe = test.probe
        self.machine = test.machine
        self.show = show
        self._caption = caption
        self.form = wait_until(self._find, "the dialog doesn't come up")

    def _find(self):
        self.show.must_run()
        return next((window for window in self.show.windows()
                     if window.text == self._caption and window.visible), None)

    def all_controls(self):
        """In the order of the tab key, each frame before what stands in it."""
        return self._probe.children(self.form)

    def controls(self, kind, text=None):
        """The visible ones of a class, in the order of the tab key."""
        return [child for child in self.all_controls()
                if child.kind.lower() == kind and child.visible and text in (None, child.text)]

    def lists(self):
        """The visible list boxes, once there are any."""
        return wait_until(lambda: self.controls("listbox"), "there are no lists")

    def post(self, window, message, first=0, second=0):
        self._probe.ask("post", window, message, first, second)
        self._probe.settle(self.form)

    def send(self, window, message, first=0, second=0):
        """The answer of the window."""
        return int(self._probe.ask("send", window, message, first, second)[0][0])

    def click(self, text, index=0):
        # A busy machine's window may not tell its text in time.
        buttons = wait_until(lambda: self.controls("button", text)[index:], f"there is no button {text}")
        self.post(buttons[0].handle, BM_CLICK)

    def choose(self, box, index, *notices):
        self.post(box.handle, LB_SETCURSEL, index)
        for notice in notices:
            self.post(box.parent, WM_COMMAND, notice << 16, box.handle)

    def choose_from_drop_down(self, box, index):
        self.post(box.handle, CB_SETCURSEL, index)
        self.post(box.parent, WM_COMMAND, CBN_SELCHANGE << 16, box.handle)

    def choose_from_menu(self, entry):
        self.post(self.form.handle, WM_COMMAND, entry)

    def scroll(self, bar, position):
        self.post(bar.parent, WM_HSCROLL, position << 16 | SB_THUMBPOSITION, bar.handle)

    def enter(self, text):
        """What stands in the text box, as another program replaces it."""
        box = wait_until(lambda: self.controls("edit"), "there is no text box")[0]
        self._probe.ask("send text", box.handle, text)

    def close(self):
        self.post(self.form.handle, WM_CLOSE)

    def wait_for_text(self, kind, text):
        wait_until(lambda: self.controls(kind, text),
                   lambda: f"no {text!r} among {[control.text for control in self.controls(kind)]}")

    def _system_dialog(self):
        return next((window for window in self.show.windows() if window.kind == SYSTEM_DIALOG and window.visible
                     and window.process == self.form.process), None)

    def asked(self):
        """The foremost of the system's dialogs that the program has up, or nothing."""
        self.show.must_run()
        return self._system_dialog()

    def message_box(self):
        """The one that the program has up: its title, its text and its buttons."""
        box = wait_until(self.asked, "no message box comes up")
        parts = self._probe.children(box)
        text = "".join(part.text for part in parts if part.kind == "Static")
        return box.text, text, [part.text.replace("&", "") for part in parts if part.kind == "Button"]

    def answer(self, button):
        """Presses a button of the system's dialog, once that has come up, and sees it go, or another come."""
        dialog = wait_until(self.asked, "no dialog comes up")

        def found():
            return next((part for part in self._probe.children(dialog) if part.text.replace("&", "") == button), None)
        part = wait_until(found, f"the dialog has no {button}")
        self._test.keep_shot(self.machine.shot(), f"dialog with {button}")
        self._probe.ask("post", part.handle, BM_CLICK, 0, 0)
        wait_until(lambda: getattr(self._system_dialog(), "handle", None) != dialog.handle, "the dialog stays")
