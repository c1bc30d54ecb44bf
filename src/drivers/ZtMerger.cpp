#include "drivers/ZtMerger.h"

#include "model/ZtSplice.h"

namespace {

using Kind = ztxml::Change::Kind;
using Told = ZtMerger::Told;

// Conferences can hold conferences: more than that is nobody's.
constexpr int kMostDepth = 100;

const ZtElementType& TypeOf(const ZtField& row) { return ZtStandardOf(*row.detail.type); }
const ZtTelling* TellingOf(const ZtField& row) {
  const bool isObject = row.place == ZtPlace::kChild || row.place == ZtPlace::kChildren;
  return isObject ? TypeOf(row).extras->telling : nullptr;
}
bool IsKeyed(const ZtField& row) {
  return row.place == ZtPlace::kChildren && TellingOf(row) && !TellingOf(row)->key.IsNone();
}
bool IsScalar(const ZtField& row) {
  return row.place == ZtPlace::kAttribute || row.place == ZtPlace::kTextElement ||
         row.place == ZtPlace::kOwnText;
}
// Whether a row says how an element is told, and nothing of what it is.
bool IsOfTelling(const ZtElementType& type, const ZtField& row) {
  const ZtTelling* const telling = type.extras->telling;
  return telling && row.place == ZtPlace::kAttribute &&
         (row.name == telling->state || row.name == telling->version);
}

XMLElement* ChildOf(const XMLElement& object, const ZtField& row) {
  return (object.*row.member.child).Get();
}
ZtChildList& ListOf(XMLElement& object, const ZtField& row) { return object.*row.member.children; }
ZtListNode* FirstOf(const XMLElement& object, const ZtField& row) {
  return row.place == ZtPlace::kOtherAttributes
             ? ZtSplice::First((object.*row.member.attributes).Get())
             : ZtSplice::First((object.*row.member.children).Get());
}
XMLElement& EntryOf(const ZtListNode& node) { return *static_cast<XMLElement*>(node.data); }

// ---- Comparing ----------------------------------------------------------------------------------

bool AreEqual(const XMLElement& a, const XMLElement& b, const ZtElementType& type);

bool AreEqualEntries(const ZtListNode& a, const ZtListNode& b, const ZtField& row) {
  if (row.place == ZtPlace::kOtherAttributes) {
    const auto* one = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(a.data));
    const auto* other = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(b.data));
    return one && other && ZtEqual(one->getName(), other->getName()) &&
           ZtEqual(one->getValue(), other->getValue());
  }
  XMLElement& one = EntryOf(a);
  XMLElement& other = EntryOf(b);
  if (row.place == ZtPlace::kChildren) return AreEqual(one, other, TypeOf(row));
  if (const auto* text = zt_string::From(&one)) {
    const auto* second = zt_string::From(&other);
    return second && ZtEqual(text->getValue(), second->getValue());
  }
  for (const ZtChoice* at = row.detail.choices; at && at->type; ++at) {
    if (!ZtIsClass(one.ClassName(), *at->type)) continue;
    return ZtIsClass(other.ClassName(), *at->type) && AreEqual(one, other, *at->type);
  }
  return false;
}

bool AreEqualLists(const XMLElement& a, const XMLElement& b, const ZtField& row) {
  const ZtListNode* one = FirstOf(a, row);
  const ZtListNode* other = FirstOf(b, row);
  for (; one && other; one = one->next, other = other->next) {
    if (!AreEqualEntries(*one, *other, row)) return false;
  }
  return !one && !other;
}

bool AreEqual(const XMLElement& a, const XMLElement& b, const ZtElementType& type) {
  for (const ZtField& row : type) {
    if (IsScalar(row)) {
      if (!(ZtHeld(a, row) == ZtHeld(b, row))) return false;
    } else if (row.place == ZtPlace::kChild) {
      const XMLElement* one = ChildOf(a, row);
      const XMLElement* other = ChildOf(b, row);
      if (!one != !other || (one && !AreEqual(*one, *other, TypeOf(row)))) return false;
    } else if (row.place != ZtPlace::kOtherChild && !AreEqualLists(a, b, row)) {
      return false;
    }
  }
  return true;
}

}  // namespace

