# SPDX-License-Identifier: MIT
"""Takes the README's screenshots: screenshots.py PROGRAM DIR [SCALE COMPOSITOR]

Without the last two arguments it runs itself once for each desktop, because a process can find the
accessibility tree of only one.
"""
import glob
import os
import subprocess
import sys
import tempfile
from pathlib import Path

PROGRAM, PICTURES = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "desktop"))
os.environ["TOVLA"] = str(PROGRAM)
CLOCK = {"LD_PRELOAD": glob.glob("/usr/lib/*/faketime/libfaketimeMT.so.1")[0],
         "FAKETIME": "@2026-11-15 14:30:00"}
WALLPAPERS = {"light": ("#8fb9dc", "#d9c6ea", "#f3d3b6"), "dark": ("#16222c", "#37284e", "#54402f")}
# Each desktop frames windows in its own way, so they are shown without a frame, but with a shadow. The
# card brings its own.
WITHOUT_FRAMES = """<?xml version="1.0"?><openbox_config xmlns="http://openbox.org/3.4/rc">
<theme><keepBorder>no</keepBorder></theme>
<applications><application class="*"><decor>no</decor></application></applications>
</openbox_config>"""
os.environ["TOVLA_TEST_COMPOSITOR"] = (
    "picom --backend xrender --config /dev/null --no-fading-openclose --shadow --shadow-radius 24 "
    "--shadow-opacity 0.35 --shadow-offset-x -24 --shadow-offset-y -14 "
    "--shadow-exclude _GTK_FRAME_EXTENTS@:c")
LINES = ("Finished the report.", "Long walk afterwards, the first in weeks.", "- call Ann back")


def every_desktop():
    PICTURES.mkdir(parents=True, exist_ok=True)
    for scale in ("1", "2"):
        for compositor in ("composited", "plain"):
            subprocess.run([sys.executable, __file__, PROGRAM, PICTURES, scale, compositor],
                           check=True)


def one_desktop(scale, compositor):
    from case import QUESTION, active_window_title, geometry_of, is_time, press_keys, type_text
    from desktop import Desktop, wait_for
    side = 1280 * scale
    with tempfile.NamedTemporaryFile("w", suffix=".xml") as settings:
        settings.write(WITHOUT_FRAMES)
        settings.flush()
        desktop = Desktop(compositor=compositor == "composited", scale=scale,
                          size=f"{side}x{900 * scale}",
                          window_manager=f"openbox --config-file {settings.name}")
    import accessibility
    import portal
    import updates
    updates.start_system_bus(desktop)
    suffix = ("" if compositor == "composited" else "-plain") + ("@2x" if scale == 2 else "")

    def picture(name, width, height, top=180):
        """The middle of the screen, where the windows are, in logical pixels."""
        whole = desktop.home / "whole.png"
        desktop.screenshot(whole)
        subprocess.run(["convert", str(whole), "-gravity", "north", "-crop",
                        f"{width * scale}x{height * scale}+0+{top * scale}", "+repage", "-strip",
                        str(PICTURES / f"{name}{suffix}.png")], check=True)

    def open_prompt(theme):
        desktop.forget_user()
        desktop.write_preferences(folderPath=desktop.journal(), theme=theme)
        tovla = desktop.start_tovla(**CLOCK)
        tovla.wait_for_tray_item().click("Write now")
        editor = accessibility.find(QUESTION)
        wait_for(lambda: is_time(active_window_title()), "the prompt")
        return editor

    def open_settings(theme):
        desktop.forget_user()
        desktop.write_preferences(folderPath="/home/ann/Notes/Journal", theme=theme)
        tovla = desktop.start_tovla(**CLOCK)
        tovla.wait_for_tray_item().click("Settings…")
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings")
        desktop.wait_until_still()

    def take_updates(theme):
        settings_portal = portal.Portal(**{"color-scheme": portal.scheme(theme == "dark")})
        for name, (scenario, buttons, text) in updates.PAGES.items():
            service = updates.UpdateService(desktop, scenario)
            tovla = desktop.start_tovla()
            tovla.wait_for_tray_item().click("Check for Updates…")
            for button in buttons:
                accessibility.press(button)
            accessibility.find(text)
            wait_for(lambda: active_window_title() == "Software Update", "the update window")
            if name != "checking":
                desktop.wait_until_still()
            _, top, _, height = geometry_of("Software Update")
            picture(f"update-{name}-{theme}", 540, height // scale + 90, top // scale - 50)
            desktop.stop_tovlas()
            service.stop()
        settings_portal.vanish()

    def write(editor, lines):
        for number, line in enumerate(lines):
            if number:
                press_keys("Return")
            type_text(line)
        wait_for(lambda: accessibility.text_of(editor) == "\n".join(lines), "what was typed")
        desktop.wait_until_still()

    try:
        for theme in ("light", "dark"):
            desktop.set_wallpaper(*WALLPAPERS[theme])
            editor = open_prompt(theme)
            desktop.wait_until_still()
            picture(f"prompt-empty-{theme}", 720, 260)
            write(editor, LINES)
            picture(f"prompt-lines-{theme}", 720, 310)
            desktop.stop_tovlas()
            write(open_prompt(theme), LINES * 6)
            picture(f"prompt-cap-{theme}", 720, 540)
            desktop.stop_tovlas()
            if compositor == "composited":
                open_settings(theme)
                picture(f"settings-{theme}", 540, 720, top=90)
                desktop.stop_tovlas()
                take_updates(theme)
    finally:
        desktop.close()


if len(sys.argv) > 3:
    one_desktop(int(sys.argv[3]), sys.argv[4])
else:
    every_desktop()
