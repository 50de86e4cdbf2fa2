# SPDX-License-Identifier: MIT
"""Converts CHANGELOG.md for AppStream and Debian:

releases.py date                 the date of these sources, in seconds since 1970
releases.py metainfo VERSION     AppStream's <releases>
releases.py debian VERSION WHO   a Debian changelog, signed by WHO ("name <address>")

The heading of a section is "## 1.2.0, 2026-12-31", or "## 1.2.0, not released yet", which stands
for the date of the sources. VERSION is the version being built: the newest section describes it,
whatever number is in its heading.
"""
import os
import re
import subprocess
import sys
import textwrap
from datetime import datetime, timezone
from email.utils import format_datetime
from pathlib import Path
from xml.sax.saxutils import escape

ROOT = Path(__file__).resolve().parent.parent
CHANGELOG = ROOT / "CHANGELOG.md"


def source_date():
    """SOURCE_DATE_EPOCH if it is set, else the date of the commit, else that of CHANGELOG.md."""
    if "SOURCE_DATE_EPOCH" in os.environ:
        return int(os.environ["SOURCE_DATE_EPOCH"])
    if (ROOT / ".git").exists():
        commit = subprocess.run(["git", "-C", ROOT, "log", "-1", "--format=%ct"],
                                check=True, stdout=subprocess.PIPE, text=True)
        return int(commit.stdout)
    return int(CHANGELOG.stat().st_mtime)


def moment(text):
    if text == "not released yet":
        return datetime.fromtimestamp(source_date(), timezone.utc)
    return datetime.fromisoformat(text).replace(tzinfo=timezone.utc)


def releases(version):
    """Yields (version, moment, sentences) for each section, newest first."""
    sections = re.split(r"^## ", CHANGELOG.read_text(encoding="utf-8"), flags=re.MULTILINE)[1:]
    for section in sections:
        heading, *lines = section.splitlines()
        number, date = heading.split(", ", 1)
        items = re.split(r"^- ", "\n".join(lines), flags=re.MULTILINE)[1:]
        yield version or number, moment(date), [" ".join(item.split()) for item in items]
        version = None


def metainfo(version):
    print("  <releases>")
    for number, date, sentences in releases(version):
        print(f'    <release version="{number}" date="{date:%Y-%m-%d}">')
        print("      <description>\n        <ul>")
        for sentence in sentences:
            print(f"          <li>{escape(sentence)}</li>")
        print("        </ul>\n      </description>\n    </release>")
    print("  </releases>")


def debian(version, who):
    for number, date, sentences in releases(version):
        print(f"tovla ({number}) stable; urgency=medium\n")
        for sentence in sentences:
            print(textwrap.fill(sentence, 76, initial_indent="  * ", subsequent_indent="    ",
                                break_on_hyphens=False))
        print(f"\n -- {who}  {format_datetime(date)}\n")


def main(what, *arguments):
    sys.stdout.reconfigure(encoding="utf-8")
    {"date": lambda: print(source_date()), "metainfo": metainfo, "debian": debian}[what](*arguments)


main(*sys.argv[1:])
