#!/usr/bin/env python3
"""Compares what people see of the program with what is recorded in tests/data, or records it again.

usage: record.py [KIND ...] [--write] [--build FOLDER] [--against FOLDER] [--traces COUNT]
       record.py --trace NUMBER [--against FOLDER]

KIND is sheets, windows, tool, pages or traces; all of them without one. Every difference is shown; --write also puts it
into the files, for `git diff` to show again. With --against, the build in FOLDER takes the place of the files. --trace
shows a sequence in full, or what differs in it from another build. The page tests/data/README.md says when to record.
"""

import argparse
import difflib
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
import painted  # noqa: E402

HERE = pathlib.Path(__file__).resolve()
DATA = HERE.parents[1] / "data"
KINDS = ("sheets", "windows", "tool", "pages", "traces")
PLACE = 0.03  # pixels that another C library may move what is drawn


def near(one, other):
    """Whether two lines are the same, give or take what another C library does; a text stands behind a bar."""
    if one == other:
        return True
    (one, bar, words), (other, _, others) = one.partition("|"), other.partition("|")
    if one.startswith("ink ") and len(one) == len(other):
        return all(abs(ord(a) - ord(b)) <= 1 for a, b in zip(one, other))
    a, b = one.split(" "), other.split(" ")
    number = re.compile(r"-?\d+\.\d\d$")
    return words == others and len(a) == len(b) and all(
        x == y or number.match(x) and number.match(y) and abs(float(x) - float(y)) <= PLACE for x, y in zip(a, b))


def kept(recorded, now):
    """What is now, with the recorded lines where they are near."""
    head = 0
    while head < min(len(recorded), len(now)) and near(recorded[head], now[head]):
        head += 1
    tail = 0
    while tail < min(len(recorded), len(now)) - head and near(recorded[-1 - tail], now[-1 - tail]):
        tail += 1
    middle = now[head:len(now) - tail]
    return recorded[:head] + middle + recorded[len(recorded) - tail:]