ZtMerger::Told ZtMerger::ToldOf(const XMLElement& element, const ZtElementType& type) {
  const ZtTelling* const telling = type.extras->telling;
  if (!telling) return Told::kAll;
  if (telling->state.IsNone()) return telling->joins ? Told::kPart : Told::kAll;
  const ZtField& row = *ZtFindAttribute(type, telling->state);
  char buffer[kZtNumberSize];
  const ZtPiece text = ZtTextOf(row, ZtHeld(element, row), buffer);
  if (ZtEqual(text, "partial") || ZtEqual(text, "false")) return Told::kPart;
  return ZtEqual(text, "deleted") ? Told::kDeleted : Told::kAll;
}

// ---- What can fail ------------------------------------------------------------------------------

ZtMerger::Result ZtMerger::Replace(XMLElement* known, XMLElement& fresh,
                                   const ZtElementType& type) {
  Result result = Begin(fresh, type);
  if (result != Result::kDone) return result;
  Index(fresh, type);
  NoteReplaced(known, fresh, type);
  result = End(result);
  if (result == Result::kDone && known) Unindex(*known, type);
  return result;
}

ZtMerger::Result ZtMerger::Merge(XMLElement& known, XMLElement& fresh, const ZtElementType& type) {
  Result result = Begin(fresh, type);
  if (result != Result::kDone) return result;
  NoteMerge(known, fresh, type);
  result = End(result);
  if (result == Result::kDone) Apply(known, fresh, type);
  return result;
}

ZtMerger::Result ZtMerger::Begin(XMLElement& fresh, const ZtElementType& type) {
  m_Changes.Cut(0);
  m_Paths.Clear();
  m_Path.Clear();
  m_iEntries = 0;
  m_bNoMemory = m_bTooDeep = false;
  m_Index.BeginRound();
  if (!Prepare(fresh, type, ToldOf(fresh, type) == Told::kPart, 0)) {
    return m_bTooDeep ? Result::kTooDeep : Result::kNoMemory;
  }
  m_Path.Append("/");
  m_Path.Append(type.tag.IsNone() ? ZtPiece(type.label) : type.tag.Piece());
  return m_Index.Reserve(m_iEntries) ? Result::kDone : Result::kNoMemory;
}

ZtMerger::Result ZtMerger::End(Result result) {
  if (!m_bNoMemory && !m_Path.Failed() && !m_Paths.Failed()) return result;
  m_Index.TakeBack();
  m_Changes.Cut(0);
  return Result::kNoMemory;
}

// Has the texts of what is told in part for themselves, since they go to other objects, and counts
// what is to be found by keys.
bool ZtMerger::Prepare(XMLElement& fresh, const ZtElementType& type, bool isPart, int depth) {
  if (depth == kMostDepth) {
    m_bTooDeep = true;
    return false;
  }
  for (const ZtField& row : type) {
    if (isPart && IsScalar(row) && row.value == ZtValue::kText) {
      ZtText& text = fresh.*row.member.text;
      if (text.Get() && !text.Set(text.Piece())) return false;
    }
    if (!TellingOf(row)) continue;
    const ZtElementType& inner = TypeOf(row);
    if (row.place == ZtPlace::kChild) {
      XMLElement* const child = ChildOf(fresh, row);
      const bool part = child && isPart && ToldOf(*child, inner) == Told::kPart;
      if (child && !Prepare(*child, inner, part, depth + 1)) return false;
      continue;
    }
    for (const ZtListNode* node = FirstOf(fresh, row); node; node = node->next) {
      const bool part = isPart && ToldOf(EntryOf(*node), inner) == Told::kPart;
      if (IsKeyed(row)) ++m_iEntries;
      if (!Prepare(EntryOf(*node), inner, part, depth + 1)) return false;
    }
  }
  return true;
}

// ---- Keys ---------------------------------------------------------------------------------------

