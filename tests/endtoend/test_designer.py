"""The template designer, worked from outside through its real windows."""

import os
import shutil

import sounds
from case import Machines
from designer_case import DesignerCase
from designer_dialog import PBM_GETPOS, Designer, Editor
from dialog import Dialog
from pictures import quarters
from session import wait_until
from sound_case import LOW, MIDDLE, ListeningCase

LVM_GETCOLUMNWIDTH = 0x101D


class DesignerTest(DesignerCase):
    def test_new_comes_up_with_a_row_and_goes_without_a_question(self):
        settings, designer = self.open()
        self.assertEqual(designer.rows(), [[""] * 4])
        self.assertEqual(designer.selected(), 1)
        widths = [designer.send(designer.list.handle, LVM_GETCOLUMNWIDTH, column) for column in range(4)]
        self.assertEqual(widths[:3], [99, 99, 99])
        self.assertAlmostEqual(widths[3], 362, delta=4, msg="but for the border")
        self.assertEqual([button.text for button in designer.controls("button")],
                         ["Up", "Down", "Insert", "Delete", "Clear", "Save", "Create", "Load", "Ok", "Sound Mode",
                          "Sync1", "Sync2", "Async"])
        self.keep_shot(self.machine.shot(), "new")
        up = designer.controls("button", "Up")[0]
        self.machine.act("mousemove", up.left + 10, up.top + 10)
        wait_until(lambda: any(window.kind == "tooltips_class32" and window.visible for window in self.probe.windows()),
                   "no tool tip comes up")
        self.keep_shot(self.machine.shot(), "tool tip")
        designer.click("Ok")
        settings.wait_for_text("edit", "")
        settings.click("Cancel")
        settings.show.wait_for_end()

    def test_rows_are_worked_by_mouse_buttons_and_keys(self):
        _, designer = self.open("t.txt", ["IMAGE=a.bmp", "one", "IMAGE=b.bmp", "two", "IMAGE=c.bmp", "three"])
        a, b, c, blank = (["a.bmp", "", "", "one"], ["b.bmp", "", "", "two"], ["c.bmp", "", "", "three"], [""] * 4)
        designer.wait_for_rows(a, b, c, blank)
        self.assertEqual(designer.selected(), 1)
        self.keep_shot(self.machine.shot(), "rows")
        designer.click_row(2)
        designer.wait_for_selected(2)
        below = designer.list.left + 30, designer.list.bottom - 10
        self.machine.act_on(designer.form, "mousemove", *below, "click", "1")
        self.assertEqual(designer.selected(), 2)
        designer.press("ctrl+Down")
        designer.wait_for_rows(a, c, b, blank)
        designer.wait_for_selected(3)
        designer.press("ctrl+Up")
        designer.press("Up")
        designer.wait_for_selected(1)
        designer.press("ctrl+space")
        self.assertEqual(designer.selected(), 1)
        designer.press("Delete")
        designer.wait_for_rows(b, c, blank)
        designer.press("End")
        designer.click("Up")
        designer.wait_for_rows(b, blank, c)
        designer.click("Delete")
        designer.wait_for_rows(b, c)
        designer.wait_for_selected(2)
        designer.click("Clear")
        designer.wait_for_rows(blank)
        designer.wait_for_selected(1)

    def test_saved_and_created_it_is_what_stands_in_the_rows(self):
        first = self.add("a.bmp", quarters(300, 200))
        second = self.add("b.bmp", quarters(200, 120))
        settings, designer = self.open("t.txt", ["IMAGE=b.bmp", "IMAGE=a.bmp", "both"])
        designer.click("Down")
        designer.wait_for_rows(["a.bmp", "", "", "both"], ["b.bmp", "", "", ""], [""] * 4)
        loaded = self.content("t.txt")
        designer.click("Save")
        self.assertEqual(designer.name_field().text, "t.txt")
        designer.answer("Cancel")
        designer.name_file("Save", self.windows("t.txt"))
        designer.answer("No")  # which is there, and is to stay
        self.assertEqual(self.content("t.txt"), loaded)
        designer.enter_name(self.windows("saved"))
        saved = os.path.join(self.pictures, "saved.txt")
        wait_until(lambda: os.path.exists(saved), "nothing is saved")
        self.assertEqual(self.content("saved.txt").decode(),
                         f"SOUNDSYNC=1\r\n\r\nIMAGE={self.windows('a.bmp')}\r\nboth\r\n"
                         f"\r\nIMAGE={self.windows('b.bmp')}\r\n")
        self.write("mine.scr", b"in the way")
        designer.click("Create")
        self.assertEqual(designer.name_field().text, "saved")
        designer.enter_name(self.windows("mine"))
        designer.answer("Yes")
        package = self.wait_for_package("mine.scr")
        self.finish(settings, designer, "saved.txt")
        frames = {"a": self.frame().centre(first).ignore(0, 600, 400, 768),
                  "b": self.frame().centre(second).ignore(0, 600, 400, 768)}
        for program in self.program, package:
            show = self.start_program(program, "/s")
            self.assertEqual(show.watch(frames, 2), ["a", "b"])
            self.end_by_key(show)

    def test_closing_with_changes_asks(self):
        settings, designer = self.open()
        designer.click("Clear")
        designer.click("Ok")
        box = wait_until(designer.asked, "nothing is asked")
        texts = [child.text for child in self.probe.children(box)]
        self.assertIn("The template file has changed... Do you want to save it?", texts)
        designer.answer("No")
        settings.wait_for_text("edit", "")
        settings.click("Cancel")
        settings.show.wait_for_end()


