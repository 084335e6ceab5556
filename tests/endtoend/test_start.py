"""How the show comes up, what stands in its way, and what the switches do."""

import os
import shutil
import stat

from case import APP_WINDOW, CAPTION, FAILED, QUICK, TOOL_WINDOW, TOPMOST, EndToEndCase
from pictures import quarters
from session import wait_until


class FormTest(EndToEndCase):
    interval = QUICK

    def test_the_form_covers_the_screen(self):
        picture = self.add("a.bmp", quarters(300, 200))
        show = self.start(AllImages="1")
        form = show.wait_for_form()
        self.assertEqual((form.left, form.top, form.right, form.bottom),
                         (0, 0, self.machine.width, self.machine.height))
        self.assertTrue(form.extended & TOPMOST)
        self.assertTrue(form.extended & TOOL_WINDOW)
        self.assertFalse(form.extended & APP_WINDOW)
        visible = [window for window in self.probe.windows() if window.visible]
        self.assertEqual(visible[0].text, CAPTION)
        self.assertEqual([window.text for window in visible if window.process == form.process], [CAPTION])
        show.wait_for_frame(self.frame().centre(picture))
        self.end_by_key(show)

    def test_the_cursor_is_hidden(self):
        show = self.start(AllImages="1")
        show.wait_for_form()
        wait_until(lambda: self.probe.ask("pointer")[0][2] == "0", "the cursor shows")
        self.end_by_key(show)


class LargeFormTest(FormTest):
    size = (1920, 1080)


class SwitchTest(EndToEndCase):
    interval = QUICK

    def test_the_first_two_characters_decide(self):
        for switch in "/S", "/s", "/sfoo", "/S:1234":
            with self.subTest(switch):
                show = self.start(switch)
                show.wait_for_form()
                self.end_by_key(show)

    def test_an_unknown_switch_ends_without_a_window(self):
        for switch in "-s", "s", "/x", "/", "//s":
            with self.subTest(switch):
                self.check_silent(self.start(switch))

    def test_a_second_show_ends_silently(self):
        picture = self.add("a.bmp", quarters(300, 200))
        first = self.start(AllImages="1")
        first.wait_for_form()
        frame = self.frame().centre(picture)
        first.wait_for_frame(frame)
        copy = os.path.join(self.folder, "copy", "Another.scr")
        os.mkdir(os.path.dirname(copy))
        shutil.copy(self.program, copy)
        for program in self.program, copy:
            second = self.start_program(program, "/s")
            wait_until(lambda: not second.running(), "the second show runs")
            self.assertEqual(second.process.returncode, 0)
            self.assertTrue(first.running())
        first.wait_for_frame(frame)
        self.end_by_key(first)

    def test_any_window_with_the_caption_counts(self):
        self.machine.hold(CAPTION, 10, 10, 50, 50)
        self.addCleanup(self.machine.release, CAPTION)
        self.check_silent(self.start("/s"))
        # Only the show minds.
        self.machine.release(CAPTION)
        self.machine.hold(CAPTION + " 2", 10, 10, 50, 50)
        self.addCleanup(self.machine.release, CAPTION + " 2")
        show = self.start("/s")
        show.wait_for_form()
        self.end_by_key(show)


class LogTest(EndToEndCase):
    def setUp(self):
        super().setUp()
        self.log = os.path.join(self.folder, "Tessellarium.log")

    def put_log(self):
        with open(self.log, "w", encoding="ascii") as file:
            file.write("an old trace")

    def test_any_start_deletes_the_log_and_none_makes_one(self):
        for arguments in ["/a", "0"], ["/x"], ["/s"]:
            with self.subTest(arguments):
                self.put_log()
                show = self.start(*arguments)
                if arguments == ["/s"]:
                    show.wait_for_form()
                    self.assertFalse(os.path.exists(self.log))
                    self.end_by_key(show)
                else:
                    show.wait_for_end()
                self.assertFalse(os.path.exists(self.log))

    def test_a_log_that_cannot_be_deleted_ends_the_show_silently(self):
        self.put_log()
        os.chmod(self.log, stat.S_IRUSR)
        self.check_silent(self.start("/s"), FAILED)
        self.assertTrue(os.path.exists(self.log))
