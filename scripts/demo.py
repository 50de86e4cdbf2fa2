# SPDX-License-Identifier: MIT
"""Takes one note on a virtual desktop with a throwaway home: demo.py PROGRAM DIR."""
import os
import sys
from pathlib import Path

PROGRAM, PICTURES = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "desktop"))
os.environ["TOVLA"] = str(PROGRAM)

from case import (QUESTION, active_window_title, is_time, press_keys, type_text,  # noqa: E402
                  visible_titles)
from desktop import Desktop, wait_for  # noqa: E402

desktop = Desktop()
import accessibility  # noqa: E402  (finds the desktop through the environment)


def picture(name):
    desktop.screenshot(PICTURES / f"{name}.png")
    print(f"  {PICTURES / name}.png")


try:
    PICTURES.mkdir(parents=True, exist_ok=True)
    desktop.set_wallpaper()
    desktop.journal().mkdir()
    print("Tovla starts; it has no folder yet, so its settings open:")
    tovla = desktop.start_tovla()
    item = tovla.wait_for_tray_item()
    wait_for(lambda: active_window_title() == "Tovla Settings", "the settings")
    picture("1-settings")

    print("Choose… is pressed and a folder is typed into the chooser:")
    accessibility.press("Choose…")
    wait_for(lambda: active_window_title() not in ("Tovla Settings", ""), "the chooser")
    type_text(str(desktop.journal()))
    picture("2-chooser")
    accessibility.press("Choose")
    accessibility.find(str(desktop.journal()))
    wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")
    press_keys("ctrl+w")
    wait_for(lambda: "Tovla Settings" not in visible_titles(), "the settings to close")
    print(f"The tray menu: {item.labels()}")

    print("Write now is clicked; the card takes the keyboard:")
    item.click("Write now")
    editor = accessibility.find(QUESTION)
    wait_for(lambda: is_time(active_window_title()), "the prompt")
    picture("3-prompt")
    for line in ("Finished the report.", "Long walk afterwards, the first in weeks.", ""):
        type_text(line)
        press_keys("Return")
    type_text("- call Ann back")
    wait_for(lambda: accessibility.text_of(editor).endswith("back"), "what was typed")
    picture("4-note")

    print("Control-Return saves and closes it. The day file:")
    press_keys("ctrl+Return")
    wait_for(lambda: list(desktop.journal().glob("*.md")), "the day file")
    (day_file,) = desktop.journal().glob("*.md")
    wait_for(day_file.read_text, "the note")
    print("  " + day_file.name)
    print("".join(f"  | {line}\n" for line in day_file.read_text().splitlines()), end="")
    item.click("Quit")
    print(f"Quit ends it with status {tovla.wait_for_end()}.")
finally:
    desktop.close()
