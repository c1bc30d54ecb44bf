# Reads the public headers, for the names of the classes that they declare, and then what
# g++ -fdump-lang-class tells of all that they include. Prints, for each class of theirs:
# its size, the classes that it derives from, and the virtual operations that it adds, in order.
# Of the instances of class templates only those that add operations are printed: the others are
# named by the classes that derive from them.
# Operations of the same name follow each other as they are declared.

FILENAME ~ /\.h$/ {
  if (match($0, /^ *(class|struct) /)) {
    text = substr($0, RLENGTH + 1)
    sub(/^ZT_API /, "", text)
    if (match(text, /^[A-Za-z0-9_]+/)) declared[substr(text, 1, RLENGTH)] = 1
  }
  next
}

# "zt_x<int> (0x0x7f53ba0f1270) 8" -> sets base and offset
function parse_base(line) {
  if (!match(line, / \(0x[0-9a-fx]+\) /)) return 0
  base = substr(line, 1, RSTART - 1)
  offset = substr(line, RSTART + RLENGTH) + 0
  return 1
}

/^Vtable for / {
  class = substr($0, 12)
  table = 1
  next
}
table && /^$/ { table = 0 }
# "32    (int (*)(...))zt_x::ClassName": operations of the first table, which the primary base shares.
table && /^[0-9]+ / {
  slot = $1
  sub(/^[0-9]+ +/, "")
  if (/^\(int \(\*\)\(\.\.\.\)\)-/) table = 0  # a table of another base begins
  if (slot < 16) next                           # the offset of the whole and the type information
  sub(/^\(int \(\*\)\(\.\.\.\)\)/, "")
  pure = $0 == "0" || $0 == "__cxa_pure_virtual"
  n = slot / 8 - 2
  if (n + 1 > slots[class]) slots[class] = n + 1
  sub(/.*::/, "")
  operation[class, n] = pure ? "" : $0
  next
}

/^Class / {
  class = substr($0, 7)
  classes[++count] = class
  next
}
/^   size=/ { sub(/.*size=/, ""); size[class] = $1; next }
/^   base size=/ { next }
parse_base($0) {
  if (base != class) {
    bases[class] = bases[class] (bases[class] == "" ? "" : "\n") base
    offsets[class] = offsets[class] " " offset
    last = base
  } else {
    last = class
  }
  next
}
/primary-for / { primary[class] = primary[class] == "" ? last : primary[class] "\n" last }

# Names the pure operations of the primary bases of `class` after what it overrides them with.
function name_pure_operations(class, list, n, i, k) {
  n = split(primary[class], list, "\n")
  for (i = 1; i <= n; ++i) {
    for (k = 0; k < slots[list[i]]; ++k) {
      if (operation[list[i], k] == "") operation[list[i], k] = operation[class, k]
      if (operation[list[i], k] ~ /^~/) operation[list[i], k] = "~"
    }
  }
}

function is_ours(class) {
  sub(/<.*/, "", class)
  sub(/.*::/, "", class)
  return class in declared
}

# The line of `class`: its bases are those that no other base of its derives from.
function heading(class, n, list, at, i, k, m, far, implied, text) {
  n = split(bases[class], list, "\n")
  split(offsets[class], at, " ")
  for (i = 1; i <= n; ++i) {
    if (!(list[i] in printed)) continue
    if (!(list[i] in implied)) text = text (text == "" ? ": " : ", ") list[i] (at[i] > 0 ? " at " at[i] : "")
    m = split(bases[list[i]], far, "\n")
    for (k = 1; k <= m; ++k) implied[far[k]] = 1
  }
  return class " (" size[class] " bytes)" text
}

END {
  for (i = 1; i <= count; ++i) name_pure_operations(classes[i])
  total = 0
  for (i = 1; i <= count; ++i) {
    class = classes[i]
    split(primary[class], list, "\n")
    first[class] = primary[class] == "" ? 0 : slots[list[1]]
    if (!is_ours(class) || (class ~ /</ && slots[class] == first[class])) continue
    printed[class] = 1
    for (k = total++; k > 0 && sorted[k] > class; --k) sorted[k + 1] = sorted[k]
    sorted[k + 1] = class
  }
  for (i = 1; i <= total; ++i) {
    class = sorted[i]
    print heading(class)
    for (k = first[class]; k < slots[class]; ++k) {
      name = operation[class, k]
      # A destructor has two entries: one that frees the memory too follows the other.
      if (name ~ /^~/) name = operation[class, k - 1] ~ /^~/ ? "deleting destructor" : "destructor"
      print "  " k " " (name == "" ? "(pure)" : name)
    }
  }
}
