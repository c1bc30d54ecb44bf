#include "drivers/ZtMerger.h"

#include <algorithm>

#include "model/ZtSplice.h"

namespace {

using Kind = ztxml::Change::Kind;

// Conferences can hold conferences: more than that is nobody's.
constexpr int kMostDepth = 100;
constexpr std::size_t kMostPath = 1000;

const ZtElementType& TypeOf(const ZtField& row) { return ZtStandardOf(*row.detail.type); }
const ZtTelling* TellingOf(const ZtField& row) {
  const bool isObject = row.place == ZtPlace::kChild || row.place == ZtPlace::kChildren;
  return isObject ? TypeOf(row).extras->telling : nullptr;
}
bool IsKeyed(const ZtField& row) {
  return row.place == ZtPlace::kChildren && TellingOf(row) && !TellingOf(row)->key.IsNone();
}
// Whether a row of objects has children of its own that are told in parts.
bool IsTold(const ZtField& row) { return row.place == ZtPlace::kChild && TellingOf(row); }
bool IsScalar(const ZtField& row) {
  return row.place == ZtPlace::kAttribute || row.place == ZtPlace::kTextElement ||
         row.place == ZtPlace::kOwnText;
}
// One out of a choice: no document that is told in parts has such a row.
bool IsChoice(const ZtField& row) { return row.place == ZtPlace::kOtherChild; }
// Whether a row says how an element is told, and nothing of what it is.
bool IsOf(ZtNameId ZtTelling::*what, const ZtElementType& type, const ZtField& row) {
  const ZtTelling* const telling = type.extras->telling;
  return telling && row.place == ZtPlace::kAttribute && row.name == telling->*what;
}

ZtChild& ChildOf(XMLElement& object, const ZtField& row) { return row.Child(object); }
ZtListNode* FirstOf(const XMLElement& object, const ZtField& row) {
  return row.place == ZtPlace::kOtherAttributes ? ZtSplice::First(row.Attributes(object).Get())
                                                : ZtSplice::First(row.Children(object).Get());
}
XMLElement& EntryOf(const ZtListNode& node) { return *static_cast<XMLElement*>(node.data); }

// Deletes an entry with its node.
void Drop(ZtSingleElementList& list, ZtListNode* previous, ZtListNode& node) {
  ZtSplice::Unhook(list, previous, node);
  ZtRelease(&EntryOf(node));
  ZtFree(&node);
}

bool Differ(XMLElement* one, XMLElement* other, const ZtElementType& type);

// Whether entries of two lists without keys are different.
bool AreOther(const ZtListNode& a, const ZtListNode& b, const ZtField& row) {
  if (!a.data || !b.data) return true;
  if (row.place == ZtPlace::kOtherAttributes) {
    const auto* one = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(a.data));
    const auto* other = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(b.data));
    return !one || !other || !ZtEqual(one->getName(), other->getName()) ||
           !ZtEqual(one->getValue(), other->getValue());
  }
  const zt_string* const text = zt_string::From(&EntryOf(a));
  const zt_string* const second = zt_string::From(&EntryOf(b));
  if (text || second) return !text || !second || !ZtEqual(text->getValue(), second->getValue());
  const ZtElementType* const type = ZtMatchObject(row, kZtNoSpace, EntryOf(a)).type;
  return !type || Differ(&EntryOf(a), &EntryOf(b), *type);
}

bool RowsDiffer(XMLElement& one, XMLElement& other, const ZtField& row) {
  if (IsChoice(row)) return false;
  if (IsScalar(row)) return !(ZtHeld(one, row) == ZtHeld(other, row));
  if (row.place == ZtPlace::kChild) {
    return Differ(ChildOf(one, row).Get(), ChildOf(other, row).Get(), TypeOf(row));
  }
  const ZtListNode* a = FirstOf(one, row);
  const ZtListNode* b = FirstOf(other, row);
  for (; a && b && !AreOther(*a, *b, row); a = a->next) b = b->next;
  return a || b;
}

