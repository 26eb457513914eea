#!/usr/bin/env python3
"""A year of hours as a weather file has them, and the check that a batch has every row right, marked or refused.

usage: year.py MOISTAIR-CLI
"""

import csv
import io
import math
import subprocess
import sys

COLD = 79  # rows below 0 deg F
VISIBLE = 1  # percent: a relative humidity that is missed by less cannot be seen on a chart


def year():
    """8760 rows: 79 below 0 deg F, some at exactly 1 and 33 deg F, where the searches have their gaps."""
    waves = [48 - 38 * math.cos(2 * math.pi * hour / 8760) - 9 * math.cos(2 * math.pi * hour / 24) +
             7 * math.sin(hour * 0.013) for hour in range(8760)]
    ranked = sorted(waves)
    shift = (ranked[COLD - 1] + ranked[COLD]) / 2
    table = io.StringIO()
    rows = csv.writer(table, lineterminator="\n")
    rows.writerow(["Date", "HH:MM", "Datasource", "db", "rh", "psi"])
    for hour, wave in enumerate(waves):
        drybulb = wave - shift
        drybulb = math.floor(drybulb * 10) / 10
        if drybulb > 0 and hour % 30 == 0:
            drybulb = (1, 1.04, 33)[hour // 30 % 3]
        heat = max(0, drybulb - 60)
        humidity = max(5, min(100, round(70 - heat + 30 * math.sin(hour * 0.37) + 15 * math.cos(hour * 0.011))))
        day = hour // 24
        rows.writerow([f"{1 + day % 28}/{1 + day // 31}", f"{hour % 24 + 1}:00", "?9?9", f"{drybulb:g}", humidity,
                       f"{14.2 + 0.3 * math.sin(hour * 0.002):.3f}"])
    return table.getvalue()


def batch(tool, table, *options):
    done = subprocess.run([tool, "batch", *options], input=table.encode(), stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    return done.returncode, done.stderr.decode(), list(csv.DictReader(io.StringIO(done.stdout.decode())))


def missed(tool, rows):
    """By how much the relative humidity of each state's two bulbs is another than the one given."""
    table = "db,wb,psi\n" + "".join(f"{row['out_db']},{row['out_wb']},{row['psi']}\n" for row in rows)
    off = []
    for row, state in zip(rows, batch(tool, table)[2], strict=True):
        found = 100 if row["out_db"] == row["out_wb"] else float(state["out_rh"] or math.inf)
        off.append(abs(found - float(row["rh"])))
    return off


def check(tool):
    """What is wrong, empty if nothing is; and the counts of each status."""
    table = year()
    code, said, rows = batch(tool, table)
    by = {status: [row for row in rows if row["status"] == status] for status in ("ok", "missed")}
    refused = [row for row in rows if row["status"] not in by]
    counts = {"rows": len(rows), **{status: len(of) for status, of in by.items()}, "refused": len(refused)}
    cold = [row for row in rows if float(row["db"]) < 0]
    faults = [
        ("as many rows as hours", len(rows) == 8760 and len(cold) == COLD),
        ("some at 1 and at 33", all(any(row["db"] == at for row in rows) for at in ("1", "33"))),
        ("rows that are ok have their humidity", max(missed(tool, by["ok"])) < VISIBLE),
        ("rows that are missed have not", len(by["missed"]) > 0 and min(missed(tool, by["missed"])) >= VISIBLE),
        ("what is refused has no state and a reason", all(not row["out_db"] and row["status"] for row in refused)),
        ("all below 0 is refused", all(row in refused for row in cold)),
        ("both are counted", code == 1 and f"{len(refused)} of 8760 rows failed" in said and
         f"{len(by['missed'])} of 8760 rows have the status \"missed\"" in said),
    ]
    code, said, exact = batch(tool, table, "--exact", "--strict", "--full")
    states = [row for row in exact if row["status"] in ("ok", "nearest")]
    counts["exact"] = len(states)
    faults += [
        ("exact rows have their humidity", max(missed(tool, states)) < 1e-6),
        ("more rows have a state, none is missed", len(states) > len(by["ok"]) and
         not any(row["status"] == "missed" for row in exact)),
    ]
    return [name for name, right in faults if not right], counts


if __name__ == "__main__":
    wrong, numbers = check(sys.argv[1])
    print(numbers, *wrong, sep="\n")
    sys.exit(1 if wrong else 0)
