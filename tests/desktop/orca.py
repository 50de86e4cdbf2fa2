# SPDX-License-Identifier: MIT
"""The screen reader Orca with a silent speech server, and everything that it says."""
import os
import re
import signal
import subprocess
import threading
import tty

from desktop import output, wait_for

UTTERANCE = re.compile(r"SPEECH OUTPUT: '(.*)'(?= voice=|\s*\{|$)", re.MULTILINE)
PROBE = "left control"


def alike(utterance):
    """The utterance in words that all versions of Orca share: older ones speak of a push button, and
    newer ones say a progress bar's name with each percentage."""
    named_bar = re.sub(r"^(Progress bar \d+\.) .* (\d+ percent)", r"\1 \2", utterance)
    return named_bar.replace("push button", "button")


class Orca:
    """To be started anew for each test: it remembers the objects of killed programs, and a
    newer one then now and then takes a living object for one of them and does not speak of it."""

    def __init__(self, desktop):
        self.log = ""
        self.forgotten = 0
        terminal = self.start_reading()
        self.process = desktop.start(
            "orca", "--disable", "braille", "--user-prefs", str(desktop.home / "orca"),
            "--debug-file", terminal,
            env={**os.environ, "PATH": f"{folder_without_others(desktop)}:{os.environ['PATH']}"})
        wait_for(lambda: "Screen reader on." in self.said(), "the screen reader")
        # Newer ones say less of what is around a control, and some of it twice.
        version = re.search(r"\d+", output("orca", "--version"))
        self.is_terse = int(version[0]) >= 46

    def close(self):
        os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()
        os.close(self.writer)

    def start_reading(self):
        """Returns the log's path: a terminal, because only there Orca writes each line at once."""
        reader, writer = os.openpty()
        tty.setraw(writer)

        def read():
            try:
                while data := os.read(reader, 65536):
                    self.log += data.decode(errors="replace")
            except OSError:
                pass  # Orca has ended
            os.close(reader)

        threading.Thread(target=read, daemon=True).start()
        self.writer = writer  # to be kept open
        return os.ttyname(writer)

    def utterances(self):
        whole_lines = self.log[self.forgotten:self.log.rfind("\n") + 1]
        return [utterance.strip() for utterance in UTTERANCE.findall(whole_lines)]

    def said(self):
        """All utterances since the last call of forget(), without the keys of wait_until_silent()."""
        return [utterance for utterance in self.utterances() if utterance != PROBE]

    def count(self, text):
        """How often it has said this text, on its own or as words of a sentence."""
        words = re.compile(rf"(?<!\w){re.escape(text)}(?!\w)")
        return sum(len(words.findall(alike(utterance))) for utterance in self.said())

    def wait_until_silent(self):
        """Waits until nothing is left to be said: until nothing has happened to Orca between two
        presses of a key that it speaks and the program ignores."""
        before = None
        while before != (before := self.log.count("OBJECT EVENT: ")):
            pressed = self.utterances().count(PROBE)
            subprocess.run(["xdotool", "key", "Control_L"], check=True)
            wait_for(lambda: self.utterances().count(PROBE) > pressed, "the key to be said")

    def forget(self):
        self.forgotten = self.log.rfind("\n") + 1


def start_speech_server(desktop):
    configuration = desktop.home / "speech"
    configuration.mkdir()
    # Of the outputs for sound, this one needs no sound server.
    (configuration / "speechd.conf").write_text('AudioOutputMethod "libao"\n'
                                                'AddModule "dummy" "sd_dummy" ""\n'
                                                'DefaultModule "dummy"\n')
    socket = configuration / "socket"
    desktop.start("speech-dispatcher", "--run-single", "--timeout", "0", "--communication-method",
                  "unix_socket", "--socket-path", str(socket), "--config-dir", str(configuration),
                  "--log-dir", str(configuration), "--pid-file", str(configuration / "pid"))
    wait_for(socket.exists, "the speech server")
    os.environ["SPEECHD_ADDRESS"] = f"unix_socket:{socket}"


def folder_without_others(desktop):
    """A folder for the path. Orca searches for other processes of its name and does not start beside
    one of the same user, although that may serve another test's desktop."""
    folder = desktop.home / "bin"
    folder.mkdir(exist_ok=True)
    search = folder / "pgrep"
    search.write_text("#!/bin/sh\nexit 1\n")
    search.chmod(0o755)
    return folder