// Whether elements that are told as one differ.
bool Differ(XMLElement* one, XMLElement* other, const ZtElementType& type) {
  if (!one || !other) return one != other;
  if (!ZtIsClass(one->ClassName(), type) || !ZtIsClass(other->ClassName(), type)) return true;
  for (const ZtField& row : type) {
    if (!IsOf(&ZtTelling::state, type, row) && RowsDiffer(*one, *other, row)) return true;
  }
  return false;
}

}  // namespace

// A step of the path, as long as it lives. What is inside of what is told as one has none.
class ZtMerger::Step {
 public:
  Step(ZtMerger& merger, const ZtField& row, const XMLElement* object)
      : m_Path(merger.m_Path), m_iSize(merger.m_Path.Size()) {
    if (merger.m_bApplies) return;
    m_Path.Append("/");
    m_Path.Append(row.name.Piece());
    if (!IsKeyed(row)) return;
    m_Path.Append("[");
    m_Path.Append(ZtKeyOf(*object, TypeOf(row)));
    m_Path.Append("]");
  }
  ~Step() { m_Path.Cut(m_iSize); }
  Step(const Step&) = delete;
  Step& operator=(const Step&) = delete;

 private:
  ZtBuffer& m_Path;
  std::size_t m_iSize;
};

ZtMerger::Told ZtMerger::ToldOf(const XMLElement& element, const ZtElementType& type) {
  const ZtTelling* const telling = type.extras->telling;
  if (!telling) return Told::kAll;
  if (telling->state.IsNone()) return telling->joins ? Told::kPart : Told::kAll;
  const ZtField& row = *ZtFindAttribute(type, telling->state);
  char buffer[kZtNumberSize];
  const ZtPiece text = ZtTextHeld(element, row, buffer);
  if (ZtEqual(text, "partial") || ZtEqual(text, "false")) return Told::kPart;
  return ZtEqual(text, "deleted") ? Told::kDeleted : Told::kAll;
}

ZtMerger::Result ZtMerger::Take(XMLElement*& known, XMLElement*& fresh, const ZtElementType& type) {
  const bool isPart = known && ToldOf(*fresh, type) == Told::kPart;
  ForgetChanges();
  m_Paths.Clear();
  m_Path.Clear();
  m_iEntries = 0;
  m_bNoMemory = m_bOdd = m_bApplies = false;
  // What is below a deleted one is not to be looked at.
  if (ToldOf(*fresh, type) == Told::kDeleted) {
    for (const ZtField& row : type) {
      if (row.place == ZtPlace::kChild) ChildOf(*fresh, row).Set(nullptr);
    }
  }
  if (!Prepare(*fresh, type, isPart, 0) || !m_Index.Begin(m_iEntries)) {
    return m_bOdd ? Result::kRefused : Result::kNoMemory;
  }
  m_Path.Append("/");
  m_Path.Append(type.tag.Piece());
  if (isPart) {
    Merge(*known, *fresh, type);
  } else if (Compare(known, *fresh, type)) {
    Note(Kind::kChanged, *fresh);
  }
  if (m_bNoMemory || m_Path.Failed() || m_Paths.Failed()) {
    ForgetChanges();
    return Result::kNoMemory;
  }
  m_bApplies = true;
  if (isPart) {
    Merge(*known, *fresh, type);
  } else {
    if (known) Unindex(*known, type);
    Index(*fresh, type);
    std::swap(known, fresh);
  }
  return Result::kDone;
}

