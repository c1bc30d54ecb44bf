#include "binding/ZtUpdater.h"

#include "text/ZtEscape.h"

namespace {

const XMLElement* ItemOf(const ZtListNode* node) {
  return static_cast<const XMLElement*>(node->data);
}

ZtPiece TextOf(const XMLElement& item) {
  const auto* text = zt_string::From(const_cast<XMLElement*>(&item));
  return text ? text->getValue() : nullptr;
}

// The name in the start tag that begins at `tag`.
ZtPiece NameAt(const char* tag) {
  std::size_t size = 0;
  while (!ZtIsBlank(tag[1 + size]) && tag[1 + size] != '/' && tag[1 + size] != '>') ++size;
  return {tag + 1, size};
}

// Whether an object has nothing in a row that the source could lack: so it is with most rows.
inline bool IsEmpty(const XMLElement& object, const ZtField& row) {
  if (row.IsOwnText()) return true;
  switch (row.value) {
    case ZtValue::kText: {
      if (row.place != ZtPlace::kTextElement) return !row.Children(object).Get();
      const ZtText& text = row.Text(object);
      return !text.Get() && !text.IsLost();
    }
    case ZtValue::kObject:
      return ZtIsSingle(row) ? !row.Child(object).Get() : !row.Children(object).Get();
    default:
      return false;
  }
}

}  // namespace

ZtUpdater::ZtUpdater(const ZtSourceText& source, ZtBuffer& to)
    : m_Source(source), m_Text(source.Text()), m_To(to), m_Xml(kZtSpaceUris, kZtKnownSpaces) {}

ZtUpdater::~ZtUpdater() {
  __free(m_pWork);
  __free(m_pSlots);
  __free(m_pKept);
}

bool ZtUpdater::Write(XMLElement& root) {
  m_pWork = static_cast<char*>(__malloc(m_Text.size + 1));
  m_pKept = static_cast<char*>(__calloc(m_Source.parts.Size() + 1, 1));
  if (!m_pWork || !m_pKept) return false;
  std::memcpy(m_pWork, m_Text.text, m_Text.size);
  m_pWork[m_Text.size] = '\0';
  m_Xml.Begin(m_pWork, m_Text.size);
  if (m_Xml.Next() != ZtToken::kStart || !StartRoot(root)) return false;
  bool done = true;
  while (done) {
    switch (m_Xml.Next()) {
      case ZtToken::kStart:
        done = Start();
        break;
      case ZtToken::kText:
        done = Text();
        break;
      case ZtToken::kEnd:
        done = End();
        break;
      case ZtToken::kDone:
        CopyTo(m_Text.size);
        return !m_To.Failed() && !m_New.Failed() && !m_bNoMemory;
      case ZtToken::kFailed:  // for lack of memory: the text was read before
        return false;
    }
  }
  return false;
}

// ---- Parts --------------------------------------------------------------------------------------

bool ZtUpdater::Index() {
  const std::uint32_t count = m_Source.parts.Size();
  std::uint32_t slots = 16;
  while (slots < 2 * count) slots *= 2;
  m_pSlots = static_cast<std::uint32_t*>(__calloc(slots, sizeof(*m_pSlots)));
  if (!m_pSlots) return false;
  m_iMask = slots - 1;
  for (std::uint32_t i = 0; i < count; ++i) {
    std::uint32_t at = Slot(m_Source.parts[i].object);
    while (m_pSlots[at]) at = (at + 1) & m_iMask;
    m_pSlots[at] = i + 1;
  }
  return true;
}

// Objects lie in a few blocks, at addresses that nobody chooses.
std::uint32_t ZtUpdater::Slot(const void* object) const {
  std::uint64_t hash = reinterpret_cast<std::uintptr_t>(object);
  // Twice, because they lie at equal distances, which one product leaves equal.
  for (int i = 0; i < 2; ++i) hash = (hash ^ (hash >> 32)) * 0x9E3779B97F4A7C15U;
  return static_cast<std::uint32_t>(hash >> 32) & m_iMask;
}

