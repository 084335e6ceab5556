#!/usr/bin/env python3
"""How the inspection tool reads and writes packages: inspect_package_test.py TESSELLARIUM-INSPECT"""

import os

from inspect_case import InspectTest, main, picture

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

    def test_Write_NamesOfTheCodePage_AreFoundAndTold(self):
        self.add("t/\xfc.bmp", b"a")
        self.assertEqual(self.warnings(b"IMAGE=\xfc.bmp", b"SOUND=\x80.wav"),
                         ["tessellarium-inspect: warning: item 1 (\xfc.bmp): its sound is missing"])
        self.add_template(b"IMAGE=\x80.bmp")
        self.fails(1, "Unable to locate image: C:\\t\\\u20ac.bmp", *self.write_words())

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

    def test_Write_FilesBesideTheTarget_AreLeftAlone(self):
        self.add("t/a.gif", b"a")
        for name in "out.scr.part", "out.scr.part2":
            self.add(name, b"mine")
        self.write("IMAGE=a.gif")
        self.assertEqual(sorted(os.listdir(self.root)), ["out.scr", "out.scr.part", "out.scr.part2", "program.scr", "t"])
        self.assertEqual(self.content("out.scr.part") + self.content("out.scr.part2"), b"minemine")

    def test_Write_WithoutAnOption_IsAWrongCall(self):
        for option in "--exe", "--template", "--out":
            words = self.write_words()
            at = words.index(option)
            self.fails(2, f"option {option} is missing", *words[:at], *words[at + 2:])
        self.fails(2, "write takes no plain words", *self.write_words(), "more")


if __name__ == "__main__":
    main()
