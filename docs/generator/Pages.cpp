#include "Pages.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "Accessors.h"
#include "Links.h"
#include "ztxml/XMLFactory.h"

namespace docs {

namespace {

std::string Code(const std::string& text) { return "`" + text + "`"; }

std::string Join(const std::vector<std::string>& parts, const char* between = ", ") {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : between) + part;
  return text;
}

void AddOnce(std::vector<std::string>& parts, const std::string& part) {
  if (std::find(parts.begin(), parts.end(), part) == parts.end()) parts.push_back(part);
}

bool Same(const ZtElementType& a, const ZtElementType& b) {
  return std::strcmp(a.className, b.className) == 0;
}
bool IsFlag(const ZtElementType& type) { return Same(type, zt_empty_element_type::kType); }

std::string LinkTo(const ZtElementType& type, const std::string& page, const Homes& homes) {
  if (IsFlag(type)) return "flag";
  const auto home = homes.find(type.className);
  const std::string name = CppNameOf(type);
  if (home == homes.end()) return Code(name);
  const std::string file = home->second == page ? "" : home->second;
  return "[" + Code(name) + "](" + file + "#" + AnchorOf(name) + ")";
}

std::string TagOf(const ZtElementType& type) {
  return type.tag.IsNone() ? type.label : ZtName(type.tag);
}

std::string AttributeText(const ZtFixedAttribute& attribute) {
  std::string text = ZtName(attribute.name);
  if (attribute.suffix != XML_STR_ZT_NULL) text += std::string(":") + ZtName(attribute.suffix);
  return text + "=\"" + ZtName(attribute.value) + "\"";
}

// ---- Rows ---------------------------------------------------------------------------------------

std::string NameCell(const reflect::Field& field) {
  const std::string name = field.name ? Code(field.name) : "";
  if (!field.row) {
    return field.HoldsAttributes() ? "the declarations"
                                   : "elements, see [On the wire](#on-the-wire)";
  }
  switch (field.place) {
    case ZtPlace::kAttribute:
      return "attribute " + name;
    case ZtPlace::kTextElement:
    case ZtPlace::kChild:
      return "element " + name;
    case ZtPlace::kTextElements:
    case ZtPlace::kChildren:
      return "elements " + name;
    case ZtPlace::kOwnText:
      return "its text";
    case ZtPlace::kOwnWords:
      return "its text, split at blanks";
    case ZtPlace::kOtherChild:
      return "one of these elements";
    case ZtPlace::kOtherChildren:
      return "other elements";
    case ZtPlace::kOtherAttributes:
      return "other attributes";
  }
  return "";
}

std::string EnumerationCell(const ZtEnumTable& table, const std::string& enumeration) {
  std::vector<std::string> values;
  for (unsigned i = 0; i < table.count; ++i) {
    const std::string enumerator = EnumeratorOf(enumeration, i);
    values.push_back(Code(table.slots[i].Piece().text) +
                     (enumerator.empty() ? "" : " (" + Code(enumerator) + ")"));
  }
  std::string cell = Join(values);
  if (!EnumeratorOf(enumeration, 0).empty()) cell = Code(enumeration) + ": " + cell;
  if (table.byPrefix) cell += "; known by their beginnings";
  for (unsigned i = table.count; table.respelt && i < table.searched; ++i) {
    cell += "; " + Code(table.slots[i].Piece().text) + " is " +
            Code(table.slots[i - table.count].Piece().text);
  }
  if (table.noMatch == kZtKeepsValue) return cell + "; other texts change nothing";
  if (table.noMatch < table.count)
    return cell + "; other texts are " + Code(table.slots[table.noMatch].Piece().text);
  const std::string absent = EnumeratorOf(enumeration, table.noMatch);
  return cell + "; other texts are " + (absent.empty() ? "absent" : Code(absent));
}

std::string ValueCell(const reflect::Field& field, const Accessors& accessors,
                      const std::string& page, const Homes& homes) {
  const ZtField* row = field.row;
  switch (field.value) {
    case ZtValue::kText:
      return field.IsRepeated() ? "texts, each a `zt_string`" : "text";
    case ZtValue::kNumber:
      if (row && row->detail.range && !row->detail.range->isDecimal) {
        return "number, " + std::to_string(row->detail.range->least) + " to " +
               std::to_string(row->detail.range->most);
      }
      return "number";
    case ZtValue::kNumber64:
      return "number of 64 bits";
    case ZtValue::kEnum:
      return EnumerationCell(*reflect::ValuesOf(*row), accessors.given);
    case ZtValue::kObject:
      break;
  }
  if (field.HoldsAttributes()) return "pairs, each a `zt_AttributeValuePair`";
  if (field.place == ZtPlace::kOtherChild) return "object";
  if (field.place == ZtPlace::kOtherChildren) return "objects";
  return LinkTo(*row->detail.type, page, homes);
}

// `field` is of an object that was just made.
std::string WrittenCell(const reflect::Field& field, const std::string& page, const Homes& homes) {
  const ZtField* row = field.row;
  if (!row) return "when set";
  if (field.place == ZtPlace::kOtherChild || field.place == ZtPlace::kOtherChildren) {
    std::vector<std::string> types;
    for (const ZtElementType* type : reflect::ChildTypesOf(*row)) {
      AddOnce(types, LinkTo(*type, page, homes));
    }
    if (!types.empty()) return "only: " + Join(types);
    const bool named = row->detail.choices && !row->detail.choices->type;
    return named ? "those that the document's page names" : "never";
  }
  if (row->Is(kZtRequired)) return "**required**";
  std::string cell = "when set";
  if (row->IsOwnText() && !row->Is(kZtAlways)) cell = "when set, else a blank";
  if (row->place == ZtPlace::kOwnWords) cell = "with one blank between words";
  if (row->place == ZtPlace::kOtherAttributes) cell = "as received; of equal names the first";
  if (row->Is(kZtAlways) && !field.IsRepeated()) cell = "always";
  if (field.value == ZtValue::kEnum && field.IsPresent()) {
    cell = "always; " + Code(field.items[0].text) + " until it is set";
  }
  if (row->Is(kZtOneOf)) cell = "one of the rows marked so: the first that is set";
  if (row->Is(kZtOneOf) && row->Is(kZtAlways)) cell += "; a blank when none is";
  if (row->Is(kZtLenient)) cell += "; if it fails, the rest is written";
  return cell;
}

// What the sections of a page are made for: all types and roots of the documents that have them.
struct Scope {
  std::vector<const ZtElementType*> types;
  std::vector<ZtRoot> roots;
  bool writes = false;