// All that an element has below it, which is to be known: it tells all from now on.
void ZtMerger::Index(XMLElement& element, const ZtElementType& type) {
  if (ToldOf(element, type) == Told::kPart && !type.extras->telling->joins) {
    ZtClear(element, *ZtFindAttribute(type, type.extras->telling->state));
  }
  for (const ZtField& row : type) {
    if (!TellingOf(row)) continue;
    if (IsKeyed(row)) {
      IndexList(element, row);
    } else if (XMLElement* child = row.place == ZtPlace::kChild ? ChildOf(element, row) : nullptr) {
      if (ToldOf(*child, TypeOf(row)) == Told::kDeleted) {
        (element.*row.member.child).Set(nullptr);
      } else {
        Index(*child, TypeOf(row));
      }
    }
  }
}

void ZtMerger::IndexList(XMLElement& parent, const ZtField& row) {
  ZtSingleElementList* const list = ListOf(parent, row).Get();
  ZtListNode* previous = nullptr;
  ZtListNode* next = nullptr;
  for (ZtListNode* node = ZtSplice::First(list); node; node = next) {
    next = node->next;
    XMLElement& entry = EntryOf(*node);
    if (ToldOf(entry, TypeOf(row)) == Told::kDeleted) {
      ZtSplice::Unhook(*list, previous, *node);
      ZtFree(node);
      ZtRelease(&entry);
      continue;
    }
    m_Index.Add(parent, TypeOf(row), node, previous);
    Index(entry, TypeOf(row));
    previous = node;
  }
}

void ZtMerger::Unindex(XMLElement& element, const ZtElementType& type) {
  for (const ZtField& row : type) {
    if (!TellingOf(row)) continue;
    const ZtElementType& inner = TypeOf(row);
    if (IsKeyed(row)) {
      for (const ZtListNode* node = FirstOf(element, row); node; node = node->next) {
        if (auto* slot = m_Index.FindNode(element, inner, node)) m_Index.Remove(*slot);
        Unindex(EntryOf(*node), inner);
      }
    } else if (XMLElement* child = row.place == ZtPlace::kChild ? ChildOf(element, row) : nullptr) {
      Unindex(*child, inner);
    }
  }
}

// ---- Changes ------------------------------------------------------------------------------------

// A step of the path, as long as it lives.
class ZtMerger::Step {
 public:
  Step(ZtMerger& merger, const ZtField& row, const XMLElement& object)
      : m_Path(merger.m_Path), m_iSize(merger.m_Path.Size()) {
    m_Path.Append("/");
    m_Path.Append(row.name.Piece());
    if (!IsKeyed(row)) return;
    m_Path.Append("[");
    m_Path.Append(ZtKeyOf(object, TypeOf(row)));
    m_Path.Append("]");
  }
  ~Step() { m_Path.Cut(m_iSize); }
  Step(const Step&) = delete;
  Step& operator=(const Step&) = delete;

 private:
  ZtBuffer& m_Path;
  std::size_t m_iSize;
};

void ZtMerger::Note(Kind kind, XMLElement& object) {
  if (!m_Changes.Add({kind, &object, m_Paths.Size()})) m_bNoMemory = true;
  m_Paths.Append(m_Path.Piece());
  m_Paths.Append({"", 1});
}

ztxml::Change ZtMerger::ChangeAt(std::uint32_t index) const {
  const Noted& noted = m_Changes[index];
  return {noted.kind, m_Paths.Text() + noted.path, noted.object};
}

// What changes where all of an element is told anew; `known` null: it is the first.
void ZtMerger::NoteReplaced(XMLElement* known, XMLElement& fresh, const ZtElementType& type) {
  bool isChanged = false;
  for (const ZtField& row : type) {
    if (IsScalar(row)) {
      const bool isSame = !known || ZtHeld(*known, row) == ZtHeld(fresh, row);
      isChanged = isChanged || (!isSame && !IsOfTelling(type, row));
    } else if (row.place == ZtPlace::kChild) {
      NoteChild(known ? ChildOf(*known, row) : nullptr, ChildOf(fresh, row), row);
    } else if (IsKeyed(row)) {
      NoteEntries(known, fresh, row, true);
    } else if (row.place != ZtPlace::kOtherChild) {
      isChanged = isChanged || (known && !AreEqualLists(*known, fresh, row));
    }
  }
  if (isChanged) Note(Kind::kChanged, fresh);
}

