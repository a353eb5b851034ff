"""A desktop of its own for one journey: a screen, a window manager, a session bus and the accessibility bus, real keys
and real clicks. Nothing of the desktop that the test is started on is touched."""

import os
import shutil
import signal
import subprocess
import tempfile
import sys
import time

import cursor

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
import virtual_screen  # noqa: E402

PATIENCE = 30.0
# Somewhat more than the toolkit takes for one.
DOUBLE_CLICK_SECONDS = 0.5
LETTERS = "āĀēĒīĪōŌūŪäÄöÖüÜßẞéÉèÈêÊëËñÑçÇáÁíÍóÓúÚåÅøØæÆïÏôÔîÎûÛãÃõÕłŁšŠžŽ"


def wait_for(what, condition, patience=PATIENCE):
    """Looks again and again until the condition gives something, and returns that."""
    deadline = time.monotonic() + patience
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > deadline:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.01)


class Key:
    """A key by its name, as in "Tab" or "shift+Tab"."""

    def __init__(self, name):
        self.name = name


class Desktop:
    def __init__(self, width=1280, height=900, locale="C.UTF-8"):
        self.folder = tempfile.mkdtemp(prefix="wrenfield-desktop-")
        self.processes = []
        self._last_click = (None, 0.0)
        self.environment = {
            **os.environ,
            "HOME": self.folder,
            "XDG_CONFIG_HOME": os.path.join(self.folder, "config"),
            "XDG_CONFIG_DIRS": os.path.join(self.folder, "etc"),
            "XDG_RUNTIME_DIR": os.path.join(self.folder, "run"),
            "LC_ALL": locale,
            "QT_QPA_PLATFORM": "xcb",
            "QT_STYLE_OVERRIDE": "Fusion",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        }
        self.environment.pop("WAYLAND_DISPLAY", None)
        os.makedirs(self.environment["XDG_RUNTIME_DIR"], mode=0o700)
        try:
            self._start_screen(width, height)
            virtual_screen.put_on_keys([f"U{ord(letter):04X}" for letter in LETTERS], self.environment)
            self._start_bus()
            self._start_window_manager()
        except BaseException:
            self.close()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *failure):
        self.close()

    def _start_screen(self, width, height):
        server, self.environment["DISPLAY"] = virtual_screen.start_server(f"{width}x{height}", self.environment)
        self.processes.append(server)

    def _start_bus(self):
        process = self._start(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = process.stdout.readline().decode().strip()

    def _start_window_manager(self):
        manager = self._start(virtual_screen.window_manager(self.folder), stdout=subprocess.PIPE)
        if b"managing\n" not in iter(manager.stdout.readline, b""):
            raise AssertionError("the window manager did not start")

    def _start(self, command, **options):
        process = subprocess.Popen(command, **{"env": self.environment, "stdin": subprocess.DEVNULL,
                                               "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, **options})
        self.processes.append(process)
        return process

    def start(self, command, **options):
        """Starts a program on this desktop."""
        return self._start(command, **options)

    def run(self, command, check=True):
        """Runs a program on this desktop to its end and returns what it printed."""
        return subprocess.run(command, env=self.environment, check=check, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE).stdout.decode()

    def use_in_this_process(self):
        """The accessibility library takes the desktop from the environment of the process that asks."""
        os.environ.update(self.environment)

    def type(self, text):
        self.keys(text)

    def press(self, *names):
        self.keys(*[Key(name) for name in names])

    def keys(self, *strokes):
        """Texts to be typed, and keys by their names, one after the other without a pause."""
        command = ["xdotool"]
        for stroke in strokes:
            if isinstance(stroke, Key):
                command += ["key", "--delay", "2", stroke.name]
            elif stroke:
                missing = {letter for letter in stroke if not letter.isascii()} - set(LETTERS)
                if missing:
                    raise ValueError(f"no key has {missing}; add them to the letters")
                command += ["type", "--delay", "2", "--args", "1", "--", stroke]
        if len(command) > 1:
            self.run(command)

    def move(self, x, y):
        self.run(["xdotool", "mousemove", str(x), str(y)])

    def cursor(self):
        """The mouse pointer as it is now."""
        return cursor.on_screen(self.environment["DISPLAY"])

    def click(self, x, y, button=1):
        """However fast they come, two at one place are no double click."""
        place, moment = self._last_click
        if place == (x, y, button):
            time.sleep(max(0, moment + DOUBLE_CLICK_SECONDS - time.monotonic()))
        self.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)])
        self._last_click = (x, y, button), time.monotonic()

    def double_click(self, x, y):
        self.run(["xdotool", "mousemove", str(x), str(y), "click", "--repeat", "2", "--delay", "10", "1"])

    def picture(self, file, window=None):
        """Writes what is on the screen, or one window of it, into a picture."""
        self.run(["import", "-window", window or "root", file])

    def settle(self, pause=0.0):
        """Waits until the screen stands still, for so many seconds."""
        def picture(before=0.0):
            time.sleep(before)
            return subprocess.run(["import", "-window", "root", "rgb:-"], env=self.environment, check=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
        wait_for("the screen to stand still", lambda: picture() == picture(pause))

    def close(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.send_signal(signal.SIGTERM)
        for process in reversed(self.processes):
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)