// The part of an object that is still where it was read, in `row` of the element; kNone for others.
// Mostly it is the `likely` one: a table of all is made when one is not.
std::uint32_t ZtUpdater::PartOf(const Frame& frame, const ZtField& row, const void* object,
                                std::uint32_t likely) {
  const auto isIn = [&](const Part& part) { return part.parent == frame.part && part.row == &row; };
  if (likely < m_Source.parts.Size() && m_Source.parts[likely].object == object) {
    return isIn(m_Source.parts[likely]) ? likely : kNone;
  }
  if (!m_pSlots && !Index()) {
    m_bNoMemory = true;
    return kNone;
  }
  for (std::uint32_t at = Slot(object); m_pSlots[at]; at = (at + 1) & m_iMask) {
    const std::uint32_t index = m_pSlots[at] - 1;
    if (m_Source.parts[index].object == object) return isIn(m_Source.parts[index]) ? index : kNone;
  }
  return kNone;
}

// Likewise of a child; a flag that has got another name is another element.
std::uint32_t ZtUpdater::PartOfChild(const Frame& frame, const ZtField& row,
                                     const XMLElement& child, std::uint32_t likely) {
  const std::uint32_t index = PartOf(frame, row, &child, likely);
  if (index == kNone || !ZtIsFlag(child)) return index;
  const ZtPiece name = static_cast<const zt_empty_element_type&>(child).getValue();
  const ZtPiece local = ZtLocalIn(NameAt(m_Text.text + m_Source.parts[index].from));
  return ZtEqual(name, local) ? index : kNone;
}

// ---- Starts -------------------------------------------------------------------------------------

bool ZtUpdater::StartRoot(XMLElement& root) {
  m_bPlain = m_Xml.Name().space == kZtNoSpace;
  const ZtSpace own = ZtSpaceOf(*m_Source.document);
  for (const ZtRoot& known : m_Source.document->roots) {
    if (!known.name.Is(m_Xml.Name().local)) continue;
    ZtMatch match;
    match.type = &ZtStandardOf(*known.type);
    match.inside = match.type->space ? ZtSpace{match.type->space} : own;
    return Enter(match, &root, 0);
  }
  return false;
}

bool ZtUpdater::Start() {
  if (m_iSkipped) {
    ++m_iSkipped;
    return true;
  }
  Frame& parent = m_Frames.Last();
  const ZtXmlName& name = m_Xml.Name();
  ZtMatch match;
  if (parent.type) {
    match = ZtMatchChild(*parent.type, parent.next, parent.space, name.space, name.local, m_bPlain);
  }
  if (match.row) return ZtIsSingle(*match.row) ? StartSingle(match) : StartEntry(match);
  m_iSkipped = 1;
  m_bDrops = false;
  return true;
}

bool ZtUpdater::StartSingle(const ZtMatch& match) {
  Frame& parent = m_Frames.Last();
  const ZtField& row = *match.row;
  const std::uint64_t bit = ZtRowBit(*parent.type, row);
  const bool isText = row.place == ZtPlace::kTextElement;
  XMLElement* const held = isText ? parent.object : row.Child(*parent.object).Get();
  const bool isThere =
      isText ? ZtHeld(*held, row).stated : held && ZtStandardWriter::IsThere(*held);
  // Of several the first was read. When it goes, so do all.
  if (parent.taken & bit) {
    m_iSkipped = 1;
    m_bDrops = (parent.gone & bit) != 0;
    m_iDropped = m_Xml.From();
    return true;
  }
  parent.taken |= bit;
  Flush(parent, &row);
  if (isText) return Enter(match, held, kNone);
  if (isThere && PartOfChild(parent, row, *held, m_iPart) == m_iPart) {
    return Enter(match, held, m_iPart);
  }
  // Another one has come in its place, or none.
  const Part& part = m_Source.parts[m_iPart];
  if (isThere) {
    CopyTo(part.from);
    FlushRow(parent, row);
    SkipTo(part.to);
  } else {
    parent.gone |= bit;
    Remove(part.from, part.to);
  }
  parent.last = part.to;
  Pass(m_iPart);
  return true;
}

