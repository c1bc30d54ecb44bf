#!/usr/bin/env bash
# Checks differences side by side, documents by their numbers (FILE#3), and edits in place.
# Usage: cli-diff.sh ZTXML DOCUMENTS_DIR
set -uo pipefail
# shellcheck source=tests/cli-support.sh
source "$(dirname "$0")/cli-support.sh"
cd "$work" || exit 1

# ---- Side by side -------------------------------------------------------------------------------
# conference SUBJECT USER...: with so many users.
conference() {
  printf %s "<conference-info entity='sip:c'><conference-description><subject>$1</subject></conference-description><users>"
  for user in "${@:2}"; do printf %s "<user entity='$user'/>"; done
  echo "</users></conference-info>"
}
long=$'\303\251\303\250 as long as a column, and then some more: '
conference "${long}one" a b c d >old.xml
conference "${long}two" a c d $'\303\266' >new.xml
expect 1 "" "$ztxml" diff -y --width 60 --context 1 old.xml new.xml
prints $'/conference-info
  @entity = "sip:c"             @entity = "sip:c"
/conference-info/conference-description
  subject = ..."ore: one"     ~ subject = ..."ore: two"
/conference-info/users
  user[1] @entity="a"           user[1] @entity="a"
  user[2] @entity="b"         -
      @entity = "b"           -
  user[3] @entity="c"           user[2] @entity="c"
  user[4] @entity="d"           user[3] @entity="d"
                              + user[4] @entity="\303\266"
                              +     @entity = "\303\266"'
# Cut by characters, not bytes.
printf '<isComposing><state>%s</state><contenttype>%0200d</contenttype></isComposing>' "$(printf '\303\266%.0s' {1..99})" 0 >wide.xml
printf '<isComposing><state>x</state></isComposing>' >narrow.xml
expect 1 "" "$ztxml" diff --side-by-side --width 61 wide.xml narrow.xml
prints $'/isComposing
  state = "\303\266\303\266\303\266\303\266\303\266\303\266\303\266\303\266\303\266\303\266\303\266\303\266\303\266\303\266\303\266\303\266... ~ state = "x"
  contenttype = "0000000000... -'
# Documents of different types.
expect 1 "" "$ztxml" diff -y --width 60 old.xml narrow.xml
prints '/
  conference-info : zt_con... ~ isComposing : zt_isCompo...'
expect 0 "" "$ztxml" diff -y old.xml old.xml
prints ""
expect 1 "" "$ztxml" diff -y old.xml new.xml
grep -q '^.\{64\} + ' out || fail "130 columns: $(cat out)"
expect 1 "" "$ztxml" --color always diff -y old.xml new.xml
grep -q $'^\x1b\\[36m/conference-info/users\x1b\\[0m$' out || fail "the path's colour: $(cat out)"
grep -q $'^  \x1b\\[31muser\\[2\\] @entity="b" *-\x1b\\[0m$' out || fail "the line's colour: $(cat out)"
expect 2 "excludes" "$ztxml" diff -y --json old.xml new.xml
expect 2 "requires --side-by-side" "$ztxml" diff --width 100 old.xml new.xml
expect 2 "not in range" "$ztxml" diff -y --width 59 old.xml new.xml
if command -v script >/dev/null; then
  script -qc "stty cols 90; env NO_COLOR=1 $ztxml diff -y old.xml new.xml" /dev/null </dev/null >out
  grep -q '^.\{44\} + ' out || fail "the terminal's width: $(cat out)"
fi

# ---- What a comparison tells --------------------------------------------------------------------
# Attributes of unknown names go by name; an entry that comes again keeps its place.
printf '<conference-info entity="e" b="1" c="2"><users><user entity="a"/><user entity="x"/><user entity="a"/><user entity="b"/></users></conference-info>' >old.xml
printf '<conference-info entity="e" c="3" a="1"><users><user entity="a"/><user entity="a"/><user entity="y"/><user entity="b"/></users></conference-info>' >new.xml
expect 1 "" "$ztxml" diff old.xml new.xml
grep -v '^[-+]  ' out >lines && mv lines out
prints '- /conference-info/@b = "1"
~ /conference-info/@c: "2" -> "3"
+ /conference-info/@a = "1"
- /conference-info/users/user[2] : zt_user_type @entity="x"
+ /conference-info/users/user[3] : zt_user_type @entity="y"'

