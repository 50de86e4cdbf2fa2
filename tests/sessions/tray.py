# SPDX-License-Identifier: MIT
"""The tray item as seen on the bus, and the panel's calls to it."""
import dbus
import dbus.lowlevel
from dbus.mainloop.glib import DBusGMainLoop

from waiting import comes

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
PROPERTIES = "org.freedesktop.DBus.Properties"

DBusGMainLoop(set_as_default=True)


class Tray:
    def __init__(self):
        self.bus = dbus.SessionBus()

    def _watcher_property(self, name):
        if not self.bus.name_has_owner(WATCHER):
            return None
        watcher = self.bus.get_object(WATCHER, "/StatusNotifierWatcher", introspect=False)
        return watcher.Get(WATCHER, name, dbus_interface=PROPERTIES)

    def has_host(self):
        try:
            return bool(self._watcher_property("IsStatusNotifierHostRegistered"))
        except dbus.DBusException:
            return False

    def item(self, program="tovla"):
        """The properties of the tray item of the running program with that name, or None."""
        for name in self._watcher_property("RegisteredStatusNotifierItems") or []:
            # GNOME's extension writes an "@" between the two.
            service, slash, path = str(name).replace("@", "").partition("/")
            try:
                if self._program(service) == program:
                    return self._properties(service, slash + path or "/StatusNotifierItem")
            except (dbus.DBusException, OSError):
                continue  # it has disappeared in the meantime
        return None

    def _program(self, service):
        daemon = self.bus.get_object("org.freedesktop.DBus", "/org/freedesktop/DBus")
        process = daemon.GetConnectionUnixProcessID(service,
                                                    dbus_interface="org.freedesktop.DBus")
        with open(f"/proc/{process}/comm", encoding="utf-8") as name:
            return name.read().strip()

    def _properties(self, service, path):
        item = self.bus.get_object(service, path, introspect=False)
        return dict(item.GetAll(ITEM, dbus_interface=PROPERTIES))


def described(item):
    """A short text for each property; for pixmaps, their sizes."""
    def say(name, value):
        if name.endswith("Pixmap"):
            return ", ".join(f"{width}×{height}" for width, height, _ in value) or "none"
        if name == "ToolTip":
            return f"“{value[2]}” “{value[3]}”"
        return str(bool(value)) if isinstance(value, dbus.Boolean) else f"“{value}”"

    return {str(name): say(str(name), value) for name, value in sorted(item.items())}


class Listener:
    """Records the panel's calls to the item and its menu, which show who draws the menu."""

    def __init__(self):
        self.calls = []
        self.connection = dbus.bus.BusConnection(dbus.bus.BusConnection.TYPE_SESSION)
        self.connection.add_message_filter(self._hear)
        daemon = self.connection.get_object("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                            introspect=False)
        rules = [f"type='method_call',interface='{name}'" for name in (ITEM, MENU)]
        daemon.BecomeMonitor(dbus.Array(rules, signature="s"), dbus.UInt32(0),
                             dbus_interface="org.freedesktop.DBus.Monitoring")

    def _hear(self, _connection, message):
        if isinstance(message, dbus.lowlevel.MethodCallMessage):
            arguments = message.get_args_list()
            name = message.get_member()
            if name == "Event":
                name = f"Event {arguments[1]}"
            elif name in ("Activate", "ContextMenu", "SecondaryActivate"):
                name = f"{name}({', '.join(str(int(value)) for value in arguments[:2])})"
            self.calls.append(name)
        return dbus.lowlevel.HANDLER_RESULT_HANDLED  # a monitor must not answer

    def heard(self):
        """The calls since the last time, without repetitions, in the order of their first use."""
        comes(lambda: self.calls, 1)
        calls, self.calls = list(dict.fromkeys(self.calls)), []
        return calls