class Build:
    """The programs of a build folder, and what they record."""

    def __init__(self, folder, traces):
        self.folder, self.traces = folder.resolve(), traces
        self.environment = {**{k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY")},
                            "PATH": f"{self.folder}/bin:{os.environ['PATH']}", "LC_ALL": "C.UTF-8", "TZ": "UTC",
                            "LOOK": f"{sys.executable} {HERE} --look"}

    def run(self, *arguments, **options):
        return subprocess.run([*map(str, arguments)], env=self.environment, check=True, timeout=3000, **options)

    def texts(self, kind):
        """The files of a kind by name."""
        with tempfile.TemporaryDirectory() as folder:
            folder = pathlib.Path(folder)
            if kind in ("tool", "pages"):
                return {file.name: getattr(self, kind)(file.read_text(encoding="utf-8").splitlines())
                        for file in sorted((DATA / kind).glob("*.txt"))}
            if kind == "traces":
                return {"digests.txt": self.digests(folder)}
            self.run(self.folder / "tests/record/recorder", kind, folder)
            return {file.name: file.read_text(encoding="utf-8").splitlines() for file in sorted(folder.glob("*.txt"))}

    def digests(self, folder):
        """Those of all traces, which several processes walk."""
        lines, parts = [], range(0, self.traces, -(-self.traces // (os.cpu_count() or 1)))
        processes = []
        for first in parts:
            (folder / str(first)).mkdir()
            count = min(parts.step, self.traces - first)
            command = [self.folder / "tests/record/recorder", "traces", folder / str(first), first, count]
            processes.append(subprocess.Popen([*map(str, command)], env=self.environment))
        for first, process in zip(parts, processes):
            if process.wait() != 0:
                raise subprocess.CalledProcessError(process.returncode, "recorder")
            lines += (folder / str(first) / "digests.txt").read_text(encoding="utf-8").splitlines()
        return lines

    def trace(self, number):
        with tempfile.TemporaryDirectory() as folder:
            self.run(self.folder / "tests/record/recorder", "traces", folder, number, 1, "full")
            return (pathlib.Path(folder) / f"trace-{number}.txt").read_text(encoding="utf-8").splitlines()

    def tool(self, recorded):
        """The commands of a file, each behind "$ ", and what they print in one folder, the errors behind "! "."""
        version = subprocess.run(["moistair-cli", "--version"], env=self.environment, stdout=subprocess.PIPE).stdout
        version = version.decode().split()[-1]
        lines = []
        with tempfile.TemporaryDirectory() as folder:
            for command in (line for line in recorded if line.startswith("$ ")):
                done = subprocess.run(["bash", "-c", command[2:]], cwd=folder, env=self.environment, timeout=300,
                                      stdout=subprocess.PIPE, stderr=subprocess.PIPE)
                lines += [command, *done.stdout.decode(errors="backslashreplace").splitlines(),
                          *("! " + line for line in done.stderr.decode(errors="backslashreplace").splitlines())]
                lines += [f"exit {done.returncode}"] if done.returncode else []
            lines += ["files: " + " ".join(sorted(os.listdir(folder)))]
        digits = re.compile(r"-?\d+\.\d{8,}(e-?\d+)?")
        return [digits.sub(lambda match: f"{float(match[0]):.9g}", line).replace(version, "VERSION") for line in lines]

    def pages(self, recorded):
        """The texts of the SVG and PDF files that the first line asks for, and the ink of the picture."""
        lines = [recorded[0]]
        with tempfile.TemporaryDirectory() as folder:
            folder = pathlib.Path(folder)
            for ending in ("svg", "pdf", "bmp"):
                self.run("bash", "-c", f"moistair-cli {recorded[0]} -o f.{ending}", cwd=folder)
            svg = list(painted.svgtexts((folder / "f.svg").read_text(encoding="utf-8")))
            pdf = list(painted.pdftexts((folder / "f.pdf").read_bytes()))
            for page, x, y, size, angle, bold, anchor, color, text in svg:
                look = "bold" if bold else "plain"
                lines.append(f"page {page} {x:.2f} {y:.2f} {size:.2f} {angle:.2f} {look} {anchor} {color}|{text}")
            lines += [f"DIFFERS: {words}" for words in map(painted.disagreement, svg, pdf) if words]
            lines += [f"{len(svg)} texts in SVG, {len(pdf)} in PDF", *painted.ink((folder / "f.bmp").read_bytes())]
        return [line.replace(self.version(), "VERSION") for line in lines]

    def version(self):
        return self.run("moistair-cli", "--version", stdout=subprocess.PIPE).stdout.decode().split()[-1]


def look(file, base=None):
    """The texts and strokes of an SVG file without their places, or what of them differs from another one."""
    def parts(name):
        data = pathlib.Path(name).read_text(encoding="utf-8")
        strokes = re.findall(r'<path (?:stroke|fill)="[^>]*?(?= d=)', data)
        texts = [f"{size:.2f} {'bold ' * bold}{color}|{text}" for _, _, _, size, _, bold, _, color, text in painted.svgtexts(data)]
        return [re.search("viewBox=[^>]*", data)[0], f"{len(strokes)} paths", *texts]
    if base is None:
        return parts(file)
    lines = difflib.unified_diff(parts(base), parts(file), n=0, lineterm="")
    return [line for line in lines if not line.startswith(("---", "+++", "@@"))]


def shown(kind, name, recorded, now):
    """Whether something differs, which is then printed."""
    if recorded == now:
        return False
    lines = list(difflib.unified_diff(recorded, now, f"recorded {kind}/{name}", "now", n=1, lineterm=""))
    print(*lines[:120], sep="\n")
    if len(lines) > 120:
        print(f"... and {len(lines) - 120} more lines")
    return True


def compare(kind, build, against, write):
    """The names of the files that differ."""
    now = build.texts(kind)
    if against:
        recorded = against.texts(kind)
    else:
        recorded = {file.name: file.read_text(encoding="utf-8").splitlines() for file in (DATA / kind).glob("*.txt")}
    differing = []
    for name in sorted({*recorded, *now}):
        old, new = recorded.get(name, []), now.get(name, [])
        if kind == "traces":
            old = old[:len(new)] if build.traces < len(old) and not write else old
        new = kept(old, new)
        if shown(kind, name, old, new):
            differing.append(f"{kind}/{name}")
        if write and not new:
            (DATA / kind / name).unlink()
        elif write:
            (DATA / kind / name).write_text("\n".join(new) + "\n", encoding="utf-8")
    return differing


def main():
    parser = argparse.ArgumentParser(usage=__doc__.partition("usage: ")[2])
    parser.add_argument("kinds", nargs="*", choices=[[], *KINDS])
    parser.add_argument("--write", action="store_true")
    parser.add_argument("--build", type=pathlib.Path, default=HERE.parents[2] / "build/release")
    parser.add_argument("--against", type=pathlib.Path)
    parser.add_argument("--traces", type=int, default=500)
    parser.add_argument("--trace", type=int)
    parser.add_argument("--look", nargs="+")
    options = parser.parse_args()
    if options.look:
        signal.signal(signal.SIGPIPE, signal.SIG_DFL)  # into head
        print(*look(*options.look), sep="\n")
        return 0
    build = Build(options.build, options.traces)
    against = Build(options.against, options.traces) if options.against else None
    if options.trace is not None:
        lines = build.trace(options.trace)
        print(*(difflib.unified_diff(against.trace(options.trace), lines, "there", "here", n=3, lineterm="") if against
                else lines), sep="\n")
        return 0
    differing = [name for kind in options.kinds or KINDS for name in compare(kind, build, against, options.write)]
    if differing:
        print(f"{len(differing)} files {'recorded again' if options.write else 'differ'}:", *differing)
        if not options.write:
            print("tests/data/README.md says when it is right to record them again.")
    return 1 if differing and not options.write else 0


if __name__ == "__main__":
    sys.exit(main())
