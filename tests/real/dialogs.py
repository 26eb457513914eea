"""Every dialog can be left by the window manager and by Esc, and gives the main window back."""

from driver import BOX, expect, key, wait
from session import CHARTTYPE, FIRSTVALUE, LOG, MIXING, PRESSURE, REPORT

DIALOGS = [
    ("Set/reset atmos pressure", PRESSURE),
    ("Locate point", REPORT),
    ("View saved data", LOG),
    ("Mixing problem", MIXING),
    ("Draw chart", CHARTTYPE),
]


def closing(session):
    main = session.begin()
    session.draw(blank=True)
    session.enter("75", "62.5")
    for button, title in DIALOGS:
        if title == CHARTTYPE:
            main.choose("H. DBT(F)", "100")  # the chart that stands is refused
        for leave in (lambda window: window.closebymanager(), lambda window: key("Escape")):
            window = session.opened(button, title)
            leave(window)
            window.gone()
            session.main()
            main.typein("Point", title)
            main.typein("Point", "")


def closingatstart(session):
    """The first pressure window leaves by the window manager as by its button."""
    session.launch()
    pressure = session.window(PRESSURE)
    pressure.closebymanager()
    pressure.gone()
    session.backonchart()
    session.draw(blank=True)


def blocked(session):
    """The main window takes no input while a dialog is open: neither pointer nor keys, nor its own closing."""
    main = session.begin()
    session.draw(blank=True)
    session.enter("75", "62.5")
    for button, title in DIALOGS[:4]:
        window = session.opened(button, title)
        main.need(BOX, "Point").click()
        window.program.window(title)  # it has the input again
        key("7", "Tab")
        main.closebymanager()
        main.click("Clear chart")
        session.window(title)
        expect(session.running(), "the main window could be closed under a dialog")
        key("Escape")
        window.gone()
        session.main()
        main.need(BOX, "Point").waittext("")
        main.need(BOX, FIRSTVALUE).waittext("75")
