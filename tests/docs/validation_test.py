#!/usr/bin/env python3
"""The validation sheet that the build has made: no difference on it has grown, and the manual leads to it.

usage: validation_test.py RECORDED MANUAL MADE

RECORDED holds the differences of the release before. Where a change of the model is meant, the file that the build has
made takes its place.
"""

import csv
import pathlib
import re
import sys


def differences(path):
    with open(path, newline="", encoding="utf-8") as file:
        return {row["what"]: row["difference"] for row in csv.DictReader(file)}


def main():
    recorded_path, manual, made_folder = map(pathlib.Path, sys.argv[1:])
    recorded, made = differences(recorded_path), differences(made_folder / "differences.csv")
    faults = [f"{what}: no longer on the sheet" for what in recorded.keys() - made.keys()]
    faults += [f"{what}: not recorded" for what in made.keys() - recorded.keys()]
    for what in sorted(recorded.keys() & made.keys()):
        before, now = recorded[what], made[what]
        last_digit = 10.0 ** -len(before.partition(".")[2])
        if abs(float(now)) > abs(float(before)) + 0.5 * last_digit:
            faults.append(f"{what}: {now}, was {before}")
    for page in sorted(manual.glob("*.html")):
        if 'href="validation.html"' not in page.read_text(encoding="utf-8"):
            faults.append(f"{page.name}: no way to the sheet")
    for name in set(re.findall(r'(?:href|src)="([\w./-]+)', (manual / "validation.html").read_text(encoding="utf-8"))):
        if not (manual / name).exists():
            faults.append(f"the sheet leads to {name}, which is not there")
    print(*faults, f"{len(made)} differences, {len(faults)} faults", sep="\n")
    return 1 if faults or not made else 0


if __name__ == "__main__":
    sys.exit(main())
