// ztxml new: an example of a document, made of the rows of its types.
#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

#include "Commands.h"
#include "Judge.h"
#include "Output.h"
#include "Path.h"
#include "Read.h"
#include "Schemas.h"
#include "Text.h"

namespace {

constexpr char kSource[] = "tools/New";

struct Example {
  std::string_view in;
  std::string_view name;
  const char* value;
};
constexpr Example kExamples[] = {
#define ZT_EXAMPLE(in, name, value) {in, name, value},
#include "Examples.inc"
#undef ZT_EXAMPLE
};

// Of a text without an example.
constexpr char kAnyText[] = "example";

// A boolean says more when it is true.
unsigned FirstOf(const ZtEnumTable& values) {
  return std::strcmp(values.slots[0].Piece().text, "false") == 0 ? 1 : 0;
}

class Filler {
 public:
  explicit Filler(const char* root) : m_Names{root} {}

  /// False when out of memory.
  bool Fill(XMLElement& object, const ZtElementType& type) {
    m_Open.push_back(&type);
    bool hasOneOf = false;
    bool isFilled = true;
    for (const ZtField& row : type) {
      if (row.Is(kZtOneOf) && std::exchange(hasOneOf, true)) continue;
      isFilled = isFilled && FillRow(object, type, row);
    }
    m_Open.pop_back();
    return isFilled;
  }

 private:
  bool FillRow(XMLElement& object, const ZtElementType& type, const ZtField& row) {
    Target target;
    target.parent = &object;
    target.type = &type;
    target.row = &row;
    target.name = row.name;
    switch (row.place) {
      case ZtPlace::kOtherAttributes:
        return true;
      case ZtPlace::kTextElements:
      case ZtPlace::kOwnWords:
        return AddText(target, TextFor(row));
      case ZtPlace::kChild:
      case ZtPlace::kChildren:
        return Add(target, *row.detail.type);
      case ZtPlace::kOtherChild:
      case ZtPlace::kOtherChildren:
        return AddChoices(target);
      default:
        return ZtKeep(object, row, ValueFor(row), nullptr);
    }
  }

  bool AddChoices(Target& target) {
    const ZtChoice* choice = target.row->detail.choices;
    for (; choice && choice->type; ++choice) {
      if (choice->name.IsNone() || !choice->writer) continue;
      target.name = choice->name;
      if (!Add(target, *choice->type)) return false;
      if (target.row->place == ZtPlace::kOtherChild) return true;
    }
    return true;
  }

  bool Add(Target& target, const ZtElementType& type) {
    target.own = &ZtStandardOf(type);
    // What may hold itself does so no further.
    if (std::find(m_Open.begin(), m_Open.end(), target.own) != m_Open.end()) return true;
    const Example* const example = ExampleOf(ZtName(target.name));
    if (example && !example->value) return true;
    if (!MakeElement(target)) return false;
    m_Names.push_back(ZtName(target.name));
    const bool isFilled = Fill(*target.object, *target.own);
    m_Names.pop_back();
    return isFilled;
  }

  // That of the innermost element around it that has one.
  const Example* ExampleOf(std::string_view name) const {
    const Example* found = nullptr;
    std::size_t depth = 0;
    for (const Example& example : kExamples) {
      if (example.name != name) continue;
      const auto in = std::find(m_Names.rbegin(), m_Names.rend(), example.in);
      const auto own = static_cast<std::size_t>(m_Names.rend() - in);
      if (own == 0 && !example.in.empty()) continue;
      if (found && own < depth) continue;
      found = &example;
      depth = own;
    }
    return found;
  }

  std::string TextFor(const ZtField& row) const {
    const std::string_view name = row.IsOwnText() ? m_Names.back() : ZtName(row.name);
    const Example* const example = ExampleOf(name);
    return example && example->value ? example->value : kAnyText;
  }

  ZtStated ValueFor(const ZtField& row) {
    m_Text = TextFor(row);
    const ZtPiece text(m_Text.data(), m_Text.size());
    if (row.value == ZtValue::kText) return ZtStated::Text(text);
    const ZtStated value = ZtParse(row, text);
    if (value.stated) return value;
    if (row.value == ZtValue::kEnum) return ZtStated::Number(FirstOf(*row.detail.values));
    const bool hasRange = row.value == ZtValue::kNumber && row.detail.range;
    return ZtStated::Number(hasRange ? row.detail.range->least : 1);
  }

  std::vector<const ZtElementType*> m_Open;  // around the current row
  std::vector<std::string_view> m_Names;     // of those elements
  std::string m_Text;
};

// The root of a schema, by its name or the only or first one.
const ZtRoot& RootOf(const ZtDocument& document, const std::string& name) {
  for (const ZtRoot& root : document.roots) {
    if (name == ZtName(root.name)) return root;
  }
  return *document.roots.begin();
}

}  // namespace

int PrintNew(const std::string& schemaOrRoot) {
  const XMLSchemaInfo* schema = FindSchema(schemaOrRoot);
  if (!schema) schema = FindSchemaOfRoot(schemaOrRoot);
  if (!schema->writes) {
    Complain(schema->name, "documents of this schema are only read");
    return kUsage;
  }
  reflect::Schema tables;
  Tree tree;
  Failure failure = {NameOf(ztxml::Code::kNoMemory), "memory is lacking"};
  if (!reflect::FindSchema(schema->id, tables)) return Refuse(schema->name, failure, kCannotWrite);
  tree.table = tables.document;
  const ZtRoot& root = RootOf(*tree.table, schemaOrRoot);
  tree.root.reset(root.type->Create({kSource, nullptr}));
  const char* const name = ZtName(root.name);
  // Of a document whose root has no name that XML allows there is the exact profile only.
  tree.isStandard = !(name[0] >= '0' && name[0] <= '9');
  if (!tree.isStandard) Complain(schema->name, OddRoot(name));
  std::string text;
  if (!tree.root || !Filler(name).Fill(*tree.root, ZtStandardOf(*root.type)) ||
      !tree.Write(text, failure)) {
    return Refuse(schema->name, failure, kCannotWrite);
  }
  PrintText(text + '\n');
  return kDone;
}
