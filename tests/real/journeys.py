"""What people do with the program, from start to end: seventeen journeys through real windows.

They look at what only a real window has: that windows come and go, take the keys or do not, and show what was drawn.
Digits, texts and the order of messages are tested without a window.
"""

import os
import re
import signal
import struct
import subprocess

from driver import BOX, BUTTON, LABEL, LIST, Role, colors, equal, expect, key, otherscreen, screenshot, wait, xdotool
from keeping import offers, recovery
from pointing import byhand, readings
from session import (BLACK, BLUE, BOXTITLE, BROWN, CHARTTYPE, FIRSTVALUE, GREEN, GREY, LOG, MAGENTA, MAIN, MIXING, PRESSURE,
                     RED, REPORT, SECONDVALUE, WHITE, logtext)

DRAWFIRST = "First draw axis as per latest chart limits"
SMALLSCREEN = ("You must set screen size to 1024x768 or higher if your monitor size is less than 15 inch. Do you want to "
               "exit the program and reset your screen reolution now ?")
SAVED = "You saved the files as  "
CLEARS = ("If you change the chart atmos pressure your chart,if any, will be cleared and you need to redraw the chart. "
          "Are You Sure ?")

FLOW = "air flow rate in actual cubic feet per minute"
#: Outlines of a box that is read as something else, and of one that is refused
NOTED, REFUSED = "#A05A00", "#BE1414"

#: Button, box, value, label and color of the lines that a user can add
LINES = [
    ("Rel. Humidity line", "Rel Hum, %", "35", "Rh= 35", GREEN),
    ("Const WB line", "WBT, Deg F", "65.50", "WB= 65.5", BROWN),
    ("Const Enthal line", "Enthal, Btu/lb", "28", "h= 28", GREY),
    ("Const sp vol line", "Sp vol, cuf/lb", "13.75", "v= 13.75", MAGENTA),
]

#: Dry bulb 75 and wet bulb 62.5 at 29.92126 in Hg
VALUES = ["75.0000000", "62.5000000", "50.3032182", "28.1695563", "13.6751968", ".0092932", "55.2457239", ".4404820"]
RECORD = ["-" * 25, ("Point Id", "A"), ("Atmos. pr (in Hg)", "29.92126"), *zip((
    "Dry bulb temp (Deg F)", "Wet bulb temp (Deg F)", "Relative humidity (%)", "Specific enthalpy (btu/lb)",
    "Specific volume (cuf/lb)", "Humidity ratio (lb/lb of air)", "Dew point (Deg F)", "Vapor pressure (In Hg)"), VALUES),
    "-" * 28]


def pressure(session):
    """From the first window to a chart of one's own site: what is out of range is refused, No changes nothing."""
    session.launch()
    window = session.window(PRESSURE)
    equal(session.logbytes(), b"\r\n", "a new log")
    for value, answers in (("38651", ("alt+y", "Atmospheric pressure input out of range, change value")),
                           ("5000", ("alt+n",)), ("5000", ("alt+y",))):
        window.choose("Choose unit", "Elevation in feet")
        window.typein("Input value", value)
        expect(window.title in session.titles(), "the pressure window went without a pressure")
        key("Return")
        session.answer(CLEARS, answers[0], "DELETE")
        for message in answers[1:]:
            session.answer(message)
    window.gone()
    main = session.backonchart()
    equal((main.title, main.enabled("Save data in file")), (MAIN, False), "the main window at the start")
    equal(session.texts(), ["Site elevation=5000 ft"], "texts on the chart after a new pressure")
    session.draw()
    session.expecttexts("Site elevation=5000 ft", "WB= 60", "1.1456")
    session.enter("75", "62.5")
    report = session.opened("Locate point", REPORT)
    equal(report.readout("Site elevation (ft)"), "5000", "the elevation in the report")


