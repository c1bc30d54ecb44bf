#!/usr/bin/env bash
# Follows the worked example of CONTRIBUTING.md in a copy of the tree: takes the files and changes
# from the page, counts what they add to the library and the steps that they take, builds them, writes
# the golden files and runs their tests.
# Usage: worked_example.sh   (half a minute on two cores)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

copy=build/worked_example
rm -rf "$copy"
mkdir -p "$copy"
git -c safe.directory='*' ls-files -z --cached --others --exclude-standard |
  xargs -0 cp --parents -t "$copy"
mkdir "$copy/tests/golden/documents/DialogInfo"

# What a document of seven types and four enumerations may cost.
awk -v copy="$copy" -v blocks=15 -v steps=8 -v lines=200 -v additions=18 '
  # The line before a block says what becomes of it.
  /^New file `[^`]+`:$/ { Takes("file"); next }
  /^At the end of `[^`]+`:$/ { Takes("end"); next }
  /^In `[^`]+`, (after|before|instead of) `[^`]+`:$/ {
    Takes($0 ~ /`, after `/ ? "after" : $0 ~ /`, before `/ ? "before" : "instead")
    next
  }
  /^## Adding to a document$/ { adding = 1 }
  /^### [0-9]+\. / && $2 != ++step "." { Fail("step " step " is called " $2) }
  what != "" && !inside && /^```/ { inside = 1; block = ""; next }
  inside && /^```$/ {
    if (what == "file") {
      printf "%s", block >file
    } else if (what == "end") {
      printf "%s", block >>file
    } else {
      text = ""
      found = 0
      while ((getline line <file) > 0) {
        bare = line
        sub(/^ +/, "", bare)
        if (bare != where) { text = text line "\n"; continue }
        ++found
        if (what == "after") text = text line "\n"
        text = text block
        if (what == "before") text = text line "\n"
      }
      close(file)
      if (found != 1) Fail("not one line \"" where "\" in " file)
      printf "%s", text >file
    }
    close(file)
    if (adding) ++added_to
    else ++taken
    inside = 0
    what = ""
    next
  }
  inside {
    block = block $0 "\n"
    if (!adding && (index(file, copy "/src/") == 1 || index(file, copy "/include/") == 1)) ++added
  }
  END {
    if (failed) exit 1
    print "CONTRIBUTING.md: " step " steps, " added " lines in src/ and include/"
    if (taken != blocks) Fail(taken + 0 " blocks, not " blocks)
    if (added_to != additions) Fail(added_to + 0 " additions, not " additions)
    if (step > steps) Fail("more than " steps " steps")
    if (added > lines) Fail("more than " lines " lines in src/ and include/")
  }
  function Takes(how) {
    split($0, parts, "`")
    file = copy "/" parts[2]
    where = parts[4]
    what = how
  }
  function Fail(text) { print "CONTRIBUTING.md: " text >"/dev/stderr"; failed = 1; exit 1 }
' CONTRIBUTING.md

cmake -S "$copy" -B "$copy/build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O1 \
  -DZTXML_BUILD_TOOLS=OFF -DZTXML_BUILD_EXAMPLES=OFF --log-level=WARNING >/dev/null
# Of the tests only those that a new document must not fail without a word in the page.
cmake --build "$copy/build" --target ztxml_golden_tests
tests="$copy/build/tests/ztxml_golden_tests"
"${CXX:-g++}" -std=c++17 -fsyntax-only -I"$copy/include" -I"$copy/platform/include" -x c++ - \
  <<<$'#include <ztxml/ztxml.h>\nconst auto read = ztxml::Read<zt_dialog_info>("");'
ZTXML_GOLDEN_UPDATE=1 "$tests" --gtest_brief=1
"$tests" --gtest_brief=1
for file in documents/DialogInfo/{full,cases,variants} samples/dialog-info.xml-DialogInfo \
  accessors/DialogInfo classes/XMLDialogInfo; do
  [[ -s "$copy/tests/golden/$file.txt" ]] || { echo "no golden file $file.txt" >&2; exit 1; }
done
# Every element that is read is written. (What was read is a tree there, without brackets.)
full="$copy/tests/golden/documents/DialogInfo/full"
for element in $(grep -oE '<[a-z]+(-[a-z]+)*' "$full.xml" | sort -u); do
  grep -qE -- "$element( |>)" "$full.txt" || { echo "$element is not written" >&2; exit 1; }
done
# A new document changes nothing that other documents are read or written as.
for folder in documents samples accessors; do
  diff -r --exclude='*DialogInfo*' {,"$copy/"}tests/golden/$folder
done
