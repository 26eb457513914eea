"""The mixing problem: two streams, their mixture, the line on the chart and the block in the log."""

import os

from driver import BOX, State, equal, expect, wait
from session import BLACK, MIXING, logtext

OUTSIDE = "The {} point as per input parameters is out of chart limits"

#: 75 and 62.5 with 1000 acfm, 95 and 75 with 500 acfm, at 29.92126 in Hg
MIXTURE = [
    ("Dry bulb temp (Deg F)", "75.0000000", "95.0000000", "81.5312397"),
    ("Wet bulb temp (Deg F)", "62.5000000", "75.0000000", "66.9312397"),
    ("Relative humidity (%)", "50.3032182", "40.3104311", "47.3819943"),
    ("Specific enthalpy (btu/lb)", "28.1695563", "38.5146205", "31.5274150"),
    ("Specific volume (cuf/lb)", "13.6751968", "14.2978304", "13.8770324"),
    ("Humidity ratio (lb/lb of air)", ".0092932", ".0142448", ".0109004"),
    ("Dew point (Deg F)", "55.2457239", "67.1005926", "59.5601671"),
    ("Vapor pressure (In Hg)", ".4404820", ".6699259", ".5145064"),
]


def mixingblock():
    lines = ["-" * 34]
    for column, (head, flow) in enumerate((("Stream 1", "1000"), ("Steram 2", "500"), ("Mixed stream", "1500"))):
        lines += [head, ("Air flow rate (acfm)", flow), ("Atmos. pr (in Hg)", "29.92126")]
        lines += [(row[0], row[1 + column]) for row in MIXTURE]
        lines += [""] if column < 2 else []
    return lines + ["-" * 29]


def enterstream(window, number, value1, value2, flow):
    name = f"Stream {number}, "
    window.typein(name + "value of the first property", value1)
    window.typein(name + "value of the second property", value2)
    window.typein(name + "air flow rate in actual cubic feet per minute", flow)


def mixing(session):
    """The whole mixture follows from the last key; saved and drawn as it is shown."""
    session.begin()
    session.draw()
    before = session.shown()
    window = session.opened("Mixing problem", MIXING)
    expect(not window.enabled("Save data"), "an empty problem can be saved")
    expect(window.need(BOX, "Stream 2, value of the second property").has(State.FOCUSED), "the focus is elsewhere")
    enterstream(window, 1, "75", "62.5", "1000")
    enterstream(window, 2, "95", "75", "500")
    wait(lambda: window.readouts(MIXTURE[0][0], 3) == list(MIXTURE[0][1:]), "the mixture")
    for caption, *values in MIXTURE:
        equal(window.readouts(caption, 3), values, caption)
    equal(window.readouts("Atmos. pr (in Hg)", 3), ["29.92126"] * 3, "pressures")
    equal(window.readout("Air flow rate (acfm)"), "1500", "flow of the mixture")
    window.click("Save data")
    wait(lambda: session.logbytes() == logtext("", *mixingblock()), lambda: f"the block, have {session.logbytes()}")
    window.click("Draw mixing line and points on the chart")
    window.gone()
    session.main()
    for db, hr, name in ((75, 0.0092932, "St1"), (81.5312397, 0.0109004, "Mix"), (95, 0.0142448, "St2")):
        session.waitmark(db, hr, name)
    expect(session.shown().changed(before)[BLACK] > 30, "no line between the marks")
    session.expecttexts("St1", "Mix", "St2")


def mixingrefused(session):
    """The first point that lies outside the limits is named, and the window stays as it is."""
    main = session.begin()
    main.choose("H. DBT(F)", "90")
    window = session.opened("Mixing problem", MIXING)
    for stream, refused in (((), "stream1"), ((1, "75", "62.5", "1000"), "mixed stream"),
                            ((2, "95", "75", "500"), "stream2")):
        if stream:
            enterstream(window, *stream)
        window.click("Draw mixing line and points on the chart")
        session.answer(OUTSIDE.format(refused))
    equal(window.readout("Dew point (Deg F)"), "55.2457239", "a read-out after the messages")
    session.escape(window)
    session.backonchart()
    equal(os.path.getsize(session.log), 2, "bytes in the log of a problem that was not saved")
