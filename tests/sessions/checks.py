# SPDX-License-Identifier: MIT
"""Checks the installed program in the running session of the named desktop."""
import sys

from logout_check import LogoutCheck
from ready import open_desktop
from report import Report, version_of
from scale_checks import ScaleChecks
from tray_checks import TrayChecks
from window_checks import WindowChecks


def release():
    with open("/etc/os-release", encoding="utf-8") as lines:
        return next(line.split("=")[1].strip().strip('"') for line in lines
                    if line.startswith("PRETTY_NAME"))


def main(name):
    desktop = open_desktop(name)
    qt = version_of("libqt6core6t64") or version_of("libqt6core6")
    report = Report(name, [f"{desktop.package} {version_of(desktop.package)}", f"Qt {qt}",
                           release(), f"Tovla {version_of('tovla')}"])
    TrayChecks(desktop, report).run()
    WindowChecks(desktop, report).run()
    ScaleChecks(desktop, report).run()
    LogoutCheck(desktop, report).run()
    report.write()
    return 1 if report.failures() else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
