#include "binding/ZtStandardWriter.h"

#include "text/ZtEncoding.h"
#include "text/ZtEscape.h"

namespace {

constexpr char kNoName[] = "it has no element here";

ZtListNode* HeadOf(const XMLElement& object, const ZtField& row) {
  return row.Children(object).Head();
}

}  // namespace

bool ZtStandardWriter::IsThere(const XMLElement& child) {
  return !ZtIsFlag(child) ||
         static_cast<const zt_empty_element_type&>(child).getPresentValue() != 0;
}

// ---- Documents and parts ------------------------------------------------------------------------

bool ZtStandardWriter::WriteDocument(const ZtDocument& document, const XMLElement& root,
                                     const ZtElementType& type, ZtNameId name) {
  if (!m_Scope.Begin()) return Fail(nullptr);
  if (document.declaration) m_To.Append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
  m_bBreaks = false;  // the root's is there, or not wanted
  const ZtSpace own = ZtSpaceOfPrefix(type.prefix);
  const ZtSpace space = own ? own : ZtSpaceOf(document);
  ZtMatch match;
  match.type = &ZtStandardOf(type);
  match.space = space;
  match.inside = match.type->space ? ZtSpace{match.type->space} : space;
  if (!ZtIsQualifiedName(name.Piece())) return Fail(kZtNotXml, "/", name.Piece());
  if (!Push(root, match, name.Piece(), 0)) return false;
  m_bBreaks = true;
  return Run();
}

void ZtStandardWriter::Inside(const ZtNamespaceScope* outer, bool plain) {
  m_pOuter = outer;
  m_bPlain = plain;
  m_bBreaks = false;
}

bool ZtStandardWriter::WriteChild(const ZtField& row, ZtSpace space, const XMLElement& child) {
  if (!m_Scope.Begin()) return Fail(nullptr);
  if (row.place == ZtPlace::kTextElements) {
    const auto* text = zt_string::From(const_cast<XMLElement*>(&child));
    return text ? WriteTextElement(row, space, text->getValue()) : Fail(kNoName);
  }
  const ZtMatch match = ZtMatchObject(row, space, child);
  const ZtPiece name = match.row ? ZtNameOfObject(row, child) : ZtPiece(nullptr);
  if (!name.text) return Fail(kNoName);
  return Push(child, match, name, 0) && Run();
}

bool ZtStandardWriter::WriteTextElement(const ZtField& row, ZtSpace space, ZtPiece text) {
  if (m_Frames.Size() == 0 && !m_Scope.Begin()) return Fail(nullptr);
  const Frame* const parent = m_Frames.Size() ? &m_Frames.Last() : nullptr;
  Frame leaf = Within(parent);
  leaf.name = row.name.Piece();
  m_New.Cut(0);
  if (!Resolve(leaf, space, parent)) return false;
  OpenTag(leaf);
  m_To.Append('>');
  if (!ZtAppendEscaped(m_To, text, 0)) return Fail(kZtNotXml, "/", leaf.name);
  EndTag(leaf);
  m_Scope.Leave(leaf.declarations);
  return true;
}

// ---- Elements -----------------------------------------------------------------------------------

// An element inside of `parent`, null for the outermost.
ZtStandardWriter::Frame ZtStandardWriter::Within(const Frame* parent) const {
  Frame frame;
  frame.declarations = m_Scope.Declarations();
  frame.depth = parent ? parent->depth + 1 : 1;
  frame.hasDefault = parent && parent->hasDefault;
  frame.breaks = m_bBreaks && !(parent && parent->hasText);
  return frame;
}

bool ZtStandardWriter::Push(const XMLElement& object, const ZtMatch& match, ZtPiece name,
                            std::uint32_t index) {
  Frame frame = Within(m_Frames.Size() ? &m_Frames.Last() : nullptr);
  frame.object = &object;
  frame.type = match.type;
  frame.space = match.inside;
  frame.name = name;
  frame.index = index;
  frame.row = match.type->children();
  frame.isOpen = true;
  if (!m_Frames.Add(frame)) return Fail(nullptr);
  return StartTag(m_Frames.Last(), match.space);
}

// Writes what is open to its end.
bool ZtStandardWriter::Run() {
  while (m_Frames.Size() && !m_To.Failed()) {
    Frame& frame = m_Frames.Last();
    if (frame.row != frame.type->end()) {
      if (!Step(frame)) return false;
      continue;
    }
    if (frame.isOpen) {
      m_To.Append("/>");
    } else {
      EndTag(frame);
    }
    m_Scope.Leave(frame.declarations);
    m_Frames.Cut(m_Frames.Size() - 1);
  }
  return !m_To.Failed();
}

