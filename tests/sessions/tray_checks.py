# SPDX-License-Identifier: MIT
"""Checks of the tray item: its presence, its icon, and what clicks do."""
import os
import subprocess

import program
from icon_place import find_icon, panel_nodes
from pictures import changed_box, contrast, enlarged, still_picture, strip_around
from report import Failed, NotRun
from tray import Listener, Tray, described
from waiting import comes
from x11_windows import docked_icon, popups

# The least contrast for a symbol to stand out from its background (WCAG 2.1, 1.4.11).
LEAST_CONTRAST = 3
BUTTONS = {"left": 1, "right": 3}


class TrayChecks:
    def __init__(self, desktop, report):
        self.desktop = desktop
        self.screen = desktop.screen
        self.report = report
        self.tray = Tray()
        self.before = []
        self.new_in_picture = None

    def run(self):
        check = self.report.check
        check("registered at login", self.registered_at_login)
        check("icon found in the panel", self.icon_in_panel)
        check("the item says of itself", self.properties)
        for look in ("light", "dark"):
            check(f"icon, {look}", lambda look=look: self.icon(look))
        self.set_look("light")
        for button in BUTTONS:
            check(f"{button} click", lambda button=button: self.click(button))

    def registered_at_login(self):
        if not self.desktop.tray:
            raise NotRun("the desktop has no tray")
        if not comes(program.pid, 20):
            program.start()
            raise NotRun("the desktop did not start the program at login")
        if not comes(self.is_shown, 20):
            raise Failed("no item of the program")
        return "in the old system tray" if self.desktop.old_tray else "at the watcher"

    def is_shown(self):
        return docked_icon() if self.desktop.old_tray else self.tray.item()

    def icon_in_panel(self):
        """Restarts the program and looks for what is new in the panel."""
        program.quit_program()
        if not self.desktop.tray:
            program.start()
            raise NotRun("the desktop has no tray")
        if not comes(lambda: not self.is_shown(), 10):
            raise Failed("the item stays when the program has quit")
        self.before = [] if self.desktop.gnome else panel_nodes(self.desktop.panel)
        without = still_picture(self.screen)
        program.start()
        if not comes(self.is_shown, 20):
            raise Failed("no item after the second start")
        if not comes(self.find, 5):
            self.find_in_picture(without)
        left, top, right, bottom = self.box()
        return f"{right - left}×{bottom - top} at {left}, {top}"

    def box(self):
        """The position of the icon, once the panel no longer moves it."""
        if not self.desktop.tray:
            raise NotRun("the desktop has no tray")
        if not comes(self.find, 10):
            raise NotRun("nothing new in the panel's accessibility tree")
        still_picture(self.screen)
        return self.find()

    def find_in_picture(self, without):
        """For panels without an accessibility tree: finds what the second start changed."""
        box = changed_box(without, still_picture(self.screen))
        if box and box[2] - box[0] <= 96 and box[3] - box[1] <= 64:
            self.new_in_picture = box

    def find(self):
        if self.desktop.gnome:
            return self.desktop.windows.tray_icon()
        if self.desktop.old_tray:
            return docked_icon()
        item = self.tray.item() or {}
        names = {str(item.get(name, "")).lower() for name in ("Id", "Title")} - {""} | {"tovla"}
        return find_icon(self.desktop.panel, self.before, names) or self.new_in_picture

    def properties(self):
        item = self.tray.item()
        if not item:
            raise NotRun("there is no item")
        said = described(item)
        line = "; ".join(f"{name} {value}" for name, value in said.items())
        wrong = [f"Title is {said.get('Title')}"] * (str(item.get("Title")) != "Tovla")
        # On X11, where the program knows the position of a click, a left click opens its own menu.
        is_menu = "WAYLAND_DISPLAY" in os.environ
        wrong += [f"ItemIsMenu is not {is_menu}"] * (bool(item.get("ItemIsMenu")) != is_menu)
        wrong += [f"Id is {said.get('Id')}"] * (str(item.get("Id", "")).isdigit())
        if wrong:
            raise Failed(f"{'; '.join(wrong)} ({line})")
        return line

    def set_look(self, look):
        for command in getattr(self.desktop, look):
            subprocess.run(command, check=True, stdout=subprocess.DEVNULL)

    def icon(self, look):
        before = self.screen.picture()
        self.set_look(look)
        comes(lambda: changed_box(before, self.screen.picture()), 5)
        picture = still_picture(self.screen)
        self.report.picture(f"desktop-{look}", picture)
        box = self.box()
        self.report.picture(f"panel-{look}", picture.crop(strip_around(box, picture)))
        self.report.picture(f"icon-{look}", enlarged(picture, box))
        ratio = contrast(picture, box)
        seen = f"contrast {ratio:.1f} : 1 (icon-{look}.png)"
        if ratio < LEAST_CONTRAST:
            raise Failed(f"{seen}; {self.contrast_from_start():.1f} : 1 after a new start")
        return seen

    def contrast_from_start(self):
        """Some panels recolour an icon when it appears, but not when the appearance changes."""
        program.quit_program()
        program.start()
        comes(self.is_shown, 20)
        box = self.box()
        return contrast(self.screen.picture(), box)

    def click(self, button):
        icon = left, top, right, bottom = self.box()
        self.screen.move(640, 400)
        before = still_picture(self.screen)
        strip = strip_around(icon, before, 8)
        listener = Listener()
        self.screen.click((left + right) // 2, (top + bottom) // 2, BUTTONS[button])
        opened = comes(lambda: changed_box(before, self.screen.picture(), strip), 5)
        after = still_picture(self.screen)
        own = popups()
        calls = ", ".join(listener.heard()) or "no call"
        self.report.picture(f"menu-{button}", after)
        box = changed_box(before, after, strip) if opened else None
        closed = self.close_menu(before, strip)
        if not box:
            raise Failed(f"no menu opens; the panel called: {calls}")
        width, height = box[2] - box[0], box[3] - box[1]
        drawn = "by the program" if own else "by the desktop"
        seen = f"{width}×{height} at {box[0]}, {box[1]}, drawn {drawn} ({calls}; menu-{button}.png)"
        if not is_at_icon(box, icon, strip):
            stays = "" if closed else " and closes neither by Escape nor by a click beside it"
            raise Failed(f"the menu is away from the icon{stays}: {seen}")
        if not closed:
            raise Failed(f"the menu closes neither by Escape nor by a click beside it: {seen}")
        return f"menu at the icon, {seen}"

    def close_menu(self, before, strip):
        """Whether the menu closed as menus do; if not, the program is restarted."""
        # On some desktops the click opens the desktop's own menu, which the second Escape closes.
        for close, *arguments in ((self.screen.press, "Escape"), (self.screen.click, 300, 600),
                                  (self.screen.press, "Escape")):
            close(*arguments)
            if comes(lambda: not changed_box(before, self.screen.picture(), strip), 3):
                return True
        program.kill()
        program.start()
        return False


def is_at_icon(box, icon, strip):
    """The menu begins next to the panel, directly above or below the icon, give or take a shadow."""
    middle = (icon[0] + icon[2]) / 2
    beside = box[1] <= strip[3] + 8 if strip[1] < 200 else box[3] >= strip[1] - 8
    return beside and box[0] - 48 <= middle <= box[2] + 48
