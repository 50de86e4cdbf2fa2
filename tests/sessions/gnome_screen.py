# SPDX-License-Identifier: MIT
"""Screenshots, pointer and keys for GNOME Shell without a screen, through the shell itself, which
runs in unsafe mode for this."""
import json
import os
import tempfile

import dbus
from PIL import Image

from report import NotRun

DEVICES = """
const Clutter = imports.gi.Clutter;
const seat = Clutter.get_default_backend().get_default_seat();
if (!global.tovlaPointer) {
    global.tovlaPointer = seat.create_virtual_device(Clutter.InputDeviceType.POINTER_DEVICE);
    global.tovlaKeys = seat.create_virtual_device(Clutter.InputDeviceType.KEYBOARD_DEVICE);
    global.tovlaFinger = seat.create_virtual_device(Clutter.InputDeviceType.TOUCHSCREEN_DEVICE);
}
const now = () => imports.gi.GLib.get_monotonic_time();
"""
KEYS = {"Control": 0xFFE3, "Shift": 0xFFE1, "Alt": 0xFFE9, "Return": 0xFF0D, "Escape": 0xFF1B,
        "Down": 0xFF54, "Tab": 0xFF09}


class GnomeScreen:
    def __init__(self):
        self.bus = dbus.SessionBus()

    def evaluate(self, script):
        """The value of the script's last expression, which must be representable in JSON."""
        shell = self.bus.get_object("org.gnome.Shell", "/org/gnome/Shell", introspect=False)
        done, answer = shell.Eval(script, dbus_interface="org.gnome.Shell")
        if not done:
            raise RuntimeError(f"GNOME Shell: {answer}")
        return json.loads(answer) if answer else None

    def picture(self):
        path = os.path.join(tempfile.mkdtemp(), "picture.png")
        shell = self.bus.get_object("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot",
                                    introspect=False)
        shell.Screenshot(False, False, path, dbus_interface="org.gnome.Shell.Screenshot")
        return Image.open(path).convert("RGB")

    def move(self, x, y):
        self.evaluate(f"{DEVICES} global.tovlaPointer.notify_absolute_motion(now(), {x}, {y}); 0")

    def click(self, x, y, button=1):
        self.move(x - 2, y - 2)
        self.move(x, y)
        for state in ("PRESSED", "RELEASED"):
            self.evaluate(f"{DEVICES} global.tovlaPointer.notify_button(now(), "
                          f"{ {1: 1, 3: 3}[button]}, Clutter.ButtonState.{state}); 0")

    def drag_with_finger(self, start, end):
        steps = 12
        self._touch("down", *start)
        for step in range(1, steps + 1):
            self._touch("motion", *(round(a + (b - a) * step / steps) for a, b in zip(start, end)))
        self._touch("up")

    def press(self, keys):
        values = [KEYS[key] if key in KEYS else ord(key) for key in keys.split("+")]
        for value in values:
            self._notify(value, "PRESSED")
        for value in reversed(values):
            self._notify(value, "RELEASED")

    def type(self, text):
        for letter in text:
            self.press(letter)

    def set_scale(self, factor):
        display = dbus.Interface(
            self.bus.get_object("org.gnome.Mutter.DisplayConfig", "/org/gnome/Mutter/DisplayConfig",
                                introspect=False), "org.gnome.Mutter.DisplayConfig")
        serial, [(names, modes, _)], _, _ = display.GetCurrentState()
        mode = next(mode for mode in modes if mode[6].get("is-current"))
        scale = min(mode[5], key=lambda offered: abs(offered - factor))
        if abs(scale - factor) > 0.05:
            raise NotRun(f"this screen offers no such scale: {[round(each, 2) for each in mode[5]]}")
        only = dbus.Struct((0, 0, scale, dbus.UInt32(0), True, [(names[0], mode[0], {})]),
                           signature="iiduba(ssa{sv})")
        temporarily = dbus.UInt32(1)
        display.ApplyMonitorsConfig(serial, temporarily, dbus.Array([only], "(iiduba(ssa{sv}))"),
                                    dbus.Dictionary({}, "sv"))

    def _touch(self, what, *place):
        finger = 0
        arguments = ", ".join(str(number) for number in (finger, *place))
        self.evaluate(f"{DEVICES} global.tovlaFinger.notify_touch_{what}(now(), {arguments}); 0")

    def _notify(self, value, state):
        self.evaluate(f"{DEVICES} global.tovlaKeys.notify_keyval(now(), {value}, "
                      f"Clutter.KeyState.{state}); 0")
