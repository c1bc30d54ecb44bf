"""Prints what scripts/bench measured, and makes the figures and tables of docs/performance.md.

Usage: report.py MEASURED [PAGE]
"""

import json
import re
import sys
from pathlib import Path
from types import SimpleNamespace

import figures

EXACT, STANDARD, MAPPED, TREE = "exact", "standard", "pugixml + mapping", "pugixml's tree"
WORKS = {"events": "Events", "read": "Text to tree and free", "write": "Tree to text",
         "update": "Update"}
GROWTH_BAR = 2


def rows(path, columns):
    for line in path.read_text().splitlines():
        fields = line.split("\t")
        assert len(fields) == columns, f"{path}: {line}"
        yield fields


def load(measured):
    """What was measured of each case, by (work, document, size, who)."""
    cases = {}
    for name, size, runs in rows(measured / "counted", 3):
        cases[tuple(name.split("/"))] = SimpleNamespace(bytes=int(size), runs=int(runs), time=None)
    for dump in measured.glob("calls.*"):
        text = dump.read_text(errors="replace")
        name = re.search(r"^desc: Trigger: Client Request: (.*)", text, re.M)
        if name:
            case = cases[tuple(name[1].split("/"))]
            total = int(re.search(r"^(?:summary|totals): (\d+)", text, re.M)[1])
            case.instructions = total / case.runs
            case.cost = case.instructions / case.bytes
    spreads = []
    times = (measured / "times").read_text()  # empty where no case is timed
    for run in json.loads(times)["benchmarks"] if times else []:
        case = cases[tuple(run["run_name"].split("/"))]
        if run["aggregate_name"] == "median":
            case.time = run["cpu_time"] / 1000  # microseconds
            case.speed = case.bytes / case.time  # MB/s
        elif run["aggregate_name"] == "cv":
            spreads.append(run["cpu_time"] * 100)
    return cases, sorted(spreads)


def print_cases(cases):
    print(f"{'case':<46}{'bytes':>8}{'instructions':>14}{'a byte':>8}{'us':>11}{'MB/s':>7}")
    for name, case in cases.items():
        timed = f"{case.time:>11.1f}{case.speed:>7.0f}" if case.time else ""
        print(f"{'/'.join(name):<46}{case.bytes:>8}{case.instructions:>14,.0f}{case.cost:>8.2f}"
              + timed)


# ---- The bars -----------------------------------------------------------------------------------


def fixed(cases, work):
    """What `work` costs beside its bytes: the line through documents of whole groups, at 0."""
    points = [(c.bytes, c.instructions) for name, c in cases.items()
              if name[0] == work and name[2].endswith("contacts") and name[3] == EXACT]
    x = sum(p[0] for p in points) / len(points)
    y = sum(p[1] for p in points) / len(points)
    slope = sum((p[0] - x) * (p[1] - y) for p in points) / sum((p[0] - x) ** 2 for p in points)
    return y - slope * x


def bars(cases, heap, facts, growth):
    def ratio(work, size, peer):
        ours, theirs = (cases[work, "registration", size, who] for who in (EXACT, peer))
        return ours.instructions / theirs.instructions

    def memory(size):
        use = heap["read", "registration", size, EXACT]
        return use.peak / use.bytes

    def kilobytes(what):
        return facts[what] / 1024

    worst = max(growth, key=growth.get)
    return [  # what, now, how it is shown, bar, aim
        ("events, 8.5 KB, beside pugixml's tree", ratio("events", "8.5", TREE), ".2f", 0.6, 0.45),
        ("events, 850 KB, beside pugixml's tree", ratio("events", "850", TREE), ".2f", 0.6, 0.45),
        ("text to tree and free, 1 KB, beside pugixml + mapping", ratio("read", "1", MAPPED),
         ".2f", 0.6, 0.5),
        ("text to tree and free, 8.5 KB, beside pugixml + mapping", ratio("read", "8.5", MAPPED),
         ".2f", 0.6, 0.5),
        ("tree to text, 8.5 KB, beside pugixml + mapping", ratio("write", "8.5", MAPPED), ".2f",
         0.2, 0.15),
        ("a container of services of 0.9 KB read, instructions a byte",
         cases["read", "simservs", "0.9", EXACT].cost, ".0f", 30, 24),
        ("a read beside its bytes, instructions", fixed(cases, "read"), ",.0f", 1200, 800),
        ("a write beside its bytes, instructions", fixed(cases, "write"), ",.0f", 900, 600),
        ("the stripped library for x86-64, KB", kilobytes("stripped x86-64"), ".0f", 300, 250),
        ("the stripped library for arm64, KB", kilobytes("stripped arm64"), ".0f", 320, 250),
        ("most memory while reading 8.5 KB, times the text", memory("8.5"), ".2f", 1.8, None),
        ("most memory while reading 850 KB, times the text", memory("850"), ".2f", 1.6, None),
        ("functions that run when it is loaded", facts["initializers"], ".0f", 0, None),
        (f"growth: cost of a byte, large beside small, at most ({worst})", growth[worst], ".2f",
         GROWTH_BAR, None),
    ]