class DuringCreateCase(DesignerCase):
    def open_large(self):
        """The dialogs on a template whose package takes some seconds."""
        for number in range(4):
            with open(os.path.join(self.pictures, f"{number}.jpg"), "wb") as file:
                file.truncate(24_000_000)
        return self.open("t.txt", [f"IMAGE={number}.jpg" for number in range(4)])

    def begin(self, designer):
        """The progress bar of the package that is under way then."""
        designer.name_file("Create", self.windows("large"))
        bar = wait_until(lambda: designer.controls("msctls_progress32"), "no progress is shown")[0]
        self.assertEqual(designer.controls("syslistview32"), [])
        return bar


class DesignerDuringCreateTest(DuringCreateCase):
    def create(self):
        settings, designer = self.open_large()
        return settings, designer, self.begin(designer)

    def finished(self):
        path = os.path.join(self.pictures, "large.scr")
        if not os.path.exists(path):
            return False
        with open(path, "rb") as file:
            file.seek(max(os.path.getsize(path) - 34, 0))
            return file.read().endswith(b"00000004\r\nTessellarium\r\n")

    def test_progress_is_shown_and_the_window_lives(self):
        _, designer, bar = self.create()
        seen = set()

        def done():
            # Each of these is answered by the window itself.
            shown = designer.controls("static", "Appending Images")
            position = designer.send(bar.handle, PBM_GETPOS)
            if shown and position not in seen:
                seen.add(position)
                self.keep_shot(self.machine.shot(), f"at {position}")
            return designer.controls("syslistview32")
        wait_until(done, "the list doesn't come back")
        self.assertGreater(len(seen), 1)
        wait_until(self.finished, "the package isn't finished")

    def test_closed_meanwhile_it_finishes_the_package(self):
        settings, designer, _ = self.create()
        designer.close()
        settings.wait_for_text("edit", self.windows("t.txt"))
        wait_until(self.finished, "the package isn't finished")
        settings.click("Cancel")
        settings.show.wait_for_end()

    def test_rows_changed_meanwhile_are_told(self):
        _, designer, _ = self.create()
        designer.click("Clear")
        box = wait_until(designer.asked, "nothing is told")
        self.assertTrue(any("Error" in child.text or "changed" in child.text for child in self.probe.children(box)))
        self.assertFalse(self.finished())
        designer.answer("OK")
        designer.wait_for_rows([""] * 4, [""] * 4)


