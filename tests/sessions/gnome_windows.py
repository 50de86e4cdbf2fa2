# SPDX-License-Identifier: MIT
"""The windows of a GNOME session, as listed by the shell."""
from windows import Window

SCRIPT = """
JSON.stringify(global.get_window_actors().map(actor => {
    const w = actor.meta_window, r = w.get_frame_rect();
    return {title: w.get_title() || "", program: (w.get_wm_class() || "").toLowerCase(),
        box: [r.x, r.y, r.x + r.width, r.y + r.height], active: w.has_focus(), above: w.above,
        in_taskbar: !w.skip_taskbar,
        kind: ["normal", "desktop", "dock", "dialog", "modal dialog", "toolbar", "menu", "utility",
               "splash", "dropdown", "popup", "tooltip"][w.get_window_type()] +
              (w.get_client_type() == 1 ? ", X11" : ", Wayland"),
        minimizable: w.can_minimize(), maximizable: w.can_maximize(), resizable: w.allows_resize()};
}))
"""


class GnomeWindows:
    def __init__(self, screen):
        self.screen = screen

    def windows(self):
        """From bottom to top."""
        import json
        return [Window(**{**described, "box": tuple(described["box"])})
                for described in json.loads(self.screen.evaluate(SCRIPT))]

    def tray_icon(self):
        """The box of Tovla's icon in the top bar, the last one added by the extension."""
        box = self.screen.evaluate("""
const indicators = Object.keys(Main.panel.statusArea).filter(name => name.startsWith("appindicator"))
    .map(name => Main.panel.statusArea[name]).filter(indicator => indicator.visible);
const last = indicators[indicators.length - 1];
last ? [...last.get_transformed_position(), ...last.get_transformed_size()] : null
""")
        if not box:
            return None
        x, y, width, height = (round(value) for value in box)
        return (x, y, x + width, y + height)
