#include "Read.h"

#include <climits>
#include <cstdlib>
#include <new>

#include "Schemas.h"
#include "Text.h"
#include "text/ZtEncoding.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"

namespace {

ZtSettings SettingsOf(bool isStandard) {
  ZtSettings settings;
  settings.profile = isStandard ? XML_PROFILE_STANDARD : XML_PROFILE_EXACT;
  settings.mostText = INT_MAX;
  return settings;
}

void Note(const ZtLoss& loss, void* losses) {
  static_cast<std::vector<ztxml::Loss>*>(losses)->push_back(
      {loss.kind, loss.path, loss.line, loss.column});
}

// The name of the root element, without its prefix; empty when it cannot be found.
std::string RootOf(const Document& document, bool isStandard) {
  const ZtPiece input(document.text.data(), document.text.size());
  ZtTextForm form;
  std::size_t at = 0;
  if (isStandard && ZtFindForm(input, form, at) != ZtEncodingFault::kNone) return "";
  std::string text;
  const bool isDecoded = form.encoding != ZtEncoding::kUtf8;
  if (isDecoded) {
    text.resize(ZtDecodedSize(input, form));
    if (ZtDecode(input, form, text.data(), at) != ZtEncodingFault::kNone) return "";
  }
  const std::string_view name = RootName(isDecoded ? text : document.text);
  return std::string(name.substr(name.find(':') + 1));
}

// The sentence may end with another place: of the start tag that an end tag does not fit, of the
// first of two attributes.
std::string SentenceOf(const Document& document, const ztxml::Error& error) {
  std::string sentence = error.Sentence();
  if (error.otherLine) {
    sentence.erase(sentence.rfind(' ') + 1);
    sentence += ToString(document.At(error.otherLine, error.otherColumn)) + ')';
  }
  return Escape(sentence);
}

Failure FailureOf(const Document& document, const ztxml::Error& error) {
  Failure failure = {NameOf(error.code), SentenceOf(document, error), {}, error.path};
  if (error.line) failure.at = document.At(error.line, error.column);
  if (error.code == ztxml::Code::kIncomplete && document.cut) {
    failure.what += "; a NUL byte ends the text";
  }
  return failure;
}

bool Read(const Document& document, const Reading& reading, Tree& tree, ztxml::Error& error) {
  reflect::Schema tables;
  if (!reflect::FindSchema(tree.schema->id, tables)) throw std::bad_alloc();
  tree.table = tables.document;
  ZtSettings settings = SettingsOf(tree.isStandard);
  settings.keepsSource = reading.keepsSource;
  settings.lost = reading.losses ? &Note : nullptr;
  settings.lostContext = reading.losses;
  XMLElement* namespaces = nullptr;
  tree.root.reset(ZtReadDocument(*tree.table, nullptr, settings, document.text.data(),
                                 document.text.size(), namespaces, error));
  tree.namespaces.reset(namespaces);
  if (!tree.root && reading.losses) reading.losses->clear();
  return tree.root != nullptr;
}

bool Take(const ztxml::Error& error, char* written, std::size_t size, std::string& text,
          Failure& failure) {
  if (!written) {
    failure = {NameOf(error.code), Escape(error.Sentence()), {}, error.path};
    return false;
  }
  text.assign(written, size);
  ZtFreeText(written);
  return true;
}

}  // namespace

reflect::Node Tree::Root() const {
  return isStandard ? reflect::StandardRoot(*table, *root) : reflect::Node(*root);
}

bool Tree::Write(std::string& text, Failure& failure) const {
  ztxml::Error error;
  std::size_t size = 0;
  char* const written =
      ZtWriteDocument(*table, SettingsOf(isStandard), root.get(), namespaces.get(), size, error);
  return Take(error, written, size, text, failure);
}

bool Tree::Update(std::string& text, Failure& failure) const {
  ztxml::Error error;
  std::size_t size = 0;
  char* const written = ZtUpdateDocument(*table, SettingsOf(isStandard), root.get(), size, error);
  return Take(error, written, size, text, failure);
}

bool ReadTree(const Document& document, const Reading& reading, Tree& tree, Failure& failure) {
  if (document.kind != Document::Kind::kText) {
    failure = document.fault;
    return false;
  }
  const XMLSchemaInfo* named = nullptr;
  std::string root;
  tree.schema = reading.schema;
  if (!tree.schema) {
    root = RootOf(document, reading.isStandard);
    named = FindSchemaOfType(document.contentType, root);
    tree.schema = named ? named : FindSchemaOfRoot(root);
  }
  const bool isKnown = tree.schema;
  // What else is wrong with a document of no schema, the library tells by any.
  if (!isKnown) tree.schema = XMLFactory::getSchemaInfo(XML_SCHEMA_REGINFO);
  tree.isStandard = reading.isStandard;
  ztxml::Error error;
  if (Read(document, reading, tree, error)) return true;
  failure = FailureOf(document, error);
  if (error.code != ztxml::Code::kWrongRoot) return false;
  if (!isKnown) {
    failure.what = "no schema has the root element " + Quote(root) + " (see: ztxml schemas)";
  } else if (named) {
    failure.what +=
        "; the Content-Type " + document.contentType + " names the schema " + named->name;
  }
  return false;
}

const XMLSchemaInfo& NamespaceSchema() {
  return *XMLFactory::getSchemaInfo(XML_SCHEMA_NAMESPACE_RETRIEVAL);
}

std::vector<Declaration> DeclarationsIn(XMLElement* namespaces) {
  std::vector<Declaration> declarations;
  auto* const retrieved = static_cast<zt_schema_namespace_retrieval*>(namespaces);
  for (const auto& declared : ZtEach(retrieved ? retrieved->getNameSpaceInfo() : nullptr)) {
    const char* uri = declared.getValue();
    declarations.push_back({declared.getName(), uri ? uri : ""});
  }
  return declarations;
}
