# SPDX-License-Identifier: MIT
"""A window that grows while its program is not running."""
from Xlib import X
from Xlib.display import Display

from desktop import wait_for


def colours_of_growth(number, by):
    """Makes a window of a fixed size higher, and returns the colours of the part that is new."""
    display = Display()
    try:
        window = display.create_resource_object("window", number)
        window.delete_property(display.intern_atom("WM_NORMAL_HINTS"))
        before = window.get_geometry()
        window.configure(height=before.height + by)
        wait_for(lambda: window.get_geometry().height == before.height + by, "the window to grow")
        data = window.get_image(0, before.height, before.width, by, X.ZPixmap, 0xffffffff).data
        return {data[i:i + 4] for i in range(0, len(data), 4)}
    finally:
        display.close()
