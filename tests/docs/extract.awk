# Takes the programs out of Markdown pages: a block of C++ after "<!-- program: NAME -->" goes to
# NAME.cpp, a block after "<!-- prints: NAME -->", what the program prints, to NAME.out, both in the
# directory `out`. Prints the names, each with the file of examples/documents that the program reads
# as its input ("<!-- program: NAME reads: FILE -->"), if any. C++ without a name, a program without
# its output and a name that is used twice are errors: nothing in the pages goes untried.
/^<!-- (program|prints): [a-z_]+ -->$/ || /^<!-- program: [a-z_]+ reads: [^ ]+ -->$/ {
  kind = $2
  name = $3
  input = NF > 4 ? " " $5 : ""
  next
}
!inside && /^```/ {
  inside = 1
  file = ""
  if (kind == "program:" && $0 == "```cpp") file = name ".cpp"
  else if (kind == "prints:" && $0 == "```") file = name ".out"
  else if ($0 == "```cpp" || kind != "") Fail("a block that is not tried")
  kind = ""
  if (file == "") next
  if (file in taken) Fail(file " is there twice")
  taken[file] = 1
  if (file ~ /cpp$/) { programs[++count] = name; inputs[count] = input }
  file = out "/" file
  printf "" >file
  next
}
inside && /^```$/ { inside = 0; if (file != "") close(file); next }
inside { if (file != "") print >file; next }
kind != "" && !/^$/ { Fail("no block after the comment") }
END {
  if (failed) exit 1
  for (i = 1; i <= count; ++i) {
    if (!((programs[i] ".out") in taken)) Fail(programs[i] " prints nothing")
    print programs[i] inputs[i]
  }
  if (failed || !count) exit 1
}
function Fail(why) {
  print FILENAME ":" FNR ": " why >"/dev/stderr"
  failed = 1
}
