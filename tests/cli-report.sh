#!/usr/bin/env bash
# Checks the page that "ztxml report" writes; what a browser makes of it, scripts/test-report does.
# Usage: cli-report.sh ZTXML DOCUMENTS_DIR
set -uo pipefail
# shellcheck source=tests/cli-support.sh
source "$(dirname "$0")/cli-support.sh"
ztxml="$(realpath "$ztxml")"
documents="$(realpath "$documents")"
tests="$(realpath "$(dirname "$0")")"
cd "$work" || exit 1
"$tests/report_capture.py" "$documents" || exit 1

# The text of the page, read as XML: a line for each heading, row of a table, entry of a list, part of
# a summary; and what there must not be in it.
cat >text.py <<'PYTHON'
import sys
import xml.etree.ElementTree as tree

LINES = {"h1", "h2", "h3", "h4", "p", "tr", "li", "div", "article", "pre", "details", "dl"}
UNFIT = {"img", "iframe", "object", "link", "base"}
words = []


def walk(element):
    name = element.tag.split("}")[1]
    if name in ("style", "script", "form", "footer"):
        return
    assert name not in UNFIT and not any(key.startswith("on") for key in element.attrib), name
    words.append("\n" if name in LINES else " " if name in ("td", "th", "dd", "a", "span", "ul") else "")
    words.append(element.text or "")
    for child in element:
        walk(child)
        words.append(child.tail or "")
    words.append("\n" if name in LINES else " " if name in ("td", "th", "dt", "span", "b", "code", "time", "summary") else "")


root = tree.parse(sys.argv[1]).getroot()
names = [element.tag.split("}")[1] for element in root.iter()]
assert names.count("script") == 1 and names.count("style") == 1
ids = [element.get("id") for element in root.iter() if element.get("id")]
assert len(set(ids)) == len(ids)
walk(root.find("{*}body"))
for line in "".join(words).split("\n"):
    if line.split():
        print(" ".join(line.split()))
PYTHON
# page COMMAND...: the page of a command, as text.
page() {
  expect 0 "" "$ztxml" report --html page.html "$@"
  python3 text.py page.html >page.txt || fail "report $*: the page is no XML, or has what it must not"
}
# has WHAT LINE...: whether these lines stand one right after another.
has() {
  printf '%s\n' "${@:2}" >wanted.txt
  python3 -c 'import sys
page, wanted = (open(name).read() for name in ("page.txt", "wanted.txt"))
sys.exit("\n" + wanted not in "\n" + page)' || fail "$1: not on the page: ${*:2}"
}

# ---- A capture, a log and a document --------------------------------------------------------------
{
  printf 'NOTIFY sip:ada@example.com SIP/2.0\r\ni: log-1\r\nc: multipart/mixed;boundary=b\r\n\r\n--b\r\nc: text/plain\r\n\r\nhello\r\n'
  printf -- '--b\r\nc: application/im-iscomposing+xml\r\n\r\n<isComposing>\r\n--b\r\nc: application/x+xml\r\n\r\n<pub-gruu uri="b"/>\r\n--b--\r\n'
} >log.txt
printf '<pub-gruu uri="a\xff"/>' >alone.xml
page mixed.pcap log.txt alone.xml other.pcap
has 'the figures' 'files 4' 'messages 15' 'documents 15' 'ok 8' 'refused 2' 'faulty 2' 'with losses 3' 'with changes 7' 'messages without one 2'
has 'what matters' \
  'refused incomplete: the text ends within the end tag </pres in message 9' \
  'faulty well-formedness: the character "\x01", which XML does not allow in message 11' \
  'refused incomplete: <isComposing> is not closed in message 15' \
  'faulty well-formedness: not UTF-8: the byte "\xff" in message 16' \
  'lost /simservs/originating-identity-presentation-restriction: element not kept 2 times, first in message 13' \
  'state Reginfo: applied; refresh: notifications before it were missed in message 5' \
  'lost /reginfo/registration/@hint: attribute not kept in message 10'
has 'the schemas' '(not read) 2 0 2 0 0' 'Gruu 2 1 0 1 0' 'IsComposing 1 0 0 1 0' 'Presence 2 2 0 0 0' 'Reginfo 6 5 0 0 1'
has 'the files' mixed.pcap '3 packets are encrypted (ESP)' '13 12' 'log.txt 1 2' 'alone.xml 0 1' 'other.pcap 1 0'
has 'what is skipped' 'Why Times' 'a part of the type "text/plain" 1' 'no XML body 1' 'no XML body (but "application/sdp") 1'

