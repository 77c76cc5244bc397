"""Tells a program that hangs from one that works: by what it answers, and by the processor time that it takes."""

import os
import pathlib
import time

TICK = os.sysconf("SC_CLK_TCK")
QUIET = 5  # seconds without an answer, in which a program that works has taken some of the processor
IDLE = 0.02  # seconds of the processor in that time: what timers take
LONGEST = 180  # seconds after which work that does not answer is a loop without an end


class Hang(AssertionError):
    pass


def worked(pid):
    """Seconds of the processor that all threads of a program have taken so far; nothing once it has ended."""
    try:
        fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    except FileNotFoundError:
        return None
    return None if fields[0] in "ZX" else (int(fields[11]) + int(fields[12])) / TICK


class Watchdog:
    """Asks a program by `ask(seconds)`, which gives its answer, or nothing when there was none in that time."""

    def __init__(self, pid, ask, quiet=QUIET, longest=LONGEST):
        self.pid, self.ask, self.quiet, self.longest = pid, ask, quiet, longest

    def answer(self):
        """Its next answer, nothing where it has ended; a `Hang` where none can be hoped for."""
        begin = since = time.monotonic()
        before, idle = worked(self.pid), 0
        while not (told := self.ask(self.quiet)):
            # A program that ends does not even listen any more: that answer comes at once.
            time.sleep(0.02)
            now, spent = time.monotonic(), worked(self.pid)
            if spent is None:
                return None
            if now - since < self.quiet:
                continue
            # A busy machine may let a program wait for once, but not three times in a row.
            idle = idle + 1 if spent - before < IDLE else 0
            if idle == 3:
                raise Hang(f"asleep without an answer for {now - begin:.0f} s")
            if now - begin > self.longest:
                raise Hang(f"at work without an answer for {now - begin:.0f} s")
            before, since = spent, now
        return told
