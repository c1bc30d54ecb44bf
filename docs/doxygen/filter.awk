# Gives Doxygen the public headers as their readers understand them: the first lines describe the
# file; a comment is about all declarations below it, down to a blank line or another comment; and
# what every class has with one meaning is explained here, once; of an optional accessor beside the
# comment that it shares with its setter and getter. What is protected is the library's own business.
FNR == 1 { file = 1; if (/^\/\/ /) print "/// \\file" }
file && /^\/\/ / { sub(/^\/\//, "///"); print; next }
{ file = 0 }

/^  friend / { $0 = "" }
/^ protected:/ { sub(/protected:/, "private:") }
/^ *\/\/\/( |$)/ {
  if (!commenting) comment = ""
  commenting = 1
  comment = comment $0 "\n"
  print
  next
}
/^ *$/ { comment = ""; inside = "" }
Declares() && !commenting && !/\/\/\/</ {
  printf "%s", comment
  if ((comment == "" || IsOptional()) && (said = Said()) != "") print "  /// " said
}
{
  print
  if (/^([^ ].*\{$|class|struct|enum|[#}])/) comment = ""  # a class's or an enumeration's is not its members'
  if (/^ (public|private):/) inside = ""
  if (inside == "" && /^ ? ?[A-Za-z_~]/ && !/^class|^ (public|private):/) {  # what follows belongs to this declaration
    if (/\{$/ && /^  /) inside = "^  \\}"
    else if (/[(,a-z]$/ && !/:$/) inside = ";$"
  }
  if (inside != "" && $0 ~ inside) inside = ""
  commenting = 0
}

function Declares() {
  return inside == "" && /^ ? ?[A-Za-z_~].*[;({,]/ && !/^ *(friend|class|struct|enum|namespace|extern|template|typedef) / && !/^ (public|private):/
}
function IsOptional() { return /^  std::optional<[A-Za-z0-9_:]+> [A-Za-z0-9]+\(\) const/ }
function Said() {
  if (IsOptional()) return "The value if it is stated, also 0; otherwise std::nullopt. See ZtScalar::Stated."
  if (/static const ZtElementType kType;/) return "The type's description, as ZtIsA takes it."
  if (/static const ZtDocument kDocument;/) return "The document's description."
  if (/\* Create[A-Za-z0-9_]*\(\)/) return "A new, empty object, the caller's until a parent takes it; null when out of memory."
  if (/^  int Add[A-Za-z0-9_]*[tT]oX[mM][lL]\(/) return "Writes the element while Marshall runs: returns 1, or 0 on failure."
  return ""
}
