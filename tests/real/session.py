"""One run of the program and the moves that every scenario makes with it."""

import os
import re
import subprocess
import xml.etree.ElementTree

from driver import Program, Rect, Role, State, colors, equal, expect, key, oneline, screenshot, wait, xdotool

MAIN = "Psychrometric chart - English Units"
PRESSURE = "Change pressure"
CHARTTYPE = "Chart type option"
REPORT = "Locate point"
LOG = "View saved data"
MIXING = "Mixing problem"
BOXTITLE = "Moistair"

FIRSTVALUE = "Value of the first property"
SECONDVALUE = "Value of the second property"

RED, GREEN, BLUE, MAGENTA, BROWN = "#FF0000", "#008000", "#0000FF", "#FF00FF", "#800000"
BLACK, GREY, WHITE = "#000000", "#808080", "#FFFFFF"

READOUTS = ["DB=", "WB=", "RH(%)=", "Enthalpy=", "Sp vol=", "H.ratio=", "DP=", "V. pr="]


class Session(Program):
    _main = None

    def begin(self):
        """Start-up, and out of the pressure window without setting anything."""
        self.launch()
        self.escape(self.window(PRESSURE))
        return self.main()

    def escape(self, window):
        key("Escape")
        window.gone()

    def main(self):
        """The main window, once it has the input."""
        self._main = self._main or self.window(MAIN)
        wait(self._main.active, "the input in the main window")
        return self._main

    def launch(self, *arguments):
        self._main = None
        return super().launch(*arguments)

    def opened(self, button, title):
        """Presses a button of the main window and returns the window that it opens."""
        self.main().click(button)
        return self.window(title)

    def graph(self):
        return self.main().need(Role.FILLER, "Psychrometric chart")

    def backonchart(self):
        """A command has ended: the main window has the input and its chart the focus."""
        main = self.main()
        wait(lambda: self.graph().has(State.FOCUSED), "the focus on the chart")
        return main

    def draw(self, blank=False):
        window = self.opened("Draw chart", CHARTTYPE)
        if blank:
            window.need(Role.RADIO_BUTTON, "Draw blank chart").click()
        window.click("Draw chart")
        window.gone()
        return self.backonchart()

    def enter(self, value1, value2, kind1=None, kind2=None):
        """Two properties of a point."""
        main = self.main()
        if kind1:
            main.choose("First property", kind1)
            main.choose("Second property", kind2)
        main.typein(FIRSTVALUE, value1)
        main.typein(SECONDVALUE, value2)

    def readouts(self):
        return [self.main().readout(caption) for caption in READOUTS]

    def waitreadouts(self, texts):
        wait(lambda: self.readouts() == texts, lambda: f"the read-outs {texts}, have {self.readouts()}")

    def answer(self, text, answer="Return", title=BOXTITLE):
        """Waits for a message box, compares its text word for word, and answers it by a key or as a function does."""
        window = self.window(title, Role.ALERT)
        equal([label.text() for label in window.labels() if label.text()], [text], "the message")
        answer(window) if callable(answer) else key(answer)
        window.gone()

    def told(self, button, text, answer="Return"):
        """A button of the main window that does nothing but raise a message."""
        self.main().click(button)
        self.answer(text, answer)
        self.backonchart()

    def choosefile(self, title, path):
        """Types a path into the save dialog; an empty one cancels it."""
        dialog = self.window(title)
        if path:
            dialog.typein("File name:", path)
            key("Return")
        else:
            key("Escape")
        dialog.gone()

    def menu(self, item, command):
        """A command of the file menu, by keys alone."""
        key("alt+f")
        self.main().look().need(Role.MENU_ITEM, item)
        key(command)

    def export(self, path, made=None):
        """Into a file; `made` is its name where the program completes that."""
        self.menu("Export chart...", "e")
        self.choosefile("Export chart", path)
        self.backonchart()
        wait(lambda: os.path.exists(made or path), made or path)

    def texts(self):
        """All texts that stand on the chart, read from an export of it."""
        path = os.path.join(self.home, "texts.svg")
        if os.path.exists(path):
            os.unlink(path)
        self.export(path)
        tree = xml.etree.ElementTree.parse(path)
        return [oneline(element.text) for element in tree.iter("{http://www.w3.org/2000/svg}text")]

    def expecttexts(self, *wanted):
        found = self.texts()
        for text in wanted:
            expect(text in found, f"{text!r} is not on the chart, but {found}")

    def grapharea(self):
        """The part of the chart that can be seen, on the screen [pixels].

        The bus knows where a control lies within its window; where the window lies is asked of the X server, since the
        bus rounds it to logical pixels.
        """
        main = self.main()
        window, area, graph = main.rect(), main.controls()[0].rect(), self.graph().rect()
        facts = subprocess.run(["xwininfo", "-name", MAIN], check=True, capture_output=True, text=True).stdout
        left, top = (int(re.search(name + r":\s+(\d+)", facts)[1]) for name in ("upper-left X", "upper-left Y"))
        return Rect(left + graph.x - window.x, top + graph.y - window.y, area.width, area.y + area.height - graph.y)

    def shown(self):
        """What can be seen of the chart, as a file. The pointer goes out of the way, lest a tool tip lie over it."""
        area = self.grapharea()
        xdotool("mousemove", area.x + 3, area.y + area.height - 3)
        path = os.path.join(self.home, "shown.png")
        screenshot(path, area)
        return path

    def colors(self):
        return colors(self.shown())

    def spot(self, db, hr):
        """Where a state stands on the chart of the start's limits."""
        inner = self.main().controls()[0].rect()
        return (round(inner.width * db / (120 * 12 / 10) + inner.width / 12),
                round(inner.height * 4700 / 6000 - inner.height * hr / (0.030 * 6000 / 4500)))

    def waitspot(self, db, hr, color):
        """A color where a state stands, in the three by three pixels about it."""
        x, y = self.spot(db, hr)
        wait(lambda: colors(self.shown(), x - 1, y - 1, 3, 3)[color], lambda: f"{color} at {x}, {y}")

    def logbytes(self):
        with open(self.log, "rb") as file:
            return file.read()


def logtext(*lines):
    """The bytes of a session log with these lines; a pair is a caption and its value."""
    texts = [line if isinstance(line, str) else line[0].ljust(56) + line[1] for line in lines]
    return "".join(text + "\r\n" for text in texts).encode("latin-1")
