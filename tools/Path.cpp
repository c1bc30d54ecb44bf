#include "Path.h"

#include <string_view>

#include "Text.h"
#include "binding/ZtStandardWriter.h"

namespace {

constexpr char kSource[] = "tools/Path";
constexpr std::size_t kMostIndex = 1000000000;

ZtPiece PieceOf(std::string_view text) { return {text.data(), text.size()}; }

// Takes "[n]" off the end of a step; false when that is malformed.
bool CutIndex(std::string_view& text, std::size_t& index) {
  if (!EndsWith(text, "]")) return true;
  const std::size_t open = text.rfind('[');
  if (open == std::string_view::npos || open + 2 >= text.size()) return false;
  for (const char c : text.substr(open + 1, text.size() - open - 2)) {
    if (c < '0' || c > '9' || index > kMostIndex) return false;
    index = index * 10 + static_cast<std::size_t>(c - '0');
  }
  text = text.substr(0, open);
  return index != 0;
}

// The steps of a path; false with the one that is malformed.
bool Split(const std::string& path, std::vector<Step>& steps, std::string& wrong) {
  std::string_view rest = path;
  while (StartsWith(rest, "/")) {
    rest.remove_prefix(1);
    const std::size_t size = std::min(rest.find('/'), rest.size());
    std::string_view text = rest.substr(0, size);
    wrong = text;
    rest.remove_prefix(size);
    Step step;
    step.path = path.substr(0, path.size() - rest.size());
    if (!CutIndex(text, step.index)) return false;
    if (text == "(text)" || text == "(words)") {
      step.kind = text == "(text)" ? Step::Kind::kText : Step::Kind::kWords;
    } else {
      if (StartsWith(text, "@")) {
        step.kind = Step::Kind::kAttribute;
        text.remove_prefix(1);
      }
      if (text.empty()) return false;
      step.name = text;
    }
    steps.push_back(step);
  }
  wrong = rest;
  return rest.empty() && !steps.empty();
}

const char* TextOf(XMLElement* entry) {
  const auto* text = zt_string::From(entry);
  return text ? text->getValue() : nullptr;
}

bool IsText(const ZtField& row) {
  return row.place == ZtPlace::kTextElements || row.place == ZtPlace::kOwnWords;
}

// Whether a child is in the document under the name that the step has.
bool IsCalled(const ZtField& row, XMLElement* child, const std::string& name) {
  if (!child || !ZtStandardWriter::IsThere(*child)) return false;
  if (IsText(row)) return TextOf(child) != nullptr;
  const ZtPiece own = ZtNameOfObject(row, *child);
  return own.text && name == std::string_view(own.text, own.size);
}

std::string Parent(const Step& step) { return step.path.substr(0, step.path.rfind('/')); }

}  // namespace

bool Target::IsScalar() const {
  return row && (row->place == ZtPlace::kAttribute || row->place == ZtPlace::kTextElement ||
                 row->place == ZtPlace::kOwnText);
}

bool Target::IsThere() const { return IsScalar() ? ZtHeld(*parent, *row).stated : object || pair; }

Finding PathFinder::Wrong(const std::string& why) {
  m_Why = why;
  return Finding::kWrong;
}

Finding PathFinder::Find(const std::string& path, Target& target) {
  std::vector<Step> steps;
  std::string wrong;
  if (!Split(path, steps, wrong)) {
    return Wrong(Quote(path) + " is no path" + (wrong.empty() ? "" : ": " + Quote(wrong)));
  }
  const char* const name = reflect::ElementNameOf(m_Root);
  if (steps[0].kind != Step::Kind::kElement || steps[0].name != name || steps[0].index > 1) {
    return Wrong("the root is /" + Escape(name) + ", not " + Escape(steps[0].path));
  }
  target = Target();
  target.object = &m_Root;
  target.own = &m_RootType;
  for (std::size_t i = 1; i < steps.size(); ++i) {
    const Finding entered = Enter(steps[i - 1], target);
    if (entered != Finding::kFound) return entered;
    const Finding taken = Take(steps[i], target);
    if (taken != Finding::kFound) return taken;
  }
  m_Why = path + " is not there";
  return Finding::kFound;
}

// Makes the element that `target` is, of `step`, the parent of what comes next.
Finding PathFinder::Enter(const Step& step, Target& target) {
  if (!target.own) return Wrong("nothing can be below " + Escape(step.path) + ", which is a text");
  if (!target.object) {
    m_Why = Escape(step.path) + " is not there";
    if (!m_bMakes) return Finding::kAbsent;
    if (target.cannotMake) return Wrong(m_Why + ", and cannot be made: " + target.cannotMake);
    if (!MakeElement(target)) return Wrong(Escape(step.path) + " cannot be made");
  }
  Target inside;
  inside.parent = target.object;
  inside.type = target.own;
  target = inside;
  return Finding::kFound;
}