// Writes a row of the element, or begins a child of it.
bool ZtStandardWriter::Step(Frame& frame) {
  const ZtField& row = *frame.row;
  char buffer[kZtNumberSize];
  switch (row.place) {
    case ZtPlace::kTextElement: {
      ++frame.row;
      const ZtPiece text = ZtTextHeld(*frame.object, row, buffer);
      if (!text.text) return MayLack(frame, row, "/");
      CloseTag(frame);
      return WriteTextElement(row, frame.space, text);
    }
    case ZtPlace::kOwnText:
    case ZtPlace::kOwnWords:
      ++frame.row;
      return WriteOwnText(frame, row);
    case ZtPlace::kChild:
    case ZtPlace::kOtherChild: {
      ++frame.row;
      const XMLElement* child = row.Child(*frame.object).Get();
      if (child && IsThere(*child)) return BeginChild(frame, row, *child, 0);
      return !ZtIsRequired(row) ||
             Fail(kZtMissing, row.HasName() ? "/" : nullptr, row.name.Piece());
    }
    default:
      return StepList(frame, row);
  }
}

bool ZtStandardWriter::StepList(Frame& frame, const ZtField& row) {
  if (frame.entry++ == 0) {
    frame.node = HeadOf(*frame.object, row);
    frame.other = row.Is(kZtPaired) ? HeadOf(*frame.object, (&row)[1]) : nullptr;
  }
  ZtListNode* const node = frame.node;
  if (!node) {
    if (frame.other) return Fail(kZtUnpaired);
    frame.row += row.Is(kZtPaired) ? 2 : 1;
    frame.entry = 0;
    return true;
  }
  frame.node = node->next;
  const std::uint32_t index = frame.entry;
  const auto* child = static_cast<const XMLElement*>(node->data);
  if (child && IsThere(*child) && !BeginChild(frame, row, *child, index)) return false;
  if (!row.Is(kZtPaired)) return true;
  if (!frame.other) return Fail(kZtUnpaired);
  const auto* second = static_cast<const XMLElement*>(frame.other->data);
  frame.other = frame.other->next;
  return !second || BeginChild(frame, (&row)[1], *second, index);
}

bool ZtStandardWriter::BeginChild(Frame& frame, const ZtField& row, const XMLElement& child,
                                  std::uint32_t index) {
  CloseTag(frame);
  if (row.place == ZtPlace::kTextElements) {
    const auto* text = zt_string::From(const_cast<XMLElement*>(&child));
    if (!text) return Fail(kNoName, "/", row.name.Piece(), index);
    return !text->getValue() || WriteTextElement(row, frame.space, text->getValue());
  }
  const ZtMatch match = ZtMatchObject(row, frame.space, child);
  const ZtPiece name = match.row ? ZtNameOfObject(row, child) : ZtPiece(nullptr);
  if (!name.text) return Fail(kNoName, "/", child.ElementName(), index);
  return Push(child, match, name, index);
}

// Whether an element can be written without the text of a row.
bool ZtStandardWriter::MayLack(const Frame& frame, const ZtField& row, const char* sign) {
  const bool isLost = ZtIsLost(*frame.object, row);
  if (!isLost && !ZtIsRequired(row)) return true;
  return Fail(isLost ? nullptr : kZtMissing, sign, row.name.Piece());
}

bool ZtStandardWriter::WriteOwnText(Frame& frame, const ZtField& row) {
  frame.hasText = true;
  if (row.place == ZtPlace::kOwnText) {
    char buffer[kZtNumberSize];
    const ZtPiece text = ZtTextHeld(*frame.object, row, buffer);
    if (!text.text && !MayLack(frame, row, nullptr)) return false;
    if (!text.size) return true;
    CloseTag(frame);
    return ZtAppendEscaped(m_To, text, 0) || Fail(kZtNotXml);
  }
  bool first = true;
  for (ZtListNode* node = HeadOf(*frame.object, row); node; node = node->next) {
    const auto* word = zt_string::From(static_cast<XMLElement*>(node->data));
    const ZtPiece text = word ? word->getValue() : nullptr;
    if (!text.size) continue;
    CloseTag(frame);
    if (!first) m_To.Append(' ');
    first = false;
    if (!ZtAppendEscaped(m_To, text, 0)) return Fail(kZtNotXml);
  }
  return true;
}

void ZtStandardWriter::CloseTag(Frame& frame) {
  if (frame.isOpen) m_To.Append('>');
  frame.isOpen = false;
}

// ---- Tags ---------------------------------------------------------------------------------------

