#include "binding/ZtStandardReader.h"

#include "model/ZtOwnership.h"

ZtStandardReader::ZtStandardReader(const ZtDocument& document, ZtArena& arena,
                                   const ZtReadOptions& options)
    : m_Document(document),
      m_Arena(arena),
      m_Options(options),
      m_Xml(kZtSpaceUris, kZtKnownSpaces),
      m_Places(options.original, options.form) {}

XMLElement* ZtStandardReader::Read(char* text, std::size_t size) {
  m_pText = text;
  m_Xml.Begin(text, size);
  bool done = true;
  ZtToken token = ZtToken::kText;
  while (done && token != ZtToken::kDone) {
    token = m_Xml.Next();
    switch (token) {
      case ZtToken::kStart:
        done = Start();
        break;
      case ZtToken::kText:
        Text();
        break;
      case ZtToken::kEnd:
        done = End();
        break;
      case ZtToken::kDone:
        break;
      case ZtToken::kFailed:
        done = false;
        break;
    }
  }
  if (done) return m_pRoot;
  ZtRelease(m_pRoot);
  return nullptr;
}

// ---- Elements -----------------------------------------------------------------------------------

bool ZtStandardReader::Start() {
  if (m_iSkipped) {
    ++m_iSkipped;
    return true;
  }
  if (m_Frames.Size() == 0) return StartRoot();
  const ZtXmlName& name = m_Xml.Name();
  if (!m_pLeaf) {
    Frame& parent = Top();
    const ZtMatch match =
        ZtMatchChild(*parent.type, parent.next, parent.space, name.space, name.local, m_bPlain);
    if (match.row) {
      // Of what occurs once the first stands.
      const std::uint64_t bit = ZtIsSingle(*match.row) ? ZtRowBit(*parent.type, *match.row) : 0;
      if (!(parent.taken & bit)) {
        parent.taken |= bit;
        return StartChild(match);
      }
    }
  }
  m_iSkipped = 1;
  Lose(ZT_LOST_ELEMENT, "/", ZtQualified(m_Xml.Name()), m_Xml.From());
  return true;
}

bool ZtStandardReader::StartRoot() {
  const ZtXmlName& name = m_Xml.Name();
  const ZtSpace own = ZtSpaceOf(m_Document);
  m_bPlain = name.space == kZtNoSpace;
  for (const ZtRoot& root : m_Document.roots) {
    if (!root.name.Is(name.local) || (name.space != own && !m_bPlain)) continue;
    if (m_Options.root && !ZtIsOneType(*m_Options.root, *root.type)) continue;
    const ZtElementType& type = ZtStandardOf(*root.type);
    ZtMatch match;
    match.type = &type;
    m_pRoot = m_Options.makes ? Make(match) : nullptr;
    if (m_Options.makes && !m_pRoot) return false;
    return Open(m_pRoot, type, type.space ? ZtSpace{type.space} : own, nullptr);
  }
  m_bOtherRoot = true;
  return false;
}

bool ZtStandardReader::StartChild(const ZtMatch& match) {
  const ZtField& row = *match.row;
  if (!match.type) {
    m_pLeaf = &row;
    m_LeafRun = ZtTextRun();
    m_iLeafFrom = m_Xml.From();
    if (m_Options.lost) {
      m_iLeafPath = m_Path.Size();
      m_LeafPlace = m_Places.Find(m_iLeafFrom);
      Enter(m_Xml.Name().local, !ZtIsSingle(row));
      for (std::uint32_t i = 0; i < m_Xml.AttributeCount(); ++i) {
        const ZtXmlAttribute& attribute = m_Xml.Attributes()[i];
        Lose(ZT_LOST_ATTRIBUTE, "/@", ZtQualified(attribute.name), attribute.from);
      }
    }
    return true;
  }
  if (!m_Options.makes) return Open(nullptr, *match.type, match.inside, &row);
  XMLElement* child = Make(match);
  if (!child) return false;
  if (!Adopt(Top(), row, child)) {
    ZtRelease(child);
    return false;
  }
  return Open(child, *match.type, match.inside, &row);
}

