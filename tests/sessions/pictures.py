# SPDX-License-Identifier: MIT
"""Analyses screenshots. A box is left, top, right and bottom."""
from collections import Counter

from PIL import Image, ImageChops

from waiting import InVain, wait_for


def changed_box(before, after, outside=None, threshold=24):
    """The box around everything that changed, or None. @p outside is a box to ignore."""
    difference = ImageChops.difference(before, after).convert("L").point(
        lambda value: 255 if value > threshold else 0)
    if outside:
        difference.paste(0, outside)
    return difference.getbbox()


def still_picture(screen, outside=None, patience=15):
    """The screen once two screenshots are the same, ignoring what blinks in the box @p outside."""
    last = screen.picture()

    def is_still():
        nonlocal last
        now = screen.picture()
        same, last = changed_box(last, now, outside, 2) is None, now
        return same and now

    return wait_for(is_still, "the screen to stand still", patience)


def settled_picture(screen):
    """A screenshot for people, once windows are drawn, even if a caret keeps blinking."""
    try:
        return still_picture(screen, patience=5)
    except InVain:
        return screen.picture()


def strip_around(box, picture, margin=14):
    """The panel around that box, across the full width of the screen."""
    return (0, max(0, box[1] - margin), picture.width, min(picture.height, box[3] + margin))


def _luminance(color):
    channels = [value / 255 for value in color]
    linear = [value / 12.92 if value <= 0.04045 else ((value + 0.055) / 1.055) ** 2.4
              for value in channels]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(picture, box):
    """The contrast (WCAG 2) between the box's most frequent colour, assumed to be its background,
    and the colour that differs most from it: 1 is invisible, 21 is black on white."""
    colors = Counter(picture.crop(box).getdata())
    ground = _luminance(colors.most_common(1)[0][0])
    ratios = [(max(ground, other) + 0.05) / (min(ground, other) + 0.05)
              for other in map(_luminance, colors)]
    return max(ratios)


def enlarged(picture, box, factor=8):
    part = picture.crop(box)
    return part.resize((part.width * factor, part.height * factor), Image.Resampling.NEAREST)
