#!/usr/bin/env python3
"""Systems of processes as they were recorded: text, JSON and CSV of each, messages and exit codes, and tables of rows.

usage: process_test.py MOISTAIR-CLI FOLDER [--record]

FOLDER holds systems (NAME.steps) and what each came to (NAME.recorded): every command in it is run again. Numbers in
full are compared with twelve digits, since the last ones follow the C library. --record writes what the commands print now.
"""

import os
import pathlib
import re
import subprocess
import sys

COMMANDS = [
    "{0} --format text", "{0} --format text --elevation 5000", "{0} --format json", "{0} --format csv --inhg 28.05",
]
ROOM = "room.db=75 room.rh=50 room.sensible=60000 outdoor.db=95 outdoor.wb=75 outdoor.acfm=500"
OTHERS = {
    "mistakes": ["mistakes.steps", "moremistakes.steps", "names.steps", "nowhere.steps", ""],
    "backward": [
        "bypass.steps", "bypass.steps --elevation 5000", "circle.steps", "goals.steps", "fewgoals.steps", "noreach.steps",
        "goals.steps --rows wet.csv --columns HC.db,HC.total",
    ],
    "rows": [
        "airhandler.steps --rows hours.csv --columns SA.db,CC.total",
        "airhandler.steps --rows hours.csv --columns EX.rest.acfm,CC.adp --full --jobs 3",
        "airhandler.steps --rows hours.csv --columns SA.tb", "airhandler.steps --rows hours.csv --columns AS.db",
        "airhandler.steps --rows hours.csv --format json", "airhandler.steps --columns SA.db",
        "airhandler.steps --rows other.csv", "airhandler.steps --rows head.csv", "airhandler.steps --rows word.csv",
        "airhandler.steps --rows typo.csv", "airhandler.steps --rows third.csv",
        "--step OA:air~rh=50 --step HC:heat~OA~db=90 --rows temps.csv",
    ],
    "design": [
        "design", "design single-zome room.db=75", "design bypass room.dp=? room.rh=55x supply.ab=3",
        f"design single-zone {ROOM} supply.db=55 coil.rh=92 room.latent=3000", f"design single-zone {ROOM} supply.db=80 room.latent=9000",
        f"design single-zone {ROOM} supply.db=55 coil.rh=92 room.latent=9000 --format json --elevation 5000",
        f"design single-zone {ROOM} supply.db=55 coil.rh=92 room.latent=9000 --print",
        f"design single-zone {ROOM} supply.db=55 room.latent=9000 --rows design.csv --columns RM.db,RM.rh,CC.total,OA.acfm",
        f"design recovery {ROOM} supply.db=55 room.latent=9000 recovery.sens=0.7 --rows design.csv --columns RM.db,CC.total --print",
    ],
    "steps": [
        "--step OA:air~db=20,rh=80,acfm=1000 --step HC:heat~OA~db=10 --step F:fan~HC~dt=1",
        "--step OA:aer", "- --step HC:heat~EF~db=90 --format csv",
    ],
}


def printed(tool, folder, line):
    """What a command prints on both outputs, and its exit code."""
    arguments = [word.replace("~", " ") for word in line.split()]
    given = (folder / "airhandler.steps").read_bytes() if "-" in arguments else b""
    command = [] if arguments[:1] == ["design"] else ["process"]
    done = subprocess.run([tool, *command, *arguments], cwd=folder, input=given, capture_output=True, timeout=120)
    output = done.stdout.decode()
    if "--format json" in line or "--full" in line:
        output = re.sub(r"-?\d+\.\d+(e[+-]\d+)?", lambda number: f"{float(number[0]):.12g}", output)
        output = re.sub(r"\b\d(\.\d+)?e-1[3-9]\b", "0", output)
    return f"$ {line}\n{output}{done.stderr.decode()}exit code {done.returncode}\n"


def main():
    tool, folder = os.path.abspath(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
    systems = {name: [command.format(name + ".steps") for command in COMMANDS] for name in ("airhandler", "kinds", "refused")}
    wrong = 0
    for name, lines in {**systems, **OTHERS}.items():
        path = folder / f"{name}.recorded"
        now = "".join(printed(tool, folder, line) for line in lines)
        if "--record" in sys.argv:
            path.write_text(now, encoding="utf-8")
        before = path.read_text(encoding="utf-8").splitlines()
        for number, (old, new) in enumerate(zip(before, now.splitlines()), 1):
            if old != new:
                wrong += 1
                print(f"{path.name}, line {number}:", f"  was {old}", f"  is  {new}", sep="\n")
        if len(before) != len(now.splitlines()):
            wrong += 1
            print(f"{path.name}: {len(before)} lines are now {len(now.splitlines())}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