// What holds entries goes with them; they are what counts.
void ZtMerger::NoteGone(XMLElement& known, const ZtElementType& type) {
  bool hasEntries = false;
  for (const ZtField& row : type) {
    if (!IsKeyed(row)) continue;
    for (const ZtListNode* node = FirstOf(known, row); node; node = node->next) {
      const Step step(*this, row, EntryOf(*node));
      Note(Kind::kRemoved, EntryOf(*node));
      hasEntries = true;
    }
  }
  if (!hasEntries) Note(Kind::kRemoved, known);
}

// A single child, all of which is told.
void ZtMerger::NoteChild(XMLElement* known, XMLElement* fresh, const ZtField& row) {
  if (!known && !fresh) return;
  const Step step(*this, row, fresh ? *fresh : *known);
  const bool isMore = TellingOf(row) != nullptr;
  if (!fresh) return isMore ? NoteGone(*known, TypeOf(row)) : Note(Kind::kRemoved, *known);
  if (isMore) return NoteReplaced(known, *fresh, TypeOf(row));
  if (!known) return Note(Kind::kAdded, *fresh);
  if (!AreEqual(*known, *fresh, TypeOf(row))) Note(Kind::kChanged, *fresh);
}

// What changes where a part of an element is told. What it will have from now on gets its keys.
void ZtMerger::NoteMerge(XMLElement& known, XMLElement& fresh, const ZtElementType& type) {
  bool isChanged = false;
  for (const ZtField& row : type) {
    if (IsScalar(row)) {
      const ZtStated told = ZtHeld(fresh, row);
      const bool isNew = told.stated && !(ZtHeld(known, row) == told);
      isChanged = isChanged || (isNew && !IsOfTelling(type, row));
    } else if (row.place == ZtPlace::kChild) {
      XMLElement* const before = ChildOf(known, row);
      XMLElement* const child = ChildOf(fresh, row);
      if (!child) continue;
      const Told how = ToldOf(*child, TypeOf(row));
      if (how == Told::kPart && before) {
        const Step step(*this, row, *child);
        NoteMerge(*before, *child, TypeOf(row));
      } else {
        if (TellingOf(row) && how != Told::kDeleted) Index(*child, TypeOf(row));
        NoteChild(before, how == Told::kDeleted ? nullptr : child, row);
      }
    } else if (IsKeyed(row)) {
      NoteEntries(&known, fresh, row, false);
    } else if (row.place != ZtPlace::kOtherChild && FirstOf(fresh, row)) {
      isChanged = isChanged || !AreEqualLists(known, fresh, row);
    }
  }
  if (isChanged) Note(Kind::kChanged, known);
}

// `replaces`: all entries are told, and have their keys.
void ZtMerger::NoteEntries(XMLElement* known, XMLElement& fresh, const ZtField& row,
                           bool replaces) {
  const ZtElementType& inner = TypeOf(row);
  for (const ZtListNode* node = FirstOf(fresh, row); node; node = node->next) {
    XMLElement& entry = EntryOf(*node);
    const auto* const slot = known ? m_Index.Find(*known, inner, ZtKeyOf(entry, inner)) : nullptr;
    XMLElement* const before = slot ? &ZtKeyIndex::Entry(*slot) : nullptr;
    const Told how = replaces ? Told::kAll : ToldOf(entry, inner);
    const Step step(*this, row, entry);
    if (how == Told::kDeleted) {
      if (before) Note(Kind::kRemoved, *before);
    } else if (how == Told::kPart && before) {
      NoteMerge(*before, entry, inner);
    } else {
      if (!replaces) Index(entry, inner);
      if (before) {
        NoteReplaced(before, entry, inner);
      } else {
        Note(Kind::kAdded, entry);
      }
    }
  }
  if (!replaces || !known) return;
  for (const ZtListNode* node = FirstOf(*known, row); node; node = node->next) {
    XMLElement& entry = EntryOf(*node);
    if (m_Index.Find(fresh, inner, ZtKeyOf(entry, inner))) continue;
    const Step step(*this, row, entry);
    Note(Kind::kRemoved, entry);
  }
}

