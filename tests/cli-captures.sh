#!/usr/bin/env bash
# Checks what the command line tool takes documents from: logs of messages, encoded bodies, several
# documents in a row, directories, pipes; and what it says of other files.
# Usage: cli-captures.sh ZTXML DOCUMENTS_DIR
set -uo pipefail
# shellcheck source=tests/cli-support.sh
source "$(dirname "$0")/cli-support.sh"
cd "$work" || exit 1

gruu() { printf '<pub-gruu uri="%s"/>' "$1"; }
# message START_LINE TYPE [HEADER...]: one with standard input as its body.
message() {
  cat >body
  printf '%s\r\n' "$1" "Content-Type: $2" "Content-Length: $(wc -c <body)" "${@:3}" ''
  cat body
}
notify='NOTIFY sip:ada@example.com SIP/2.0'
ok='HTTP/1.1 200 OK'
xml='application/x+xml'
# checks EXPECTED STATUS [OPTION...]: of standard input.
checks() {
  expect "$2" "" "$ztxml" check "${@:3}" -
  prints "$1"
}

# ---- Encodings ----------------------------------------------------------------------------------
chunked() { head -c 7 "$1" | cat <(printf '7;x=y\r\n') - && printf '\r\n%x\r\n' "$(($(wc -c <"$1") - 7))" && tail -c +8 "$1" && printf '\r\n0\r\nT: x\r\n\r\n'; }
# As compressors of other programs write it: RFC 1950 around RFC 1951.
bare() { gzip -nc | tail -c +11 | head -c -8; }
zlib() {
  cat >plain
  printf '\x78\x9c'
  bare <plain
  printf "$(od -An -v -tu1 plain | awk '{ for (i = 1; i <= NF; ++i) { a = (a + $i) % 65521; b = (b + a + 1) % 65521 } }
    END { printf "\\x%02x\\x%02x\\x%02x\\x%02x", b / 256, b % 256, (a + 1) / 256, (a + 1) % 256 }')"
}
gruu 'ä=1' >plain.xml
gzip -nc plain.xml >gzipped
{
  base64 -w 20 plain.xml | message "$notify" "$xml" 'Content-Transfer-Encoding: BASE64'
  printf '<pub-gruu =\r\n uri=3D"=C3=A4=3d1"/>  \r\n' | message "$notify" "$xml" 'Content-Transfer-Encoding: quoted-printable'
  message "$ok" "$xml" 'Content-Encoding: gzip' <gzipped
  zlib <plain.xml | message "$ok" "$xml" 'e: deflate'
  bare <plain.xml | message "$ok" "$xml" 'Content-Encoding: deflate'
  chunked gzipped | message "$ok" "$xml" 'Transfer-Encoding: gzip, chunked'
  gzip -nc gzipped | message "$ok" "$xml" 'Content-Encoding: gzip' 'Content-Encoding: x-gzip'
  { gzip -nc <(head -c 9 plain.xml) && gzip -nc <(tail -c +10 plain.xml); } | message "$ok" "$xml" 'Content-Encoding: gzip'
} >encoded.txt
expect 0 "" "$ztxml" show encoded.txt
prints "$(for i in {1..8}; do printf '# encoded.txt#%d\npub-gruu : zt_pub_gruu\n  @uri = "ä=1"\n' "$i"; done)"
# In a multipart body that is compressed as a whole; places are those of what was decoded.
{ printf -- '--b\r\nContent-Transfer-Encoding: base64\r\n\r\n%s\r\n--b\r\n\r\n\n<pub-gruu>\r\n--b--' "$(base64 <plain.xml)" | gzip -nc |
  message "$ok" 'multipart/mixed; boundary=b' 'Content-Encoding: gzip'; } >nested.txt
checks '(standard input)#1: ok, Gruu
(standard input)#2:8:11: incomplete: <pub-gruu> is not closed (opened at 8:1)
documents: 1 ok, 1 refused, 0 faulty' 1 <nested.txt
# damaged REASON HEADER TEXT: why a body cannot be decoded.
damaged() { expect 1 "capture: the body is encoded ($1" "$ztxml" show - < <(printf "SIP/2.0 200 OK\r\n$2\r\nc: $xml\r\n\r\n$3"); }
damaged '"base64"): no base64: "!"' 'Content-Transfer-Encoding: base64' 'PGE+!'
damaged '"base64"): the base64 ends within a byte' 'Content-Transfer-Encoding: base64' 'PGE+P'
damaged '"quoted-printable"): no quoted-printable: "=x1"' 'Content-Transfer-Encoding: quoted-printable' '<a=x1'
damaged '"gzip"): the compressed data are damaged' 'Content-Encoding: gzip' '<a/>'
damaged '"gzip"): the compressed data are cut' 'Content-Encoding: gzip' '\x1f\x8b'
damaged '"chunked"): no size of a chunk: "x"' 'Transfer-Encoding: chunked' 'x\r\n<a/>'
damaged '"chunked"): it ends within a chunk' 'Transfer-Encoding: chunked' 'fffffffffffffffffff\r\n<a/>'
damaged '"chunked"): a chunk has not the size' 'Transfer-Encoding: chunked' '2\r\n<a/>'
head -c 70000000 /dev/zero | gzip -c | message "$ok" "$xml" 'Content-Encoding: gzip' >bomb.txt
expect 1 'bomb.txt:2:1: capture: the body is encoded ("gzip"): it has more than 67108864 bytes' "$ztxml" show bomb.txt

