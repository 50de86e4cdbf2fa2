# SPDX-License-Identifier: MIT
"""A StatusNotifier watcher and host, like a desktop's panel, that a test can inspect.

It is as strict as panels are: it accepts an item only once and only from the program that owns it,
reads only properties listed by introspection, and shows no menu that lacks required properties.
"""
import xml.etree.ElementTree as ElementTree

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
    def __init__(self, has_host=True, address=None, replaces=False, is_strict=True):
        """Runs on the session bus or the bus at @p address, and may take over the name."""
        self.is_strict = is_strict
        loop = DBusGMainLoop()
        self.bus = (dbus.bus.BusConnection(address, mainloop=loop) if address
                    else dbus.SessionBus(mainloop=loop))
        self.has_host = has_host
        self.answers = True
        self.unanswered = []
        self.items = []
        self.bus.add_signal_receiver(self._owner_changed, "NameOwnerChanged",
                                     dbus_interface="org.freedesktop.DBus")
        self.appear(replaces)

    def appear(self, replaces=False):
        self.name = dbus.service.BusName(SERVICE, self.bus, do_not_queue=True,
                                         allow_replacement=True, replace_existing=replaces)
        super().__init__(self.bus, PATH)

    def vanish(self):
        """Disappears like a panel that crashes."""
        self.remove_from_connection()
        self.bus.release_name(SERVICE)
        self.items.clear()
        del self.name

    @dbus.service.method(SERVICE, in_signature="s", sender_keyword="sender")
    def RegisterStatusNotifierItem(self, service, sender=None):
        if service != sender and self.bus.get_name_owner(service) != sender:
            raise dbus.DBusException(f"{sender} offers the item of {service}")
        if service not in self.items:
            self.items.append(service)
            self.StatusNotifierItemRegistered(service)

    def _owner_changed(self, name, _old_owner, new_owner):
        """Like Cinnamon's watcher, goes by how the names begin."""
        if not new_owner:
            self.items = [item for item in self.items if not item.startswith(name)]

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

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ss", out_signature="v",
                         async_callbacks=("answer", "refuse"))
    def Get(self, _interface, name, answer, refuse):
        del refuse
        if self.answers:
            answer(self.GetAll(_interface)[name])
        else:
            self.unanswered.append(answer)

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
                    return TrayItem(self.bus, name, daemon.GetNameOwner(name), self.is_strict)
            except dbus.DBusException:
                continue  # the item has disappeared in the meantime
        return None


class TrayItem:
    """What the host shows of an item, and what the user can do with it."""

    def __init__(self, bus, name, owner, is_strict):
        self.name = name
        # Unlike the name, not the same once the program has started itself anew.
        self.owner = owner
        self.bus = bus
        self.item = bus.get_object(name, ITEM_PATH)
        menu = bus.get_object(name, MENU_PATH)
        if is_strict:
            self.check(menu)
        self.menu = dbus.Interface(menu, MENU_INTERFACE)
        self.updates = []
        self.menu.connect_to_signal("ItemsPropertiesUpdated",
                                    lambda updated, _removed: self.updates.extend(updated))

    def check(self, menu):
        assert self.property("Menu") == MENU_PATH
        assert properties_of(menu, MENU_INTERFACE).keys() >= {"Version", "TextDirection", "Status"}
        assert members_of(menu, MENU_INTERFACE) >= {
            "GetLayout", "GetGroupProperties", "GetProperty", "Event", "EventGroup", "AboutToShow",
            "AboutToShowGroup", "ItemsPropertiesUpdated", "LayoutUpdated"}
        assert members_of(self.item, ITEM_INTERFACE) >= {
            "Activate", "ContextMenu", "SecondaryActivate", "Scroll", "ProvideXdgActivationToken",
            "NewTitle", "NewIcon", "NewToolTip", "NewStatus"}

    def property(self, name):
        return properties_of(self.item, ITEM_INTERFACE)[name]

    def left_click(self, x=0, y=0):
        """What a host does if the item is not just a menu. Does not wait for the reply."""
        self.item.Activate(x, y, dbus_interface=ITEM_INTERFACE, reply_handler=lambda: None,
                           error_handler=lambda _error: None)

    def entries(self):
        self.menu.AboutToShow(0)
        _revision, (_root, _properties, children) = self.menu.GetLayout(0, -1, [])
        return [(int(number), dict(properties)) for number, properties, _ in children]

    def labels(self):
        """The labels as a host shows them: None for a separator, one underscore for two."""
        return [None if properties.get("type") == "separator" else shown(properties["label"])
                for _, properties in self.entries()]

    def click(self, label):
        for number, properties in self.entries():
            if shown(properties.get("label", "")) == label:
                if properties.get("enabled", True):
                    self.menu.Event(number, "clicked", dbus.String("", variant_level=1), 0)
                return
        raise AssertionError(f"no menu item {label!r} in {self.labels()}")


def members_of(remote, interface, kind="*"):
    description = ElementTree.fromstring(
        remote.Introspect(dbus_interface="org.freedesktop.DBus.Introspectable"))
    return {each.get("name")
            for each in description.findall(f"./interface[@name='{interface}']/{kind}")}


def properties_of(remote, interface):
    """The properties that introspection lists. The program must provide every one of them."""
    listed = members_of(remote, interface, "property")
    values = remote.GetAll(interface, dbus_interface="org.freedesktop.DBus.Properties")
    assert listed == values.keys(), (listed, values.keys())
    return values


def shown(label):
    """The rule of com.canonical.dbusmenu: "__" is shown as one underscore, a single one is hidden."""
    return "_".join(part.replace("_", "") for part in label.split("__"))
