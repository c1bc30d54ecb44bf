#!/usr/bin/env python3
"""Checks what a comparison of large documents costs: beside a check of one of them, and when the
documents grow. Usage: diff-scale.py ZTXML"""

import os
import subprocess
import sys
import tempfile

ZTXML = sys.argv[1]
TRIES = 4  # others may use the processor
failures = 0


def fail(what):
    global failures
    failures += 1
    print("FAILED:", what, file=sys.stderr)


def cost(expected, *arguments):
    """The user time in seconds, and the peak memory in bytes."""
    child = subprocess.Popen([ZTXML, *arguments], stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != expected:
        fail(f"{' '.join(arguments)}: exit status {child.returncode}")
    return max(usage.ru_utime, 1e-3), usage.ru_maxrss * 1024


# ---- Documents ----------------------------------------------------------------------------------
def registration(number, expires=3600):
    return (f'<registration aor="sip:u{number}@example.com" id="r{number}" state="active">'
            f'<contact id="c{number}" state="active" event="registered" expires="{expires}">'
            f"<uri>sip:u{number}@192.0.2.1:5060;transport=tcp</uri></contact></registration>\n")


def entry(uri, name=""):
    name = f"<display-name>{name}</display-name>" if name else ""
    return f'<entry uri="sip:{uri}">{name}</entry>\n'


def mutated(make, count):
    """Entries of which some have changed, some are new or gone, and some have moved."""
    moved = []
    for number in range(count):
        if number % 500 == 5:
            moved.append(make(number))
        elif number % 500 == 50:
            yield make(number)
            yield moved.pop()
        elif number % 1000 == 7:
            yield make(number + count)
        elif number % 1000 != 8:
            yield make(number, 1800) if number % 97 == 0 else make(number)


def write(path, root, entries):
    name = root.split()[0]
    with open(path, "w", encoding="utf-8") as file:
        file.write(f"<{root}>\n")
        file.writelines(entries)
        file.write(f"</{name}>\n")


REGINFO = 'reginfo xmlns="urn:ietf:params:xml:ns:reginfo" version="1" state="full"'
LISTS = 'resource-lists xmlns="urn:ietf:params:xml:ns:resource-lists"'


def listed(entries):
    yield '<list name="a">'
    yield from entries
    yield "</list>"


def named(number, more=0):
    return entry(f"user{number}@example.com", f"User {number} {more}")


# ---- Beside a check -----------------------------------------------------------------------------
def compare_with_check(what, root, old, new):
    write("old.xml", root, old)
    write("new.xml", root, new)
    size = os.path.getsize("old.xml") + os.path.getsize("new.xml")
    times = []
    for _ in range(TRIES):
        check, _ = cost(0, "check", "old.xml")
        diff, memory = cost(1, "diff", "old.xml", "new.xml")
        times.append(diff / check)
        if times[-1] <= 5:
            break
    print(f"diff-scale: {what}: {min(times):.1f} times a check, {memory / size:.1f} times the size")
    if min(times) > 5:
        fail(f"{what}: {min(times):.1f} times a check")
    if memory > 6 * size:
        fail(f"{what}: {memory} bytes for {size}")


def all_of(make, count):
    return (make(number) for number in range(count))


# ---- Growth -------------------------------------------------------------------------------------
# What an alignment, or names with numbers, could be quadratic in.
def nested(seed, count):
    for number in range(count // 100):
        yield "<list>" * 100 + entry(number + seed * (number % 5)) + "</list>" * 100


HOSTILE = {
    "all alike": lambda new, count: listed(entry("a" if i != new * count // 2 else "b") for i in range(count)),
    "all different": lambda new, count: listed(entry(f"{new}-{i}") for i in range(count)),
    "reversed": lambda new, count: listed(entry(count - i if new else i) for i in range(count)),
    "one key": lambda new, count: listed(entry("a", f"{new}-{i}") for i in range(count)),
    "in turns": lambda new, count: listed(entry((i + new) % 2) for i in range(count)),
    "nested": nested,
}


def check_growth(what, make):
    small, factor = 6000, 8
    ratios = []
    for _ in range(TRIES):
        times = []
        for count in (small, small * factor):
            write("old.xml", LISTS, make(0, count))
            write("new.xml", LISTS, make(1, count))
            times.append(cost(1, "diff", "old.xml", "new.xml")[0])
        ratios.append(times[1] / times[0])
        if ratios[-1] <= 2.5 * factor:
            return
    fail(f"{what}: {factor} times the entries take {min(ratios):.1f} times the time")


with tempfile.TemporaryDirectory() as folder:
    os.chdir(folder)
    compare_with_check("registrations", REGINFO, all_of(registration, 25000), mutated(registration, 25000))
    compare_with_check("resource lists", LISTS, listed(all_of(named, 70000)), listed(mutated(named, 70000)))
    for name, maker in HOSTILE.items():
        check_growth(name, maker)
    os.chdir("/")
if not failures:
    print("diff-scale: all passed")
sys.exit(failures > 0)
