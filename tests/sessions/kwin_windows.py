# SPDX-License-Identifier: MIT
"""The windows of a Plasma session, as listed by a script in KWin."""
import json
import tempfile

import dbus
import dbus.service

from waiting import wait_for
from windows import Window

NAME = "org.tovla.Checks"
SCRIPT = """
const list = workspace.stackingOrder || workspace.clientList();
const active = workspace.activeWindow === undefined ? workspace.activeClient : workspace.activeWindow;
callDBus("org.tovla.Checks", "/", "org.tovla.Checks", "Answer", JSON.stringify(list.map(w => ({
    title: w.caption, program: String(w.resourceClass),
    box: [w.frameGeometry.x, w.frameGeometry.y, w.frameGeometry.width, w.frameGeometry.height],
    active: w === active, above: w.keepAbove, in_taskbar: !w.skipTaskbar,
    kind: w.dialog ? "dialog" : w.utility ? "utility" : w.popupWindow ? "popup" :
        w.normalWindow ? "normal" : w.dock ? "dock" : "",
    minimizable: w.minimizable, maximizable: w.maximizable, resizable: w.resizeable}))));
"""


class KWinWindows(dbus.service.Object):
    def __init__(self):
        self.bus = dbus.SessionBus()
        super().__init__(dbus.service.BusName(NAME, self.bus), "/")
        self.answer = None
        with tempfile.NamedTemporaryFile("w", suffix=".js", delete=False) as script:
            script.write(SCRIPT)
        self.path = script.name

    @dbus.service.method(NAME, in_signature="s")
    def Answer(self, windows):
        self.answer = windows

    def windows(self):
        """From bottom to top."""
        self.answer = None
        scripting = dbus.Interface(
            self.bus.get_object("org.kde.KWin", "/Scripting", introspect=False),
            "org.kde.kwin.Scripting")
        number = int(scripting.loadScript(self.path, NAME))
        # The second is its path in KWin 5. Neither call waits for a reply: the script's own answer
        # arrives in this thread.
        for path in (f"/Scripting/Script{number}", f"/{number}"):
            script = self.bus.get_object("org.kde.KWin", path, introspect=False)
            script.run(dbus_interface="org.kde.kwin.Script", ignore_reply=True)
        try:
            answer = wait_for(lambda: self.answer, "KWin's windows", 10)
        finally:
            scripting.unloadScript(NAME)
        return [self._window(described) for described in json.loads(answer)]

    @staticmethod
    def _window(described):
        x, y, width, height = (round(value) for value in described["box"])
        described["box"] = (x, y, x + width, y + height)
        described["program"] = described["program"].lower()
        return Window(**described)