  void Add(const reflect::Schema& schema) {
    for (const ZtElementType* type : schema.Types()) types.push_back(type);
    roots.insert(roots.end(), schema.document->roots.begin(), schema.document->roots.end());
    writes = writes || schema.document->info.writes;
  }
};

// The names of a choice.
std::vector<std::string> NamesOf(const ZtChoice& choice) {
  if (choice.name.IsNone()) return {"any other element"};
  std::vector<std::string> names = {Code(ZtName(choice.name))};
  for (const ZtNameId* other = choice.others; other && !other->IsNone(); ++other) {
    names.push_back(Code(ZtName(*other)));
  }
  return names;
}

// The element names under which a type stands, with the types that it is in as far as rows say so.
std::string PlacesOf(const ZtElementType& type, const Scope& scope, const std::string& page,
                     const Homes& homes) {
  std::vector<std::string> places;
  for (const ZtElementType* parent : scope.types) {
    const std::string in = " of " + LinkTo(*parent, page, homes);
    for (const ZtField& row : *parent) {
      const bool child = row.place == ZtPlace::kChild || row.place == ZtPlace::kChildren;
      if (child && Same(*row.detail.type, type)) AddOnce(places, Code(ZtName(row.name)) + in);
    }
    for (const ZtChoice* at = parent->Choices(); at && at->type; ++at) {
      if (!Same(*at->type, type)) continue;
      for (const std::string& name : NamesOf(*at)) AddOnce(places, name + in);
    }
  }
  std::vector<std::string> names;
  for (const ZtRoot& root : scope.roots) {
    if (Same(*root.type, type)) AddOnce(names, Code(ZtName(root.name)));
  }
  std::string text;
  if (type.root) text = names.empty() ? "Any root element" : "Root element " + Join(names, " or ");
  if (type.root && places.empty()) return text;
  if (places.empty()) return "Element " + Code(TagOf(type));
  if (!text.empty()) text += ". ";
  return text + (places.size() > 1 ? "Elements " : "Element ") + Join(places);
}

// The fields of an object that was just made. After the object is gone only the values of
// enumerations in them stay valid, because those are static.
std::vector<reflect::Field> FreshFieldsOf(const ZtElementType& type) {
  XMLElement* object = type.Create("docs/Pages");
  std::vector<reflect::Field> fields = reflect::FieldsOf(*object);
  XMLFactory::DeleteElement(object);
  return fields;
}

std::string TypeSection(const ZtElementType& type, const Scope& scope, const std::string& page,
                        const Homes& homes) {
  const bool writes = scope.writes;
  const std::string name = CppNameOf(type);
  std::string text = "### " + Code(name) + "\n\n";
  text += PlacesOf(type, scope, page, homes);
  const std::string header = HeaderOf(name);
  if (!header.empty()) text += ". Declared in " + Code(header);
  std::vector<std::string> factories;
  for (const std::string& factory : FactoriesOf(type)) factories.push_back(Code(factory));
  if (!factories.empty()) text += ", made by " + Join(factories);
  text += ".\n\n";

  const auto fields = FreshFieldsOf(type);
  const auto accessors = AccessorsOf(type);
  bool keepsAttributes = false;
  bool keepsElements = false;
  if (!fields.empty()) {
    text += writes ? "| in the document | value | accessors | written |\n|---|---|---|---|\n"
                   : "| in the document | value | accessors |\n|---|---|---|\n";
  }
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const reflect::Field& field = fields[i];
    keepsAttributes = keepsAttributes || field.place == ZtPlace::kOtherAttributes;
    keepsElements = keepsElements || field.place == ZtPlace::kOtherChildren;
    std::vector<std::string> names;
    for (const std::string& accessor : accessors[i].names) AddOnce(names, Code(accessor));
    text += "| " + NameCell(field) + " | " + ValueCell(field, accessors[i], page, homes) + " | " +
            Join(names) + " |";
    if (writes) text += " " + WrittenCell(field, page, homes) + " |";
    text += "\n";
  }
  if (!fields.empty()) text += "\n";
  const std::size_t size = text.size();
  if (writes && (type.extras->content || type.extras->write)) {
    text += "Written by a rule of its own, see [On the wire](#on-the-wire). ";
  }
  std::vector<std::string> dropped;
  if (!keepsAttributes) dropped.emplace_back("other attributes");
  if (!keepsElements) dropped.emplace_back("other elements");
  if (!dropped.empty()) text += "Dropped when read: " + Join(dropped) + ". ";
  if (writes && type.start == ZtStartTag::kEmpty) text += "Written as an empty tag. ";
  if (writes && type.start == ZtStartTag::kStaysOpen)
    text += "Without an attribute its start tag is left open. ";
  if (writes && type.start == ZtStartTag::kAwaitsExtras) {
    text += "A list of other attributes that is empty leaves its start tag open. ";
  }
  if (writes && type.extras->declares.size()) {
    std::vector<std::string> fixed;
    for (const ZtFixedAttribute& declared : type.extras->declares) {
      fixed.push_back(Code(AttributeText(declared)));
    }
    text += "Always written with " + Join(fixed) + ". ";
  }
  if (text.size() == size) return text;
  text.back() = '\n';
  return text + "\n";
}