def bar_table(given):
    yield "| what | now | bar | | aim | |"
    yield "|---|--:|--:|---|--:|---|"
    for what, now, form, bar, aim in given:
        aimed = "| |" if aim is None else f"{aim:{',' if aim >= 100 else ''}} | " + (
            "reached |" if now <= aim else "not yet |")
        yield (f"| {what} | {now:{form}} | {bar:{',' if bar >= 100 else ''}} | "
               f"{'reached' if now <= bar else '**no**'} | {aimed}")


# ---- The page -----------------------------------------------------------------------------------


def amount(case):
    places = 2 if case.time < 10 else 1 if case.time < 100 else 0
    return f"{case.instructions:,.0f} / {case.time:,.{places}f}"


def registration_table(cases):
    yield "| work | KB | exact profile | standard profile | pugixml | exact beside pugixml |"
    yield "|---|--:|--:|--:|--:|--:|"
    for work, title in WORKS.items():
        for size in ("1", "8.5", "850"):
            exact, standard, peer = (cases.get((work, "registration", size, who)) for who in
                                     (EXACT, STANDARD, TREE if work == "events" else MAPPED))
            cells = [amount(case) if case else "" for case in (exact, standard, peer)]
            beside = (f"{exact.instructions / peer.instructions:.2f} / "
                      f"{exact.time / peer.time:.2f}") if exact and peer else ""
            yield f"| {title} | {size} | {' | '.join(cells)} | {beside} |"


def memory_table(heap):
    whos = (EXACT, STANDARD, MAPPED)
    yield f"| KB | {' | '.join(who if who == MAPPED else who + ' profile' for who in whos)} |"
    yield "|--:|--:|--:|--:|"
    for size in ("8.5", "850"):
        uses = (heap["read", "registration", size, who] for who in whos)
        cells = " | ".join(f"{use.allocations:,} / {use.peak / 1024:,.0f}" for use in uses)
        yield f"| {size} | {cells} |"


def remarks(cases, facts, growth, spreads):
    def log(who):
        both = cases["both", "registration", "8.5", EXACT]
        return cases["both", "registration", "8.5", who].instructions / both.instructions

    yield (f"With the host platform's log on, reading and writing take {log('exact, log'):.1f} times "
           f"the instructions, with its memory log {log('exact, memory log'):.1f} times. Cost grows "
           f"with size as it should: of {len(growth)} shapes a byte of the large document costs "
           f"{sorted(growth.values())[len(growth) // 2]:.2f} times one of the small document in the "
           "middle. Times varied between repetitions by less than "
           f"{spreads[len(spreads) * 9 // 10]:.0f} % in nine of ten cases (standard deviation), "
           "instructions vary by 1 % at most.")
    yield ""
    sections = ", ".join(f"`{name}` {facts[name]:,}" for name in
                         (".rela.dyn", ".relr.dyn", ".data.rel.ro"))
    yield f"Sections of the library's file for x86-64, in bytes: {sections}."


def page(measured, cases, spreads, path):
    heap = {tuple(name.split("/")): SimpleNamespace(bytes=int(size), allocations=int(count),
                                                    peak=int(peak))
            for name, size, count, peak in rows(measured / "heap", 4)}
    facts = {name: int(value) for name, value in rows(measured / "file", 2)}
    growth = {name: float(value) for name, value in rows(measured / "growth", 2)}
    given = list(bar_table(bars(cases, heap, facts, growth)))
    print("\n" + "\n".join(given))
    if not path:
        return
    peers = (measured / "peers").read_text().strip()
    lines = [
        "![Speed and instructions by size, registration information](performance-size.svg)",
        "",
        "![Instructions a byte by document](performance-documents.svg)",
        "",
        f"Registration information, instructions / microseconds. Peers: {peers}; here its "
        "tree beside events, else pugixml with the mapping.",
        "",
        *registration_table(cases),
        "",
        "Memory while registration information is read, allocations / the most KB at one time:",
        "",
        *memory_table(heap),
        "",
        *remarks(cases, facts, growth, spreads),
        "",
        "### Bars",
        "",
        "Where nothing else is said: instructions, exact profile, registration information. Less is "
        "better. What a read or a write costs beside its bytes is where the line through documents "
        "of 4, 8 and 12 contacts (1.7 to 4.9 KB) meets a size of 0.",
        "",
        *given,
    ]
    text, found = re.subn(r"(<!-- measured: begin -->\n).*(<!-- measured: end -->)",
                          lambda marks: marks[1] + "\n" + "\n".join(lines) + "\n\n" + marks[2],
                          path.read_text(), flags=re.S)
    assert found == 1, f"{path} has no place for what was measured"
    path.write_text(text)
    (path.parent / "performance-size.svg").write_text(figures.by_size(cases))
    (path.parent / "performance-documents.svg").write_text(figures.by_document(cases, WORKS))


def main():
    measured = Path(sys.argv[1])
    cases, spreads = load(measured)
    print_cases(cases)
    if (measured / "growth").exists():
        page(measured, cases, spreads, Path(sys.argv[2]) if len(sys.argv) > 2 else None)


main()
