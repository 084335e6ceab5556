#!/usr/bin/env python3
"""A real package, whole and damaged, as the reader takes it: package_test.py TESSELLARIUM.SCR TESSELLARIUM-INSPECT"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

TRAILER = 34  # bytes
KNOWN_FAILURES = (b"Input past end of file", b"Invalid procedure call or argument", b"Overflow",
                  b"Subscript out of range", b"Path/File access error")
EXTRACTED = re.compile(r"000[1-4]\.(pic|wav|mp3)")


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        for name, size in ("a.jpg", "640x480"), ("b.gif", "300x200"), ("c.bmp", "200x100"):
            subprocess.run(["convert", "-seed", "1", "-size", size, "plasma:tan-steelblue", cls.folder / name], check=True)
        (cls.folder / "a.wav").write_bytes(b"RIFF" + bytes(100_000))
        (cls.folder / "b.mp3").write_bytes(b"\xff\xfb" * 10_000)
        (cls.folder / "t.txt").write_text(
            "SOUNDSYNC=2\nIMAGE=a.jpg\nSOUND=a.wav\nDISSOLVE=Random Blocks\nOne\nTwo\nIMAGE=b.gif\n"
            "SOUND=b.mp3\nIMAGE=c.bmp\nDISSOLVE=Normal\nLast\nIMAGE=a.jpg\nSOUND=a.wav\n", newline="\r\n")
        subprocess.run([TOOL, "write", "--drive", f"C={cls.folder}", "--exe", PRODUCT, "--template", r"C:\t.txt",
                        "--out", cls.folder / "whole.scr"], check=True)
        cls.whole = (cls.folder / "whole.scr").read_bytes()

    def read(self, package):
        """What the tool prints first, after it was let extract all; it survives, and writes nothing else."""
        file = self.folder / "package.scr"
        file.write_bytes(package)
        with tempfile.TemporaryDirectory(dir=self.folder) as target:
            done = subprocess.run([TOOL, "package", file, "--extract", target], capture_output=True, timeout=60)
            self.assertIn(done.returncode, (0, 1), done.stderr)
            if done.returncode:
                self.assertTrue(done.stderr.strip().endswith(KNOWN_FAILURES), done.stderr)
            for name in os.listdir(target):
                self.assertRegex(name, EXTRACTED)
        lines = done.stdout.splitlines()
        return done.returncode, json.loads(lines[0]) if lines else None

    def test_Whole_IsReadToItsEnd(self):
        code, head = self.read(self.whole)
        self.assertEqual((code, head["runMode"], head["soundMode"], head["count"], head["length"]),
                         (0, -1, 2, 4, len(self.whole)))

    def test_CutAtEveryHundredth_IsThePlainProgram(self):
        for hundredths in range(100):
            with self.subTest(hundredths):
                cut = self.whole[:len(self.whole) * hundredths // 100]
                self.assertEqual(self.read(cut), (0, {"runMode": 0, "soundMode": 0, "count": 0, "directory": 0,
                                                      "length": len(cut)}))

    def test_CutBeforeItsTrailer_GivesWhatItCan(self):
        body, trailer = self.whole[:-TRAILER], self.whole[-TRAILER:]
        for hundredths in range(100):
            with self.subTest(hundredths):
                code, head = self.read(body[:len(body) * hundredths // 100] + trailer)
                self.assertEqual(code, 1, "the directory is cut off")
                if head:
                    self.assertEqual((head["runMode"], head["count"]), (-1, 4))

    def test_WithoutAHundredth_IsSurvived(self):
        for hundredths in range(100):
            with self.subTest(hundredths):
                begin, end = (len(self.whole) * part // 100 for part in (hundredths, hundredths + 1))
                self.read(self.whole[:begin] + self.whole[end:])


if __name__ == "__main__":
    PRODUCT, TOOL = sys.argv[1:3]
    del sys.argv[1:3]
    unittest.main()
