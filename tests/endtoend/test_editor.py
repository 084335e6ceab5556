"""The item editor with its previews, and the picker of templates, worked from outside through their real windows."""

import os

from designer_case import DesignerCase
from designer_dialog import Editor
from dialog import LBN_SELCHANGE, Dialog
from pictures import quarters
from session import wait_until
from sound_case import LONG, LOW, ListeningCase

WS_MAXIMIZEBOX, WS_MINIMIZEBOX, WS_THICKFRAME = 0x10000, 0x20000, 0x40000
BLANK = [""] * 4


class EditorCase(DesignerCase):
    def open_row(self, *lines):
        """The designer on a template of these lines, and the editor on its first row."""
        _, designer = self.open("t.txt", lines)
        designer.double_click_row(1)
        return designer, Editor(self, designer.show)

    def press(self, dialog, *keys):
        self.machine.act_on(dialog.form, "key", "--delay", "50", *keys)

    def check_fixed(self, dialog):
        """It can be neither minimised nor maximised nor made larger."""
        self.assertEqual(dialog.form.style & (WS_MAXIMIZEBOX | WS_MINIMIZEBOX | WS_THICKFRAME), 0)

    def wait_until_gone(self, dialog):
        wait_until(lambda: all(window.handle != dialog.form.handle for window in self.probe.windows()),
                   f"{dialog.form.text} stays")


class EditorTest(EditorCase):
    def test_a_row_is_edited_by_the_keyboard_alone(self):
        for name in "a.bmp", "b.bmp":
            self.add(name, quarters(30, 20))
        designer, editor = self.open_row(f"IMAGE={self.windows('a.bmp')}", "old")
        self.assertEqual(editor.controls("static", f"Image File: {self.windows('a.bmp')}")[0].visible, 1)
        # To the list of pictures and its second file, to the transitions and the second of them, to the comment.
        self.press(editor, "Tab", "Tab", "Down", "Down", *["Tab"] * 8, "Down", "Tab")
        self.machine.act("type", "--delay", "50", "x^y")
        self.press(editor, "Return")
        wait_until(lambda: editor.controls("edit", "x\r\ny\r\nold"), lambda: editor.controls("edit")[0].text)
        self.keep_shot(self.machine.shot(), "edited")
        self.press(editor, "Tab", "Tab", "space")
        self.wait_until_gone(editor)
        designer.wait_for_rows(["b.bmp", "", "Normal", "x^y^old"], BLANK)

    def test_escape_hands_nothing_back(self):
        self.add("a.bmp", quarters(30, 20))
        designer, editor = self.open_row(f"IMAGE={self.windows('a.bmp')}", "old")
        editor.pick("a.bmp", None, os.listdir(self.pictures))
        editor.type_comment("new")
        self.press(editor, "Escape")
        self.wait_until_gone(editor)
        designer.wait_for_rows(["a.bmp", "", "", "old"], BLANK)

    def test_view_stretches_the_picture_to_its_box(self):
        grid = self.add("a.bmp", quarters(30, 200))
        _, editor = self.open_row(f"IMAGE={self.windows('a.bmp')}")
        self.check_fixed(editor)
        editor.pick("a.bmp", None, os.listdir(self.pictures))
        editor.click("View")
        viewer = Dialog(self, editor.show, "Image Viewer")
        self.check_fixed(viewer)
        (box,) = viewer.controls("tessellariumpicturebox")
        width, height = box.right - box.left, box.bottom - box.top
        self.assertEqual((width, height), (358, 217))
        frame = self.frame()
        frame.ignore(0, 0, self.machine.width, self.machine.height)
        frame.paint(grid, box.left, box.top, width, height, blur=8)
        wait_until(lambda: not frame.difference(self.machine.shot()), "the picture isn't shown")
        self.keep_shot(self.machine.shot(), "viewer")
        self.press(viewer, "Return")
        self.wait_until_gone(viewer)
        self.press(editor, "Escape")
        self.wait_until_gone(editor)

    def test_what_is_no_picture_is_told(self):
        self.write("a.bmp", b"no picture")
        _, editor = self.open_row(f"IMAGE={self.windows('a.bmp')}")
        editor.click("View")
        editor.pick("a.bmp", None, os.listdir(self.pictures))
        editor.click("View")
        _, text, buttons = editor.message_box()
        self.assertEqual(text, "An Error Has Occurred: Invalid picture")
        self.assertEqual(buttons, ["OK"])
        editor.answer("OK")
        self.press(editor, "Escape")
        self.wait_until_gone(editor)

    def test_a_template_is_picked(self):
        self.write("t2.txt", b"IMAGE=b.bmp\r\ntwo\r\n")
        _, designer = self.open("t.txt", ["IMAGE=a.bmp", "one"])
        for button, rows in ("Cancel", [["a.bmp", "", "", "one"], BLANK]), ("Ok", [["b.bmp", "", "", "two"]]):
            designer.click("Load")
            picker = Dialog(self, designer.show, "Template Load")
            folders, _ = picker.lists()
            picker.choose(folders, 2, LBN_SELCHANGE, 2)
            _, files = picker.lists()
            picker.choose(files, 1, LBN_SELCHANGE)
            self.keep_shot(self.machine.shot(), f"picker {button}")
            picker.click(button)
            self.wait_until_gone(picker)
            designer.wait_for_rows(*rows)


