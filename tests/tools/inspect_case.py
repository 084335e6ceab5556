"""What the tests of the inspection tool share."""

import functools
import json
import os
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

    tool = None

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
        return subprocess.run([self.tool, *arguments], capture_output=True, timeout=60, **options)

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


def main():
    """Runs the tests of the program's file on the tool that its command line names."""
    InspectTest.tool = sys.argv.pop(1)
    unittest.main()