Finding PathFinder::Take(const Step& step, Target& target) {
  switch (step.kind) {
    case Step::Kind::kAttribute:
      return Attribute(step, target);
    case Step::Kind::kElement:
      return Named(step, target);
    default:
      return Own(step, target);
  }
}

Finding PathFinder::Attribute(const Step& step, Target& target) {
  if (step.index > 1) return Wrong(Escape(step.path) + ": an attribute has no index");
  target.row = ZtFindAttribute(*target.type, ZtNameId::Of(PieceOf(step.name)));
  if (target.row) return Finding::kFound;
  if (!target.type->rows.keepsAttributes) {
    return Wrong("there is no attribute " + Quote(step.name) + " in " + Escape(Parent(step)));
  }
  target.row = &ZtOthersOf(*target.type);
  for (ZtListNode* node = target.row->Attributes(*target.parent).Head(); node; node = node->next) {
    auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
    if (pair && pair->getName() && step.name == pair->getName()) target.pair = pair;
  }
  return Finding::kFound;
}

Finding PathFinder::Own(const Step& step, Target& target) {
  const bool isText = step.kind == Step::Kind::kText;
  for (const ZtField& row : *target.type) {
    if (row.place == (isText ? ZtPlace::kOwnText : ZtPlace::kOwnWords)) target.row = &row;
  }
  if (!target.row) {
    return Wrong(Escape(Parent(step)) + " has no " + (isText ? "text" : "words") + " of its own");
  }
  if (!isText) return Entry(step, target);
  return step.index > 1 ? Wrong(Escape(step.path) + ": a text has no index") : Finding::kFound;
}

Finding PathFinder::Named(const Step& step, Target& target) {
  const ZtElementType& type = *target.type;
  const ZtNameId id = ZtNameId::Of(PieceOf(step.name));
  target.row = id == kZtNoName ? nullptr : ZtFindChild(type, id);
  if (target.row && target.row->IsOwnText()) target.row = nullptr;
  if (target.row) {
    const bool isText = target.row->value != ZtValue::kObject;
    if (!isText) target.own = &ZtStandardOf(*target.row->detail.type);
  } else {
    const ZtChoice* choice = id == kZtNoName ? nullptr : ZtFindNamed(type.Choices(), id);
    if (!choice) {
      return Wrong("there is no element " + Quote(step.name) + " in " + Escape(Parent(step)));
    }
    target.row = type.begin() + type.rows.others - 1;
    target.own = &ZtStandardOf(*choice->type);
  }
  target.name = id;
  if (!ZtIsSingle(*target.row)) return Entry(step, target);
  if (step.index > 1) return Wrong(Escape(step.path) + ": there can be only one");
  if (target.row->place == ZtPlace::kTextElement) return Finding::kFound;
  XMLElement* const child = target.row->Child(*target.parent).Get();
  if (IsCalled(*target.row, child, step.name)) {
    target.object = child;
  } else if (child && ZtStandardWriter::IsThere(*child)) {
    target.cannotMake = "another element is in its place";
  }
  return Finding::kFound;
}

// An entry of a list.
Finding PathFinder::Entry(const Step& step, Target& target) {
  std::size_t count = 0;
  for (ZtListNode* node = target.row->Children(*target.parent).Head(); node; node = node->next) {
    auto* child = static_cast<XMLElement*>(node->data);
    if (!IsCalled(*target.row, child, step.name)) continue;
    if (++count == (step.index ? step.index : 1)) target.object = child;
  }
  if (!step.index && count > 1) {
    return Wrong(Escape(step.path) + ": which of " + std::to_string(count) + ", [1] to [" +
                 std::to_string(count) + "]?");
  }
  if (step.index > count + 1) target.cannotMake = "entries before it are missing";
  return Finding::kFound;
}

Target OwnTextOf(const Target& element) {
  Target text;
  text.parent = element.object;
  text.type = element.own;
  for (const ZtField& row : *element.own) {
    if (row.place == ZtPlace::kOwnText) text.row = &row;
  }
  return text;
}

bool MakeElement(Target& target) {
  const ZtSource source = {kSource, nullptr};
  const ZtElementType& type = *target.own;
  XMLElement* object = nullptr;
  if (type.extras->flag) {
    object = ZtMakeFlag(source, target.name.Piece());
  } else {
    object = type.Create(source);
    if (object) ZtSetDefaults(*object, type);
  }
  if (!object) return false;
  if (ZtAdopt(*target.parent, *target.row, object, source) != ZtOutcome::kAdopted) {
    ZtRelease(object);
    return false;
  }
  target.object = object;
  return true;
}

bool AddText(const Target& target, const std::string& text) {
  const ZtSource source = {kSource, nullptr};
  zt_string* string = ZtMakeString(source, PieceOf(text));
  if (!string) return false;
  if (ZtAdopt(*target.parent, *target.row, string, source) == ZtOutcome::kAdopted) return true;
  ZtRelease(string);
  return false;
}