class JourneyTest(DesignerCase, ListeningCase):
    """From no template to a screen saver of one's own."""

    def fill(self, designer, image, sound, transition, comment, first=False):
        editor = Editor(self, designer.show)
        if first:
            editor.enter_folders("pictures", ["C:\\", "test", "pictures"])
        editor.pick(image, sound, os.listdir(self.pictures))
        editor.choose_transition(transition)
        if comment:
            editor.type_comment(comment)
        self.keep_shot(self.machine.shot(), f"editor {image}")
        editor.click("Ok")

    def watch_show(self, program, slowly=False):
        """What was entered is seen and heard, also the transition of the first picture, from its top to its bottom,
        if that is slow."""
        show = self.start_program(program, "/s")
        if slowly:
            top, bottom = ((345, y) for y in (270, self.size[1] - 270))
            picture = next(iter(self.frames.values()))

            def half_shown():
                shot = self.machine.shot()
                shown = [shot.pixel(*place) == picture.pixel(*place) for place in (top, bottom)]
                self.assertNotEqual(shown, [False, True])
                return shown == [True, False]
            wait_until(half_shown, "no transition is seen")
            self.keep_shot(self.machine.shot(), "transition")
        for name, frame in self.frames.items():
            # In the midst of a quarter, as a transition may leave seams.
            wait_until(lambda: self.machine.shot().pixel(345, 270) == frame.pixel(345, 270), f"{name} isn't shown")
        self.wait_for_text(show, lambda text: text.split() == ["first", "second"])
        self.keep_shot(self.machine.shot(), os.path.basename(program))
        self.wait_for_tones(LOW, MIDDLE)
        self.end_by_key(show)

    def test_the_whole_journey(self):
        self.add_tone("low.wav", LOW, 0.5)
        self.add_tone("middle.wav", MIDDLE, 0.5)
        settings, designer = self.open()
        a = ["a.bmp", "low.wav", "Top To Bottom", "first^second"]
        b, blank = ["b.bmp", "middle.wav", "Normal", ""], [""] * 4
        # Without a window manager keys go where the pointer is; this one is the designer's very first.
        self.machine.act("mousemove", designer.list.left + 30, designer.list.bottom - 10)
        designer.press("Return")
        self.fill(designer, "b.bmp", "middle.wav", "Normal", "", first=True)
        designer.wait_for_rows(b, blank)
        designer.double_click_row(2)
        self.fill(designer, "a.bmp", "low.wav", "Top To Bottom", "first\nsecond")
        designer.wait_for_rows(b, a, blank)
        designer.click("Up")
        designer.wait_for_rows(a, b, blank)
        designer.click("Insert")
        Editor(self, designer.show).click("Cancel")
        designer.wait_for_rows(blank, a, b, blank, blank)
        designer.click("Delete")
        designer.click_row(4)  # whose list has the keyboard then
        designer.press("Delete")
        designer.wait_for_rows(a, b, blank)
        self.keep_shot(self.machine.shot(), "rows")
        designer.name_file("Save", self.windows("mine.txt"))
        # Of the package alone, as it is seen without settings: the pictures wait for the sounds, and not for 10
        # seconds.
        designer.click("Sync2")
        package = self.create(designer, "mine")
        settings.scroll(settings.controls("scrollbar")[2], 200)  # for a transition that can be watched
        self.finish(settings, designer, "mine.txt")
        image, sound = "IMAGE=" + self.windows(""), "SOUND=" + self.windows("")
        self.assertEqual(self.content("mine.txt").decode().splitlines(), [
            "SOUNDSYNC=1", "", image + "a.bmp", sound + "low.wav", "DISSOLVE=Top To Bottom", "first", "second",
            "", image + "b.bmp", sound + "middle.wav", "DISSOLVE=Normal"])
        # Behind the media: the mode, and of each item two positions, its transition and comment, two positions
        # and the sound's type; then the trailer.
        mode, *lines = self.content("mine.scr").decode("latin-1").split("\r\n")[-19:-1]
        self.assertEqual(mode[-3:], " 2 ")
        for row, item in (a, lines[:7]), (b, lines[7:14]):
            self.assertEqual([*item[2:4], item[6]], [*row[2:], "wav"])
        self.assertEqual(lines[15:], ["00000002", "Tessellarium"])
        self.watch_show(self.program, slowly=True)
        settings = Dialog(self, self.start_program(self.program, "/c"))
        settings.click("Edit")
        caption = f"Template Designer - {self.windows('mine.txt')}"
        Designer(self, settings.show, caption).wait_for_rows(a, b, blank)
        self.move_to_another_machine()
        self.watch_show(shutil.copy(package, self.machine.drive))

    def move_to_another_machine(self):
        """To one that knows nothing of the program and has none of its files."""
        former = self.machine

        def use(machine):
            self.machine, self.probe = machine, machine.probe

        def come_back():
            self.machine.close()
            use(former)
        use(Machines.current.make_session(self.size, self.dpi, self.sound))
        self.addCleanup(come_back)
        self.listener = sounds.Listener(self.machine.sound, (LOW, MIDDLE))


class LargeTypeTest(DuringCreateCase):
    """At 150 % each control has its room, also while a package is made; pictures for who looks."""

    size = (1920, 1200)
    dpi = 144

    def test_large_type(self):
        _, designer = self.open_large()
        self.check_inside(designer)
        self.begin(designer)
        self.check_inside(designer, "during Create")


class LargerTypeTest(LargeTypeTest):
    """The same at 200 %."""

    dpi = 192
