// The attributes of the tags that the updater goes through.
#include "binding/ZtUpdater.h"
#include "text/ZtEncoding.h"
#include "text/ZtEscape.h"

namespace {

const zt_AttributeValuePair* PairIn(const ZtListNode* node) {
  return zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
}

// Whether a document in this encoding can have the name: what the encoding lacks can stand only in
// texts and values, as a reference.
bool CanBeName(ZtPiece name, ZtEncoding encoding) {
  if (!ZtIsQualifiedName(name)) return false;
  if (encoding != ZtEncoding::kAscii && encoding != ZtEncoding::kLatin1) return true;
  std::size_t characters = 0;
  for (std::size_t i = 0; i < name.size; ++i) characters += (name.text[i] & 0xC0) != 0x80;
  return ZtEncodedSize(name, encoding) == characters;
}

}  // namespace

bool ZtUpdater::Attributes(const Frame& frame) {
  const ZtElementType& type = *frame.type;
  const ZtField* next = type.begin();
  std::uint64_t stated = 0;
  if (type.rows.keepsAttributes && !SortPairs(frame)) return false;
  for (std::uint32_t i = 0; i < m_Xml.AttributeCount(); ++i) {
    const ZtXmlAttribute& attribute = m_Xml.Attributes()[i];
    const ZtField* row =
        attribute.name.prefix.text ? nullptr : ZtNextAttribute(type, next, attribute.name.local);
    if (!row) {
      const ZtXmlName& name = attribute.name;
      if (ZtKeepsAttribute(type, name.space, name.local) && !KeepPair(attribute)) return false;
      continue;
    }
    stated |= ZtRowBit(type, *row);
    if (ZtHolds(*frame.object, *row, attribute.value)) continue;
    const ZtStated held = ZtHeld(*frame.object, *row);
    char buffer[kZtNumberSize];
    if (ZtIsLost(*frame.object, *row)) return Fail(nullptr);
    if (!held.stated) {
      RemoveAttribute(attribute);
    } else if (!ReplaceValue(attribute, ZtTextOf(*row, held, buffer), !row->Is(kZtFreeText))) {
      return FailAttribute(kZtNotXml, row->name.Piece());
    }
  }
  return NewAttributes(frame, stated);
}

// ---- Those that no row names --------------------------------------------------------------------

// Whether the attribute that the part was has this name.
bool ZtUpdater::HasName(const Part& part, ZtPiece name) const {
  const std::size_t after = part.from + name.size;
  return name.size && after < part.to &&
         std::memcmp(m_Text.text + part.from, name.text, name.size) == 0 &&
         (m_Text.text[after] == '=' || ZtIsBlank(m_Text.text[after]));
}

// Finds out which of the tag's attributes stay, and which pairs are new. Of two with one name the
// first stands, as when a tree is written.
bool ZtUpdater::SortPairs(const Frame& frame) {
  const ZtField& others = ZtOthersOf(*frame.type);
  const ZtListNode* const head = others.Attributes(*frame.object).Head();
  bool isNew = false;
  std::uint32_t likely = m_iPart;
  m_Pairs.Cut(0);
  m_Declared.Cut(0);
  for (const ZtListNode* node = head; node; node = node->next) {
    const zt_AttributeValuePair* pair = PairIn(node);
    if (!pair) continue;
    const std::uint32_t part = PartOf(frame, others, node->data, likely++);
    const bool isKept = part != kNone && HasName(m_Source.parts[part], pair->getName());
    if (isKept) m_pKept[part] = 1;
    isNew = isNew || !isKept;
  }
  if (m_bNoMemory) return false;
  if (!isNew) return true;
  bool failed = false;
  m_Names.Clear();
  RowNames(frame, failed);
  for (const ZtListNode* node = head; node; node = node->next) {
    if (PairIn(node) && !DeclarePair(*PairIn(node))) return false;
  }
  likely = m_iPart;
  for (const ZtListNode* node = head; node; node = node->next) {
    const zt_AttributeValuePair* pair = PairIn(node);
    const ZtPiece name = pair ? pair->getName() : nullptr;
    if (!name.size || ZtDeclares(name)) continue;
    const std::uint32_t part = PartOf(frame, others, node->data, likely++);
    const bool isKept = part != kNone && m_pKept[part];
    if (!isKept && !IsBound(*pair)) return false;
    const ZtPiece prefix = ZtPrefixIn(name);
    const ZtPiece uri =
        prefix.size ? m_Xml.Scope().Uri(m_Xml.Scope().SpaceOf(prefix)) : ZtPiece(nullptr);
    const bool isFirst = m_Names.Insert(uri, prefix.size ? m_Xml.Scope().SpaceOf(prefix) : 0,
                                        ZtLocalIn(name), failed);
    if (isKept) {
      m_pKept[part] = isFirst ? 1 : 0;
    } else if (isFirst) {
      failed = failed || !m_Pairs.Add(pair);
    }
  }
  return !failed;
}

