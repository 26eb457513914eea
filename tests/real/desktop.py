"""A private desktop: an X server, the window manager openbox, and a session bus with the accessibility services.

Nothing of the developer's own desktop reaches it: home, configuration and bus are new, and the environment is made from
nothing, so that a theme of the person who runs the tests changes no dialog. All that was started goes when the script
ends, also when it took too long.
"""

import ctypes
import os
import signal
import subprocess
import sys
import tempfile
import time

INSIDE = "MOISTAIR_DESKTOP"
LIBC = ctypes.CDLL(None)


PR_SET_PDEATHSIG = 1  # a child ends when its parent does
PR_SET_CHILD_SUBREAPER = 36  # what loses its parent below a process becomes its child


def stop_children():
    """Ends all children, and theirs as they are adopted: a bus starts services that may outlive it."""
    while True:
        try:
            pid, _ = os.waitpid(-1, os.WNOHANG)
        except ChildProcessError:
            return
        if pid == 0:
            with open(f"/proc/self/task/{os.getpid()}/children", encoding="ascii") as children:
                for child in children.read().split():
                    os.kill(int(child), signal.SIGTERM)
            time.sleep(0.02)


def start(*command, **options):
    return subprocess.Popen(command, preexec_fn=lambda: LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGTERM), **options)


def stop(process):
    if process.poll() is None:
        process.terminate()
    try:
        process.wait(5)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


def start_server(screen):
    """An X server with a screen of this size, "1024x768", and the number of its display. Returns when it is ready.

    It must not reset itself when its last client leaves: while the first ones come and go, that would throw one out.
    """
    reader, writer = os.pipe()
    command = ["Xvfb", "-displayfd", str(writer), "-screen", "0", screen + "x24", "-nolisten", "tcp", "-noreset"]
    server = start(*command, pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(writer)
    with os.fdopen(reader) as ready:
        display = ready.readline().strip()
    if not display:
        raise SystemExit("Xvfb did not start")
    return server, display


def environment(display, home):
    inherited = {name: os.environ[name] for name in ("PATH", "LD_LIBRARY_PATH") if name in os.environ}
    return dict(inherited, DISPLAY=":" + display, HOME=home, XDG_RUNTIME_DIR=home, XDG_CONFIG_HOME=home,
                XDG_STATE_HOME=os.path.join(home, "state"), LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb",
                QT_STYLE_OVERRIDE="Fusion", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE="0",
                PYTHONDONTWRITEBYTECODE="1", **{INSIDE: display})


def enter(screen, limit):
    """Runs this very script again on a new desktop and ends with its result; returns at once where that is so already.

    screen: its size, "1024x768"; limit: the most it may take [s]
    """
    if INSIDE in os.environ:
        return
    LIBC.prctl(PR_SET_CHILD_SUBREAPER, 1)
    server, display = start_server(screen)
    with tempfile.TemporaryDirectory(prefix="moistair-") as home:
        os.chmod(home, 0o700)
        # The bus must see DISPLAY, or what it starts does not find the desktop: so it comes second.
        inner = start("dbus-run-session", "--", sys.executable, *sys.argv, env=environment(display, home))
        try:
            result = inner.wait(limit)
        except subprocess.TimeoutExpired:
            print(f"FAIL: not done after {limit} s", flush=True)
            result = 1
        finally:
            stop(inner)
            stop(server)
            stop_children()
    sys.exit(result)
