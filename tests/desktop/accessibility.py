# SPDX-License-Identifier: MIT
"""The program's windows as a screen reader sees them."""
import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from desktop import wait_for  # noqa: E402


def nodes(root, found=None):
    found = [] if found is None else found
    if root is not None:
        found.append(root)
        for index in range(root.get_child_count()):
            nodes(root.get_child_at_index(index), found)
    return found


def windows():
    """All windows of the program."""
    root = Atspi.get_desktop(0)
    for index in range(root.get_child_count()):
        application = root.get_child_at_index(index)
        if application is not None and application.get_name() == "tovla":
            return [application.get_child_at_index(child)
                    for child in range(application.get_child_count())]
    return []


def find(name, role=None, fits=lambda node: True):
    """Waits for a node with this accessible name and, if given, this role, for which fits holds."""
    def search():
        try:
            for window in windows():
                for node in nodes(window):
                    if (node.get_name() == name and (role is None or node.get_role() == role)
                            and fits(node)):
                        return node
        except GLib.Error:
            pass  # it disappeared during the search
        return None

    return wait_for(search, f"{name!r} in the accessibility tree")


def press(name):
    """Presses a visible button as a screen reader's user would."""
    find(name, fits=is_pressable).get_action_iface().do_action(0)


def is_pressable(node):
    return node.get_action_iface() is not None and node.get_state_set().contains(Atspi.StateType.SHOWING)


def text_of(node):
    # Called through the interface: in newer bindings, methods of this name mean something else.
    text = node.get_text_iface()
    return Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text))


def width_of(node):
    """Of its text, which is on one line, in pixels."""
    text = node.get_text_iface()
    count = Atspi.Text.get_character_count(text)
    if count == 0:
        return 0
    first, last = (Atspi.Text.get_character_extents(text, offset, Atspi.CoordType.SCREEN)
                   for offset in (0, count - 1))
    return last.x + last.width - first.x


def focused_name():
    """The name of the node that has keyboard focus in the program."""
    try:
        return next((node.get_name() for window in windows() for node in nodes(window)
                     if is_focused(node) and node.get_name()), None)
    except GLib.Error:
        return None  # it disappeared during the search


def is_focused(node):
    return node.get_state_set().contains(Atspi.StateType.FOCUSED)
