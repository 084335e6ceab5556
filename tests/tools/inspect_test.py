#!/usr/bin/env python3
"""What the inspection tool prints and how it exits: inspect_test.py TESSELLARIUM-INSPECT"""

import functools
import json
import os
import resource
import subprocess
import sys
import tempfile
import unittest

RED, GREEN, BLUE, BLACK = (255, 0, 0), (0, 255, 0), (0, 0, 255), (0, 0, 0)
HOST = "www.tessellarium.example/fw/fw.html"


@functools.cache
def picture(extension, width, height, colour):
    """The bytes of a picture file of one colour."""
    return subprocess.run(["convert", "-size", f"{width}x{height}", "xc:rgb(%d,%d,%d)" % colour,
                           f"{extension.removeprefix('.')}:-"], capture_output=True, check=True).stdout


class InspectTest(unittest.TestCase):
    """Runs the tool on a folder of its own, which is drive C."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name

    def add(self, name, content=b""):
        """A file; its name may be bytes."""
        path = os.path.join(os.fsencode(self.root), os.fsencode(name))
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(content if isinstance(content, bytes) else content.encode())

    def add_picture(self, name, width, height, colour=RED):
        self.add(name, picture(os.path.splitext(name)[1], width, height, colour))

    def add_template(self, *lines):
        self.add("t/t.txt", b"".join((line if isinstance(line, bytes) else line.encode()) + b"\r\n"
                                     for line in lines))

    def run_tool(self, *arguments, **options):
        return subprocess.run([TOOL, *arguments], capture_output=True, timeout=60, **options)

    def lines(self, *arguments):
        """What the tool prints: of each line the keys and values in their order."""
        result = self.run_tool(*arguments)
        self.assertEqual((result.stderr, result.returncode), (b"", 0))
        self.assertTrue(result.stdout == b"" or result.stdout.endswith(b"\n"))
        return [json.loads(line, object_pairs_hook=lambda pairs: [[key, value] for key, value in pairs])
                for line in result.stdout.decode().splitlines()]

    def fails(self, code, text, *arguments, **options):
        result = self.run_tool(*arguments, **options)
        self.assertEqual(result.stdout, b"")
        self.assertEqual(result.returncode, code, result.stderr)
        self.assertRegex(result.stderr, rb"\Atessellarium-inspect: [^\n]+\n\Z")
        self.assertIn(text, result.stderr.decode())

    def drive(self):
        return "--drive", "C=" + self.root


class PathTest(InspectTest):
    def test_Path_Always_PrintsThePartsInOrder(self):
        self.assertEqual(self.lines("path", r"C:\old.dir\photo.tar.gz"),
                         [[["Path", "C:\\old.dir\\"], ["FileName", "photo.tar.gz"], ["Extension", "gz"],
                           ["UrlPath", ""], ["BaseName", "photo"]]])
        self.assertEqual(self.lines("path", "scheme://host/a/b.gif")[0][3], ["UrlPath", "a/b.gif"])
        self.assertEqual(self.lines("path", ""),
                         [[["Path", ""], ["FileName", ""], ["Extension", ""], ["UrlPath", ""], ["BaseName", ""]]])

    def test_Path_BytesAbove127_AreACodePointEach(self):
        self.assertEqual(self.lines("path", b"\xe4\xf6\\\xff\x80.\xc3\xa4"),
                         [[["Path", "\xe4\xf6\\"], ["FileName", "\xff\x80.\xc3\xa4"], ["Extension", "\xc3\xa4"],
                           ["UrlPath", ""], ["BaseName", "\xff\x80"]]])

    def test_Path_TextLikeAnOption_IsAText(self):
        self.assertEqual(self.lines("path", "--drive")[0][1], ["FileName", "--drive"])

    def test_Path_ControlCharactersAndQuotes_AreEscaped(self):
        self.assertEqual(self.lines("path", 'a"\n\t\x01')[0][1], ["FileName", 'a"\n\t\x01'])

    def test_Path_LongText_HasItsParts(self):
        long = "x" * 40000
        self.assertEqual(self.lines("path", f"{long}\\{long}.gif")[0][:3],
                         [["Path", long + "\\"], ["FileName", long + ".gif"], ["Extension", "gif"]])

    def test_Path_NotOneText_IsAWrongCall(self):
        self.fails(2, "path takes one text", "path")
        self.fails(2, "path takes one text", "path", "a", "b")


class PlaylistTest(InspectTest):
    def head(self, mode, last, path, count):
        return [["SoundMode", mode], ["SoundLast", last], ["ImagePath", path], ["count", count]]

    def item(self, name, comment="", dissolve="", sound=""):
        return [["name", name], ["comment", comment], ["dissolve", dissolve], ["sound", sound]]

    def playlist(self, *words):
        return self.lines("playlist", *self.drive(), *words)

    def template(self, *lines):
        self.add_template(*lines)
        return self.playlist(r"ImagePath=C:\t", "ImageListFile=t.txt")

    def test_Folder_Always_ListsByPatternsAndInByteOrder(self):
        for name in "p/b.gif", "p/A.GIF", "p/C.jpeg", "p/d.jpg", "p/e.bmp", "p/f.wmf", "p/g.txt", "p/.h.gif", "p/i.jpe":
            self.add(name)
        self.add(b"p/\xe4.gif")
        os.makedirs(os.path.join(self.root, "p/folder.gif"))
        names = ["A.GIF", "b.gif", "\xe4.gif", "C.jpeg", "i.jpe", "d.jpg", "e.bmp", "f.wmf", "C.jpeg"]
        self.assertEqual(self.playlist("AllImages=1", r"ImagePath=C:\p"),
                         [self.head(0, -1, "C:\\p\\", len(names))] + [self.item("C:\\p\\" + name) for name in names])

    def test_Names_InAnyCase_AreFound(self):
        self.add("Pics/T.Txt", "IMAGE=a.gif\r\n")
        self.add("Pics/a.gif")
        self.assertEqual(self.lines("playlist", "--drive", "c=" + self.root, r"IMAGEPATH=c:\PICS\\"[:-1],
                                    "imagelistfile=t.TXT"),
                         [self.head(0, -1, "c:\\PICS\\", 1), self.item("c:\\PICS\\a.gif")])
        self.assertEqual(self.playlist("AllImages=1", r"ImagePath=C:/pICS")[1:], [self.item("C:/pICS\\a.gif")])

    def test_Template_Always_GivesItsItems(self):
        self.assertEqual(
            self.template("SOUNDSYNC=2", "", "IMAGE=a.gif", "SOUND=a.wav", "DISSOLVE=Top To Bottom", "one", "two",
                          "", r"<C:\else\B.GIF>", "[any name]", "last"),
            [self.head(2, -1, "C:\\t\\", 2),
             self.item("C:\\t\\a.gif", "one\r\ntwo\r\n", "Top To Bottom", "C:\\t\\a.wav"),
             self.item("C:\\else\\B.GIF", "last\r\n", "any name")])

    def test_Template_BytesAbove127_AreACodePointEach(self):
        self.assertEqual(self.template(b"IMAGE=\xfcber.gif", b"\xc3\xa4\x80"),
                         [self.head(0, -1, "C:\\t\\", 1), self.item("C:\\t\\\xfcber.gif", "\xc3\xa4\x80\r\n")])

    def test_SoundList_Always_FollowsTheItemsWithoutSounds(self):
        self.assertEqual(self.template("SOUNDASYNC", "SOUND=a.wav", "IMAGE=a.gif", r"SOUND=D:\b.wav"),
                         [self.head(3, 1, "C:\\t\\", 1), self.item("C:\\t\\a.gif")[:3],
                          [["soundlist", ["C:\\t\\a.wav", "D:\\b.wav"]]]])
        self.assertEqual(self.template("SOUNDASYNC"), [self.head(3, -1, "C:\\t\\", 0), [["soundlist", []]]])

    def test_Failure_Always_GivesItsText(self):
        text = f"Tessellarium\r\nMarrowfieldry Inc\r\n{HOST}\r\n"
        os.makedirs(os.path.join(self.root, "t"))
        self.assertEqual(self.playlist(r"ImagePath=C:\t", "ImageListFile=none.txt"),
                         [self.head(0, -1, "C:\\t\\", 0), [["comment", text + "File not found"]]])
        self.assertEqual(self.playlist(r"ImagePath=C:\none", "AllImages=1"),
                         [self.head(0, -1, "C:\\none\\", 0), [["comment", text + "Path not found"]]])
        self.assertEqual(self.playlist(r"ImagePath=C:\t"),
                         [self.head(0, -1, "C:\\t\\", 0), [["comment", text + "Path/File access error"]]])

    def test_Drive_NotGiven_IsUnavailable(self):
        for letter in "D", "T":
            lines = self.playlist(f"ImagePath={letter}:\\p", "AllImages=1")
            self.assertTrue(lines[1][0][1].endswith("\r\nDevice unavailable"), lines)

    def test_FolderWithoutPictures_IsEmptyWithoutAText(self):
        self.add("p/a.txt")
        self.assertEqual(self.playlist("AllImages=1", r"ImagePath=C:\p"), [self.head(0, -1, "C:\\p\\", 0)])

    def test_Folder_LongerThanTheTables_IsListedWhole(self):
        for index in range(600):
            self.add(f"p/{index:03}.gif")
        lines = self.playlist("AllImages=1", r"ImagePath=C:\p")
        self.assertEqual(len(lines), 601)
        self.assertEqual(lines[-1], self.item("C:\\p\\599.gif"))

    def test_Settings_AreTakenAsTheStoreHoldsThem(self):
        self.add("p/a.gif")
        self.assertEqual(len(self.playlist("AllImages= 1x", r"ImagePath=C:\p", "Blocks=junk", "ImageInterval=")), 2)
        self.assertEqual(self.playlist("ImagePath=C:\\a=b")[0][2], ["ImagePath", "C:\\a=b\\"])

    def test_Drives_Repeated_AreAllThere(self):
        self.add("one/t.txt", "IMAGE=a.gif\r\n")
        self.add("two/a.gif")
        drives = ["--drive", f"X={self.root}/one", "--drive", f"z={self.root}/two"]
        self.assertEqual(self.lines("playlist", "ImageListFile=t.txt", *drives[:2], "ImagePath=X:\\", *drives[2:])[1:],
                         [self.item("X:\\a.gif")])
        self.assertEqual(self.lines(*drives, "playlist", "AllImages=1", "ImagePath=Z:\\")[1:], [self.item("Z:\\a.gif")])

    def test_AllLettersAsDrives_Works(self):
        self.add("a.gif")
        drives = [word for letter in "ABCDEFGHIJKLMNOPQRSTUVWXYZ" for word in ("--drive", f"{letter}={self.root}")]
        self.assertEqual(self.lines("playlist", *drives, "AllImages=1", "ImagePath=A:\\")[1:], [self.item("A:\\a.gif")])

    def test_WrongNumber_EndsTheProgram(self):
        self.fails(1, "Overflow", "playlist", *self.drive(), "ImageInterval=40000")
        self.fails(1, "Overflow", "playlist", "Blocks=-40000")


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
            result = subprocess.run([TOOL, "path", "a"], stdout=full, stderr=subprocess.PIPE, check=False)
        self.assertEqual((result.returncode, result.stderr),
                         (1, b"tessellarium-inspect: the output can't be written\n"))


class TemplateTest(InspectTest):
    def template(self, *lines, path=r"C:\t\t.txt"):
        self.add_template(*lines)
        return self.lines("template", *self.drive(), path)

    def row(self, image="", sound="", dissolve="", comment="", image_path="", sound_path=""):
        return [["image", image], ["sound", sound], ["dissolve", dissolve], ["comment", comment],
                ["imagePath", image_path], ["soundPath", sound_path]]

    def test_Template_Always_GivesModeAndRows(self):
        self.assertEqual(
            self.template("SOUNDSYNC=2", "", "IMAGE=a, b.gif", r"SOUND=C:\s\a.wav", "DISSOLVE=Top To Bottom",
                          "one, two", b"\xe4", r"image=C:\else\B.GIF"),
            [[["mode", 2]],
             self.row("a, b.gif", "a.wav", "Top To Bottom", "one, two^\xe4", "C:\\t\\a, b.gif", "C:\\s\\a.wav"),
             self.row("B.GIF", image_path="C:\\else\\B.GIF")])

    def test_Mode_MissingOrGiven_IsPrinted(self):
        for line, mode in ("IMAGE=a.gif", 1), ("SOUNDSYNC=1", 1), ("SOUNDSYNC=2", 2), ("SOUNDASYNC", 3):
            self.assertEqual(self.template(line)[0], [["mode", mode]])

    def test_SoundList_Always_FillsRowsOfItsOwn(self):
        self.assertEqual(self.template("SOUNDASYNC", "SOUND=a.wav", "IMAGE=a.gif"),
                         [[["mode", 3]], self.row(sound="a.wav", sound_path="C:\\t\\a.wav"),
                          self.row("a.gif", image_path="C:\\t\\a.gif")])

    def test_Template_WithoutItems_HasNoRows(self):
        self.assertEqual(self.template("a comment"), [[["mode", 1]]])

    def test_Template_ThatCannotBeRead_IsToldInTheProgramsWords(self):
        self.fails(1, "An Error Has Occurred: File not found", "template", *self.drive(), r"C:\none.txt")
        self.fails(1, "An Error Has Occurred: Device unavailable", "template", *self.drive(), r"D:\none.txt")

    def test_Template_NotOnePath_IsAWrongCall(self):
        self.fails(2, "template takes one path", "template", *self.drive())
        self.fails(2, "template takes one path", "template", "a", "b")
        self.fails(2, "option --write needs a value", "template", "a", "--write")

    def write(self, *lines):
        """What the designer would save of a template of these lines."""
        self.add_template(*lines)
        out = os.path.join(self.root, "out.txt")
        printed = self.lines("template", *self.drive(), r"C:\t\t.txt", "--write", out)
        with open(out, "rb") as file:
            return printed, file.read()

    def test_Write_StoresWhatTheDesignerSaves(self):
        lines = "SOUNDSYNC=2", "IMAGE=a, b.gif", r"SOUND=C:\s\a.wav", "DISSOLVE=Normal", "one", "", "#", b"tw\xf6"
        printed, written = self.write(*lines)
        self.assertEqual(written, b"SOUNDSYNC=2\r\n\r\nIMAGE=C:\\t\\a, b.gif\r\nSOUND=C:\\s\\a.wav\r\n"
                                  b"DISSOLVE=Normal\r\none\r\ntw\xf6\r\n")
        self.assertEqual(printed, self.lines("template", *self.drive(), r"C:\t\t.txt"), "it prints as without")
        self.assertEqual(self.write(*written.removesuffix(b"\r\n").split(b"\r\n")), (printed, written))

    def test_Write_SoundListsComeFirst(self):
        _, written = self.write("SOUNDASYNC", "IMAGE=a.gif", "SOUND=a.wav", "text", "IMAGE=b.gif", "SOUND=b.wav")
        self.assertEqual(written, b"SOUNDASYNC\r\nSOUND=C:\\t\\a.wav\r\nSOUND=C:\\t\\b.wav\r\n\r\n"
                                  b"IMAGE=C:\\t\\a.gif\r\ntext\r\n\r\nIMAGE=C:\\t\\b.gif\r\n")

    def test_Write_FileThatCanNotBeMade_Fails(self):
        self.add_template("IMAGE=a.gif")
        result = self.run_tool("template", *self.drive(), r"C:\t\t.txt", "--write", self.root + "/none/out.txt")
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"can't be written", result.stderr)


BLOCK = 1025  # bytes


class PackageTest(InspectTest):
    """Packages as `write` makes them, and as `package` tells what they hold."""

    program = bytes(range(256)) * 400

    def setUp(self):
        super().setUp()
        self.add("program.scr", self.program)
        self.out = self.path("out.scr")

    def path(self, name):
        return os.path.join(self.root, name)

    def content(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def write_words(self, **changed):
        words = {"exe": self.path("program.scr"), "template": r"C:\t\t.txt", "out": self.out, **changed}
        return ["write", *self.drive(), *(word for name, value in words.items() for word in ("--" + name, value))]

    def write(self, *lines):
        self.add_template(*lines)
        self.assertEqual(self.lines(*self.write_words()), [])
        return self.content("out.scr")

    def write_one_of_each(self):
        """A row of all, and one of a picture alone."""
        self.add("t/a.bmp", b"a" * 3000)
        self.add("s/a.wave", b"w" * 10)
        self.add("t/b.gif", b"b" * BLOCK)
        return self.write("SOUNDSYNC=2", "IMAGE=a.bmp", r"SOUND=C:\s\a.wave", "DISSOLVE=Top To Bottom", "one",
                          b"tw\xf6", "IMAGE=b.gif")

    def package(self, *words):
        return self.lines("package", self.out, *words)

    def head(self, run_mode, sound_mode, count, directory, length):
        return [["runMode", run_mode], ["soundMode", sound_mode], ["count", count], ["directory", directory],
                ["length", length]]

    def row(self, image=(0, 0), sound=(0, 0), dissolve="", comment="", extension=""):
        return [["imageStart", image[0]], ["imageEnd", image[1]], ["dissolve", dissolve], ["comment", comment],
                ["soundStart", sound[0]], ["soundEnd", sound[1]], ["soundExt", extension]]

    def test_Write_Always_GivesTheBytesOfTheFormat(self):
        package = self.write_one_of_each()
        media = len(self.program) - 1  # on the program's last byte
        self.assertEqual(package[:media], self.program[:media])
        self.assertEqual(package[media:media + 3000], b"a" * 3000)
        sound = media + 3 * BLOCK
        self.assertEqual(package[sound:sound + 10], b"w" * 10)
        second = sound + BLOCK
        self.assertEqual(package[second:second + BLOCK], b"b" * BLOCK)
        directory = second + 2 * BLOCK
        self.assertEqual(package[directory:].decode("latin-1").split("\r\n"),
                         [" 2 ", f" {media + 1} ", f" {sound + 1} ", "Top To Bottom", "one^tw\xf6", f" {sound + 1} ",
                          f" {second + 1} ", "wav", f" {second + 1} ", f" {directory + 1} ", "", "", " 0 ", " 0 ",
                          "   ", f"{directory + 1:08}", "00000002", "Tessellarium", ""])

    def warnings(self, *lines):
        self.add_template(*lines)
        result = self.run_tool(*self.write_words())
        self.assertEqual(result.returncode, 0)
        self.assertTrue(os.path.exists(self.out))
        return result.stderr.decode().splitlines()

    def test_Write_WhatWouldBeLost_IsWarnedOf(self):
        self.add("t/a.bmp", b"a")
        prefix = "tessellarium-inspect: warning: "
        comment = "a comma or a double quote cuts its comment off, and the rest of the package may be misread"
        self.assertEqual(self.warnings("IMAGE=a.bmp", "SOUND=none.wav", "IMAGE=a.bmp", "one, two", "IMAGE=a.bmp",
                                       '"one" two'),
                         [prefix + "item 1 (a.bmp): its sound is missing", f"{prefix}item 2 (a.bmp): {comment}",
                          f"{prefix}item 3 (a.bmp): {comment}"])
        self.assertEqual(self.warnings("IMAGE=a.bmp", 'one "two"', "IMAGE=a.bmp", '"one, two"'), [])
        nothing = prefix + "there is no picture or sound in the template; do its lines end in CR LF?"
        self.assertEqual(self.warnings(), [nothing])
        self.assertEqual(self.warnings("SOUNDSYNC=1\nIMAGE=a.bmp"), [nothing])

    def test_Package_Always_IsToldWithItsRows(self):
        length = len(self.write_one_of_each())
        media = len(self.program)
        sound, second, directory = media + 3 * BLOCK, media + 4 * BLOCK, media + 6 * BLOCK
        self.assertEqual(self.package(),
                         [self.head(-1, 2, 2, directory, length),
                          self.row((media, sound), (sound, second), "Top To Bottom", "one^tw\xf6", "wav"),
                          self.row((second, directory))])

    def test_Extract_Always_WritesNumberedFiles(self):
        package = self.write_one_of_each()
        media = len(self.program) - 1
        self.assertEqual(len(self.package("--extract", self.path("new/out"))), 3)
        self.assertEqual(sorted(os.listdir(self.path("new/out"))), ["0001.pic", "0001.wav", "0002.pic"])
        self.assertEqual(self.content("new/out/0001.pic"), package[media:media + 3 * BLOCK])
        self.assertEqual(self.content("new/out/0002.pic"), package[media + 4 * BLOCK:media + 6 * BLOCK],
                         "nothing of the longer picture before")
        sound = self.content("new/out/0001.wav")
        self.assertTrue(sound.startswith(package[media + 3 * BLOCK:]), "it runs on to the file's end")
        self.assertEqual(len(sound), 8193)

    def test_PlainProgram_HasNothing(self):
        self.assertEqual(self.lines("package", self.path("program.scr"), "--extract", self.path("none")),
                         [self.head(0, 0, 0, 0, len(self.program))])
        self.assertEqual(os.listdir(self.path("none")), [])
        self.add("empty")
        self.assertEqual(self.lines("package", self.path("empty")), [self.head(0, 0, 0, 0, 0)])

    def test_DamagedDirectory_IsToldUpToTheDamage(self):
        self.add("t/a.gif", b"a" * 200_000)
        package = self.write("IMAGE=a.gif", "comment", "IMAGE=a.gif")
        self.add("damaged", package.replace(b"00000002\r\nTess", b"00000003\r\nTess"))
        result = self.run_tool("package", self.path("damaged"))
        self.assertEqual((result.returncode, result.stderr), (1, b"tessellarium-inspect: Input past end of file\n"))
        self.assertEqual(len(result.stdout.splitlines()), 3)
        self.assertIn(b'"comment":"comment"', result.stdout)
        self.add("damaged", package.replace(b"00000002\r\nTess", b"00099999\r\nTess"))
        self.fails(1, "Overflow", "package", self.path("damaged"))

    def test_Extract_SoundThatLeadsElsewhere_IsNotWritten(self):
        self.add("s/a.wav", b"w" * 20_000)
        package = self.write("SOUNDASYNC", r"SOUND=C:\s\a.wav")
        self.add("damaged", package.replace(b" \r\nwav\r\n", b" \r\n/..\r\n"))
        result = self.run_tool("package", self.path("damaged"), "--extract", self.path("out"))
        self.assertEqual((result.returncode, result.stderr), (1, b"tessellarium-inspect: Path/File access error\n"))
        self.assertEqual(os.listdir(self.path("out")), [])

    def test_Package_ThatCannotBeRead_IsTold(self):
        for name in "none", "t":
            self.add("t/a")
            self.fails(1, "can't be read", "package", self.path(name))
        self.fails(2, "package takes one file", "package")
        self.fails(2, "package takes one file", "package", "a", "b")
        self.fails(2, "--extract", "package", self.path("program.scr"), "--extract", self.path("program.scr"))

    def test_Write_WhatIsMissing_IsToldAndNothingIsWritten(self):
        self.add("t/a.gif", b"a")
        self.add_template("IMAGE=a.gif", "IMAGE=none.gif")
        self.fails(1, "Unable to locate image: C:\\t\\none.gif", *self.write_words())
        self.fails(1, "An Error Has Occurred: File not found", *self.write_words(template="C:\\none.txt"))
        self.fails(1, "can't be read", *self.write_words(exe=self.path("none")))
        self.assertFalse(os.path.exists(self.out))
        self.add_template("IMAGE=a.gif")
        self.fails(1, "can't be written", *self.write_words(out=self.path("none/out.scr")))
        self.assertEqual(sorted(os.listdir(self.root)), ["program.scr", "t"])

    def test_Write_OverWhatItNeeds_IsAWrongCall(self):
        self.add("t/a.gif", b"a")
        self.add("t/A.wav", b"w")
        self.add_template("IMAGE=a.gif", "SOUND=A.wav")
        for name in "program.scr", "t/a.gif", "t/A.wav", "t/t.txt":
            before = self.content(name)
            self.fails(2, "would be lost", *self.write_words(out=self.path(name)))
            self.assertEqual(self.content(name), before)

    def test_Write_OverWhatItNeedsUnderAnotherSpelling_IsAWrongCall(self):
        self.add("T/Pics/a.gif", b"a")
        self.add("t.txt", b"IMAGE=c:/t\\PICS\\A.GIF\r\nIMAGE=C:\\t\\pics\\..\\x.gif\r\n")
        self.add("T/x.gif", b"x")
        for name in "T/Pics/a.gif", "T/x.gif", "t.txt":
            before = self.content(name)
            self.fails(2, "would be lost", *self.write_words(template="c:/T.TXT", out=self.path(name)))
            self.assertEqual(self.content(name), before)

    def test_Write_MoreThan500Rows_IsRefused(self):
        self.add("t/a.gif", b"a")
        self.add_template(*["IMAGE=a.gif"] * 501)
        self.fails(1, "500", *self.write_words())
        self.assertFalse(os.path.exists(self.out))

    def test_Write_FormerFile_IsReplaced(self):
        self.add("t/a.gif", b"a")
        self.add("out.scr", b"former" * 100_000)
        self.write("IMAGE=a.gif")
        self.assertEqual(self.package()[0][2], ["count", 1])
        self.write("IMAGE=a.gif", "IMAGE=a.gif")
        self.assertEqual(self.package()[0][2], ["count", 2])

    def test_Write_WithoutAnOption_IsAWrongCall(self):
        for option in "--exe", "--template", "--out":
            words = self.write_words()
            at = words.index(option)
            self.fails(2, f"option {option} is missing", *words[:at], *words[at + 2:])
        self.fails(2, "write takes no plain words", *self.write_words(), "more")


class WrongCallTest(InspectTest):
    def test_Help_Always_ListsTheCommands(self):
        result = self.run_tool("--help")
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        for command in b"path TEXT", b"playlist", b"--steps N", b"template", b"--exe FILE", b"--extract DIR":
            self.assertIn(command, result.stdout)

    def test_Commands_ThatAreNone_AreWrongCalls(self):
        self.fails(2, "no command given")
        self.fails(2, "no command given", "--drive", "C=" + self.root)
        self.fails(2, "unknown command shwo", "shwo")
        self.fails(2, "unknown command ?", "\n")

    def test_Drives_ThatAreNone_AreWrongCalls(self):
        for word in "C", "=" + self.root, "CC=" + self.root, "1=" + self.root, "C=", "C=/no/such/folder":
            with self.subTest(word):
                self.fails(2, "", "playlist", "--drive", word)
        self.add("file")
        self.fails(2, "is not a folder", "playlist", "--drive", f"C={self.root}/file")
        self.fails(2, "is not a folder", "playlist", "--drive", "C=" + "x" * 5000)

    def test_Settings_ThatAreNone_AreWrongCalls(self):
        self.fails(2, "there is no setting Block", "playlist", "Block=10")
        self.fails(2, "is not of the form KEY=VALUE", "playlist", "Blocks")
        self.fails(2, "there is no setting ", "playlist", "=10")

    def test_Options_UnknownMissingOrWithoutValue_AreWrongCalls(self):
        show = "show", "--steps", "1", "--screen", "640x480"
        self.fails(2, "unknown option --step", "show", "--step", "1")
        self.fails(2, "unknown option --steps", "playlist", "--steps", "1")
        self.fails(2, "option --steps is missing", "show", "--screen", "640x480")
        self.fails(2, "option --screen is missing", "show", "--steps", "1")
        self.fails(2, "option --drive needs a value", *show, "--drive")
        for option, values in (("--steps", ("", "x", "-1", "1.5", "1 ", "99999999999")),
                               ("--screen", ("", "640", "640x", "640x480x3", "0x480", "640x-1", "axb")),
                               ("--twips", ("", "0", "-15", "x", "nan", "inf", "15x")),
                               ("--random", ("", "0.5,", "x", "-0.1", "1", "0.5,1.5", "0.99999999", "nan"))):
            for value in values:
                with self.subTest(option, value=value):
                    self.fails(2, option, *show, option, value)


if __name__ == "__main__":
    TOOL = sys.argv.pop(1)
    unittest.main()
