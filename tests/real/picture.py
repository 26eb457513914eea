"""Pictures in memory: what the screen shows, and the bitmap that the program writes."""

import struct
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
            if mine == its:
                continue
            pixels = zip(zip(mine[0::3], mine[1::3], mine[2::3]), zip(its[0::3], its[1::3], its[2::3]))
            found.update(new for new, old in pixels if new != old)
        return found

    def firstdifference(self, other):
        """Where two pictures differ first, none if they are equal over the area that both have."""
        width, height = min(self.width, other.width), min(self.height, other.height)
        for y in range(height):
            if self.row(y, 0, width) == other.row(y, 0, width):
                continue
            x = next(x for x in range(width) if self.pixel(x, y) != other.pixel(x, y))
            return x, y, self.pixel(x, y), other.pixel(x, y)
        return None


def readppm(data):
    magic, size, depth, pixels = data.split(b"\n", 3)
    if magic != b"P6" or depth != b"255":
        raise ValueError("not a picture of 8 bits a colour")
    width, height = map(int, size.split())
    return Picture(width, height, pixels)


def readbitmap(path):
    """A Windows bitmap of 24 bits, uncompressed; any other file is refused."""
    with open(path, "rb") as file:
        data = file.read()
    if data[:2] != b"BM":
        raise ValueError("not a bitmap")
    offset, = struct.unpack_from("<I", data, 10)
    width, height, planes, bits, compression = struct.unpack_from("<iiHHI", data, 18)
    if (planes, bits, compression) != (1, 24, 0) or height <= 0:
        raise ValueError(f"not a bitmap of 24 bits: {bits} bits, compression {compression}")
    stride = (3 * width + 3) // 4 * 4
    rows = []
    for y in range(height):
        start = offset + (height - 1 - y) * stride  # the lowest row comes first
        bgr = data[start:start + 3 * width]
        row = bytearray(3 * width)
        row[0::3], row[1::3], row[2::3] = bgr[2::3], bgr[1::3], bgr[0::3]
        rows.append(bytes(row))
    return Picture(width, height, b"".join(rows))