// Adds the names that the tag has of its rows.
void ZtUpdater::RowNames(const Frame& frame, bool& failed) {
  const ZtElementType& type = *frame.type;
  for (const ZtField* row = type.begin(); row != type.children(); ++row) {
    if (row->place == ZtPlace::kAttribute && ZtHeld(*frame.object, *row).stated) {
      m_Names.Insert(nullptr, 0, row->name.Piece(), failed);
    }
  }
  // What is no value of its row stays as well, and what no pair was made of.
  const ZtField* next = type.begin();
  for (std::uint32_t i = 0; i < m_Xml.AttributeCount(); ++i) {
    const ZtXmlAttribute& attribute = m_Xml.Attributes()[i];
    if (attribute.name.prefix.text) {
      const auto& [prefix, local, space] = attribute.name;
      if (ZtKeepsAttribute(type, space, local)) continue;
      m_Names.Insert(m_Xml.Scope().Uri(space), space, local, failed);
      continue;
    }
    const ZtField* row = ZtNextAttribute(type, next, attribute.name.local);
    if (row && !ZtParse(*row, attribute.value).stated) {
      m_Names.Insert(nullptr, 0, row->name.Piece(), failed);
    }
  }
}

// Declares what a new pair declares, or the prefix that it needs.
bool ZtUpdater::DeclarePair(const zt_AttributeValuePair& pair) {
  const ZtPiece name = pair.getName();
  if (!name.size) return true;
  const ZtPiece prefix = ZtPrefixIn(name);
  if (!ZtDeclares(name)) {
    const ZtPiece uri = pair.getNamespaceValue();
    return !prefix.size || !uri.size || m_Xml.Scope().SpaceOf(prefix) != kZtNone ||
           DeclareHere(prefix, uri);
  }
  if (!CanBeName(name, m_Source.form.encoding)) return FailAttribute(kZtBadName, name);
  const ZtPiece uri = pair.getValue();
  const ZtPiece declared = prefix.size ? ZtLocalIn(name) : ZtPiece(nullptr);
  const ZtSpace space = m_Xml.Scope().SpaceOf(declared);
  // Another meaning of what is in scope would be one for all that is in the element.
  if (!declared.size || space != kZtNone) {
    return ZtEqual(m_Xml.Scope().Uri(space), uri) || FailAttribute(kZtNotXml, name);
  }
  return DeclareHere(declared, uri);
}

bool ZtUpdater::DeclareHere(ZtPiece prefix, ZtPiece uri) {
  if (!ZtIsXmlText(uri)) return FailAttribute(kZtNotXml, prefix);
  switch (m_Xml.Declare(prefix, uri)) {
    case ZtNamespaceScope::Result::kDeclared:
      return m_Declared.Add({prefix, uri});
    case ZtNamespaceScope::Result::kNoMemory:
      return false;
    default:
      return FailAttribute(kZtNotXml, prefix);
  }
}

