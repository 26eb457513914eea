#!/usr/bin/env python3
"""Each kind of file that the tool writes, on a disk that fails at every step in turn: the old file or the new one stands
there whole afterwards, nothing else lies beside it, and the exit code says which.

usage: faults_test.py MOISTAIR-CLI LIBRARY
"""

import os
import pathlib
import subprocess
import sys
import tempfile

TOOL, LIBRARY = map(os.path.abspath, sys.argv[1:])
OLD = b"the old file"
TABLE = "id,db,wb\n" + "".join(f"{i},75,62.5\n" for i in range(2000))
CHART = ["chart", "--size", "400x200", "--type", "blank"]

#: name of the file, the command that writes it, what it ends with when it is whole
KINDS = [("t.csv", ["batch"], b"ok\n"), ("c.json", CHART, b"}\n"), ("c.svg", CHART, b"</svg>\n"),
         ("c.pdf", CHART, b"%%EOF\n"), ("c.png", CHART, b"IEND\xaeB`\x82"), ("c.bmp", CHART, b"\xff")]
#: disks, with the calls that each of them can fail at: most make a file without a name first, some cannot
DISKS = {"": ["write", "fsync", "linkat", "rename"], "without O_TMPFILE": ["write", "fsync", "rename"]}
# The file takes its place by one call; a failure behind it leaves the new one.
PLACED = ("fsync", 2)


def run(arguments, fault=None, disk=""):
    environment = {k: v for k, v in os.environ.items() if k != "FAULT"}
    if fault:
        environment |= {"LD_PRELOAD": LIBRARY, "FAULT": "%s %d" % fault}
        environment |= {"NOTMPFILE": "1"} if disk else {}
        environment["ASAN_OPTIONS"] = environment.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0"
    return subprocess.run([TOOL, *arguments], input=TABLE.encode(), env=environment, stderr=subprocess.PIPE, timeout=120)


def wrong(file, arguments, whole, size, before, fault, disk):
    """What is wrong after a failure, if anything; None when nothing has failed any more."""
    if file.exists():
        file.unlink()
    if before is not None:
        file.write_bytes(before)
    done = run(arguments, fault, disk)
    left = file.read_bytes() if file.exists() else None
    new = left is not None and left.endswith(whole) and len(left) == size
    if done.returncode == 0:
        return None if new else "success, and the file is not the new one"
    if done.returncode != 1 or b"cannot be written" not in done.stderr:
        return f"exit code {done.returncode}, {done.stderr!r}"
    if not (new if fault == PLACED else left == before):
        return f"{len(left or b'')} bytes are there"
    beside = [name for name in os.listdir(file.parent) if name != file.name]
    return f"left behind: {beside}" if beside else ""


def main():
    survived, failures = 0, []
    for name, command, whole in KINDS:
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / name
            arguments = [*command, "-o", str(file)]
            if run(arguments).returncode != 0 or not file.read_bytes().endswith(whole):
                failures.append(f"{name}: not written even without a failure")
                continue
            size = file.stat().st_size
            for disk, call in [(disk, call) for disk, calls in DISKS.items() for call in calls]:
                for n in range(1, 100):
                    results = [wrong(file, arguments, whole, size, before, (call, n), disk) for before in (OLD, None)]
                    failures += [f"{name}, {call} {n} {disk}: {result}" for result in results if result]
                    if None in results:
                        break
                    survived += 2
                if n == 1:
                    failures.append(f"{name}: no {call} has failed {disk}")
    print(*failures, f"{survived} failures injected, {len(failures)} of them wrong", sep="\n")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
