# SPDX-License-Identifier: MIT
"""Every window, node by node, as seen by a screen reader and a user without a pointer."""
import unittest

from gi.repository import GLib

import accessibility
from accessibility import Atspi, find, is_focused, nodes, text_of
from case import (QUESTION, DesktopCase, active_window_title, press_keys, type_text,
                  visible_titles)
from desktop import wait_for
from updates import BROKEN, OFFER, UP_TO_DATE, UpdateService, start_system_bus

Role = Atspi.Role
State = Atspi.StateType

WINDOWS = {Role.FRAME, Role.WINDOW, Role.DIALOG, Role.ALERT}
CONTROLS = {Role.PUSH_BUTTON, Role.RADIO_BUTTON, Role.COMBO_BOX, Role.TEXT, Role.SPIN_BUTTON}
# Layout containers. They say nothing themselves, so they must contain something.
CONTAINERS = {Role.FILLER, Role.PANEL}
SHOWN = CONTROLS | CONTAINERS | {Role.LABEL, Role.IMAGE, Role.PROGRESS_BAR}
TOOLKITS_OWN_ACTIONS = {"SetFocus", "Increase", "Decrease"}
HINT = "Control Return to save, Escape to cancel"


def has(node, *states):
    return all(node.get_state_set().contains(state) for state in states)


def actions(node):
    """The node's actions, without those that the toolkit adds to all that has a focus or a value."""
    action = node.get_action_iface()
    names = [action.get_action_name(index) for index in range(action.get_n_actions())] \
        if action else []
    return [name for name in names if name not in TOOLKITS_OWN_ACTIONS]


def describe(node):
    # Older AT-SPI says "push button", newer AT-SPI says "button".
    return f"{node.get_role_name().removeprefix('push ')} {node.get_name()!r}"


def shown_nodes(window):
    return [node for node in nodes(window) if has(node, State.SHOWING)]


def window_titled(title):
    return wait_for(lambda: next((window for window in accessibility.windows()
                                  if window.get_name() == title), None), f"the window {title!r}")


def window_that_shows(what):
    try:
        return next((window for window in accessibility.windows()
                     if what in map(describe, shown_nodes(window))), None)
    except GLib.Error:
        return None  # the program has just ended


def sounds():
    """The items of the pop-up's open list."""
    return [node for node in nodes(find("Sound", Role.COMBO_BOX))
            if node.get_role() == Role.LIST_ITEM]


def focused(focusable):
    return next((name for name, node in focusable.items() if is_focused(node)), None)


class Events:
    """The program's events for screen readers, as (type, role, name, detail)."""

    def __init__(self, *types):
        self.seen = []
        self.listener = Atspi.EventListener.new(self.take)
        self.types = types
        for kind in types:
            self.listener.register(kind)

    def take(self, event):
        try:
            self.seen.append((event.type, event.source.get_role(), event.source.get_name(),
                              event.detail1))
        except GLib.Error:
            pass  # the source has already disappeared

    def stop(self):
        for kind in self.types:
            self.listener.deregister(kind)


