#!/usr/bin/env python3
"""Records the drawings in drawings/ anew, from what moistair-cli draws. README.md beside it says when that is right.

usage: record_drawings.py MOISTAIR-CLI

A file begins with what is drawn: type, limits, unit and entry of the pressure on one line, then an addition on each. Behind
an empty line stands what is recorded, one operation on each line, in twips with two decimals:

    - X1 Y1 X2 Y2 COLOR    line          > X2 Y2             line from where the last one ended, in its color
    o X Y RADIUS COLOR     circle        t X Y TEXT          text, with its blanks
"""

import json
import pathlib
import subprocess
import sys
import tempfile

FOLDER = pathlib.Path(__file__).resolve().parent / "drawings"


def arguments(head):
    """What the tool is called with for the head of a file."""
    kind, limits, unit, entry = head[0].split()
    yield from ("--type", kind, "--limits", limits, "--size", "800x400", "--" + unit, entry)
    for name, value in (line.split(maxsplit=1) for line in head[1:]):
        if name == "mix":
            kinds = value.split(",")
            streams = [[f"{a}={b}" for a, b in zip(kinds[i:i + 4:2], kinds[i + 1:i + 4:2])] + [f"flow={kinds[i + 4]}"]
                       for i in (0, 5)]
            value = ";".join(",".join(stream) for stream in streams)
        yield from ("--" + name, value)


def lines(operations):
    """The operations of a drawing as they are recorded."""
    def numbers(operation, *names):
        return " ".join(f"{operation[name]:.2f}" for name in names)

    end = None
    for operation in operations:
        if operation["op"] == "text":
            yield f"t {numbers(operation, 'x', 'y')} {operation['text']}"
        elif operation["op"] == "circle":
            yield f"o {numbers(operation, 'x', 'y', 'r')} {operation['color']}"
        else:
            color = operation.get("color", "foreground")
            follows = (operation["x1"], operation["y1"], color) == end
            yield f"> {numbers(operation, 'x2', 'y2')}" if follows else f"- {numbers(operation, 'x1', 'y1', 'x2', 'y2')} {color}"
            end = operation["x2"], operation["y2"], color


def same(line, recorded):
    """Whether a line is the recorded one, give or take the hundredth of a pixel that another C library may move it."""
    pairs = list(zip(line.split(" "), recorded.split(" ")))
    return line.count(" ") == recorded.count(" ") and all(a == b or a[-3:-2] == b[-3:-2] == "." and
                                                          abs(float(a) - float(b)) < 0.15 for a, b in pairs)


def drawn(tool, head):
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "drawing.json"
        subprocess.run([tool, "chart", "-o", path, *arguments(head)], check=True)
        return list(lines(json.loads(path.read_text(encoding="utf-8"))["ops"]))


def headof(path):
    return path.read_text(encoding="utf-8").split("\n\n")[0].splitlines()


if __name__ == "__main__":
    for file in sorted(FOLDER.glob("*.txt")):
        head = headof(file)
        operations = drawn(sys.argv[1], head)
        file.write_text("\n".join(head + [""] + operations) + "\n", encoding="utf-8")
        print(file.name, len(operations), "operations")
