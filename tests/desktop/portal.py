# SPDX-License-Identifier: MIT
"""A stand-in for the desktop's settings portal."""
import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop

SERVICE = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
SPACE = "org.freedesktop.appearance"


class Portal(dbus.service.Object):
    """A settings portal that can change its values or never answer."""

    def __init__(self, answers=True, **values):
        self.bus = dbus.SessionBus(mainloop=DBusGMainLoop())
        self.values = values
        self.answers = answers
        self.name = dbus.service.BusName(SERVICE, self.bus, do_not_queue=True)
        super().__init__(self.bus, PATH)

    def vanish(self):
        self.remove_from_connection()
        self.bus.release_name(SERVICE)
        del self.name

    @dbus.service.method(INTERFACE, in_signature="ss", out_signature="v",
                         async_callbacks=("answer", "fail"))
    def Read(self, space, key, answer, fail):
        if not self.answers:
            return
        if space == SPACE and key in self.values:
            answer(self.values[key])
        else:
            fail(dbus.DBusException("no such setting"))

    @dbus.service.signal(INTERFACE, signature="ssv")
    def SettingChanged(self, space, key, value):
        pass

    def change(self, key, value):
        self.values[key] = value
        self.SettingChanged(SPACE, key, value)


def scheme(number):
    """A variant inside a variant, which is what current portals return."""
    return dbus.UInt32(number, variant_level=1)
