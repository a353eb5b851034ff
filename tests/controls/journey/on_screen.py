"""A screen of its own (Xvfb with a window manager), programs on it, and the user's mouse.

Nothing here waits for a fixed time: programs say on their output what happens, and that is waited for.

    with Screen() as screen:
        program = screen.start("build/release/bin/button_window")
        window = program.expect_match("ready (\\d+)").group(1)
        screen.move(window, 92, 52)
        program.expect("first state 1")
"""

import os
import queue
import re
import signal
import subprocess
import sys
import tempfile
import threading
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "..", "support"))
import virtual_screen  # noqa: E402

# Somewhat more than the toolkit takes for one.
DOUBLE_CLICK_SECONDS = 0.5
DEAD_KEYS = ["dead_acute", "dead_diaeresis"]

LONGEST_WAIT_SECONDS = virtual_screen.LONGEST_WAIT_SECONDS


class Missed(AssertionError):
    """What was waited for did not come, or something else came first."""


class Program:
    """A program on the screen, and the lines that it prints one by one."""

    def __init__(self, command, environment):
        self.command = [str(part) for part in command]
        self._process = subprocess.Popen(self.command, env=environment, stdout=subprocess.PIPE,
                                         stdin=subprocess.DEVNULL, text=True)
        self._lines = queue.Queue()
        self._seen = []
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()

    def _read(self):
        for line in self._process.stdout:
            self._lines.put(line.rstrip("\n"))
        self._lines.put(None)

    def _next(self, wanted):
        try:
            line = self._lines.get(timeout=LONGEST_WAIT_SECONDS)
        except queue.Empty:
            raise Missed(self._story(wanted, "nothing more came")) from None
        if line is None:
            raise Missed(self._story(wanted, f"the program ended with {self._process.wait()}"))
        self._seen.append(line)
        return line

    def _story(self, wanted, problem):
        lines = "\n".join(f"    {line}" for line in self._seen[-20:])
        return f"{self.command[0]}: waited for '{wanted}', but {problem}. So far:\n{lines}"

    def expect(self, *wanted):
        """The next lines are these, with none in between."""
        for each in wanted:
            line = self._next(each)
            if line != each:
                raise Missed(self._story(each, f"'{line}' came"))

    def expect_match(self, pattern):
        """The next line is as the pattern says. Gives the match."""
        line = self._next(pattern)
        match = re.fullmatch(pattern, line)
        if not match:
            raise Missed(self._story(pattern, f"'{line}' came"))
        return match

    def expect_together(self, *patterns):
        """The next lines are as these patterns say, one for each, in any order: what the window manager and the
        program do at the same time. Gives the matches in the order of the patterns."""
        lines = [self._next(" and ".join(patterns)) for _ in patterns]
        matches = []
        for pattern in patterns:
            found = next((line for line in lines if re.fullmatch(pattern, line)), None)
            if found is None:
                raise Missed(self._story(pattern, f"{lines} came"))
            lines.remove(found)
            matches.append(re.fullmatch(pattern, found))
        return matches

    def wait_for(self, wanted):
        """This line comes, whatever comes before it."""
        while self._next(wanted) != wanted:
            pass

    def pause(self):
        """Stops the program where it is, as one that is busy with a long task."""
        self._process.send_signal(signal.SIGSTOP)

    def go_on(self):
        self._process.send_signal(signal.SIGCONT)

    def end(self):
        if self._process.poll() is None:
            self.go_on()
            self._process.terminate()
            try:
                self._process.wait(timeout=LONGEST_WAIT_SECONDS)
            except subprocess.TimeoutExpired:
                self._process.kill()
        self._process.wait()
        self._reader.join()
        self._process.stdout.close()


class Screen:
    """Its own display with a free number, a window manager, and an empty home for both."""

    def __init__(self, width=1280, height=800):
        self._size = f"{width}x{height}"
        self._programs = []
        self._server = None
        self._place = None
        self._last_click = (None, 0.0)
        self._home = tempfile.TemporaryDirectory(prefix="on_screen")

    def __enter__(self):
        try:
            self._environment = self._plain_environment()
            self._server, self._environment["DISPLAY"] = virtual_screen.start_server(self._size, self._environment)
            virtual_screen.put_on_keys(DEAD_KEYS, self._environment)
            self.start(*virtual_screen.window_manager(self._home.name)).wait_for("managing")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for program in reversed(self._programs):
            program.end()
        if self._server is not None:
            self._server.terminate()
            self._server.wait()
        self._home.cleanup()

    def _plain_environment(self):
        kept = {name: os.environ[name] for name in ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
                if name in os.environ}
        return {**kept, "HOME": self._home.name, "XDG_RUNTIME_DIR": self._home.name,
                "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "xcb", "NO_AT_BRIDGE": "1"}

    def start(self, *command, **environment):
        """Starts a program on this screen."""
        program = Program(command, {**self._environment, **environment})
        self._programs.append(program)
        return program

    def _xdotool(self, *command):
        subprocess.run(["xdotool", *[str(part) for part in command]], env=self._environment, check=True,
                       timeout=LONGEST_WAIT_SECONDS)

    def move(self, window, x, y):
        """Moves the mouse to a device pixel of a window, which may lie outside of it."""
        self._xdotool("mousemove", "--window", window, x, y)
        self._place = window, x, y

    def move_to_desktop(self, x, y):
        self._xdotool("mousemove", x, y)
        self._place = None, x, y

    def press(self, button=1):
        self._xdotool("mousedown", button)

    def release(self, button=1):
        self._xdotool("mouseup", button)

    def click(self, button=1):
        """Presses and lets go of a button where the mouse is. However fast they come, two are no double click."""
        place, moment = self._last_click
        if place == (self._place, button) and button <= 3:
            time.sleep(max(0, moment + DOUBLE_CLICK_SECONDS - time.monotonic()))
        self._xdotool("click", button)
        self._last_click = (self._place, button), time.monotonic()

    def double_click(self):
        self._xdotool("click", "--repeat", 2, "--delay", 10, 1)

    def key(self, *names):
        """Types keys, named as in "Return" or "shift+Tab", one by one into what has the focus."""
        self._xdotool("key", *names)
