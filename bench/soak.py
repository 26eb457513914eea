#!/usr/bin/python3
"""How the program lasts: the same work again and again in one process, with its memory written down.

    soak.py PROGRAM OUTPUT [--rounds 2000]

A round draws a chart, a line, a point from locating to its mark and a mixing problem, and clears it all. The memory
[KiB, resident] and the open files are printed every hundred rounds and kept in OUTPUT/soak.csv. It fails when the
memory at the end is more than a tenth above that after round 100, by when everything has been used once.
"""

import argparse
import os
import sys
import time

sys.dont_write_bytecode = True  # the source tree stays as it is
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../tests/real"))

import desktop  # noqa: E402

SCREEN = "1024x768"
SETTLED = 100  # rounds
GROWTH = 1.10
SECONDSAROUND = 10  # more than a round ever takes


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("program")
    parser.add_argument("output", help="folder for the figures, and for a picture of a failure")
    parser.add_argument("--rounds", type=int, default=2000)
    chosen = parser.parse_args()
    if chosen.rounds <= SETTLED:
        parser.error(f"it takes more than {SETTLED} rounds to compare with round {SETTLED}")
    return chosen


options = arguments()
desktop.enter(SCREEN, options.rounds * SECONDSAROUND)

from driver import BOX, screenshot, startmanager, wait, xdotool  # noqa: E402
from journeys import LINES, VALUES  # noqa: E402
from session import FIRSTVALUE, MIXING, REPORT, Session  # noqa: E402


def typekeys(text):
    """Into the box that has the focus; a tab goes on to the next."""
    xdotool("type", "--delay", 1, "--", text)


def work(session, number):
    """One round. All four lines have their turn."""
    main = session.main()
    session.draw()
    button, box, value, *_ = LINES[number % len(LINES)]
    main.need(BOX, box).click()
    typekeys(value)
    main.click(button)
    session.backonchart()

    main.need(BOX, FIRSTVALUE).click()
    typekeys("75\t62.5")
    wait(lambda: main.readout("V. pr=") == VALUES[-1] and main.readout("WB=") == VALUES[1], "the live row")
    report = session.opened("Locate point", REPORT)
    report.click("Locate point on the chart")
    report.gone()
    session.backonchart()

    mixing = session.opened("Mixing problem", MIXING)
    typekeys("75\t95\t62.5\t75\t500\t1000")  # in the tab order, which runs from the last box to the first
    wait(lambda: mixing.readouts("Vapor pressure (In Hg)", 3)[-1] == ".5145064", "the mixture")
    mixing.click("Draw mixing line and points on the chart")
    mixing.gone()

    session.main().click("Clear chart")
    main.need(BOX, FIRSTVALUE).waittext("")


def memory(process):
    """Resident memory [KiB]."""
    with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
        return next(int(line.split()[1]) for line in status if line.startswith("VmRSS:"))


def openfiles(process):
    return len(os.listdir(f"/proc/{process.pid}/fd"))


def soak(session, tell):
    """Memory after round 100 and at the end [KiB]."""
    session.begin()
    began = time.monotonic()
    settled = 0
    for number in range(1, options.rounds + 1):
        work(session, number)
        if number in (1, 10) or number % 100 == 0:
            tell(number, memory(session.process), openfiles(session.process), round(time.monotonic() - began))
        if number == SETTLED:
            settled = memory(session.process)
    return settled, memory(session.process)


def main():
    os.makedirs(options.output, exist_ok=True)
    startmanager()
    session = Session(options.program, os.path.join(os.environ["HOME"], "soak"), SCREEN, 1)
    try:
        with open(os.path.join(options.output, "soak.csv"), "w", encoding="utf-8") as table:
            def tell(*figures):
                for file in (sys.stdout, table):
                    print(*figures, sep=",", file=file, flush=True)
            tell("round", "memory KiB", "open files", "seconds")
            settled, last = soak(session, tell)
        session.main().click("Exit")
        session.waitended()
        print(f"after round {SETTLED}: {settled} KiB, after round {options.rounds}: {last} KiB, "
              f"{100 * (last / settled - 1):+.1f} %")
        print(session.complaints(), end="")
        sys.exit(1 if last > settled * GROWTH or session.complaints() else 0)
    except Exception:
        screenshot(os.path.join(options.output, "soak.png"))
        raise
    finally:
        session.kill()


main()
