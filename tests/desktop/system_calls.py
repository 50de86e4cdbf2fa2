# SPDX-License-Identifier: MIT
"""Separates what a program does on its own from its reactions to others.

The tests cannot keep others away: setting the clock, for instance, affects all programs on the
machine, and each of them is told.
"""
import re
import subprocess
import tempfile
from pathlib import Path

# The calls in which a thread sleeps until something happens.
WAIT = r"(?:poll|ppoll|select|pselect6|epoll_wait|epoll_pwait2?|futex|restart_syscall)\("
WOKEN = re.compile(WAIT + r".* = (?:\d+|\d+ \(.*\)|-1 EINTR .*|\? ERESTART.*)$")
# A wait with a timeout of zero: a look without sleeping, while the thread is awake anyway.
GLANCE = re.compile(r"(?:, 0|\{tv_sec=0, tv_nsec=0\}(?:, NULL(?:, \d+)?)?)\) += 0 \(Timeout\)$")
# The end of a timeout that the program set itself.
TIMER = re.compile(rf"{WAIT}.* = 0 \(Timeout\)$|.* = -1 ETIMEDOUT |restart_syscall\(.* = 0$"
                   r"|(?:clock_)?nanosleep\(.* = 0$|read\(\d+<anon_inode:\[timerfd\]>.* = \d+$"
                   r"|--- SIG")
# A message from the display or a bus, or the news that a file or the clock was changed.
MESSAGE = re.compile(r"(?:read|recvmsg|recvfrom)\(\d+<(?:socket|UNIX|TCP|anon_inode:inotify)"
                     r".* = [1-9]\d*$|read\(\d+<anon_inode:\[timerfd\]>.* = -1 ECANCELED ")
# A program that never sleeps exceeds this almost immediately.
MOST_CALLS_FOR_A_MESSAGE = 100


class Calls:
    """The calls that have returned, in order, parsed from strace's output line by line. "own" has
    those that are no reaction to a message."""

    def __init__(self):
        self.all = []
        self.own = []
        self._begun = {}
        self._left = 0

    def take(self, line):
        thread, text = line.split(maxsplit=1)
        if text.endswith(" <unfinished ...>"):
            self._begun[thread] = text.removesuffix(" <unfinished ...>")
            return
        resumed = re.match(r"<\.\.\. (\w+) resumed>(.*)", text)
        if resumed:
            text = self._begun.pop(thread, resumed[1] + "(") + resumed[2]
        if not text.endswith("<detached ...>"):
            self._sort(text)

    def _sort(self, call):
        self.all.append(call)
        if TIMER.match(call) and not (GLANCE.search(call) and self._left):
            self.own.append(call)
            self._left = 0
        elif MESSAGE.match(call):
            self._left = MOST_CALLS_FOR_A_MESSAGE
        elif self._left:
            self._left -= 1
        elif not WOKEN.match(call):
            self.own.append(call)


class SystemCalls(Calls):
    """The calls of a process and all its threads."""

    def __init__(self, pid):
        super().__init__()
        self._file = tempfile.NamedTemporaryFile(mode="r")
        self._rest = ""
        self._strace = subprocess.Popen(
            ["strace", "--follow-forks", "--decode-fds=path", f"--attach={pid}",
             f"--output={self._file.name}"], stdout=subprocess.DEVNULL,
            stderr=subprocess.PIPE, text=True)
        # Either "Process 1 attached" or "attach: ptrace(PTRACE_SEIZE, 1): Operation not permitted".
        greeting = self._strace.stderr.readline()
        if " attached" not in greeting:
            self.stop()
            raise PermissionError(greeting)

    def read(self):
        *lines, self._rest = (self._rest + self._file.read()).split("\n")
        for line in lines:
            self.take(line)

    def stop(self):
        if not self._file.closed:
            self._strace.terminate()
            self._strace.communicate()
            self._file.close()


class WakeUps:
    """Replaces SystemCalls where strace is not permitted, with the kernel's counters, which include
    reactions to others."""

    def __init__(self, pid):
        self._tasks = Path(f"/proc/{pid}/task")
        self._seen = {}
        self.own = []
        self.read()

    def read(self):
        for task in self._tasks.iterdir():
            try:
                count = re.search(r"^voluntary_ctxt_switches:.*", (task / "status").read_text(),
                                  re.MULTILINE)[0]
            except (FileNotFoundError, ProcessLookupError):
                continue  # the thread has just ended
            if self._seen.get(task.name) != count:
                self._seen[task.name] = count
                self.own.append(f"{task.name} {count}")

    def stop(self):
        pass