// Opens an element whose object has its parent; `row` is the parent's, null for the root.
bool ZtStandardReader::Open(XMLElement* object, const ZtElementType& type, ZtSpace space,
                            const ZtField* row) {
  Frame frame = {object,          &type,        type.children(), space, {}, 0, ZtSourceText::kNone,
                 m_Counts.Size(), m_Path.Size()};
  if (m_Options.source) {
    if (!NotePart(object, m_Xml.From(), m_Xml.To(), row)) return false;
    frame.part = m_Options.source->parts.Size() - 1;
  }
  if (m_Options.lost) {
    Enter(m_Xml.Name().local, row && !ZtIsSingle(*row));
    frame.counts = m_Counts.Size();
  }
  return m_Frames.Add(frame) && Attributes(frame);
}

XMLElement* ZtStandardReader::Make(const ZtMatch& match) {
  const ZtElementType& type = *match.type;
  if (type.extras->flag) return ZtMakeFlag(Source(), Ended(m_Xml.Name().local));
  XMLElement* object = type.Create(Source());
  if (object) ZtSetDefaults(*object, type);
  return object;
}

bool ZtStandardReader::Adopt(const Frame& parent, const ZtField& row, XMLElement* child) {
  return ZtAdopt(*parent.object, row, child, Source()) == ZtOutcome::kAdopted;
}

bool ZtStandardReader::End() {
  if (m_iSkipped) {
    --m_iSkipped;
    return true;
  }
  return m_pLeaf ? EndLeaf() : EndObject();
}

bool ZtStandardReader::EndLeaf() {
  const ZtField& row = *m_pLeaf;
  m_pLeaf = nullptr;
  const Frame& parent = Top();
  // An element without a text has an empty one.
  ZtPiece text = m_LeafRun.IsEmpty() ? ZtPiece(m_pText + m_Xml.To() - 1, 0) : m_LeafRun.Piece();
  const ZtStated value = ZtParse(row, text);
  bool done = true;
  if (!value.stated) {
    LoseAt(ZT_LOST_VALUE, m_LeafPlace);
  } else if (m_Options.makes) {
    if (value.text.text) Ended(value.text);
    if (row.place == ZtPlace::kTextElements) {
      zt_string* string = ZtMakeString(Source(), value.text);
      done = string && Adopt(parent, row, string);
      if (!done) ZtRelease(string);
      done = done && (!m_Options.source || NotePart(string, m_iLeafFrom, m_Xml.To(), &row));
    } else {
      done = ZtKeep(*parent.object, row, value, &m_Arena);
    }
  }
  if (m_Options.lost) m_Path.Pop(m_iLeafPath);
  return done;
}

bool ZtStandardReader::EndObject() {
  Frame& frame = Top();
  bool done = true;
  if (frame.type->rows.takesText && !frame.run.IsEmpty()) {
    for (const ZtField& row : *frame.type) {
      if (!row.IsOwnText()) continue;
      if (row.place == ZtPlace::kOwnWords) {
        done = done && (!m_Options.makes || KeepWords(frame, row));
        continue;
      }
      const ZtStated value = ZtParse(row, frame.run.Piece());
      if (!value.stated) LoseHere(ZT_LOST_VALUE, m_Xml.From());
      if (!frame.object) continue;
      if (value.text.text) Ended(value.text);
      done = done && ZtKeep(*frame.object, row, value, &m_Arena);
    }
  }
  if (ZtSourceText* source = m_Options.source) {
    ZtSourceText::Part& part = source->parts[frame.part];
    part.to = m_Xml.To();
    part.next = source->parts.Size();
    part.taken = frame.taken;
  }
  if (m_Options.lost) {
    m_Path.Pop(frame.path);
    m_Counts.Cut(frame.counts);
  }
  m_Frames.Cut(m_Frames.Size() - 1);
  return done;
}

bool ZtStandardReader::KeepWords(const Frame& frame, const ZtField& row) {
  ZtPiece rest = ZtTrimmed(frame.run.Piece());
  while (rest.size) {
    std::size_t size = 0;
    while (size < rest.size && !ZtIsBlank(rest.text[size])) ++size;
    const ZtPiece word(rest.text, size);
    rest = ZtTrimmed({rest.text + size, rest.size - size});
    zt_string* string = ZtMakeString(Source(), Ended(word));
    if (!string || !Adopt(frame, row, string)) {
      ZtRelease(string);
      return false;
    }
  }
  return true;
}

// ---- Texts and attributes -----------------------------------------------------------------------

// Ends a text in place: what follows it has been read.
ZtPiece ZtStandardReader::Ended(ZtPiece text) const {
  const_cast<char*>(text.text)[text.size] = '\0';
  return text;
}