// All that declares comes before what needs it is resolved, and that before anything is written.
bool ZtStandardWriter::StartTag(Frame& frame, ZtSpace space) {
  const ZtElementType& type = *frame.type;
  m_New.Cut(0);
  const ZtAttributeList* others = nullptr;
  for (const ZtField* row = type.begin(); row != type.children(); ++row) {
    if (row->place == ZtPlace::kOtherAttributes) others = &row->Attributes(*frame.object);
  }
  if (others && !others->Head()) others = nullptr;
  if (m_Frames.Size() == 1 && !m_pOuter && !DeclareFixed(frame)) return false;
  if (others && !DeclareOthers(frame, *others)) return false;
  const Frame* const parent = m_Frames.Size() > 1 ? &m_Frames[m_Frames.Size() - 2] : nullptr;
  if (!Resolve(frame, space, parent)) return false;
  OpenTag(frame);
  m_Attributes.Clear();
  char buffer[kZtNumberSize];
  for (const ZtField* row = type.begin(); row != type.children(); ++row) {
    if (row->place == ZtPlace::kOtherAttributes) continue;
    const ZtPiece text = ZtTextHeld(*frame.object, *row, buffer);
    const ZtPiece name = row->name.Piece();
    if (!text.text) {
      if (!MayLack(frame, *row, "/@")) return false;
      continue;
    }
    // Rows have names of their own.
    if (others && !IsNew(nullptr, 0, name)) continue;
    if (!ZtAppendAttribute(m_To, nullptr, name, text)) return Fail(kZtNotXml, "/@", name);
  }
  return (!others || WriteOthers(*others)) && !m_bNoMemory;
}

void ZtStandardWriter::OpenTag(const Frame& frame) {
  const ZtPiece colon(":", frame.prefix.size ? 1 : 0);
  m_To.Append(frame.breaks ? ZtPiece("\n<", 2) : ZtPiece("<", 1), frame.prefix, colon, frame.name);
  for (const Declaration& declaration : m_New) {
    const ZtPiece sign(":", declaration.prefix.size ? 1 : 0);
    m_To.Append(" xmlns", sign, declaration.prefix, "=\"");
    static_cast<void>(ZtAppendEscaped(m_To, declaration.uri, '"'));
    m_To.Append('"');
  }
}

// The namespaces that the root's type declares for what is mostly in it.
bool ZtStandardWriter::DeclareFixed(Frame& frame) {
  for (const ZtFixedAttribute& fixed : frame.type->extras->declares) {
    if (fixed.name != XML_STR_XMLNS) continue;
    const bool isDefault = fixed.suffix == XML_STR_ZT_NULL;
    const ZtPiece prefix = isDefault ? ZtPiece(nullptr) : ZtNameId(fixed.suffix).Piece();
    if (!Declare(frame, prefix, fixed.value.Piece())) return false;
  }
  return true;
}

// What the other attributes declare, and the prefixes that they need.
bool ZtStandardWriter::DeclareOthers(Frame& frame, const ZtAttributeList& others) {
  for (ZtListNode* node = others.Head(); node; node = node->next) {
    const auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
    const ZtPiece name = pair ? pair->getName() : nullptr;
    if (!name.size || !ZtDeclares(name)) continue;
    if (!ZtIsQualifiedName(name)) return Fail(kZtBadName, "/@", name);
    const ZtPiece prefix = ZtPrefixIn(name).text ? ZtLocalIn(name) : ZtPiece(nullptr);
    const ZtPiece uri = pair->getValue();
    if (!ZtIsXmlText(uri)) return Fail(kZtNotXml, "/@", name);
    if (!Declare(frame, prefix, uri)) return false;
  }
  for (ZtListNode* node = others.Head(); node; node = node->next) {
    const auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
    const ZtPiece prefix = ZtPrefixIn(pair ? pair->getName() : nullptr);
    const ZtPiece uri = pair ? pair->getNamespaceValue() : nullptr;
    if (!prefix.size || !uri.size || ZtEqual(prefix, "xmlns") || ZtEqual(UriOf(prefix), uri))
      continue;
    if (!Declare(frame, prefix, uri)) return false;
  }
  return true;
}

// One that the tag has already stands.
bool ZtStandardWriter::Declare(Frame& frame, ZtPiece prefix, ZtPiece uri) {
  using Result = ZtNamespaceScope::Result;
  switch (m_Scope.Declare(prefix, uri, frame.depth)) {
    case Result::kDeclared:
      if (!prefix.size) frame.hasDefault = true;
      return m_New.Add({prefix, uri}) || Fail(nullptr);
    case Result::kTwice:
      return true;
    case Result::kNoMemory:
      return Fail(nullptr);
    default:
      return Fail(kZtNotXml, "/@xmlns:", prefix);
  }
}