# ---- Logs and documents in a row ----------------------------------------------------------------
{
  printf '09:00:01 start\n09:00:02 received '
  message "$notify" "$xml" < <(gruu a)
  # What follows directly; a body that looks like a message; the message of a log without a length.
  printf 'SIP/2.0 200 OK\r\nCSeq: 1 NOTIFY\r\nl: 0\r\n\r\n09:00:03 sent\n<14>Oct 11 log: x\n'
  printf 'SIP/2.0 200 OK\r\n' | message "$notify" message/sipfrag
  printf '%s\nc: %s\n\n%s\n09:00:04 sent\n' "$notify" "$xml" "$(gruu b)"
  printf '09:00:05 a document: <?xml version="1.0"?>\n%s\n' "$(gruu c)"
  printf 'BYE sip:a SIP/2.0\nCSeq: 2 BYE\n\n09:00:06 a document on a line of its own\n  %s\n' "$(gruu g)"
  printf '%s\nl: 900\nc: %s\n\n%s\n' "$notify" "$xml" "$(gruu d)"
  printf '%s\nbad header\nc: %s\n\n%s\n' "$notify" "$xml" "$(gruu e)"
  message "$notify" "$xml" < <(gruu f)
} >log.txt
checks '(standard input)#1: ok, Gruu
(standard input):6:20: skipped: no XML body
(standard input):12:1: skipped: no XML body (but "message/sipfrag")
(standard input)#2: ok, Gruu
(standard input)#3: ok, Gruu
(standard input):24:1: skipped: no XML body
(standard input)#4: ok, Gruu
(standard input):29:1: capture: the Content-Length is "900", the body has 20 bytes, which are all used
(standard input)#5: ok, Gruu
(standard input)#6:35:1: capture: not a header: "bad header"
(standard input)#7: ok, Gruu
(standard input):1:1: skipped: lines that belong to no message: 6
documents: 6 ok, 1 refused, 0 faulty; messages without one: 3' 1 <log.txt
expect 1 ":12:1: skipped: no XML body" "$ztxml" namespaces log.txt
expect 1 "log.txt#6:35:1: capture: not a header" "$ztxml" events --require-document log.txt
expect 0 "" "$ztxml" check -q - <<<"BYE sip:ada@example.com SIP/2.0"
checks '(standard input):1:1: capture: no XML body
documents: 0 ok, 1 refused, 0 faulty' 1 -q --require-document <<<"BYE sip:ada@example.com SIP/2.0"
# Documents one after another: with junk, cut, within comments, with a mark.
checks '(standard input)#1: ok, Gruu
(standard input)#2:1:39: well-formedness: something after the root element
(standard input)#3: ok, Gruu
(standard input)#4:5:11: incomplete: the text ends within the tag <x
(standard input)#5: ok, Gruu
(standard input)#6: ok, Gruu
(standard input):7:1: skipped: no XML body
documents: 4 ok, 1 refused, 1 faulty; messages without one: 1' 1 < <(
  printf '%s%sjunk<?xml version="1.0"?>\n%s\n<!-- %s -->\n\n<pub-gruu><x n="' "$(gruu a)" "$(gruu b)" "$(gruu c)" "$(gruu x)"
  printf '<?xml version="1.0"?>%s\n\357\273\277%s\nBYE sip:a SIP/2.0\n\n' "$(gruu d)" "$(gruu e)"
)

