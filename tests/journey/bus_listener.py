"""Prints a line for each change of state that a program tells of on the accessibility bus: the state, 1 or 0, the role
and the name of the control, separated by tabs. Ends with its standard input.

    bus_listener.py STATE ..."""

import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def tell(event):
    try:
        print(event.type.split(":")[-1], event.detail1, event.source.get_role_name(), event.source.get_name(), sep="\t",
              flush=True)
    except GLib.Error:  # Gone by the time it is asked.
        pass


listener = Atspi.EventListener.new(tell)
for state in sys.argv[1:]:
    listener.register(f"object:state-changed:{state}")
print("listening", flush=True)
GLib.io_add_watch(sys.stdin, GLib.IO_HUP | GLib.IO_IN, lambda *_: Atspi.event_quit() or False)
Atspi.event_main()