def point(session):
    """The road of one point: typed, refused for lack of a chart, located, saved, marked, viewed, copied, lost."""
    main = session.begin()
    session.enter("75", "62.5")
    session.waitreadouts(VALUES)
    session.told("Locate point", DRAWFIRST, "Escape")
    session.draw()
    main.typein("Point", "A")
    report = session.opened("Locate point", REPORT)
    equal(report.readout("Point Id"), "A", "identification in the report")
    report.click("Save data")
    wanted = logtext("", *RECORD)
    wait(lambda: session.logbytes() == wanted, lambda: f"the record, have {session.logbytes()}")
    report.click("Locate point on the chart")
    report.gone()
    session.backonchart()
    session.waitspot(75, 0.0092932, RED)
    session.expecttexts("A")
    session.waitreadouts(VALUES)

    window = session.opened("View saved data", LOG)
    equal(window.need(BOX, "Saved data").text(), wanted.decode("latin-1").replace("\r\n", "\n"), "the log shown")
    window.click("Return to chart")
    window.gone()
    copy = os.path.join(session.home, "copy.txt")
    savefile(session, "Save data in file", "Save Pont data in File", copy)
    equal(read(copy), wanted, "the copy")
    os.unlink(session.log)
    session.told("View saved data", "The saved data cannot be shown: the log file cannot be read.\nIt is gone.")


def chart(session):
    """A standard chart, a blank one with lines of one's own, and nothing at all after clearing."""
    main = session.begin()
    session.draw()
    seen = session.colors()
    for color in (GREEN, BROWN, MAGENTA, BLUE, BLACK):
        expect(seen[color] > 500, f"only {seen[color]} pixels of {color}")
    for db, hr in ((80, 0.0130), (83.5, 0.005)):
        session.waitspot(db, hr, BLUE)
    main.typein("L. DBT(F)", "15")
    session.told("Draw chart", "Choose Lower Dry bulb temperature for chart only from the drop down menu")
    main.choose("L. DBT(F)", "0")
    main.click("Clear chart")
    session.backonchart()
    wait(lambda: set(session.colors()) == {WHITE}, "the chart to be cleared")

    session.draw(blank=True)
    seen = session.colors()
    expect(seen[GREEN] > 300, "no saturation line")
    equal(seen[MAGENTA] + seen[BROWN], 0, "pixels of families that a blank chart has not")
    for button, box, value, label, color in LINES:
        main.typein(box, value)
        before = session.colors()[color]
        main.click(button)
        session.backonchart()
        wait(lambda: session.colors()[color] > before + 100, f"the line {label}")
    session.expecttexts(*[label for _, _, _, label, _ in LINES])
    main.typein(LINES[0][1], "101")
    session.told(LINES[0][0], "The line is either out of chart limits or is not feasible")


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
        wait(lambda: chosen.rect().holds(place.middle), "the chart type window where the message is")
        message.click("OK")
    main.click("Const WB line")
    session.answer(DRAWFIRST, clickwhereboth)
    session.backonchart()
    window = session.opened("Mixing problem", MIXING)
    window.need(BOX, "Stream 1, value of the first property").click()  # which brings up that window
    expect(b"ABOVE" not in subprocess.check_output(["xprop", "-name", CHARTTYPE, "_NET_WM_STATE"]), "above all programs")
    chosen.click("Draw chart")
    chosen.gone()
    wait(lambda: MIXING in session.titles(), "the mixing window to stay")
    session.window(MIXING)
    session.escape(window)
    session.backonchart()
    session.expecttexts("WB= 80")


def mixing(session):
    """A mixture follows from the last key, names the point that lies outside, and goes to the log and on the chart."""
    main = session.begin()
    session.draw()
    main.choose("H. DBT(F)", "90")
    before = session.colors()
    window = session.opened("Mixing problem", MIXING)
    expect(not window.enabled("Save data"), "an empty problem can be saved")
    for number, *values in ((1, "75", "62.5", "1000"), (2, "95", "75", "500")):
        for name, value in zip(("value of the first property", "value of the second property", FLOW), values):
            window.typein(f"Stream {number}, {name}", value)
    wait(lambda: window.readouts("Dew point (Deg F)", 3) == ["55.2457239", "67.1005926", "59.5601671"], "the mixture")
    window.click("Draw mixing line and points on the chart")
    session.answer("The stream2 point as per input parameters is out of chart limits")
    window.click("Save data")
    wait(lambda: session.logbytes().count(b"\r\n") == 1 + 37, lambda: f"the block, have {session.logbytes()}")
    window.typein("Stream 2, value of the first property", "85")
    window.click("Draw mixing line and points on the chart")
    window.gone()
    session.main()
    wait(lambda: (session.colors() - before)[RED] > 60, "three marks")
    expect((session.colors() - before)[BLACK] > 30, "no line between the marks")
    session.expecttexts("St1", "Mix", "St2")


