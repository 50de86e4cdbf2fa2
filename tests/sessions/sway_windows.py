# SPDX-License-Identifier: MIT
"""The windows of a sway session, as listed by sway."""
import json
import subprocess

from windows import Window


def _walk(node):
    yield node
    for child in node.get("nodes", []) + node.get("floating_nodes", []):
        yield from _walk(child)


class SwayWindows:
    def windows(self):
        """Tiled windows first, then floating ones."""
        tree = json.loads(subprocess.run(["swaymsg", "-r", "-t", "get_tree"], check=True,
                                         stdout=subprocess.PIPE).stdout)
        return [self._window(node) for node in _walk(tree)
                if node["type"] in ("con", "floating_con") and node.get("pid")]

    @staticmethod
    def _window(node):
        box = node["rect"]
        program = node.get("app_id") or node.get("window_properties", {}).get("class", "")
        kind = "floating" if node["type"] == "floating_con" else "tiled"
        return Window(title=node["name"] or "", program=program.lower(), active=node["focused"],
                      box=(box["x"], box["y"], box["x"] + box["width"], box["y"] + box["height"]),
                      kind=f"{kind}, {'X11' if node.get('window') else 'Wayland'}")
