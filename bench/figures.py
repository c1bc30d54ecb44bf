"""The figures of docs/performance.md, as SVG that can be read on light and on dark pages."""

from html import escape
from math import log10

WIDTH = 920
# Each has a contrast of at least 4 with white and with black.
GREY = "#777b80"
COLORS = {
    "exact": "#2f7de0",
    "standard": "#118a6f",
    "pugixml's tree": "#cf5d12",
    "pugixml + mapping": "#cf5d12",
    "libxml2": "#a55fc9",
    "Expat": "#8c7a3c",
}


class Drawing:
    def __init__(self, title):
        self.title = title
        self.parts = []

    def text(self, x, y, text, color=GREY, anchor="start", size=12, weight="normal"):
        self.parts.append(f'<text x="{x:.1f}" y="{y:.1f}" fill="{color}" text-anchor="{anchor}" '
                          f'font-size="{size}" font-weight="{weight}">{escape(text)}</text>')

    def words(self, x, y, words):
        """Words of several colours, one after another."""
        spans = "".join(f'<tspan fill="{COLORS[who]}" dx="{7 if i else 0}">{mark} {escape(word)}'
                        "</tspan>" for i, (mark, word, who) in enumerate(words))
        self.parts.append(f'<text x="{x:.1f}" y="{y:.1f}" font-size="11">{spans}</text>')

    def line(self, points, color=GREY, width=1.0, opacity=1.0, dash=None):
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        dashes = f' stroke-dasharray="{dash}"' if dash else ""
        self.parts.append(f'<polyline points="{path}" fill="none" stroke="{color}" '
                          f'stroke-width="{width}" stroke-opacity="{opacity}"{dashes}/>')

    def dot(self, x, y, color, radius=3.0):
        self.parts.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="{radius}" fill="{color}"/>')

    def diamond(self, x, y, color, radius=4.5):
        self.parts.append(f'<path d="M{x:.1f},{y - radius:.1f}l{radius},{radius}l-{radius},{radius}'
                          f'l-{radius},-{radius}z" fill="{color}"/>')

    def svg(self, height):
        return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" '
                f'width="{WIDTH}" height="{height}" role="img" font-family="sans-serif">\n'
                f"<title>{escape(self.title)}</title>\n" + "\n".join(self.parts) + "\n</svg>\n")


class Scale:
    """Logarithmic, with marks at 1, 2 and 5 times the powers of ten."""

    def __init__(self, values, start, end):
        marks = [step * 10**power for power in range(-1, 7) for step in (1, 2, 5)]
        self.low = max(mark for mark in marks if mark <= min(values))
        self.high = min(mark for mark in marks if mark >= max(values))
        self.marks = [mark for mark in marks if self.low <= mark <= self.high]
        self.start, self.end = start, end

    def __call__(self, value):
        part = log10(value / self.low) / log10(self.high / self.low)
        return self.start + part * (self.end - self.start)


def apart(wanted, least):
    """The positions `wanted`, moved so that they are `least` apart, in the given order."""
    order = sorted(range(len(wanted)), key=lambda i: wanted[i])
    places = list(wanted)
    for _ in range(50):
        for low, high in zip(order, order[1:]):
            overlap = least - (places[high] - places[low])
            if overlap > 0:
                places[low] -= overlap / 2
                places[high] += overlap / 2
    return places


# ---- Cost by size -------------------------------------------------------------------------------

PANELS = {  # what stands in each column: work, who, how it is called
    "Events": [("events", "exact", "ztxml exact"), ("events", "pugixml's tree", "pugixml's tree"),
               ("events", "libxml2", "libxml2"), ("events", "Expat", "Expat")],
    "Text to tree and free": [("read", "exact", "ztxml exact"),
                              ("read", "standard", "ztxml standard"),
                              ("read", "pugixml + mapping", "pugixml + mapping")],
    "Tree to text": [("write", "exact", "ztxml exact"), ("write", "standard", "ztxml standard"),
                     ("update", "standard", "ztxml update"),
                     ("write", "pugixml + mapping", "pugixml + mapping")],
}
SIZES = [("0.3", 300), ("1", 1000), ("4", 4000), ("8.5", 8500), ("850", 850000)]