def dialogs(session):
    """Every dialog is left by the window manager and by Esc; under it the main window takes no pointer, no key, no end."""
    session.launch()
    first = session.window(PRESSURE)
    first.closebymanager()
    first.gone()
    main = session.backonchart()
    session.draw(blank=True)
    session.enter("75", "62.5")
    for button, title in (("Set/reset atmos pressure", PRESSURE), ("Locate point", REPORT), ("View saved data", LOG),
                          ("Mixing problem", MIXING)):
        window = session.opened(button, title)
        window.closebymanager()
        window.gone()
        window = session.opened(button, title)
        main.need(BOX, "Point").click()
        session.window(title)  # it has the input again
        key("7", "Tab")
        main.closebymanager()
        main.click("Clear chart")
        session.window(title)
        expect(session.running(), "the main window could be closed under a dialog")
        session.escape(window)
        session.main()
        main.need(BOX, "Point").waittext("")
        main.need(BOX, FIRSTVALUE).waittext("75")
    main.choose("H. DBT(F)", "100")  # the chart that stands is refused
    for leave in (lambda window: window.closebymanager(), lambda window: key("Escape")):
        window = session.opened("Draw chart", CHARTTYPE)
        leave(window)
        window.gone()
        session.main()


def picture(session):
    """The picture saved is what the screen shows, pixel for pixel, under any name, and stays the chart's background."""
    main = session.begin()
    session.draw()
    path = os.path.join(session.home, "chart.picture")
    savefile(session, "Save chart", "Save File", path)
    equal(struct.unpack_from("<HI", read(path), 28), (24, 0), "bits of a pixel and compression")
    equal(difference(session.shown(), "bmp:" + path), "0", "pixels in which the picture differs from the screen")

    main.click("Save chart")
    dialog = session.window("Save File")
    equal(dialog.need(BOX, "File name:").text(), "chart.picture", "the name that the dialog opens with")
    for name, answer in (("chart.picture", "alt+n"), (session.log, "alt+y")):
        dialog.typein("File name:", name)
        key("Return")
        question = wait(lambda: [node for node in session.nodes() if node.get_role() == Role.ALERT], "the question first")
        key(answer)
        wait(lambda: question[0] not in session.nodes(), "the question to go")
    dialog.gone()
    session.answer(SAVED + session.log)
    session.backonchart()
    equal(session.logbytes(), logtext(""), "the log, which a picture must not replace")

    main.choose("H. DBT(F)", "100")
    session.escape(session.opened("Draw chart", CHARTTYPE))
    equal(difference(session.shown(), "bmp:" + path), "0", "the saved chart is gone from under the next: pixels")
    main.click("Clear chart")
    session.backonchart()
    wait(lambda: set(session.colors()) == {WHITE}, "the saved chart to be cleared")