// An entry of a list. The places that its entries had are filled, in the list's order, with those
// that it still has.
bool ZtUpdater::StartEntry(const ZtMatch& match) {
  Frame& parent = m_Frames.Last();
  const ZtField& row = *match.row;
  const std::uint32_t slot = m_iPart;
  const Part& here = m_Source.parts[slot];
  RowState& state = StateOf(parent, row);
  Flush(parent, &row);
  if (m_pKept[slot] && state.node && state.node->data == here.object) {  // mostly nothing has moved
    auto* const entry = static_cast<XMLElement*>(state.node->data);
    state.node = state.node->next;
    return Enter(match, entry, slot);
  }
  FlushRow(parent, row);
  if (!m_pKept[slot]) {
    Remove(here.from, here.to);
    parent.last = here.to;
    Pass(slot);
    return true;
  }
  if (m_bNoMemory || !state.node) return false;
  auto* const object = static_cast<XMLElement*>(state.node->data);
  const std::uint32_t index = PartOf(parent, row, object, slot);
  if (m_bNoMemory) return false;
  state.node = state.node->next;
  if (index == slot) return Enter(match, object, slot);
  // Another one of the source comes here. It is read now, and its own place filled or passed over
  // later; the tag here may be read again.
  const Part& there = m_Source.parts[index];
  CopyTo(here.from);
  SkipTo(there.from);
  Restore(here.from, m_Xml.To());
  m_Xml.Resume(there.from);
  m_iPart = index;
  if (m_Xml.Next() != ZtToken::kStart) return false;
  const ZtXmlName& name = m_Xml.Name();
  return Enter(
      ZtMatchChild(*parent.type, parent.next, parent.space, name.space, name.local, m_bPlain),
      object, slot);
}

// Goes into the element that was started: `slot` is the part in whose place it is written, kNone
// for one that is no part.
bool ZtUpdater::Enter(const ZtMatch& match, XMLElement* object, std::uint32_t slot) {
  Frame* const added = m_Frames.AddNew();
  if (!added) return false;
  Frame& frame = *added;
  frame.object = object;
  frame.type = match.type;
  if (match.type) frame.next = match.type->children();
  frame.row = match.row;
  frame.space = match.inside;
  frame.part = slot == kNone ? kNone : m_iPart++;
  frame.slot = slot;
  frame.from = m_Xml.From();
  frame.content = frame.last = m_Xml.To();
  frame.rows = m_Rows.Size();
  frame.pending = m_Pending.Size();
  frame.texts = m_Texts.Size();
  frame.fresh = m_New.Size();
  frame.isEmpty = m_Xml.IsEmpty();
  return !frame.type || (Prepare(frame) && Attributes(frame));
}

// Passes over the element that was started.
void ZtUpdater::Pass(std::uint32_t part) {
  m_iPart = m_Source.parts[part].next;
  m_Xml.Resume(m_Source.parts[part].to);
}

// Undoes what reading did to the text.
void ZtUpdater::Restore(std::size_t from, std::size_t to) {
  std::memcpy(m_pWork + from, m_Text.text + from, to - from);
}

// ---- Texts and ends -----------------------------------------------------------------------------

bool ZtUpdater::Text() {
  if (m_iSkipped) return true;
  Frame& frame = m_Frames.Last();
  if (frame.type && !frame.type->rows.takesText) return true;
  frame.run.Add(m_Xml.Text());
  return m_Texts.Add({m_Xml.From(), m_Xml.To()});
}

bool ZtUpdater::End() {
  const std::size_t to = m_Xml.To();
  if (m_iSkipped) {
    if (--m_iSkipped == 0 && m_bDrops) Remove(m_iDropped, to);
    return true;
  }
  Frame& frame = m_Frames.Last();
  if (!(frame.type ? EndObject(frame) : EndLeaf(frame))) return false;
  if (frame.isExpanded) {  // the source has no end tag
    m_To.Append("</");
    m_To.Append(NameOf(frame));
    m_To.Append('>');
  }
  const std::uint32_t part = frame.part;
  const std::uint32_t slot = frame.slot;
  const Range tag = {frame.from, frame.content};
  m_Rows.Cut(frame.rows);
  m_Pending.Cut(frame.pending);
  m_Texts.Cut(frame.texts);
  m_New.Cut(frame.fresh);
  m_Frames.Cut(m_Frames.Size() - 1);
  if (m_Frames.Size() == 0) return true;
  Frame& parent = m_Frames.Last();
  parent.last = slot == kNone ? to : m_Source.parts[slot].to;
  if (slot != kNone) m_iPart = m_Source.parts[slot].next;
  if (slot == part) return true;
  // Its tag is read again where it stands.
  Restore(tag.from, tag.to);
  CopyTo(to);
  SkipTo(parent.last);
  m_Xml.Resume(parent.last);
  return true;
}

