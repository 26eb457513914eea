"""Journeys with the chart as an instrument: read by pointing, worked on by hand, and by keys alone."""

import json
import re
import subprocess

from driver import Role, equal, expect, key, wait, xdotool
from session import PRESSURE, REPORT

#: What a reading calls the properties of the tool, and its decimals
NAMES = {"DB": ("db", 2), "WB": ("wb", 2), "RH": ("rh", 2), "Enthalpy": ("h", 2), "Sp vol": ("v", 3), "H.ratio": ("w", 5),
         "DP": ("dp", 2), "V. pr": ("pv", 4)}

#: Twenty places with air at each of the pressures, from edge to edge of the chart
PLACES = [(db, round(db * db * part / 1e6, 5)) for db in (25, 45, 65, 85, 105) for part in (0.25, 0.7, 1.2, 1.9)]


def reading(session):
    """What who cannot see the chart is told of the place under the cross hair: names and numbers, empty for none."""
    node = session.graph().node
    node.clear_cache()
    return dict(re.findall(r"([A-Z][\w. ]*?) (-?[\d.]+)(?: [\w/%]+)*", node.get_description() or ""))


def pointat(session, db, hr):
    """The pointer at a place, and what is read there once it is."""
    area, (x, y) = session.grapharea(), session.spot(db, hr)
    xdotool("mousemove", area.x + x, area.y + y)

    def there():
        found = reading(session)
        near = found and abs(float(found["DB"]) - db) < 0.3 and abs(float(found["H.ratio"]) - hr) < 0.0001
        return found if near else None
    return wait(there, lambda: f"the reading at {db}, {hr}; have {reading(session)}")


def stateof(session, found, *options):
    """The same state by the headless tool."""
    command = [session.tool, "state", "db=" + found["DB"], "w=" + found["H.ratio"], "--format", "json", *options]
    return json.loads(subprocess.run(command, check=True, capture_output=True, text=True).stdout)


def setpressure(session, unit, value):
    session.main().click("Set/reset atmos pressure")
    window = session.window(PRESSURE)
    window.choose("Choose unit", unit)
    window.typein("Input value", value)
    key("Return")
    session.window("DELETE")
    key("alt+y")
    window.gone()
    session.backonchart()


def readings(session):
    """Twenty places at three pressures read what the headless tool works out for them."""
    session.begin()
    for unit, value, option in ((None, "29.92126", "--inhg"), ("Elevation in feet", "5000", "--elevation"),
                                ("Inches of Hg", "22.5", "--inhg")):
        if unit:
            setpressure(session, unit, value)
        session.draw(blank=True)
        for db, hr in PLACES:
            found = pointat(session, db, hr)
            state = stateof(session, found, option, value)
            for name, (kind, decimals) in NAMES.items():
                off = abs(float(found[name]) - float(state[kind]))
                expect(off <= 0.5001 * 10 ** -decimals, f"{name} at {found} and {value}: the tool has {state[kind]}")


def undone(session, name):
    """The name of the step that could be taken back."""
    key("alt+e")
    wait(lambda: session.main().look().find(Role.MENU_ITEM, "Undo " + name), f"{name!r} to be taken back")
    key("Escape", "Escape")


def byhand(session):
    """A click fills the boxes, a double click locates, a point is dragged and put back; then all of it by keys alone."""
    main = session.begin()
    session.draw()
    found = pointat(session, 75, 0.0093)
    xdotool("click", 1)
    wait(lambda: session.readouts()[0].startswith(found["DB"]), "the dry bulb in the live row")
    xdotool("click", "--repeat", 2, "--delay", 50, 1)
    report = session.window(REPORT)
    expect(report.readout("Wet bulb temp (Deg F)").startswith(found["WB"][:-1]), "the wet bulb of the report")
    report.click("Locate point on the chart")
    session.backonchart()
    pointat(session, 75, 0.0093)
    xdotool("mousedown", 1)
    for step in range(1, 6):
        pointat(session, 75 + 2 * step, 0.0093 + 0.0005 * step)
    xdotool("mouseup", 1)
    session.waitspot(85, 0.0118, "#FF0000")
    undone(session, "Move Point")
    key("ctrl+z")
    session.waitspot(float(found["DB"]), float(found["H.ratio"]), "#FF0000")

    xdotool("mousemove", 5, 5)
    wait(lambda: not reading(session), "the reading to go with the pointer")
    key("ctrl+d")
    session.answer("Do one of the followings to draw new chart - 1) Change chart ranges 2) Reset atmos. pressure 3) Clear "
                   "graph ")
    session.backonchart()
    key("Right")
    start = wait(lambda: reading(session), "the cross hair")
    key("Right", "Down", "shift+Left")
    wait(lambda: abs(float(reading(session)["DB"]) - float(start["DB"]) - 0.9) < 0.001, "the cross hair a step on")
    key("p")
    there = reading(session)
    kept = f"Read-out {there['DB']}, {there['H.ratio']}"
    undone(session, kept)
    key("Return")
    report = session.window(REPORT)
    expect(report.readout("Dry bulb temp (Deg F)").startswith(there["DB"]), "the place of the cross hair in the report")
    session.escape(report)
    session.backonchart()
    key("Delete")
    undone(session, "Delete " + kept)
    key("alt+l")  # the button, by its letter
    session.escape(session.window(REPORT))
    equal(main.enabled("Save data in file"), False, "nothing was saved on the way")
