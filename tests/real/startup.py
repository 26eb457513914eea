"""Start-up, the pressure window and the ways out of the program."""

import os

from driver import BOX, State, equal, expect, key, wait
from session import CHARTTYPE, MAIN, MIXING, PRESSURE

SURE = ("If you change the chart atmos pressure your chart,if any, will be cleared and you need to redraw the chart. "
        "Are You Sure ?")
OUTOFRANGE = "Atmospheric pressure input out of range, change value"
SMALLSCREEN = ("You must set screen size to 1024x768 or higher if your monitor size is less than 15 inch. Do you want to "
               "exit the program and reset your screen reolution now ?")
NOLOG = "The data of this session cannot be kept: the log file cannot be written. Everything else works as usual."


def startup(session):
    """The pressure window comes first, in front of a main window that takes no input."""
    session.launch()
    pressure = session.window(PRESSURE)
    equal(pressure.readout("Pound/sq inch"), "14.695949526166", "default pressure in pounds")
    expect(not pressure.need(BOX, "Input value").has(State.ENABLED), "the default can be typed over")
    equal(session.logbytes(), b"\r\n", "a new log")
    pressure.click("Return to chart")
    pressure.gone()
    main = session.backonchart()
    equal(main.title, MAIN, "title of the main window")
    expect(not main.enabled("Save data in file"), "there is something to save at the start")
    equal(session.texts(), ["Atmos. pr= 29.92126 In Hg"], "texts on the chart at the start")


def pressurebyelevation(session):
    """The read-outs follow each key; the site stands on the chart and in every report."""
    session.launch()
    pressure = enterpressure(session, "Elevation in feet", "5000")
    for caption, text in (("Inches of Hg", "24.8961078291965"), ("Pound/sq inch", "12.227825434352"),
                          ("Elevation in feet", "5000")):
        wait(lambda: pressure.readout(caption) == text, f"{text} beside {caption}")
    pressure.click("Set/Change chart atmos. pressure")
    session.answer(SURE, "alt+n", "DELETE")
    expect(pressure.title in session.titles(), "No on the question closed the pressure window")
    pressure.click("Set/Change chart atmos. pressure")
    session.answer(SURE, "alt+y", "DELETE")
    pressure.gone()
    session.backonchart()
    equal(session.texts(), ["Site elevation=5000 ft"], "texts on the chart after a new pressure")
    session.draw()
    session.expecttexts("Site elevation=5000 ft", "WB= 60")
    session.enter("75", "62.5")
    report = session.opened("Locate point", "Locate point")
    equal(report.readout("Site elevation (ft)"), "5000", "the elevation in the report")


def enterpressure(session, unit, value):
    pressure = session.window(PRESSURE)
    pressure.choose("Choose unit", unit)
    pressure.typein("Input value", value)
    return pressure


def pressurerefused(session):
    """A value out of range is refused and the window stays."""
    session.begin()
    session.opened("Set/reset atmos pressure", PRESSURE)
    for unit, value in (("Inches of Hg", "5.905"), ("Pounds/sq inch", "72.51"), ("Elevation in feet", "38651")):
        pressure = enterpressure(session, unit, value)
        key("Return")
        session.answer(SURE, "alt+y", "DELETE")
        session.answer(OUTOFRANGE)
        expect(pressure.title in session.titles(), f"{value} in {unit} closed the pressure window")


def smallscreen(session):
    """On a screen below the limit a question comes first, at the start and at each mixing problem."""
    wholescreen, session.scale = session.scale, session.screenwidth / 1000
    session.launch()
    session.answer(SMALLSCREEN, "alt+y", "DELETE")
    equal(session.waitended(), 0, "exit code after Yes at the start")
    expect(not os.path.exists(session.log), "a log was made although the user left")

    session.launch()
    session.answer(SMALLSCREEN, "alt+n", "DELETE")
    session.escape(session.window(PRESSURE))
    session.main().click("Mixing problem")
    session.answer(SMALLSCREEN, "alt+n", "DELETE")
    session.escape(session.window(MIXING))
    session.main().click("Mixing problem")
    session.answer(SMALLSCREEN, "alt+y", "DELETE")
    equal(session.waitended(), 0, "exit code after Yes at the mixing problem")
    expect(os.path.exists(session.log), "the log went although nobody pressed Exit")
    session.scale = wholescreen


def lastlog(session):
    """What a run left behind that did not end by Exit is gone in the next one; a log that cannot be made is told."""
    session.begin()
    session.kill()
    with open(session.log, "ab") as log:
        log.write(b"old\r\n")
    session.begin()
    equal(session.logbytes(), b"\r\n", "the log of the next run")
    session.kill()
    os.unlink(session.log)
    os.mkdir(session.log)
    session.launch()
    session.answer(NOLOG)
    session.window(PRESSURE)


def exits(session):
    """Each way out ends the program with all its windows, and its log with it."""
    def besidecharttype(main):
        session.opened("Draw chart", CHARTTYPE)
        main.click("Exit")

    for leave in (lambda main: main.click("Exit"), lambda main: session.menu("Exit", "x"),
                  lambda main: main.closebymanager(), besidecharttype):
        main = session.begin()
        expect(os.path.exists(session.log), "there is no log")
        leave(main)
        equal(session.waitended(), 0, "exit code")
        expect(not os.path.exists(session.log), "the log is still there after the end")


def helpmanual(session):
    """Help opens the compiled help file if it lies beside the program, else the manual."""
    opened = os.path.join(session.home, "opened.txt")
    opener = os.path.join(session.binaries, "xdg-open")
    with open(opener, "w", encoding="utf-8") as script:
        script.write(f'#!/bin/sh\necho "$1" >"{opened}"\n')
    os.chmod(opener, 0o755)
    manual = os.path.join(os.path.dirname(session.binaries), "share/doc/moistair/manual/index.html")
    os.makedirs(os.path.dirname(manual))
    main = session.begin()
    for path in (manual, os.path.join(session.binaries, "Psychrometric chart-English Units.chm")):
        open(path, "wb").close()
        main.click("Help")
        wanted = os.path.basename(path).replace(" ", "%20")
        wait(lambda: os.path.exists(opened) and wanted in open(opened, encoding="utf-8").read().replace(" ", "%20"),
             f"{path} to be opened")
        session.backonchart()
