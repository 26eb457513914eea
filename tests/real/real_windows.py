#!/usr/bin/python3
"""End-to-end tests of the built program in real windows: an X server, a window manager, keys and pointer.

    real_windows.py PROGRAM OUTPUT [--screen 1024x768] [--scale 1] [--only NAME ...]

Each journey starts the program anew in a folder of its own, so each stands alone; a failure names its journey and
leaves a picture of the screen in OUTPUT. What the program writes to its standard error is a failure too.
"""

import argparse
import os
import shutil
import sys
import time

sys.dont_write_bytecode = True  # the source tree stays as it is

import desktop  # noqa: E402

LIMIT = 280  # s, for all journeys


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("program")
    parser.add_argument("output", help="folder for pictures, those of failures too")
    parser.add_argument("--screen", default=os.environ.get("MOISTAIR_SCREEN", "1024x768"))
    parser.add_argument("--scale", type=float, default=float(os.environ.get("MOISTAIR_SCALE", "1")))
    parser.add_argument("--only", nargs="+", metavar="NAME", help="run these journeys alone")
    return parser.parse_args()


options = arguments()
desktop.enter(options.screen, LIMIT)

from driver import equal, screenshot, startmanager  # noqa: E402
from journeys import ALL  # noqa: E402
from session import Session  # noqa: E402


def run(journey, suffix=""):
    """True if the journey passed."""
    name = journey.__name__ + suffix
    session = Session(options.program, os.path.join(os.environ["HOME"], name), options.screen, options.scale)
    session.pictures = options.output
    began = time.monotonic()
    try:
        journey(session)
        if not session.running():
            equal(session.process.returncode, 0, "exit code")
        equal(session.complaints(), "", "standard error")
        print(f"ok    {name} ({time.monotonic() - began:.1f} s)", flush=True)
        return True
    except Exception as failure:  # whatever it is, the other journeys still run
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
    chosen = [journey for journey in ALL if not options.only or journey.__name__ in options.only]
    if not chosen:
        sys.exit("no journey of that name; there are: " + ", ".join(journey.__name__ for journey in ALL))
    # A desktop on a loaded machine can lose a key: a failure counts if it comes twice. The first one stays in the output.
    passed = sum([run(journey) or run(journey, "-again") for journey in chosen])
    print(f"{passed} of {len(chosen)} journeys passed in {time.monotonic() - began:.0f} s")
    sys.exit(0 if passed == len(chosen) else 1)


main()