def exports(session):
    """The three formats and the printer hold the same chart; what is cancelled writes nothing."""
    session.begin()
    session.draw()
    pdf, png, svg, printed = (os.path.join(session.home, name) for name in ("c.pdf", "c.png", "c.svg", "p.pdf"))
    session.export(pdf)
    expecttext(pdf)
    session.export(png)
    expect(colors(png)[MAGENTA] > 2000, "the PNG shows no chart")
    session.export(svg)
    before = {name: os.path.getmtime(os.path.join(session.home, name)) for name in os.listdir(session.home)}
    session.menu("Export chart...", "e")
    session.choosefile("Export chart", os.path.join(session.home, "c"))
    session.answer(svg + " already exists. Do you want to replace it?", "alt+n", "Export chart")
    session.backonchart()
    session.menu("Print...", "p")
    session.answer("What is to be printed?", "alt+c", "Print")
    dialog = session.window("Print")
    dialog.typein("Output file:", printed)
    session.escape(dialog)
    session.backonchart()
    after = {name: os.path.getmtime(os.path.join(session.home, name)) for name in os.listdir(session.home)}
    equal(after, before, "files after what was cancelled or refused")
    session.menu("Print...", "p")
    session.answer("What is to be printed?", "alt+c", "Print")
    dialog = session.window("Print")
    dialog.need(LIST, "Name:").waittext("Print to File (PDF)")
    dialog.typein("Output file:", printed)
    dialog.click("Print")
    dialog.gone()
    session.backonchart()
    wait(lambda: os.path.exists(printed), printed)
    expecttext(printed)
    facts = subprocess.run(["pdfinfo", printed], check=True, capture_output=True, text=True).stdout
    width, height = map(float, re.search(r"Page size:\s+([\d.]+) x ([\d.]+)", facts).groups())
    expect(width > height, f"the page stands upright: {width} x {height} points")
    sheet = os.path.join(session.home, "s.pdf")
    session.menu("Export sheet...", "h")
    dialog = session.window("Export sheet")
    dialog.typein("Title", "Handed in")
    dialog.click("Export...")
    session.choosefile("Export sheet", sheet)
    wait(lambda: os.path.exists(sheet), sheet)
    session.backonchart()
    session.menu("Print...", "p")
    session.answer("What is to be printed?", "alt+s", "Print")
    session.window("Title block").typein("Drawn by", "A. B.")
    key("Return")
    dialog = session.window("Print")
    dialog.typein("Output file:", os.path.join(session.home, "t.pdf"))
    dialog.click("Print")
    dialog.gone()
    session.backonchart()
    for name in ("s.pdf", "t.pdf"):
        path = os.path.join(session.home, name)
        wait(lambda path=path: os.path.exists(path), path)
        text = subprocess.run(["pdftotext", path, "-"], check=True, capture_output=True, text=True).stdout
        equal([word for word in ("Handed in", "Psychrometric chart", "Dew point, °F") if word not in text], [], name)


@otherscreen("1024x727")
def smallscreen(session):
    """On a screen below the limit a question comes first, at the start and at each mixing problem."""
    session.scale = 1
    session.launch()
    session.answer(SMALLSCREEN, "alt+y", "DELETE")
    equal(session.waitended(), 0, "exit code after Yes at the start")
    expect(not os.path.exists(session.log), "a log was made although the user left")
    session.launch()
    session.answer(SMALLSCREEN, "alt+n", "DELETE")
    session.escape(session.window(PRESSURE))
    for answer in ("alt+n", "alt+y"):
        session.main().click("Mixing problem")
        session.answer(SMALLSCREEN, answer, "DELETE")
        if answer == "alt+n":
            session.escape(session.window(MIXING))
    equal(session.waitended(), 0, "exit code after Yes at the mixing problem")
    expect(os.path.exists(session.log), "the log went although nobody pressed Exit")


@otherscreen("1920x1080")
def scaledscreen(session):
    """A screen with pixels enough is not asked about at 150 per cent; the whole chart shows in the restored window."""
    session.scale = 1.5
    main = session.begin()
    session.draw()
    before = session.colors()[BLACK]
    subprocess.run(["wmctrl", "-F", "-r", MAIN, "-b", "remove,maximized_vert,maximized_horz"], check=True)
    wait(lambda: main.rect().width < 1900 and abs(session.colors()[BLACK] - before) < before / 5, "texts and axes")
    main.click("Exit")
    session.waitended()