def by_size(cases):
    drawing = Drawing("Registration information: speed and instructions a byte by size")
    left, panel, plot, height = 48, 292, 160, 190
    measures = [("speed", "MB/s: more is better"), ("cost", "instructions a byte: less is better")]

    def curve(work, who, measure):
        """Points: the size of the document, and what was measured."""
        for size, _ in SIZES:
            case = cases.get((work, "registration", size, who))
            if case:
                document = cases["events", "registration", size, "exact"].bytes
                yield document, getattr(case, measure)

    for row, (measure, unit) in enumerate(measures):
        top = 48 + row * (height + 66)
        bottom = top + height
        curves = {title: [(list(curve(work, who, measure)), COLORS[who], label, work)
                          for work, who, label in shown] for title, shown in PANELS.items()}
        scale = Scale([value for shown in curves.values() for points, *_ in shown
                       for _, value in points], bottom, top)
        drawing.text(4, top - 12, unit, weight="bold")
        for column, (title, shown) in enumerate(curves.items()):
            start = left + column * panel

            def across(size, start=start):
                return start + log10(size / 250) / log10(850000 / 250) * plot

            if row == 0:
                drawing.text(start, 16, title, size=14, weight="bold")
            for mark in scale.marks:
                drawing.line([(start, scale(mark)), (start + plot, scale(mark))], opacity=0.25)
                if column == 0:
                    drawing.text(start - 6, scale(mark) + 4, f"{mark:g}", anchor="end")
            for name, size in SIZES:
                drawing.line([(across(size), bottom), (across(size), bottom + 4)])
                drawing.text(across(size), bottom + 17, name, anchor="middle", size=11)
            drawing.text(start + plot / 2, bottom + 33, "size of the document, KB", anchor="middle",
                         size=11)
            places = apart([scale(points[-1][1]) for points, *_ in shown], 14)
            for (points, color, label, work), place in zip(shown, places):
                drawn = [(across(size), scale(value)) for size, value in points]
                drawing.line(drawn, color, 2, dash="5 3" if work == "update" else None)
                for x, y in drawn:
                    drawing.dot(x, y, color)
                drawing.text(drawn[-1][0] + 8, place + 4, label, color, size=11)
    return drawing.svg(48 + 2 * (height + 66) - 24)


# ---- Cost by document ---------------------------------------------------------------------------

DOCUMENTS = [("registration", "1"), ("registration", "8.5"), ("conference", "1"),
             ("conference", "8.5"), ("presence", "1"), ("presence", "8.5"),
             ("resource lists", "1"), ("resource lists", "8.5"), ("simservs", "0.9"),
             ("simservs", "8.5"), ("IMDN", "0.3")]
SHOWN = ["pugixml's tree", "pugixml + mapping", "standard", "exact"]  # the last one on top


def by_document(cases, works):
    drawing = Drawing("Instructions a byte by document")
    left, panel, plot, top, step = 140, 198, 170, 52, 22
    bottom = top + len(DOCUMENTS) * step
    found = {(work, document, size, who): cases[work, document, size, who].cost
             for work in works for document, size in DOCUMENTS for who in SHOWN
             if (work, document, size, who) in cases}
    for row, (document, size) in enumerate(DOCUMENTS):
        y = top + (row + 0.5) * step
        drawing.text(left - 12, y + 4, f"{document} {size} KB", anchor="end")
        drawing.line([(left, y), (left + 3 * panel + plot, y)], opacity=0.2)
    for column, (work, title) in enumerate(works.items()):
        start = left + column * panel
        scale = Scale(found.values(), start, start + plot)
        drawing.text(start, 16, title, size=14, weight="bold")
        present = [who for who in SHOWN if any(key[0] == work and key[3] == who for key in found)]
        drawing.words(start, 36, [("\u25c6" if who.startswith("pugixml") else "\u25cf",
                                   who.replace("pugixml + mapping", "pugixml+"), who)
                                  for who in reversed(present)])
        for mark in scale.marks:
            drawing.line([(scale(mark), top), (scale(mark), bottom)], opacity=0.25)
            drawing.text(scale(mark), bottom + 15, f"{mark:g}", anchor="middle", size=11)
        for row, (document, size) in enumerate(DOCUMENTS):
            for who in present:
                if (work, document, size, who) in found:
                    draw = drawing.diamond if who.startswith("pugixml") else drawing.dot
                    draw(scale(found[work, document, size, who]), top + (row + 0.5) * step,
                         COLORS[who], 4.5)
    drawing.text(left, bottom + 34, "instructions a byte: less is better; pugixml+: pugixml with "
                 "the mapping by hand")
    return drawing.svg(bottom + 44)
