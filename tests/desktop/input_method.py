# SPDX-License-Identifier: MIT
"""An input method, used by the toolkit's IBus plug-in through the IBus portal. It gets each key
before the program does, and learns where the caret is."""
import dbus
import dbus.service

SERVICE = "org.freedesktop.portal.IBus"
PATH = "/org/freedesktop/IBus"
CONTEXT_PATH = PATH + "/InputContext_1"
CONTEXT = "org.freedesktop.IBus.InputContext"
RELEASED = 1 << 30
# Makes the toolkit use it.
ENVIRONMENT = {"QT_IM_MODULE": "ibus", "IBUS_USE_PORTAL": "1"}
ESCAPE = 0xFF1B


def text(characters):
    """An IBusText, serialised."""
    nothing = dbus.Dictionary({}, signature="sv")
    attributes = dbus.Struct(("IBusAttrList", nothing, dbus.Array([], signature="v")),
                             signature="sa{sv}av")
    return dbus.Struct(("IBusText", nothing, characters, attributes), signature="sa{sv}sv",
                       variant_level=1)


class InputMethod(dbus.service.Object):
    """The portal's object. There is only one context, because there is only one program."""

    def __init__(self):
        self.bus = dbus.SessionBus()
        self.name = dbus.service.BusName(SERVICE, self.bus)
        super().__init__(self.bus, PATH)
        self.context = Context(self.bus)

    def vanish(self):
        self.context.remove_from_connection()
        self.remove_from_connection()
        self.bus.release_name(SERVICE)
        # While it lives, and the traceback of a failed test keeps this object alive, a new BusName does
        # not ask the bus again.
        del self.name

    @dbus.service.method("org.freedesktop.IBus.Portal", in_signature="s", out_signature="o")
    def CreateInputContext(self, _program):
        return CONTEXT_PATH


class Context(dbus.service.Object):
    """Composes a syllable from "s", like an engine for Korean: any other key ends the composition
    and is then passed on."""

    def __init__(self, bus):
        super().__init__(bus, CONTEXT_PATH)
        self.places = []
        self.preedit = ""

    @dbus.service.method(CONTEXT, in_signature="iiii")
    def SetCursorLocation(self, x, y, width, height):
        self.places.append((int(x), int(y), int(width), int(height)))

    @dbus.service.method(CONTEXT, in_signature="uuu", out_signature="b")
    def ProcessKeyEvent(self, key, _code, state):
        if state & RELEASED:
            return False
        if key == ord("s"):
            self.show("한")
            return True
        if self.preedit:
            self.CommitText(text(self.preedit))
            self.show("")
        return False

    def show(self, preedit):
        self.preedit = preedit
        self.UpdatePreeditText(text(preedit), len(preedit), bool(preedit))

    @dbus.service.method(CONTEXT)
    def FocusIn(self):
        pass

    @dbus.service.method(CONTEXT)
    def FocusOut(self):
        pass

    @dbus.service.method(CONTEXT)
    def Reset(self):
        self.preedit = ""

    @dbus.service.method(CONTEXT, in_signature="u")
    def SetCapabilities(self, _capabilities):
        pass

    @dbus.service.method(CONTEXT, in_signature="vuu")
    def SetSurroundingText(self, _text, _cursor, _anchor):
        pass

    @dbus.service.method("org.freedesktop.IBus.Service")
    def Destroy(self):
        pass

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ssv")
    def Set(self, _interface, _name, _value):
        pass

    @dbus.service.signal(CONTEXT, signature="v")
    def CommitText(self, committed):
        pass

    @dbus.service.signal(CONTEXT, signature="vub")
    def UpdatePreeditText(self, preedit, cursor, visible):
        pass
