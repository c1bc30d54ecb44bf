// The namespace pass: what a text declares is found, and what is written with it is read
// again. First byte: which allocation fails.
#include "FuzzSupport.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"
#include "ztxml/communication_diversion.h"

namespace {

using Namespaces = Tree<zt_schema_namespace_retrieval>;

// The declarations, one per line; requires that `text` has each word, unless entities hide it.
std::string Told(const Namespaces& found, const std::string& text) {
  std::string told;
  for (const auto& pair : ztxml::Each(found ? found->getNameSpaceInfo() : nullptr)) {
    for (const char* word : {pair.getName(), pair.getValue()}) {
      const bool stands = !word || text.find(word) != std::string::npos;
      Require(stands || text.find('&') != std::string::npos, "a declaration is the text's", text);
      told += word ? word : "-";
      told += '\n';
    }
  }
  return told;
}

// Whether what may be a start tag has a name that begins with a slash, if only after its prefix:
// such a document is refused. A name ends only at a blank, so it may include an attribute's URI.
bool HasSlashedName(const std::string& text) {
  constexpr char kBlanks[] = " \t\r\n";
  for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', at + 1)) {
    if (text[at + 1] == '/') continue;
    const std::size_t start = text.find_first_not_of(kBlanks, at + 1);
    if (start == std::string::npos) break;
    const std::string name = text.substr(start, text.find_first_of(kBlanks, start) - start);
    const std::size_t colon = name.find(':');
    if (name[0] == '/' || (colon != std::string::npos && name[colon + 1] == '/')) return true;
  }
  return false;
}

// Requires that a diversion with a rule, so that every namespace is written, is written with the
// prefixes of `namespaces` and read with them again.
void CheckWritten(const Namespaces& namespaces) {
  auto diversion = *ztxml::Create<zt_communication_diversion>(ztxml::Exact());
  auto* rules = diversion.Add(&zt_communication_diversion::setRuleSetValue);
  auto* rule = ztxml::Add(*rules, &zt_ns_common_policy_ruleset::addRule);
  rule->setIdValue("one");
  ztxml::Add(*rule, &zt_ns_common_policy_ruleType::setActionsValue);
  Schema schema(XML_SCHEMA_COMMUNICATION_DIVERSION);
  schema.context()->SetNamespaceBinder(namespaces.get());
  const std::string first = schema.Write(diversion.get());
  Require(first != "(null)", "what is whole is written");
  Require(IsWellFormed(first), "what is written is well formed", first);
  Require(schema.RoundTrip(first) == first, "it reads what it has written", first);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const Balanced balanced;
  const std::string text = TextAfter(1, data, size);
  Schema schema(XML_SCHEMA_NAMESPACE_RETRIEVAL);
  const auto read = [&] { return schema.Read<zt_schema_namespace_retrieval>(text); };
  const Namespaces whole = read();
  Require(whole || !IsWellFormed(text) || HasSlashedName(text), "any document is read", text);
  Require(!whole || IsWellFormed(text), "nothing else is", text);
  const std::string told = Told(whole, text);
  CheckWritten(whole);
  zthost::FailAllocation(data[0] % 128, data[0] >= 128);
  const Namespaces unsure = read();
  zthost::FailAllocation(0);
  Require(!unsure || Told(unsure, text) == told, "without memory whole or nothing", text);
  return 0;
}
