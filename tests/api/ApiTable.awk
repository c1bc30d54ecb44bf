# Reads the public headers and prints one that lists what callers build trees with:
# ZT_API_ELEMENTS(DO): DO(class); ZT_API_HEADERS(DO): DO(class, "header");
# ZT_API_FACTORIES(DO): DO(factory, method); ZT_API_SETTERS(DO): DO(class, method);
# ZT_API_GETTERS(DO): DO(class, method); ZT_API_STEPS(DO): DO(marshaller, method);
# ZT_API_OPTIONALS(DO): DO(class, setter, method), an optional accessor with its setter;
# ZT_API_MEMBERS(DO): DO(class, member), a public member; ZT_API_NUMBERS(DO), ZT_API_LISTS(DO):
# those that are numbers, and lists.
FNR == 1 { name = FILENAME; sub(/.*\//, "", name); print "#include \"ztxml/" name "\"" }
/^namespace [A-Za-z]+ \{/ { space = $2 "::" }
/^}/ && class == "" { space = "" }
/^(class|struct) [A-Za-z0-9_]+/ && !/;$/ {
  class = space ($2 == "ZT_API" ? $3 : $2)
  while (!/[{;]/) { line = $0; getline; $0 = line $0 }
  factory = /DataBinder +:/
  if (factory && class !~ /^Zt/) {
    factories = factories " \\\n  DO(" class ", CreateRootElement)"
  }
  if (/Zt(Extensible|KeepsElements)</) {
    Setter("addAnyElement"); Setter("setAnyElementValue"); Getter("getAnyElementValue")
  }
  if (/ZtExtensible</) {
    Setter("addAnyAttribute"); Setter("setAnyAttributeValue"); Getter("getAnyAttributeValue")
  }
  open = $1 == "struct"
}
/^};/ { class = "" }
/^ (public|private|protected):/ { open = /public/ }
class == "" || !open { next }
/^  (ZT_API )?static const ZtElementType kType;/ {
  elements = elements " \\\n  DO(" class ")"
  headers = headers " \\\n  DO(" class ", \"" name "\")"
}
/^  int (set|add)[A-Za-z0-9_]*\(/ { Setter(Method()) }
/^  [^(]* get[A-Za-z0-9_]*\(\)/ && !/^  static/ {
  match($0, / get[A-Za-z0-9_]*\(/)
  Getter(substr($0, RSTART + 1, RLENGTH - 2))
}
/^  std::optional<[A-Za-z0-9_:]+> [A-Za-z0-9]+\(\) const/ {
  optionals = optionals " \\\n  DO(" class ", " setter ", " Method() ")"
}
match($0, /^  Zt(Text|Number|Child|List)Member(<[^>]*>)? /) {
  number = /^  ZtNumber/
  list = /^  ZtList/
  count = split(substr($0, RLENGTH + 1, index($0, ";") - RLENGTH - 1), names, ", ")
  for (i = 1; i <= count; ++i) {
    member = " \\\n  DO(" class ", " names[i]
    members = members member ")"
    if (number) numbers = numbers member ")"
    if (list) lists = lists member ")"
  }
}
# A list is no element.
factory && !/ZtSingleElementList|CreateRootElement/ && /^  [A-Za-z0-9_:]+\* Create[A-Za-z0-9_]*\(/ {
  factories = factories " \\\n  DO(" class ", " Method() ")"
}
/^  int Add/ { while (!/[;{]/) { line = $0; getline; sub(/^ +/, ""); $0 = line $0 } }
/^  int Add[A-Za-z0-9_]*\([A-Za-z0-9_:]+\* [A-Za-z]+\)( \{|;)/ && !/(char|void)\*/ {
  steps = steps " \\\n  DO(" class ", " Method() ")"
}
END {
  print "#define ZT_API_ELEMENTS(DO)" elements
  print "#define ZT_API_HEADERS(DO)" headers
  print "#define ZT_API_FACTORIES(DO)" factories
  print "#define ZT_API_SETTERS(DO)" setters
  print "#define ZT_API_GETTERS(DO)" getters
  print "#define ZT_API_STEPS(DO)" steps
  print "#define ZT_API_OPTIONALS(DO)" optionals
  print "#define ZT_API_MEMBERS(DO)" members
  print "#define ZT_API_NUMBERS(DO)" numbers
  print "#define ZT_API_LISTS(DO)" lists
}

function Method() { return substr($2, 1, index($2, "(") - 1) }
function Setter(method) { setter = method; setters = setters " \\\n  DO(" class ", " method ")" }
function Getter(method) { getters = getters " \\\n  DO(" class ", " method ")" }
