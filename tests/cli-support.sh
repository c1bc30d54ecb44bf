# What the tests of the command line tool share. They are called with the tool and the folder of the
# sample documents.
# shellcheck shell=bash disable=SC2034

sources="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
ztxml="$(realpath "$1")"
documents="$(realpath "$2")"
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

# Goes to a folder for files; `sources` becomes the project's.
go_to_work() {
  sources="$(cd "$(dirname "$0")/.." && pwd)"
  ztxml="$(realpath "$ztxml")"
  documents="$(realpath "$documents")"
  cd "$work" || exit 1
}

# finish NAME: ends a test.
finish() {
  [[ "$failures" -eq 0 ]] && echo "$1: all passed"
  exit "$((failures > 0))"
}