bool ZtUpdater::EndLeaf(Frame& leaf) {
  const ZtField& row = *leaf.row;
  const ZtPiece text = leaf.run.IsEmpty() ? ZtPiece("", 0) : leaf.run.Piece();
  const bool isField = row.place == ZtPlace::kTextElement;
  if (isField && ZtHolds(*leaf.object, row, text)) return true;
  const ZtStated held = isField ? ZtHeld(*leaf.object, row) : ZtStated::Text(TextOf(*leaf.object));
  if (isField && ZtIsLost(*leaf.object, row)) return Fail(nullptr);
  if (ZtParse(row, text) == held) return true;
  if (!held.stated) {
    Frame& parent = m_Frames[m_Frames.Size() - 2];
    if (isField) parent.gone |= ZtRowBit(*parent.type, row);
    Remove(leaf.from, m_Xml.To());
    return true;
  }
  char buffer[kZtNumberSize];
  return ReplaceContent(leaf, row, ZtTextOf(row, held, buffer));
}

bool ZtUpdater::EndObject(Frame& frame) {
  if (frame.type->rows.takesText) {
    for (const ZtField& row : *frame.type) {
      if (!row.IsOwnText()) continue;
      if (row.place == ZtPlace::kOwnWords) {
        if (!OwnWords(frame, row)) return false;
        continue;
      }
      ZtStated read = frame.run.IsEmpty() ? ZtStated() : ZtParse(row, frame.run.Piece());
      ZtStated held = ZtHeld(*frame.object, row);
      if (ZtIsLost(*frame.object, row)) return Fail(nullptr);
      // An element has no text, or an empty one: its own is one thing.
      if (read.stated && !read.number && !read.text.size && read.text.text) read = ZtStated();
      if (held.stated && !held.number && !held.text.size && held.text.text) held = ZtStated();
      if (read == held) continue;
      char buffer[kZtNumberSize];
      const ZtPiece text = held.stated ? ZtTextOf(row, held, buffer) : ZtPiece("", 0);
      if (!ReplaceContent(frame, row, text)) return false;
    }
  }
  Flush(frame, nullptr);
  return true;
}

// The element's text as words, of which only the words count.
bool ZtUpdater::OwnWords(Frame& frame, const ZtField& row) {
  ZtPiece rest = ZtTrimmed(frame.run.IsEmpty() ? ZtPiece("", 0) : frame.run.Piece());
  ZtBuffer words;
  bool isSame = true;
  for (const ZtListNode* node = row.Children(*frame.object).Head(); node; node = node->next) {
    const ZtPiece word = node->data ? TextOf(*ItemOf(node)) : ZtPiece(nullptr);
    if (!word.size) continue;
    const bool fits = word.size <= rest.size && std::memcmp(word.text, rest.text, word.size) == 0 &&
                      (word.size == rest.size || ZtIsBlank(rest.text[word.size]));
    isSame = isSame && fits;
    if (isSame) rest = ZtTrimmed({rest.text + word.size, rest.size - word.size});
    if (words.Size()) words.Append(' ');
    words.Append(word);
  }
  if (words.Failed()) return false;
  return (isSame && !rest.size) || ReplaceContent(frame, row, words.Piece());
}

// Puts `text` in place of an element's own: in its first piece, so that comments and unknown
// elements between pieces stay. No type has both a text and known children, whose changes would
// come before it.
bool ZtUpdater::ReplaceContent(Frame& frame, const ZtField& row, ZtPiece text) {
  const std::uint32_t count = m_Texts.Size() - frame.texts;
  std::size_t at = frame.content;
  if (count) {
    Range first = m_Texts[frame.texts];
    if (count == 1 && !row.Is(kZtFreeText)) {
      // The white space around it stays.
      const ZtPiece raw(m_Text.text + first.from, first.to - first.from);
      const ZtPiece core = ZtTrimmed(raw);
      if (core.size) first.from += static_cast<std::size_t>(core.text - raw.text);
      if (core.size) first.to = first.from + core.size;
    }
    CopyTo(first.from);
    SkipTo(first.to);
    at = first.to;
  }
  frame.last = at;
  OpenContent(frame);
  if (!ZtAppendEscaped(m_To, text, 0)) return Fail(kZtNotXml);
  for (std::uint32_t i = 1; i < count; ++i) {
    const Range& other = m_Texts[frame.texts + i];
    CopyTo(other.from);
    SkipTo(other.to);
  }
  return true;
}

// ---- What is new --------------------------------------------------------------------------------

