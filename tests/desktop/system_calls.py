# SPDX-License-Identifier: MIT
"""What a program does of its own accord, told from what others give it occasion for.

Others reach it whatever the tests do: whoever sets the clock, for instance, sets that of all
programs on the machine, and each must hear of it.
"""
import re
import subprocess
import tempfile
from pathlib import Path

# What a thread sleeps in until something comes.
WAIT = r"(?:poll|ppoll|select|pselect6|epoll_wait|epoll_pwait2?|futex|restart_syscall)\("
WOKEN = re.compile(WAIT + r".* = (?:\d+|\d+ \(.*\)|-1 EINTR .*|\? ERESTART.*)$")
# What it looks into without sleeping, while it is awake anyway.
GLANCE = re.compile(r"(?:, 0|\{tv_sec=0, tv_nsec=0\}(?:, NULL(?:, \d+)?)?)\) += 0 \(Timeout\)$")
# The end of a while that it wanted to sleep for at most.
TIMER = re.compile(rf"{WAIT}.* = 0 \(Timeout\)$|.* = -1 ETIMEDOUT |restart_syscall\(.* = 0$"
                   r"|(?:clock_)?nanosleep\(.* = 0$|read\(\d+<anon_inode:\[timerfd\]>.* = \d+$"
                   r"|--- SIG")
# From the display, a bus, a file that was changed, or the clock that was set.
MESSAGE = re.compile(r"(?:read|recvmsg|recvfrom)\(\d+<(?:socket|UNIX|TCP|anon_inode:inotify)"
                     r".* = [1-9]\d*$|read\(\d+<anon_inode:\[timerfd\]>.* = -1 ECANCELED ")
# A program that never sleeps makes as many in no time.
MOST_CALLS_FOR_A_MESSAGE = 100


class Calls:
    """Those that have returned, in order, from what strace prints line by line; own are those that
    no message gave occasion for."""

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
    """Of a process and all its threads."""

    def __init__(self, pid):
        super().__init__()
        self._file = tempfile.NamedTemporaryFile(mode="r")
        self._rest = ""
        self._strace = subprocess.Popen(
            ["strace", "--follow-forks", "--decode-fds=path", f"--attach={pid}",
             f"--output={self._file.name}"], stdout=subprocess.DEVNULL,
            stderr=subprocess.PIPE, text=True)
        # "Process 1 attached" or "attach: ptrace(PTRACE_SEIZE, 1): Operation not permitted".
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
    """Stands in for SystemCalls where strace is not permitted: what the kernel counts, which is
    what others give occasion for as well."""

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