// ---- What cannot fail ---------------------------------------------------------------------------

void ZtMerger::Apply(XMLElement& known, XMLElement& fresh, const ZtElementType& type) {
  for (const ZtField& row : type) {
    if (IsScalar(row)) {
      const bool isState = IsOfTelling(type, row) && row.name == type.extras->telling->state;
      if (!ZtHeld(fresh, row).stated || isState) continue;
      if (row.value == ZtValue::kText) {
        (known.*row.member.text).Swap(fresh.*row.member.text);
      } else {
        ZtKeep(known, row, ZtHeld(fresh, row), nullptr);
      }
    } else if (row.place == ZtPlace::kChild || row.place == ZtPlace::kOtherChild) {
      XMLElement* const before = ChildOf(known, row);
      XMLElement* const child = ChildOf(fresh, row);
      if (!child) continue;
      const Told how = TellingOf(row) ? ToldOf(*child, TypeOf(row)) : Told::kAll;
      if (how == Told::kPart && before) {
        Apply(*before, *child, TypeOf(row));
        continue;
      }
      if (before && TellingOf(row)) Unindex(*before, TypeOf(row));
      if (how == Told::kDeleted) (fresh.*row.member.child).Set(nullptr);
      (known.*row.member.child).Swap(fresh.*row.member.child);
    } else if (IsKeyed(row)) {
      ApplyEntries(known, fresh, row);
    } else if (FirstOf(fresh, row)) {
      if (row.place == ZtPlace::kOtherAttributes) {
        (known.*row.member.attributes).Swap(fresh.*row.member.attributes);
      } else {
        ListOf(known, row).Swap(ListOf(fresh, row));
      }
    }
  }
}

void ZtMerger::ApplyEntries(XMLElement& known, XMLElement& fresh, const ZtField& row) {
  const ZtElementType& inner = TypeOf(row);
  // A list that is not there cannot be made: the other one comes, and its entries as they are told.
  if (!ListOf(known, row).Get()) ListOf(known, row).Swap(ListOf(fresh, row));
  ZtSingleElementList* const list = ListOf(known, row).Get();
  ZtSingleElementList* const told = ListOf(fresh, row).Get() ? ListOf(fresh, row).Get() : list;
  ZtListNode* previous = nullptr;  // in `told`, of the node
  ZtListNode* next = nullptr;
  for (ZtListNode* node = ZtSplice::First(told); node; node = next) {
    next = node->next;
    XMLElement& entry = EntryOf(*node);
    auto* const slot = m_Index.Find(known, inner, ZtKeyOf(entry, inner));
    XMLElement* const before = slot ? &ZtKeyIndex::Entry(*slot) : nullptr;
    const Told how = ToldOf(entry, inner);
    if (told == list) {
      if (how == Told::kDeleted) {
        ZtSplice::Unhook(*list, previous, *node);
        ZtFree(node);
        ZtRelease(&entry);
        continue;
      }
      m_Index.Add(known, inner, node, previous);
    } else if (how == Told::kDeleted) {
      if (before) {
        ZtListNode& gone = *slot->node;
        Unindex(*before, inner);
        if (gone.next) m_Index.FindNode(known, inner, gone.next)->previous = slot->previous;
        ZtSplice::Unhook(*list, slot->previous, gone);
        m_Index.Remove(*slot);
        // It lives on with what is not kept.
        ZtSplice::HookFirst(*told, gone);
        if (!previous) previous = &gone;
      }
    } else if (how == Told::kPart && before) {
      Apply(*before, entry, inner);
    } else if (before) {
      Unindex(*before, inner);
      std::swap(slot->node->data, node->data);
    } else {
      ZtSplice::Unhook(*told, previous, *node);
      ZtListNode* const last = ZtSplice::Last(*list);
      ZtSplice::HookLast(*list, *node);
      m_Index.Add(known, inner, node, last);
      continue;
    }
    previous = node;
  }
}
