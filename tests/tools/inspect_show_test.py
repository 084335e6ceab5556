#!/usr/bin/env python3
"""What the inspection tool prints of a show: inspect_show_test.py TESSELLARIUM-INSPECT"""

import os
import resource
import subprocess

from inspect_case import BLACK, BLUE, GREEN, HOST, InspectTest, main, picture, RED


class ShowTest(InspectTest):
    """The screen has 640 by 480 pixels, the form thus 9600 by 7200 twips."""

    def setUp(self):
        super().setUp()
        self.add_picture("t/a.bmp", 200, 100, RED)   # 3000 by 1500 twips
        self.add_picture("t/b.gif", 20, 10, GREEN)   # 300 by 150 twips

    def show(self, steps, *words):
        return self.lines("show", *self.drive(), "--steps", str(steps), "--screen", "640x480", *words)

    def template(self, *lines):
        self.add_template(*lines)
        return r"ImagePath=C:\t", "ImageListFile=t.txt"

    def step(self, index, name, transition="Normal"):
        return [["op", "step"], ["index", index], ["name", name], ["transition", transition]]

    def place(self, left, top, width, height):
        return [["op", "place"], ["on", "Picture1"], ["left", left], ["top", top], ["width", width],
                ["height", height]]

    def paint(self, width, height, picture="image"):
        return [["op", "paint"], ["on", "Picture1"], ["picture", picture], ["x1", 0], ["y1", 0], ["w1", width],
                ["h1", height], ["x2", 0], ["y2", 0], ["w2", None], ["h2", None]]

    def banner(self):
        return [self.place(2145, 3135, 5310, 930), self.paint(5310, 930, "banner")]

    def a(self, index=0, transition="Normal"):
        return [self.step(index, "C:\\t\\a.bmp", transition), self.place(3300, 2850, 3000, 1500),
                self.paint(3000, 1500)]

    def b(self, index=1, transition="Normal"):
        return [self.step(index, "C:\\t\\b.gif", transition), self.place(4650, 3525, 300, 150), self.paint(300, 150)]

    def comments(self, lines):
        return [dict(line) for line in lines if line[0] == ["op", "comment"]]

    def test_Steps_Always_PrintWhatHappensInOrder(self):
        settings = self.template("IMAGE=a.bmp", "IMAGE=b.gif", "DISSOLVE=any name")
        self.assertEqual(self.show(0, *settings), [])
        self.assertEqual(self.show(1, *settings), self.a())
        self.assertEqual(self.show(3, *settings), self.a() + self.b(1, "any name") + self.a())

    def test_Curtain_Always_PrintsEachPaintAndPause(self):
        lines = self.show(1, *self.template("IMAGE=b.gif", "DISSOLVE=Top To Bottom"), "DissolveDelay=50")
        self.assertEqual(lines[:2], self.b(0, "Top To Bottom")[:2])
        self.assertEqual([line[0][1] for line in lines[2:]], ["paint", "pause"] * 10)
        self.assertEqual(lines[3], [["op", "pause"], ["divisor", 1]])
        self.assertEqual([key for key, value in lines[2]], [key for key, value in self.paint(1, 1)])
        self.assertEqual([dict(line)["y1"] for line in lines[2::2]], list(range(0, 150, 15)))

    def test_Slide_Always_PaintsOnTheFormWithPicture1Hidden(self):
        lines = self.show(2, *self.template("IMAGE=b.gif", "DISSOLVE=Slide Right To Center", "IMAGE=b.gif"))
        hidden = [["op", "visible"], ["on", "Picture1"], ["value", False]]
        shown = [["op", "visible"], ["on", "Picture1"], ["value", True]]
        self.assertEqual(lines[:3], self.b(0, "Slide Right To Center")[:2] + [hidden])
        following = self.b(1)
        self.assertEqual(lines[-4:], following[:2] + [shown] + following[2:])
        slide = lines[3:-4]
        self.assertEqual([line for line in slide if line[0][1] == "pause"], [[["op", "pause"], ["divisor", 2]]] * 49)
        paints = [line for line in slide if line[0][1] != "pause"]
        self.assertEqual({tuple(value for key, value in line[:2]) for line in paints}, {("paint", "MainForm")})
        blank = [line for line in paints if dict(line)["picture"] == "blank"]
        self.assertEqual(blank[0][-4:], [["x2", None], ["y2", None], ["w2", None], ["h2", None]])
        self.assertEqual(len(blank) + len([line for line in paints if dict(line)["picture"] == "image"]), len(paints))

    def test_Options_BehindAndBeforeTheOthers_AreTaken(self):
        settings = self.template("IMAGE=a.bmp")
        self.assertEqual(self.lines("show", *settings, "--screen", "640x480", *self.drive(), "--steps", "1"), self.a())
        self.assertEqual(self.lines("--screen", "640x480", *self.drive(), "--steps", "1", "show", *settings), self.a())

    def test_FullScreen_Always_FillsTheForm(self):
        settings = self.template("IMAGE=a.bmp", "IMAGE=b.gif", "DISSOLVE=Slide Left To Center")
        self.assertEqual(self.show(2, *settings, "FullScreen=1")[1:5],
                         [self.place(0, 0, 9600, 7200), self.paint(9600, 7200),
                          self.step(1, "C:\\t\\b.gif", "Slide Left To Center"), self.place(4650, 3525, 300, 150)])

    def test_Comment_Always_IsPrintedWhenItIsShown(self):
        settings = self.template("IMAGE=b.gif", "one", b"tw\xf6", "IMAGE=b.gif", "one^two", "IMAGE=b.gif", "one")
        lines = self.show(3, *settings)
        self.assertEqual([line[0][1] for line in lines], ["step", "place", "paint", "comment"] * 3)
        self.assertEqual([key for key, value in lines[3]], ["op", "text", "left", "top"])
        comments = self.comments(lines)
        self.assertEqual([comment["text"] for comment in comments],
                         ["one\r\ntw\xf6\r\n", "one\r\ntwo\r\n", "one\r\n"])
        self.assertEqual({comment["left"] for comment in comments}, {5})
        two, same, one = (7200 - comment["top"] for comment in comments)
        self.assertGreater(one, 0)
        self.assertEqual((two, same), (2 * one, 2 * one), "lies at the bottom")

    def test_PictureThatFails_IsToldByTheHandler(self):
        self.add("t/text.jpg", "no picture")
        settings = self.template("IMAGE=none.gif", "never shown", "IMAGE=text.jpg", r"IMAGE=C:\no\x.gif", "IMAGE=b.gif")
        lines = self.show(4, *settings)
        self.assertEqual(len(self.comments(lines)), 3)
        for comment in self.comments(lines):
            self.assertEqual(comment["left"], 5)
        expected = []
        for index, (name, code, text) in enumerate((("t\\none.gif", 53, "File not found"),
                                                    ("t\\text.jpg", 481, "Invalid picture"),
                                                    ("no\\x.gif", 76, "Path not found"))):
            expected += [self.step(index, "C:\\" + name, ""),
                         [["op", "failure"], ["code", code], ["description", text]],
                         self.banner()[0],
                         [["op", "comment"], ["text", text], ["left", 5], ["top", self.comments(lines)[index]["top"]]],
                         self.banner()[1]]
        self.assertEqual(lines, expected + self.b(3))

    def test_PictureTooLarge_FailsBehindItsTransition(self):
        self.add_picture("t/large.gif", 2185, 10)
        self.assertEqual(self.show(1, *self.template("IMAGE=large.gif"))[0:2],
                         [self.step(0, "C:\\t\\large.gif", ""),
                          [["op", "failure"], ["code", 6], ["description", "Overflow"]]])

    def test_EmptyList_ShowsTheBannerUnderItsOwnTransition(self):
        settings = self.template("no image")
        self.assertEqual(self.show(2, *settings, "DissolveType=any name"),
                         [self.step(0, "", "any name"), *self.banner()] * 2)

    def test_BrokenTemplate_ShowsTheBannerAndTheText(self):
        lines = self.show(1, r"ImagePath=C:\t", "ImageListFile=none.txt")
        self.assertEqual(lines[:3], [self.step(0, ""), *self.banner()])
        self.assertEqual(lines[3][1],
                         ["text", f"Tessellarium\r\nMarrowfieldry Inc\r\n{HOST}\r\nFile not found"])
        self.assertEqual(len(lines), 4)

    def test_Sounds_Always_ComeLastWithTheirPlayer(self):
        lines = ["IMAGE=b.gif", "SOUND=one.wav", "IMAGE=b.gif"]
        for mode, player in ("SOUNDSYNC=1", "plain"), ("SOUNDSYNC=2", "media"):
            printed = self.show(2, *self.template(mode, *lines))
            sounds = [[["op", "sound"], ["player", player], ["file", file]] for file in ("C:\\t\\one.wav", "")]
            self.assertEqual(printed, self.b(0) + [sounds[0]] + self.b(1) + [sounds[1]])
        self.assertEqual(self.show(2, *self.template(*lines)), self.b(0) + self.b(1))

    def test_Twips_Always_AreThoseOfThePixel(self):
        self.add_picture("t/odd.bmp", 201, 99)
        settings = self.template("IMAGE=odd.bmp")
        self.assertEqual(self.show(1, *settings, "--twips", "7.5")[1:],
                         [self.place(1646.25, 1428.75, 1507.5, 742.5), self.paint(1507.5, 742.5)])
        self.assertEqual(self.show(1, *settings, "--twips", "15")[1:], self.show(1, *settings)[1:])
        width = dict(self.show(1, *settings, "--twips", "12.3")[1])["width"]
        self.assertAlmostEqual(width, 2472.3, places=3)
        self.assertNotEqual(width, 2472.3, "a 32-bit float as it was passed")

    def test_Twips_BeyondSixteenBits_EndTheProgram(self):
        self.fails(1, "Overflow", "show", "--steps", "1", "--screen", "640x480", "--twips", "32768")

    def test_Random_Always_GivesItsDrawsInTurn(self):
        settings = self.template("IMAGE=a.bmp", "IMAGE=b.gif", "DISSOLVE=Normal")
        # A step draws for the order, for x and for y.
        lines = self.show(3, *settings, "ImageOrderRandom=1", "ImagePositionRandom=1", "--random", "0.9,0.1")
        self.assertEqual([line for line in lines if line[0][1] == "step"],
                         [self.step(1, "C:\\t\\b.gif"), self.step(0, "C:\\t\\a.bmp"), self.step(1, "C:\\t\\b.gif")])
        self.assertEqual([dict(line)["left"] for line in lines if line[0][1] == "place"],
                         [int(9301 * 0.1), int(6601 * 0.9), int(9301 * 0.1)])
        self.assertEqual([dict(line)["top"] for line in lines if line[0][1] == "place"],
                         [int(7051 * 0.9), int(5701 * 0.1), int(7051 * 0.9)])

    def test_Random_ForTheTransition_IsTheLastDraw(self):
        lines = self.show(1, *self.template("IMAGE=b.gif", "DISSOLVE=Random"), "--random", "0,0,0.75")
        self.assertEqual(lines[0], self.step(0, "C:\\t\\b.gif", "Slide Bottom To Center"))

    def test_RandomDraws_ThatNeverHitEveryBlock_AreToldOf(self):
        # The transition draws until each block and strip has come, here for ever.
        for name, paints in ("Random Blocks", 1), ("Random Horizontal", 2), ("Random Vertical", 2):
            with self.subTest(name):
                result = self.run_tool("show", *self.drive(), "--steps", "2", "--screen", "640x480", "--random",
                                       "0.5,0.25", *self.template("IMAGE=b.gif", "DISSOLVE=" + name))
                self.assertEqual((result.returncode, result.stderr),
                                 (2, b"tessellarium-inspect: the draws of --random never hit every block or strip\n"))
                self.assertEqual(result.stdout.count(b'"op":"paint"'), paints, "what came before is printed")

    def test_RandomDraws_ThatHitEveryStrip_Suffice(self):
        draws = ",".join(str((number * 7 % 100) / 100) for number in range(100))
        for name, paints in ("Random Horizontal", 10), ("Random Vertical", 10):
            lines = self.show(1, *self.template("IMAGE=b.gif", "DISSOLVE=" + name), "--random", draws)
            self.assertEqual(len([line for line in lines if line[0][1] == "paint"]), paints)

    def test_RandomDraws_Become32BitFloats(self):
        settings = self.template(*["IMAGE=b.gif"] * 10)
        self.assertEqual(dict(self.show(1, *settings, "ImageOrderRandom=1", "--random", "0.7")[0])["index"], 6)
        self.assertEqual(dict(self.show(1, *settings, "ImageOrderRandom=1", "--random", "0.9999999")[0])["index"], 9)

    def test_Show_WithoutGivenDraws_IsTheSameEachTime(self):
        settings = self.template(*["IMAGE=b.gif"] * 10)
        words = 5, *settings, "ImageOrderRandom=1", "ImagePositionRandom=1", "DissolveType=Random"
        self.assertEqual(self.show(*words), self.show(*words))

    def test_Folder_Always_IsShownInOrder(self):
        self.assertEqual(self.show(2, "AllImages=1", r"ImagePath=C:\t"),
                         self.b(0) + self.a(1))

    def test_SettingsOutOfSixteenBits_EndTheProgram(self):
        self.fails(1, "Overflow", "show", *self.drive(), "--steps", "1", "--screen", "640x480", "ImageInterval=40000")

    def test_WithoutMemory_EndsTheProgram(self):
        limit = 500_000_000
        result = self.run_tool("show", "--steps", "1", "--screen", "30000x30000", "--frames", self.root,
                               preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (limit, limit)))
        self.assertEqual((result.returncode, result.stderr), (1, b"tessellarium-inspect: Out of memory\n"))

    def frame(self, number):
        """The size of a frame, and its pixels row by row."""
        path = os.path.join(self.root, "new/frames", f"{number:04}.png")
        size = subprocess.run(["identify", "-format", "%w %h %m", path], capture_output=True, check=True).stdout
        pixels = subprocess.run(["convert", path, "-depth", "8", "rgb:-"], capture_output=True, check=True).stdout
        return size.decode().split(), lambda x, y: tuple(pixels[(y * 640 + x) * 3:][:3])

    def test_Frames_Always_ShowTheScreenAfterEachStep(self):
        settings = self.template("IMAGE=a.bmp", "IMAGE=b.gif", "x", "IMAGE=none.gif")
        self.show(3, *settings, "--frames", os.path.join(self.root, "new/frames"))
        self.assertEqual(sorted(os.listdir(os.path.join(self.root, "new/frames"))),
                         ["0001.png", "0002.png", "0003.png"])
        size, first = self.frame(1)
        self.assertEqual(size, ["640", "480", "PNG"])
        for point, colour in (((220, 190), RED), ((419, 289), RED), ((219, 190), BLACK), ((220, 189), BLACK),
                              ((420, 289), BLACK), ((419, 290), BLACK), ((0, 0), BLACK), ((639, 479), BLACK)):
            self.assertEqual(first(*point), colour, point)
        _, second = self.frame(2)
        for point, colour in (((310, 235), GREEN), ((329, 244), GREEN), ((309, 235), BLACK), ((330, 244), BLACK),
                              ((220, 190), BLACK)):
            self.assertEqual(second(*point), colour, point)
        comment = {second(x, y) for x in range(30) for y in range(440, 480)}
        self.assertEqual(comment, {BLACK, (255, 255, 255)})
        _, third = self.frame(3)
        self.assertTrue(any(third(x, 240) != BLACK for x in range(143, 497)), "the banner")
        self.assertTrue(all(third(x, 240) == BLACK for x in (*range(143), *range(497, 640))))

    def test_FrameAfterASlide_ShowsTheFormCleared(self):
        settings = self.template("IMAGE=a.bmp", "DISSOLVE=Slide Left To Center", "IMAGE=b.gif")
        self.show(2, *settings, "--frames", os.path.join(self.root, "new/frames"))
        self.assertEqual(self.frame(1)[1](230, 200), RED)
        _, second = self.frame(2)
        self.assertEqual((second(230, 200), second(320, 240)), (BLACK, GREEN))

    def test_Frames_OfFormatsThatTheShowKnows_ShowThem(self):
        self.add_picture("t/c.jpg", 32, 32, BLUE)
        self.show(1, *self.template("IMAGE=c.jpg"), "--frames", os.path.join(self.root, "new/frames"))
        red, green, blue = self.frame(1)[1](320, 240)
        self.assertTrue(red < 10 and green < 10 and blue > 245)

    def test_FramesFolder_ThatCannotBe_IsAWrongCall(self):
        self.add("file")
        for folder in "file", "file/new":
            self.fails(2, "--frames", "show", "--steps", "1", "--screen", "640x480", "--frames",
                       os.path.join(self.root, folder))

    def test_Output_ThatCannotBeWritten_IsNoSuccess(self):
        with open("/dev/full", "w", encoding="ascii") as full:
            result = subprocess.run([self.tool, "path", "a"], stdout=full, stderr=subprocess.PIPE, check=False)
        self.assertEqual((result.returncode, result.stderr),
                         (1, b"tessellarium-inspect: the output can't be written\n"))


if __name__ == "__main__":
    main()
