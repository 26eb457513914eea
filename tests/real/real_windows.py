#!/usr/bin/python3
"""End-to-end tests of the built program in real windows: an X server, a window manager, keys and pointer.

    real_windows.py PROGRAM OUTPUT [--screen 1024x768] [--scale 1] [--only NAME ...]

Each scenario starts the program anew in a folder of its own, so each stands alone; a failure names its scenario and
leaves a picture of the screen in OUTPUT. What the program writes to its standard error is a failure too.
"""

import argparse
import os
import shutil
import sys
import time

sys.dont_write_bytecode = True  # the source tree stays as it is

import desktop  # noqa: E402

LIMIT = 280  # s, for all scenarios


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("program")
    parser.add_argument("output", help="folder for pictures of failures")
    parser.add_argument("--screen", default=os.environ.get("MOISTAIR_SCREEN", "1024x768"))
    parser.add_argument("--scale", type=float, default=float(os.environ.get("MOISTAIR_SCALE", "1")))
    parser.add_argument("--only", nargs="+", metavar="NAME", help="run these scenarios alone")
    return parser.parse_args()


options = arguments()
desktop.enter(options.screen, LIMIT)

import chart  # noqa: E402
import dialogs  # noqa: E402
import files  # noqa: E402
import mixing  # noqa: E402
import points  # noqa: E402
import startup  # noqa: E402
from driver import equal, screenshot, startmanager  # noqa: E402
from session import Session  # noqa: E402

SCENARIOS = [
    ("start-up", startup.startup),
    ("pressure by elevation", startup.pressurebyelevation),
    ("pressure refused", startup.pressurerefused),
    ("small screen", startup.smallscreen),
    ("log of the last run", startup.lastlog),
    ("help", startup.helpmanual),
    ("standard chart", chart.standardchart),
    ("blank chart", chart.blankchart),
    ("limits", chart.limits),
    ("lines", chart.lines),
    ("lines refused", chart.linesrefused),
    ("chart type beside", chart.charttypebeside),
    ("live row", points.liverow),
    ("locate, save, mark", points.locatesavemark),
    ("nested pair", points.nestedpair),
    ("points refused", points.pointsrefused),
    ("finder refused", points.finderrefused),
    ("mark refused", points.markrefused),
    ("mixing", mixing.mixing),
    ("mixing refused", mixing.mixingrefused),
    ("view and copy the log", files.viewandcopylog),
    ("log fails", files.logfails),
    ("save picture", files.savepicture),
    ("exports", files.exports),
    ("printing", files.printing),
    ("closing dialogs", dialogs.closing),
    ("closing at the start", dialogs.closingatstart),
    ("blocked main window", dialogs.blocked),
    ("exit by button", startup.exitbutton),
    ("exit by menu", startup.exitmenu),
    ("exit by the window manager", startup.exitmanager),
    ("exit beside the chart type", startup.exitbesidecharttype),
]


def run(name, scenario):
    """True if the scenario passed."""
    folder = os.path.join(os.environ["HOME"], name.replace(" ", "-"))
    session = Session(options.program, folder, options.screen, options.scale)
    began = time.monotonic()
    try:
        scenario(session)
        if not session.running():
            equal(session.process.returncode, 0, "exit code")
        equal(session.complaints(), "", "standard error")
        print(f"ok    {name} ({time.monotonic() - began:.1f} s)", flush=True)
        return True
    except Exception as failure:  # whatever it is, the other scenarios still run
        picture = os.path.join(options.output, name.replace(" ", "-") + ".png")
        screenshot(picture)
        place = failure.__traceback__
        while place.tb_next and "driver" not in place.tb_next.tb_frame.f_code.co_filename:
            place = place.tb_next
        where = f"{os.path.basename(place.tb_frame.f_code.co_filename)}:{place.tb_lineno}"
        print(f"FAIL  {name}: {failure or type(failure).__name__} ({where}; {picture})", flush=True)
        print(session.complaints(), end="", flush=True)
        return False
    finally:
        session.kill()


def main():
    shutil.rmtree(options.output, ignore_errors=True)
    os.makedirs(options.output)
    began = time.monotonic()
    startmanager()
    chosen = [row for row in SCENARIOS if not options.only or row[0] in options.only]
    if not chosen:
        sys.exit("no scenario of that name; there are: " + ", ".join(name for name, _ in SCENARIOS))
    failed = [name for name, scenario in chosen if not run(name, scenario)]
    print(f"{len(chosen) - len(failed)} of {len(chosen)} scenarios passed in {time.monotonic() - began:.0f} s")
    sys.exit(1 if failed else 0)


main()