// Whether a new pair has a name that means in the element what it is to mean.
bool ZtUpdater::IsBound(const zt_AttributeValuePair& pair) {
  const ZtPiece name = pair.getName();
  if (!CanBeName(name, m_Source.form.encoding)) return FailAttribute(kZtBadName, name);
  const ZtPiece prefix = ZtPrefixIn(name);
  if (!prefix.size) return true;
  const ZtSpace space = m_Xml.Scope().SpaceOf(prefix);
  const ZtPiece meant = pair.getNamespaceValue();
  return (space != kZtNone && (!meant.size || ZtEqual(m_Xml.Scope().Uri(space), meant))) ||
         FailAttribute(kZtUnbound, name);
}

// An attribute that no row names, beside the pair that was made of it.
bool ZtUpdater::KeepPair(const ZtXmlAttribute& attribute) {
  const std::uint32_t part = m_iPart++;
  if (!m_pKept[part]) {
    RemoveAttribute(attribute);
    return true;
  }
  const auto* pair = static_cast<const zt_AttributeValuePair*>(
      static_cast<const XMLAttribute*>(m_Source.parts[part].object));
  const ZtPiece value = pair->getValue();
  return ZtEqual(value, attribute.value) || ReplaceValue(attribute, value, false) ||
         FailAttribute(kZtNotXml, ZtQualified(attribute.name));
}

// ---- What is written ----------------------------------------------------------------------------

// What the tree has and the tag lacks comes at the tag's end.
bool ZtUpdater::NewAttributes(const Frame& frame, std::uint64_t stated) {
  const ZtElementType& type = *frame.type;
  for (const ZtField* row = type.begin(); row != type.children(); ++row) {
    if (row->place == ZtPlace::kOtherAttributes || (stated & ZtRowBit(type, *row))) continue;
    char buffer[kZtNumberSize];
    const ZtPiece text = ZtTextHeld(*frame.object, *row, buffer);
    if (!text.text && ZtIsLost(*frame.object, *row)) return Fail(nullptr);
    if (!text.text) continue;
    CopyToEnd(frame);
    if (!NewAttribute(nullptr, row->name.Piece(), text))
      return FailAttribute(kZtNotXml, row->name.Piece());
  }
  if (!type.rows.keepsAttributes) return true;
  for (const Declaration& declaration : m_Declared) {
    CopyToEnd(frame);
    static_cast<void>(NewAttribute("xmlns:", declaration.prefix, declaration.uri));
  }
  for (const zt_AttributeValuePair* pair : m_Pairs) {
    CopyToEnd(frame);
    const ZtPiece name = pair->getName();
    if (!NewAttribute(nullptr, name, pair->getValue())) return FailAttribute(kZtNotXml, name);
  }
  return true;
}

// What is new comes before the end of the start tag.
void ZtUpdater::CopyToEnd(const Frame& frame) {
  std::size_t end = frame.content - (frame.isEmpty ? 2 : 1);
  while (end > m_iCopied && ZtIsBlank(m_Text.text[end - 1])) --end;
  CopyTo(end);
}

bool ZtUpdater::NewAttribute(ZtPiece prefix, ZtPiece name, ZtPiece value) {
  return ZtAppendAttribute(m_To, prefix, name, value);
}

// Where white space at the ends has no meaning it stays.
bool ZtUpdater::ReplaceValue(const ZtXmlAttribute& attribute, ZtPiece text, bool trimmed) {
  ZtPiece old(m_Text.text + attribute.valueFrom, attribute.valueTo - attribute.valueFrom);
  if (trimmed && ZtTrimmed(old).size) old = ZtTrimmed(old);
  const auto from = static_cast<std::size_t>(old.text - m_Text.text);
  CopyTo(from);
  SkipTo(from + old.size);
  return ZtAppendEscaped(m_To, text, m_Text.text[attribute.valueTo]);
}

void ZtUpdater::RemoveAttribute(const ZtXmlAttribute& attribute) {
  Remove(attribute.from, attribute.valueTo + std::size_t{1});
}
