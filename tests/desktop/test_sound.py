# SPDX-License-Identifier: MIT
"""The sounds, recorded from a private sound server with a null sink."""
import os
import signal
import subprocess
import unittest
import wave
from pathlib import Path

import numpy

import accessibility
from case import DesktopCase, active_window_title, press_keys
from desktop import wait_for

RATE = 32000
SOUNDS = Path(os.environ["TOVLA"]).resolve().parent.parent / "share/sounds/tovla/stereo"


def sound(name):
    with wave.open(str(SOUNDS / f"{name}.wav")) as file:
        return numpy.frombuffer(file.readframes(file.getnframes()), "<i2").astype(float)


def likeness(recorded, name):
    """The highest normalised correlation of the sound with any section of the recording."""
    pattern = sound(name)
    if len(recorded) < len(pattern):
        return 0
    size = len(recorded) + len(pattern)
    spectrum = numpy.fft.rfft(recorded, size) * numpy.conj(numpy.fft.rfft(pattern, size))
    matches = numpy.fft.irfft(spectrum, size)[:len(recorded) - len(pattern) + 1]
    sums = numpy.concatenate(([0], numpy.cumsum(recorded ** 2)))
    energy = sums[len(pattern):] - sums[:-len(pattern)]
    scale = numpy.sqrt(numpy.maximum(energy, 1) * (pattern ** 2).sum())
    return float((matches / scale).max())


class SoundTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.start_server()

    def start_server(self):
        socket = self.desktop.home / "pulse"
        os.environ["PULSE_SERVER"] = f"unix:{socket}"
        self.server = self.desktop.start(
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
            "-L", f"module-native-protocol-unix socket={socket} auth-anonymous=1",
            "-L", f"module-null-sink sink_name=nul rate={RATE}")
        wait_for(lambda: socket.exists() and subprocess.run(
            ["pactl", "info"], stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL).returncode == 0, "the sound server")
        # Keeps the sink's latency low, so that the monitor has what is playing now.
        self.desktop.start("pacat", "--playback", "--latency-msec=10", "--format=s16le",
                           f"--rate={RATE}", "--channels=1", "/dev/zero")
        self.recording = self.desktop.home / "recording"
        with open(self.recording, "wb") as file:
            self.recorder = self.desktop.start(
                "parec", "-d", "nul.monitor", "--latency-msec=20", "--format=s16le",
                f"--rate={RATE}", "--channels=1", stdout=file)
        wait_for(lambda: self.recording.stat().st_size > 0, "the recorder")

    def tearDown(self):
        super().tearDown()
        self.stop_server()

    def stop_server(self):
        for process in (self.recorder, self.server):
            process.kill()
            process.wait()
        (self.desktop.home / "pulse").unlink(missing_ok=True)

    def recorded(self):
        content = self.recording.read_bytes()
        return numpy.frombuffer(content[:len(content) // 2 * 2], "<i2").astype(float)

    def wait_for_sound(self, name):
        wait_for(lambda: likeness(self.recorded(), name) > 0.9, f"{name} in the recording")

    def test_prompt_plays_the_chosen_sound(self):
        self.start(soundName="Submarine")
        self.open_prompt()
        self.wait_for_sound("Submarine")
        self.assertLess(likeness(self.recorded(), "Purr"), 0.5)

    def test_unknown_stored_name_plays_purr(self):
        self.start(soundName="Beep")
        self.open_prompt()
        self.wait_for_sound("Purr")

    def test_new_sound_stops_the_old(self):
        self.start(soundName="Submarine")
        self.item.click("Settings…")
        wait_for(lambda: active_window_title() == "Tovla Settings", "the settings to be active")
        accessibility.press("Preview")
        wait_for(lambda: numpy.abs(self.recorded()).max(initial=0) > 1000, "the first sound")
        accessibility.find("Sound").get_component_iface().grab_focus()
        press_keys("Down")
        wait_for(lambda: "soundName=Tink" in self.desktop.preferences_file().read_text(),
                 "the other name")
        accessibility.press("Preview")
        self.wait_for_sound("Tink")
        self.assertLess(likeness(self.recorded(), "Submarine"), 0.95)

    def test_hanging_server_costs_only_the_sound(self):
        self.start()
        self.server.send_signal(signal.SIGSTOP)
        editor = self.open_prompt()
        press_keys("x", "Escape")
        self.wait_until_no_prompt()
        self.assertIsNotNone(editor)
        self.item.click("Quit")
        self.assertEqual(self.tovla.wait_for_end(), 0)

    def test_dead_server_costs_only_the_sound_and_a_new_one_is_found(self):
        self.start(soundName="Glass")
        self.stop_server()
        self.open_prompt()
        press_keys("Escape")
        self.wait_until_no_prompt()
        self.start_server()
        self.open_prompt()
        self.wait_for_sound("Glass")


if __name__ == "__main__":
    unittest.main()