// The prefix of an element in `space`, declared where none is in scope.
bool ZtStandardWriter::Resolve(Frame& frame, ZtSpace space, const Frame* parent) {
  if (m_bPlain) space = kZtNoSpace;
  frame.own = space;
  if (parent && parent->own == space && m_New.Size() == 0) {  // the same are in scope as for that
    frame.prefix = parent->prefix;
    return true;
  }
  ZtPiece& prefix = frame.prefix;
  if (space == kZtNoSpace) {
    const ZtSpace inherited = frame.hasDefault ? m_Scope.Default()
                              : m_pOuter       ? m_pOuter->Default()
                                               : ZtSpace{kZtNoSpace};
    if (inherited == kZtNoSpace) return true;
    // A tag whose own attributes declare a default namespace cannot be in none.
    return Declare(frame, nullptr, {"", 0}) && (m_Scope.Default() == kZtNoSpace || Fail(kZtNotXml));
  }
  if (FindPrefix(frame, space, prefix)) return true;
  const ZtNameId known = ZtPrefixOf(space);
  if (!known.IsNone() && !UriOf(known.Piece()).text) prefix = known.Piece();
  if (!Declare(frame, prefix, ZtUriOf(space))) return false;
  return FindPrefix(frame, space, prefix) || Fail(kZtUnbound);
}

bool ZtStandardWriter::FindPrefix(const Frame& frame, ZtSpace space, ZtPiece& prefix) const {
  if (m_Scope.PrefixOf(space, true, prefix)) return true;
  for (const bool orDefault : {true, false}) {
    if (!m_pOuter || !m_pOuter->PrefixOf(space, orDefault, prefix)) return false;
    const bool shadowed = prefix.size ? m_Scope.SpaceOf(prefix) != kZtNone : frame.hasDefault;
    if (!shadowed) return true;
  }
  return false;
}

ZtPiece ZtStandardWriter::UriOf(ZtPiece prefix) const {
  const ZtSpace own = m_Scope.SpaceOf(prefix);
  if (own != kZtNone) return m_Scope.Uri(own);
  const ZtSpace outer = m_pOuter ? m_pOuter->SpaceOf(prefix) : kZtNone;
  return outer != kZtNone ? m_pOuter->Uri(outer) : ZtPiece(nullptr);
}

bool ZtStandardWriter::WriteOthers(const ZtAttributeList& others) {
  for (ZtListNode* node = others.Head(); node; node = node->next) {
    const auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
    if (pair && !WriteOther(*pair)) return false;
  }
  return true;
}

bool ZtStandardWriter::WriteOther(const zt_AttributeValuePair& pair) {
  const ZtPiece name = pair.getName();
  if (!name.size || ZtDeclares(name)) return true;
  if (!ZtIsQualifiedName(name)) return Fail(kZtBadName, "/@", name);
  const ZtPiece prefix = ZtPrefixIn(name);
  const ZtPiece uri = prefix.size ? UriOf(prefix) : ZtPiece(nullptr);
  const ZtPiece meant = pair.getNamespaceValue();
  if (prefix.size && (!uri.text || (meant.size && !ZtEqual(uri, meant)))) {
    return Fail(kZtUnbound, "/@", name);
  }
  // What is in scope outside has numbers of its own.
  const bool numbered = prefix.size && !m_pOuter;
  if (!IsNew(uri, numbered ? m_Scope.SpaceOf(prefix) : 0, ZtLocalIn(name))) return true;
  return ZtAppendAttribute(m_To, nullptr, name, pair.getValue()) || Fail(kZtNotXml, "/@", name);
}

// Whether the tag has no attribute of that expanded name yet, to which it is added. Intended: of
// two attributes of one name in a list of others the first is written, in both profiles, and no
// fault is told; callers add what may be there already.
bool ZtStandardWriter::IsNew(ZtPiece uri, std::uint32_t number, ZtPiece local) {
  bool failed = false;
  const bool isNew = m_Attributes.Insert(uri, number, local, failed);
  m_bNoMemory = m_bNoMemory || failed;
  return isNew;
}

void ZtStandardWriter::EndTag(const Frame& frame) {
  const ZtPiece colon(":", frame.prefix.size ? 1 : 0);
  m_To.Append("</", frame.prefix, colon, frame.name, '>');
}

// ---- Failures -----------------------------------------------------------------------------------

// `why` null: memory is lacking.
bool ZtStandardWriter::Fail(const char* why, const char* sign, ZtPiece name, std::uint32_t index) {
  m_Why = why;
  const Frame* parent = nullptr;
  for (const Frame& frame : m_Frames) {
    const bool isEntry = parent && frame.index;
    m_Path.Push("/", frame.name,
                isEntry ? ZtIndexOf(*parent->object, *parent->row, *frame.object) : 0);
    parent = &frame;
  }
  if (sign) m_Path.Push(sign, name, index);
  return false;
}