// ---- What one document writes in its own way ----------------------------------------------------

std::string OwnWay(const ZtElementType& type, const std::string& page, const Homes& homes) {
  const ZtElementType& read = reflect::ReadAs(type);
  if (&type == &read || IsFlag(type)) return "";
  const bool kept = type.Choices() || reflect::ChildTypesOf(type).empty();
  if (kept && !type.Choices() && read.fields.size() != 0) {
    return "- " + Code(TagOf(type)) + " is written without its content.\n";
  }
  std::string text;
  for (const ZtField& row : type) {
    if (row.place != ZtPlace::kOtherChildren || !row.detail.choices) continue;
    text += "- In " + Code(TagOf(type)) + " are written, " +
            WrittenCell({&row, nullptr, row.place, row.value, 0, {}}, page, homes) + ".\n";
  }
  return text;
}

// The tables by which a schema's roots are written, each once.
std::vector<const ZtElementType*> WrittenTypes(const reflect::Schema& schema) {
  std::vector<const ZtElementType*> types = schema.Roots();
  for (std::size_t next = 0; next < types.size(); ++next) {
    for (const ZtField& row : *types[next]) {
      for (const ZtElementType* child : reflect::ChildTypesOf(row)) {
        if (std::find(types.begin(), types.end(), child) == types.end()) types.push_back(child);
      }
    }
  }
  return types;
}

