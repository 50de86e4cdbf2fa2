# SPDX-License-Identifier: MIT
"""Checks that the card follows the desktop's scale: one that is open, and one that opens then. It
must have the right size, be drawn in full and be in the middle of the screen."""
from PIL import Image, ImageChops

import program
from pictures import settled_picture
from report import Failed, NotRun
from waiting import comes, wait_for

SCALES = (1.5, 2, 1)
# In logical pixels, from the card's upper left corner: the close button, the middle, and a line across
# the white box above its text.
BUTTON, BUTTON_CENTRE, MIDDLE = 12, (18, 14), 280
LINE_LEFT, LINE_RIGHT, LINE_TOP = 24, 536, 48
# The button's colour, which hardly anything else on the screen has.
RED, TOLERANCE = (0xFF, 0x5F, 0x57), 12


class ScaleChecks:
    def __init__(self, desktop, report):
        self.desktop = desktop
        self.screen = desktop.screen
        self.report = report

    def run(self):
        program.start()
        self.report.check("the card at other scales", self.card)
        program.quit_program()

    def card(self):
        seen, unseen = [], []
        for scale in SCALES:
            try:
                self.card_at(scale)
                seen.append(f"{scale} (card-at-{scale}.png)")
            except NotRun as reason:
                unseen.append(str(reason))
        if len(seen) < 2:
            raise NotRun("; ".join(dict.fromkeys(unseen)))
        return "; ".join([f"an open card and a new one are right at {', '.join(seen)}", *unseen])

    def card_at(self, scale):
        program.act("write-now")
        try:
            wait_for(lambda: button_in(self.screen.picture()), "the card")
            self.desktop.set_scale(scale)
            self.measure(scale, "an open card")
            self.close_card()
            program.act("write-now")
            self.measure(scale, "a new card")
            self.report.picture(f"card-at-{scale}", settled_picture(self.screen))
        finally:
            self.close_card()

    def close_card(self):
        self.screen.press("Escape")
        comes(lambda: not button_in(self.screen.picture()))

    def measure(self, scale, which):
        if not comes(lambda: is_whole(self.screen.picture(), scale), 10):
            name = self.report.picture(f"card-at-{scale}", self.screen.picture())
            raise Failed(f"{which} has another size or place, or is not drawn in full at {scale} "
                         f"({name})")


def button_in(picture):
    """The box around the close button, or None."""
    # Not in a panel, where letters on red may have any colour.
    panel = picture.height // 10
    middle = Image.new("RGB", picture.size)
    middle.paste(picture.crop((0, panel, picture.width, picture.height - panel)), (0, panel))
    difference = ImageChops.difference(middle, Image.new("RGB", picture.size, RED))
    red, green, blue = (part.point(lambda value: 255 * (value <= TOLERANCE))
                        for part in difference.split())
    box = ImageChops.multiply(ImageChops.multiply(red, green), blue).getbbox()
    if not box or abs((box[2] - box[0]) - (box[3] - box[1])) > 2:
        return None
    return box


def is_whole(picture, scale):
    """Whether the picture shows a card of that scale with its box drawn from edge to edge."""
    box = button_in(picture)
    if not box or abs((box[2] - box[0]) - BUTTON * scale) > 2:
        return False
    left = (box[0] + box[2]) / 2 - BUTTON_CENTRE[0] * scale
    top = (box[1] + box[3]) / 2 - BUTTON_CENTRE[1] * scale
    if abs(left + MIDDLE * scale - picture.width / 2) > 4:
        return False
    line = (round(left + LINE_LEFT * scale), round(top + LINE_TOP * scale),
            round(left + LINE_RIGHT * scale), round(top + LINE_TOP * scale) + 1)
    return all(min(color) > 250 for color in picture.crop(line).getdata())
