#!/usr/bin/env bash
# Checks what the command line tool has for a person at a terminal: help, the commands body, format
# and new, output for other programs, completion.
# Usage: cli-commands.sh ZTXML DOCUMENTS_DIR
set -uo pipefail
# shellcheck source=tests/cli-support.sh
source "$(dirname "$0")/cli-support.sh"
go_to_work
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
printf '<!DOCTYPE ims-3gpp SYSTEM "a>b"><ims-3gpp version="1"><alternative-service><type><emergency/></type></alternative-service></ims-3gpp>' >blank.xml
expect 0 "" "$ztxml" format blank.xml
prints '<!DOCTYPE ims-3gpp SYSTEM "a>b">
<ims-3gpp version="1">
  <alternative-service>
    <type><emergency/></type>
  </alternative-service>
</ims-3gpp>'
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

# ---- For other programs -------------------------------------------------------------------------
# Each line is a value of JSON, and the file is XML, whatever strangers have put into it.
printf '<reginfo version="1" state="full" %s="1"><x>\1</x></reginfo>' 'q' >"faulty \"<&>"$'\xff'".xml"
faulty="faulty \"<&>"$'\xff'".xml"
printf '<reginfo><a></b>' >broken.xml
printf '<reginfo xmlns="urn:ietf:params:xml:ns:reginfo" version="x" state="full"><y/></reginfo>' >lossy.xml
expect 1 "" "$ztxml" check --json --lost --junit junit.xml notify.xml "$faulty" broken.xml lossy.xml none.xml
prints '{"file":"notify.xml","schema":"Reginfo","status":"ok"}
{"file":"faulty \"<&>\ufffd.xml","schema":"Reginfo","status":"faulty","faults":[{"kind":"well-formedness","message":"the character \"\\x01\", which XML does not allow","line":1,"column":44}]}
{"file":"broken.xml","status":"refused","error":{"kind":"malformed","message":"the end tag </b> where </a> is expected (opened at 1:10)","line":1,"column":13,"path":"/reginfo/a"}}
{"file":"lossy.xml","schema":"Reginfo","status":"lossy","losses":[{"kind":"value","path":"/reginfo/@version","line":1,"column":58},{"kind":"element","path":"/reginfo/y","line":1,"column":74}]}
{"file":"none.xml","status":"refused","error":{"kind":"file","message":"no such file"}}'
grep -qxF '<testsuite name="ztxml check" tests="5" failures="4" errors="0">' junit.xml || fail "$(cat junit.xml)"
[[ "$("$ztxml" events junit.xml | grep -c '^start /*testcase$')" == 5 ]] || fail "cases: $(cat junit.xml)"
"$ztxml" namespaces junit.xml || fail "no XML: $(cat junit.xml)"
grep -qF '<failure type="loss" message="lossy.xml:1:58: /reginfo/@version: value not kept' junit.xml || fail "$(cat junit.xml)"
grep -qF 'name="faulty &quot;&lt;&amp;&gt;\xff.xml" classname="Reginfo"' junit.xml || fail "$(cat junit.xml)"
expect 1 "" "$ztxml" check --json --quiet --strict notify.xml lossy.xml
grep -c . out | grep -qx 1 || fail "quiet: $(cat out)"
expect 4 "cannot be written" "$ztxml" check --quiet --junit none/junit.xml notify.xml
expect 0 "" "$ztxml" schemas --json
grep -qxF '{"id":26,"name":"Reginfo","roots":["reginfo"],"namespace":"urn:ietf:params:xml:ns:reginfo","contentTypes":["application/reginfo+xml"],"writes":true}' out ||
  fail "schemas: $(cat out)"
expect 1 "incomplete" "$ztxml" events --json - <<<'<a b="&amp;"><c/>t'
prints '{"file":"(standard input)","event":"start","element":"a"}
{"file":"(standard input)","event":"attribute","element":"a","name":"b","value":"&"}
{"file":"(standard input)","event":"opened","element":"a"}
{"file":"(standard input)","event":"start","element":"c"}
{"file":"(standard input)","event":"opened","element":"c"}
{"file":"(standard input)","event":"end","element":"c","text":""}
{"file":"(standard input)","error":{"kind":"incomplete","message":"<a> is not closed (opened at 1:1)","line":2,"column":1,"path":"/a"}}'
registration() {
  echo "<reginfo xmlns='urn:ietf:params:xml:ns:reginfo' version='$1' state='$2'><registration aor='sip:a' id='$3' state='active'/></reginfo>"
}
registration 0 full r1 >full.xml
registration 2 partial r2 >partial.xml
expect 1 "notifications before it were missed" "$ztxml" merge --json full.xml partial.xml
prints '{"schema":"Reginfo","document":{"#element":"reginfo","#type":"zt_reginfo","@version":2,"@state":"full","registration":[{"#element":"registration","#type":"zt_registration","@aor":"sip:a","@id":"r1","@state":"active"},{"#element":"registration","#type":"zt_registration","@aor":"sip:a","@id":"r2","@state":"active"}]}}'
expect 1 "" "$ztxml" merge --json --events full.xml partial.xml
prints '{"file":"full.xml","applied":true,"changes":[{"change":"added","path":"/reginfo/registration[r1]"}]}
{"file":"partial.xml","applied":true,"refresh":true,"reason":"notifications before it were missed","changes":[{"change":"added","path":"/reginfo/registration[r2]"}]}'