class AccessibilityTest(DesktopCase):
    def check_window(self, window, forward, backward):
        """@p forward and @p backward are the keys that move focus."""
        self.assertIn(window.get_role(), WINDOWS)
        self.assertNotEqual(window.get_name(), "")
        self.assertTrue(has(window, State.ACTIVE, State.ENABLED, State.VISIBLE))
        for node in nodes(window)[1:]:
            with self.subTest(node=describe(node), of=window.get_name()):
                if has(node, State.SHOWING):
                    self.check_shown(node)
                else:
                    self.assertFalse(has(node, State.FOCUSABLE) and has(node, State.VISIBLE))
        self.check_focus_chain(window, forward, backward)

    def check_shown(self, node):
        role = node.get_role()
        self.assertIn(role, SHOWN)
        self.assertTrue(has(node, State.ENABLED, State.SENSITIVE, State.VISIBLE))
        if role in CONTAINERS:
            self.assertTrue(any(has(child, State.SHOWING) for child in nodes(node)[1:]))
        else:
            self.assertNotEqual(node.get_name(), "")
        self.assertEqual(has(node, State.FOCUSABLE) or bool(actions(node)),
                         role in CONTROLS or (role == Role.LABEL and has(node, State.FOCUSABLE)))
        if has(node, State.FOCUSED):
            self.assertTrue(has(node, State.FOCUSABLE))
        if role in CONTROLS and not has(node, State.FOCUSABLE):
            # The two halves of a stepper, which handles the keys for both.
            self.assertTrue(has(node.get_parent(), State.FOCUSABLE))
            self.assertEqual(node.get_parent().get_role(), Role.SPIN_BUTTON)
        if role == Role.TEXT:
            self.assertNotEqual(has(node, State.EDITABLE), has(node, State.READ_ONLY))
            self.assertIsNotNone(node.get_text_iface())

    def check_focus_chain(self, window, forward, backward):
        """In both directions, focus goes once through everything that can have it and returns to
        where it began. In a group of radio buttons, only the checked one can have it."""
        focusable = {describe(node): node for node in shown_nodes(window)
                     if has(node, State.FOCUSABLE)}
        expected = {name for name, node in focusable.items()
                    if node.get_role() != Role.RADIO_BUTTON or has(node, State.CHECKED)}
        there = self.walk(focusable, forward, len(expected))
        self.assertEqual(set(there), expected)
        back = self.walk(focusable, backward, len(expected))
        self.assertEqual(back[:-1][::-1] + back[-1:], there)

    def walk(self, focusable, key, steps):
        seen = []
        for _ in range(steps):
            before = focused(focusable)
            press_keys(key)
            if steps > 1:
                wait_for(lambda: focused(focusable) not in (None, before), "the focus to move")
            seen.append(focused(focusable))
        return seen

    def open_settings(self, **preferences):
        self.start(**preferences)
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")
        window = window_titled("Tovla Settings")
        wait_for(lambda: any(map(is_focused, nodes(window))), "the focus in the settings")
        return window

    def test_prompt(self):
        self.start()
        self.open_prompt()
        (title,) = self.prompt_titles()
        window = window_titled(title)
        self.check_window(window, "ctrl+Tab", "ctrl+shift+Tab")
        self.assertLessEqual({"label " + repr(title), "button 'Close'", f"text {QUESTION!r}"},
                             {describe(node) for node in shown_nodes(window)})

    def test_settings(self):
        for preferences in ({}, {"folder": False}):
            with self.subTest(**preferences):
                self.check_window(self.open_settings(**preferences), "Tab", "shift+Tab")
            self.desktop.stop_tovlas()
            self.desktop.forget_user()

    def test_settings_tell_all_that_they_show(self):
        window = self.open_settings(soundName="Glass", theme="dark")
        shown = shown_nodes(window)
        folder = str(self.desktop.journal())
        names = {node.get_name() for node in shown}
        for text in ("Journal", folder, "minutes", "next at", "Preview", "Choose…"):
            self.assertIn(text, names)
        groups = {node.get_name(): node.get_description() for node in shown
                  if node.get_role() == Role.PANEL}
        self.assertEqual(groups, {"Folder": "Entries are saved as daily Markdown files",
                                  "Prompt Frequency": "How often you'll be nudged to write",
                                  "Appearance": "Choose how Tovla looks", "Theme": "",
                                  "Alert Sound": "Played when a writing prompt appears"})
        self.assertEqual(text_of(find("Prompt Frequency", Role.TEXT)), "60")
        stepper = find("Prompt Frequency", Role.SPIN_BUTTON)
        value = stepper.get_value_iface()
        self.assertEqual((value.get_current_value(), value.get_minimum_value(),
                          value.get_maximum_value(), value.get_minimum_increment()),
                         (60, 1, 1440, 5))
        self.assertEqual(find("Choose…").get_description(), f"Journal, {folder}")
        self.assertEqual(find("Prompt Frequency", Role.TEXT).get_description(), "minutes")
        self.assertRegex(stepper.get_description(), r"^next at \d\d:\d\d$")
        self.assertEqual(find("Sound", Role.COMBO_BOX).get_description(), "Glass")
        checked = [node.get_name() for node in shown if has(node, State.CHECKED)]
        self.assertEqual(checked, ["Dark"])

    def test_settings_are_operated_with_keys(self):
        self.open_settings()
        stepper = find("Prompt Frequency", Role.SPIN_BUTTON)
        self.focus(stepper)
        value = stepper.get_value_iface()
        press_keys("Up")
        wait_for(lambda: value.get_current_value() == 65, "a step up")
        press_keys("Down", "Down")
        wait_for(lambda: value.get_current_value() == 55, "two steps down")
        self.focus(find("Follow System"))
        press_keys("Down")
        light = find("Light")
        wait_for(lambda: has(light, State.CHECKED, State.FOCUSED), "the next radio button")
        press_keys("alt+d")
        wait_for(lambda: has(find("Dark"), State.CHECKED), "the one of that letter")
        self.focus(find("Sound", Role.COMBO_BOX))
        press_keys("Down")
        sound = find("Sound", Role.COMBO_BOX)
        wait_for(lambda: sound.get_description() == "Sosumi", "the next sound")
        for key in ("space", "Return"):
            self.focus(find("Choose…"))
            press_keys(key)
            wait_for(lambda: active_window_title() != "Tovla Settings", "the chooser")
            press_keys("Escape")
            wait_for(lambda: active_window_title() == "Tovla Settings", "the settings again")

    def test_keys_enter_the_radio_buttons_at_the_checked_one(self):
        self.open_settings(theme="dark")
        self.focus(find("Prompt Frequency", Role.SPIN_BUTTON))
        press_keys("Tab")
        wait_for(lambda: is_focused(find("Dark")), "the focus on the checked one")
        self.focus(find("Sound", Role.COMBO_BOX))
        press_keys("shift+Tab")
        wait_for(lambda: is_focused(find("Dark")), "the focus on the checked one")

    def test_every_control_is_operated_by_assistive_technology(self):
        """Only through the accessibility interface, but for the tray's menu and the folder chooser,
        which are the desktop's, for saving, which has only keys, and for the items of the open list,
        for which the toolkit has no action."""
        start_system_bus(self.desktop)
        service = UpdateService(self.desktop, OFFER)
        self.addCleanup(service.stop)
        self.start(folder=False)
        editor = self.open_prompt()
        self.write(editor, "nowhere to go")
        press_keys("ctrl+Return")
        wait_for(lambda: active_window_title() == "Journal", "the alert to be active")
        accessibility.press("OK")
        wait_for(lambda: active_window_title() != "Journal", "the alert to close")

        self.item.click("Settings…")
        self.choose_folder()
        wait_for(lambda: find("Choose…").get_description() == f"Journal, {self.desktop.journal()}",
                 "the folder to be told")
        value = find("Prompt Frequency", Role.SPIN_BUTTON).get_value_iface()
        number = find("Prompt Frequency", Role.TEXT)
        for asked, taken in ((90, "90"), (0, "1"), (99999, "1440"), (25, "25")):
            value.set_current_value(asked)
            wait_for(lambda: text_of(number).replace(",", "") == taken, f"{taken} minutes")
        accessibility.press("Increase")
        wait_for(lambda: text_of(number) == "30", "a step up")
        accessibility.press("Decrease")
        wait_for(lambda: text_of(number) == "25", "a step down")
        accessibility.press("Light")
        wait_for(lambda: has(find("Light"), State.CHECKED), "the appearance")
        accessibility.press("Sound")
        wait_for(lambda: len(sounds()) == 14, "the open list")
        self.assertEqual([node.get_name() for node in sounds() if has(node, State.SELECTED)],
                         ["Purr"])
        press_keys("Home", "Down", "Down", "Return")
        sound = find("Sound", Role.COMBO_BOX)
        wait_for(lambda: sound.get_description() == "Bottle", "the sound")
        preferences = self.desktop.preferences_file()
        wait_for(lambda: all(line in preferences.read_text() for line in
                             ("intervalMinutes=25", "theme=light", "soundName=Bottle")),
                 "the preferences")

        editor = self.open_prompt()
        self.write(editor, "all by hearing")
        self.wait_for_text(editor, "all by hearing")
        press_keys("ctrl+Return")
        self.wait_for_day_file(lambda content: content.endswith(b"\nall by hearing\n"))

        self.open_prompt()
        accessibility.press("Close")
        self.wait_until_no_prompt()

        self.item.click("Check for Updates…")
        find("A new version of Tovla is available!")
        accessibility.press("Install Update")
        find("Update Installed")
        accessibility.press("Later")
        wait_for(lambda: "Software Update" not in visible_titles(), "the window to close")

    def test_close_button_is_pressed_with_keys(self):
        self.start()
        self.open_prompt()
        press_keys("ctrl+Tab")
        wait_for(lambda: is_focused(find("Close")), "the focus on the button")
        press_keys("space")
        self.wait_until_no_prompt()

    def write(self, node, text):
        node.get_editable_text_iface().set_text_contents(text)

    def wait_for_text(self, node, text):
        wait_for(lambda: text_of(node) == text, f"the text {text!r}")

    def focus(self, node):
        node.get_component_iface().grab_focus()
        wait_for(lambda: is_focused(node), f"the focus on {describe(node)}")

    def test_alert(self):
        self.start(folder=False)
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings")
        self.open_prompt()
        events = Events("window:activate")
        type_text("nowhere to go")
        press_keys("ctrl+Return")
        wait_for(lambda: active_window_title() == "Journal", "the alert to be active")
        wait_for(lambda: ("window:activate", Role.ALERT, "Journal") in
                 [event[:3] for event in events.seen], "the alert to be told of")
        events.stop()
        window = window_titled("Journal")
        wait_for(lambda: is_focused(find("OK")), "the focus on the button")
        self.assertIn("label 'Pick a folder in Settings before saving entries.'",
                      {describe(node) for node in shown_nodes(window)})
        self.check_window(window, "Tab", "shift+Tab")
        self.focus(find("OK"))
        press_keys("space")
        wait_for(lambda: active_window_title() != "Journal", "the alert to close")

    def test_updates(self):
        start_system_bus(self.desktop)
        unanswered = {**UP_TO_DATE, "RefreshCache": [{"then": "hang"}]}
        for scenario, shown in ((OFFER, "label 'A new version of Tovla is available!'"),
                                (BROKEN, "label 'Update Error!'"),
                                (unanswered, "progress bar 'Checking for updates…'")):
            with self.subTest(shown=shown):
                service = UpdateService(self.desktop, scenario)
                self.start()
                self.item.click("Check for Updates…")
                window = wait_for(lambda: window_that_shows(shown), shown)
                wait_for(lambda: any(map(is_focused, nodes(window))), "the focus")
                self.check_window(window, "Tab", "shift+Tab")
                self.desktop.stop_tovlas()
                service.stop()

    def test_screen_reader_hears_the_prompt_and_its_question(self):
        self.start()
        events = Events("window:activate", "object:state-changed:focused")
        editor = self.open_prompt()
        (title,) = self.prompt_titles()
        wait_for(lambda: ("window:activate", Role.DIALOG, title) in
                 [event[:3] for event in events.seen], "the prompt to be told of")
        wait_for(lambda: ("object:state-changed:focused", Role.TEXT, QUESTION, 1) in events.seen,
                 "the question to be told")
        events.stop()
        self.assertEqual(editor.get_description(), HINT)
        self.assertTrue(has(editor, State.MULTI_LINE, State.EDITABLE, State.FOCUSABLE))
        type_text("heard")
        wait_for(lambda: text_of(editor) == "heard", "the text to be told")


if __name__ == "__main__":
    unittest.main()
