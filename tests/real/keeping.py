"""Journeys in which work could be lost: a crash, a second copy, a new chart, a click, a document given at start."""

import os
import signal
import time

from driver import BOX, BUTTON, LABEL, Role, expect, key, otherscreen, screenshot, wait, xdotool
from pointing import pointat
from session import BOXTITLE, FIRSTVALUE, PRESSURE, SECONDVALUE

SCREENQUESTION = "DELETE"


def offered(session, words):
    return wait(lambda: session.main().look().find(BUTTON, words), lambda: f"the offer {words!r}")


@otherscreen("1024x727")
def recovery(session):
    """While the question about the screen is open, the work of a crashed session and of a running copy stays."""
    session.scale = 1

    def begin(*arguments):
        session.launch(*arguments)
        session.window(SCREENQUESTION, Role.ALERT)
    begin()
    key("alt+n")
    session.escape(session.window(PRESSURE))
    session.draw()
    unsaved = session.log.replace("temp.txt", ".temp-unsaved.moistair")
    wait(lambda: os.path.exists(unsaved), "the unsaved work to be kept")
    first = session.process
    for what in ("running", "crashed"):
        if what == "crashed":
            first.kill()
            first.wait()
        begin()
        time.sleep(6)  # longer than the time after which work is kept
        expect(os.path.exists(unsaved), f"the work of a copy that is {what} went during the question")
        session.process.send_signal(signal.SIGTERM)
        session.waitended()
        expect(os.path.exists(unsaved), f"the work of a copy that is {what} went with a signal")
    begin()
    key("alt+n")
    session.escape(session.window(PRESSURE))
    question = session.window(BOXTITLE, Role.ALERT)
    text = " ".join(label.text() for label in question.labels())
    expect("unsaved work on a chart without a file, last kept on 20" in text, text)
    screenshot(os.path.join(session.pictures, "recovery-question.png"))
    key("alt+y")
    wait(lambda: session.colors()["#FF00FF"] > 100, "the recovered chart")
    session.main().click("Exit")
    session.waitended()


def offers(session):
    """A click on the chart and a new chart take nothing: the status line offers what was there."""
    main = session.begin()
    session.draw()
    main.typein("Rel Hum, %", "35")
    key("Return")
    key("Return")
    main.typein("Rel Hum, %", "60")
    key("Return")
    session.enter("75", "62.5")
    pointat(session, 85, 0.012)
    xdotool("click", "1")
    screenshot(os.path.join(session.pictures, "offer-boxes.png"))
    main.find(BOX, SECONDVALUE).focus()
    key("ctrl+z")
    main.find(BOX, SECONDVALUE).waittext("62.5")
    main.find(BOX, FIRSTVALUE).waittext("75")
    main.choose("H. DBT(F)", "100")
    session.draw()
    offer = offered(session, "2 entries of the previous chart: put them on this one")
    key("ctrl+l")
    wait(lambda: "Points and lines" in session.titles(), "the table")
    screenshot(os.path.join(session.pictures, "previous-table.png"))
    key("ctrl+l")
    offer.click()
    session.expecttexts("Rh= 35", "Rh= 60")
    screenshot(os.path.join(session.pictures, "taken-over.png"))
    path = os.path.join(session.home, "given.moistair")
    key("ctrl+s")
    session.choosefile("Save as", path)
    session.backonchart()
    session.process.terminate()
    session.waitended()
    session.launch(path)
    window = session.window(PRESSURE)
    expect(any(label.text().startswith("given.moistair is opened after this window. It was made at 29.92126 in Hg")
               for label in window.labels()), "the pressure window does not name the document")
    window.choose("Choose unit", "Elevation in feet")
    window.typein("Input value", "5000")
    screenshot(os.path.join(session.pictures, "given-file.png"))
    key("Return")
    session.window("DELETE")
    key("alt+y")
    window.gone()
    session.window(BOXTITLE, Role.ALERT)
    screenshot(os.path.join(session.pictures, "which-pressure.png"))
    key("alt+s")
    wait(lambda: session.main().look().find(LABEL, "24.896 in Hg, 5000 ft"), "the pressure that was set")
