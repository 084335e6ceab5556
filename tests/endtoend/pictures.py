"""Makes the pictures of the tests: four quarters of flat colours, or a grid of them, so that a picture that is
cut, mirrored or put elsewhere shows."""

import itertools
import os
import struct
import subprocess

_shades = itertools.cycle(range(0, 105, 7))


class MadePicture:
    """A picture that is made for a test; `_ppm` gives its pixels."""

    def __init__(self, width, height):
        self.width = width
        self.height = height
        self.tolerance = 0

    def save(self, path, *options):
        """Writes the picture in the format of the name's extension; a name of several folders makes them.
        `options` go to ImageMagick. The picture itself comes back, for tests to expect it."""
        os.makedirs(os.path.dirname(path), exist_ok=True)
        kind = os.path.splitext(path)[1].lower()
        target = {".gif": "gif", ".bmp": "bmp3", ".jpg": "jpeg", ".jpe": "jpeg", ".jpeg": "jpeg"}[kind]
        subprocess.run(["convert", "ppm:-", "-quality", "100", "-sampling-factor", "4:4:4", "-strip",
                        *options, f"{target}:{path}"], input=self._ppm(), check=True)
        if target == "jpeg":
            self.tolerance = 3
        return self


class Picture(MadePicture):
    """A picture of quarters: upper left, upper right, lower left, lower right."""

    def __init__(self, width, height, colours):
        super().__init__(width, height)
        self.colours = colours if isinstance(colours[0], tuple) else (colours,) * 4
        # Where a JPEG of blocks of 16 pixels keeps the quarters apart.
        self.middle_x = max(width // 2 // 16 * 16, 1)
        self.middle_y = max(height // 2 // 16 * 16, 1)

    def draw(self, frame, left, top, width, height, blur):
        """Onto a frame, as large as is given; the seams of the quarters are left out `blur` pixels far."""
        middle_x = left + round(width * self.middle_x / self.width)
        middle_y = top + round(height * self.middle_y / self.height)
        for colour, box in zip(self.colours, (
                (left, top, middle_x, middle_y), (middle_x, top, left + width, middle_y),
                (left, middle_y, middle_x, top + height),
                (middle_x, middle_y, left + width, top + height))):
            frame.fill(*box, colour, self.tolerance)
        if blur:
            frame.ignore(middle_x - blur, top, middle_x + blur, top + height)
            frame.ignore(left, middle_y - blur, left + width, middle_y + blur)

    def _ppm(self):
        rows = []
        for y in range(self.height):
            left, right = self.colours[0:2] if y < self.middle_y else self.colours[2:4]
            rows.append(bytes(left) * self.middle_x + bytes(right) * (self.width - self.middle_x))
        return b"P6 %d %d 255\n" % (self.width, self.height) + b"".join(rows)

    def _wmf(self):
        """A placeable metafile whose units are twips of a screen of 96 dpi."""
        objects, records = 0, []

        def record(function, *words):
            records.append(struct.pack("<IH", 3 + len(words), function)
                           + b"".join(struct.pack("<H", word & 0xFFFF) for word in words))

        width, height = self.width * 15, self.height * 15
        middle_x, middle_y = self.middle_x * 15, self.middle_y * 15
        record(0x0103, 8)  # SetMapMode, anisotropic
        record(0x020B, 0, 0)  # SetWindowOrg
        record(0x020C, height, width)  # SetWindowExt
        for (red, green, blue), (left, top, right, bottom) in zip(self.colours, (
                (0, 0, middle_x, middle_y), (middle_x, 0, width, middle_y),
                (0, middle_y, middle_x, height), (middle_x, middle_y, width, height))):
            colour = (red | green << 8, blue)
            record(0x02FA, 0, 0, 0, *colour)  # CreatePenIndirect
            record(0x02FC, 0, *colour, 0)  # CreateBrushIndirect
            record(0x012D, objects)  # SelectObject
            record(0x012D, objects + 1)
            record(0x041B, bottom, right, top, left)  # Rectangle
            objects += 2
        record(0x0000)
        header = struct.pack("<IHhhhhHI", 0x9AC6CDD7, 0, 0, 0, width, height, 1440, 0)
        checksum = 0
        for (word,) in struct.iter_unpack("<H", header):
            checksum ^= word
        body = b"".join(records)
        longest = max(len(entry) for entry in records) // 2
        return (header + struct.pack("<H", checksum)
                + struct.pack("<HHHIHIH", 1, 9, 0x300, 9 + len(body) // 2, objects, longest, 0) + body)

    def save(self, path, *options):
        """As any picture's; a metafile too."""
        if not path.lower().endswith(".wmf"):
            return super().save(path, *options)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(self._wmf())
        return self


class Grid(MadePicture):
    """A picture of cells between the given edges, in pixels, first and last included. A cell's red tells its
    column, its green its row, and the blue is the picture's own; no part is 0, so that all differs from
    black."""

    def __init__(self, columns, rows, blue):
        super().__init__(columns[-1], rows[-1])
        self.columns = columns
        self.rows = rows
        self.blue = blue
        self.contrast = 225 // (min(len(columns), len(rows)) - 1) + 1  # between neighbours, at most

    def colour(self, column, row):
        """Both 0-based."""
        return (30 + 225 * column // (len(self.columns) - 1), 30 + 225 * row // (len(self.rows) - 1),
                self.blue)

    def _ppm(self):
        rows = []
        for row in range(len(self.rows) - 1):
            line = b"".join(bytes(self.colour(column, row)) * (self.columns[column + 1] - self.columns[column])
                            for column in range(len(self.columns) - 1))
            rows.append(line * (self.rows[row + 1] - self.rows[row]))
        return b"P6 %d %d 255\n" % (self.width, self.height) + b"".join(rows)


class Bitmap:
    """A picture from a file, with all its pixels."""

    def __init__(self, path):
        size = subprocess.run(["identify", "-format", "%w %h", path], check=True, capture_output=True).stdout
        self.width, self.height = map(int, size.split())
        data = subprocess.run(["convert", path, "-depth", "8", "bgr:-"], check=True,
                              capture_output=True).stdout
        self.pixels = bytearray(self.width * self.height * 4)
        for channel in range(3):
            self.pixels[channel::4] = data[channel::3]

    def draw(self, frame, left, top, width, height, blur):
        if (width, height, blur) != (self.width, self.height, 0):
            raise ValueError("a bitmap is only drawn as it is")
        for y in range(height):
            frame.put_row(top + y, left, self.pixels[y * width * 4:(y + 1) * width * 4])


def quarters(width, height):
    """A picture of other colours than those of the fourteen before it."""
    shade = next(_shades)
    return Picture(width, height, ((250 - shade, 10, 20 + shade), (20, 250 - shade, 30 + shade),
                                   (10 + shade, 40, 250 - shade), (250 - shade, 240 - shade, 10)))
