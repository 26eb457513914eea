"""Everything that is written: the log in its window and as a copy, the picture, the exports and the print."""

import os
import re
import struct
import subprocess

from driver import BOX, LIST, Role, equal, expect, key, wait
from picture import readimage
from points import pointrecord
from session import GREEN, LOG, MAGENTA, REPORT, logtext

CANCELLED = "Dialog Cancelled"
SAVED = "You saved the files as  "
APPENDFAILED = "The data could not be saved: the log file cannot be written."
HOLDSTHELOG = "This file holds the saved data of this session. The chart was not saved."
VIEWFAILED = "The saved data cannot be shown: the log file cannot be read."


def savefile(session, button, title, path):
    """Cancelled first, then saved."""
    for chosen, message in ((None, CANCELLED), (path, SAVED + path)):
        session.main().click(button)
        session.choosefile(title, chosen)
        session.answer(message)
        session.backonchart()


def savepoint(session, identification):
    main = session.main()
    main.typein("Point", identification)
    report = session.opened("Locate point", REPORT)
    size = len(session.logbytes())
    report.click("Save data")
    wait(lambda: len(session.logbytes()) > size, "the log to grow")
    session.escape(report)
    session.backonchart()


def viewandcopylog(session):
    """The log window shows the file; the copy is the file, byte for byte, and asks before it replaces another."""
    session.begin()
    session.draw(blank=True)
    session.enter("75", "62.5")
    savepoint(session, "first")
    savepoint(session, "")
    wanted = logtext("", *pointrecord("first"), *pointrecord("Nil"))
    equal(session.logbytes(), wanted, "the log of two points")

    window = session.opened("View saved data", LOG)
    equal(window.need(BOX, "Saved data").text(), wanted.decode("latin-1").replace("\r\n", "\n"), "the log shown")
    window.click("Return to chart")
    window.gone()
    session.backonchart()

    copy = os.path.join(session.home, "copy.txt")
    savefile(session, "Save data in file", "Save Pont data in File", copy)
    equal(read(copy), wanted, "the copy")
    equal(session.logbytes(), wanted, "the log after the copy")


def logfails(session):
    """A log that is lost while the program runs is told, and nothing else suffers."""
    session.begin()
    session.draw(blank=True)
    session.enter("75", "62.5")
    os.unlink(session.log)
    session.told("View saved data", VIEWFAILED)
    os.mkdir(session.log)
    report = session.opened("Locate point", REPORT)
    report.click("Save data")
    session.answer(APPENDFAILED)
    os.rmdir(session.log)
    report.click("Save data")
    wait(lambda: os.path.exists(session.log) and session.logbytes() == logtext(*pointrecord("Nil")), "the record")


def savepicture(session):
    """The picture saved is what the screen shows, pixel for pixel, under any name, and stays the chart's background."""
    main = session.begin()
    session.draw()
    path = os.path.join(session.home, "chart.picture")
    savefile(session, "Save chart", "Save File", path)
    equal(struct.unpack_from("<HI", read(path), 28), (24, 0), "bits of a pixel and compression")
    saved, shown = readimage("bmp", path), session.shown()
    expect(saved.width >= shown.width and saved.height >= shown.height,
           f"the picture of {saved.width} x {saved.height} pixels is smaller than what is seen")
    equal(shown.firstdifference(saved), None, "where the picture differs from the screen: x, y, shown, saved")
    expect(saved.colours()[MAGENTA] > 1000, "the picture shows no chart")

    main.click("Save chart")
    dialog = session.window("Save File")
    equal(dialog.need(BOX, "File name:").text(), "chart.picture", "the name that the dialog opens with")
    key("Return")
    answeroverwriting(session, "alt+n")
    dialog.typein("File name:", session.log)
    key("Return")
    answeroverwriting(session, "alt+y")
    dialog.gone()
    session.answer(SAVED + session.log)
    session.answer(HOLDSTHELOG)
    session.backonchart()
    equal(session.logbytes(), logtext(""), "the log, which a picture must not replace")

    main.choose("H. DBT(F)", "100")
    window = session.opened("Draw chart", "Chart type option")
    window.click("Exit and return to main chart")
    window.gone()
    equal(session.shown().firstdifference(saved), None, "the saved chart is gone from under the next")
    main.click("Clear chart")
    session.backonchart()
    wait(lambda: session.shown().colours()[GREEN] == 0, "the saved chart to be cleared")


def answeroverwriting(session, answer):
    """The file dialog's own question."""
    question = wait(lambda: [node for node in session.nodes() if node.get_role() == Role.ALERT], "the question first")
    key(answer)
    wait(lambda: question[0] not in session.nodes(), "the question to go")


def exports(session):
    """The three formats hold the same chart; a name without an ending gets that of the format chosen."""
    session.begin()
    session.draw()
    pdf, png, svg = (os.path.join(session.home, "chart." + ending) for ending in ("pdf", "png", "svg"))
    session.export(pdf)
    expecttext(pdf)
    session.export(png)
    picture = readimage("png", png)
    area = session.main().controls()[0].rect()
    width, height = (round(2 * side / session.scale) for side in (area.width, area.height))
    expect(abs(picture.width - width) <= 2 and abs(picture.height - height) <= 2,
           f"the PNG has {picture.width} x {picture.height} pixels, not {width} x {height}")
    expect(picture.colours()[MAGENTA] > 2000, "the PNG shows no chart")
    session.export(svg)
    os.unlink(svg)

    bare = os.path.join(session.home, "chart")
    session.export(bare, svg)
    nowhere = os.path.join(session.home, "nowhere.svg")
    os.symlink("gone/chart.svg", nowhere)  # where not even root can make a file
    for path, *message in ((bare, svg + " already exists. Do you want to replace it?", "alt+n", "Export chart"),
                           (nowhere, "The chart could not be written to " + nowhere + " No such file or directory")):
        session.menu("Export chart...", "e")
        session.choosefile("Export chart", path)
        session.answer(*message)
        session.backonchart()


def printing(session):
    """The print dialog prints into a file, on one page, with its text."""
    session.begin()
    session.draw()
    path = os.path.join(session.home, "printed.pdf")
    session.menu("Print...", "p")
    session.escape(session.window("Print"))
    session.backonchart()
    session.menu("Print...", "p")
    dialog = session.window("Print")
    dialog.need(LIST, "Name:").waittext("Print to File (PDF)")
    dialog.typein("Output file:", path)
    dialog.click("Print")
    dialog.gone()
    session.backonchart()
    wait(lambda: os.path.exists(path), path)
    expecttext(path)
    facts = subprocess.run(["pdfinfo", path], check=True, capture_output=True, text=True).stdout
    width, height = map(float, re.search(r"Page size:\s+([\d.]+) x ([\d.]+)", facts).groups())
    expect(width > height, f"the page stands upright: {width} x {height} points")


def expecttext(path):
    text = subprocess.run(["pdftotext", "-layout", path, "-"], check=True, capture_output=True, text=True).stdout
    for wanted in ("Dry Bulb temp(Deg F)", "Atmos. pr=29.92126 In Hg", "WB= 70", "v= 13.5"):
        expect(wanted in text, f"{wanted!r} is not in {os.path.basename(path)}")
    equal(text.count("\f"), 1, "pages of " + os.path.basename(path))


def read(path):
    with open(path, "rb") as file:
        return file.read()
