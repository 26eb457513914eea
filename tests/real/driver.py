"""The program under test, driven as a person drives it: read through the accessibility bus, typed and clicked by
xdotool.

A control is found by its role and the name that a screen reader would say; where it is, is asked at every click. The
pointer and the keys go through the X server, so that a window which takes no input takes none here either. Whatever is
waited for has a time limit, and its end is a `Failure` that says what was waited for.
"""

import contextlib
import os
import re
import shutil
import subprocess
import time
from collections import Counter
from dataclasses import dataclass

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

import desktop  # noqa: E402

Role = Atspi.Role
State = Atspi.StateType

BUTTON = Role.PUSH_BUTTON
LABEL = Role.LABEL
BOX = Role.TEXT
LIST = Role.COMBO_BOX

#: What lies within these is not looked at: the rows of a file dialog come and go, and one that has gone answers nothing.
UNSEARCHED = (LIST, Role.LIST, Role.TREE, Role.TREE_TABLE, Role.TABLE)


class Failure(Exception):
    pass


def wait(condition, what, seconds=10.0):
    """The first value of `condition` that counts as true."""
    end = time.monotonic() + seconds
    while True:
        try:
            value = condition()
            if value:
                return value
        except GLib.Error:
            pass  # an object that has just gone
        if time.monotonic() > end:
            raise Failure(f"waited in vain for {what() if callable(what) else what}")
        time.sleep(0.01)


def expect(condition, what):
    if not condition:
        raise Failure(what)


def equal(found, wanted, what):
    expect(found == wanted, f"{what}: found {found!r}, wanted {wanted!r}")


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)


def key(*names):
    xdotool("key", *names)


def screenshot(path, area=None):
    """The whole screen, or a part of it, into a file."""
    crop = ["-crop", f"{area.width}x{area.height}+{area.x}+{area.y}", "+repage"] if area else []
    subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", *crop, path], check=True)


#: The colors of slanted lines
INKS = ["#FF0000", "#008000", "#FF00FF", "#800000", "#808080", "#000000"]


def ink(color):
    """The color of the line that covers at least half of a pixel, white showing through; else that of the pixel."""
    pixel = bytes.fromhex(color[1:])
    for line in INKS:
        full = bytes.fromhex(line[1:])
        share = max((255 - a) / (255 - b) for a, b in zip(pixel, full) if b < 255)
        if 0.5 <= share <= 1 and all(abs(255 - share * (255 - b) - a) < 2 for a, b in zip(pixel, full)):
            return line
    return color


def colors(picture, *part):
    """How many pixels of each color a picture has, or a part of it: x, y, width, height."""
    crop = ["-crop", "{2}x{3}+{0}+{1}".format(*part), "+repage"] if part else []
    histogram = subprocess.run(["convert", picture, *crop, "-depth", "8", "-format", "%c", "histogram:info:-"], check=True,
                               capture_output=True, text=True).stdout
    found = Counter()
    for count, color in re.findall(r"(\d+): .*?(#[0-9A-F]{6})", histogram):
        found[ink(color)] += int(count)
    return found


def oneline(text):
    return " ".join((text or "").split())


@dataclass(frozen=True)
class Rect:
    x: int
    y: int
    width: int
    height: int

    @property
    def middle(self):
        return self.x + self.width // 2, self.y + self.height // 2

    @property
    def right(self):
        return self.x + self.width

    def holds(self, spot):
        return self.x < spot[0] < self.right and self.y < spot[1] < self.y + self.height


def children(node):
    return [child for child in map(node.get_child_at_index, range(node.get_child_count())) if child]


def below(node, entered=lambda node: True):
    """All objects below one, in their order; what lies within an object that is not `entered` is left out."""
    for child in children(node):
        yield child
        if entered(child):
            yield from below(child, entered)


class Control:
    """One object of the accessibility tree."""

    def __init__(self, node, scale):
        self.node = node
        self.scale = scale
        self.role = node.get_role()
        self.name = oneline(node.get_name())

    def now(self):
        self.node.clear_cache()
        return self.node

    def rect(self):
        """Where it is on the screen [pixels]."""
        extents = Atspi.Component.get_extents(self.now(), Atspi.CoordType.SCREEN)
        return Rect(*(int(n * self.scale + 0.5) for n in (extents.x, extents.y, extents.width, extents.height)))

    def has(self, state):
        return self.now().get_state_set().contains(state)

    def text(self):
        """What it shows: a box its text, a list and a label their name."""
        if self.role == BOX:
            return Atspi.Text.get_text(self.node, 0, -1)
        return self.now().get_name() or ""

    def caption(self):
        """Name of a list, which its label gives it: its own is the text chosen."""
        for relation in self.node.get_relation_set() or []:
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                return oneline(relation.get_target(0).get_name())
        return ""

    def click(self):
        x, y = self.rect().middle
        xdotool("mousemove", x, y, "click", 1)

    def focus(self):
        self.click()
        wait(lambda: self.has(State.FOCUSED), f"the focus in {self.name!r}")

    def waittext(self, text):
        wait(lambda: self.text() == text, lambda: f"the text {text!r}, have {self.text()!r}")


