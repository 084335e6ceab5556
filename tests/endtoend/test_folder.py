"""Folder Mode: all pictures of a folder, in every format, where the layout puts them."""

import os
import time

from case import EndToEndCase
from pictures import Picture, quarters
from screen import BLACK
from session import wait_until


def greys(width, height):
    return Picture(width, height, tuple((level,) * 3 for level in (240, 190, 140, 90)))


class FolderTest(EndToEndCase):
    def start_folder(self, **settings):
        return self.start(AllImages="1", **settings)

    def test_formats_come_in_the_order_of_their_patterns(self):
        added = {name: self.add(name, quarters(*size)) for name, size in {
            "f.gif": (320, 200), "e.jpe": (160, 320), "d.jpg": (640, 160), "c.bmp": (300, 300),
            "b.wmf": (500, 200), "a.jpeg": (192, 96)}.items()}
        self.write("picture.txt", b"not one of them")
        os.mkdir(os.path.join(self.pictures, "folder.gif"))
        show = self.start_folder()
        seen = show.watch({name: self.frame().centre(picture) for name, picture in added.items()}, 8)
        # "*.jpe" finds the .jpeg too, by its short name; the file system orders the two.
        self.assertEqual(sorted(seen[1:3]), ["a.jpeg", "e.jpe"])
        self.assertEqual(seen[:1] + seen[3:], ["f.gif", "d.jpg", "c.bmp", "b.wmf", "a.jpeg", "f.gif"])
        self.end_by_key(show)

    def test_full_screen_fills_the_screen(self):
        sizes = {"a.gif": (320, 200), "b.jpg": (1920, 320), "c.bmp": (1366, 768), "d.wmf": (200, 300)}
        frames = {}
        for name, size in sizes.items():
            picture = self.add(name, quarters(*size))
            # A metafile stays sharp however large; a bitmap of few pixels gets wide seams.
            widest = max(self.machine.width / size[0], self.machine.height / size[1])
            blur = 2 if name.endswith(".wmf") else 2 + round(widest)
            frames[name] = self.frame().stretch(picture, blur)
        show = self.start_folder(FullScreen="1")
        self.assertEqual(show.watch(frames, 4), ["a.gif", "b.jpg", "c.bmp", "d.wmf"])
        self.end_by_key(show)

    def test_a_picture_too_large_is_squeezed_on_that_axis_alone(self):
        width, height = self.machine.width, self.machine.height
        wide, tall, large = quarters(2000, 300), quarters(300, 1000), quarters(1600, 900)
        self.add("a.gif", wide)
        self.add("b.bmp", tall)
        self.add("c.wmf", large)
        show = self.start_folder()
        frames = {"wide": self.frame().paint(wide, 0, (height - 300) // 2, width, 300, 3),
                  "tall": self.frame().paint(tall, (width - 300) // 2, 0, 300, height, 3),
                  "large": self.frame().stretch(large, 3)}
        self.assertEqual(show.watch(frames, 4), ["wide", "tall", "large", "wide"])
        self.end_by_key(show)

    def test_the_first_picture_comes_after_an_interval_of_black(self):
        picture = self.add("a.bmp", quarters(200, 200))
        begun = time.monotonic()
        show = self.start_folder(ImageInterval="2")
        frames = {"black": self.frame(), "picture": self.frame().centre(picture)}
        self.assertEqual(show.watch(frames, 2), ["black", "picture"])
        self.assertGreaterEqual(time.monotonic() - begun, 2)
        self.end_by_key(show)

    def test_transparency_shows_black(self):
        before = self.add("a.gif", quarters(320, 320))
        picture = quarters(320, 320)
        clear = picture.colours[1]
        self.add("b.gif", picture, "-transparent", "rgb(%d,%d,%d)" % clear)
        shown = Picture(320, 320, tuple(BLACK if colour == clear else colour for colour in picture.colours))
        show = self.start_folder()
        frames = {"before": self.frame().centre(before), "clear": self.frame().centre(shown)}
        self.assertEqual(show.watch(frames, 3), ["before", "clear", "before"])
        self.end_by_key(show)

    def test_the_kinds_of_each_format(self):
        kinds = {"a interlaced.gif": (quarters(320, 200), ["-interlace", "GIF"]),
                 "b grey.gif": (greys(300, 200), ["-colorspace", "Gray"]),
                 "c progressive.jpg": (quarters(160, 320), ["-interlace", "JPEG"]),
                 "d 24 bits.bmp": (quarters(301, 100), ["-type", "TrueColor"]),
                 "e 4 bits.bmp": (quarters(300, 101), ["-type", "Palette"]),
                 "f 1 bit.bmp": (Picture(200, 200, ((255,) * 3, (0,) * 3, (0,) * 3, (255,) * 3)),
                                 ["-monochrome"]),
                 "g packed.bmp": (quarters(200, 240), ["-type", "Palette", "-compress", "RLE"])}
        frames = {name: self.frame().centre(self.add(name, picture, *options))
                  for name, (picture, options) in sorted(kinds.items())}
        show = self.start_template(*(f"IMAGE={name}" for name in frames))
        self.assertEqual(show.watch(frames, len(frames)), list(frames))
        self.end_by_key(show)

    def test_a_jpeg_without_colours(self):
        picture = self.add("grey.jpg", greys(320, 160), "-colorspace", "Gray")
        show = self.start_folder()
        show.wait_for_frame(self.frame().centre(picture))
        self.end_by_key(show)

    def test_random_positions_lie_within_the_screen(self):
        picture = self.add("a.bmp", quarters(400, 300))
        show = self.start_folder(ImagePositionRandom="1")
        places = []
        first_pixel = bytes(reversed(picture.colours[0])) + b"\0"

        def placed():
            shot = self.machine.shot()
            offset = shot.data.find(first_pixel)
            if offset >= 0:
                place = offset // 4 % shot.width, offset // 4 // shot.width
                if place not in places and not self.frame().paint(picture, *place).difference(shot):
                    places.append(place)
            return len(places) >= 3
        wait_until(placed, lambda: f"found whole only at {places}")
        self.end_by_key(show)

    def test_a_folder_without_pictures_shows_the_banner_alone(self):
        self.write("readme.txt", b"no picture")
        show = self.start_folder()
        show.wait_for_frame(self.banner_frame())
        self.assertIsNone(self.comment(show))
        self.end_by_key(show)

    def test_a_missing_folder_shows_the_banner_and_why(self):
        show = self.start_folder(ImagePath="C:\\no such folder")
        comment = self.wait_for_text(show, lambda text: text.endswith("\r\nPath not found"))
        show.wait_for_frame(self.banner_frame(comment))
        self.end_by_key(show)
