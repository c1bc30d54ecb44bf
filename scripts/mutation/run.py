"""Makes faults in copies of the tree, builds and tests each, and prints what no test noticed."""

import argparse
import hashlib
import os
import random
import re
import signal
import subprocess
import sys
import threading
from pathlib import Path

from faults import KINDS, Generator, Source

ROOT = Path.cwd()
WORK = ROOT / "build" / "mutate"
MEMORY = 8 << 30  # bytes that a faulty test program may ask for
LEAST_TIMEOUT = 60  # seconds
SANITIZED_TIMEOUT = 600
SLOW_TEST = 100  # milliseconds; slower tests run after the others, by themselves
REPLACED = ["did not compile", "changed nothing"]  # verdicts upon which another fault is made

PARSER = argparse.ArgumentParser(
    prog="mutate",
    formatter_class=argparse.RawDescriptionHelpFormatter,
    description="""\
Makes N small faults, one after another, in a copy of the sources below build/mutate, and runs the
tests on each. Prints the faults that no test notices, then how many there were of each kind. Faults
that do not compile, or change nothing in the program, are counted and replaced by others. The kinds,
of which there are equally many:

"""
    + "\n".join(f"  {kind:<13} {what}" for kind, what in KINDS.items()),
    epilog="""\
Documentation.* and CommandLine are not run. What became of every fault stands in
build/mutate/faults.txt. 200 faults take about 10 minutes with -j 2 on two cores. Exit status: 0 when
all were noticed, 1 when some were not.""",
)
PARSER.add_argument("count", metavar="N", type=int, help="how many faults")
PARSER.add_argument("seed", metavar="SEED", type=int, nargs="?", help="repeats a run; printed")
PARSER.add_argument("-j", dest="workers", type=int, default=1, help="copies that work at once (1)")
PARSER.add_argument("--kind", choices=KINDS, action="append", help="only these faults")
PARSER.add_argument(
    "--sanitize", action="store_true", help="run what survives again, under the sanitizers"
)
PARSER.add_argument("--list", action="store_true", help="print the faults, make none")


def tree():
    """The files of the tree as it is, with what is not committed."""
    git = ["git", "-c", "safe.directory=*", "ls-files", "-z", "--cached", "--others"]
    names = subprocess.run([*git, "--exclude-standard"], stdout=subprocess.PIPE, check=True).stdout
    files = {Path(name) for name in names.decode().split("\0") if name}
    return sorted(file for file in files if file.is_file())


def run(command, log, timeout=None):
    """The command's exit status, None when it took too long; what it started ends with it."""
    with log.open("w") as output, subprocess.Popen(
        command,
        cwd=log.parent,  # a faulty program may write files, and the tests write some
        env={**os.environ, "TEST_TMPDIR": f"{log.parent}/"},
        stdin=subprocess.DEVNULL,
        stdout=output,
        stderr=subprocess.STDOUT,
        start_new_session=True,
    ) as process:
        try:
            return process.wait(timeout)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            return None