def ends(session):
    """Each way out takes the log along; what a run left that did not end so is gone in the next; help opens meanwhile."""
    def besidecharttype(main):
        session.opened("Draw chart", CHARTTYPE)
        main.click("Exit")

    for leave, code in ((lambda main: main.click("Exit"), 0), (lambda main: session.menu("Exit", "x"), 0),
                        (lambda main: main.closebymanager(), 0), (besidecharttype, 0),
                        (lambda main: session.process.terminate(), -signal.SIGTERM)):
        leave(session.begin())
        equal(session.waitended(), code, "exit code")
        expect(not os.path.exists(session.log), "the log is still there after the end")
    session.begin()
    session.kill()
    with open(session.log, "ab") as log:
        log.write(b"old\r\n")
    main = session.begin()
    equal(session.logbytes(), b"\r\n", "the log of the next run")

    opened, opener = os.path.join(session.home, "opened.txt"), os.path.join(session.binaries, "xdg-open")
    with open(opener, "w", encoding="utf-8") as script:
        script.write(f'#!/bin/sh\necho "$1" >"{opened}"\n')
    os.chmod(opener, 0o755)
    manual = os.path.join(os.path.dirname(session.binaries), "share/doc/moistair/manual/index.html")
    os.makedirs(os.path.dirname(manual))
    for path in (manual, os.path.join(session.binaries, "Psychrometric chart-English Units.chm")):
        open(path, "wb").close()
        main.click("Help")
        wanted = os.path.basename(path).replace(" ", "%20").encode()
        wait(lambda: os.path.exists(opened) and wanted in read(opened).replace(b" ", b"%20"), f"{path} to be opened")
        session.backonchart()


def document(session):
    """What stands follows the window, is taken back and done again, survives a kill, and is opened from its file."""
    main = session.begin()
    session.draw()
    main.typein("Rel Hum, %", "35")
    main.click("Rel. Humidity line")
    main.typein("Point", "A")
    session.enter("75", "62.5")
    session.opened("Locate point", REPORT).click("Locate point on the chart")
    session.backonchart()
    session.waitspot(75, 0.0092932, RED)
    before = main.rect()
    subprocess.run(["wmctrl", "-F", "-r", MAIN, "-b", "remove,maximized_vert,maximized_horz"], check=True)
    wait(lambda: main.rect().width < before.width, "the restored window")
    session.waitspot(75, 0.0092932, RED)

    table = "Points and lines"
    key("ctrl+l")
    wait(lambda: table in session.titles(), "the table over the chart")
    xdotool("search", "--name", MAIN, "windowminimize")
    wait(lambda: MAIN not in session.titles(), "the main window to be minimised")
    subprocess.run(["wmctrl", "-F", "-a", MAIN], check=True)
    session.main()
    wait(lambda: table in session.titles(), "the table to come back")
    key("alt+v")
    key("p")
    wait(lambda: table not in session.titles(), "the table to go")
    main.click("Clear chart")
    wait(lambda: set(session.colors()) == {WHITE}, "the chart to be cleared")
    key("ctrl+z")
    session.waitspot(75, 0.0092932, RED)
    key("ctrl+z", "ctrl+z", "ctrl+z")
    wait(lambda: session.colors()[GREEN] + session.colors()[RED] == 0, "point, line and chart to be taken back")
    key("ctrl+shift+z", "ctrl+shift+z", "ctrl+shift+z")
    session.waitspot(75, 0.0092932, RED)
    session.expecttexts("A", "Rh= 35")

    unsaved = session.log.replace("temp.txt", ".temp-unsaved.moistair")
    wait(lambda: os.path.exists(unsaved), "the unsaved work to be kept")
    session.process.kill()
    session.waitended()
    session.launch()
    session.escape(session.window(PRESSURE))
    session.window(BOXTITLE, Role.ALERT)
    key("alt+y")
    session.waitspot(75, 0.0092932, RED)
    saved = os.path.join(session.home, "room.moistair")
    key("ctrl+s")
    session.choosefile("Save as", saved)
    session.backonchart()
    session.process.terminate()
    session.waitended()
    session.launch(saved)
    session.escape(session.window(PRESSURE))
    session.waitspot(75, 0.0092932, RED)
    session.expecttexts("A", "Rh= 35")