// Has the texts of what is told in part for themselves, since they go to other objects, and counts
// what is to be found by keys.
bool ZtMerger::Prepare(XMLElement& fresh, const ZtElementType& type, bool isPart, int depth) {
  m_bOdd = depth == kMostDepth;
  if (m_bOdd) return false;
  for (const ZtField& row : type) {
    if (isPart && IsScalar(row) && row.value == ZtValue::kText) {
      ZtText& text = row.Text(fresh);
      if (text.Get() && !text.Set(text.Piece())) return false;
    }
    const auto prepare = [&](XMLElement& inner) {
      const bool part = isPart && ToldOf(inner, TypeOf(row)) == Told::kPart;
      return Prepare(inner, TypeOf(row), part, depth + 1);
    };
    if (IsTold(row)) {
      XMLElement* const child = ChildOf(fresh, row).Get();
      if (child && !prepare(*child)) return false;
    }
    for (ZtListNode* node = IsKeyed(row) ? FirstOf(fresh, row) : nullptr; node; node = node->next) {
      ++m_iEntries;
      m_bOdd = !node->data || !ZtIsClass(EntryOf(*node).ClassName(), TypeOf(row));
      if (m_bOdd) return false;
      if (!prepare(EntryOf(*node))) return false;
    }
  }
  return true;
}

// ---- Keys ---------------------------------------------------------------------------------------

// Of all that an element has below it. What it did not tell, it has not: it tells all from now on.
void ZtMerger::Index(XMLElement& element, const ZtElementType& type) {
  for (const ZtField& row : type) {
    if (IsOf(&ZtTelling::state, type, row) && ToldOf(element, type) == Told::kPart) {
      ZtClear(element, row);
    } else if (IsKeyed(row)) {
      IndexList(element, row);
    } else if (XMLElement* child = IsTold(row) ? ChildOf(element, row).Get() : nullptr) {
      if (ToldOf(*child, TypeOf(row)) == Told::kDeleted) {
        ChildOf(element, row).Set(nullptr);
      } else {
        Index(*child, TypeOf(row));
      }
    }
  }
}

void ZtMerger::IndexList(XMLElement& parent, const ZtField& row) {
  ZtSingleElementList* const list = row.Children(parent).Get();
  ZtListNode* previous = nullptr;
  ZtListNode* next = nullptr;
  for (ZtListNode* node = ZtSplice::First(list); node; node = next) {
    next = node->next;
    XMLElement& entry = EntryOf(*node);
    if (ToldOf(entry, TypeOf(row)) == Told::kDeleted) {
      Drop(*list, previous, *node);
      continue;
    }
    m_Index.Add(parent, TypeOf(row), *node, previous);
    Index(entry, TypeOf(row));
    previous = node;
  }
}

void ZtMerger::Unindex(const XMLElement& element, const ZtElementType& type) {
  for (const ZtField& row : type) {
    if (IsTold(row)) {
      const XMLElement* const child = row.Child(element).Get();
      if (child) Unindex(*child, TypeOf(row));
    }
    for (ZtListNode* node = IsKeyed(row) ? FirstOf(element, row) : nullptr; node;
         node = node->next) {
      if (auto* slot = m_Index.Find(element, TypeOf(row), *node)) m_Index.Remove(*slot);
      Unindex(EntryOf(*node), TypeOf(row));
    }
  }
}

// ---- What is told in part -----------------------------------------------------------------------

void ZtMerger::Merge(XMLElement& known, XMLElement& fresh, const ZtElementType& type) {
  bool isChanged = false;
  for (const ZtField& row : type) {
    if (IsOf(&ZtTelling::state, type, row) || IsChoice(row)) continue;
    if (row.place == ZtPlace::kChild) {
      MergeChild(known, fresh, row);
    } else if (IsKeyed(row)) {
      MergeEntries(known, fresh, row);
    } else if (IsScalar(row)) {
      const ZtStated told = ZtHeld(fresh, row);
      if (!told.stated || ZtHeld(known, row) == told) continue;
      isChanged = isChanged || !IsOf(&ZtTelling::version, type, row);
      if (m_bApplies && row.value == ZtValue::kText) {
        row.Text(known).Swap(row.Text(fresh));
      } else if (m_bApplies) {
        ZtKeep(known, row, told, nullptr);
      }
    } else if (FirstOf(fresh, row)) {
      isChanged = isChanged || m_bApplies || RowsDiffer(known, fresh, row);
      if (m_bApplies && row.place == ZtPlace::kOtherAttributes) {
        row.Attributes(known).Swap(row.Attributes(fresh));
      } else if (m_bApplies) {
        row.Children(known).Swap(row.Children(fresh));
      }
    }
  }
  if (isChanged && !m_bApplies) Note(Kind::kChanged, known);
}