# ---- FILE#3 -------------------------------------------------------------------------------------
composing() { printf '<isComposing xmlns="urn:ietf:params:xml:ns:im-iscomposing"><state>%s</state></isComposing>' "$1"; }
message() { printf 'NOTIFY sip:a SIP/2.0\r\nContent-Type: application/im-iscomposing+xml\r\nContent-Length: %d\r\n\r\n%s' "${#1}" "$1"; }
composing one >one.xml
for state in one two three; do message "$(composing "$state")"; done >log.txt
state=/isComposing/state
for number in "1 one" "2 two" "3 three"; do
  expect 0 "" "$ztxml" get "log.txt#${number% *}" "$state"
  prints "${number#* }"
done
expect 1 "" "$ztxml" diff log.txt#2 log.txt#3
prints '~ /isComposing/state: "two" -> "three"'
expect 0 "" "$ztxml" diff one.xml log.txt#1
expect 0 "" "$ztxml" diff one.xml#1 /dev/stdin#1 <log.txt
expect 0 "" "$ztxml" body log.txt#3
prints "$(composing three)"
expect 0 "" "$ztxml" check log.txt#2 one.xml
prints 'log.txt#2: ok, IsComposing
one.xml: ok, IsComposing
documents: 2 ok, 0 refused, 0 faulty'
expect 0 "" "$ztxml" edit --set "$state=idle" log.txt#2
prints "$(composing idle)"
last="no such document: log.txt has 3 documents, of which the last is log.txt#3"
expect 1 "log.txt#4: capture: $last" "$ztxml" get log.txt#4 "$state"
expect 2 "log.txt#0: capture: $last" "$ztxml" diff one.xml log.txt#0
expect 1 "$last" "$ztxml" show log.txt#03
expect 1 "one.xml has 1 document"$'\n' "$ztxml" format one.xml#2
expect 1 "none.xml#1: file: no such file" "$ztxml" get none.xml#1 "$state"
expect 1 "one.xml#: file: no such file" "$ztxml" get one.xml# "$state"
expect 1 "3 XML bodies, of which only one can be read (the first is log.txt#1)" "$ztxml" get log.txt "$state"
# A name that a file has comes first.
composing named >log.txt#2
expect 0 "" "$ztxml" get log.txt#2 "$state"
prints named
mv log.txt 'a#1'
expect 0 "" "$ztxml" get a#1#3 "$state"
prints three
# Messages of a capture, of which one has several documents and one has none; and what is broken
# elsewhere does not matter.
tail -c +2 "$sources/fuzz/corpus/packets/file-pcap" >call.pcap
"$ztxml" check call.pcap >all
while IFS=: read -r name _; do
  expect 0 "" "$ztxml" check "$name"
  head -n 1 out | grep -qxFf - all || fail "$name is another: $(cat out)"
done < <(grep '#' all)
{ printf 'SIP/2.0 200 OK\r\nContent-Length: 0\r\n\r\n' && message '<isComposing>' && message "$(cat one.xml)"; } >broken.txt
expect 1 "broken.txt#1" "$ztxml" show broken.txt#1
expect 0 "" "$ztxml" get broken.txt#2 "$state"

# ---- Edits in place -----------------------------------------------------------------------------
cp "$documents/simservs.xml" simservs.xml
chmod 640 simservs.xml
ln -s simservs.xml link.xml
path=/simservs/communication-diversion/NoReplyTimer
"$ztxml" edit --set "$path=21" simservs.xml >expected.xml
expect 0 "" "$ztxml" edit -i --set "$path=21" link.xml
prints ""
cmp expected.xml simservs.xml || fail "what edit -i writes"
[[ "$(stat -c %a simservs.xml)" == 640 && -L link.xml ]] || fail "mode or link: $(ls -l ./*simservs.xml link.xml)"
expect 2 "simservs.xml" "$ztxml" edit -i --set "$path=x" simservs.xml
cp 'a#1' log.txt
for file in log.txt#3 a#1#3 one.xml#1 -; do
  expect 2 "--in-place is for files that are one document" "$ztxml" edit -i --set "$state=x" "$file" <one.xml
done
message "$(composing one)" >message.txt
cp message.txt same.txt
expect 2 "--in-place is for files that are one document" "$ztxml" edit -i --set "$state=x" message.txt
for pair in "same.txt message.txt" "expected.xml simservs.xml" "a#1 log.txt"; do
  # shellcheck disable=SC2086
  cmp $pair || fail "a refused edit changes a file: $pair"
done
[[ "$(compgen -G '*.xml.*')" == "" ]] || fail "a file is left: $(ls)"

finish cli-diff
