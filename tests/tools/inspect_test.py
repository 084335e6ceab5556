#!/usr/bin/env python3
"""What the inspection tool prints and how it exits: inspect_test.py TESSELLARIUM-INSPECT"""

import os

from inspect_case import HOST, InspectTest, main


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

    def test_Names_OfTheCodePage_AreFoundUnderTheirCharacters(self):
        self.add("\xfcber/t\xe4.txt", b"IMAGE=\x80.gif\r\n")
        self.add("\xfcber/\u20ac.gif")
        self.assertEqual(self.playlist("ImagePath=C:\\\xfcber", "ImageListFile=t\xe4.txt"),
                         [self.head(0, -1, "C:\\\xfcber\\", 1), self.item("C:\\\xfcber\\\x80.gif")])
        self.assertEqual(self.playlist("AllImages=1", "ImagePath=C:\\\xfcber")[1:],
                         [self.item("C:\\\xfcber\\\x80.gif")])
        self.assertEqual(self.lines("template", *self.drive(), "C:\\\xfcber\\t\xe4.txt")[1][0], ["image", "\x80.gif"])
        self.fails(1, "File not found", "template", *self.drive(), "C:\\\u20ac.txt")

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
    main()
