# SPDX-License-Identifier: MIT
"""Keys that the standard layout does not have."""
import subprocess

# By code. xdotool would define them only while it presses them, and the program might look them up later.
DEAD_ACUTE, SEEDLING, COMPOSE = "249", "250", "251"


def define():
    for code, name in ((DEAD_ACUTE, "dead_acute"), (SEEDLING, "U1F331"), (COMPOSE, "Multi_key")):
        subprocess.run(["xmodmap", "-e", f"keycode {code} = {name}"], check=True)
