#!/usr/bin/env python3
"""What the product's file has to be: product_test.py TESSELLARIUM.SCR"""

import re
import subprocess
import sys
import unittest

# Windows always takes these from its own folder, never from beside the program.
SYSTEM_LIBRARIES = {"kernel32", "user32", "gdi32", "advapi32", "ole32", "msvcrt"}
BLOCK = 1025  # bytes in which a package copies the program
ICON_GROUP, VERSION, MANIFEST, STRINGS = 14, 16, 24, 6


class ProductFile(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with open(PRODUCT, "rb") as file:
            cls.bytes = file.read()
        cls.headers = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", PRODUCT],
                                     check=True, capture_output=True, text=True).stdout

    def header(self, name):
        return int(re.search(rf"^{name}\s+([0-9a-f]+)", self.headers, re.MULTILINE)[1], 16)

    def resources(self, kind):
        """The number of resources of a kind."""
        found = re.search(rf"Entry: ID: 0x0*{kind:x}, Value: 0x8.*\n.*Name Table: .*Num Names: (\d+), IDs: (\d+)",
                          self.headers)
        return int(found[1]) + int(found[2]) if found else 0

    def test_Imports_Always_AreSystemLibrariesAlone(self):
        imported = {name.lower().removesuffix(".dll") for name in re.findall(r"DLL Name: (\S+)", self.headers)}
        self.assertTrue(imported)
        self.assertLessEqual(imported, SYSTEM_LIBRARIES)

    def test_Hardening_Always_IsThatOfAModernProgram(self):
        for flag in "HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT":
            self.assertIn(flag, self.headers)
        # Without relocations Windows could not place the program elsewhere, whatever the flags say.
        self.assertGreater(self.headers.count(" DIR64"), 0)
        self.assertNotIn("relocations stripped", self.headers)

    def test_Entry_Always_LiesInTheCode(self):
        code = self.header("BaseOfCode")
        self.assertGreater(self.header("AddressOfEntryPoint"), code)
        self.assertLess(self.header("AddressOfEntryPoint"), code + self.header("SizeOfCode"))
        self.assertIn("(Windows GUI)", self.headers)

    def test_Resources_Always_HoldIconVersionManifestAndName(self):
        for kind in ICON_GROUP, VERSION, MANIFEST, STRINGS:
            self.assertEqual(self.resources(kind), 1)
        self.assertIn("5.9.1".encode("utf-16-le"), self.bytes)

    def test_LastBytes_Always_ArePadding(self):
        padding = self.bytes[len(self.bytes.rstrip(b".")):]
        self.assertGreaterEqual(len(padding), 64)
        self.assertNotIn(b"Tessellarium\r\n", self.bytes[-64:])

    def test_Length_Always_IsNoWholeNumberOfBlocks(self):
        self.assertNotEqual(len(self.bytes) % BLOCK, 0)

    def test_SleepOfTheMachine_Always_IsLeftToTheSystem(self):
        for call in b"SetThreadExecutionState", b"PowerCreateRequest", b"PowerSetRequest":
            self.assertNotIn(call, self.bytes)

    def test_TraceTexts_InAReleaseBuild_AreGone(self):
        self.assertIsNone(re.search(rb"[SEX]: (MainForm|Main|UnModifyComment|CheckUnique|DetermineRunMode|ControlForm|CtlProc|Subclass)\b|Enable Timers", self.bytes))

    def test_Symbols_InAReleaseBuild_AreGone(self):
        self.assertIn("symbols stripped", self.headers)


if __name__ == "__main__":
    PRODUCT = sys.argv.pop(1)
    unittest.main()
