# SPDX-License-Identifier: MIT
"""A stand-in for PackageKit on the bus at DBUS_SYSTEM_BUS_ADDRESS.

Its only argument is JSON: for each method ("Simulate" for a simulated UpdatePackages), the outcomes
of its calls in order. The last one is repeated. An outcome has

  packages  [[info, id], ...]                  reported before the end
  detail    [update text, changelog]           of an UpdateDetail; "@much" is two megabytes
  progress  [{"Status": 8, ...}, ...]          changes of the transaction's properties
  error     [code, text]                       of an ErrorCode; the exit is 2 then
  exit      1 by default
  refusal   [error name, text]                 the method's own error instead of all that
  then      "hang", "vanish", "cancellable"    instead of the end: send nothing more, exit, or
                                               wait for Cancel
  destroys  true: the transaction's object is destroyed before a refusal is sent

"CreateTransaction" can have the outcomes {"then": "hang"} and {"path": ...}. After "ready", each call
is printed on a line: its name and arguments in JSON.
"""
import json
import os
import sys

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

NAME = "org.freedesktop.PackageKit"
TRANSACTION = NAME + ".Transaction"
SUCCESS, FAILED, CANCELLED = 1, 2, 3
SIMULATED = 1 << 2
# "@much" stands for this in the scenario, because it is too long for an argument.
MUCH = "All work and no play.\n" * 100_000


def say(*parts):
    print(json.dumps(parts), flush=True)


def spelt_out(text):
    return MUCH if text == "@much" else text


class Scenario:
    def __init__(self, outcomes):
        self.outcomes = outcomes

    def next(self, method):
        left = self.outcomes.get(method, [{}])
        return left.pop(0) if len(left) > 1 else left[0]


class Daemon(dbus.service.Object):
    def __init__(self, bus, scenario):
        super().__init__(bus, "/org/freedesktop/PackageKit")
        self.bus, self.scenario, self.count = bus, scenario, 0

    @dbus.service.method(NAME, out_signature="o", async_callbacks=("answer", "fail"))
    def CreateTransaction(self, answer, fail):
        outcome = self.scenario.next("CreateTransaction")
        if outcome.get("then") == "hang":
            return
        self.count += 1
        path = f"/{self.count}_abcdef"
        Transaction(self.bus, path, self.scenario)
        answer(outcome.get("path", path))


class Transaction(dbus.service.Object):
    def __init__(self, bus, path, scenario):
        super().__init__(bus, path)
        self.scenario = scenario
        self.properties = {"Status": dbus.UInt32(0), "Percentage": dbus.UInt32(101),
                           "AllowCancel": dbus.Boolean(False),
                           "DownloadSizeRemaining": dbus.UInt64(0)}

    def run(self, method, arguments, answer, fail):
        say(method, *arguments)
        outcome = self.scenario.next(method)
        if "refusal" in outcome:
            if outcome.get("destroys"):
                self.Destroy()
            fail(dbus.DBusException(outcome["refusal"][1], name=outcome["refusal"][0]))
            return
        answer()
        for change in outcome.get("progress", []):
            self.change(change)
        for info, identifier in outcome.get("packages", []):
            self.Package(info, identifier, "a summary")
        if "detail" in outcome:
            text, changelog = (spelt_out(each) for each in outcome["detail"])
            self.UpdateDetail(arguments[0][0], [], [], [], [], [], 1, text, changelog, 0, "", "")
        if "error" in outcome:
            code, text = outcome["error"]
            self.ErrorCode(code, spelt_out(text))
        then = outcome.get("then")
        if then == "vanish":
            GLib.idle_add(lambda: os._exit(0))
        elif then == "cancellable":
            self.change({"AllowCancel": True})
        elif then != "hang":
            self.Finished(outcome.get("exit", FAILED if "error" in outcome else SUCCESS), 7)
            self.Destroy()
            self.remove_from_connection()

    def change(self, changes):
        kinds = {"AllowCancel": dbus.Boolean, "DownloadSizeRemaining": dbus.UInt64}
        typed = {key: kinds.get(key, dbus.UInt32)(value) for key, value in changes.items()}
        self.properties.update(typed)
        self.PropertiesChanged(TRANSACTION, typed, [])

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="s", out_signature="a{sv}")
    def GetAll(self, interface):
        return self.properties

    @dbus.service.method(TRANSACTION, in_signature="as")
    def SetHints(self, hints):
        say("SetHints", *hints)

    @dbus.service.method(TRANSACTION, in_signature="tas", async_callbacks=("answer", "fail"))
    def SearchFiles(self, filters, paths, answer, fail):
        self.run("SearchFiles", [int(filters), list(paths)], answer, fail)

    @dbus.service.method(TRANSACTION, in_signature="tas", async_callbacks=("answer", "fail"))
    def Resolve(self, filters, names, answer, fail):
        self.run("Resolve", [int(filters), list(names)], answer, fail)

    @dbus.service.method(TRANSACTION, in_signature="b", async_callbacks=("answer", "fail"))
    def RefreshCache(self, force, answer, fail):
        self.run("RefreshCache", [bool(force)], answer, fail)

    @dbus.service.method(TRANSACTION, in_signature="t", async_callbacks=("answer", "fail"))
    def GetUpdates(self, filters, answer, fail):
        self.run("GetUpdates", [int(filters)], answer, fail)

    @dbus.service.method(TRANSACTION, in_signature="as", async_callbacks=("answer", "fail"))
    def GetUpdateDetail(self, ids, answer, fail):
        self.run("GetUpdateDetail", [list(ids)], answer, fail)

    @dbus.service.method(TRANSACTION, in_signature="tas", async_callbacks=("answer", "fail"))
    def UpdatePackages(self, flags, ids, answer, fail):
        method = "Simulate" if flags & SIMULATED else "UpdatePackages"
        self.run(method, [int(flags), list(ids)], answer, fail)

    @dbus.service.method(TRANSACTION)
    def Cancel(self):
        say("Cancel")
        self.Finished(CANCELLED, 7)

    @dbus.service.signal(TRANSACTION, signature="uss")
    def Package(self, info, identifier, summary):
        pass

    @dbus.service.signal(TRANSACTION, signature="sasasasasasussuss")
    def UpdateDetail(self, identifier, updates, obsoletes, vendors, bugs, cves, restart, text,
                     changelog, state, issued, updated):
        pass

    @dbus.service.signal(TRANSACTION, signature="us")
    def ErrorCode(self, code, text):
        pass

    @dbus.service.signal(TRANSACTION, signature="uu")
    def Finished(self, exit_code, runtime):
        pass

    @dbus.service.signal(TRANSACTION)
    def Destroy(self):
        pass

    @dbus.service.signal(dbus.PROPERTIES_IFACE, signature="sa{sv}as")
    def PropertiesChanged(self, interface, changed, invalidated):
        pass


def main():
    bus = dbus.SystemBus(mainloop=DBusGMainLoop())
    daemon = Daemon(bus, Scenario(json.loads(sys.argv[1])))
    daemon.name = dbus.service.BusName(NAME, bus, do_not_queue=True)
    print("ready", flush=True)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