# ---- Differences --------------------------------------------------------------------------------
# conference SUBJECT USER...: with so many users.
conference() {
  echo "<conference-info entity='sip:c'><conference-description><subject>$1</subject></conference-description><users>"
  for user in "${@:2}"; do echo "<user entity='$user'><display-text>$user</display-text></user>"; done
  echo "</users></conference-info>"
}
conference one a b c d e f >old.xml
conference two a b c e f g >new.xml
expect 1 "" "$ztxml" diff --json old.xml new.xml
prints '{"change":"changed","path":"/conference-info/conference-description/subject","old":"one","new":"two"}
{"change":"removed","path":"/conference-info/users/user[4]","old":{"#element":"user","#type":"zt_user_type","@entity":"d","display-text":"d"}}
{"change":"added","path":"/conference-info/users/user[6]","new":{"#element":"user","#type":"zt_user_type","@entity":"g","display-text":"g"}}'
expect 1 "" "$ztxml" diff --context 1 old.xml new.xml
prints '  /conference-info/@entity = "sip:c"
~ /conference-info/conference-description/subject: "one" -> "two"
  /conference-info/users/user[3] : zt_user_type @entity="c"
- /conference-info/users/user[4] : zt_user_type @entity="d"
-     @entity = "d"
-     display-text = "d"
  /conference-info/users/user[5] : zt_user_type @entity="e"
  /conference-info/users/user[6] : zt_user_type @entity="f"
+ /conference-info/users/user[6] : zt_user_type @entity="g"
+     @entity = "g"
+     display-text = "g"'
expect 0 "" "$ztxml" diff --context 3 old.xml old.xml
prints ""

# ---- At a terminal ------------------------------------------------------------------------------
printf '<reginfo>\n\t\303\244<a\303\244 b="1" c=2 ></reginfo>' >caret.xml
{ printf 'c: a/xml\r\n\r\n' && sed -e 's/$/\r/' caret.xml; } >caret.txt
caret=$'  <reginfo>\n   \xc3\xa4<a\xc3\xa4 b="1" c=2 ></reginfo>\n                ^'
for file in caret.xml caret.txt; do
  expect 1 "$caret" "$ztxml" show --context 9 "$file"
  [[ "$(tail -n 3 err)" == "$caret" ]] || fail "the place: $(cat err)"
  expect 1 "" "$ztxml" check --context 1 "$file"
  [[ "$(sed -n 2,4p out)" == "$caret" ]] || fail "the place: $(cat out)"
  # Not where it goes to other programs.
  expect 1 "c has no quotes" "$ztxml" show "$file"
  [[ "$(wc -l <err)" == 1 ]] || fail "more than a line: $(cat err)"
  expect 1 "" "$ztxml" check --json --context 1 "$file"
  [[ "$(wc -l <out)" == 1 ]] || fail "more than a line: $(cat out)"
done
# Of a long line a part.
{ printf '<reginfo a="%01000d" c=' 0 && printf '%01000d></reginfo>' 0; } >long.xml
expect 1 "malformed" "$ztxml" show --context 0 long.xml
awk 'NR == 2 { line = $0 } END { exit !(length(line) < 90 && substr(line, length($0) - 3, 4) == " c=0") }' err ||
  fail "a long line: $(cat err)"
expect 2 "'alwasy' is none of auto, always and never (did you mean always?)" "$ztxml" show --color alwasy notify.xml
expect 1 "" "$ztxml" --color always check broken.xml
grep -q $'^\x1b\\[31mbroken.xml.*\x1b\\[0m$' out || fail "no colour: $(cat out)"
expect 1 "" "$ztxml" check broken.xml
grep -q $'\x1b' out && fail "colours in a file: $(cat out)"
# on_terminal [VARIABLE=VALUE]... ARGUMENT...: what the tool prints on one.
on_terminal() { script -qc "env -u NO_COLOR TERM=xterm $*" /dev/null </dev/null | tr -d '\r'; }
if command -v script >/dev/null; then
  on_terminal "$ztxml" diff old.xml new.xml | grep -q $'^\x1b\\[33m~ ' || fail "no colours on a terminal"
  for plain in "NO_COLOR=1" "TERM=dumb"; do
    on_terminal "$plain" "$ztxml" diff old.xml new.xml | grep -q '^~ ' || fail "colours with $plain"
  done
  on_terminal NO_COLOR=1 "$ztxml" diff --color always old.xml new.xml | grep -q $'\x1b' || fail "NO_COLOR over --color"
  on_terminal NO_COLOR= "$ztxml" show caret.xml | grep -q '\^' || fail "no place on a terminal"
fi

