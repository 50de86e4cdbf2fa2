# SPDX-License-Identifier: MIT
"""Logs out of the session while a note is being written, and again when it has gone."""
import subprocess
import time

import program
from pictures import changed_box, settled_picture
from report import Failed, NotRun
from waiting import wait_for
from window_checks import WindowChecks

# Longer than any of the desktops takes to end what can be ended without asking.
GRACE_SECONDS = 15


def is_dimmed(before, now):
    """Whether nearly the whole screen has changed, rather than a caret or a clock."""
    left, top, right, bottom = changed_box(before, now, threshold=8) or (0, 0, 0, 0)
    return (right - left) * (bottom - top) > before.width * before.height / 2


class LogoutCheck:
    """Must come last: the session ends with it."""

    def __init__(self, desktop, report):
        self.desktop = desktop
        self.screen = desktop.screen
        self.report = report

    def run(self):
        self.report.check("logging out with a note open", self.with_note)
        self.report.check("logging out", self.without_note)

    def log_out(self):
        if not self.desktop.log_out:
            raise NotRun("the desktop has no session manager")
        before = self.screen.picture()
        subprocess.Popen(self.desktop.log_out, stdout=subprocess.DEVNULL,
                         stderr=subprocess.DEVNULL)
        if self.desktop.asks_before_log_out:
            wait_for(lambda: is_dimmed(before, self.screen.picture()), "the desktop's question")
            settled_picture(self.screen)
            self.screen.press("Return")

    @staticmethod
    def has_ended(patience=GRACE_SECONDS):
        """Does not serve the buses, whose libraries would end the checks along with the session."""
        deadline = time.monotonic() + patience
        while program.pid() and time.monotonic() < deadline:
            time.sleep(0.2)
        return not program.pid()

    def with_note(self):
        # GNOME's launcher has the bus start programs, which its portal does not recognise then.
        if not self.desktop.gnome:
            program.start()
        program.act("write-now")
        wait_for(lambda: any(map(WindowChecks.is_card, self.desktop.windows.windows())), "the card")
        settled_picture(self.screen)
        self.screen.type("a note that is not finished")
        settled_picture(self.screen)
        self.log_out()
        if self.has_ended():
            raise Failed("the note is gone without a word")
        self.report.picture("logout", settled_picture(self.screen))
        return "the session goes on with the note in it (logout.png)"

    def without_note(self):
        if not program.pid():
            raise NotRun("the session has ended already")
        # First the desktop's question, if it asks one and has the keyboard, and then the card.
        for _ in range(2):
            self.screen.press("Escape")
            if self.has_ended(3):
                return "the session ends as soon as the note has gone"
        self.log_out()
        if not self.has_ended():
            self.report.picture("logout-late", self.screen.picture())
            raise Failed("the session goes on without a note (logout-late.png)")
        return "the session ends"