std::string FlagsOf(const reflect::Schema& schema, const std::string& page, const Homes& homes) {
  std::vector<std::string> names;
  for (const ZtElementType* type : schema.Types()) {
    for (const ZtField& row : *type) {
      if (row.IsObject() && IsFlag(*row.detail.type)) AddOnce(names, Code(ZtName(row.name)));
    }
    for (const ZtChoice* at = type->Choices(); at && at->type; ++at) {
      if (!IsFlag(*at->type)) continue;
      const std::string in = at->name.IsNone() ? " in " + LinkTo(*type, page, homes) : "";
      for (const std::string& name : NamesOf(*at)) AddOnce(names, name + in);
    }
  }
  if (names.empty()) return "";
  return "Flags (empty elements whose presence is the value; each a `zt_empty_element_type` with "
         "the element's name as its value): " +
         Join(names) + ".\n\n";
}

bool IsShared(const ZtElementType& type, const std::vector<reflect::Schema>& schemas) {
  int users = 0;
  for (const reflect::Schema& schema : schemas) {
    const auto types = schema.Types();
    users += std::any_of(types.begin(), types.end(),
                         [&](const ZtElementType* other) { return Same(*other, type); });
  }
  return users > 1;
}

}  // namespace

// ---- Pages --------------------------------------------------------------------------------------

std::string PageOf(const reflect::Schema& schema) {
  const std::string name = schema.document->info.name;
  std::string page;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool upper = std::isupper(static_cast<unsigned char>(name[i])) != 0;
    const bool afterLower = i && std::islower(static_cast<unsigned char>(name[i - 1])) != 0;
    const bool beforeLower =
        i && i + 1 < name.size() && std::islower(static_cast<unsigned char>(name[i + 1])) != 0;
    if (upper && (afterLower || beforeLower)) page += '-';
    page += static_cast<char>(std::tolower(static_cast<unsigned char>(name[i])));
  }
  return page + ".md";
}

Homes FindHomes(const std::vector<reflect::Schema>& schemas,
                const std::map<std::string, std::string>& shared) {
  Homes homes;
  for (const reflect::Schema& schema : schemas) {
    for (const ZtElementType* type : schema.Types()) {
      if (IsFlag(*type)) continue;
      const std::string source = type->family->source;
      const auto page = shared.find(source);
      const bool common = page != shared.end() && IsShared(*type, schemas);
      if (common) {
        homes[type->className] = page->second;
      } else if (type->root || source == schema.document->source) {
        homes[type->className] = PageOf(schema);
      } else {
        homes.emplace(type->className, PageOf(schema));
      }
    }
  }
  // A root of one schema may be an element of another: the page of its own schema describes it.
  for (const reflect::Schema& schema : schemas) {
    for (const ZtElementType* root : schema.Roots()) homes[root->className] = PageOf(schema);
  }
  return homes;
}

std::string Facts(const reflect::Schema& schema) {
  const XMLSchemaInfo& info = schema.document->info;
  const auto roots = schema.Roots();
  std::vector<std::string> names;
  for (const char* root : info.roots) {
    if (root) names.push_back(Code(root));
  }
  std::string text = "| | |\n|---|---|\n";
  const auto add = [&](const char* what, const std::string& value) {
    text += std::string("| ") + what + " | " + value + " |\n";
  };
  add("id", std::to_string(info.id) + ", " +
                Code(EnumeratorOf("eXMLSchemaID", static_cast<unsigned>(info.id))));
  add("context", Code(std::string(info.name) + "Context"));
  const std::string factory = RootFactoryOf(*roots.front());
  add("object factory", factory.empty() ? "the context's, without a name" : Code(factory));
  const std::string context = std::string(info.name) + "Context";
  std::vector<std::string> headers;
  for (const Root& root : RootsOf(context)) AddOnce(headers, Code(root.header));
  headers.push_back(Code(HeaderOf(context)));
  add("header", Join(headers, ", with the classes alone "));
  add("root", names.empty() ? "any" : Join(names));
  add("namespace", info.nameSpace ? Code(info.nameSpace) : "none");
  add("access", info.writes ? "reads, writes" : "reads");
  switch (schema.document->prefixes) {
    case ZtPrefixRule::kExact:
      add("prefixes of elements", "taken as part of the name");
      break;
    case ZtPrefixRule::kStrip:
      add("prefixes of elements", "not looked at");
      break;
    case ZtPrefixRule::kRewrite:
      add("prefixes of elements",
          "those of the [namespace binder](../classes.md#services-in-the-exact-profile)");
      break;
  }
  if (info.writes) {
    add("XML declaration", schema.document->declaration ? "written" : "none: it is a fragment");
  }
  return text;
}

