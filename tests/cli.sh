#!/usr/bin/env bash
# Checks the command line tool and the examples as their users run them.
# Usage: cli.sh ZTXML DOCUMENTS_DIR [EXAMPLES_DIR]   (the last: where the example programs are)
set -uo pipefail

ztxml="$1"
documents="$2"
examples="${3:-}"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
failures=0
fail() { echo "FAILED: $*" >&2; failures=$((failures + 1)); }

# expect STATUS MESSAGE COMMAND...: the exit status, and what standard error contains ("": nothing).
expect() {
  local status="$1" message="$2" got=0
  shift 2
  "$@" >"$work/out" 2>"$work/err" || got=$?
  [[ "$got" -eq "$status" ]] || fail "$*: exit status $got, not $status"
  if [[ -n "$message" ]]; then
    grep -qF -- "$message" "$work/err" || fail "$*: no '$message' in: $(cat "$work/err")"
  elif [[ -s "$work/err" ]]; then
    fail "$*: $(cat "$work/err")"
  fi
}

prints() { [[ "$(cat "$work/out")" == "$1" ]] || fail "printed: $(cat "$work/out")"; }

# ---- What is printed ----------------------------------------------------------------------------
printf '<?xml version="1.0"?>\n<p:a xmlns="urn:d" xmlns:p="urn:p" x="&quot;\\">\n <b/>t&lt;\t"\1</p:a>\n' \
  >"$work/small.xml"
expect 0 "" "$ztxml" events "$work/small.xml"
prints 'start p:a
attribute p:a xmlns="urn:d"
attribute p:a xmlns:p="urn:p"
attribute p:a x="\"\\"
opened p:a
start b
opened b
end /b ""
end /p:a "t&lt;\t\"\x01"'
expect 0 "" "$ztxml" namespaces "$work/small.xml"
prints $'(default)\turn:d\np\turn:p'
expect 0 "" "$ztxml" schemas
grep -Eq '^26 +Reginfo +reginfo +urn:ietf:params:xml:ns:reginfo +read, write$' "$work/out" ||
  fail "schemas: $(cat "$work/out")"

# ---- Reading and writing ------------------------------------------------------------------------
for document in "$documents"/*.xml; do
  if [[ "$document" == *wap-provisioningdoc* ]]; then
    expect 3 "the schema WapProvisioningDoc is only read" "$ztxml" roundtrip "$document"
    expect 3 "only read" "$ztxml" roundtrip --schema VolteConfigInfo "$document"
    continue
  fi
  expect 0 "" "$ztxml" roundtrip "$document"
  mv "$work/out" "$work/once.xml"
  expect 0 "" "$ztxml" roundtrip - <"$work/once.xml"
  cmp "$work/once.xml" "$work/out" || fail "$document: no fixed point"
done
expect 0 "" "$ztxml" roundtrip "$documents/reginfo-prefixed.xml"
grep -qF '<gr:temp-gruu  first-cseq="31"' "$work/out" || fail "prefixed: $(cat "$work/out")"
expect 0 "" "$ztxml" roundtrip "$documents/simservs-prefixed.xml"
grep -qF '<ss:media>video</ss:media>' "$work/out" || fail "prefixed: $(cat "$work/out")"
"$ztxml" roundtrip "$documents/reginfo.xml" >"$work/once.xml"
for schema in ReGiNfO 26; do
  expect 0 "" "$ztxml" roundtrip --schema "$schema" "$documents/reginfo.xml"
  cmp "$work/once.xml" "$work/out" || fail "--schema $schema: written differently"
done

# ---- Failures -----------------------------------------------------------------------------------
expect 1 "$work/none.xml: file: no such file" "$ztxml" events "$work/none.xml"
expect 1 "(standard input):1:4: parser: not well formed" "$ztxml" events - <<<'<a></b>'
expect 1 "(standard input):1:1: parser: incomplete" "$ztxml" namespaces - <<<'<a><b></b>'
expect 1 'root element: no schema has the root element "a"' "$ztxml" roundtrip "$work/small.xml"
expect 1 'root element: "a" is not' "$ztxml" roundtrip --schema gruu "$work/small.xml"
expect 2 "unknown schema 'nope'" "$ztxml" roundtrip --schema nope "$work/small.xml"
expect 2 "FILE is required" "$ztxml" events
expect 3 "is only read" "$ztxml" roundtrip --schema 27 "$work/small.xml"
expect 3 "lacks something required" "$ztxml" roundtrip - <<<'<reginfo version="1"/>'
expect 3 "log 1 src/XMLReginfo" "$ztxml" roundtrip - --log 1 <<<'<reginfo version="1"/>'
expect 3 "output not well formed" "$ztxml" roundtrip - \
  <<<'<communication-diversion><cp:ruleset><cp:rule/></cp:ruleset></communication-diversion>'
printf '<pub-gruu uri="%040000d"/>' 0 >"$work/long.xml"
expect 3 "output cut at 32767 characters" "$ztxml" roundtrip "$work/long.xml"
[[ "$(wc -c <"$work/out")" -eq 32767 ]] || fail "long document: $(wc -c <"$work/out") bytes"

# ---- Examples -----------------------------------------------------------------------------------
if [[ -n "$examples" ]]; then
  expect 0 "" "$examples/read_reginfo" "$documents/reginfo-gruu.xml"
  grep -q 'temporary GRUU sip:.* since CSeq 101$' "$work/out" || fail "$(cat "$work/out")"
  expect 0 "" "$examples/write_reginfo"
  mv "$work/out" "$work/written.xml"
  expect 0 "" "$ztxml" roundtrip "$work/written.xml"
  [[ "$(cat "$work/out")" == "$(cat "$work/written.xml")" ]] || fail "write_reginfo: read differently"
  # The body to put back is the old one with the changes and nothing else.
  diversion="$documents/communication-diversion.xml"
  expect 0 "" "$examples/change_diversion" "$diversion" "sip:new@example.com?a=1&b"
  mv "$work/out" "$work/changed.xml"
  "$ztxml" roundtrip "$diversion" | sed -e 's|<target>.*</target>|<target>sip:new@example.com?a=1\&amp;b</target>|' \
    -e 's|>20</NoReplyTimer>|>30</NoReplyTimer>|' \
    -e 's|^<media>audio</media></cp:conditions>|<media>audio</media>\n<rule-deactivated/></cp:conditions>|' \
    >"$work/out"
  [[ "$(cat "$work/out")" == "$(cat "$work/changed.xml")" ]] ||
    fail "change_diversion: $(cat "$work/changed.xml")"
fi

[[ "$failures" -eq 0 ]] && echo "cli: all passed"
exit "$((failures > 0))"
