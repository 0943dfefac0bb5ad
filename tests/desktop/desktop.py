"""What the desktop's tests stand on: an X server with a window manager, the program in its window,
and a person who presses keys, moves the mouse, and reads the window as a screen reader does.

A test program calls main() and is run with the path of kvprefs and a folder for what failures show.
"""
import json
import mmap
import os
import pathlib
import select
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zlib

from gi.repository import GLib
import pyatspi

DEADLINE = 40       # seconds, spent only when something is wrong
PAUSE = 0.02        # seconds between two looks
LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
PROGRAM, EVIDENCE = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
STOPS = ("page tab list", "combo box", "text", "push button", "check box", "slider", "list")
QUIET = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}


def wait_for(condition, what, seconds=DEADLINE):
    """What condition() gives, once it is true. A control may go away while it is looked at."""
    end = time.monotonic() + seconds
    while True:
        try:
            found = condition()
        except GLib.Error:
            found = None
        if found:
            return found
        if time.monotonic() > end:
            raise AssertionError(f"waited {seconds} s for {what}")
        time.sleep(PAUSE)


class Picture:
    """A rectangle of the screen; a pixel is blue, green, red and an unused byte."""

    def __init__(self, width, height, pixels):
        self.width, self.height, self.pixels = width, height, pixels

    def __eq__(self, other):
        return self.pixels == other.pixels

    def part(self, box):
        x, y, width, height = box
        rows = (4 * (row * self.width + x) for row in range(y, y + height))
        return Picture(width, height, b"".join(self.pixels[at:at + 4 * width] for at in rows))

    def save(self, path):
        def chunk(kind, data):
            return (struct.pack(">I", len(data)) + kind + data +
                    struct.pack(">I", zlib.crc32(kind + data)))
        rgb = bytearray(self.width * self.height * 3)
        for channel in range(3):
            rgb[channel::3] = self.pixels[2 - channel::4]
        step = self.width * 3
        rows = b"".join(b"\0" + rgb[at:at + step] for at in range(0, len(rgb), step))
        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
                         chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b""))


class Desktop:
    """An X server of its own with a window manager; its user's keyboard, mouse and eyes."""

    def __init__(self):
        for left in (2, 1, 0):
            try:
                return self.start()
            except (AssertionError, subprocess.TimeoutExpired):
                # Of servers that start at the same moment one may lose its number to another.
                self.stop()
                if not left:
                    raise

    def start(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kvdesktop"))
        self.processes = []
        number, told = os.pipe()
        self.server = self.run("Xvfb", "-displayfd", str(told), "-screen", "0", "1280x900x24", "-fbdir",
                               self.folder, "-nolisten", "tcp", pass_fds=[told])
        os.close(told)
        with os.fdopen(number) as line:
            assert select.select([line], [], [], DEADLINE)[0], "the X server does not start"
            self.environment = {**os.environ, "DISPLAY": ":" + line.readline().strip()}
        self.run("openbox", "--sm-disable", env=self.environment)
        wait_for(lambda: self.xdotool("get_num_desktops", timeout=5).returncode == 0,
                 "the window manager", DEADLINE / 4)
        with open(self.folder / "Xvfb_screen0", "rb") as file:
            self.screen = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)

    def run(self, *command, **how):
        self.processes.append(subprocess.Popen(command, **how, **QUIET))
        return self.processes[-1]

    def stop(self):
        for process in reversed(self.processes):
            process.kill()
            process.wait()
        shutil.rmtree(self.folder)

    def xdotool(self, *words, timeout=DEADLINE):
        return subprocess.run(["xdotool", *map(str, words)], env=self.environment, timeout=timeout,
                              **QUIET)

    def act(self, *words):
        assert self.xdotool(*words).returncode == 0, words

    def keys(self, *names):
        self.act("key", *names)

    def type(self, text):
        self.act("type", text)

    def click(self, control):
        self.act("mousemove", *control.middle(), "click", 1)

    def picture(self, box=None):
        """What the screen shows now. The server keeps it in a file, in the format of xwd."""
        head = struct.unpack(">25I", self.screen[:100])
        start, width, height = head[0] + 12 * head[19], head[4], head[5]
        whole = Picture(width, height, self.screen[start:start + 4 * width * height])
        return whole.part(box) if box else whole