void ZtMerger::MergeChild(XMLElement& known, XMLElement& fresh, const ZtField& row) {
  XMLElement* const before = ChildOf(known, row).Get();
  XMLElement* const child = ChildOf(fresh, row).Get();
  if (!child) return;
  const Told how = TellingOf(row) ? ToldOf(*child, TypeOf(row)) : Told::kAll;
  const bool isDeleted = how == Told::kDeleted;
  if (how == Told::kPart && before) {
    const Step step(*this, row, child);
    Merge(*before, *child, TypeOf(row));
  } else if (!m_bApplies) {
    CompareChild(before, isDeleted ? nullptr : child, row);
  } else {
    if (before && IsTold(row)) Unindex(*before, TypeOf(row));
    if (isDeleted) {
      ChildOf(fresh, row).Set(nullptr);
    } else if (IsTold(row)) {
      Index(*child, TypeOf(row));
    }
    ChildOf(known, row).Swap(ChildOf(fresh, row));
  }
}

void ZtMerger::MergeEntries(XMLElement& known, XMLElement& fresh, const ZtField& row) {
  const ZtElementType& inner = TypeOf(row);
  ZtChildList& told = row.Children(fresh);
  ZtChildList& list = row.Children(known);
  // A list cannot be made here: where there was none, the one that is told comes as a whole.
  if (m_bApplies && !list.Get()) {
    list.Swap(told);
    return IndexList(known, row);
  }
  ZtListNode* previous = nullptr;  // the node before, in the list that is told
  ZtListNode* next = nullptr;
  for (ZtListNode* node = FirstOf(fresh, row); node; node = next) {
    next = node->next;
    XMLElement& entry = EntryOf(*node);
    auto* const slot = m_Index.Find(known, inner, ZtKeyOf(entry, inner));
    XMLElement* const before = slot ? &EntryOf(*slot->node) : nullptr;
    const Told how = ToldOf(entry, inner);
    // What is told twice is noted once: its cost must not grow with what is known of it.
    if (!m_bApplies && slot) {
      if (m_Index.IsMarked(*slot)) continue;
      m_Index.Mark(*slot);
    }
    if (how == Told::kPart && before) {
      const Step step(*this, row, &entry);
      Merge(*before, entry, inner);
    } else if (!m_bApplies) {
      const Step step(*this, row, &entry);
      if (how != Told::kDeleted) {
        CompareEntry(before, entry, row);
      } else if (before) {
        Note(Kind::kRemoved, *before);
      }
    } else if (how == Told::kDeleted) {
      if (before) {
        ZtListNode& gone = *slot->node;
        Unindex(*before, inner);
        auto* const after = gone.next ? m_Index.Find(known, inner, *gone.next) : nullptr;
        if (after) after->previous = slot->previous;
        m_Index.Remove(*slot);
        std::swap(gone.data, node->data);  // it lives on with what is not kept
        Drop(*list.Get(), slot->previous, gone);
      }
    } else if (before) {
      Unindex(*before, inner);
      Index(entry, inner);
      std::swap(slot->node->data, node->data);
    } else {
      ZtSplice::Unhook(*told.Get(), previous, *node);
      m_Index.Add(known, inner, *node, ZtSplice::Last(*list.Get()));
      ZtSplice::HookLast(*list.Get(), *node);
      Index(entry, inner);
      continue;
    }
    previous = node;
  }
}

// ---- What is told as a whole --------------------------------------------------------------------

