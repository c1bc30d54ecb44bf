// ztxml schemas: what the library can read and write.
#include <algorithm>
#include <array>
#include <cctype>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "Commands.h"

namespace {

std::vector<const XMLSchemaInfo*> AllSchemas() {
  std::vector<const XMLSchemaInfo*> schemas;
  for (int id = XML_SCHEMA_IS_COMPOSING; id <= XML_SCHEMA_NAMESPACE_RETRIEVAL; ++id) {
    const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id));
    if (info) schemas.push_back(info);
  }
  return schemas;
}

std::string LowerCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
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

}  // namespace

const XMLSchemaInfo* FindSchema(const std::string& nameOrId) {
  for (const XMLSchemaInfo* schema : AllSchemas()) {
    if (nameOrId == std::to_string(schema->id)) return schema;
    if (LowerCase(nameOrId) == LowerCase(schema->name)) return schema;
  }
  return nullptr;
}

const XMLSchemaInfo* FindSchemaOfRoot(const std::string& localName) {
  for (const XMLSchemaInfo* schema : AllSchemas()) {
    if (HasRoot(*schema, localName)) return schema;
  }
  return nullptr;
}

bool HasRoot(const XMLSchemaInfo& schema, const std::string& localName) {
  return std::any_of(std::begin(schema.roots), std::end(schema.roots),
                     [&](const char* root) { return root && localName == root; });
}

int PrintSchemas() {
  std::vector<Row> rows = {{"ID", "NAME", "ROOT ELEMENT", "NAMESPACE", "ACCESS"}};
  for (const XMLSchemaInfo* schema : AllSchemas()) {
    rows.push_back({std::to_string(schema->id), schema->name, Roots(*schema),
                    schema->nameSpace ? schema->nameSpace : "-",
                    schema->writes ? "read, write" : "read"});
  }
  PrintTable(rows);
  return kDone;
}
