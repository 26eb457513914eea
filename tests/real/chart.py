"""The chart: its two types, limits that are refused, lines of one's own, clearing."""

from driver import BOX, equal, expect, key, wait
from session import (BLACK, BLUE, BROWN, CHARTTYPE, FIRSTVALUE, GREEN, GREY, GRID, MAGENTA, MIXING, WHITE)

STANDS = ("Do one of the followings to draw new chart - 1) Change chart ranges 2) Reset atmos. pressure 3) Clear graph ")
DRAWFIRST = "First draw axis as per latest chart limits"
NOLINE = "The line is either out of chart limits or is not feasible"

LINES = [
    ("Rel. Humidity line", "Rel Hum, %", "35", "Rh= 35", GREEN),
    ("Const WB line", "WBT, Deg F", "65.50", "WB= 65.5", BROWN),
    ("Const Enthal line", "Enthal, Btu/lb", "28", "h= 28", GREY),
    ("Const sp vol line", "Sp vol, cuf/lb", "13.75", "v= 13.75", MAGENTA),
]


def standardchart(session):
    """All families stand on it, in their colours and where the limits put them."""
    session.begin()
    empty = session.shown().colours()
    expect(set(empty) - {WHITE, BLACK} == set() or empty[WHITE] > 100 * sum(empty.values()) / 101,
           "something is drawn at the start")
    session.draw()
    chart = session.shown()
    colours = chart.colours()
    for colour in (GREEN, BROWN, MAGENTA, GRID, BLUE, BLACK):
        expect(colours[colour] > 500, f"only {colours[colour]} pixels of {colour}")
    expect(colours[GREY] < 100, "there are enthalpy lines, which a standard chart has not")
    for db, hr, colour, what in ((80, 0.0130, BLUE, "the major line of 80 degrees"),
                                 (83.5, 0.005, BLUE, "the major line of 0.005")):
        x, y = session.spot(db, hr)
        near = [chart.pixel(x + dx, y + dy) for dx in (-1, 0, 1) for dy in (-1, 0, 1)]
        expect(colour in near, f"{what} is not at {x}, {y}")
    session.expecttexts("Atmos. pr=29.92126 In Hg", "Dry Bulb temp(Deg F)", "1.3768", ".025", "WB= 80", "v= 13.5",
                        "Rh= 100", "Rh= 10")


def blankchart(session):
    """Only the saturation line, and no second chart on the same limits until the first is cleared."""
    main = session.begin()
    session.draw(blank=True)
    colours = session.shown().colours()
    expect(colours[GREEN] > 300, "no saturation line")
    equal(colours[MAGENTA] + colours[BROWN], 0, "pixels of families that a blank chart has not")
    main.click("Draw chart")
    session.answer(STANDS)
    session.backonchart()
    main.typein(FIRSTVALUE, "75")
    main.click("Clear chart")
    session.backonchart()
    wait(lambda: set(session.shown().colours()) == {WHITE}, "the chart to be cleared")
    main.need(BOX, FIRSTVALUE).waittext("")
    session.draw()
    expect(session.shown().colours()[MAGENTA] > 300, "no standard chart after clearing")


def limits(session):
    """Each fault of the limits has its message; OK and Cancel do the same, which is nothing."""
    lists = ["L. DBT(F)", "H. DBT(F)", "L. H ratio", "H. H ratio"]
    usual = ["0", "120", "0", "0.030"]
    choose = "Choose {} for chart only from the drop down menu"
    greater = "Higher limit of {0} must be greater than lower limit of {0}"
    faults = [
        (["15", "120", "0", "0.030"], choose.format("Lower Dry bulb temperature"), "Return"),
        (["0", "125", "0", "0.030"], choose.format("Higher Dry bulb temperature"), "Escape"),
        (["0", "120", "0.005", "0.030"], choose.format("Lower humidity ratio"), "Return"),
        (["0", "120", "0", "0.04"], choose.format("Higher humidity ratio"), "Escape"),
        (["50", "50", "0", "0.030"], greater.format("dry bulb temperature"), "Return"),
        (["0", "120", "0.030", "0.030"], greater.format("humidity ratio"), "Escape"),
    ]
    main = session.begin()
    shown = usual
    for texts, message, answer in faults:
        for name, old, new in zip(lists, shown, texts):
            if new != old:
                main.typein(name, new)
        shown = texts
        main.click("Draw chart")
        session.answer(message, answer)
        session.backonchart()
    for name, text in zip(lists, usual):
        main.choose(name, text)
    session.draw(blank=True)


def lines(session):
    """Each of the four buttons draws its line, in its colour and with its label."""
    main = session.begin()
    session.draw(blank=True)
    before = session.shown()
    for button, box, value, label, colour in LINES:
        main.typein(box, value)
        main.click(button)
        session.backonchart()
        after = wait(lambda: grown(session, before, colour), f"the line {label}")
        before = after
    session.expecttexts(*[label for _, _, _, label, _ in LINES])


def grown(session, before, colour):
    after = session.shown()
    return after if after.changed(before)[colour] > 100 else None


def linesrefused(session):
    """Without a chart on these limits there is no line, nor one with a value that the chart does not reach."""
    main = session.begin()
    for button, _, _, _, _ in LINES:
        main.click(button)
        session.answer(DRAWFIRST, "Escape")
        session.backonchart()
    session.draw(blank=True)
    for (button, box, *_), value in zip(LINES, ("101", "200", "-1e9", "79")):
        main.typein(box, value)
        main.click(button)
        session.answer(NOLINE)
        session.backonchart()
    main.choose("H. DBT(F)", "100")
    main.click(LINES[0][0])
    session.answer(DRAWFIRST)
    session.backonchart()


def charttypebeside(session):
    """The chart type window leaves all others usable and is not buried by them; there is never a second one."""
    main = session.begin()
    chosen = session.opened("Draw chart", CHARTTYPE)
    main.click("Draw chart")
    session.window(CHARTTYPE)
    equal(session.titles().count(CHARTTYPE), 1, "chart type windows")
    main.typein(FIRSTVALUE, "75")
    mixing = session.opened("Mixing problem", MIXING)
    chosen.click("Draw chart")
    chosen.gone()
    wait(lambda: MIXING in session.titles(), "the mixing window to stay")
    session.window(MIXING)
    key("Escape")
    mixing.gone()
    session.backonchart()
    session.expecttexts("WB= 80")
