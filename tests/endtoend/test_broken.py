"""Templates and pictures that aren't what they should be: the show goes on, and says what is wrong."""

import os
import random

from case import QUICK, EndToEndCase
from pictures import quarters


class BrokenTemplateTest(EndToEndCase):
    interval = QUICK

    def check_failure(self, show, description):
        comment = self.wait_for_text(show, lambda text: text.endswith("\r\n" + description))
        lines = comment.text.split("\r\n")
        self.assertEqual(lines[:2] + lines[3:], ["Tessellarium", "Marrowfieldry Inc", description])
        self.assertTrue(lines[2].endswith("/fw/fw.html"), lines[2])
        show.wait_for_frame(self.banner_frame(comment))
        self.end_by_key(show)

    def test_a_missing_template(self):
        self.check_failure(self.start(ImageListFile="missing.txt"), "File not found")

    def test_a_template_in_a_missing_folder(self):
        show = self.start(ImagePath="C:\\no such folder", ImageListFile="show.txt")
        self.check_failure(show, "Path not found")

    def test_no_template(self):
        self.check_failure(self.start(), "Path/File access error")

    def test_a_template_of_random_bytes(self):
        self.write("show.txt", random.Random(1).randbytes(100_000))
        show = self.start(ImageListFile="show.txt")
        show.wait_for_form()
        show.must_stay(2.5)
        self.end_by_key(show)


class BrokenPictureTest(EndToEndCase):
    interval = QUICK

    def check_step(self, name, description):
        """One step with the banner and why, then the next picture; and so on, round and round."""
        picture = self.add("good.bmp", quarters(400, 300))
        show = self.start_template("IMAGE=good.bmp", "IMAGE=" + name, "its comment isn't shown")
        comment = self.wait_for_comment(show, description)
        frames = {"good": self.frame().centre(picture), "banner": self.banner_frame(comment)}
        seen = show.watch(frames, 3)
        self.assertIn(seen, (["good", "banner", "good"], ["banner", "good", "banner"]))
        self.end_by_key(show)

    def test_a_missing_picture(self):
        self.check_step("missing.bmp", "File not found")

    def test_a_picture_in_a_missing_folder(self):
        self.check_step("C:\\no such folder\\a.bmp", "Path not found")

    def test_a_folder_in_place_of_a_picture(self):
        os.mkdir(os.path.join(self.pictures, "folder.bmp"))
        self.check_step("folder.bmp", "Path/File access error")

    def test_what_is_not_a_picture(self):
        self.write("empty.gif", b"")
        self.write("random.jpg", random.Random(1).randbytes(5000))
        self.write("text.bmp", b"BM is how a bitmap begins")
        for name in "whole.jpg", "whole.gif", "whole.bmp", "whole.wmf":
            self.add(name, quarters(320, 320))
            with open(os.path.join(self.pictures, name), "rb") as file:
                self.write("cut" + name[-4:], file.read(25))
        good = self.add("good.bmp", quarters(400, 300))
        bad = ["empty.gif", "random.jpg", "text.bmp", "cut.jpg", "cut.gif", "cut.bmp", "cut.wmf"]
        show = self.start_template(*(f"IMAGE={name}" for name in bad + ["good.bmp"]))
        comment = self.wait_for_comment(show, "Invalid picture")
        frames = {"banner": self.banner_frame(comment), "good": self.frame().centre(good)}
        self.assertEqual(show.watch(frames, 3), ["banner", "good", "banner"])
        self.end_by_key(show)

    def test_a_picture_that_ends_in_its_middle_does_not_end_the_show(self):
        names = []
        for name in "a.jpg", "a.gif", "a.bmp", "a.wmf":
            self.add(name, quarters(640, 480))
            with open(os.path.join(self.pictures, name), "rb") as file:
                whole = file.read()
            names.append("half" + name)
            self.write(names[-1], whole[:len(whole) * 2 // 3])
        good = self.add("good.bmp", quarters(400, 300))
        show = self.start_template(*(f"IMAGE={name}" for name in names + ["good.bmp"]))
        show.wait_for_frame(self.frame().centre(good))
        self.end_by_key(show)

    def test_a_picture_wider_than_the_limit(self):
        self.add("wide.bmp", quarters(2185, 16))
        self.check_step("wide.bmp", "Overflow")

    def test_a_picture_taller_than_the_limit(self):
        self.add("tall.gif", quarters(16, 2185))
        self.check_step("tall.gif", "Overflow")

    def test_a_picture_as_wide_as_the_limit_is_shown(self):
        picture = self.add("wide.bmp", quarters(2184, 100))
        show = self.start_template("IMAGE=wide.bmp")
        top = (self.machine.height - 100) // 2
        show.wait_for_frame(self.frame().paint(picture, 0, top, self.machine.width, 100, 3))
        self.end_by_key(show)
