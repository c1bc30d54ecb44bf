#!/usr/bin/env bash
# Checks what the command line tool has for a person at a terminal: help, the commands body, format
# and new, output for other programs, completion.
# Usage: cli-commands.sh ZTXML DOCUMENTS_DIR
set -uo pipefail
# shellcheck source=tests/cli-support.sh
source "$(dirname "$0")/cli-support.sh"
sources="$(cd "$(dirname "$0")/.." && pwd)"
ztxml="$(realpath "$ztxml")"
documents="$(realpath "$documents")"
cd "$work" || exit 1
cp "$documents/reginfo.xml" notify.xml

# ---- Help and exit status -----------------------------------------------------------------------
"$ztxml" --help >help.txt
for arguments in "" help; do
  # shellcheck disable=SC2086
  expect 0 "" "$ztxml" $arguments
  cmp help.txt out || fail "help by '$arguments'"
done
mapfile -t commands < <(sed -nE '/^Subcommands:/,/^$/s/^  ([a-z]+) .*/\1/p' help.txt)
[[ "${#commands[@]}" -ge 14 ]] || fail "commands: ${commands[*]}"
for command in "${commands[@]}"; do
  expect 0 "" "$ztxml" help "$command"
  "$ztxml" "$command" --help | cmp - out || fail "help of $command"
done
expect 2 "no such command: chekc (did you mean check?)" "$ztxml" help chekc
expect 2 "no such command: shwo (did you mean show?)" "$ztxml" shwo notify.xml
expect 2 "no such command: zzz"$'\n' "$ztxml" zzz
expect 2 "unknown schema 'reginof' (did you mean Reginfo?)" "$ztxml" show --schema reginof notify.xml
expect 2 "unknown schema 'confer' (did you mean ConferenceInfo?)" "$ztxml" new confer
expect 2 "unknown schema 'temp_gruu' (did you mean temp-gruu?)" "$ztxml" new temp_gruu
expect 2 "no such option: --jsno (did you mean --json?)" "$ztxml" show --jsno notify.xml
# What cannot be put out is told from what cannot be written as a document.
full() { "$ztxml" "$@" >/dev/full; }
expect 4 "(standard output): cannot be written" full show notify.xml
expect 4 "(standard output): cannot be written" full check notify.xml none.xml
closed() {
  "$ztxml" "$@" | true
  return "${PIPESTATUS[0]}"
}
# More than a pipe holds.
mapfile -t many < <(for i in {1..200}; do echo notify.xml; done)
expect 4 "" closed events "${many[@]}"

# ---- body ---------------------------------------------------------------------------------------
first=$'<a>\r\n \xe4</a> '
second=$'<?xml version="1.0" encoding="UTF-16"?><b/>'
{
  printf 'Content-Type: multipart/mixed;boundary=x\r\n\r\n--x\r\nContent-Type: a/a+xml\r\n\r\n%s\r\n' "$first"
  printf -- '--x\r\nContent-Type: b/b+xml\r\n\r\n' && iconv -f UTF-8 -t UTF-16 <<<"$second" && printf '\r\n--x--\r\n'
} >message.txt
expect 0 "" "$ztxml" body message.txt
{ printf %s "$first" && iconv -f UTF-8 -t UTF-16 <<<"$second"; } | cmp - out || fail "bodies: $(cat out)"
expect 0 "" "$ztxml" body --nth 2 - <message.txt
iconv -f UTF-8 -t UTF-16 <<<"$second" | cmp - out || fail "the second body: $(cat out)"
expect 1 "there are 2 documents, and no number 3" "$ztxml" body --nth 3 message.txt
prints ""
expect 2 "--nth" "$ztxml" body --nth 0 message.txt
expect 0 "" "$ztxml" body notify.xml
cmp notify.xml out || fail "body of a document"
expect 1 "no XML body" "$ztxml" body - <<<$'c: application/sdp\n\nv=0'

