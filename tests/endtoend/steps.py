"""What the screen shows in the midst of a transition and at its end, by the transition's rules.

A step of the show is one of the classes here. It has states: how far the transition is. `state` reads one from
a shot of the screen, `end` is the last one, `allowed` says whether the transition can come through it,
and `frame` is the whole screen in that state. Of two states of one showing the later is the greater. Positions
and sizes are in twips, as the program computes them, at 96 dpi."""

import screen

TWIPS = 15  # a pixel

BLOCKS = "Random Blocks"
CURTAINS = ["Top To Bottom", "Bottom To Top", "Top/Bottom To Center", "Random Horizontal", "Left To Right",
            "Right To Left", "Left/Right To Center", "Random Vertical"]
SLIDES = ["Slide Bottom To Center", "Slide Top To Center", "Slide Right To Center", "Slide Left To Center"]


def edge(twips):
    """The nearest pixel edge."""
    return int(twips / TWIPS + 0.5)


def grid_edges(size, blocks):
    """The pixel edges of a picture's blocks along one side of so many pixels; the last takes the rest."""
    block = size * TWIPS // blocks
    return [edge(block * number) for number in range(blocks)] + [size]


class Surface:
    """A part of a frame, in pixels, on which a grid is painted as the program paints its picture."""

    def __init__(self, frame, left, top, width, height):
        self._frame = frame
        self._left, self._top = left, top
        self._right, self._bottom = left + width, top + height

    def fill(self, left, top, right, bottom, colour, tolerance=0):
        self._frame.fill(*self._clip(left, top, right, bottom), colour, tolerance)

    def fill_stretched(self, left, top, right, bottom, colour, growth, tolerance):
        """A part of a stretched picture. Where it isn't much larger than its own size, the colour of the next
        part, as much as `tolerance` away, may show in the outermost pixels."""
        self.fill(left, top, right, bottom, colour)
        if growth != 1 and growth < 2:
            for side in ((left, top, left + 1, bottom), (right - 1, top, right, bottom),
                         (left, top, right, top + 1), (left, bottom - 1, right, bottom)):
                self.fill(*side, colour, tolerance)

    def _clip(self, left, top, right, bottom):
        return (max(left + self._left, self._left), max(top + self._top, self._top),
                min(right + self._left, self._right), min(bottom + self._top, self._bottom))

    def paint(self, grid, target, source):
        """Left, top, width and height of both in twips. How a picture is stretched is the system's affair:
        what lies around the edges of the cells within the target, as far as a pixel can spread, doesn't
        matter."""
        columns = self._spans(grid.columns, target[0], target[2], source[0], source[2])
        rows = self._spans(grid.rows, target[1], target[3], source[1], source[3])
        growth = max(target[2] / source[2], target[3] / source[3])
        for row, top, bottom in rows:
            for column, left, right in columns:
                self.fill_stretched(left, top, right, bottom, grid.colour(column, row), growth, grid.contrast)
        blur = 2 + round(growth)
        for _, left, _ in columns[1:]:
            self.ignore(left - blur, rows[0][1], left + blur, rows[-1][2])
        for _, top, _ in rows[1:]:
            self.ignore(columns[0][1], top - blur, columns[-1][2], top + blur)

    @staticmethod
    def _spans(edges, target, target_size, source, source_size):
        """Which cells come to lie where on the target: number, first pixel, first pixel outside."""
        first, last = edge(target), edge(target + target_size)
        begin, end = edge(source), edge(source + source_size)
        spans = []
        for number, (low, high) in enumerate(zip(edges, edges[1:])):
            left, right = (first + round((max(min(at, end), begin) - begin) * (last - first) / (end - begin))
                           for at in (low, high))
            if right > left:
                spans.append((number, left, right))
        return spans

    def ignore(self, left, top, right, bottom):
        self._frame.ignore(*self._clip(left, top, right, bottom))


class Step:
    """What all steps share: a grid on the screen under a transition."""

    def __init__(self, name, grid, width, height):
        self.name = name
        self.grid = grid
        self._width, self._height = width, height  # of the screen, in pixels
        self._form = width * TWIPS, height * TWIPS

    def black(self):
        return screen.Frame(self._width, self._height)


