"""The controls of a running program as a screen reader sees them."""

import functools

from desktop import wait_for


@functools.cache
def library():
    # Only now: the library connects to the desktop of the environment that it is first loaded in.
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi
    return Atspi


class Accessible:
    """One control. Found by its role and name, as a user of a screen reader tells it."""

    def __init__(self, node):
        self.node = node

    @property
    def name(self):
        return self.node.get_name()

    @property
    def role(self):
        return self.node.get_role_name()

    def states(self):
        states = library().StateType
        node_states = self.node.get_state_set()
        return {name for name in ("ENABLED", "SENSITIVE", "SELECTED", "CHECKED", "SHOWING", "VISIBLE",
                                  "FOCUSABLE", "PRESSED", "ACTIVE", "FOCUSED") if node_states.contains(getattr(states, name))}

    def children(self):
        found = []
        for place in range(self.node.get_child_count()):
            child = self.node.get_child_at_index(place)
            if child is not None:
                found.append(Accessible(child))
        return found

    def showing(self, but_not_in=()):
        """Itself and all below it that is on show, without what lies within controls of these roles. A control that
        is gone by the time it is asked is none."""
        return (node for node, _ in self._walk(but_not_in))

    def focused(self, but_not_in=()):
        """Those of the same that have the focus."""
        return [node for node, states in self._walk(but_not_in) if states.contains(library().StateType.FOCUSED)]

    def _walk(self, but_not_in):
        """Each question is a message to the program and back, and there are many controls: none is asked twice."""
        try:
            states = self.node.get_state_set()
            if not states.contains(library().StateType.SHOWING):
                return
            yield self, states
            children = self.children()
            if children and but_not_in and self.role in but_not_in:
                return
        except Exception:
            return
        for child in children:
            yield from child._walk(but_not_in)

    def is_showing(self):
        return self.node.get_state_set().contains(library().StateType.SHOWING)

    def all(self, role=None, name=None):
        return [node for node in self.showing()
                if (role is None or node.role == role) and (name is None or node.name == name)]

    def find(self, role, name, patience=10.0):
        return wait_for(f"a {role} named {name!r}", lambda: self.all(role, name), patience)[0]

    def middle(self):
        box = self.node.get_extents(library().CoordType.SCREEN)
        return box.x + box.width // 2, box.y + box.height // 2

    def box(self):
        box = self.node.get_extents(library().CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    def text(self):
        interface = self.node.get_text_iface()
        return interface.get_text(0, -1) if interface else ""

    def write(self, text):
        """Writes over all that is in it. False if it can't be written to."""
        interface = self.node.get_editable_text_iface()
        return interface is not None and interface.set_text_contents(text)

    def actions(self):
        interface = self.node.get_action_iface()
        return [interface.get_action_name(place) for place in range(interface.get_n_actions())] if interface else []

    def act(self, action="Press"):
        interface = self.node.get_action_iface()
        for place in range(interface.get_n_actions()):
            if interface.get_action_name(place) == action:
                interface.do_action(place)
                return
        raise AssertionError(f"{self.role} {self.name!r} has no action {action}")


def application(process_id, patience=30.0):
    """The program with this process number, once it is on the accessibility bus."""
    def look():
        desktop = library().get_desktop(0)
        for place in range(desktop.get_child_count()):
            node = desktop.get_child_at_index(place)
            try:
                if node is not None and node.get_process_id() == process_id:
                    # Always asked anew: what the library remembers is only brought up to date by a main loop.
                    node.set_cache_mask(library().Cache.NONE)
                    return Accessible(node)
            except Exception:
                continue
        return None
    return wait_for("the program on the accessibility bus", look, patience)
