"""What a process holds: memory, open files, threads. All from the kernel, so that looking changes nothing."""
import collections
import os
import statistics

Vitals = collections.namedtuple("Vitals", "memory_kb files threads")

SANITIZED_KB = 1 << 30


def memory_kb(pid):
    """What is its own: neither files that are mapped nor what it shares."""
    with open(f"/proc/{pid}/smaps_rollup") as facts:
        return next(int(line.split()[1]) for line in facts if line.startswith("Anonymous:"))


def is_sanitized(pid):
    """The address sanitizer reserves terabytes, and notes for itself each thread and each way to an allocation
    that there ever was: its memory tells nothing of the program's. It looks for leaks by itself at the end."""
    with open(f"/proc/{pid}/status") as facts:
        return next(int(line.split()[1]) for line in facts if line.startswith("VmSize:")) > SANITIZED_KB


def kind_of(target):
    """Sockets and pipes are told by their kind; their numbers are new each time."""
    return target.split(":")[0] if target.startswith(("socket:", "pipe:")) else target


def open_files(pid):
    found = collections.Counter()
    for name in os.listdir(f"/proc/{pid}/fd"):
        try:
            found[kind_of(os.readlink(f"/proc/{pid}/fd/{name}"))] += 1
        except OSError:
            pass
    return found


def threads(pid):
    found = collections.Counter()
    for number in os.listdir(f"/proc/{pid}/task"):
        try:
            with open(f"/proc/{pid}/task/{number}/comm") as name:
                found[name.read().strip()] += 1
        except OSError:
            pass
    return found


def vitals(pid):
    return Vitals(memory_kb(pid), open_files(pid), threads(pid))


def same_holdings(one, other):
    return one.files == other.files and one.threads == other.threads


def difference(before, after):
    """What was won and lost, in words."""
    parts = [f"+{count} {name}" for name, count in (after - before).items()]
    parts += [f"-{count} {name}" for name, count in (before - after).items()]
    return ", ".join(parts) or "nothing"


def growth_kb(samples):
    """From the second quarter to the last, by their medians."""
    quarter = len(samples) // 4
    return statistics.median(samples[3 * quarter:]) - statistics.median(samples[quarter: 2 * quarter])
