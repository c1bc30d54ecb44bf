#include "Standard.h"

#include <string>
#include <vector>

#include "Schemas.h"
#include "Text.h"
#include "binding/ZtSpaces.h"
#include "reflect/Reflect.h"
#include "text/ZtEncoding.h"
#include "text/ZtXmlReader.h"

namespace {

struct Root {
  std::string name;       // without its prefix
  std::string nameSpace;  // "" for none
  ZtSpace space = kZtNoSpace;
  Position at;
};

bool IsNamespaceFault(ZtXmlFault fault) {
  return fault == ZtXmlFault::kUnboundPrefix || fault == ZtXmlFault::kReservedPrefix ||
         fault == ZtXmlFault::kReservedNamespace || fault == ZtXmlFault::kNoNamespace;
}

// Reads the document to its end.
bool Scan(const Document& document, Root& root, Failure& failure) {
  const ZtPiece input(document.text.data(), document.text.size());
  ZtTextForm form;
  std::size_t at = 0;
  ZtEncodingFault fault = ZtFindForm(input, form, at);
  std::vector<char> text;
  if (fault == ZtEncodingFault::kNone) {
    text.resize(ZtDecodedSize(input, form) + 1);
    fault = ZtDecode(input, form, text.data(), at);
  }
  const auto positionOf = [&](std::size_t offset) {
    const ZtTextPlace place = ZtPlaceFinder(input, form).Find(offset);
    return PositionIn(document, place.line, place.column);
  };
  if (fault != ZtEncodingFault::kNone) {
    failure = {"encoding", ZtFaultText(fault), positionOf(at)};
    return false;
  }
  ZtXmlReader reader(kZtSpaceUris, kZtKnownSpaces);
  reader.Begin(text.data(), text.size() - 1);
  ZtToken token = ZtToken::kText;
  while (token != ZtToken::kDone && token != ZtToken::kFailed) {
    token = reader.Next();
    if (token != ZtToken::kStart || reader.Depth() != 1) continue;
    const ZtXmlName& name = reader.Name();
    root.name.assign(name.local.text, name.local.size);
    root.space = name.space;
    if (name.space != kZtNoSpace) {
      const ZtPiece uri = reader.Scope().Uri(name.space);
      root.nameSpace.assign(uri.text, uri.size);
    }
    root.at = positionOf(reader.From());
  }
  if (token == ZtToken::kDone) return true;
  const ZtXmlError& error = reader.Error();
  failure = {IsNamespaceFault(error.fault) ? "namespaces" : "well-formedness",
             ZtFaultText(error.fault), positionOf(error.at)};
  return false;
}

// Whether the schema has the root, in its namespace; an element in no namespace is every schema's.
bool Takes(const XMLSchemaInfo& schema, const Root& root, bool orNone) {
  reflect::Schema tables;
  if (!reflect::FindSchema(schema.id, tables)) return false;
  const ZtDocument& document = *tables.document;
  const bool fits = root.space == ZtSpaceOf(document) || (orNone && root.space == kZtNoSpace);
  for (const ZtRoot& known : document.roots) {
    if (fits && root.name == ZtName(known.name)) return true;
  }
  return false;
}

}  // namespace

Position PositionIn(const Document& document, std::size_t line, std::size_t column) {
  const Position& start = document.start;
  return {start.line + line - 1, line == 1 ? start.column + column - 1 : column};
}

const XMLSchemaInfo* FindStandardSchema(const Document& document, const XMLSchemaInfo* wanted,
                                        Failure& failure) {
  Root root;
  if (!Scan(document, root, failure)) return nullptr;
  std::string by = " of the schema ";
  if (!wanted) {
    wanted = FindSchemaOfType(document.contentType, root.name);
    by = " of the schema that the Content-Type names, ";
  }
  if (wanted && Takes(*wanted, root, true)) return wanted;
  for (const bool orNone : {false, true}) {
    for (int id = 0; !wanted && id < XML_SCHEMA_END; ++id) {
      const XMLSchemaInfo* schema = XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id));
      if (schema && Takes(*schema, root, orNone)) return schema;
    }
  }
  const std::string within =
      root.nameSpace.empty() ? " in no namespace" : " in the namespace " + Quote(root.nameSpace);
  failure = {"root element",
             wanted ? Quote(root.name) + within + " is not a root element" + by + wanted->name
                    : "no schema has the root element " + Quote(root.name) + within +
                          " (see: ztxml schemas)",
             root.at};
  return nullptr;
}