void ZtStandardReader::Text() {
  if (m_iSkipped) return;
  const ZtPiece text = m_Xml.Text();
  if (m_pLeaf) return m_LeafRun.Add(text);
  Frame& frame = Top();
  if (frame.type->rows.takesText) return frame.run.Add(text);
  if (m_Options.lost && ZtTrimmed(text).size) Lose(ZT_LOST_TEXT, "/(text)", {"", 0}, m_Xml.From());
}

bool ZtStandardReader::Attributes(const Frame& frame) {
  const ZtElementType& type = *frame.type;
  const ZtField* next = type.begin();
  for (std::uint32_t i = 0; i < m_Xml.AttributeCount(); ++i) {
    const ZtXmlAttribute& attribute = m_Xml.Attributes()[i];
    const ZtField* row =
        attribute.name.prefix.text ? nullptr : ZtNextAttribute(type, next, attribute.name.local);
    if (!row) {
      if (!KeepPair(frame, attribute)) return false;
      continue;
    }
    const ZtStated value = ZtParse(*row, attribute.value);
    if (!value.stated) Lose(ZT_LOST_VALUE, "/@", attribute.name.local, attribute.valueFrom);
    if (!frame.object) continue;
    if (value.text.text) Ended(value.text);
    if (!ZtKeep(*frame.object, *row, value, &m_Arena)) return false;
  }
  return true;
}

// An attribute that no row names. One with a prefix knows its namespace, so that it can be written
// wherever its object goes.
bool ZtStandardReader::KeepPair(const Frame& frame, const ZtXmlAttribute& attribute) {
  const ZtElementType& type = *frame.type;
  const ZtPiece name = ZtQualified(attribute.name);
  if (!ZtKeepsAttribute(type, attribute.name.space, attribute.name.local)) {
    Lose(ZT_LOST_ATTRIBUTE, "/@", name, attribute.from);
    return true;
  }
  if (!m_Options.makes) return true;
  const ZtField& row = ZtOthersOf(type);
  const bool declares = attribute.name.space != kZtNoSpace && attribute.name.space != kZtSpaceXml;
  const ZtPiece uri = declares ? m_Xml.Scope().Uri(attribute.name.space) : ZtPiece(nullptr);
  zt_AttributeValuePair* pair = ZtMakePair(Source(), Ended(name), attribute.value, uri);
  ZtAttributeList& others = row.Attributes(*frame.object);
  if (!pair || !others.Add(pair, Source().file, Source().arena)) {
    ZtRelease(pair);
    return false;
  }
  return !m_Options.source || NotePart(static_cast<const XMLAttribute*>(pair), attribute.from,
                                       attribute.valueTo + 1, &row);
}

bool ZtStandardReader::NotePart(const void* object, std::size_t from, std::size_t to,
                                const ZtField* row) {
  const std::uint32_t parent = m_Frames.Size() ? Top().part : ZtSourceText::kNone;
  const std::uint32_t next = m_Options.source->parts.Size() + 1;
  return m_Options.source->parts.Add({object, from, to, parent, next, row, 0});
}

// ---- Losses -------------------------------------------------------------------------------------

// Goes down to an element that a row names.
void ZtStandardReader::Enter(ZtPiece name, bool isRepeated) {
  std::uint32_t index = 0;
  if (isRepeated) {
    const int id = ZtNameId::Of(name).Id();
    std::uint32_t at = Top().counts;
    while (at < m_Counts.Size() && m_Counts[at].name != id) ++at;
    // Without memory for a count paths go on without indices.
    if (at < m_Counts.Size() || m_Counts.Add({id, 0})) index = ++m_Counts[at].entries;
  }
  m_Path.Push("/", name, index);
}

void ZtStandardReader::Lose(eZtLoss kind, const char* sign, ZtPiece name, std::size_t at) {
  if (!m_Options.lost) return;
  const std::size_t size = m_Path.Push(sign, name);
  LoseHere(kind, at);
  m_Path.Pop(size);
}

void ZtStandardReader::LoseHere(eZtLoss kind, std::size_t at) {
  if (m_Options.lost) LoseAt(kind, m_Places.Find(at));
}

void ZtStandardReader::LoseAt(eZtLoss kind, const ZtTextPlace& place) {
  if (!m_Options.lost) return;
  m_Options.lost({kind, m_Path.Text(), place.line, place.column}, m_Options.context);
}
