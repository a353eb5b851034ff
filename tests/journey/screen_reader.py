"""Starts the screen reader with a voice that prints what it would say.

    screen_reader.py <folder for its settings>

The program's own start refuses where the user has one running already, be it on another screen."""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from orca import orca  # noqa: E402

SETTINGS = {
    "speechServerFactory": "written_voice",
    "enableBraille": False,
    "enableSound": False,
    # Which keys were pressed the journey knows by itself.
    "enableKeyEcho": False,
}

orca.getSettingsManager().activate(sys.argv[1], SETTINGS)
sys.exit(orca.main())
