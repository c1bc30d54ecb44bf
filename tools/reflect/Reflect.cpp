#include "reflect/Reflect.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

#include "binding/ZtStandard.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"
#include "ztxml/XMLSimservs.h"
#include "ztxml/XMLXcapError.h"

// A friend of the library's classes, for what they tell nobody else.
class ZtReflection {
 public:
  static const ZtElementType& TypeOf(const XMLElement& object) {
    // Without run-time type information only BaseClassName tells which of the two bases an object
    // has.
    if (std::strcmp(object.BaseClassName(), "XMLObject") == 0) {
      return static_cast<const ZtBound<XMLObject>&>(object).Type();
    }
    return static_cast<const ZtBound<XMLElement>&>(object).Type();
  }
  static const ZtDocument& DocumentOf(const ZtContext& context) { return context.Document(); }
};

namespace reflect {

namespace {

constexpr char kSource[] = "tools/Reflect";

struct Release {
  template <class T>
  void operator()(T* object) const {
    ZtRelease(object);
  }
};

// The field of a type that keeps values without a row in the exact profile; `place` tells where
// they stand.
std::vector<Field> HiddenField(const ZtElementType& type) {
  if (&type == &zt_string::kType) {
    return {{nullptr, "value", ZtPlace::kOwnText, ZtValue::kText, 0, {}}};
  }
  if (&type == &zt_Simservs::kType) {
    return {{nullptr, nullptr, ZtPlace::kOtherChildren, ZtValue::kObject, 0, {}}};
  }
  if (&type == &zt_schema_namespace_retrieval::kType) {
    return {{nullptr, nullptr, ZtPlace::kOtherAttributes, ZtValue::kObject, 0, {}}};
  }
  return {};
}

void AddObject(const XMLElement* object, Field& field, bool isStandard) {
  if (!object) return;
  Item item;
  item.object = object;
  if (isStandard) {
    item.standard = ZtMatchObject(*field.row, kZtNoSpace, *object).type;
    item.name = ZtNameOfObject(*field.row, *object).text;
    if (!item.standard || !item.name) return;  // nothing that the document can have here
  }
  field.items.push_back(item);
}

void AddText(const char* text, Field& field) {
  Item item;
  item.text = text;
  if (text) field.items.push_back(item);
}

void AddObjects(ZtListNode* node, Field& field, bool isStandard) {
  for (; node; node = node->next) {
    AddObject(static_cast<XMLElement*>(node->data), field, isStandard);
  }
}

void AddTexts(ZtListNode* node, Field& field) {
  for (; node; node = node->next) {
    const auto* text = zt_string::From(static_cast<XMLElement*>(node->data));
    if (text) AddText(text->getValue(), field);
  }
}

void AddAttributes(ZtListNode* node, Field& field) {
  for (; node; node = node->next) {
    const auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
    if (!pair) continue;
    Item item;
    item.name = pair->getName();
    item.text = pair->getValue();
    field.items.push_back(item);
  }
}

void AddScalar(const XMLElement& object, const ZtField& row, Field& field) {
  char buffer[kZtNumberSize];
  const char* text = ZtFieldText(object, row, buffer).text;
  switch (row.value) {
    case ZtValue::kNumber:
      field.number = row.Number(object);
      if (text) field.items.emplace_back();
      return;
    case ZtValue::kNumber64:
      field.number = row.Number64(object);
      if (text) field.items.emplace_back();
      return;
    case ZtValue::kEnum:
      field.number = row.Number(object);
      AddText(text, field);
      return;
    default:
      AddText(text, field);
  }
}

void AddStated(const XMLElement& object, const ZtField& row, Field& field) {
  const ZtStated value = ZtHeld(object, row);
  if (!value.stated) return;
  field.number = value.number;
  Item item;
  if (row.value == ZtValue::kText || row.value == ZtValue::kEnum) {
    item.text = ZtTextOf(row, value, nullptr).text;
  }
  field.items.push_back(item);
}

void FillRow(const XMLElement& object, const ZtField& row, bool isStandard, Field& field) {
  switch (row.place) {
    case ZtPlace::kTextElements:
    case ZtPlace::kOwnWords:
      return AddTexts(row.Children(object).Head(), field);
    case ZtPlace::kChild:
    case ZtPlace::kOtherChild:
      return AddObject(row.Child(object).Get(), field, isStandard);
    case ZtPlace::kChildren:
    case ZtPlace::kOtherChildren:
      return AddObjects(row.Children(object).Head(), field, isStandard);
    case ZtPlace::kOtherAttributes:
      return AddAttributes(row.Attributes(object).Head(), field);
    default:
      return isStandard ? AddStated(object, row, field) : AddScalar(object, row, field);
  }
}

ZtListNode* HeadOf(ZtSingleElementList* list) { return list ? list->GetPtrToListHead() : nullptr; }

void FillHidden(const XMLElement& object, const ZtElementType& type, Field& field) {
  if (&type == &zt_string::kType) {
    AddText(static_cast<const zt_string&>(object).getValue(), field);
  } else if (&type == &zt_Simservs::kType) {
    AddObjects(HeadOf(static_cast<const zt_Simservs&>(object).getServiceListValue()), field, false);
  } else if (&type == &zt_schema_namespace_retrieval::kType) {
    // The getter is not const because it logs; it changes nothing.
    auto& namespaces = const_cast<zt_schema_namespace_retrieval&>(
        static_cast<const zt_schema_namespace_retrieval&>(object));
    AddAttributes(HeadOf(namespaces.getNameSpaceInfo()), field);
  }
}

}  // namespace

// ---- Objects ------------------------------------------------------------------------------------

bool Field::IsRepeated() const {
  switch (place) {
    case ZtPlace::kTextElements:
    case ZtPlace::kOwnWords:
    case ZtPlace::kChildren:
    case ZtPlace::kOtherChildren:
    case ZtPlace::kOtherAttributes:
      return true;
    default:
      return false;
  }
}

const ZtElementType& TypeOf(const XMLElement& object) { return ZtReflection::TypeOf(object); }

const char* ElementNameOf(const XMLElement& object) {
  const ZtElementType& type = TypeOf(object);
  if (&type == &zt_empty_element_type::kType) {
    const char* name = static_cast<const zt_empty_element_type&>(object).getValue();
    if (name) return name;
  }
  return type.tag.IsNone() ? type.label : ZtName(type.tag);
}

const char* NameOf(const Field& field, const Item& item) {
  if (field.name) return field.name;
  return item.object && !item.name ? ElementNameOf(*item.object) : item.name;
}

Node StandardRoot(const ZtDocument& document, const XMLElement& root) {
  for (const ZtRoot& known : document.roots) {
    if (ZtIsA(root, *known.type)) return {root, &ZtStandardOf(*known.type)};
  }
  return {root, &ZtStandardOf(TypeOf(root))};
}

namespace {

// The field that a row makes, without items.
Field FieldOf(const ZtField& row) {
  const char* name = row.HasName() ? ZtName(row.name) : nullptr;
  // What looks alike in a document is told alike.
  const bool other = row.place == ZtPlace::kOtherChild;
  return {&row, name, other ? ZtPlace::kOtherChildren : row.place, row.value, 0, {}};
}

// Puts a field without items at `used`, where one of another object may be, whose memory it takes.
void UseNext(const Field& field, std::vector<Field>& fields, std::size_t& used) {
  if (used == fields.size()) fields.emplace_back();
  std::vector<Item> items = std::move(fields[used].items);
  items.clear();
  fields[used] = field;
  fields[used++].items = std::move(items);
}

}  // namespace

std::vector<Field> FieldsOf(const ZtElementType& type) {
  std::vector<Field> fields = HiddenField(type);
  for (const ZtField& row : type) fields.push_back(FieldOf(row));
  return fields;
}

void FillFields(const Node& node, std::vector<Field>& fields) {
  const XMLElement& object = *node.object;
  const ZtElementType& type = node.standard ? *node.standard : TypeOf(object);
  fields.reserve(type.fields.size() + 1);
  std::size_t used = 0;
  if (!node.standard) {
    for (const Field& hidden : HiddenField(type)) UseNext(hidden, fields, used);
  }
  for (const ZtField& row : type) UseNext(FieldOf(row), fields, used);
  fields.resize(used);
  for (Field& field : fields) {
    if (field.row) {
      FillRow(object, *field.row, node.standard, field);
    } else {
      FillHidden(object, type, field);
    }
  }
}

std::vector<Field> FieldsOf(const Node& node) {
  std::vector<Field> fields;
  FillFields(node, fields);
  return fields;
}

namespace {

// An object on the walk: which of its fields is next, and which item of that field.
struct Open {
  const XMLElement* object;
  std::vector<Field> fields;
  std::size_t field = 0;
  std::size_t item = 0;
};

}  // namespace

bool Walk(const Node& root, const char* name, Visitor& visitor, std::size_t most) {
  bool whole = true;
  std::vector<Open> stack;
  const auto enter = [&](const Node& node, const char* called, const Field* in) {
    const bool wanted = visitor.Enter(*node.object, called, in);
    if (wanted && stack.size() < most) {
      stack.push_back({node.object, FieldsOf(node)});
      return;
    }
    whole = whole && !wanted;
    visitor.Leave(*node.object);
  };
  enter(root, name, nullptr);
  while (!stack.empty()) {
    Open& top = stack.back();
    if (top.field == top.fields.size()) {
      visitor.Leave(*top.object);
      stack.pop_back();
      continue;
    }
    const Field& field = top.fields[top.field];
    if (top.item == 0 && field.IsPresent()) visitor.Begin(field);
    if (top.item < field.items.size() && field.items[top.item].object) {
      const Item& item = field.items[top.item++];
      enter(item.AsNode(), NameOf(field, item), &field);
      continue;
    }
    if (field.IsPresent()) {
      visitor.End(field);
    } else {
      visitor.Lacks(field);
    }
    ++top.field;
    top.item = 0;
  }
  return whole;
}

bool Walk(const Node& root, Visitor& visitor) {
  return Walk(root, ElementNameOf(*root.object), visitor);
}

// ---- Tables -------------------------------------------------------------------------------------

bool FindSchema(eXMLSchemaID id, Schema& schema) {
  const std::unique_ptr<XMLContext, Release> context(XMLFactory::newInstance(id));
  if (!context) return false;
  schema.document = &DocumentOf(*context);
  return true;
}

// Every context of the library derives from ZtContext.
const ZtDocument& DocumentOf(const XMLContext& context) {
  return ZtReflection::DocumentOf(static_cast<const ZtContext&>(context));
}

std::vector<Schema> Schemas() {
  std::vector<Schema> schemas;
  for (int id = 0; id < XML_SCHEMA_END; ++id) {
    Schema schema;
    if (FindSchema(static_cast<eXMLSchemaID>(id), schema)) schemas.push_back(schema);
  }
  return schemas;
}

std::vector<const ZtElementType*> Schema::Roots() const {
  std::vector<const ZtElementType*> roots;
  for (const ZtRoot& root : document->roots) {
    if (std::find(roots.begin(), roots.end(), root.type) == roots.end()) roots.push_back(root.type);
  }
  // The retrieval of namespaces names no root: it reads any.
  if (roots.empty() && document->info.id == XML_SCHEMA_NAMESPACE_RETRIEVAL) {
    roots.push_back(&zt_schema_namespace_retrieval::kType);
  }
  return roots;
}

std::vector<const ZtElementType*> Schema::Types() const {
  // A class may have several tables, but each document uses one.
  std::vector<const ZtElementType*> tables = Roots();
  std::vector<const ZtElementType*> types;
  for (std::size_t next = 0; next < tables.size(); ++next) {
    const ZtElementType* table = tables[next];
    const auto same = [&](const ZtElementType* other) {
      return std::strcmp(other->className, table->className) == 0;
    };
    if (std::none_of(types.begin(), types.end(), same)) types.push_back(&ReadAs(*table));
    for (const ZtElementType* child : ChildTypesOf(*table)) {
      if (std::find(tables.begin(), tables.end(), child) == tables.end()) tables.push_back(child);
    }
  }
  return types;
}

std::vector<const ZtElementType*> ChildTypesOf(const ZtElementType& type) {
  std::vector<const ZtElementType*> types;
  for (const ZtField& row : type) {
    for (const ZtElementType* child : ChildTypesOf(row)) types.push_back(child);
  }
  for (const ZtChoice* choice = type.Choices(); choice && choice->type; ++choice) {
    types.push_back(choice->type);
  }
  return types;
}

std::vector<const ZtElementType*> ChildTypesOf(const ZtField& row) {
  switch (row.place) {
    case ZtPlace::kChild:
    case ZtPlace::kChildren:
      return {row.detail.type};
    case ZtPlace::kOtherChild:
    case ZtPlace::kOtherChildren: {
      std::vector<const ZtElementType*> types;
      const ZtChoice* choice = row.detail.choices;
      for (; choice && choice->type; ++choice) {
        if (choice->writer) types.push_back(choice->writer);
      }
      return types;
    }
    default:
      return {};
  }
}

const ZtElementType& ReadAs(const ZtElementType& type) {
  const std::unique_ptr<XMLElement, Release> object(type.Create(kSource));
  return object ? TypeOf(*object) : type;
}

const char* NameOf(ZtPlace place) {
  switch (place) {
    case ZtPlace::kAttribute:
      return "attribute";
    case ZtPlace::kTextElement:
      return "text element";
    case ZtPlace::kTextElements:
      return "text elements";
    case ZtPlace::kOwnText:
      return "own text";
    case ZtPlace::kOwnWords:
      return "own words";
    case ZtPlace::kChild:
      return "child";
    case ZtPlace::kChildren:
      return "children";
    case ZtPlace::kOtherChild:
      return "other child";
    case ZtPlace::kOtherChildren:
      return "other children";
    case ZtPlace::kOtherAttributes:
      return "other attributes";
  }
  return "";
}

}  // namespace reflect