std::string Elements(const reflect::Schema& schema, const std::string& page, const Homes& homes) {
  Scope scope;
  scope.Add(schema);
  std::string text = FlagsOf(schema, page, homes);
  std::vector<std::string> elsewhere;
  std::string sections;
  for (const ZtElementType* type : scope.types) {
    if (IsFlag(*type)) continue;
    if (homes.at(type->className) == page) {
      sections += TypeSection(*type, scope, page, homes);
    } else {
      elsewhere.push_back(LinkTo(*type, page, homes));
    }
  }
  if (!elsewhere.empty()) text += "On other pages: " + Join(elsewhere) + ".\n\n";
  std::string own;
  for (const ZtElementType* type : WrittenTypes(schema)) own += OwnWay(*type, page, homes);
  if (!own.empty()) text += "In this document:\n\n" + own + "\n";
  return text + sections;
}

std::string SharedElements(const std::vector<reflect::Schema>& schemas, const std::string& page,
                           const Homes& homes) {
  std::vector<const ZtElementType*> all;
  std::vector<std::string> users;
  Scope scope;
  for (const reflect::Schema& schema : schemas) {
    const std::size_t known = users.size();
    for (const ZtElementType* type : schema.Types()) {
      const auto home = homes.find(type->className);
      if (home == homes.end() || home->second != page) continue;
      if (std::find(all.begin(), all.end(), type) == all.end()) all.push_back(type);
      AddOnce(users, "[" + std::string(schema.document->info.name) + "](" + PageOf(schema) + ")");
    }
    if (users.size() != known) scope.Add(schema);
  }
  std::string text = "Used by " + Join(users) + ".\n\n";
  for (const ZtElementType* type : all) text += TypeSection(*type, scope, page, homes);
  return text;
}

std::string Documents(const std::vector<reflect::Schema>& schemas,
                      const std::map<std::string, std::string>& standards,
                      const std::string& folder) {
  std::string text =
      "| id | context | root | namespace | standard | access |\n|---|---|---|---|---|---|\n";
  for (const reflect::Schema& schema : schemas) {
    const XMLSchemaInfo& info = schema.document->info;
    std::vector<std::string> roots;
    for (const char* root : info.roots) {
      if (root) roots.push_back(Code(root));
    }
    const std::string page = PageOf(schema);
    const auto standard = standards.find(page);
    const std::string context = Code(std::string(info.name) + "Context");
    const std::vector<std::string> cells = {std::to_string(info.id),
                                            Join({"[", context, "](", folder, page, ")"}, ""),
                                            roots.empty() ? "any" : Join(roots),
                                            info.nameSpace ? info.nameSpace : "",
                                            standard == standards.end() ? "" : standard->second,
                                            info.writes ? "reads, writes" : "reads"};
    text += "| ";
    text += Join(cells, " | ");
    text += " |\n";
  }
  return text;
}

std::string Example(const reflect::Schema& schema, const std::string& file,
                    const std::string& text) {
  std::string page = "[" + file + "](../../examples/documents/" + file + "):\n\n```xml\n" + text;
  if (page.back() != '\n') page += '\n';
  page += "```\n";
  if (!schema.document->info.writes) return page;
  XMLContext* retrieval = XMLFactory::newInstance(XML_SCHEMA_NAMESPACE_RETRIEVAL);
  auto* namespaces =
      static_cast<XMLObject*>(retrieval->createUnMarshaller()->UnMarshall(text.c_str()));
  XMLContext* context = XMLFactory::newInstance(schema.document->info.id);
  context->SetNamespaceBinder(namespaces);
  XMLElement* root = context->createUnMarshaller()->UnMarshall(text.c_str());
  const char* written = context->createMarshaller()->Marshall(root);
  page += std::string("\nRead and written again:\n\n```xml\n") + (written ? written : "(nothing)") +
          "\n```\n";
  XMLFactory::DeleteElement(root);
  XMLFactory::deleteContext(context);
  XMLFactory::DeleteElement(namespaces);
  XMLFactory::deleteContext(retrieval);
  return page;
}

}  // namespace docs