class PlacedStep(Step):
    """The picture lies in the middle of the form in its own size, squeezed where it is too large, or fills
    the form."""

    def __init__(self, name, grid, width, height, full):
        super().__init__(name, grid, width, height)
        self._image = grid.width * TWIPS, grid.height * TWIPS
        self._picture = self._form if full else tuple(map(min, self._image, self._form))
        self._place = [edge((form - size) / 2) for form, size in zip(self._form, self._picture)]

    def surface(self, frame):
        return Surface(frame, *self._place, *map(edge, self._picture))

    def shows(self, shot, column, row):
        """Whether the middle of a cell, 0-based, is there."""
        x, y = (place + edge(size * (number + 0.5) / (len(edges) - 1)) for place, size, number, edges in
                zip(self._place, self._picture, (column, row), (self.grid.columns, self.grid.rows)))
        return shot.pixel(x, y) == self.grid.colour(column, row)


class PlainStep(PlacedStep):
    """All at once. The state is whether it is there."""

    end = True

    def state(self, shot):
        middle = (len(self.grid.columns) - 1) // 2
        return True if self.shows(shot, middle, middle) else None

    def allowed(self, _state):
        return True

    def frame(self, _state):
        frame = self.black()
        self.surface(frame).paint(self.grid, (0, 0, *self._picture), (0, 0, *self._image))
        return frame


