// ztxml schemas: what the library can read and write.
#include "Schemas.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "Commands.h"
#include "Json.h"
#include "Text.h"
#include "text/ZtTagWalk.h"

namespace {

// Every document asks for them.
const std::vector<const XMLSchemaInfo*>& AllSchemas() {
  static const std::vector<const XMLSchemaInfo*> all = [] {
    std::vector<const XMLSchemaInfo*> schemas;
    for (int id = 0; id < XML_SCHEMA_END; ++id) {
      const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id));
      if (info) schemas.push_back(info);
    }
    return schemas;
  }();
  return all;
}

std::string Roots(const XMLSchemaInfo& schema) {
  std::string roots;
  for (const char* root : schema.roots) {
    if (root) roots += (roots.empty() ? "" : ", ") + std::string(root);
  }
  return roots.empty() ? "(any)" : roots;
}

constexpr std::size_t kColumns = 5;
using Row = std::array<std::string, kColumns>;

void PrintTable(const std::vector<Row>& rows) {
  constexpr std::size_t kLast = kColumns - 1;
  std::array<std::size_t, kLast> widths = {};
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < kLast; ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < kLast; ++i) {
      std::cout << row[i] << std::string(widths[i] - row[i].size() + 2, ' ');
    }
    std::cout << row[kLast] << '\n';
  }
}

// The content types that tell a schema. Two documents share theirs, with roots of their own.
struct TypeRow {
  const char* type;
  eXMLSchemaID schema;
};
constexpr TypeRow kTypes[] = {
    {"application/im-iscomposing+xml", XML_SCHEMA_IS_COMPOSING},
    {"application/resource-lists+xml", XML_SCHEMA_RESOURCE_LISTS},
    {"application/conference-info+xml", XML_SCHEMA_CONFERENCE_INFO},
    {"message/imdn+xml", XML_SCHEMA_IMDN},
    {"application/vnd.etsi.simservs+xml", XML_SCHEMA_SIMSERVS},
    {"application/xcap-error+xml", XML_SCHEMA_XCAP_ERROR},
    {"text/vnd.wap.connectivity-xml", XML_SCHEMA_WAP_PROVISIONING_DOC},
    {"application/pidf+xml", XML_SCHEMA_PRESENCE},
    {"application/rls-services+xml", XML_SCHEMA_RLS_SERVICES},
    {"application/rlmi+xml", XML_SCHEMA_LIST},
    {"application/vnd.oma.xcap-directory+xml", XML_SCHEMA_XCAP_DIRECTORY},
    {"application/vnd.gsma.rcs-ft-http+xml", XML_SCHEMA_FILE},
    {"application/media_control+xml", XML_SCHEMA_MEDIA_CONTROL},
    {"application/vnd.3gpp.cw+xml", XML_SCHEMA_CALL_WAITING_INDICATION},
    {"application/3gpp-ims+xml", XML_SCHEMA_CW_INDICATION},
    {"application/3gpp-ims+xml", XML_SCHEMA_CALL_WAITING_INDICATION},
    {"application/vnd.3gpp-ims+xml", XML_SCHEMA_CW_INDICATION},
    {"application/vnd.3gpp-ims+xml", XML_SCHEMA_CALL_WAITING_INDICATION},
    {"application/vnd.3gpp.bsf+xml", XML_SCHEMA_BOOTSTRAPPING_INFO},
    {"application/reginfo+xml", XML_SCHEMA_REGINFO},
};

std::string JsonOf(const XMLSchemaInfo& schema) {
  std::vector<std::string> roots;
  for (const char* root : schema.roots) {
    if (root) roots.push_back(JsonQuote(root));
  }
  std::vector<std::string> types;
  for (const TypeRow& row : kTypes) {
    if (row.schema == schema.id) types.push_back(JsonQuote(row.type));
  }
  JsonObject line;
  line.Number("id", static_cast<unsigned>(schema.id))
      .Text("name", schema.name)
      .Value("roots", JsonList(roots));
  if (schema.nameSpace) line.Text("namespace", schema.nameSpace);
  line.Value("contentTypes", JsonList(types)).Flag("writes", schema.writes);
  return line.Done();
}

}  // namespace

std::string_view RootName(const std::string& text) {
  ZtRawTag tag;
  ZtTagWalk walk({text.c_str(), text.size()}, ZtTagEnds::kAsXml);
  while (walk.Next(tag)) {
    if (tag.Opens()) return {tag.name.text, tag.name.size};
  }
  return {};
}

const XMLSchemaInfo* FindSchema(const std::string& nameOrId) {
  for (const XMLSchemaInfo* schema : AllSchemas()) {
    if (nameOrId == std::to_string(schema->id)) return schema;
    if (LowerCase(nameOrId) == LowerCase(schema->name)) return schema;
  }
  return nullptr;
}

std::vector<std::string> NamesOfSchemas(bool roots) {
  std::vector<std::string> names;
  for (const XMLSchemaInfo* schema : AllSchemas()) {
    names.emplace_back(schema->name);
    for (const char* root : schema->roots) {
      if (root && roots) names.emplace_back(root);
    }
  }
  return names;
}

const XMLSchemaInfo* FindSchemaOfRoot(const std::string& localName) {
  for (const XMLSchemaInfo* schema : AllSchemas()) {
    if (HasRoot(*schema, localName)) return schema;
  }
  return nullptr;
}

const XMLSchemaInfo* FindSchemaOfType(const std::string& type, const std::string& localName) {
  const XMLSchemaInfo* first = nullptr;
  if (type.empty()) return first;
  for (const TypeRow& row : kTypes) {
    if (type != row.type) continue;
    const XMLSchemaInfo* schema = XMLFactory::getSchemaInfo(row.schema);
    if (HasRoot(*schema, localName)) return schema;
    if (!first) first = schema;
  }
  return first;
}

bool HasRoot(const XMLSchemaInfo& schema, const std::string& localName) {
  return std::any_of(std::begin(schema.roots), std::end(schema.roots), [&](const char* root) {
    return root && *root == localName[0] && localName == root;
  });
}

int PrintSchemas(bool json) {
  if (json) {
    for (const XMLSchemaInfo* schema : AllSchemas()) std::cout << JsonOf(*schema) << '\n';
    return kDone;
  }
  std::vector<Row> rows = {{"ID", "NAME", "ROOT ELEMENT", "NAMESPACE", "ACCESS"}};
  for (const XMLSchemaInfo* schema : AllSchemas()) {
    rows.push_back({std::to_string(schema->id), schema->name, Roots(*schema),
                    schema->nameSpace ? schema->nameSpace : "-",
                    schema->writes ? "read, write" : "read"});
  }
  PrintTable(rows);
  return kDone;
}
