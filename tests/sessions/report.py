# SPDX-License-Identifier: MIT
"""Reports the result of each check on one line, for the terminal and for a Markdown page."""
import subprocess
from datetime import date
from pathlib import Path

PICTURES = Path("/srv/pictures")


class Failed(Exception):
    """A check found something other than it should."""


class NotRun(Exception):
    """A check could not be run."""


class Report:
    def __init__(self, desktop, versions):
        self.desktop = desktop
        self.versions = versions
        self.rows = []

    def check(self, name, run):
        """@p run returns the result, or raises Failed or NotRun."""
        try:
            status, seen = "passed", run()
        except Failed as failure:
            status, seen = "failed", str(failure)
        except NotRun as reason:
            status, seen = "not run", str(reason)
        except Exception as failure:  # one broken check must not hide the results of the others
            status, seen = "not run", f"{type(failure).__name__}: {failure}".splitlines()[0]
        self.rows.append((name, status, seen or ""))
        print(f"{status:8} {name}: {seen or ''}", flush=True)

    def picture(self, name, picture):
        path = PICTURES / f"{name}.png"
        picture.save(path)
        return path.name

    def write(self):
        lines = [f"# {self.desktop}", "", f"{', '.join(self.versions)}; {date.today():%d %B %Y}.",
                 "", "| | | seen |", "|---|---|---|"]
        for name, status, seen in self.rows:
            lines.append(f"| {name} | {status} | {seen.replace('|', chr(92) + '|')} |")
        (PICTURES / "report.md").write_text("\n".join(lines) + "\n", encoding="utf-8")

    def failures(self):
        return sum(status == "failed" for _, status, _ in self.rows)


def version_of(package):
    """The version without Debian's revision, or None if the package is not installed."""
    found = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], text=True,
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    return found.split(":")[-1].split("+")[0].rsplit("-", 1)[0] or None