def nothingsilent(session):
    """What would give a wrong result without a word is seen: at the box, in a line of words, by assistive technology."""
    def said(window, words):
        line = wait(lambda: window.look().find(BUTTON, words) or window.find(LABEL, words), repr(words))
        screenshot(os.path.join(session.pictures, "said " + words.replace("/", "-") + ".png"))
        return line

    def noted(window, role, name, words):
        control = window.need(role, name)
        wait(lambda: control.now().get_description() == words, lambda: f"{words!r} at {name}")
        picture, area = os.path.join(session.home, "mark.png"), control.rect()
        screenshot(picture, area)
        found = colors(picture)
        expect(found[NOTED] + found[REFUSED] > area.width, f"no outline at {name}: {found}")

    def setpressure(window, *entry):
        for value in entry:
            window.choose("Choose unit", "Elevation in feet")
            window.typein("Input value", value)
        window.click("Set/Change chart atmos. pressure")
        session.answer(CLEARS, "alt+y", "DELETE")
        session.backonchart()
        session.draw(blank=True)

    session.launch()
    window = session.window(PRESSURE)
    window.choose("Choose unit", "Elevation in feet")
    window.typein("Input value", "5,000")
    noted(window, BOX, "Input value", "read as 5")
    said(window, "read as 5")
    setpressure(window, "5000")
    main = session.main()
    session.enter("75", "62.5")
    high = session.readouts()

    session.escape(session.opened("Set/reset atmos pressure", PRESSURE))
    said(main, "29.92126 in Hg in force")
    window = session.opened("Mixing problem", MIXING)
    said(window, "calculated at 29.92126 in Hg, not at 5000 ft")
    window.typein("Stream 1, " + FLOW, "12,000")
    noted(window, BOX, "Stream 1, " + FLOW, "read as 12")
    said(window, "Stream 1: air flow: read as 12")
    session.escape(window)
    session.main().choose("H. DBT(F)", "100")
    noted(main, LIST, "H. DBT(F)", "limits changed, not drawn")
    said(main, "limits changed, not drawn")
    said(main, "header says 5000 ft").click()
    said(main, "24.896 in Hg, 5000 ft")
    session.waitreadouts(high)
    main.choose("H. DBT(F)", "120")

    main.typein(SECONDVALUE, "80")
    noted(main, BOX, SECONDVALUE, "wet bulb above dry bulb")
    main.typein("Rel Hum, %", "5o")
    noted(main, BOX, "Rel Hum, %", "read as 0")
    main.typein("Rel Hum, %", "")

    setpressure(session.opened("Set/reset atmos pressure", PRESSURE))
    session.enter("13.68", "27.65", "Specific enthalpy, btu/lb", "Dew point, Deg F")
    wait(lambda: session.readouts()[6] == "27.6500000", "the dew point as given")
    said(main, "this state has dew point 28.72 for the 27.65 given; exact: dry bulb 43.13, wet bulb 36.56").click()
    wait(lambda: session.readouts()[:2] == ["43.1289323", "36.5554906"], "the exact state")
    report = session.opened("Locate point", REPORT)
    report.click("Save data")
    said(main, "record 1 saved")
    session.escape(report)
    session.export(os.path.join(session.home, "room.png"))
    said(main, "chart written to room.png")


def savefile(session, button, title, path):
    """Cancelled first, then saved."""
    for chosen, message in ((None, "Dialog Cancelled"), (path, SAVED + path)):
        session.main().click(button)
        session.choosefile(title, chosen)
        session.answer(message)
        session.backonchart()


def difference(shown, saved):
    """In how many pixels a picture differs from the part of another at its top left corner."""
    size = subprocess.run(["identify", "-format", "%wx%h+0+0", shown], check=True, capture_output=True, text=True).stdout
    cut = subprocess.run(["convert", saved, "-crop", size, "+repage", "png:-"], check=True, capture_output=True).stdout
    return subprocess.run(["compare", "-metric", "AE", shown, "png:-", "null:"], input=cut, capture_output=True).stderr.decode()


def expecttext(path):
    text = subprocess.run(["pdftotext", "-layout", path, "-"], check=True, capture_output=True, text=True).stdout
    for wanted in ("Dry Bulb temp(Deg F)", "Atmos. pr=29.92126 In Hg", "WB= 70", "v= 13.5"):
        expect(wanted in text, f"{wanted!r} is not in {os.path.basename(path)}")
    equal(text.count("\f"), 1, "pages of " + os.path.basename(path))


def read(path):
    with open(path, "rb") as file:
        return file.read()


ALL = [pressure, point, chart, charttypebeside, mixing, nothingsilent, dialogs, picture, exports, document, offers, recovery,
       readings, byhand, smallscreen, scaledscreen, ends]