class Control:
    """What a screen reader knows of a control, asked for afresh each time."""

    def __init__(self, accessible, depth):
        self.accessible, self.depth = accessible, depth

    name = property(lambda self: self.accessible.name)
    role = property(lambda self: self.accessible.getRoleName())
    text = property(lambda self: self.accessible.queryText().getText(0, -1))
    value = property(lambda self: self.accessible.queryValue().currentValue)

    def has(self, state):
        return self.accessible.getState().contains(getattr(pyatspi, "STATE_" + state.upper()))

    def box(self):
        return tuple(self.accessible.queryComponent().getExtents(pyatspi.DESKTOP_COORDS))

    def middle(self):
        x, y, width, height = self.box()
        return x + width // 2, y + height // 2

    def children(self):
        return [Control(child, self.depth + 1) for child in self.accessible if child]

    def walk(self):
        """This control and all that show inside it, in the order of the screen reader."""
        if self.has("showing"):
            yield self
            for child in self.children():
                yield from child.walk()

    def chosen(self):
        """The entry that a combo box shows. Its list need not be open."""
        return next(entry.name for held in self.children() for entry in held.children()
                    if entry.has("selected"))

    def takes_tab(self):
        """Of a radio group only the chosen button does, of the tabs their list."""
        if not self.has("focusable") or not self.has("sensitive"):
            return False
        return self.role in STOPS or self.role == "radio button" and self.has("checked")

    def __eq__(self, other):
        return self.accessible == other.accessible

    def __str__(self):
        states = " ".join(map(pyatspi.stateToString, self.accessible.getState().getStates()))
        return f"{'  ' * self.depth}{self.role} {self.name!r} {self.box()} {states}"


class Window:
    """The running program and what it shows."""

    def __init__(self, words, environment):
        self.output = tempfile.TemporaryFile()
        self.process = subprocess.Popen([PROGRAM, *words], env=environment, stdout=self.output,
                                        stdin=subprocess.DEVNULL, stderr=self.output)

    def kill(self):
        self.process.kill()
        self.process.wait()

    def said(self):
        self.output.seek(0)
        return self.output.read().decode()

    def dialogs(self):
        """The windows on the screen; the one in front comes last."""
        for application in pyatspi.Registry.getDesktop(0):
            if application and application.get_process_id() == self.process.pid:
                return [top for top in Control(application, 0).children() if top.has("showing")]
        return []

    def front(self, title=None):
        """The dialog that the keyboard works on, once there is one (of that title)."""
        def active():
            assert self.process.poll() is None, f"the program ended: {self.said()}"
            return next((top for top in self.dialogs()
                         if top.has("active") and title in (None, top.name)), None)
        return wait_for(active, f"the dialog {title or ''} in front")

    def find(self, name, role=None):
        """The one control of the front dialog of that name."""
        def only():
            found = [control for control in self.front().walk()
                     if control.name == name and role in (None, control.role)]
            assert len(found) < 2, f"{len(found)} controls are called {name!r}"
            return found and found[0]
        return wait_for(only, f"{role or 'a control'} called {name!r}")

    def tabs(self):
        strip = next(control for control in self.front().walk() if control.role == "page tab list")
        return [tab for tab in strip.children() if tab.role == "page tab"]

    def focused(self):
        """The control with the focus. Qt says so of parts too: of the tab in front, of the current
        entry of a list that does not have it, and of what holds the tabs."""
        return next((control for control in self.front().walk() if control.has("focused")
                     and control.role not in ("page tab", "list item", "filler")), None)

    def focus_is(self, name, role=None):
        def there():
            control = self.focused()
            return (control and control.name == name and role in (None, control.role)) and control
        return wait_for(there, f"the focus at {name!r}")

    def list_entry(self):
        """The name of the entry that the keys in an open list are at."""
        return next((entry.name for entry in self.focused().children() if entry.has("focused")),
                    None)

    def tree(self):
        return "\n".join(str(control) for top in self.dialogs() for control in top.walk())


