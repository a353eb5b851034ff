"""What a screen reader says to a landlord on his whole way, from the first page to the last message.

spoken_journey.txt tells the keys that are pressed, a line for each step, and indented below it what is spoken then.
Words between quotation marks are typed; "until" presses the Tab key until the control of that name has the focus.
With WRENFIELD_SPOKEN=write what is spoken is written anew, to be read before it is kept."""

import os
import re
import subprocess
import sys
import threading
import time

from desktop import Key, wait_for
from journey import Journey, main

HERE = os.path.dirname(os.path.abspath(__file__))
INDENT = "    "
# How long nothing may be said until a step counts as told: where the words are known, and where they aren't.
QUIET_SECONDS = 0.4
LONG_QUIET_SECONDS = 2.0
LONGEST_STEP_SECONDS = 60
# The line of the step in which nothing is pressed, and what stands for each Tab key on the way to a control.
START = "(start)"
TAB = "(Tab)"


class Step:
    """The keys of one line, and what is to be spoken after them."""

    def __init__(self, line, number=0):
        self.line = line
        self.number = number
        self.spoken = []

    def __str__(self):
        return f"{self.line!r} in line {self.number}"

    def aim(self):
        """The name of the control that the Tab key is to lead to, if it is."""
        return self.line.removeprefix("until ") if self.line.startswith("until ") else None

    def strokes(self):
        """Nothing is pressed at the start."""
        if self.line == START:
            return []
        words = re.findall(r'"[^"]*"|\S+', self.line)
        return [word[1:-1] if word.startswith('"') else Key(word) for word in words]

    def spoken_by_tab(self):
        """What is to be spoken after each Tab key on the way."""
        ways = []
        for words in self.spoken:
            if words == TAB:
                ways.append([])
            else:
                ways[-1].append(words)
        return ways


def read(file):
    """The lines of the file: steps, and headings as they are."""
    lines = []
    with open(file) as text:
        for number, line in enumerate(text.read().splitlines(), 1):
            if line.startswith(INDENT):
                lines[-1].spoken.append(line[len(INDENT):])
            elif not line or line.startswith("#"):
                lines.append(line)
            else:
                lines.append(Step(line, number))
    return lines


def write(file, lines):
    with open(file, "w") as text:
        for line in lines:
            if isinstance(line, Step):
                text.write("\n".join([line.line, *(INDENT + words for words in line.spoken)]) + "\n")
            else:
                text.write(line + "\n")


class ScreenReader:
    def __init__(self, desktop):
        environment = {**desktop.environment, "GSETTINGS_BACKEND": "memory"}
        folder = os.path.join(desktop.folder, "screen-reader")
        self.process = desktop.start([sys.executable, "-B", os.path.join(HERE, "screen_reader.py"), folder],
                                     env=environment, stdout=subprocess.PIPE, text=True)
        self._told = []
        self._place = 0
        self._last = time.monotonic()
        threading.Thread(target=self._hear, daemon=True).start()

    def _hear(self):
        for line in self.process.stdout:
            self._last = time.monotonic()
            self._told.append(line.rstrip("\n"))

    def told(self):
        """What was said since the last step ended."""
        return self._told[self._place:]

    def begin_step(self):
        self._last = time.monotonic()

    def end_step(self):
        told = self.told()
        self._place += len(told)
        return told

    def is_quiet_for(self, seconds):
        return time.monotonic() - self._last > seconds


class Spoken(Journey):
    def setUp(self):
        self.reader = ScreenReader(self.desktop)
        wait_for("the screen reader", self.reader.told)

    def play(self, wizard, step):
        if step.aim() is None:
            self.press(step.strokes(), step.spoken, step)
            return
        for spoken in step.spoken_by_tab():
            self.press([Key("Tab")], spoken, step)
        self.assertEqual((wizard.focused() or ("", ""))[1], step.aim(), f"after {step}")

    def press(self, strokes, expected, step):
        """Gives the screen reader a long time to say just this."""
        # Which comes first at the start, the window or its page, is up to the window manager.
        in_order = sorted if step.line == START else list
        expected = in_order(expected)
        self.reader.begin_step()
        self.desktop.keys(*strokes)
        until = time.monotonic() + LONGEST_STEP_SECONDS
        while time.monotonic() < until:
            if in_order(self.reader.told()) == expected and self.reader.is_quiet_for(QUIET_SECONDS):
                break
            time.sleep(0.02)
        self.assertEqual(in_order(self.reader.told()), expected, f"after {step}")
        self.reader.end_step()

    def play_and_write(self, wizard, step):
        if step.aim() is None:
            step.spoken = self.listen(step.strokes())
            return
        step.spoken = []
        for _ in range(40):
            if (wizard.focused() or ("", ""))[1] == step.aim():
                return
            step.spoken += [TAB, *self.listen([Key("Tab")], at_least=1)]
        raise AssertionError(f"the Tab key never reaches {step.aim()!r}, but {step.spoken}")

    def listen(self, strokes, at_least=0):
        """What is said after these keys, whatever it is. Something is said of each control that Tab comes to."""
        self.reader.begin_step()
        self.desktop.keys(*strokes)
        wait_for("silence", lambda: len(self.reader.told()) >= at_least and
                 self.reader.is_quiet_for(LONG_QUIET_SECONDS))
        return self.reader.end_step()

    def test_a_landlord(self):
        file = os.path.join(HERE, "spoken_journey.txt")
        lines = read(file)
        play = self.play
        if os.environ.get("WRENFIELD_SPOKEN") == "write":
            play = self.play_and_write
            self.addCleanup(write, file, lines)
        self.reader.end_step()
        wizard = self.start()
        for line in lines:
            if isinstance(line, Step):
                play(wizard, line)
        self.assertEqual(wizard.wait_for_end(), 0)
        self.assertEqual(wizard.log(), [])


if __name__ == "__main__":
    main()
