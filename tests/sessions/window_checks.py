# SPDX-License-Identifier: MIT
"""Checks of the card and the settings: that they open over another program, and their properties."""
import re
import subprocess
from pathlib import Path

import program
from pictures import changed_box, settled_picture
from report import Failed, NotRun
from scale_checks import button_in
from waiting import comes, wait_for

SETTINGS = "Tovla Settings"
NOTE = "seen in a whole session"
BESIDE = Path("/tmp/beside")


class WindowChecks:
    def __init__(self, desktop, report):
        self.desktop = desktop
        self.screen = desktop.screen
        self.report = report
        self.card = None
        self.editor = None

    def run(self):
        check = self.report.check
        check("the card over another program", self.card_over_editor)
        check("the card's window", self.card_window)
        check("the card dragged with a finger", self.card_dragged)
        check("the note is saved", self.note_saved)
        check("the keyboard goes back", self.keyboard_back)
        check("the card over a full-screen window", self.card_over_full_screen)
        check("another program beside the card", self.other_program_beside_card)
        check("the settings", self.settings)
        check("the settings again, from behind", self.settings_again)
        check("the settings again, minimised", self.settings_minimised)
        check("Quit", self.quit)
        self.editor.kill()  # its unsaved text would hold up a logout

    def windows(self):
        return self.desktop.windows.windows()

    def active(self, condition):
        return next((window for window in self.windows()
                     if window.active and condition(window)), None)

    @staticmethod
    def is_card(window):
        return "tovla" in window.program and re.fullmatch(r"\d\d:\d\d", window.title) is not None

    @staticmethod
    def is_settings(window):
        return window.title == SETTINGS

    def open_editor(self):
        self.editor = subprocess.Popen(self.desktop.editor, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
        wait_for(lambda: self.active(lambda window: "tovla" not in window.program), "the editor", 40)
        settled_picture(self.screen)

    def card_over_editor(self):
        """Opens the card while the user keeps typing, as the timer would."""
        self.open_editor()
        self.screen.type("words for another program ")
        asking = subprocess.Popen(["gapplication", "action", program.APPLICATION, "write-now"])
        self.screen.type("that go on ")
        asking.wait(30)
        self.card = comes(lambda: self.active(self.is_card), 10)
        self.report.picture("card", settled_picture(self.screen))
        if program.platform() != self.desktop.display:
            raise Failed(f"it uses {program.platform()} (card.png)")
        if self.card:
            return f"it has the keyboard ({program.platform()}; card.png)"
        shown = [window for window in self.windows() if self.is_card(window)]
        raise Failed("it is there without the keyboard (card.png)" if shown
                     else "no window of the card (card.png)")

    def card_window(self):
        card = self.card or next((w for w in self.windows() if self.is_card(w)), None)
        if not card:
            raise NotRun("there is no card")
        wrong = ["not kept above"] * (card.above is False)
        wrong += ["in the taskbar"] * (card.in_taskbar is True)
        if wrong:
            raise Failed(f"{', '.join(wrong)}: {card.described()}")
        return card.described()

    def card_dragged(self):
        if not hasattr(self.screen, "drag_with_finger"):
            raise NotRun("this display has no finger to test with")
        left, top, *_ = next(window.box for window in self.windows() if self.is_card(window))
        margin, far = 20, 100
        self.screen.drag_with_finger((left + 150, top + margin), (left + 150 + far, top + margin + far))
        # A few pixels may be lost before the movement is recognised.
        wanted = range(far - 20, far + 1)
        moved = comes(lambda: next((w.box for w in self.windows() if self.is_card(w)
                                    and w.box[0] - left in wanted and w.box[1] - top in wanted), None), 5)
        if not moved:
            raise Failed("it does not follow")
        return f"it is moved by {moved[0] - left}, {moved[1] - top}"

    def note_saved(self):
        self.screen.type(NOTE)
        self.screen.press("Control+Return")
        if not comes(lambda: NOTE in program.day_file(), 10):
            raise Failed(f"not in the day file: {program.day_file()!r}")
        if not comes(lambda: not any(self.is_card(window) for window in self.windows()), 5):
            raise Failed("saved, but the card stays open")
        return "in the day file, and the card is closed: " + " / ".join(
            line for line in program.day_file().splitlines() if line)

    def keyboard_back(self):
        back = comes(lambda: self.active(lambda window: "tovla" not in window.program), 5)
        if not back:
            raise Failed("no other program has it")
        return f"to “{back.title}”"

    def card_over_full_screen(self):
        film = subprocess.Popen(["xterm", "-fullscreen", "-title", "film", "-bg", "navy", "-e",
                                 "cat"],
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            if not comes(lambda: self.active(lambda window: window.title == "film"), 15):
                raise NotRun("no full-screen window has the keyboard")
            before = settled_picture(self.screen)
            program.act("write-now")
            has_keyboard = comes(lambda: self.active(self.is_card), 10)
            after = settled_picture(self.screen)
            self.report.picture("card-full-screen", after)
            self.screen.press("Escape")
        finally:
            film.terminate()
        wrong = ["it has no keyboard focus"] * (not has_keyboard)
        width, height = before.size
        middle = (width // 2 - 100, height // 4, width // 2 + 100, height // 2)
        wrong += ["it cannot be seen"] * (not changed_box(before.crop(middle), after.crop(middle)))
        if wrong:
            raise Failed(f"{', '.join(wrong)} (card-full-screen.png)")
        return "it is seen and has the keyboard (card-full-screen.png)"

    def other_program_beside_card(self):
        BESIDE.unlink(missing_ok=True)
        terminal = subprocess.Popen(["xterm", "-title", "beside", "-e", f"cat >{BESIDE}"],
                                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            window = comes(lambda: self.active(lambda window: window.title == "beside"), 15)
            if not window:
                raise NotRun("no terminal has the keyboard")
            program.act("write-now")
            if not comes(lambda: self.active(self.is_card), 10):
                name = self.report.picture("beside", settled_picture(self.screen))
                raise Failed(f"the card does not get the keyboard over it ({name})")
            button = button_in(settled_picture(self.screen))
            if not button:
                raise Failed("the card is not seen")
            on_card = button[2] + 100, button[3] + 40
            left, _, _, bottom = window.box
            # Sway lends the keyboard to others only when the pointer leaves the card.
            for place in (on_card, (left + 30, bottom - 30)):
                self.screen.move(*place)
                settled_picture(self.screen)
            self.screen.click(left + 30, bottom - 30)
            if not comes(lambda: self.active(lambda window: window.title == "beside"), 5):
                raise Failed("a click does not give the keyboard to it")
            self.screen.type("typed beside it")
            self.screen.press("Return")
            if not comes(lambda: BESIDE.read_text() == "typed beside it\n", 5):
                raise Failed(f"it was given {BESIDE.read_text()!r}")
            self.screen.click(*on_card)
            if not comes(lambda: self.active(self.is_card), 5):
                raise Failed("a click on the card does not give the keyboard back to it")
            self.screen.press("Escape")
        finally:
            terminal.terminate()
        return "a click gives it the keyboard, and another gives it back to the card"

    def settings(self):
        program.launch()
        window = comes(lambda: self.active(self.is_settings), 15)
        self.report.picture("settings", settled_picture(self.screen))
        window = window and self.active(self.is_settings)
        if not window:
            raise Failed("no active window of that title (settings.png)")
        wrong = ["can be maximised"] * (window.maximizable is True)
        wrong += ["in the taskbar"] * (window.in_taskbar is True)
        # Without a taskbar entry, minimised settings could not be restored.
        wrong += ["can be minimised"] * (window.minimizable is True and not window.in_taskbar)
        if wrong:
            raise Failed(f"{', '.join(wrong)}: {window.described()} (settings.png)")
        return f"{window.described()} (settings.png)"

    def settings_again(self):
        """Requests the settings again while they are behind another program."""
        second = subprocess.Popen(["xterm"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if not comes(lambda: self.active(lambda window: "tovla" not in window.program), 15):
            raise NotRun("no other program came before them")
        program.launch()
        came = comes(lambda: self.active(self.is_settings), 5)
        self.report.picture("settings-again", settled_picture(self.screen))
        second.terminate()
        if not came:
            raise Failed("they stay behind (settings-again.png)")
        return "they come to the front"

    def settings_minimised(self):
        """Some window managers minimise a window that asks for no such button. It is in no taskbar."""
        subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{SETTINGS}$",
                        "windowminimize"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if not comes(lambda: not self.active(self.is_settings), 5):
            raise NotRun("the window manager does not minimise them")
        program.launch()
        came = comes(lambda: self.active(self.is_settings), 5)
        self.report.picture("settings-minimised", settled_picture(self.screen))
        if not came:
            raise Failed("they stay away (settings-minimised.png)")
        return "they come back"

    def quit(self):
        program.quit_program()
        return "the program has ended"