class Copy:
    """A copy of the tree with a build of its own. Only what differs is written, so that only what
    differs is built."""

    def __init__(self, name, files, jobs, sanitizers=""):
        self.tree, self.build, self.log = (WORK / name / part for part in ("tree", "build", "output"))
        self.jobs, self.sanitizers = jobs, sanitizers
        self.program = self.build / "tests" / "ztxml_tests"
        for file in files:
            self.write(file, file.read_bytes())
        for file in list(self.tree.rglob("*")):
            if file.is_file() and file.relative_to(self.tree) not in files:
                file.unlink()
        # Hardly optimised, as most of a fault's time is spent in the compiler; the tests are not
        # listed after each build, which would run a faulty library.
        flags = "-O1 -w" if sanitizers else "-O0 -w"
        options = ["-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS={flags}", "-DZTXML_WERROR=OFF"]
        options.append("-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST")
        options.append(f"-DZTXML_SANITIZE={sanitizers}")
        configure = ["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", *options]
        if run(configure, self.log) != 0 or not self.compiles():
            sys.exit(f"mutate: the tree does not build: {self.log}")
        self.unchanged = self.digest()

    def write(self, file, content):
        path = self.tree / file
        path.parent.mkdir(parents=True, exist_ok=True)
        if not path.is_file() or path.read_bytes() != content:
            path.write_bytes(content)

    def compiles(self):
        command = ["cmake", "--build", self.build, "-j", str(self.jobs), "--target", "ztxml_tests"]
        return run(command, self.log) == 0

    def digest(self):
        return hashlib.sha256(self.program.read_bytes()).digest()

    def measure(self):
        """Runs all tests as they are. Which of them to run one after another, the quickest first,
        and how many seconds each run may take."""
        if run([self.program], self.log) != 0:
            sys.exit(f"mutate: the tests fail without any fault: {self.log}")
        passed = re.findall(r"\[ +OK \] (\S+) \((\d+) ms\)", self.log.read_text(errors="replace"))
        times = {name: int(time) for name, time in passed}
        slow = sorted((name for name in times if times[name] > SLOW_TEST), key=times.get)
        return ["-" + ":".join(slow), *slow], max(LEAST_TIMEOUT, 6 * sum(times.values()) / 1000)

    def notice(self, filters, timeout):
        """How the tests take the fault: the verdict and the test that failed."""
        # The processor's time is limited, too, for a program that outlives this one.
        memory = "unlimited" if self.sanitizers else MEMORY  # they reserve addresses, not memory
        limits = [f"--as={memory}", f"--cpu={int(timeout)}", "--core=0"]
        limited = ["prlimit", *limits, self.program, "--gtest_fail_fast"]
        for tests in filters:
            status = run([*limited, f"--gtest_filter={tests}"], self.log, timeout)
            if status != 0:
                output = self.log.read_text(errors="replace")
                failed = re.findall(r"\[  FAILED  \] (\S+) \(", output)
                begun = re.findall(r"\[ RUN      \] (\S+)", output)  # crashed in the last one
                test = [*failed[:1], *begun[-1:], tests][0]
                return "noticed" if status is not None else "timed out", test
        return "survived", ""

    def try_fault(self, fault, filters, timeout):
        file, text = fault.source.file, fault.source.text
        self.write(file, (text[: fault.at] + fault.new + text[fault.end :]).encode())
        try:
            if not self.compiles():
                return "did not compile", ""
            if self.digest() == self.unchanged:
                return "changed nothing", ""
            return self.notice(filters, timeout)
        finally:
            self.write(file, text.encode())  # its new time has it built again with the next one