class Journey(unittest.TestCase):
    """One person's story on a scratch state. The desktop is shared by all stories of a program."""

    desktop = None

    @classmethod
    def setUpClass(cls):
        if Journey.desktop is None:
            Journey.desktop = Desktop()
            unittest.addModuleCleanup(Journey.desktop.stop)

    def setUp(self):
        self.window = None
        scratch = tempfile.TemporaryDirectory(prefix="kvdesktop")
        self.addCleanup(scratch.cleanup)
        self.scratch = pathlib.Path(scratch.name)
        self.state = self.scratch / "state"

    def environment(self, **changes):
        """A value of None takes the variable away."""
        base = {**self.desktop.environment, "KVPREFS_STATE": str(self.state),
                "KVPREFS_SYSTEM": "/nonexistent", "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        return {name: value for name, value in {**base, **changes}.items() if value is not None}

    def open(self, *printers, **changes):
        self.launch("open", *printers, **changes)
        self.window.front()
        return self.window

    def launch(self, *words, **changes):
        self.window = Window(words, self.environment(**changes))
        self.addCleanup(self.window.kill)

    def turn_to(self, page):
        """Clicks the tab of a page."""
        self.desktop.click(next(tab for tab in self.window.tabs() if tab.name == page))
        wait_for(lambda: any(control.name == page and control.role == "page tab list"
                             for control in self.window.front().walk()), f"the page {page}")

    def tab(self, before=None):
        """Presses Tab, with the focus at the control before; where the focus comes to."""
        before = before or self.window.focused()
        self.desktop.keys("Tab")

        def moved():
            control = self.window.focused()
            return control and control != before and control
        return wait_for(moved, f"the focus after Tab from {before}")

    def tab_to(self, name):
        control = wait_for(self.window.focused, "the focus")
        for _ in range(50):
            if control.name == name:
                return
            control = self.tab(control)
        self.fail(f"Tab does not come to {name!r}")

    def kvprefs(self, *words):
        done = subprocess.run([PROGRAM, *words], env=self.environment(), stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=DEADLINE)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def stored(self, *fields):
        """One value, or the list of several."""
        values = json.loads(self.kvprefs("get", "--json", *fields))
        return values[fields[0]] if len(fields) == 1 else [values[field] for field in fields]

    def record(self):
        """The stored record as it lies there, None before the first."""
        files = list((self.state / "records").glob("*.record"))
        return files[0].read_bytes() if files else None

    def ends(self, status=0, seconds=DEADLINE):
        """The program ends by itself, with that status; what it said."""
        wait_for(lambda: self.window.process.poll() is not None, "the program's end", seconds)
        self.assertEqual(self.window.process.returncode, status, self.window.said())
        self.assertNotIn("Sanitizer", self.window.said())
        return self.window.said()

    def keep_evidence(self):
        """Prints what is on the screen, and saves its picture."""
        EVIDENCE.mkdir(parents=True, exist_ok=True)
        path = EVIDENCE / (self.id().replace("__main__.", "") + ".png")
        self.desktop.picture().save(path)
        print(f"picture: {path}")
        if self.window:
            print(f"the program said: {self.window.said()}")
            try:
                print(self.window.tree())
            except GLib.Error as error:
                print(f"no accessibility tree: {error}")


class Result(unittest.TextTestResult):
    def addError(self, test, error):
        super().addError(test, error)
        self.show(test)

    def addFailure(self, test, error):
        super().addFailure(test, error)
        self.show(test)

    def addSubTest(self, test, subtest, error):
        super().addSubTest(test, subtest, error)
        if error:
            self.show(test)

    def show(self, test):
        if isinstance(test, Journey) and test.desktop:
            test.keep_evidence()


def main():
    """Runs the tests of the program in a session of their own: nothing of the desktop, if any, that
    the tests are started on is used or disturbed."""
    if "KVPREFS_TEST_SESSION" not in os.environ:
        # The accessibility bus has its socket there; in a shared folder sessions take each other's.
        with tempfile.TemporaryDirectory(prefix="kvdesktop") as runtime:
            session = {**os.environ, "XDG_RUNTIME_DIR": runtime, "KVPREFS_TEST_SESSION": "yes"}
            session.pop("DISPLAY", None)
            sys.exit(subprocess.run(["dbus-run-session", "--", sys.executable, "-B", *sys.argv],
                                    env=session).returncode)
    launcher = subprocess.Popen([LAUNCHER, "--launch-immediately"], **QUIET)
    try:
        unittest.main(argv=[sys.argv[0], *sys.argv[3:]], testRunner=unittest.TextTestRunner(
            verbosity=2, resultclass=Result))
    finally:
        launcher.terminate()
        launcher.wait()
