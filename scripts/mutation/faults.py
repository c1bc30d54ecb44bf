"""The faults that scripts/mutate makes.

Sources are not parsed, only cut into tokens: tables, chained settings, names and conditions are
known by their form, so that this file need not follow when something is called differently. What a
fault makes of a source may therefore fail to compile; such a fault is counted and another one is
made instead.
"""

import re
from collections import namedtuple
from pathlib import Path

# `new` takes the place of what stands in `source` from `at` to `end`; `what` says what that does.
Fault = namedtuple("Fault", "kind what source at end new")

KINDS = {
    "rows": "two neighbouring rows of a table swapped, or one dropped",
    "flags": "a chained setting dropped; an enumerator or a boolean of a table exchanged",
    "names": "a name or a type exchanged for another one of the file",
    "log": "a log level exchanged; a character of a log line or of another text of a table changed",
    "enumerations": "two neighbouring texts of an enumeration swapped, or a number of its table changed",
    "core": "in a function: a condition, comparison or result turned round, a statement dropped",
}

# Tables that are only searched, for keys that differ: nobody can tell in what order their rows stand.
SEARCHED_TABLES = {"ZtRoot", "ZtChoice", "ZtElementType", "ZtDocument", "kEntities"}

# Records with lists in them, and what these hold.
RECORDS = {"ZtElementType": "ZtField", "ZtExtras": "ZtFixedAttribute", "ZtDocument": "ZtRoot"}

TOKEN = re.compile(
    r"""(?P<skip> \s+ | //[^\n]* | /\*.*?\*/ | ^\#(?:\\\n|[^\n])* )
      | (?P<string> "(?:\\.|[^"\\\n])*" )
      | (?P<char> '(?:\\.|[^'\\\n])*' )
      | (?P<word> [A-Za-z_]\w* )
      | (?P<number> \d[\w']* )
      | (?P<sign> :: | -> | \+\+ | -- | [<=!]= | >= | && | \|\| | [-+*/%&|^]= | . )""",
    re.X | re.S | re.M,
)
CLOSING = {"(": ")", "[": "]", "{": "}"}
SCOPES = {"namespace", "struct", "class", "enum", "union"}
STATEMENTS = {"if", "while", "for", "switch"}
DECLARES = {"const", "auto", "static", "constexpr", "using", "template", "struct", "static_assert"}


class Token:
    """`start` is where its statement begins, `code` whether it stands in the body of a function,
    `table` whether in what the compiler evaluates: outside of functions or in a constexpr one."""

    __slots__ = ("kind", "text", "at", "end", "start", "code", "table", "match")

    def __init__(self, kind, text, at, end):
        self.kind, self.text, self.at, self.end = kind, text, at, end
        self.match = None


class Source:
    """One file: its text and its tokens, with every bracket's partner."""

    def __init__(self, file):
        self.file, self.text = file, file.read_text()
        found = TOKEN.finditer(self.text)
        self.tokens = [
            Token(m.lastgroup, m.group(), m.start(), m.end()) for m in found if m.lastgroup != "skip"
        ]
        self._find_structure()

    def __getitem__(self, index):
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def between(self, first, last):
        return self.text[self.tokens[first].at : self.tokens[last].end]

    def _find_structure(self):
        start, code, table, open_at = 0, False, True, []
        for i, token in enumerate(self.tokens):
            token.start, token.code, token.table = start, code, table
            if token.text in CLOSING:
                body = token.text == "{" and self._opens_body(i, start, code)
                open_at.append((i, start, code, table, body))
                if body == "function":
                    constexpr = "constexpr" in (t.text for t in self.tokens[start:i])
                    table = table and (code or constexpr)
                    code = True
                if body:
                    start = i + 1
            elif token.text in ")]}" and open_at:
                i_open, start, code, table, body = open_at.pop()
                token.match, self.tokens[i_open].match = i_open, i
                token.start, token.code, token.table = start, code, table
                if body:
                    start = i + 1
            elif token.text == ";" and not (open_at and self[open_at[-1][0]] == "("):
                start = i + 1

    def _opens_body(self, i, start, code):
        """What the brace at `i` opens: a "function" or a block in it, a "scope", or a list (None)."""
        before = self[i - 1]
        if before in {")", "const", "override", "noexcept", "else", "do"}:
            return "function"
        if code and (i == start or before == ":"):
            return "function"
        head = {t.text for t in self.tokens[start:i]}
        return "scope" if head & SCOPES and not head & {"=", "return"} else None

    def elements(self, brace):
        """The first and the last token of what commas separate in a list."""
        first = i = brace + 1
        end = self.tokens[brace].match
        while i <= end:
            if self[i] == "," or i == end:
                if first < i:
                    yield first, i - 1
                first = i + 1
            i = (self.tokens[i].match or i) + 1 if self[i] in CLOSING else i + 1

    def arrays(self):
        """The lists of what is alike: arrays, and the lists in the record of a type or a document.
        Of each its brace, its name and the type of its elements."""
        for i in range(2, len(self.tokens) - 2):
            if [self[i], self[i + 1]] != ["=", "{"]:
                continue
            array = self[i - 1] == "]"
            name = self.tokens[i - 1].match - 1 if array else i - 1
            words = [t.text for t in self.tokens[self.tokens[name].start : name] if t.kind == "word"]
            words = [word for word in words if word not in {"const", "constexpr", "static"}]
            if array:
                yield i + 1, self[name], words[-1] if words else ""
            elif words and words[0] in RECORDS:
                for first, _ in self.elements(i + 1):
                    if self[first] == "{":
                        yield first, self[name], RECORDS[words[0]]