# ---- The man page -------------------------------------------------------------------------------
# Its examples, and those of the page on the tool, with files of their names.
mkdir examples && cd examples || exit 1
mkdir capture captures
cp "$documents/reginfo.xml" notify.xml
cp notify.xml captures
tail -c +2 "$sources/fuzz/corpus/packets/file-pcap" >call.pcap  # after the byte that is the target's
cp "$documents/simservs.xml" ../old.xml ../new.xml .
{ printf 'c: application/reginfo+xml\n\n' && cat notify.xml; } | tee capture/1.txt >capture/2.txt
{ printf 'c: application/reginfo+xml\n\n' && cat ../full.xml; } >full.txt
{ printf 'c: application/reginfo+xml\n\n' && sed -e "s/version='2'/version='1'/" ../partial.xml; } >partial-1.txt
{
  printf 'c: multipart/mixed;boundary=b\n\n--b\nc: application/reginfo+xml\n\n' && cat notify.xml
  printf '\n--b\nc: application/reginfo+xml\n\n' && cat notify.xml && printf -- '\n--b--\n'
} >multipart.txt
for seconds in 3540 60; do
  printf 'NOTIFY sip:a SIP/2.0\nc: application/reginfo+xml\n\n' && sed -e "s/3540/$seconds/" notify.xml
done >log.txt
ztxml() { "$ztxml" "$@"; }
command -v jq >/dev/null || jq() { cat >/dev/null; }
sed -n '/^\.EX/,/^\.EE/p' "$sources/docs/ztxml.1" | sed -e '/^\./d' -e 's/\\-/-/g' -e "s/\\\\(aq/'/g" >examples.txt
sed -n 's/^    \(ztxml .*\)/\1/p' "$sources/docs/tool.md" >guide.txt
while IFS= read -r example; do
  wanted=0
  [[ "$example" == "ztxml diff "* ]] && wanted=1
  (set -o pipefail; eval "$example") >out 2>err </dev/null
  got=$?
  [[ "$got" == "$wanted" ]] || fail "example '$example': exit status $got: $(cat err)"
  [[ "$example" == *" --log "* || ! -s err ]] || fail "example '$example': $(cat err)"
done < <(cat examples.txt guide.txt)
for command in "${commands[@]}"; do
  grep -q "ztxml $command" examples.txt || fail "$command has no example on the man page"
done
cd .. || exit 1
unset -f ztxml jq

# ---- Completion ---------------------------------------------------------------------------------
# completes EXPECTED WORD...: what is offered for the last word.
completes() {
  local expected="$1" got
  got="$(bash -c 'source "$1" && shift && COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) && { _ztxml; echo "${COMPREPLY[*]}"; }' \
    - "$sources/tools/completion/ztxml" "$ztxml" "${@:2}")"
  [[ "$got" == "$expected" ]] || fail "completion of '${*:2}': $got"
}
completes "show schemas" s
completes "check" help ch
completes "always" --color al
completes "Presence" new pres
completes "" edit --remove "$work/not"
completes "$work/notify.xml" --context 2 body "$work/not"
completes "Presence" check --schema pres
completes "VolteConfigInfo" show --schema = V
completes "1 2 3 4" --log ""
completes "$work/notify.xml" --log 2 events "$work/not"

# Every shell has every command and every option, and each command its own only.
options_of() { "$ztxml" "$1" --help | sed -e '/^Options:/,/^$/!d' | grep -oE -- '--[a-z-]+'; }
mapfile -t everywhere < <("$ztxml" --help | sed -e '/^Options:/,/^$/!d' | grep -oE -- '--[a-z-]+' | grep -vx -- --version)
for command in "${commands[@]}"; do
  mapfile -t options < <({ printf '%s\n' "${everywhere[@]}" && options_of "$command"; } | sort -u)
  # shellcheck disable=SC2016
  got="$(bash -c 'source "$1" && COMP_WORDS=(ztxml "$2" --) COMP_CWORD=2 && _ztxml && printf "%s\n" "${COMPREPLY[@]}"' \
    - "$sources/tools/completion/ztxml" "$command" | sort -u)"
  [[ "$got" == "$(printf '%s\n' "${options[@]}")" ]] || fail "bash: options of $command: $got"
  command -v fish >/dev/null || continue
  got="$(PATH="$(dirname "$ztxml"):$PATH" fish --no-config -c 'source $argv[1]; complete -C "ztxml $argv[2] --"' "$sources/tools/completion/ztxml.fish" "$command" |
    cut -f 1 | sort -u)"
  [[ "$got" == "$(printf '%s\n' "${options[@]}")" ]] || fail "fish: options of $command: $got"
done
{ "$ztxml" --help && for command in "${commands[@]}"; do "$ztxml" "$command" --help; done; } |
  sed -ne '/^Options:/,/^$/p' >all.txt
options_in() { grep -oE -- '--[a-z-]+' "$1" | sort -u; }
diff <(options_in "$sources/tools/completion/_ztxml") <(options_in all.txt) || fail "zsh: other options"
for file in _ztxml ztxml.fish; do
  for command in "${commands[@]}"; do
    grep -qE "(-a |')$command(:| )" "$sources/tools/completion/$file" || fail "$file: no $command"
  done
done
if command -v zsh >/dev/null; then
  expect 0 "" zsh -n "$sources/tools/completion/_ztxml"
fi

finish cli-commands
