"""Texts of the program's SVG and PDF files, as they are painted, and the colors of its BMP pictures.

A text is (page, x, y, size, angle, bold, anchor, color, text): its place in pixels of 1/96 inch from the page's top left
corner, its angle in degrees clockwise. One of a PDF file has the place of its end, (x, y), in place of the anchor.
"""

import math
import re
import struct
import zlib
from xml.etree import ElementTree

SVG = "{http://www.w3.org/2000/svg}"


def svgtexts(data):
    root = ElementTree.fromstring(data)
    height = None
    for page, group in enumerate(root.findall(SVG + "g"), 1):
        moved = re.match(r"translate\(0 (\S+)\)", group.get("transform", ""))
        height = float(moved[1]) if moved else 0
        if page > 1 and height == 0:
            raise ValueError("two pages are at one place")
        for text in group.iter(SVG + "text"):
            turned = re.match(r"rotate\((\S+) ", text.get("transform", ""))
            yield (page, float(text.get("x")), float(text.get("y")), float(text.get("font-size") or group.get("font-size")),
                   float(turned[1]) if turned else 0, text.get("font-weight") == "bold", text.get("text-anchor", "start"),
                   text.get("fill"), text.text)


def objects(data):
    """The objects of a PDF file by number: what stands before a stream, and the stream."""
    for match in re.finditer(rb"(\d+) 0 obj\n(.*?)endobj", data, re.DOTALL):
        head, has, rest = match[2].partition(b"stream")
        stream = rest.lstrip(b"\r\n").rpartition(b"endstream")[0] if has else b""
        yield int(match[1]), (head, zlib.decompress(stream) if b"FlateDecode" in head else stream)


def letters(found, font):
    """By the codes of a font: the letter, and its width in parts of the size."""
    head = found[font][0]
    codes = found[int(re.search(rb"/ToUnicode (\d+)", head)[1])][1]
    texts, widths = {}, {}
    for first, last, to in re.findall(rb"<(\w{4})> <(\w{4})> (\[[^\]]*\]|<\w+>)", codes):
        letter = [bytes.fromhex(code.decode()).decode("utf-16-be") for code in re.findall(rb"<(\w+)>", to)]
        for place, code in enumerate(range(int(first, 16), int(last, 16) + 1)):
            texts[code] = letter[place] if to.startswith(b"[") else chr(ord(letter[0]) + place)
    below = found[int(re.search(rb"/DescendantFonts \[(\d+)", head)[1])][0].partition(b"/W [")[2]
    for first, several, last, one in re.findall(rb"(\d+) (?:\[([^\]]*)\]|(\d+) (\S+))", below):
        every = several.split() or [one] * (int(last or 0) - int(first) + 1)
        widths.update({int(first) + place: float(width) / 1000 for place, width in enumerate(every)})
    return {code: (letter.replace("\t", " "), widths[code]) for code, letter in texts.items()}


def times(a, b):
    return (a[0] * b[0] + a[1] * b[2], a[0] * b[1] + a[1] * b[3], a[2] * b[0] + a[3] * b[2], a[2] * b[1] + a[3] * b[3],
            a[4] * b[0] + a[5] * b[2] + b[4], a[4] * b[1] + a[5] * b[3] + b[5])


def pdftexts(data):
    found = dict(objects(data))
    pages = next(head for head, _ in found.values() if b"/Type /Pages" in head)
    kids = re.search(rb"/Kids \s*\[([^\]]*)\]", pages)[1]
    for page, number in enumerate(map(int, re.findall(rb"(\d+) 0 R", kids)), 1):
        head = found[number][0]
        height = float(re.search(rb"/MediaBox \[0 0 \S+ (\S+)\]", head)[1])
        resources = found[int(re.search(rb"/Resources (\d+)", head)[1])][0]
        fonts = {name: (letters(found, int(font)), b"Bold" in found[int(font)][0])
                 for name, font in re.findall(rb"/(F\d+) (\d+) 0 R", resources)}
        content = found[int(re.search(rb"/Contents (\d+)", head)[1])][1]
        yield from pagetexts(page, content, height, fonts)


def pagetexts(page, content, height, fonts):
    matrix, stack, operands, color = (1, 0, 0, 1, 0, 0), [], [], ""
    line, text, begin = None, "", None
    for word in content.split():
        if word == b"q":
            stack.append(matrix)
        elif word == b"Q":
            matrix = stack.pop()
        elif word == b"cm":
            matrix = times(tuple(map(float, operands[-6:])), matrix)
        elif word == b"scn":
            color = "#" + "".join(f"{round(float(part) * 255):02x}" for part in operands[-3:])
        elif word == b"BT":
            text, begin = "", None
        elif word == b"Tf":
            (known, bold), size = fonts[operands[-2][1:]], float(operands[-1])
        elif word == b"Tm":
            line = times(tuple(map(float, operands[-6:])), matrix)
        elif word == b"Td":
            line = times((1, 0, 0, 1, *map(float, operands[-2:])), line)
        elif word == b"Tj":
            letter, width = known[int(operands[-1][1:-1], 16)]
            begin = begin or line
            text += letter
            end = times((1, 0, 0, 1, width * size, 0), line)
        elif word == b"ET" and begin:
            def place(at):
                return at[4] * 96 / 72, (height - at[5]) * 96 / 72
            angle = math.degrees(math.atan2(-begin[1], begin[0]))
            yield (page, *place(begin), math.hypot(*begin[:2]) * size * 96 / 72, angle, bold, place(end), color, text)
        operands = [*operands[-5:], word]


def disagreement(svg, pdf):
    """What of a text differs between the two files; empty if nothing does."""
    ends = {"start": pdf[1:3], "end": pdf[6], "middle": [(a + b) / 2 for a, b in zip(pdf[1:3], pdf[6])]}
    off = math.dist(svg[1:3], ends[svg[6]])
    same = (svg[0], svg[5], svg[7], svg[8].strip()) == (pdf[0], pdf[5], pdf[7], pdf[8].strip())
    alike = off < 0.6 and abs(svg[3] - pdf[3]) < 0.05 and abs((svg[4] - pdf[4] + 180) % 360 - 180) < 0.1
    return "" if same and alike else f"{off:.2f} pixels apart: SVG {svg}, PDF {pdf}"


def ink(data, cell=24):
    """The mean red, green and blue of the squares of a picture, each in 64 steps from "0" (black) to "o"."""
    first, = struct.unpack_from("<I", data, 10)
    width, height = struct.unpack_from("<ii", data, 18)
    stride = (3 * width + 3) // 4 * 4
    rows = [data[first + row * stride:first + row * stride + 3 * width] for row in range(height)][::-1]
    for top in range(0, height, cell):
        line = "ink "
        for left in range(0, width, cell):
            parts = [row[3 * left:3 * (left + cell)] for row in rows[top:top + cell]]
            for channel in (2, 1, 0):
                values = b"".join(part[channel::3] for part in parts)
                line += chr(ord("0") + sum(values) // len(values) // 4)
        yield line
