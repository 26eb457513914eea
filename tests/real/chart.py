"""The chart: its two types, limits that are refused, lines of one's own, clearing."""

import subprocess

from driver import BOX, BUTTON, equal, expect, wait
from session import (BLACK, BLUE, BROWN, CHARTTYPE, FIRSTVALUE, GREEN, GREY, GRID, MAGENTA, MIXING, WHITE)

STANDS = ("Do one of the followings to draw new chart - 1) Change chart ranges 2) Reset atmos. pressure 3) Clear graph ")
DRAWFIRST = "First draw axis as per latest chart limits"
NOLINE = "The line is either out of chart limits or is not feasible"

#: Button, box, a value, the label and the colour of its line, a value that the chart does not reach
LINES = [
    ("Rel. Humidity line", "Rel Hum, %", "35", "Rh= 35", GREEN, "101"),
    ("Const WB line", "WBT, Deg F", "65.50", "WB= 65.5", BROWN, "200"),
    ("Const Enthal line", "Enthal, Btu/lb", "28", "h= 28", GREY, "-1e9"),
    ("Const sp vol line", "Sp vol, cuf/lb", "13.75", "v= 13.75", MAGENTA, "79"),
]


def standardchart(session):
    """All families stand on it, in their colours and where the limits put them."""
    session.begin()
    session.draw()
    chart = session.shown()
    colours = chart.colours()
    for colour in (GREEN, BROWN, MAGENTA, GRID, BLUE, BLACK):
        expect(colours[colour] > 500, f"only {colours[colour]} pixels of {colour}")
    expect(colours[GREY] < 100, "there are enthalpy lines, which a standard chart has not")
    for db, hr, what in ((80, 0.0130, "the major line of 80 degrees"), (83.5, 0.005, "the major line of 0.005")):
        expect(BLUE in chart.near(*session.spot(db, hr)), f"{what} is not at {session.spot(db, hr)}")
    session.expecttexts("Atmos. pr=29.92126 In Hg", "Dry Bulb temp(Deg F)", "1.3768", ".025", "WB= 80", "v= 13.5",
                        "Rh= 100", "Rh= 10")


def blankchart(session):
    """Only the saturation line, and no second chart on the same limits until the first is cleared."""
    main = session.begin()
    session.draw(blank=True)
    colours = session.shown().colours()
    expect(colours[GREEN] > 300, "no saturation line")
    equal(colours[MAGENTA] + colours[BROWN], 0, "pixels of families that a blank chart has not")
    session.told("Draw chart", STANDS)
    main.typein(FIRSTVALUE, "75")
    main.click("Clear chart")
    session.backonchart()
    wait(lambda: set(session.shown().colours()) == {WHITE}, "the chart to be cleared")
    main.need(BOX, FIRSTVALUE).waittext("")
    session.draw()
    expect(session.shown().colours()[MAGENTA] > 300, "no standard chart after clearing")


def limits(session):
    """Each fault of the limits has its message; OK and Cancel do the same, which is nothing."""
    lists = [("L. DBT(F)", "0"), ("H. DBT(F)", "120"), ("L. H ratio", "0"), ("H. H ratio", "0.030")]
    choose = "Choose {} for chart only from the drop down menu"
    greater = "Higher limit of {0} must be greater than lower limit of {0}"
    faults = [
        ({"L. DBT(F)": "15"}, choose.format("Lower Dry bulb temperature"), "Return"),
        ({"H. DBT(F)": "125"}, choose.format("Higher Dry bulb temperature"), "Escape"),
        ({"L. H ratio": "0.005"}, choose.format("Lower humidity ratio"), "Return"),
        ({"H. H ratio": "0.04"}, choose.format("Higher humidity ratio"), "Escape"),
        ({"L. DBT(F)": "50", "H. DBT(F)": "50"}, greater.format("dry bulb temperature"), "Return"),
        ({"L. H ratio": "0.030"}, greater.format("humidity ratio"), "Escape"),
    ]
    main = session.begin()
    shown = dict(lists)
    for changed, message, answer in faults:
        wanted = {**dict(lists), **changed}
        for name, text in wanted.items():
            if shown[name] != text:
                main.typein(name, text)
        shown = wanted
        session.told("Draw chart", message, answer)
    for name, text in lists:
        main.choose(name, text)
    session.draw(blank=True)


def lines(session):
    """Each of the four buttons draws its line, in its colour and with its label, or tells why not."""
    main = session.begin()
    for button, *_ in LINES:
        session.told(button, DRAWFIRST, "Escape")
    session.draw(blank=True)
    for button, box, value, label, colour, beyond in LINES:
        main.typein(box, beyond)
        session.told(button, NOLINE)
        main.typein(box, value)
        before = session.shown()
        main.click(button)
        session.backonchart()
        wait(lambda: session.shown().changed(before)[colour] > 100, f"the line {label}")
    session.expecttexts(*[label for _, _, _, label, *_ in LINES])
    main.choose("H. DBT(F)", "100")
    session.told(LINES[0][0], DRAWFIRST)


def charttypebeside(session):
    """The chart type window leaves all others usable, is not buried by them and buries no message: never a second."""
    main = session.begin()
    chosen = session.opened("Draw chart", CHARTTYPE)
    main.click("Draw chart")
    session.window(CHARTTYPE)
    equal(session.titles().count(CHARTTYPE), 1, "chart type windows")

    def clickwhereboth(message):
        place = message.need(BUTTON, "OK").rect()
        subprocess.run(["wmctrl", "-F", "-r", CHARTTYPE, "-e", f"0,{place.x - 60},{place.y - 60},-1,-1"], check=True)
        wait(lambda: inside(place.middle, chosen.rect()), "the chart type window where the message is")
        message.click("OK")
    main.click(LINES[0][0])
    session.answer(DRAWFIRST, clickwhereboth)
    session.backonchart()

    main.typein(FIRSTVALUE, "75")
    mixing = session.opened("Mixing problem", MIXING)
    chosen.click("Draw chart")
    chosen.gone()
    wait(lambda: MIXING in session.titles(), "the mixing window to stay")
    session.window(MIXING)
    session.escape(mixing)
    session.backonchart()
    session.expecttexts("WB= 80")


def inside(spot, rect):
    return rect.x < spot[0] < rect.right and rect.y < spot[1] < rect.y + rect.height
