# SPDX-License-Identifier: MIT
"""Stands in for the portals that a user answers: the file chooser and the log-out inhibitor."""
import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop

from portal import PATH, SERVICE

REQUEST = "org.freedesktop.portal.Request"


class Request(dbus.service.Object):
    def __init__(self, bus, sender, options):
        path = f"{PATH}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        super().__init__(bus, path)
        self.path = dbus.ObjectPath(path)
        self.is_closed = False

    @dbus.service.method(REQUEST)
    def Close(self):
        self.is_closed = True

    @dbus.service.signal(REQUEST, signature="ua{sv}")
    def Response(self, response, results):
        pass


class RequestPortal(dbus.service.Object):
    """Keeps what it was asked: (method, arguments, options, request)."""

    def __init__(self):
        self.bus = dbus.SessionBus(mainloop=DBusGMainLoop())
        self.name = dbus.service.BusName(SERVICE, self.bus, do_not_queue=True)
        self.asked = []
        super().__init__(self.bus, PATH)

    def vanish(self):
        self.remove_from_connection()
        for *_, request in self.asked:
            request.remove_from_connection()
        self.bus.release_name(SERVICE)
        del self.name

    def take(self, method, arguments, options, sender):
        request = Request(self.bus, sender, options)
        self.asked.append((method, arguments, options, request))
        return request.path

    @dbus.service.method("org.freedesktop.portal.FileChooser", in_signature="ssa{sv}",
                         out_signature="o", sender_keyword="sender")
    def OpenFile(self, parent, title, options, sender=None):
        return self.take("OpenFile", (parent, title), options, sender)

    @dbus.service.method("org.freedesktop.portal.Inhibit", in_signature="sua{sv}",
                         out_signature="o", sender_keyword="sender")
    def Inhibit(self, window, flags, options, sender=None):
        return self.take("Inhibit", (window, flags), options, sender)


class SessionManager(dbus.service.Object):
    """The session manager of GNOME and its relatives: keeps (application, reason, flags) by cookie."""

    def __init__(self):
        self.bus = dbus.SessionBus(mainloop=DBusGMainLoop())
        self.name = dbus.service.BusName("org.gnome.SessionManager", self.bus, do_not_queue=True)
        self.held = {}
        self.cookies = 0
        super().__init__(self.bus, "/org/gnome/SessionManager")

    def vanish(self):
        self.remove_from_connection()
        self.bus.release_name("org.gnome.SessionManager")
        del self.name

    @dbus.service.method("org.gnome.SessionManager", in_signature="susu", out_signature="u")
    def Inhibit(self, application, window, reason, flags):
        self.cookies += 1
        self.held[self.cookies] = (str(application), str(reason), int(flags))
        return dbus.UInt32(self.cookies)

    @dbus.service.method("org.gnome.SessionManager", in_signature="u")
    def Uninhibit(self, cookie):
        del self.held[int(cookie)]
