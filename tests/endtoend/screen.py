"""What an X screen shows, what it should show, and the difference between the two."""

import mmap
import struct
import zlib

BLACK = (0, 0, 0)


class Shot:
    """Pixels of a screen: four bytes each, blue, green, red and 0, row after row."""

    def __init__(self, width, height, data=None):
        self.width = width
        self.height = height
        self.data = bytearray(width * height * 4) if data is None else data

    def pixel(self, x, y):
        offset = (y * self.width + x) * 4
        blue, green, red = self.data[offset:offset + 3]
        return red, green, blue

    def row(self, y, left, right):
        return self.data[(y * self.width + left) * 4:(y * self.width + right) * 4]

    def put_row(self, y, left, data):
        offset = (y * self.width + left) * 4
        self.data[offset:offset + len(data)] = data

    def part(self, left, top, right, bottom):
        part = Shot(right - left, bottom - top)
        for y in range(top, bottom):
            part.put_row(y - top, 0, self.row(y, left, right))
        return part

    def colours(self):
        """The set of colours, cheap for pictures of few."""
        return {tuple(reversed(self.data[i:i + 3])) for i in range(0, len(self.data), 4)}

    def save(self, path):
        """Writes a PNG."""
        rows = bytearray()
        for y in range(self.height):
            row = self.row(y, 0, self.width)
            colours = bytearray(self.width * 3)
            colours[0::3], colours[1::3], colours[2::3] = row[2::4], row[1::4], row[0::4]
            rows += b"\0" + colours

        def chunk(kind, body):
            return (struct.pack(">I", len(body)) + kind + body
                    + struct.pack(">I", zlib.crc32(kind + body)))

        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header)
                       + chunk(b"IDAT", zlib.compress(bytes(rows), 1)) + chunk(b"IEND", b""))


class Screen:
    """The screen of an Xvfb that keeps it in a file, as an XWD picture."""

    def __init__(self, path):
        with open(path, "rb") as file:
            self._map = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        header = struct.unpack(">20I", self._map[:80])
        self.width, self.height = header[4], header[5]
        self._stride = header[12]
        self._start = header[0] + header[19] * 12
        if self._stride != self.width * 4:
            raise RuntimeError("a screen of 32 bits a pixel was expected")

    def shot(self):
        data = bytearray(self._map[self._start:self._start + self._stride * self.height])
        data[3::4] = bytes(self.width * self.height)
        return Shot(self.width, self.height, data)

    def close(self):
        self._map.close()


class Frame(Shot):
    """What a screen should show: black, and what is painted here."""

    def __init__(self, width, height):
        super().__init__(width, height)
        self._ignored = []
        self._tolerant = []

    def fill(self, left, top, right, bottom, colour, tolerance=0):
        """Pixels; `right` and `bottom` are the first ones outside. What lies off the screen is left out."""
        left, top = max(left, 0), max(top, 0)
        right, bottom = min(right, self.width), min(bottom, self.height)
        if right <= left or bottom <= top:
            return
        red, green, blue = colour
        row = bytes((blue, green, red, 0)) * (right - left)
        for y in range(top, bottom):
            self.put_row(y, left, row)
        if tolerance:
            self._tolerant.append((left, top, right, bottom, colour, tolerance))

    def ignore(self, left, top, right, bottom):
        """What stands there doesn't matter."""
        left, top = max(left, 0), max(top, 0)
        right, bottom = min(right, self.width), min(bottom, self.height)
        if right > left and bottom > top:
            self._ignored.append((left, top, right, bottom))
        return self

    def paint(self, picture, left, top, width=None, height=None, blur=0):
        """A test picture with its upper left corner at a pixel, stretched if a size is given; then what
        lies `blur` pixels around an edge within it doesn't matter."""
        picture.draw(self, left, top, width or picture.width, height or picture.height, blur)
        return self

    def stretch(self, picture, blur):
        """A test picture that fills the screen."""
        return self.paint(picture, 0, 0, self.width, self.height, blur)

    def centre(self, picture):
        """A test picture in its own size in the middle; half a pixel goes to the right, and down."""
        return self.paint(picture, (self.width - picture.width + 1) // 2,
                          (self.height - picture.height + 1) // 2)

    def difference(self, shot):
        """Nothing if the shot shows this, else where it first doesn't."""
        wanted, seen = self, shot
        if self._ignored or self._tolerant:
            seen = Shot(shot.width, shot.height, bytearray(shot.data))
            for left, top, right, bottom in self._ignored:
                for y in range(top, bottom):
                    seen.put_row(y, left, wanted.row(y, left, right))
            for left, top, right, bottom, colour, tolerance in self._tolerant:
                self._settle(seen, (left, top, right, bottom), colour, tolerance)
        if wanted.data == seen.data:
            return None
        for y in range(self.height):
            wanted_row, seen_row = wanted.row(y, 0, self.width), seen.row(y, 0, self.width)
            if wanted_row != seen_row:
                x = next(i for i in range(len(wanted_row)) if wanted_row[i] != seen_row[i]) // 4
                return f"at {x}, {y} stands {seen.pixel(x, y)} and not {wanted.pixel(x, y)}"
        return None

    def _settle(self, seen, box, colour, tolerance):
        """Where the shot's rows lie within the tolerance they are taken for the wanted ones."""
        left, top, right, bottom = box
        for y in range(top, bottom):
            row = seen.row(y, left, right)
            if all(min(row[offset::4]) >= value - tolerance and max(row[offset::4]) <= value + tolerance
                   for offset, value in enumerate(reversed(colour))):
                seen.put_row(y, left, self.row(y, left, right))