# ---- format -------------------------------------------------------------------------------------
printf '<reginfo xmlns="urn:ietf:params:xml:ns:reginfo"\n version="0" state="full"><!-- a\n b --><x:y xmlns:x="u">t <z/></x:y>
<x><y a=">"> <z/> <!-- here --></y> \n\n<?p?></x><x xml:space="preserve"> <y/></x><![CDATA[]]></reginfo><!--e-->' >dense.xml
expect 0 "" "$ztxml" format dense.xml
cmp -s dense.xml out && fail "nothing is formatted"
sed -i -e 's/<!\[CDATA\[\]\]>//' dense.xml
expect 0 "" "$ztxml" format dense.xml
prints '<reginfo xmlns="urn:ietf:params:xml:ns:reginfo"
 version="0" state="full">
  <!-- a
 b -->
  <x:y xmlns:x="u">t <z/></x:y>
  <x>
    <y a=">">
      <z/> <!-- here -->
    </y>
    <?p?>
  </x>
  <x xml:space="preserve"> <y/></x>
</reginfo>
<!--e-->'
# An element whose text is a value keeps it, also when that is white space.
printf '<presence xmlns="urn:ietf:params:xml:ns:pidf" entity="sip:a"><note> <x:y xmlns:x="u"><x:z/></x:y></note></presence>' >blank.xml
expect 0 "" "$ztxml" format blank.xml
grep -qxF '  <note> <x:y xmlns:x="u"><x:z/></x:y></note>' out || fail "a value of white space: $(cat out)"
iconv -f UTF-8 -t UTF-16 dense.xml >wide.xml
expect 0 "" "$ztxml" format wide.xml
"$ztxml" format dense.xml | cmp - <(iconv -f UTF-16 -t UTF-8 out) || fail "another encoding"
expect 0 "" "$ztxml" format - < <(sed -e 's/$/\r/' dense.xml)
grep -qv $'\r$' out && fail "other line breaks: $(cat out)"
for document in "$documents"/*.xml; do
  "$ztxml" check --standard --quiet "$document" >/dev/null || continue
  expect 0 "" "$ztxml" format "$document"
  mv out formatted.xml
  expect 0 "" "$ztxml" diff --standard "$document" formatted.xml
  expect 0 "" "$ztxml" format formatted.xml
  cmp formatted.xml out || fail "$document: formatted twice"
  cmp <(tr -d ' \r\n' <"$document") <(tr -d ' \r\n' <out) || fail "$document: more than white space changed"
done
expect 1 "incomplete" "$ztxml" format - <<<'<reginfo>'
prints ""

# ---- new ----------------------------------------------------------------------------------------
"$ztxml" schemas >schemas.txt
while read -r _ schema root _; do
  note="" check="check --strict --lost --quiet"
  [[ "$root" == 3gpp-ims ]] && note='XML does not allow the name "3gpp-ims"' check="check --lost --quiet"
  expect 0 "$note" "$ztxml" new "$schema"
  mv out new.xml
  # shellcheck disable=SC2086
  expect 0 "" "$ztxml" $check new.xml
  prints ""
  # Each thing has an example of its own.
  grep -n '[">]example["<]' new.xml && fail "$schema: an example is missing"
done < <(grep 'read, write$' schemas.txt)
expect 0 "" "$ztxml" new temp-gruu
grep -q 'temp-gruu .*first-cseq="[0-9]' out || fail "temp-gruu: $(cat out)"
expect 0 "" "$ztxml" new 26
"$ztxml" new reginfo | cmp - out || fail "new by a number"
expect 2 "only read" "$ztxml" new VolteConfigInfo

# ---- Completion ---------------------------------------------------------------------------------
# completes EXPECTED WORD...: what is offered for the last word.
completes() {
  local expected="$1" got
  got="$(bash -c 'source "$1" && shift && COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) && { _ztxml; echo "${COMPREPLY[*]}"; }' \
    - "$sources/tools/completion/ztxml" "$ztxml" "${@:2}")"
  [[ "$got" == "$expected" ]] || fail "completion of '${*:2}': $got"
}
completes "show schemas" s
completes "--schema --standard" show --s
completes "--schema --set" edit --s
completes "--events" merge --e
completes "" edit --remove "$work/not"
completes "--quiet" check --q
completes "Presence" check --schema pres
completes "VolteConfigInfo" show --schema = V
completes "1 2 3 4" --log ""
completes "$work/notify.xml" --log 2 events "$work/not"

finish cli-commands
