#!/usr/bin/env python3
"""Weather files and trend logs, one for each oddity: bins, states, counts and messages as they were recorded.

usage: weather_test.py MOISTAIR-CLI FOLDER [--record]

FOLDER/make.py makes the files. What the commands print is compared with FOLDER/recorded.txt; --record writes it. A
synthetic year is held against counts of its own that this script makes."""

import csv
import io
import json
import math
import os
import pathlib
import re
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
TOOL, FOLDER = os.path.abspath(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
sys.path.insert(0, str(FOLDER))
import make  # noqa: E402

MORE = {
    "day.epw": ["bins --by shift --where wb<65,dp>=50", "hours --months 8", "hours --pressure-of-hour --of-day 22-2 --format csv",
                "bins --width 2 --format json --elevation 5278.87", "bins --width 0", "bins --where wb~65", "bins --where tb<65",
                "hours --months 13", "hours --of-day 8", "hours --limits 60,80,0,0.010", "bins --columns db=OAT", "hours --base x",
                "chart", "chart -o x.txt", "chart --where wb<65 -o x.svg", "bins --counts", "sheet --by month -o x.svg"],
    "tabs.csv": ["bins --columns db=DB,rh=DP --units C", "bins --columns db=OAT", "bins --columns tb=DB", "bins --columns DB"],
    "missing.epw": ["hours --format csv"], "enthalpy.csv": ["hours --format csv"], "wetbulb.csv": ["hours --format csv"], "halves.epw": ["hours --format csv --of-day 0-2"],
    "step.epw": ["hours --format csv --of-day 0-9"], "above.csv": ["hours --format csv"], "back.csv": ["hours --format csv"],
    "changes.csv": ["hours --format csv"], "newest.csv": ["hours --format csv --of-day 9-10"],
}


def run(arguments, given=b""):
    done = subprocess.run([TOOL, "weather", *arguments], input=given, capture_output=True, timeout=300)
    return done.stdout.decode(), done.stderr.decode(), done.returncode


def printed(line):
    output, errors, code = run(line.split())
    output = re.sub(r"-?\d+\.\d{9,}(e[+-]\d+)?", lambda number: f"{float(number[0]):.9g}", output)
    return f"$ {line}\n{output}{errors}exit code {code}\n"


def recorded_cases():
    for name in make.CASES:
        action = "design" if name.startswith("design") or name.endswith(".ddy") else "bins --format csv"
        yield from (f"{name} {more}" for more in [action, *MORE.get(name, [])])
    yield from ("days.ddy bins", "nowhere.epw bins", "/dev/zero bins", ". bins", "day.epw thing")


def saturation(f):
    """Over water [Pa], Magnus; good to 0.3 % in weather."""
    c = (f - 32) / 1.8
    return 611.2 * math.exp(17.62 * c / (243.12 + c))


def check_year():
    """Hours of conditions counted from the file's own numbers, with room for other equations."""
    rows = make.year()
    with open("year.epw", "wb") as file:
        file.write(make.text(make.head() + rows))
    fields = [row.split(",") for row in rows]
    dry = [float(row[6]) * 1.8 + 32 for row in fields]
    vapor = [float(row[8]) / 100 * saturation(db) for row, db in zip(fields, dry)]
    hours = list(csv.DictReader(io.StringIO(run(["year.epw", "hours", "--format", "csv"])[0])))
    failed = [] if len(hours) == 8760 and hours[0]["time"] == "1991-01-01T00:00" else ["not every hour is there"]
    for condition, count in (("db>=80", lambda t: sum(db >= 80 for db in dry)),
                             ("dp>50", lambda t: sum(pv > saturation(50 + t) for pv in vapor)),
                             ("h<25", lambda t: sum(0.24 * db + 0.62198 * pv / (101325 - pv) * (1061 + 0.444 * db) < 25 - t
                                                    for db, pv in zip(dry, vapor)))):
        told = sum(float(row["hours"]) for row in csv.DictReader(
            io.StringIO(run(["year.epw", "bins", "--where", condition, "--format", "csv"])[0])))
        low, high = sorted((count(0.15), count(-0.15)))
        if not low <= told <= high:
            failed.append(f"{condition}: {told} hours, not {low} to {high}")
    bins = list(csv.DictReader(io.StringIO(run(["year.epw", "bins", "--format", "csv"])[0])))
    for one in bins:
        own = sum(float(one["from"]) <= round(db, 9) < float(one["to"]) for db in dry)
        if own != float(one["hours"]):
            failed.append(f"bin {one['from']}: {one['hours']} hours, not {own}")
    for years, leap, hours in ((1, True, "hours: 8784 h"), (10, False, "hours: 87600 h")):
        given = make.text(make.head() + make.year(years=years, leap=leap))
        if hours not in run(["-", "bins"], given)[1]:
            failed.append(f"not {hours}")
    return failed


def check_loads():
    """Sums of a year through a coil, from its own rows, and pictures."""
    steps = ["--step", "OA: air db=95,wb=75,scfm=1000", "--step", "CC: coil OA db=55,bf=0.1,idle=pass", "--step", "HC: heat CC db=55,idle=pass"]
    process = lambda *more: subprocess.run([TOOL, "process", *steps, "--hours", "year.epw", *more], capture_output=True, timeout=300)
    rows = list(csv.DictReader(io.StringIO(process("--format", "csv").stdout.decode())))
    sums = json.loads(process("--format", "json", "--jobs", "2").stdout)
    cooling = next(load for load in sums["loads"] if load["kind"] == "cooling")
    heating = next(load for load in sums["loads"] if load["kind"] == "heating")
    hours, rows = len(rows), [row for row in rows if row["status"] == "ok"]  # the coil cannot do some muggy hours
    loads = {name: [float(row[name + ".total"]) for row in rows] for name in ("CC", "HC")}
    failed = [] if hours == 8760 and sums["hours"] == len(rows) > 8000 and sums["failed"] == hours - len(rows) > 0 else ["rows of the loads"]
    if any(value != 0 for row, value in zip(rows, loads["CC"]) if float(row["OA.db"]) < 55):
        failed.append("a coil that idles has a load")
    for load, own in ((cooling, [-value for value in loads["CC"]]), (heating, loads["HC"])):
        if not math.isclose(load["btu"], sum(own), rel_tol=1e-6) or not math.isclose(load["peak"], max(own), rel_tol=1e-6):
            failed.append(f"{load['process']}: {load['btu']} Btu, peak {load['peak']}, not {sum(own)}, {max(own)}")
        if sum(value >= load["peak"] * 0.5 for value in own) != load["duration"][5][1]:
            failed.append(f"{load['process']}: load-duration")
    text = process("--plot", "loads.svg").stdout.decode()
    if "ton-h" not in text or f"not counted: {hours - len(rows)} rows" not in text or "CC cooling, peak" not in pathlib.Path("loads.svg").read_text():
        failed.append("no load-duration curves")
    for action, show in (("chart", "density"), ("sheet", "months")):
        error = run(["year.epw", action, "--show", show, "--elevation", "5279", "-o", "year.svg", "--design-points", "--counts"])[1]
        picture = pathlib.Path("year.svg").read_text()
        if "Testville: 8760 h" not in picture or (show == "months") != (">Jul<" in picture):
            failed.append(f"{action}: {error}")
    return failed


def check_long():
    """Many rows; bench_weather has their time."""
    rows = [f"2023-{m:02}-{d:02} {h:02}:{q:02},{60 + q / 4},{50 + h}" for m in range(1, 13) for d in range(1, 29)
            for h in range(24) for q in range(60)]
    given = make.text(["Time,Temp (F),RH"] + rows[:100000])
    errors = run(["-", "bins"], given)[1]
    return [] if "rows read: 100000," in errors else ["many rows: " + errors]


def main():
    record = FOLDER / "recorded.txt"
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        for name, content in make.CASES.items():
            pathlib.Path(name).write_bytes(content)
        now = "".join(map(printed, recorded_cases()))
        failed = check_year() + check_loads() + check_long()
        os.chdir("/")
    if "--record" in sys.argv:
        record.write_text(now, encoding="utf-8")
    for number, (old, new) in enumerate(zip(record.read_text(encoding="utf-8").splitlines(), now.splitlines()), 1):
        if old != new:
            failed.append(f"{record.name}, line {number}:\n  was {old}\n  is  {new}")
    if len(record.read_text(encoding="utf-8").splitlines()) != len(now.splitlines()):
        failed.append(f"{record.name} has another number of lines")
    print(*failed, sep="\n")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
