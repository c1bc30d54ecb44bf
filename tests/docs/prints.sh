#!/usr/bin/env bash
# Runs a program of the documentation and compares what it prints with what its page says.
# Usage: prints.sh PROGRAM EXPECTED [INPUT]
set -euo pipefail

diff -u --label "the page" --label "the program" "$2" <("$1" 2>&1 <"${3:-/dev/null}")
