"""A desktop of its own for one journey: a screen, a window manager, a session bus and the accessibility bus, real keys
and real clicks. Nothing of the desktop that the test is started on is touched."""

import os
import shutil
import signal
import subprocess
import tempfile
import time

PATIENCE = 30.0


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


class Desktop:
    def __init__(self, width=1280, height=900, locale="C.UTF-8"):
        self.folder = tempfile.mkdtemp(prefix="wrenfield-desktop-")
        self.processes = []
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
        read, write = os.pipe()
        self._start(["Xvfb", "-displayfd", str(write), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp",
                     "-noreset"], pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as number:
            self.environment["DISPLAY"] = ":" + number.readline().strip()

    def _start_bus(self):
        process = self._start(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = process.stdout.readline().decode().strip()

    def _start_window_manager(self):
        self._start(["openbox", "--sm-disable"])
        wait_for("the window manager", lambda: "window id" in self.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], check=False))

    def _start(self, command, **options):
        process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL,
                                   **{"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, **options})
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
        self.run(["xdotool", "type", "--delay", "2", "--", text])

    def press(self, *keys):
        self.run(["xdotool", "key", "--delay", "2", "--", *keys])

    def click(self, x, y, button=1):
        self.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)])

    def picture(self, file, window=None):
        """Writes what is on the screen, or one window of it, into a picture."""
        self.run(["import", "-window", window or "root", file])

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