class Generator:
    """All faults of some sources. What is chosen at random is chosen by `random`."""

    def __init__(self, sources, random):
        self.sources, self.random = sources, random
        self.slots = set()  # the arrays that hold an enumeration's texts
        self.enums = {}  # enumerators by their type
        for source in sources:
            for brace, name, _ in source.arrays():
                if self._is_texts(source, brace):
                    self.slots.add(name)
            for i, token in enumerate(source.tokens):
                if token.text == "enum" and source[i + 1] == "class":
                    brace = next(j for j in range(i, len(source.tokens)) if source[j] in "{;")
                    if source[brace] == "{":
                        names = [source[first] for first, _ in source.elements(brace)]
                        self.enums[source[i + 2]] = names

    def faults(self):
        """Those of each kind, in the order of the sources."""
        faults = {kind: [] for kind in KINDS}
        for source in self.sources:
            documents = "documents" in source.file.parts
            made = [*self._enumerations(source), *self._log(source, documents), *self._core(source)]
            if documents:
                made += [*self._rows(source), *self._flags(source), *self._names(source)]
            for kind, what, at, end, new in made:
                old = source.text[at:end]
                new += "\n" * (old.count("\n") - new.count("\n"))  # log lines carry line numbers
                if old != new:
                    faults[kind].append(Fault(kind, what, source, at, end, new))
        return faults

    def _is_texts(self, source, brace):
        elements = list(source.elements(brace))
        return bool(elements) and all(
            a == b and source.tokens[a].kind == "string" for a, b in elements
        )

    @staticmethod
    def _swap(source, kind, one, two):
        at, end = source.tokens[one[0]].at, source.tokens[two[1]].end
        gap = source.text[source.tokens[one[1]].end : source.tokens[two[0]].at]
        return kind, "swapped", at, end, source.between(*two) + gap + source.between(*one)

    def _other(self, own, choice):
        others = sorted(set(choice) - {own})
        return self.random.choice(others) if others else own

    @staticmethod
    def _exchange(kind, token, new, what="exchanged"):
        return kind, what, token.at, token.end, new

    def _rows(self, source):
        for brace, name, type_name in source.arrays():
            if name in self.slots:
                continue
            rows = list(source.elements(brace))
            keys = [self._key(source, *row) for row in rows]
            searched = {name, type_name} & SEARCHED_TABLES
            for i in range(1, len(rows)):
                ends = "nullptr" in keys[i] or keys[i] == "{}"
                if not searched or keys[i - 1] == keys[i] or ends:
                    yield self._swap(source, "rows", rows[i - 1], rows[i])
            for first, last in rows if len(rows) > 1 else []:
                comma = source[last + 1] == ","
                at = source.tokens[first if comma else first - 1].at
                yield "rows", "dropped", at, source.tokens[last + comma].end, ""

    @staticmethod
    def _key(source, first, last):
        """What a row is searched by: its first element, or all of it."""
        if source[first] == "{":
            first, last = next(source.elements(first), (first, last))
        return source.between(first, last)

    def _flags(self, source):
        for i, token in enumerate(source.tokens):
            if not token.table or source[token.start] == "static_assert":
                continue
            if token.text == "." and source[i + 2] == "(" and self._is_setting(source, i):
                end = source.tokens[source.tokens[i + 2].match].end
                yield "flags", "dropped", token.at, end, ""
            elif token.text in self.enums and source[i + 1] == "::":
                enumerator = source.tokens[i + 2]
                others = self.enums[token.text]
                if enumerator.text in others:
                    yield self._exchange("flags", enumerator, self._other(enumerator.text, others))
            elif token.text in {"true", "false"}:
                yield self._exchange("flags", token, "false" if token.text == "true" else "true")

    @staticmethod
    def _is_setting(source, dot):
        before = source[dot - 1]
        return source[dot + 1][:1].isupper() and (before in {")", ">"} or before[:1] == "k")

    def _names(self, source):
        table = [i for i, token in enumerate(source.tokens) if token.table]
        names = [i for i in table if re.fullmatch(r"[A-Z]+_STR_\w+", source[i])]
        choice = {source[i] for i in names}
        for i in names:
            ends_table = source[i - 3] == "{" and source[i - 2] == "nullptr"
            if not ends_table:  # nothing else is read of such a row
                yield self._exchange("names", source.tokens[i], self._other(source[i], choice))
        types = {}  # where a type is referred to, with all its qualifiers
        for i in table:
            if source[i] == "kType" and source[i - 1] == "::" and source[i + 1] != "=":
                first = i - 2
                while source[first - 1] == "::":
                    first -= 2
                types[first, i] = source.between(first, i)
        for (first, last), text in types.items():
            at, end = source.tokens[first].at, source.tokens[last].end
            yield "names", "exchanged", at, end, self._other(text, types.values())

    def _log(self, source, documents):
        for token in source.tokens:
            statement = source.tokens[token.start : token.start + 12]
            if source[token.start] == "static_assert":
                continue
            if re.fullmatch(r"kZtLog[A-Z]\w+", token.text) and token.code | token.table:
                levels = {"kZtLogOptional", "kZtLogTrace", "kZtLogState", "kZtLogError"}
                if token.text in levels and source[token.start] != "enum":
                    yield self._exchange("log", token, self._other(token.text, levels))
            elif token.kind == "string":
                logs = any(re.search("log|trace", t.text, re.I) for t in statement)
                line = re.search(r"\w ?::|\w \S|: ", token.text)
                in_table = documents and token.table and not self._in_slots(source, token)
                # A letter that is no part of a conversion or an escape sequence.
                letters = [m.end() - 1 for m in re.finditer(r"(?<![%\\])[A-Za-z]", token.text)]
                if letters and (logs or line or in_table):
                    at = self.random.choice(letters)
                    new = "Q" if token.text[at] != "Q" else "Z"
                    text = token.text[:at] + new + token.text[at + 1 :]
                    yield self._exchange("log", token, text, "changed")

    def _in_slots(self, source, token):
        tokens = source.tokens[token.start : token.start + 12]
        return any(t.text in self.slots for t in tokens)

    def _enumerations(self, source):
        for brace, name, _ in source.arrays():
            elements = list(source.elements(brace))
            if name in self.slots:
                for one, two in zip(elements, elements[1:]):
                    yield self._swap(source, "enumerations", one, two)
        for i, token in enumerate(source.tokens):
            if not (token.text == "{" and source[i - 1] == "=" and source[i + 1] in self.slots):
                continue
            for j in range(i + 2, token.match):
                value = source.tokens[j]
                if value.kind == "number":
                    # Less, as one more is out of the table, which the sanitizers tell.
                    new = str(int(value.text) - 1 if value.text != "0" else 1)
                    yield self._exchange("enumerations", value, new, "changed")
                elif value.text in {"true", "false"}:
                    new = "false" if value.text == "true" else "true"
                    yield self._exchange("enumerations", value, new, "changed")
                elif value.kind == "word":
                    yield self._exchange("enumerations", value, value.text + " - 1", "changed")

    def _core(self, source):
        turned = {"&&": "||", "||": "&&", "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">"}
        turned.update({"true": "false", "false": "true"})
        for i, token in enumerate(source.tokens):
            if not token.code or source[token.start] == "static_assert":
                continue
            blanks = source.text[token.at - 1].isspace() and source.text[token.end].isspace()
            if token.text in {"if", "while"} and source[i + 1] == "(":
                condition = source.between(i + 2, source.tokens[i + 1].match - 1)
                if not re.search(r"[^=!<>]=[^=]|;", condition):
                    first, last = source.tokens[i + 2], source.tokens[source.tokens[i + 1].match - 1]
                    yield "core", "negated", first.at, last.end, f"!({condition})"
            elif token.kind == "sign" and token.text in turned and blanks:
                yield self._exchange("core", token, turned[token.text])
            elif token.text in {"+", "-"} and source[i + 1] == "1" and blanks:
                yield self._exchange("core", token, "-" if token.text == "+" else "+")
            elif token.text in {"true", "false"} and source[i - 1] == "return" and source[i + 1] == ";":
                yield self._exchange("core", token, turned[token.text])
            elif token.text == ";" and token.start < i:
                first = self._simple_statement(source, token.start, i)
                if first is not None:
                    yield "core", "dropped", source.tokens[first].at, token.end, ";"

    @staticmethod
    def _simple_statement(source, first, end):
        """Where a statement begins that may be left out: a call, an assignment, or what leaves a
        branch early. None for declarations and for what a function always ends with."""
        guarded = False
        while True:
            if source[first] in STATEMENTS and source[first + 1] == "(":
                first = source.tokens[first + 1].match + 1
                guarded = True
            elif source[first] == "else":
                first += 1
            elif source[first] in {"case", "default"}:
                first = next(j for j in range(first, end + 1) if source[j] in ":;") + 1
            else:
                break
        if first >= end or source[first] in DECLARES:
            return None
        if source[first] == "return":
            return first if guarded else None
        if source[first] == "break" and source[end + 1] == "}":  # the last of a switch does nothing
            opening = source.tokens[source.tokens[end + 1].match]
            if source[opening.start] == "switch":
                return None
        i = first  # a declaration names its type and then what it declares
        while source.tokens[i].kind == "word" and source[i + 1] == "::":
            i += 2
        named = source.tokens[i].kind == "word" and source[i] not in {"delete", "break", "continue"}
        if named and (source.tokens[i + 1].kind == "word" or source[i + 1] in {"*", "&", "<"}):
            return None
        return first
