# SPDX-License-Identifier: MIT
"""A StatusNotifier watcher and host, as a desktop's panel is one, that a test can look into."""
import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop

SERVICE = "org.kde.StatusNotifierWatcher"
PATH = "/StatusNotifierWatcher"
ITEM_PATH = "/StatusNotifierItem"
ITEM_INTERFACE = "org.kde.StatusNotifierItem"
MENU_PATH = "/MenuBar"
MENU_INTERFACE = "com.canonical.dbusmenu"
INTROSPECTION = f"""<node><interface name="{SERVICE}">
<method name="RegisterStatusNotifierItem"><arg direction="in" type="s"/></method>
<method name="RegisterStatusNotifierHost"><arg direction="in" type="s"/></method>
<signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
<signal name="StatusNotifierHostRegistered"/>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
</interface>
<interface name="org.freedesktop.DBus.Properties">
<method name="Get"><arg direction="in" type="s"/><arg direction="in" type="s"/>
<arg direction="out" type="v"/></method>
<method name="GetAll"><arg direction="in" type="s"/><arg direction="out" type="a{{sv}}"/></method>
</interface></node>"""


class TrayHost(dbus.service.Object):
    def __init__(self, has_host=True, address=None):
        """On the session bus, or on the one of that address."""
        loop = DBusGMainLoop()
        self.bus = (dbus.bus.BusConnection(address, mainloop=loop) if address
                    else dbus.SessionBus(mainloop=loop))
        self.has_host = has_host
        self.items = []
        self.appear()

    def appear(self):
        self.name = dbus.service.BusName(SERVICE, self.bus, do_not_queue=True)
        super().__init__(self.bus, PATH)

    def vanish(self):
        """As when a panel crashes."""
        self.remove_from_connection()
        self.bus.release_name(SERVICE)
        self.items.clear()
        del self.name

    @dbus.service.method(SERVICE, in_signature="s", sender_keyword="sender")
    def RegisterStatusNotifierItem(self, service, sender=None):
        self.items.append(sender)
        self.StatusNotifierItemRegistered(service)

    @dbus.service.method(SERVICE, in_signature="s")
    def RegisterStatusNotifierHost(self, _service):
        self.has_host = True
        self.StatusNotifierHostRegistered()

    @dbus.service.signal(SERVICE, signature="s")
    def StatusNotifierItemRegistered(self, service):
        pass

    @dbus.service.signal(SERVICE)
    def StatusNotifierHostRegistered(self):
        pass

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ss", out_signature="v")
    def Get(self, _interface, name):
        return self.GetAll(_interface)[name]

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="s",
                         out_signature="a{sv}")
    def GetAll(self, _interface):
        return {"RegisteredStatusNotifierItems": dbus.Array(self.items, signature="s"),
                "IsStatusNotifierHostRegistered": self.has_host,
                "ProtocolVersion": 0}

    @dbus.service.method("org.freedesktop.DBus.Introspectable", out_signature="s")
    def Introspect(self):
        return INTROSPECTION

    def item_of(self, pid):
        daemon = self.bus.get_object("org.freedesktop.DBus", "/org/freedesktop/DBus")
        for name in reversed(self.items):
            try:
                if daemon.GetConnectionUnixProcessID(name) == pid:
                    return TrayItem(self.bus, name)
            except dbus.DBusException:
                continue  # the item has gone meanwhile
        return None


class TrayItem:
    """What the host draws of an item, and what the user can do with it."""

    def __init__(self, bus, name):
        self.name = name
        self.item = bus.get_object(name, ITEM_PATH)
        self.menu = dbus.Interface(bus.get_object(name, MENU_PATH), MENU_INTERFACE)

    def property(self, name):
        return self.item.Get(ITEM_INTERFACE, name,
                             dbus_interface="org.freedesktop.DBus.Properties")

    def activate(self):
        """A left click."""
        self.item.Activate(0, 0, dbus_interface=ITEM_INTERFACE)

    def entries(self):
        _revision, (_root, _properties, children) = self.menu.GetLayout(0, -1, [])
        return [(int(number), dict(properties)) for number, properties, _ in children]

    def labels(self):
        """As a host shows them: a separator as None, a doubled underscore as one."""
        return [None if properties.get("type") == "separator" else shown(properties["label"])
                for _, properties in self.entries()]

    def click(self, label):
        for number, properties in self.entries():
            if shown(properties.get("label", "")) == label:
                if properties.get("enabled", True):
                    self.menu.Event(number, "clicked", dbus.String("", variant_level=1), 0)
                return
        raise AssertionError(f"no menu item {label!r} in {self.labels()}")


def shown(label):
    """The rule of com.canonical.dbusmenu: "__" shows one underscore, any other shows none."""
    return "_".join(part.replace("_", "") for part in label.split("__"))
