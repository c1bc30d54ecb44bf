// The namespace pass: what a text declares is found, and what is written with it is read
// again. First byte: which allocation fails.
#include "FuzzSupport.h"
#include "ztxml/XMLCommunicationDiversion.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"

namespace {

class Namespaces {
 public:
  explicit Namespaces(const std::string& text)
      : m_pContext(XMLFactory::newInstance(XML_SCHEMA_NAMESPACE_RETRIEVAL)) {
    XMLUnMarshaller* reader = m_pContext ? m_pContext->createUnMarshaller() : nullptr;
    m_pRoot = static_cast<XMLObject*>(reader ? reader->UnMarshall(text.c_str()) : nullptr);
  }
  ~Namespaces() {
    XMLFactory::DeleteElement(m_pRoot);
    XMLFactory::deleteContext(m_pContext);
  }
  Namespaces(const Namespaces&) = delete;
  Namespaces& operator=(const Namespaces&) = delete;

  XMLObject* Root() const { return m_pRoot; }

  // The declarations, one per line; requires that `text` has each word, unless entities hide it.
  std::string Told(const std::string& text) const {
    auto* found = zt_schema_namespace_retrieval::From(m_pRoot);
    std::string told;
    for (const auto& pair : ZtEach(found ? found->getNameSpaceInfo() : nullptr)) {
      for (const char* word : {pair.getName(), pair.getValue()}) {
        const bool stands = !word || text.find(word) != std::string::npos;
        Require(stands || text.find('&') != std::string::npos, "a declaration is the text's", text);
        told += word ? word : "-";
        told += '\n';
      }
    }
    return told;
  }

 private:
  XMLContext* m_pContext;
  XMLObject* m_pRoot = nullptr;
};

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
    if (name[colon == std::string::npos ? 0 : colon + 1] == '/') return true;
  }
  return false;
}

// A diversion with a rule, so that every namespace is written.
XMLElement* Diversion() {
  CommunicationDiversionDataBinder make;
  auto* root = static_cast<zt_communication_diversion*>(make.CreateRootElement());
  root->setRuleSetValue(make.CreateRuleSetElement());
  zt_ns_common_policy_ruleType* rule = make.CreateRuleTypeElement();
  rule->setIdValue("one");
  rule->setActionsValue(make.CreateActionsTypeElement());
  root->getRuleSetValue()->addRule(rule);
  return root;
}

// Requires that `tree`, written with the prefixes of `namespaces`, is read with them again.
void CheckWritten(const Namespaces& namespaces, XMLElement* tree) {
  XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_COMMUNICATION_DIVERSION);
  context->SetNamespaceBinder(namespaces.Root());
  const char* text = context->createMarshaller()->Marshall(tree);
  Require(text != nullptr, "what is whole is written");
  Require(IsWellFormed(text), "what is written is well formed", text);
  const std::string first = text;
  XMLElement* again = context->createUnMarshaller()->UnMarshall(first.c_str());
  Require(again != nullptr, "its own prefixes are read", first);
  text = context->createMarshaller()->Marshall(again);
  Require(text && text == first, "it reads what it has written", first);
  XMLFactory::DeleteElement(again);
  XMLFactory::deleteContext(context);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const Balanced balanced;
  const std::string text = TextAfter(1, data, size);
  const Namespaces whole(text);
  Require(whole.Root() || !IsWellFormed(text) || HasSlashedName(text), "any document is read",
          text);
  Require(!whole.Root() || IsWellFormed(text), "nothing else is", text);
  const std::string told = whole.Told(text);
  XMLElement* tree = Diversion();
  CheckWritten(whole, tree);
  XMLFactory::DeleteElement(tree);
  zthost::FailAllocation(data[0] % 128, data[0] >= 128);
  {
    const Namespaces unsure(text);
    zthost::FailAllocation(0);
    Require(!unsure.Root() || unsure.Told(text) == told, "without memory whole or nothing", text);
  }
  return 0;
}