void ZtMerger::Note(Kind kind, XMLElement& object) {
  if (!m_Changes.Add({kind, &object, m_Paths.Size()})) m_bNoMemory = true;
  // Keys may be of any length, and are in the path of each change below them.
  m_Paths.Append({m_Path.Text(), std::min(m_Path.Size(), kMostPath)});
  m_Paths.Append({"", 1});
}

ztxml::Change ZtMerger::ChangeAt(std::uint32_t index) const {
  const Noted& noted = m_Changes[index];
  return {noted.kind, m_Paths.Text() + noted.path, noted.object};
}

// Whether an element itself differs from what is known of it. What differs below it is noted.
bool ZtMerger::Compare(XMLElement* known, XMLElement& fresh, const ZtElementType& type) {
  bool differs = false;
  for (const ZtField& row : type) {
    if (IsOf(&ZtTelling::state, type, row) || IsOf(&ZtTelling::version, type, row)) continue;
    if (row.place == ZtPlace::kChild) {
      XMLElement* const child = ChildOf(fresh, row).Get();
      const bool isThere = child && !(IsTold(row) && ToldOf(*child, TypeOf(row)) == Told::kDeleted);
      CompareChild(known ? ChildOf(*known, row).Get() : nullptr, isThere ? child : nullptr, row);
    } else if (IsKeyed(row)) {
      CompareEntries(known, &fresh, row);
    } else if (known) {
      differs = differs || RowsDiffer(*known, fresh, row);
    }
  }
  return differs;
}

// Those of elements that are told in parts are noted.
void ZtMerger::CompareChild(XMLElement* known, XMLElement* fresh, const ZtField& row) {
  if (!known && !fresh) return;
  const Step step(*this, row, fresh);
  const auto count = m_Changes.Size();
  bool differs = !known || !fresh;
  if (IsTold(row)) {
    if (fresh && Compare(known, *fresh, TypeOf(row))) Note(Kind::kChanged, *fresh);
    for (const ZtField& inner : TypeOf(row)) {
      if (!fresh && IsKeyed(inner)) CompareEntries(known, nullptr, inner);
    }
    differs = differs && m_Changes.Size() == count;
  } else {
    differs = Differ(known, fresh, TypeOf(row));
  }
  if (!differs) return;
  Note(!known ? Kind::kAdded : !fresh ? Kind::kRemoved : Kind::kChanged, fresh ? *fresh : *known);
}

void ZtMerger::CompareEntry(XMLElement* known, XMLElement& fresh, const ZtField& row) {
  if (!known) return Note(Kind::kAdded, fresh);
  if (Compare(known, fresh, TypeOf(row))) Note(Kind::kChanged, fresh);
}

// All entries are told: those that are not were removed. `fresh` null: none is.
void ZtMerger::CompareEntries(XMLElement* known, XMLElement* fresh, const ZtField& row) {
  const ZtElementType& inner = TypeOf(row);
  for (ZtListNode* node = fresh ? FirstOf(*fresh, row) : nullptr; node; node = node->next) {
    XMLElement& entry = EntryOf(*node);
    if (ToldOf(entry, inner) == Told::kDeleted) continue;
    auto* const slot = known ? m_Index.Find(*known, inner, ZtKeyOf(entry, inner)) : nullptr;
    if (slot && m_Index.IsMarked(*slot)) continue;  // told twice
    if (slot) m_Index.Mark(*slot);
    const Step step(*this, row, &entry);
    CompareEntry(slot ? &EntryOf(*slot->node) : nullptr, entry, row);
  }
  for (ZtListNode* node = known ? FirstOf(*known, row) : nullptr; node; node = node->next) {
    auto* const slot = m_Index.Find(*known, inner, *node);
    if (!slot || m_Index.IsMarked(*slot)) continue;
    const Step step(*this, row, &EntryOf(*node));
    Note(Kind::kRemoved, EntryOf(*node));
  }
}
