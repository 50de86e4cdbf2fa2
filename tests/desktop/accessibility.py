# SPDX-License-Identifier: MIT
"""The program's windows as a screen reader finds them."""
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
    """Every window of the program."""
    root = Atspi.get_desktop(0)
    for index in range(root.get_child_count()):
        application = root.get_child_at_index(index)
        if application is not None and application.get_name() == "tovla":
            return [application.get_child_at_index(child)
                    for child in range(application.get_child_count())]
    return []


def find(name, role=None, fits=lambda node: True):
    """Waits for what has this accessible name, this role if one is given, and fits."""
    def search():
        try:
            for window in windows():
                for node in nodes(window):
                    if (node.get_name() == name and (role is None or node.get_role() == role)
                            and fits(node)):
                        return node
        except GLib.Error:
            pass  # it went away while we were looking
        return None

    return wait_for(search, f"{name!r} in the accessibility tree")


def press(name):
    """Does what a screen reader's user does to a button that is shown."""
    find(name, fits=is_pressable).get_action_iface().do_action(0)


def is_pressable(node):
    return node.get_action_iface() is not None and node.get_state_set().contains(Atspi.StateType.SHOWING)


def text_of(node):
    # Called through the interface, as newer bindings bind methods of that name to something else.
    text = node.get_text_iface()
    return Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text))


def focused_name():
    """Of what has the keyboard's focus in the program."""
    try:
        return next((node.get_name() for window in windows() for node in nodes(window)
                     if is_focused(node) and node.get_name()), None)
    except GLib.Error:
        return None  # it went away while we were looking


def is_focused(node):
    return node.get_state_set().contains(Atspi.StateType.FOCUSED)
