# SPDX-License-Identifier: MIT
"""A GTK window from which a text, the program's only argument, can be dragged. Its title says what it
is doing."""
import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, GLib, Gtk  # noqa: E402

READY, ACCEPTED = "Drag from here", "Accepted"


def main():
    area = Gtk.EventBox()
    area.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], Gdk.DragAction.COPY)
    area.drag_source_add_text_targets()
    area.connect("drag-data-get", lambda _area, _drag, data, *_: data.set_text(sys.argv[1], -1))
    window = Gtk.Window(title=READY, default_width=200, default_height=100, accept_focus=False)
    window.add(area)

    def say_whether_accepted(drag):
        window.set_title(ACCEPTED if drag.get_selected_action() else READY)
        return GLib.SOURCE_CONTINUE

    area.connect("drag-begin", lambda _area, drag: GLib.timeout_add(20, say_whether_accepted, drag))
    window.show_all()
    window.move(0, 0)
    Gtk.main()


if __name__ == "__main__":
    main()
