# SPDX-License-Identifier: MIT
"""A private system bus with a stand-in for the update service."""
import json
import os
import subprocess
import sys
from pathlib import Path

from desktop import wait_for

STAND_IN = Path(__file__).resolve().parent.parent / "support" / "packagekit.py"
VERSION = os.environ.get("TOVLA_VERSION", "0.1.0")
NEWER = "9.9"
INSTALLED = [1, f"tovla;{VERSION};amd64;manual:tovla-stable-main"]
UPDATE = [5, f"tovla;{NEWER};amd64;tovla-stable-main"]
UP_TO_DATE = {"SearchFiles": [{"packages": [INSTALLED]}],
              "Resolve": [{"packages": [INSTALLED]}]}
BROKEN = {**UP_TO_DATE, "GetUpdates": [{"error": [64, "BADSIG 0123 <b>Eve</b>"]}]}
# As the package managers of Debian pass it on: the new entries of the package's changelog.
CHANGELOG = f"""tovla ({NEWER}) stable; urgency=medium

  * The card remembers where you dragged it, on each of your screens, also after they have been
    unplugged.
  * Two new alert sounds: Drum and Harp.

 -- The Tovla developers <tovla@example.org>  Sun, 15 Nov 2026 10:00:00 +0000
"""
OFFER = {"SearchFiles": [{"packages": [INSTALLED]}],
         "GetUpdates": [{"packages": [UPDATE]}],
         "GetUpdateDetail": [{"detail": ["", CHANGELOG]}],
         "Simulate": [{"packages": [[11, UPDATE[1]]]}],
         "Resolve": [{"packages": [[1, f"tovla;{NEWER};amd64;manual:tovla-stable-main"]]}]}
DOWNLOAD = {"progress": [{"Status": 8, "AllowCancel": True, "DownloadSizeRemaining": 760_000},
                         {"DownloadSizeRemaining": 250_000, "Percentage": 67}], "then": "hang"}
REFUSED = {"error": [48, "Failed to obtain authentication."]}
BEHIND = {**UP_TO_DATE, "SearchFiles": [{"packages": [[1, f"tovla;{NEWER};amd64;stable"]]}]}
# The pages at which the window can stay: what the service does, the buttons to press to get there,
# and what the window then says.
PAGES = {
    "checking": ({**UP_TO_DATE, "RefreshCache": [{"then": "hang"}]}, [], "Checking for updates…"),
    "up-to-date": (UP_TO_DATE, [], "You're up to date!"),
    "available": (OFFER, [], "A new version of Tovla is available!"),
    "refused": ({**OFFER, "UpdatePackages": [REFUSED]}, ["Install Update"],
                "Authorisation was not given."),
    "downloading": ({**OFFER, "UpdatePackages": [DOWNLOAD]}, ["Install Update"],
                    "Downloading update…"),
    "installed": (OFFER, ["Install Update"], "Update Installed"),
    "ready": (BEHIND, [], "A new version of Tovla is ready!"),
    "error": (BROKEN, ["Details"], "Update Error!"),
}


def start_system_bus(desktop):
    _, os.environ["DBUS_SYSTEM_BUS_ADDRESS"] = desktop.start_bus()


class UpdateService:
    def __init__(self, desktop, scenario):
        self.log = desktop.home / "update-service.log"
        with self.log.open("w") as log:
            self.process = desktop.start(sys.executable, str(STAND_IN), json.dumps(scenario),
                                         stdout=log)
        wait_for(lambda: self.log.read_text().startswith("ready\n"), "the update service")

    def calls(self):
        """The names of the methods called so far."""
        _ready, *lines, _unfinished = self.log.read_text().split("\n")
        return [json.loads(line)[0] for line in lines]

    def wait_for_call(self, method, count=1):
        wait_for(lambda: self.calls().count(method) == count,
                 f"call {count} of {method} after {self.calls()}")

    def stop(self):
        self.process.kill()
        self.process.wait()
