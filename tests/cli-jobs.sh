#!/usr/bin/env bash
# Checks that the command line tool prints with many threads what it prints with one, and how far
# its work is on a terminal only.
# Usage: cli-jobs.sh ZTXML DOCUMENTS_DIR
set -uo pipefail
# shellcheck source=tests/cli-support.sh
source "$(dirname "$0")/cli-support.sh"
go_to_work

# ---- A folder with all that files may be --------------------------------------------------------
mkdir mixed
cp "$documents"/*.xml mixed
cp "$documents/reginfo.xml" notify.xml
tail -c +2 "$sources/fuzz/corpus/packets/file-pcap" >mixed/call.pcap
gzip -c notify.xml >mixed/notify.xml.gz
: >mixed/empty.xml
head -c 300 notify.xml >mixed/incomplete.xml
printf '<reginfo a="&"/>' >mixed/faulty.xml
printf '<reginfo xmlns="urn:ietf:params:xml:ns:reginfo" version="1" state="full"><gr:x/></reginfo>' >mixed/unbound.xml
printf 'c: application/sdp\n\nv=0\n' >mixed/skipped.txt
# Large enough (over 1 MB) for its documents to be shared, with messages that are skipped, refused or faulty.
{
  for i in {1..600}; do
    printf 'MESSAGE sip:a@b SIP/2.0\nc: application/reginfo+xml\n\n'
    cat notify.xml && printf '%1000s' ""
    printf '\nMESSAGE sip:a@b SIP/2.0\nc: application/sdp\n\nv=%s\n\n' "$i"
    printf 'MESSAGE sip:a@b SIP/2.0\nc: application/reginfo+xml\n\n<reginfo a="%s" b="&"/>\n\n' "$i"
    printf 'MESSAGE sip:a@b SIP/2.0\nc: application/reginfo+xml\n\n<presence a=%s>\n\n' "$i"
  done
} >mixed/large.txt
for i in {1..60}; do
  mkdir -p "mixed/folder$((i % 7))"
  sed -e "s/version=\"[0-9]*\"/version=\"$i\"/" notify.xml >"mixed/folder$((i % 7))/$i.xml"
done

# What was printed on both streams together, on each, the status, and the report.
run() {
  local to="$1" got=0
  shift
  mkdir "$to"
  "$ztxml" "$@" >"$to/both" 2>&1 || got=$?
  "$ztxml" "$@" >"$to/out" 2>"$to/err"
  [[ "$?" == "$got" ]] || fail "$*: two statuses"
  echo "$got" >"$to/status"
  [[ ! -f report.xml ]] || mv report.xml "$to"
}
while read -r -a words; do
  run one "${words[@]}" -j 1 -r mixed none.xml
  [[ "$(wc -l <one/both)" -gt 2000 ]] || fail "${words[*]}: prints only $(wc -l <one/both) lines"
  for jobs in 2 8; do
    run several "${words[@]}" -j "$jobs" -r mixed none.xml
    diff -r one several >differences || fail "${words[*]} with $jobs threads: $(head -n 3 differences)"
    rm -r several
  done
  case "${words[*]}" in
    check) summary="$(tail -n 1 one/out)" ;;
    *junit*) [[ "$(grep -c '<testcase' one/report.xml)" -gt 1200 ]] || fail "no report" ;;
  esac
  rm -r one
done <<'END'
check
check --lost --strict --junit report.xml
check --json
show
show --json
events
namespaces
roundtrip
--log 1 roundtrip
format
END
# Nothing is lost where all threads have the same.
[[ "$summary" =~ ^documents:\ 7[0-9]{2}\ ok,\ 60[0-9]\ refused,\ 60[0-9]\ faulty\;\ .*:\ 601$ ]] ||
  fail "summary: $summary"

expect 0 "" "$ztxml" check -j 8 mixed/folder*/*.xml
diff <(printf '%s: ok, Reginfo\n' mixed/folder*/*.xml) <(sed '$d' out) || fail "the order of files"
# Standard input is read once, by the first who asks.
expect 1 "" "$ztxml" check --jobs 8 - - <notify.xml
[[ "$(sed -n '1p;2p' out)" == *"ok, Reginfo"$'\n'*"file: empty" ]] || fail "standard input twice: $(cat out)"
for jobs in 0 -1 x 1000; do
  expect 2 "--jobs" "$ztxml" check -j "$jobs" notify.xml
done
expect 4 "cannot be written" "$ztxml" check -j 8 -q --junit none/report.xml mixed/folder*/*.xml
full() { "$ztxml" "$@" >/dev/full; }
expect 4 "(standard output): cannot be written" full show -j 8 -r mixed
closed() {
  "$ztxml" "$@" 2>/dev/null | head -n 1
  return "${PIPESTATUS[0]}"
}
expect 4 "" closed events -j 8 -r mixed

# ---- Progress -----------------------------------------------------------------------------------
# after_a_while COMMAND: what is seen on a terminal of one that gets its input late.
after_a_while() {
  echo "(sleep 2.3; cat notify.xml) | $1" >"late.sh.$2"
  script -qc "sh late.sh.$2" /dev/null </dev/null >"seen.$2"
}
if command -v script >/dev/null; then
  after_a_while "$ztxml show - >shown.xml" one &
  after_a_while "$ztxml check -j 2 - notify.xml >/dev/null" files &
  after_a_while "$ztxml get - /reginfo/@state" get &
  after_a_while "$ztxml check --quiet - notify.xml" quiet &
  after_a_while "$ztxml show - 2>told.txt" told &
  after_a_while "$ztxml show - | cat >piped.xml" piped &
  (sleep 2.3; cat notify.xml; printf '\4') | script -qc "$ztxml show - >/dev/null" /dev/null >seen.typed &
  after_a_while "sleep 2; $ztxml show notify.xml >/dev/null" soon &
  wait
  grep -qE $'\rat work for [1-9] s' seen.one || fail "no progress: $(cat seen.one)"
  cmp shown.xml <("$ztxml" show notify.xml) || fail "progress in the output"
  grep -qE $'\r\\[=+ +\\] 1 of 2 files' seen.files || fail "no bar: $(cat seen.files)"
  for way in one files; do
    grep -qE $'\r +\r$' "seen.$way" || fail "progress stays: $(cat "seen.$way")"
  done
  grep -qE $'at work for [1-9] s\r +\rfull\r$' seen.get || fail "progress before a value: $(cat seen.get)"
  grep -q "at work" seen.typed && fail "progress while somebody types"
  grep -q "registration" seen.typed || fail "nothing was typed: $(cat seen.typed)"
  for way in quiet piped soon; do
    [[ ! -s "seen.$way" ]] || fail "progress with $way: $(cat "seen.$way")"
  done
  [[ ! -s told.txt ]] || fail "progress in a file: $(cat told.txt)"
  cmp piped.xml <("$ztxml" show notify.xml) || fail "progress in a pipe"
fi

finish cli-jobs
