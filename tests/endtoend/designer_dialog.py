"""The template designer and its item editor, worked from outside through their real windows."""

from dialog import LBN_DBLCLK, LBN_SELCHANGE, Dialog
from session import wait_until

LVM_GETNEXTITEM = 0x100C
LVNI_SELECTED = 2
PBM_GETPOS = 0x408
TRANSITIONS = ["Random", "Normal", "Random Blocks", "Top To Bottom"]  # the first of the editor's list


class Designer(Dialog):
    def __init__(self, test, show, caption="Template Designer"):
        super().__init__(test, show, caption)
        (self.list,) = self.controls("syslistview32")

    def rows(self):
        """The texts of each row."""
        return self._probe.ask("rows", self.list.handle)

    def selected(self):
        """The row, from 1."""
        return self.send(self.list.handle, LVM_GETNEXTITEM, 2**64 - 1, LVNI_SELECTED) + 1

    def wait_for_selected(self, number):
        wait_until(lambda: self.selected() == number, lambda: f"the selected row is {self.selected()}")

    def wait_for_rows(self, *rows):
        wait_until(lambda: self.rows() == [list(row) for row in rows], lambda: f"the rows are {self.rows()}")

    def click_row(self, number):
        """Clicks on one of the first rows with the mouse."""
        header, row = (pixels * self._test.dpi // 96 for pixels in (18, 13))
        top = self.list.top + header + row * number - row // 2
        self.machine.act_on(self.form, "mousemove", self.list.left + 30, top, "click", "1")

    def double_click_row(self, number):
        self.click_row(number)
        self.machine.act_on(self.form, "click", "--repeat", "2", "--delay", "20", "1")

    def press(self, key):
        self.machine.act_on(self.form, "key", key)

    def name_field(self):
        """The field of the dialog that asks for a file's name, once that has come up."""
        def field():
            dialog = self.asked()
            children = self._probe.children(dialog) if dialog else []
            return next((child for child in children if child.kind == "Edit" and child.visible), None)
        return wait_until(field, "the system doesn't ask for a name")

    def enter_name(self, path):
        self._probe.ask("send text", self.name_field().handle, path)
        self.answer("Save")
        self._probe.settle(self.form)

    def name_file(self, button, path):
        """Presses a button that asks for a file, and enters its name."""
        self.click(button)
        self.enter_name(path)


class Editor(Dialog):
    """The item editor, which the designer opens."""

    def __init__(self, test, show):
        super().__init__(test, show, "Template Edit")

    def enter_folders(self, name, among):
        """Enters a folder in both lists of folders."""
        for folders in self.lists()[::2]:
            self.choose(folders, among.index(name), LBN_SELCHANGE, LBN_DBLCLK)

    def pick(self, image, sound, among):
        """Clicks on a picture and on a sound of the folder that is shown, by the names in it."""
        _, images, _, sounds = self.lists()
        for files, name, endings in (images, image, (".bmp",)), (sounds, sound, (".wav",)):
            if name:
                names = sorted(name for name in among if name.endswith(endings))
                self.choose(files, names.index(name), LBN_SELCHANGE)

    def choose_transition(self, name):
        box = [box for box in self.controls("combobox") if box.right - box.left > 200][-1]
        self.choose_from_drop_down(box, TRANSITIONS.index(name))

    def type_comment(self, text):
        (box,) = self.controls("edit")
        self.machine.act("mousemove", box.left + 20, box.top + 10, "click", "1")
        self.machine.act("type", "--delay", "0", text)
        typed = text.replace("\n", "\r\n")
        wait_until(lambda: typed in self.controls("edit")[0].text, "the comment isn't typed")
