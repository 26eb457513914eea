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
    startup.startup, startup.pressurebyelevation, startup.pressurerefused, startup.smallscreen, startup.lastlog,
    startup.helpmanual, chart.standardchart, chart.blankchart, chart.limits, chart.lines, chart.charttypebeside,
    points.liverow, points.locatesavemark, points.nestedpair, points.pointsrefused, points.markrefused,
    mixing.mixing, mixing.mixingrefused, files.viewandcopylog, files.logfails, files.savepicture, files.exports,
    files.printing, dialogs.closing, startup.exits,
]


def run(scenario, suffix=""):
    """True if the scenario passed."""
    name = scenario.__name__ + suffix
    session = Session(options.program, os.path.join(os.environ["HOME"], name), options.screen, options.scale)
    began = time.monotonic()
    try:
        scenario(session)
        if not session.running():
            equal(session.process.returncode, 0, "exit code")
        equal(session.complaints(), "", "standard error")
        print(f"ok    {name} ({time.monotonic() - began:.1f} s)", flush=True)
        return True
    except Exception as failure:  # whatever it is, the other scenarios still run
        picture = os.path.join(options.output, name + ".png")
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
    chosen = [scenario for scenario in SCENARIOS if not options.only or scenario.__name__ in options.only]
    if not chosen:
        sys.exit("no scenario of that name; there are: " + ", ".join(scenario.__name__ for scenario in SCENARIOS))
    # A desktop on a loaded machine can lose a key: a failure counts if it comes twice. The first one stays in the output.
    passed = sum([run(scenario) or run(scenario, "-again") for scenario in chosen])
    print(f"{passed} of {len(chosen)} scenarios passed in {time.monotonic() - began:.0f} s")
    sys.exit(0 if passed == len(chosen) else 1)


main()
