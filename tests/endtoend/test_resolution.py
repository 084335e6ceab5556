"""A screen of 144 dots per inch: a pixel of a picture stays a pixel of the screen."""

from case import EndToEndCase
from pictures import quarters


class ResolutionTest(EndToEndCase):
    dpi = 144

    def test_pictures_keep_their_size(self):
        frames = {name: self.frame().centre(self.add(name, quarters(*size)))
                  for name, size in {"a.gif": (300, 200), "b.jpg": (640, 320), "c.bmp": (100, 500)}.items()}
        show = self.start(AllImages="1")
        self.assertEqual(show.watch(frames, 4), ["a.gif", "b.jpg", "c.bmp", "a.gif"])
        self.end_by_key(show)

    def test_a_picture_fills_the_screen(self):
        picture = self.add("a.jpg", quarters(640, 480))
        show = self.start(AllImages="1", FullScreen="1")
        show.wait_for_frame(self.frame().stretch(picture, 5))
        self.end_by_key(show)

    def test_more_pixels_fit_the_limit(self):
        picture = self.add("wide.bmp", quarters(3276, 64))
        self.add("wider.bmp", quarters(3277, 64))
        show = self.start_template("IMAGE=wide.bmp", "IMAGE=wider.bmp")
        top = (self.machine.height - 64) // 2
        show.wait_for_frame(self.frame().paint(picture, 0, top, self.machine.width, 64, 5))
        comment = self.wait_for_comment(show, "Overflow")
        show.wait_for_frame(self.banner_frame(comment))
        self.end_by_key(show)
