# Reads the public headers and prints what the generator of the documents' pages cannot learn from
# the library's tables: which header has a class, its getters and public members with what they
# give, the enumerators of the enumerations, and the roots that the C++ interface has, with their
# headers.
FNR == 1 { header = FILENAME; sub(/.*\//, "ztxml/", header) }
match($0, /RootOf<zt_[A-Za-z0-9_]+>/) { root = substr($0, RSTART + 7, RLENGTH - 8) }
root != "" && match($0, /RootIn<[A-Za-z]+>/) {
  roots = roots "    {\"" substr($0, RSTART + 7, RLENGTH - 8) "\", {\"" root "\", \"" header "\"}},\n"
  root = ""
}
header !~ /\/XML/ { next }  # a header of the C++ interface has no more to say
/^namespace [A-Za-z]+ \{/ { space = $2 "::" }
/^}/ && class == "" { space = "" }
/^(class|struct) [A-Za-z0-9_]+/ && !/;$/ {
  class = space ($2 == "ZT_API" ? $3 : $2)
  classes = classes "    {\"" class "\", \"" header "\"},\n"
  while (!/[{;]/) { line = $0; getline; $0 = line $0 }
  if (/Zt(Extensible|KeepsElements)</) Getter("ZtListOf<XMLElement>*", "getAnyElementValue")
  if (/ZtExtensible</) Getter("ZtListOf<zt_AttributeValuePair>*", "getAnyAttributeValue")
  open = $1 == "struct"
}
/^};/ { class = "" }
/^ (public|private|protected):/ { open = /public/ }
class != "" && open && match($0, /^  [A-Za-z][A-Za-z0-9_:<>* ]* \*?get[A-Z][A-Za-z0-9_]*\(/) {
  method = substr($0, 1, RLENGTH - 1)
  given = method
  sub(/ [A-Za-z0-9_]+$/, "", given)
  sub(/.* /, "", method)
  gsub(/^ +/, "", given)
  Getter(given, method)
}
match($0, /^  Zt(Text|Number|Child|List)Member(<[^>]*>)? /) {
  count = split(substr($0, RLENGTH + 1, index($0, ";") - RLENGTH - 1), names, ", ")
  given = substr($0, 3, RLENGTH - 3)
  if (!sub(/^ZtNumberMember</, "", given)) sub(/^Zt[A-Za-z]+Member<?/, "", given)
  sub(/>$/, "", given)
  for (i = 1; i <= count; ++i) Getter(given, names[i])
}
/^enum class [A-Za-z0-9_]+ : [a-z]+ \{/ {
  enumeration = $3
  value = 0
  if (!match($0, /\{.*\}/)) next
  count = split(substr($0, RSTART + 2, RLENGTH - 4), names, ", ")
  for (i = 1; i <= count; ++i) Enumerator(enumeration "::" names[i])
  enumeration = ""
}
/^enum [A-Za-z0-9_]+ : [a-z]+ \{/ { enumeration = $2; value = 0; next }
enumeration != "" && /^}/ { enumeration = "" }
enumeration != "" && match($0, /^  k[A-Z][A-Za-z]+/) {
  Enumerator(enumeration "::" substr($0, 3, RLENGTH - 2))
}
enumeration != "" && match($0, /^  [A-Z][A-Z0-9_]+/) {
  enumerator = substr($0, 3, RLENGTH - 2)
  if (match($0, /= [0-9]+/)) value = substr($0, RSTART + 2, RLENGTH - 2) + 0
  Enumerator(enumerator)
}
END {
  print "constexpr ClassHeader kClassHeaders[] = {\n" classes "};"
  print "#define ZT_DOC_GETTERS(DO)" getters
  print "constexpr Enumerator kEnumerators[] = {\n" enumerators "};"
  print "const ContextRoot kContextRoots[] = {\n" roots "};"
}
function Enumerator(name) {
  enumerators = enumerators "    {\"" enumeration "\", \"" name "\", " value++ "},\n"
}
function Getter(given, method) {
  getters = getters " \\\n  DO(" class ", \"" method "\", \"" given "\")"
}
