#!/usr/bin/env bash
# Follows the worked example of CONTRIBUTING.md in a copy of the tree: takes the files and changes
# from the page, builds them and runs the example's test.
# Usage: worked_example.sh   (about a minute on two cores)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

copy=build/worked_example
rm -rf "$copy"
mkdir -p "$copy"
git -c safe.directory='*' ls-files -z --cached --others --exclude-standard |
  xargs -0 cp --parents -t "$copy"

awk -v copy="$copy" '
  # The comment before a block says what becomes of it.
  /^<!-- (file|append): [^ ]+ -->$/ { what = $2; file = copy "/" $3; next }
  /^<!-- insert: [^ ]+ after: .* -->$/ {
    what = $2
    file = copy "/" $3
    where = $0
    sub(/^<!-- insert: [^ ]+ after: /, "", where)
    sub(/ -->$/, "", where)
    next
  }
  what != "" && !inside && /^```/ { inside = 1; block = ""; next }
  inside && /^```$/ {
    if (what == "file:") {
      printf "%s", block >file
    } else if (what == "append:") {
      printf "%s", block >>file
    } else {
      text = ""
      found = 0
      while ((getline line <file) > 0) {
        text = text line "\n"
        if (line == where) { text = text block; ++found }
      }
      close(file)
      if (found != 1) { print "CONTRIBUTING.md: not one line \"" where "\" in " file >"/dev/stderr"; exit 1 }
      printf "%s", text >file
    }
    close(file)
    ++blocks
    inside = 0
    what = ""
    next
  }
  inside { block = block $0 "\n" }
  END { if (blocks != 12) { print "CONTRIBUTING.md: " blocks " blocks, not 12" >"/dev/stderr"; exit 1 } }
' CONTRIBUTING.md

cmake -S "$copy" -B "$copy/build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 \
  -DZTXML_BUILD_TOOLS=OFF -DZTXML_BUILD_TESTS=OFF -DZTXML_BUILD_EXAMPLES=OFF --log-level=WARNING >/dev/null
cmake --build "$copy/build" --target ztxml
g++ -std=c++17 -O0 -fno-rtti -Wall -Wextra -Wpedantic -Werror -I"$copy"/{include,platform/include,platform/host,tests,src} \
  -o "$copy/build/example_test" "$copy/tests/WatcherinfoTest.cpp" "$copy/tests/TestMain.cpp" \
  -L"$copy/build" -Wl,-rpath,"$PWD/$copy/build" -lztxml -lztplatform_host -lgtest -lpthread
"$copy/build/example_test" --gtest_brief=1