class Window:
    """A window that is up. Its controls do not come and go, so they are looked up once."""

    def __init__(self, program, node):
        self.program = program
        self.node = node
        self.title = node.get_name()
        self._controls = None

    def rect(self):
        return Control(self.node, self.program.scale).rect()

    def active(self):
        self.node.clear_cache()
        return self.node.get_state_set().contains(State.ACTIVE)

    def controls(self):
        if self._controls is None:
            def shown(node):
                return node.get_state_set().contains(State.SHOWING)
            nodes = below(self.node, lambda node: shown(node) and node.get_role() not in UNSEARCHED)
            self._controls = [Control(node, self.program.scale) for node in nodes if shown(node)]
        return self._controls

    def look(self):
        """Looks anew: controls have come or gone."""
        self._controls = None
        return self

    def find(self, role, name):
        return next((control for control in self.controls()
                     if control.role == role and (control.caption() if role == LIST else control.name) == name), None)

    def need(self, role, name):
        return wait(lambda: self.find(role, name) or self.look().find(role, name), f"{role.value_nick} {name!r}")

    def labels(self):
        return [control for control in self.controls() if control.role == LABEL]

    def click(self, name):
        self.need(BUTTON, name).click()

    def enabled(self, name):
        return self.need(BUTTON, name).has(State.ENABLED)

    def typein(self, name, text):
        """Replaces the text of a box or of a list's edit box by typing."""
        box = self.find(BOX, name) or self.need(LIST, name)
        box.focus()
        xdotool("key", "ctrl+a", *(("type", "--delay", 4, "--", text) if text else ("Delete",)))
        box.waittext(text)

    def choose(self, name, item):
        """Picks an item from a list's drop-down menu by keys."""
        box = self.need(LIST, name)
        steps = self.program.items(box).index(item)
        box.focus()
        xdotool("key", "--delay", 4, "F4", "Home", *["Down"] * steps, "Return")
        box.waittext(item)

    def readouts(self, caption, count=1):
        """Texts of the `count` labels to the right of a caption, in its row."""
        self.need(LABEL, caption)
        labels = [(control.rect(), control) for control in self.labels()]
        place = min((rect for rect, control in labels if control.name == caption), key=lambda rect: rect.x)
        row = [(rect.x, control) for rect, control in labels
               if rect.x >= place.right and abs(rect.middle[1] - place.middle[1]) <= place.height // 2]
        return [control.text() for _, control in sorted(row, key=lambda pair: pair[0])[:count]]

    def readout(self, caption):
        return self.readouts(caption)[0]

    def gone(self):
        wait(lambda: self.node not in self.program.nodes(), f"the window {self.title!r} to go")

    def closebymanager(self):
        """The close button of the window's frame."""
        subprocess.run(["wmctrl", "-F", "-c", self.title], check=True)


class Program:
    """The program from its start to its end, in a folder of its own: the log lies beside the executable."""

    def __init__(self, executable, folder, screen, scale):
        self.scale = scale
        self.binaries = os.path.join(folder, "bin")
        os.makedirs(self.binaries)
        self.log = os.path.join(self.binaries, "temp.txt")
        self.errors = os.path.join(folder, "errors.txt")
        self.home = os.path.join(folder, "home")
        os.makedirs(self.home)
        self.state = os.path.join(folder, "state")
        self._executable = shutil.copy2(executable, self.binaries)
        self.tool = os.path.join(os.path.dirname(os.path.abspath(executable)), "moistair-cli")
        self._items = {}
        self.process = None

    def launch(self, *arguments):
        """Starts it and returns as soon as it is on the accessibility bus."""
        variables = dict(os.environ, QT_SCALE_FACTOR=f"{self.scale:g}", HOME=self.home,
                         XDG_STATE_HOME=self.state, PATH=self.binaries + ":" + os.environ["PATH"])
        with open(self.errors, "a") as errors:
            self.process = desktop.start(self._executable, *arguments, cwd=self.home, env=variables, stderr=errors)
        self._root = wait(self._find, "the program on the accessibility bus")
        return self

    def _find(self):
        expect(self.process.poll() is None, "the program ended while starting")
        return next((child for child in children(Atspi.get_desktop(0))
                     if child.get_process_id() == self.process.pid and child.get_child_count()), None)

    def nodes(self):
        self._root.clear_cache()
        return children(self._root)

    def titles(self):
        return [node.get_name() for node in self.nodes() if node.get_state_set().contains(State.SHOWING)]

    def window(self, title, role=None):
        """The window of this title, once it is up and has the input."""
        def ready():
            for node in self.nodes():
                node.clear_cache()
                states = node.get_state_set()
                if (node.get_name() == title and role in (None, node.get_role())
                        and states.contains(State.SHOWING) and states.contains(State.ACTIVE)):
                    return Window(self, node)
            return None
        return wait(ready, lambda: f"the window {title!r}; there are {self.titles()}")

    def items(self, box):
        """All items of a drop-down list. They never change, so each list is asked once."""
        caption = box.caption()
        if caption not in self._items:
            self._items[caption] = [item.get_name() for item in below(box.node) if item.get_role() == Role.LIST_ITEM]
        return self._items[caption]

    def running(self):
        return self.process.poll() is None

    def waitended(self):
        wait(lambda: not self.running(), "the program to end")
        return self.process.returncode

    def kill(self):
        if self.process:
            desktop.stop(self.process)

    def complaints(self):
        """What it wrote to its standard error."""
        with open(self.errors, encoding="utf-8", errors="replace") as errors:
            return errors.read()


@contextlib.contextmanager
def otherscreen(size):
    """A desktop with a screen of another size, on which programs start meanwhile."""
    usual = os.environ["DISPLAY"]
    server, number = desktop.start_server(size)
    os.environ["DISPLAY"] = ":" + number
    startmanager()
    try:
        yield
    finally:
        os.environ["DISPLAY"] = usual
        desktop.stop(server)


def startmanager():
    """The window manager, once it manages."""
    manager = desktop.start("openbox", "--sm-disable", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def manages():
        command = ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"]
        return "window id" in subprocess.run(command, capture_output=True, text=True).stdout
    wait(manages, "the window manager")
    Atspi.init()
    Atspi.set_timeout(5000, 15000)
    return manager
