"""Template Mode: pictures with comments, all kinds of lines, sound lines on a machine without sound."""

import os

from case import QUICK, EndToEndCase
from pictures import quarters
from session import wait_until


class TemplateTest(EndToEndCase):
    def wait_for_white_on_black(self, comment):
        """Black, white and the greys of smoothed letters: the picture behind doesn't show through."""
        def shown():
            shot = self.machine.shot()
            colours = shot.part(comment.left, comment.top, comment.right, comment.bottom).colours()
            return ({(0, 0, 0), (255, 255, 255)} <= colours
                    and all(max(colour) == min(colour) for colour in colours))
        wait_until(shown, "the comment isn't white on black")

    def test_a_comment_stands_at_the_bottom_left_until_the_next_step(self):
        one, two = self.add("one.bmp", quarters(300, 200)), self.add("two.gif", quarters(200, 200))
        show = self.start_template("IMAGE=one.bmp", "First line", "IMAGE=two.gif")
        comment = self.wait_for_comment(show, "First line")
        self.wait_for_white_on_black(comment)
        frames = {"one": self.frame().centre(one).ignore(comment.left, comment.top, comment.right,
                                                                 comment.bottom),
                  "two": self.frame().centre(two)}
        self.assertEqual(show.watch(frames, 3), ["one", "two", "one"])
        self.end_by_key(show)

    def test_a_comment_lies_in_front_of_a_picture_that_fills_the_screen(self):
        picture = self.add("one.bmp", quarters(self.machine.width, self.machine.height))
        show = self.start_template("IMAGE=one.bmp", "In front", FullScreen="1")
        comment = self.wait_for_comment(show, "In front")
        frame = self.frame().centre(picture)
        show.wait_for_frame(frame.ignore(comment.left, comment.top, comment.right, comment.bottom))
        self.wait_for_white_on_black(comment)
        self.end_by_key(show)

    def test_each_line_of_a_comment_is_a_line_of_the_screen(self):
        for name in "one.bmp", "two.bmp", "three.bmp":
            self.add(name, quarters(100, 100))
        show = self.start_template("IMAGE=one.bmp", "Single", "IMAGE=two.bmp", "First", "", "Second",
                                   "IMAGE=three.bmp", "One^two, three")
        single = self.wait_for_comment(show, "Single")
        double = self.wait_for_comment(show, "First\r\nSecond")
        triple = self.wait_for_comment(show, "One\r\ntwo\r\nthree")
        line = single.bottom - single.top
        self.assertEqual([double.bottom - double.top, triple.bottom - triple.top], [2 * line, 3 * line])
        self.end_by_key(show)

    def test_all_kinds_of_lines(self):
        one = self.add("one.bmp", quarters(300, 200))
        two = self.add("two.gif", quarters(200, 200))
        three = self.add("sub/three.jpg", quarters(320, 160))
        four = quarters(100, 300).save(os.path.join(self.folder, "sub", "four.bmp"))
        # A relative name with a folder isn't looked for beside the template.
        self.add("sub/four.bmp", quarters(50, 50))
        show = self.start_template(
            "a comment before the first picture is dropped", "[Normal]", "SOUND=dropped.wav",
            "SOUNDSYNC=1", "",
            "image=one.bmp", "[Normal]",
            "<TWO.GIF>", "Dissolve=No such transition", "sound=missing.wav",
            "IMAGE=" + self.machine.windows_path(os.path.join(self.pictures, "sub", "three.jpg")),
            "IMAGE=sub\\four.bmp", "SOUND=C:\\missing\\too.wav")
        frames = {"one": one, "two": two, "three": three, "four": four}
        frames = {name: self.frame().centre(picture) for name, picture in frames.items()}
        self.assertEqual(show.watch(frames, 5), ["one", "two", "three", "four", "one"])
        self.end_by_key(show)

    def test_the_order_is_that_of_the_template(self):
        pictures = {name: self.add(name, quarters(*size)) for name, size in {
            "b.wmf": (200, 100), "c.jpg": (160, 160), "a.gif": (100, 300)}.items()}
        show = self.start_template("IMAGE=b.wmf", "IMAGE=c.jpg", "IMAGE=b.wmf", "IMAGE=a.gif")
        frames = {name: self.frame().centre(picture) for name, picture in pictures.items()}
        self.assertEqual(show.watch(frames, 5), ["b.wmf", "c.jpg", "b.wmf", "a.gif", "b.wmf"])
        self.end_by_key(show)

    def test_sound_lines_do_not_stop_the_show_where_there_is_no_sound(self):
        frames = {name: self.frame().centre(self.add(name, quarters(*size)))
                  for name, size in {"one.bmp": (200, 100), "two.bmp": (100, 200)}.items()}
        self.write("empty.wav", b"")
        for mode in "SOUNDSYNC=1", "SOUNDSYNC=2", "SOUNDASYNC":
            with self.subTest(mode):
                show = self.start_template(mode, "SOUND=missing.wav", "IMAGE=one.bmp", "SOUND=empty.wav",
                                           "IMAGE=two.bmp", ImageInterval=QUICK)
                self.assertEqual(show.watch(frames, 3), ["one.bmp", "two.bmp", "one.bmp"])
                self.end_by_key(show)
