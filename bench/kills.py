#!/usr/bin/env python3
"""Kills the tool at random moments while it writes over a file, and counts what stands there afterwards.

usage: kills.py MOISTAIR-CLI [COUNT]

The old file and the new one are both in order; anything else, or a file left beside, is not.
"""

import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time

OLD = b"the old file"
CHART = ["chart", "--size", "800x400"]
#: name of the file, the command, what it ends with when it is whole
KINDS = [("t.csv", ["batch", "in.csv"], b"ok\n"), ("c.json", CHART, b"}\n"), ("c.svg", CHART, b"</svg>\n"),
         ("c.pdf", CHART, b"%%EOF\n"), ("c.png", CHART, b"IEND\xaeB`\x82"), ("c.bmp", CHART, b"\xff")]


def main():
    tool, count = os.path.abspath(sys.argv[1]), int(sys.argv[2]) if len(sys.argv) > 2 else 100
    broken = 0
    for name, command, whole in KINDS:
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "in.csv").write_text("db,wb\n" + "75,62.5\n" * 20000)
            file = pathlib.Path(folder) / name
            arguments = [tool, *command, "-o", name]
            began = time.monotonic()
            subprocess.run(arguments, cwd=folder, check=True)
            taken = time.monotonic() - began
            size = file.stat().st_size
            found = {"old": 0, "new": 0, "broken": 0, "left beside": 0}
            for _ in range(count):
                file.write_bytes(OLD)
                process = subprocess.Popen(arguments, cwd=folder)
                time.sleep(random.uniform(0, 1.1 * taken))
                process.kill()
                process.wait()
                now = file.read_bytes()
                new = len(now) == size and now.endswith(whole)
                found["old" if now == OLD else "new" if new else "broken"] += 1
                for beside in set(os.listdir(folder)) - {name, "in.csv"}:
                    found["left beside"] += 1
                    os.unlink(os.path.join(folder, beside))
            print(f"{name}: {taken:.2f} s, {count} kills:", ", ".join(f"{n} {what}" for what, n in found.items()), flush=True)
            broken += found["broken"]
    sys.exit(1 if broken else 0)


if __name__ == "__main__":
    main()
