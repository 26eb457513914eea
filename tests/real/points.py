"""Points: the live row, locating, saving, marking, and every refusal."""

from chart import DRAWFIRST, NOLINE
from driver import equal, expect, wait
from session import FIRSTVALUE, RED, REPORT, SECONDVALUE, logtext

NOPOINT = "The point as per input parameters are either out of chart limits or the such point is not feasible"

#: Dry bulb 75 and wet bulb 62.5 at 29.92126 in Hg
STATE = [
    ("DB=", "Dry bulb temp (Deg F)", "75.0000000"),
    ("WB=", "Wet bulb temp (Deg F)", "62.5000000"),
    ("RH(%)=", "Relative humidity (%)", "50.3032182"),
    ("Enthalpy=", "Specific enthalpy (btu/lb)", "28.1695563"),
    ("Sp vol=", "Specific volume (cuf/lb)", "13.6751968"),
    ("H.ratio=", "Humidity ratio (lb/lb of air)", ".0092932"),
    ("DP=", "Dew point (Deg F)", "55.2457239"),
    ("V. pr=", "Vapor pressure (In Hg)", ".4404820"),
]
VALUES = [value for _, _, value in STATE]


def pointrecord(identification):
    return ["-" * 25, ("Point Id", identification), ("Atmos. pr (in Hg)", "29.92126"),
            *[(caption, value) for _, caption, value in STATE], "-" * 28]


def liverow(session):
    """The whole state follows each key and each choice, with no chart drawn."""
    main = session.begin()
    session.enter("75", "62.5")
    session.waitreadouts(VALUES)
    main.typein(SECONDVALUE, "")
    session.waitreadouts([""] * 7 + [".4404820"])
    main.choose("Second property", "Rel humidity, percent")
    main.typein(SECONDVALUE, "50.3032182")
    wait(lambda: main.readout("WB=").startswith("62.5"), "the wet bulb of 75 degrees and 50.3 percent")


def locatesavemark(session):
    """The road of one point: typed, located, saved, marked."""
    main = session.begin()
    session.draw()
    main.typein("Point", "A")
    session.enter("75", "62.5")
    before = session.shown()
    report = session.opened("Locate point", REPORT)
    equal(report.readout("Point Id"), "A", "identification in the report")
    equal(report.readout("Atmos. pr (in Hg)"), "29.92126", "pressure in the report")
    for _, caption, value in STATE:
        equal(report.readout(caption), value, caption)
    report.click("Save data")
    wait(lambda: session.logbytes() == logtext("", *pointrecord("A")), lambda: f"the record, have {session.logbytes()}")
    report.click("Locate point on the chart")
    report.gone()
    session.backonchart()
    session.waitmark(75, 0.0092932, "A")
    expect(session.shown().changed(before)[RED] > 15, "the mark is no dot")
    session.expecttexts("A")
    session.waitreadouts(VALUES)
    expect(main.enabled("Save data in file"), "the data saved cannot be saved in a file")


def nestedpair(session):
    """Relative humidity with enthalpy: neither fixes a temperature, so both must be searched for."""
    main = session.begin()
    session.draw()
    session.enter("50.3032182", "28.1695563", "Rel humidity, percent", "Specific enthalpy, btu/lb")
    wait(lambda: main.readout("DB=").startswith("75.00000"), "a dry bulb of 75")
    shown = session.readouts()
    expect(shown[1].startswith("62.50000"), f"the wet bulb is {shown[1]}")
    equal(shown[2:4], ["50.3032182", "28.1695563"], "the values given")
    report = session.opened("Locate point", REPORT)
    equal(report.readout("Dry bulb temp (Deg F)"), shown[0], "dry bulb in the report")
    report.click("Exit and return to chart")
    report.gone()
    session.backonchart()


def pointsrefused(session):
    """Each refusal has its message, in the order of the tests, and leaves what was typed."""
    main = session.begin()
    main.choose("Second property", "Dry bulb temp, Deg F")
    session.told("Locate point", "Two parameters must be diffrent")
    main.choose("First property", "Humidity ratio, decimal")
    main.choose("Second property", "Dew point, Deg F")
    session.told("Locate point", "combination of Humidity ration and dew point not feasible", "Escape")
    main.choose("First property", "Dry bulb temp, Deg F")
    session.told("Locate point", "None of the two data input boxes can not be blank for locating point")
    session.enter("75", "50")
    session.told("Locate point", DRAWFIRST, "Escape")
    main.typein(FIRSTVALUE, "")
    main.choose("First property", "Rel humidity, percent")
    main.choose("Second property", "Specific enthalpy, btu/lb")
    main.typein(SECONDVALUE, "")
    main.typein(FIRSTVALUE, "50")
    main.typein(SECONDVALUE, "2")
    session.answer(NOLINE)  # while the user types, for lack of a chart
    session.draw(blank=True)
    session.enter("75", "80", "Dry bulb temp, Deg F", "Dew point, Deg F")
    session.told("Locate point", NOPOINT)


def markrefused(session):
    """A point beyond the chart's limits can be located but not marked."""
    main = session.begin()
    main.choose("L. DBT(F)", "80")
    session.draw(blank=True)
    session.enter("75", "62.5")
    before = session.shown()
    report = session.opened("Locate point", REPORT)
    report.click("Locate point on the chart")
    session.answer("The point as per input parameters is out of chart limits")
    report.gone()
    session.backonchart()
    session.waitreadouts([""] * 7 + [".4404820"])
    equal(session.shown().firstdifference(before), None, "a change of the chart")
