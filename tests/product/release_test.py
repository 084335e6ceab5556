#!/usr/bin/env python3
"""The archive that users download: release_test.py BUILD_FOLDER"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import zipfile


class ReleaseTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["cpack", "--config", BUILD / "CPackConfig.cmake", "-B", folder], check=True,
                           stdout=subprocess.DEVNULL)
            archive, = pathlib.Path(folder).glob("Tessellarium-*.zip")
            with zipfile.ZipFile(archive) as entries:
                top = archive.stem + "/"
                cls.files = {name.removeprefix(top): entries.read(name) for name in entries.namelist()
                             if not name.endswith("/")}

    def test_TheScreenSaver_Always_IsTheOneThatWasBuilt(self):
        self.assertEqual(self.files["Tessellarium.scr"], (BUILD / "Tessellarium.scr").read_bytes())

    def test_TheManual_Always_BringsItsPicturesAndNothingElse(self):
        named = re.findall(r"images/[\w-]+\.png", self.files["help.html"].decode())
        self.assertTrue(named)
        self.assertEqual(self.files.keys(), {"Tessellarium.scr", "help.html", *named})


if __name__ == "__main__":
    BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
