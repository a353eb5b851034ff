"""The form of a window program at a scale factor, and the user's mouse and keyboard on it.

    def a_click_is_told(form):
        form.click((92, 52))
        form.expect("first clicked")

    work(a_click_is_told)
"""

import sys

from on_screen import Screen

READY = r"ready (\d+)"


class Form:
    """A running form. Places on it are in device-independent pixels."""

    def __init__(self, screen, program, scale, left=20, top=40):
        self.screen = screen
        self._scale = scale
        self.program = screen.start(program, left, top, QT_SCALE_FACTOR=str(scale))
        self.window = self.ready()

    def ready(self):
        return self.program.expect_match(READY).group(1)

    def move(self, place, window=None):
        self.screen.move(window or self.window, round(place[0] * self._scale), round(place[1] * self._scale))

    def click(self, place, button=1):
        self.move(place)
        self.screen.click(button)

    def press(self, place, button=1):
        self.move(place)
        self.screen.press(button)

    def release(self, place, button=1):
        self.move(place)
        self.screen.release(button)

    def key(self, *names):
        self.screen.key(*names)

    def expect(self, *lines):
        self.program.expect(*lines)


def program_and_scale():
    """What the command line names: the window program and, where it isn't 1, the scale factor."""
    return sys.argv[1], float(sys.argv[2]) if len(sys.argv) > 2 else 1.0


def work(*stories):
    """Each story in turn on one form. Each takes the form as the one before left it."""
    with Screen() as screen:
        form = Form(screen, *program_and_scale())
        for story in stories:
            story(form)
    print(f"{len(stories)} stories went as they should.")
