"""A display that nobody sees, and the window manager on it."""

import os
import select
import subprocess
import time

LONGEST_WAIT_SECONDS = 30

# Alt+F4 closes a window, as everywhere. Without bindings for the mouse the window manager lets each press go straight
# to the program. It would otherwise hold a press back for a moment, and a move or a key that follows at once would
# overtake it.
WINDOW_MANAGER_SETTINGS = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
<keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
<mouse/>
</openbox_config>
"""


class NoScreen(AssertionError):
    """The display did not come up."""


def start_server(size, environment):
    """Starts Xvfb with a free number. Gives its process and the name of the display."""
    reading, writing = os.pipe()
    with os.fdopen(reading, "rb") as answer:
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset"],
            env=environment, pass_fds=[writing], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        os.close(writing)
        number = b""
        until = time.monotonic() + LONGEST_WAIT_SECONDS
        while not number.endswith(b"\n"):
            ready, _, _ = select.select([answer], [], [], max(0, until - time.monotonic()))
            part = os.read(answer.fileno(), 16) if ready else b""
            if not part:
                server.kill()
                server.wait()
                raise NoScreen("Xvfb did not start")
            number += part
    return server, f":{int(number)}"


def put_on_keys(names, environment):
    """Puts letters, by their names, on keys that nobody needs, so that they can be pressed like all others. One that no
    key has would be put on one for each press, and a program that is late to hear of that reads another letter."""
    keys = subprocess.run(["xmodmap", "-pke"], env=environment, check=True, stdout=subprocess.PIPE, text=True).stdout
    free = [line.split()[1] for line in keys.splitlines() if line.endswith("=") or "= XF86" in line]
    pairs = [" ".join(names[place:place + 2]) for place in range(0, len(names), 2)]
    command = ["xmodmap"]
    for key, pair in zip(free[:len(pairs)], pairs, strict=True):
        command += ["-e", f"keycode {key} = {pair}"]
    subprocess.run(command, env=environment, check=True)


def window_manager(folder):
    """The command that starts the window manager, with its settings in this folder. It says "managing" once it does."""
    settings = os.path.join(folder, "openbox.xml")
    with open(settings, "w", encoding="utf-8") as file:
        file.write(WINDOW_MANAGER_SETTINGS)
    return ["openbox", "--sm-disable", "--config-file", settings, "--startup", "echo managing"]