// Writes what the source does not have while the namespaces of the element are in scope, and notes
// which entries of lists are still there.
bool ZtUpdater::Prepare(Frame& frame) {
  const ZtElementType& type = *frame.type;
  const auto& parts = m_Source.parts;
  m_iLikely = frame.part + 1;
  while (m_iLikely < parts.Size() && parts[m_iLikely].row &&
         parts[m_iLikely].row->place == ZtPlace::kOtherAttributes) {
    ++m_iLikely;
  }
  const auto count = static_cast<std::uint32_t>(type.end() - type.children());
  if (count && !m_Rows.AddZeros(count)) return false;
  std::uint64_t bit = std::uint64_t{1} << type.rows.attributes;
  for (const ZtField* row = type.children(); row != type.end(); ++row, bit <<= 1) {
    // The texts that the source has are looked at in their places.
    const bool isRead = row->place == ZtPlace::kTextElement && (parts[frame.part].taken & bit);
    if (isRead || IsEmpty(*frame.object, *row)) continue;
    RowState& state = StateOf(frame, *row);
    state.pending = m_Pending.Size();
    if (!PrepareRow(frame, *row, state)) return false;
    state.end = m_Pending.Size();
  }
  frame.isNew = m_Pending.Size() != frame.pending;
  return true;
}

bool ZtUpdater::PrepareRow(const Frame& frame, const ZtField& row, RowState& state) {
  switch (row.place) {
    case ZtPlace::kTextElement:
      return PrepareText(frame, row);
    case ZtPlace::kChild:
    case ZtPlace::kOtherChild: {
      const XMLElement* child = row.Child(*frame.object).Get();
      return !child || PrepareChild(frame, row, *child, nullptr);
    }
    case ZtPlace::kTextElements:
    case ZtPlace::kChildren:
    case ZtPlace::kOtherChildren:
      state.node = row.Children(*frame.object).Head();
      if (const ZtField* partner = ZtPartnerOf(*frame.type, row)) {
        if (!IsUntouched(frame, row) || !IsUntouched(frame, *partner)) {
          return PreparePairs(frame, row, state.node);
        }
      }
      for (const ZtListNode* node = state.node; node; node = node->next) {
        if (node->data && !PrepareChild(frame, row, *ItemOf(node), node)) return false;
      }
      return true;
    default:
      return true;
  }
}

// Whether a list has what it had, in that order.
bool ZtUpdater::IsUntouched(const Frame& frame, const ZtField& row) const {
  const ZtListNode* node = row.Children(*frame.object).Head();
  const std::uint32_t end = m_Source.parts[frame.part].next;
  for (std::uint32_t i = frame.part + 1; i < end; i = m_Source.parts[i].next) {
    if (m_Source.parts[i].row != &row) continue;
    if (!node || node->data != m_Source.parts[i].object) return false;
    node = node->next;
  }
  return !node;
}

// The entries of one of two lists that alternate, which begins with `node`. Those stay in their
// places that stood together in the source, and are together now.
bool ZtUpdater::PreparePairs(const Frame& frame, const ZtField& row, const ZtListNode* node) {
  const bool isFirst = row.Is(kZtPaired);
  const ZtField& partner = *ZtPartnerOf(*frame.type, row);
  const ZtListNode* other = partner.Children(*frame.object).Head();
  for (; node && other; node = node->next, other = other->next) {
    if (!node->data) continue;
    const std::uint32_t own = PartOf(frame, row, node->data, kNone);
    const std::uint32_t its = PartOf(frame, partner, other->data, kNone);
    const bool isKept = own != kNone && its != kNone && (isFirst ? own + 1 == its : its + 1 == own);
    if (!PrepareChild(frame, row, *ItemOf(node), node, isKept)) return false;
  }
  return (!node && !other) || Fail(kZtUnpaired, row.name.Piece());
}

bool ZtUpdater::PrepareChild(const Frame& frame, const ZtField& row, const XMLElement& child,
                             const ZtListNode* node, bool mayStay) {
  if (!ZtStandardWriter::IsThere(child)) return true;
  const std::uint32_t part = mayStay ? PartOfChild(frame, row, child, m_iLikely) : kNone;
  if (part != kNone) {
    m_pKept[part] = 1;
    m_iLikely = m_Source.parts[part].next;
    return true;
  }
  if (row.place == ZtPlace::kTextElements && !TextOf(child).text) return true;
  const std::size_t from = m_New.Size();
  ZtStandardWriter writer(m_New);
  writer.Inside(&m_Xml.Scope(), m_bPlain);
  return Prepared(writer.WriteChild(row, frame.space, child), writer, from, node);
}