class SoundPreviewTest(EditorCase, ListeningCase):
    def test_a_sound_is_heard_paused_and_ended_with_its_preview(self):
        self.add_tone("low.wav", LOW, LONG)
        _, editor = self.open_row("IMAGE=a.bmp", f"SOUND={self.windows('low.wav')}")
        editor.pick(None, "low.wav", os.listdir(self.pictures))
        editor.click("Play")
        player = Dialog(self, editor.show, "Sound Player")
        self.check_fixed(player)
        self.wait_for_tones(LOW, seconds=1)
        player.wait_for_text("static", "Playing")
        self.keep_shot(self.machine.shot(), "player")
        player.click("Pause")
        player.wait_for_text("static", "Paused")
        self.wait_for_silence()
        before = self.listener.now()
        player.click("Play")

        def heard():
            return [tone for tone in self.listener.tones() if tone.begin > before and tone.heard > 1]
        wait_until(heard, lambda: f"was heard: {self.listener.tones()}")
        self.press(player, "Escape")
        self.wait_until_gone(player)
        self.wait_for_silence()
        self.press(editor, "Escape")
        self.wait_until_gone(editor)

    def wait_for_silence(self):
        """A second of it, long before the sound would be over by itself."""
        wait_until(lambda: self.listener.now() - self.listener.tones()[-1].end > 1,
                   lambda: f"was heard: {self.listener.tones()}", LONG / 2)


class LargeTypeTest(EditorCase):
    """At 150 % each control has its room; pictures for who looks."""

    size = (1920, 1200)
    dpi = 144

    def test_large_type(self):
        self.add("a.bmp", quarters(30, 20))
        self.write("a.wav", b"no sound")
        designer, editor = self.open_row(f"IMAGE={self.windows('a.bmp')}", f"SOUND={self.windows('a.wav')}", "old")
        self.check_inside(editor)
        editor.pick("a.bmp", "a.wav", os.listdir(self.pictures))
        editor.click("View")
        viewer = Dialog(self, editor.show, "Image Viewer")
        self.check_inside(viewer)
        viewer.click("Ok")
        self.wait_until_gone(viewer)
        editor.click("Play")
        player = Dialog(self, editor.show, "Sound Player")
        self.check_inside(player)
        player.close()
        self.wait_until_gone(player)
        editor.click("Cancel")
        self.wait_until_gone(editor)
        designer.click("Load")
        self.check_inside(Dialog(self, designer.show, "Template Load"))


class LargerTypeTest(LargeTypeTest):
    """The same at 200 %."""

    size = (2560, 1600)
    dpi = 192
