# SPDX-License-Identifier: MIT
"""Stands in for a desktop's settings daemon (freedesktop.org, XSETTINGS)."""
import struct

from Xlib import X
from Xlib.display import Display
from Xlib.protocol.event import ClientMessage

STANDARD_DPI = 96 * 1024  # of the setting Xft/DPI, in 1/1024 of a dot per inch


def padded(data):
    return data + b"\0" * (-len(data) % 4)


def encoded(values, serials, serial):
    entries = b""
    for name, value in values.items():
        is_text = isinstance(value, str)
        entries += struct.pack("<BBH", int(is_text), 0, len(name)) + padded(name.encode())
        entries += struct.pack("<I", serials[name])
        if is_text:
            entries += struct.pack("<I", len(value.encode())) + padded(value.encode())
        else:
            entries += struct.pack("<i", value)
    return struct.pack("<BxxxII", 0, serial, len(values)) + entries


class SettingsDaemon:
    def __init__(self, **values):
        self.display = Display()
        self.values, self.serials, self.serial = {}, {}, 0
        root = self.display.screen().root
        self.window = root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.publish(**values)
        selection = self.display.intern_atom("_XSETTINGS_S0")
        self.window.set_selection_owner(selection, X.CurrentTime)
        manager = ClientMessage(window=root, client_type=self.display.intern_atom("MANAGER"),
                                data=(32, (X.CurrentTime, selection, self.window.id, 0, 0)))
        root.send_event(manager, event_mask=X.StructureNotifyMask)
        self.display.sync()

    def publish(self, **values):
        """Names are given with an underscore for the slash."""
        named = {name.replace("_", "/", 1): value for name, value in values.items()}
        # The toolkit ignores a value whose serial is not higher than before.
        self.serial += 1
        for name, value in named.items():
            if self.values.get(name) != value:
                self.serials[name] = self.serial
        self.values = named
        self.window.change_property(self.display.intern_atom("_XSETTINGS_SETTINGS"),
                                    self.display.intern_atom("_XSETTINGS_SETTINGS"), 8,
                                    encoded(named, self.serials, self.serial))
        self.display.sync()

    def close(self):
        self.display.close()
