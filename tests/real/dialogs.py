"""Every dialog can be left by the window manager and by Esc, and gives the main window back."""

from driver import BOX, expect, key
from session import CHARTTYPE, FIRSTVALUE, LOG, MIXING, PRESSURE, REPORT

DIALOGS = [
    ("Set/reset atmos pressure", PRESSURE),
    ("Locate point", REPORT),
    ("View saved data", LOG),
    ("Mixing problem", MIXING),
]


def closing(session):
    """Under an open dialog the main window takes neither pointer nor keys, nor its own closing."""
    session.launch()
    first = session.window(PRESSURE)
    first.closebymanager()
    first.gone()
    main = session.backonchart()
    session.draw(blank=True)
    session.enter("75", "62.5")
    for button, title in DIALOGS:
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