# ---- Files --------------------------------------------------------------------------------------
# kinds KIND TEXT: what a file is called that has no documents.
kinds() { printf "$2" >other && checks "(standard input): file: $1
documents: 0 ok, 1 refused, 0 faulty" 1 <other; }
kinds "a gzip file" '\x1f\x8b\x08'
kinds "an ELF binary" '\x7fELF\x02'
kinds "a ZIP file" 'PK\x03\x04'
kinds "a PNG image" '\x89PNG\r\n\x1a\n'
kinds "UTF-16 text that is no XML" '\xff\xfe\r\0a\0'
kinds "JSON" '\n{ "a": [1] }\n'
mkdir -p tree/b tree/a/c
gruu a >tree/b/2.xml && gruu b >tree/a/c/1.xml && gruu c >tree/a/z.xml && : >tree/empty
expect 1 "tree: file: a directory" "$ztxml" namespaces tree
expect 1 "" "$ztxml" check -r tree encoded.txt
head -n 5 out >first && mv first out
prints 'tree/a/c/1.xml: ok, Gruu
tree/a/z.xml: ok, Gruu
tree/b/2.xml: ok, Gruu
tree/empty: file: empty
encoded.txt#1: ok, Gruu'
mkfifo pipe
gruu a >pipe &
expect 0 "" "$ztxml" show pipe /dev/fd/4 4< <(gruu b)
grep -qx '  @uri = "b"' out || fail "a pipe: $(cat out)"

# ---- Many messages ------------------------------------------------------------------------------
reginfo="$documents/reginfo.xml"
{
  printf 'v=0\r\n' | message 'INVITE sip:ada@example.com SIP/2.0' application/sdp
  printf 'SIP/2.0 200 OK\r\nl: 0\r\n\r\n09:00:01 sent, and sent again:\n'
  for _ in 1 2; do message "$notify" application/reginfo+xml <"$reginfo"; done
  {
    for part in rlmi presence presence-services; do printf -- '--b\r\n\r\n%s\r\n' "$(cat "$documents/$part.xml")"; done
    printf -- '--b\r\nContent-Type: application/sdp\r\n\r\nv=0\r\n--b--\r\n'
  } | message "$notify" 'multipart/related; boundary=b'
  gzip -nc "$documents/simservs.xml" >gzipped
  printf 'GET /services HTTP/1.1\r\nHost: xcap.example.com\r\n\r\n'
  printf '%s\r\n' "$ok" "Content-Type: $xml" 'Content-Encoding: gzip' 'Transfer-Encoding: chunked' '' && chunked gzipped
  message "$ok" "$xml" 'Content-Encoding: gzip' <gzipped
  zlib <"$documents/simservs.xml" | message "$ok" "$xml" 'Content-Encoding: deflate'
  base64 "$reginfo" | message "$notify" "$xml" 'Content-Transfer-Encoding: base64'
  sed -e 's/=/=3D/g' "$reginfo" | message "$notify" "$xml" 'Content-Transfer-Encoding: quoted-printable'
  printf '%s\nContent-Type: %s\n\n%s\n09:00:02 no length\n' "$notify" "$xml" "$(cat "$reginfo")"
  printf '%s\nl: 99999\nc: %s\n\n%s\n' "$notify" "$xml" "$(gruu a)"
  printf 'From: <sip:a>\r\n\r\nContent-Type: message/imdn+xml\r\n\r\n%s' "$(cat "$documents/imdn-display.xml")" | message 'MESSAGE sip:a SIP/2.0' message/cpim
  printf 'SIP/2.0 200 OK\r\n' | message "$notify" message/sipfrag
  printf '<reginfo>' | message "$notify" "$xml"
} >block.txt
blocks=625
for ((i = 0; i < blocks; ++i)); do cat block.txt; done >many.txt
begin="$EPOCHREALTIME"
expect 1 "" "$ztxml" check many.txt
took=$(((${EPOCHREALTIME/./} - ${begin/./}) / 1000))
echo "cli-captures: 10000 messages ($(wc -c <many.txt) bytes) in $took ms"
[[ "$took" -lt 20000 ]] || fail "10000 messages take $took ms"
# has COUNT PATTERN: so many lines in each block.
has() { [[ "$(grep -cE "$2" out)" == "$(($1 * blocks))" ]] || fail "'$2': $(grep -cE "$2" out), not $1 in each of $blocks"; }
has 13 '^many.txt#[0-9]+: ok, '
has 5 ': ok, Reginfo$'
has 3 ': ok, Simservs$'
has 1 ': ok, IMDN$'
has 1 '^many.txt#[0-9]+:[0-9]+:[0-9]+: incomplete: <reginfo> is not closed'
has 4 ': skipped: no XML body'
has 1 ': skipped: a part of the type "application/sdp"$'
grep -q "skipped: lines that belong to no message: $((2 * blocks))$" out || fail "lines: $(tail -n 2 out)"
[[ "$(tail -n 1 out)" == "documents: $((13 * blocks)) ok, $blocks refused, 0 faulty; messages without one: $((4 * blocks))" ]] ||
  fail "$(tail -n 1 out)"
grep -q "^many.txt#$((14 * blocks)):" out || fail "the number of the last one"

finish cli-captures
