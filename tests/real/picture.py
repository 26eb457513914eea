"""Pictures in memory: what the screen shows, and what the program writes."""

import subprocess
from collections import Counter


class Picture:
    """Rows of pixels from the top, three bytes each: red, green, blue."""

    def __init__(self, width, height, pixels):
        self.width = width
        self.height = height
        self.pixels = pixels

    def row(self, y, left=0, width=None):
        start = (y * self.width + left) * 3
        return self.pixels[start:start + 3 * (self.width - left if width is None else width)]

    def pixel(self, x, y):
        return tuple(self.row(y, x, 1))

    def near(self, x, y):
        """The three by three pixels about a spot."""
        return [self.pixel(x + dx, y + dy) for dy in (-1, 0, 1) for dx in (-1, 0, 1)]

    def part(self, rect):
        """What lies within a rectangle, cut at the picture's edges."""
        width = min(rect.width, self.width - rect.x)
        height = min(rect.height, self.height - rect.y)
        rows = (self.row(y, rect.x, width) for y in range(rect.y, rect.y + height))
        return Picture(width, height, b"".join(rows))

    def colours(self):
        """How many pixels there are of each colour."""
        return Counter(zip(self.pixels[0::3], self.pixels[1::3], self.pixels[2::3]))

    def changed(self, other):
        """Colours that this picture has where it differs from one of the same size, and how many pixels of each."""
        found = Counter()
        for y in range(self.height):
            mine, its = self.row(y), other.row(y)
            if mine != its:
                pixels = zip(zip(mine[0::3], mine[1::3], mine[2::3]), zip(its[0::3], its[1::3], its[2::3]))
                found.update(new for new, old in pixels if new != old)
        return found

    def firstdifference(self, other):
        """Where two pictures differ first, none if they are equal over the area that both have."""
        width, height = min(self.width, other.width), min(self.height, other.height)
        for y in range(height):
            if self.row(y, 0, width) != other.row(y, 0, width):
                x = next(x for x in range(width) if self.pixel(x, y) != other.pixel(x, y))
                return x, y, self.pixel(x, y), other.pixel(x, y)
        return None


def readppm(data):
    magic, size, depth, pixels = data.split(b"\n", 3)
    if magic != b"P6" or depth != b"255":
        raise ValueError("not a picture of 8 bits a colour")
    width, height = map(int, size.split())
    return Picture(width, height, pixels)


def readimage(kind, path):
    """A file of the kind "bmp" or "png"; any other is refused."""
    command = ["convert", f"{kind}:{path}", "-depth", "8", "ppm:-"]
    return readppm(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout)