# What notifications changed, in each subscription; what stands at a URL.
has 'the first one' 2 'NOTIFY sip:ada@example.com SIP/2.0' \
  '2023-11-14 22:13:21.000 192.0.2.1:40000 → 192.0.2.2:40001 mixed.pcap#2 Call-ID reg-1' \
  'Reginfo ok applied' 'version 0' 'state full' 'aor sip:ada@example.com' 'registration × 1' 'contact × 1' \
  'What it changed' '+ added /reginfo/registration[r1]' '@aor sip:ada@example.com' '@id r1' '@state active' 'contact × 1' 'Document, 274 bytes'
has 'a change' 'What it changed' '~ changed /reginfo/registration[r1]/contact[c1]' '@event registered → refreshed' \
  '+ added /reginfo/registration[r1]/contact[c2]'
has 'one again' 'Reginfo ok ignored: its version was there already'
has 'a gap' 'Reginfo ok applied; refresh: notifications before it were missed'
has 'presence' 'What it changed' '~ changed /presence' 'note here (gone)' '~ changed /presence/tuple[t1]' 'status/basic open → closed'
has 'a URL' 'What it changed' '~ changed /simservs' 'originating-identity-presentation/@active true → false'
has 'the order of time' 12 'MESSAGE sip:bob@example.com SIP/2.0' '2023-11-14 22:13:50.000 192.0.2.1:40000 → 192.0.2.2:40001 other.pcap#1'

# What is wrong, where; what cannot be seen is shown.
has 'a refusal' Refused 'line 6, column 136: incomplete: the text ends within the end tag </pres' \
  '...="t1"><status><basic>open</basic></status></tuple></pres' '^'
has 'a loss' 'Not kept by the library' '/reginfo/registration[1]/@hint attribute not kept line 6'
has 'hostile headers' 'MESSAGE sip:</script></style></pre><imgsrc=xonerror=alert(1)>"'"'"'--@example.com SIP/2.0' \
  '2023-11-14 22:13:30.000 192.0.2.1:40000 → 192.0.2.2:40001 mixed.pcap#11 Call-ID </script></style></pre><img src=x onerror=alert(1)>"'"'--"
grep -qF 'alert(1)>"'"'-- U+202E \\x01 \\xff </state>" page.txt || fail 'hostile bytes are not shown'
has 'several in a message' 'a part of the type "text/plain"' 'Document log.txt#1 refused'
has 'a byte that is not UTF-8' '<pub-gruu uri="a\xff"/>'
grep -q "default-src 'none'" page.html || fail 'the page may load what it likes'

# ---- Sizes, outputs, wrong usage -------------------------------------------------------------------
# Ten thousand messages, which may take no more than a few seconds, also with sanitizers.
expect 0 "" timeout 60 "$ztxml" report --html many.html many.pcap
[[ "$(grep -c '<article class="message"' many.html)" == 10000 ]] || fail 'not all of many messages are there'
expect 0 "" "$ztxml" report --html - alone.xml
"$ztxml" report --html alone.html alone.xml
cmp out alone.html || fail 'standard output has another page'
expect 1 "nothing.xml: file: no such file" "$ztxml" report --html page.html nothing.xml alone.xml
python3 text.py page.html >page.txt
has 'a file that cannot be read' nothing.xml 'no such file' '0 0' 'alone.xml 0 1'
expect 2 "--html is required" "$ztxml" report alone.xml
cp alone.xml kept.xml
expect 2 "is a file to report on" "$ztxml" report --html ./alone.xml alone.xml
cmp alone.xml kept.xml || fail 'the report has taken the place of its input'
expect 4 "cannot be written" "$ztxml" report --html /dev/full alone.xml
expect 0 "" "$ztxml" report --standard --html page.html --require-document other.pcap alone.xml
python3 text.py page.html >page.txt
has 'a message without a document, refused' 'refused capture: no XML body in message 1'
has 'the standard profile' Refused 'line 1, column 17: encoding: these bytes are no character of the encoding'

finish "command line tool, report"