class Plan:
    """Which fault is next. Of each kind the first that compile are made, in an order that SEED
    gives, whatever the number of workers."""

    def __init__(self, faults, count):
        self.queues, self.results = faults, []
        self.lock = threading.Lock()
        self.taken = dict.fromkeys(faults, 0)
        self.open = {}  # how many are still to be taken, if all that were taken compile
        for i, kind in enumerate(sorted(faults, key=lambda kind: len(faults[kind]))):
            self.open[kind] = min(len(faults[kind]), count // (len(faults) - i))
            count -= self.open[kind]

    def next(self):
        with self.lock:
            for kind in sorted(self.queues, key=lambda kind: -self.open[kind]):
                if self.open[kind] and self.taken[kind] < len(self.queues[kind]):
                    self.open[kind] -= 1
                    self.taken[kind] += 1
                    return self.queues[kind][self.taken[kind] - 1]
        return None

    def stop(self):
        with self.lock:
            self.queues = {kind: [] for kind in self.queues}

    def done(self, fault, verdict, test):
        with self.lock:
            self.results.append((fault, verdict, test))
            if verdict in REPLACED:
                self.open[fault.kind] += 1
            with (WORK / "faults.txt").open("a") as out:
                print(f"{verdict}: {describe(fault)}", f"    by {test}" if test else "", sep="\n", file=out)
            if verdict == "survived":
                print(describe(fault), flush=True)


def describe(fault):
    """The fault with the lines that it changes, shortened to where they differ."""
    text = fault.source.text
    old = text[fault.at : fault.end]
    line = text.count("\n", 0, fault.at) + 1
    before = text[text.rfind("\n", 0, fault.at) + 1 : fault.at]
    after = text[fault.end : text.find("\n", fault.end)]
    shown = [" ".join((before + part + after).split()) for part in (old, fault.new)]
    same = len(os.path.commonprefix(shown))
    cut = max(0, same - 60)
    lines = [("... " if cut else "") + part[cut : cut + 200] for part in shown]
    new = f"\n  + {lines[1]}" if lines[1] else ""
    return f"{fault.source.file}:{line}: {fault.kind}, {fault.what}\n  - {lines[0]}{new}"


def summary(plan):
    verdicts = ["noticed", "timed out", "by sanitizers", "survived", *REPLACED]
    print(f"\n{'kind':<14}{'made':>6}" + "".join(f"{verdict:>17}" for verdict in verdicts))
    for kind in [*plan.queues, "all"]:
        found = [verdict for fault, verdict, _ in plan.results if kind in (fault.kind, "all")]
        made = sum(verdict not in REPLACED for verdict in found)
        print(f"{kind:<14}{made:>6}" + "".join(f"{found.count(verdict):>17}" for verdict in verdicts))


def main():
    options = PARSER.parse_args()
    seed = random.randrange(1 << 16) if options.seed is None else options.seed
    chance = random.Random(seed)
    files = tree()
    sources = [Source(f) for f in files if f.parts[0] == "src" and f.suffix in {".cpp", ".h"}]
    faults = Generator(sources, chance).faults()
    faults = {kind: faults[kind] for kind in faults if not options.kind or kind in options.kind}
    for some in faults.values():
        chance.shuffle(some)
    plan = Plan(faults, options.count)
    possible = ", ".join(f"{kind} {len(some)}" for kind, some in faults.items())
    print(f"mutate: seed {seed}; possible faults: {possible}", flush=True)
    if options.list:
        while fault := plan.next():
            print(describe(fault))
        return 0

    WORK.mkdir(parents=True, exist_ok=True)
    (WORK / "faults.txt").write_text("")
    cores = os.cpu_count() or 1
    first = Copy("1", files, cores)
    filters, timeout = first.measure()
    failures, sanitized, one_at_a_time = [], [], threading.Lock()

    def try_again(fault):
        with one_at_a_time:
            if not sanitized:
                sanitized.append(Copy("sanitized", files, cores, "address,undefined"))
            verdict, test = sanitized[0].try_fault(fault, ["*"], SANITIZED_TIMEOUT)
            return ("survived", "") if verdict == "survived" else ("by sanitizers", test)

    def work(number):
        try:
            copy = first if number == 1 else Copy(str(number), files, 1)
            copy.jobs = max(1, cores // options.workers)
            while fault := plan.next():
                verdict, test = copy.try_fault(fault, filters, timeout)
                if verdict == "survived" and options.sanitize:
                    verdict, test = try_again(fault)
                plan.done(fault, verdict, test)
        except BaseException as error:
            failures.append(error)
            plan.stop()

    threads = [threading.Thread(target=work, args=(n + 1,)) for n in range(options.workers)]
    for thread in threads:
        thread.start()
    try:
        for thread in threads:
            thread.join()
    except KeyboardInterrupt:
        print("mutate: ends with the faults at work", flush=True)
        plan.stop()
        for thread in threads:
            thread.join()
    summary(plan)
    if failures:
        raise failures[0]
    return 1 if any(verdict == "survived" for _, verdict, _ in plan.results) else 0


if __name__ == "__main__":
    sys.exit(main())
