# SPDX-License-Identifier: MIT
"""Finds the tray icon in the panel's accessibility tree."""
import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

DEPTH, BREADTH = 24, 80
ROLES = ("button", "push button", "toggle button", "image", "icon", "panel", "filler", "menu item", "unknown")


def _children(node):
    for index in range(min(node.get_child_count(), BREADTH)):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child


def _walk(node, depth=DEPTH):
    yield node
    if depth:
        for child in _children(node):
            yield from _walk(child, depth - 1)


def _extents(node):
    # Called through the interface, because newer bindings name the node's method differently.
    box = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
    return box.x, box.y, box.width, box.height


def panel_nodes(panel):
    """The nodes of programs with that name that are small enough for a tray icon: (node, role, name,
    extents)."""
    found = []
    desktop = Atspi.get_desktop(0)
    for program in _children(desktop):
        try:
            if panel not in program.get_name():
                continue
            program.clear_cache()
            for node in _walk(program):
                found += _shown(node)
        except GLib.Error:
            continue  # the program has ended or is too busy to answer
    return found


def _shown(node):
    try:
        role, name = node.get_role_name(), node.get_name() or ""
        x, y, width, height = _extents(node)
    except GLib.Error:
        return []
    if role not in ROLES or not 8 <= width <= 96 or not 8 <= height <= 96 or x < 0 or y < 0:
        return []
    return [(node, role, name, (x, y, width, height))]


def find_icon(panel, before, names):
    """The box of the node named like the item, or else of a node that was not there @p before, or
    None. If there are several, the innermost counts."""
    nodes = panel_nodes(panel)
    named = [node for node in nodes if node[2].strip().lower() in names and "button" in node[1]]
    known = {node[0] for node in before}
    new = [node for node in nodes if node[0] not in known]
    buttons = [node for node in new if "button" in node[1]]
    for candidates in (named, buttons, new):
        if candidates:
            x, y, width, height = candidates[-1][3]
            return (x, y, x + width, y + height)
    return None