class CutStep(PlacedStep):
    """The picture comes in parts, cut along the edges of the grid. The state is the set of what is there."""

    def __init__(self, name, grid, width, height, full):
        super().__init__(name, grid, width, height, full)
        self._blocks = len(grid.columns) - 1
        self._image_block = [size // self._blocks for size in self._image]
        self._picture_block = [size // self._blocks for size in self._picture]

    def state(self, shot):
        return frozenset(part for part in self.parts() if self.part_shows(shot, part)) or None

    def _span(self, axis, number, block):
        """Where a part, 0-based, begins along an axis, and its size."""
        return number * block[axis], block[axis]


class BlocksStep(CutStep):
    """Any block may come at any time. Blocks are pairs of column and row, 0-based."""

    def __init__(self, name, grid, width, height, full):
        super().__init__(name, grid, width, height, full)
        self.end = frozenset(self.parts())

    def parts(self):
        return ((column, row) for row in range(self._blocks) for column in range(self._blocks))

    def part_shows(self, shot, part):
        return self.shows(shot, *part)

    def allowed(self, _state):
        return True

    def frame(self, state):
        frame = self.black()
        surface = self.surface(frame)
        growth = max((shown + TWIPS) / image for shown, image in zip(self._picture_block, self._image_block))
        for part in state:
            # A pixel larger than the block; of two neighbours the later one has it.
            (left, width), (top, height) = (self._span(axis, number, self._picture_block)
                                            for axis, number in enumerate(part))
            pixels = edge(left), edge(top), edge(left + width + TWIPS), edge(top + height + TWIPS)
            surface.fill_stretched(*pixels, self.grid.colour(*part), growth, self.grid.contrast)
            column, row = part
            if {(column + 1, row), (column + 1, row + 1), (column + 1, row - 1)} & state:
                surface.ignore(pixels[2] - 1, pixels[1], pixels[2], pixels[3])
            if {(column, row + 1), (column + 1, row + 1), (column - 1, row + 1)} & state:
                surface.ignore(pixels[0], pixels[3] - 1, pixels[2], pixels[3])
        return frame


class CurtainStep(CutStep):
    """Strips come in the order of the transition. Strips are numbers, 0-based."""

    def __init__(self, name, grid, width, height, full):
        super().__init__(name, grid, width, height, full)
        self._axis = 0 if name in CURTAINS[4:] else 1
        last = self._blocks - 1
        self._order = {
            "Top To Bottom": [*range(last + 1)], "Left To Right": [*range(last + 1)],
            "Bottom To Top": [*range(last, -1, -1)], "Right To Left": [*range(last, -1, -1)],
            # The middle one of an odd number never comes.
            "Top/Bottom To Center": [strip for first in range((last + 1) // 2) for strip in (first, last - first)],
            "Left/Right To Center": [strip for first in range((last + 1) // 2) for strip in (first, last - first)],
        }.get(name)
        self.end = frozenset(self._order or self.parts())

    def parts(self):
        return range(self._blocks)

    def part_shows(self, shot, part):
        cell = [self._blocks // 2] * 2
        cell[self._axis] = part
        return self.shows(shot, *cell)

    def allowed(self, state):
        return self._order is None or state == frozenset(self._order[:len(state)])

    def frame(self, state):
        frame = self.black()
        surface = self.surface(frame)
        for strip in sorted(state):
            target, source = [0, 0, *(size + TWIPS for size in self._picture)], [0, 0, *self._image]
            for area, block, more in (target, self._picture_block, TWIPS), (source, self._image_block, 0):
                area[self._axis], size = self._span(self._axis, strip, block)
                area[self._axis + 2] = size + more
            surface.paint(self.grid, target, source)
            # The pixel that a strip is larger lies over the next one or beneath it.
            if strip + 1 in state:
                seam = [0, 0, self._width, self._height]
                seam[self._axis + 2] = edge(target[self._axis] + target[self._axis + 2])
                seam[self._axis] = seam[self._axis + 2] - 1
                surface.ignore(*seam)
        return frame


class SlideStep(Step):
    """The picture moves in. The state is the number of a pass, 0-based."""

    def __init__(self, name, grid, width, height):
        super().__init__(name, grid, width, height)
        self._axis = 0 if name in SLIDES[2:] else 1
        self._across = 1 - self._axis
        self._forward = name in ("Slide Top To Center", "Slide Left To Center")
        self._image = grid.width * TWIPS, grid.height * TWIPS
        self._middle = round((self._form[self._across] - self._image[self._across]) / 2)
        self.passes = list(self._passes())
        self.end = len(self.passes) - 1
        self._by_front = {self._front(shown): number for number, (shown, _, _) in enumerate(self.passes)}

    def _passes(self):
        """Of each pass, along the way of the slide: where the shown part begins and its size, where it begins
        in the picture, and where the black begins and its size."""
        form, image = self._form[self._axis], self._image[self._axis]
        centre = (form - image) / 2
        size = 100
        if self._forward:
            at = 1
            while centre > at:
                shown, source = (at, size), image - size
                if image > size + 100:
                    size += 100
                    black = 0, 0
                else:
                    size = image
                    at += 100
                    black = 1, at - 90
                yield shown, source, black
        else:
            at = form - 100
            while at >= centre:
                shown = at, size
                size = size + 100 if image > size + 100 else image
                if self._axis == 1:
                    begin = at + shown[1] - 90  # lies over the end of what was just shown
                    black = begin, form - begin
                else:
                    black = (at + size, form - at) if size == image else (0, 0)
                yield shown, 1, black
                at -= 100

    def _front(self, shown):
        """The foremost pixel edge of what is shown."""
        return edge(sum(shown)) if self._forward else edge(shown[0])

    def state(self, shot):
        # The red of a line through the middle, along the way.
        length, step = ((shot.width, 4), (shot.height, shot.width * 4))[self._axis]
        across = edge(self._form[self._across] / 2)
        start = across * (shot.width * 4 if self._axis == 0 else 4) + 2
        line = bytes(shot.data[start:start + (length - 1) * step + 1:step])
        blue = shot.data[start - 2:start - 2 + (length - 1) * step + 1:step]
        if self.grid.blue not in blue:
            return None
        front = len(line.rstrip(b"\0")) if self._forward else length - len(line.lstrip(b"\0"))
        return self._by_front.get(front, -1)

    def allowed(self, state):
        return state >= 0

    def frame(self, state):
        frame = self.black()
        surface = Surface(frame, 0, 0, self._width, self._height)
        (at, size), source_at, (black_at, black_size) = self.passes[state]
        target, source, black = [0] * 4, [1] * 4, [0] * 4
        along, across = self._axis, self._across
        target[along], target[along + 2], target[across], target[across + 2] = (
            at, size, self._middle, self._image[across])
        source[along], source[2:] = source_at, target[2:]
        surface.paint(self.grid, target, source)
        black[along], black[along + 2] = edge(black_at), edge(black_at + black_size)
        black[across + 2] = self._form[across]
        surface.fill(*black, screen.BLACK)
        return frame


def step(name, grid, width, height, full=False):
    """The step of a picture on a screen of so many pixels under a transition."""
    if name in SLIDES:
        return SlideStep(name, grid, width, height)
    kind = BlocksStep if name == BLOCKS else CurtainStep if name in CURTAINS else PlainStep
    return kind(name, grid, width, height, full)