bool ZtUpdater::PrepareText(const Frame& frame, const ZtField& row) {
  char buffer[kZtNumberSize];
  const ZtPiece text = ZtTextHeld(*frame.object, row, buffer);
  if (!text.text) return !ZtIsLost(*frame.object, row) || Fail(nullptr);
  const std::size_t from = m_New.Size();
  ZtStandardWriter writer(m_New);
  writer.Inside(&m_Xml.Scope(), m_bPlain);
  return Prepared(writer.WriteTextElement(row, frame.space, text), writer, from, nullptr);
}

bool ZtUpdater::Prepared(bool written, const ZtStandardWriter& writer, std::size_t from,
                         const ZtListNode* node) {
  if (written) return m_Pending.Add({node, from, m_New.Size()});
  return Fail(writer.Why(), writer.Path());
}

// Puts in what is new in the rows before `until`, null for all: after the last known child.
void ZtUpdater::Flush(Frame& frame, const ZtField* until) {
  if (!frame.isNew) return;
  const ZtElementType& type = *frame.type;
  if (!until) until = type.end();
  for (const ZtField* row = type.children(); row != until; ++row) {
    // What the source has of a row that occurs once is dealt with in its place.
    const bool inPlace =
        ZtIsSingle(*row) && (m_Source.parts[frame.part].taken & ZtRowBit(type, *row));
    const bool isFirstOfPair = row->Is(kZtPaired) && row + 1 == until;
    if (!inPlace && !isFirstOfPair) FlushRow(frame, *row);
  }
}

// Puts in what is new of a row, in a list up to the next entry that has a place.
void ZtUpdater::FlushRow(Frame& frame, const ZtField& row) {
  while (FlushOne(frame, row)) {
    if (row.Is(kZtPaired)) FlushOne(frame, (&row)[1]);
  }
}

bool ZtUpdater::FlushOne(Frame& frame, const ZtField& row) {
  RowState& state = StateOf(frame, row);
  const bool isList = !ZtIsSingle(row) && !row.IsOwnText();
  const auto isNext = [&] {
    return state.pending != state.end && m_Pending[state.pending].node == state.node;
  };
  // Entries that are not to be written have no place.
  while (isList && state.node && !isNext()) {
    const auto* child = ItemOf(state.node);
    const std::uint32_t part = child ? PartOfChild(frame, row, *child, m_iPart) : kNone;
    if (part != kNone && m_pKept[part]) return false;
    state.node = state.node->next;
  }
  if (isList ? !state.node : !isNext()) return false;
  const Pending& fresh = m_Pending[state.pending++];
  if (isList) state.node = state.node->next;
  OpenContent(frame);
  m_To.Append({m_New.Text() + fresh.from, fresh.to - fresh.from});
  return true;
}

// ---- Output -------------------------------------------------------------------------------------

void ZtUpdater::CopyTo(std::size_t at) {
  if (at <= m_iCopied) return;
  m_To.Append({m_Text.text + m_iCopied, at - m_iCopied});
  m_iCopied = at;
}

// Leaves something out, with the white space before it.
void ZtUpdater::Remove(std::size_t from, std::size_t to) {
  while (from > m_iCopied && ZtIsBlank(m_Text.text[from - 1])) --from;
  CopyTo(from);
  SkipTo(to);
}

// Something comes into an element: before its last known child's end nothing was left out. One that
// is written as `<a/>` gets an end tag.
void ZtUpdater::OpenContent(Frame& frame) {
  if (!frame.isEmpty || frame.isExpanded) return CopyTo(frame.last);
  CopyTo(frame.content - 2);
  m_To.Append('>');
  SkipTo(frame.content);
  frame.isExpanded = true;
}

// The name of its element as it stands in the document.
ZtPiece ZtUpdater::NameOf(const Frame& frame) const { return NameAt(m_Text.text + frame.from); }

bool ZtUpdater::Fail(const char* why, ZtPiece name, const char* sign) {
  m_Why = why;
  const Frame* parent = nullptr;
  for (const Frame& frame : m_Frames) {
    const bool isEntry = parent && frame.row && frame.part != kNone;
    m_Path.Push("/", ZtLocalIn(NameOf(frame)),
                isEntry ? ZtIndexOf(*parent->object, *frame.row, *frame.object) : 0);
    parent = &frame;
  }
  // A path of the writer begins with its sign.
  if (name.size) m_Path.Push(*name.text == '/' ? "" : sign, name);
  return false;
}
