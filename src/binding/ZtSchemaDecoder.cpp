#include "ztxml/ZtSchemaDecoder.h"

#include <utility>

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "text/TagScanner.h"
#include "ztxml/XMLValueTypes.h"

namespace {
constexpr std::size_t kMostKept = 128;  // bytes for a pass name, from one document to the next
constexpr std::size_t kMostShortName = 65533;  // ZtShortNameSize cuts longer ones
}  // namespace

ZtSchemaDecoder::ZtSchemaDecoder(const ZtDocument& document)
    : m_Document(document), m_pText(nullptr), m_pNamed(nullptr) {}

ZtSchemaDecoder::~ZtSchemaDecoder() {
  __free(m_PassName);
  if (m_pFrames != m_FewFrames) __free(m_pFrames);
}

int ZtSchemaDecoder::ProcessReserved() { return 0; }

// The parser lets `< /a>` pass as the start of an element "/a", which a decoder cannot tell from
// the end of "a" until it is said to be open.
int ZtSchemaDecoder::ProcessElementOpened(char* name) {
  if (name && *name == '/') RefuseSlash(name);
  return 0;
}

void* ZtSchemaDecoder::GetSessionData() { return m_pRoot; }

XMLObject* ZtSchemaDecoder::Finish() {
  const bool isWhole = m_Stack.empty() && !m_bFailed && !m_iSkipped && !m_iDropped;
  if (!isWhole || m_ReplacedRoots.Get()) return nullptr;
  if (m_pFrames != m_FewFrames || m_iPassCapacity > kMostKept) return nullptr;
  m_Started = {};
  m_pText = nullptr;
  m_pNamed = nullptr;
  m_pArena = nullptr;
  m_bOfferEnd = false;
  return std::exchange(m_pRoot, nullptr);
}

int ZtSchemaDecoder::SetNameSpaceBinderInfo(XMLObject*) { return 0; }

// ---- Elements -----------------------------------------------------------------------------------

int ZtSchemaDecoder::ProcessElement(char* name, char* value) {
  if (!name) {
    ZtLog(kZtLogTrace, m_Document.decoderSource)("In %s :: ProcessElement, Element name is NULL",
                                                 m_Document.decoder);
    return -1;
  }
  return ElementCallback(name, value);
}

int ZtSchemaDecoder::ElementCallback(char* name, ZtPiece value) {
  std::size_t size = 0;
  const char* local = LocalName(name, size);
  m_pNamed = name;
  if (!local) {
    ZtLog(kZtLogState, m_Document.decoderSource)(
        "<XML Module>%s :: ProcessElement: m_PassName is NULL", m_Document.decoder);
    m_bFailed = true;
  }
  if (m_bFailed || RefusesStart(name)) return -1;
  const Open current = Current();
  const bool atEnd = *name == '/';
  const bool skipped = m_iSkipped != 0;
  if (skipped) {
    m_iSkipped = atEnd ? m_iSkipped - 1 : m_iSkipped + 1;
    if (m_iSkipped || !m_bOfferEnd) return 0;
  }
  if (!atEnd) {
    if (!StartElement(current, {local, size})) m_iSkipped = 1;
    return 0;
  }
  // A name that was cut short may have lost even its slash.
  EndElement(current, *local == '/' ? ZtChildName(local, size) : ZtChildName("/", 1), value,
             skipped);
  return 0;
}

// What stands outside of the tree has its line in the log.
void ZtSchemaDecoder::NoteEmptyStack(int callbacks) const {
  while (m_Stack.empty() && callbacks--) m_Stack.top();
}

void ZtSchemaDecoder::Tag(ScannedTag& tag) { WholeTag(tag); }

void ZtSchemaDecoder::WholeTag(ScannedTag& tag) {
  if (StartKnown(tag)) return;
  StartTag(tag);
  if (tag.count) KeepAttributes(tag);
  Opened(tag.name);
}

// Does all that is to be done for most tags: those of the texts and objects that rows of the open
// type name. False for others, of which nothing is done then.
inline bool ZtSchemaDecoder::StartKnown(ScannedTag& tag) {
  if (m_bFailed || m_iSkipped || m_iDropped || m_Stack.empty()) return false;
  if (tag.NameSize() >= kMostShortName || *tag.name == '/') return false;
  const char* local = tag.name;
  if (tag.colon) {
    local = tag.colon[1] == '/' ? nullptr : LocalPart(tag.name, tag.colon);
    if (!local) return false;
  }
  Frame& frame = Top();
  const ZtElementType& parent = *frame.type;
  if (parent.extras->child) return false;
  const ZtField* const row =
      ZtNextChild(parent, frame.next, {local, static_cast<std::size_t>(tag.nameEnd - local)});
  if (!row) return false;
  for (const ZtRoot& root : m_Document.roots) {
    if (root.name == row->name) return false;
  }
  if (row->IsText()) {
    m_pText = row;
    m_bOfferEnd = true;
    m_iSkipped = 1;
    m_Started = Open();
    return true;
  }
  const ZtElementType& type = *row->detail.type;
  if (type.extras->flag) return false;
  XMLElement* const child = Make(type);
  if (!child) return true;
  const ZtSource source(parent.family->source, m_pArena);
  if (ZtAdopt(*static_cast<XMLElement*>(m_Stack.top()), *row, child, source) !=
      ZtOutcome::kAdopted) {
    ZtRelease(child);  // there is no memory: what was just made has no owner yet
    m_Started = Open();
    m_bFailed = true;
    return true;
  }
  m_bOfferEnd = false;
  Push(child, {&type, row, Kind::kObject}, row->name);
  if (tag.count) KeepAttributes(tag);
  return true;
}

void ZtSchemaDecoder::Start(ScannedTag& tag) { StartTag(tag); }

void ZtSchemaDecoder::StartTag(ScannedTag& tag) {
  if (m_bFailed) return;
  // What may be refused is looked at as the callback does.
  if (*tag.name == '/' || (tag.colon && tag.colon[1] == '/')) {
    ElementCallback(tag.name, nullptr);
    return;
  }
  if (m_iSkipped) {
    ++m_iSkipped;
    return NoteEmptyStack(1);
  }
  const char* local = tag.name;
  if (tag.NameSize() >= kMostShortName) {
    local = nullptr;
  } else if (tag.colon) {
    local = LocalPart(tag.name, tag.colon);
  }
  if (!local) {
    ElementCallback(tag.name, nullptr);
    return;
  }
  const ZtChildName name(local, static_cast<std::size_t>(tag.nameEnd - local));
  if (!StartElement(Current(), name)) m_iSkipped = 1;
}

void ZtSchemaDecoder::Opened(char* name) {
  if (*name == '/') RefuseSlash(name);
}

// The parser ends what it has started, so that what was found at the start need not be looked for.
int ZtSchemaDecoder::End(ZtPiece slashName, ZtPiece text) {
  if (m_bFailed) return -1;
  char* const name = const_cast<char*>(slashName.text);
  if (slashName.size > kMostShortName) return ElementCallback(name, text);
  if (m_iSkipped > 1 || (m_iSkipped && !m_bOfferEnd)) {
    --m_iSkipped;
    NoteEmptyStack(1);
    return 0;
  }
  if (m_iSkipped && m_pText && !m_Stack.empty()) {
    m_iSkipped = 0;
    m_Started = Open();
    KeepText(*m_pText, text);
    return 0;
  }
  return EndOpened(slashName, text) ? 0 : ElementCallback(name, text);
}

// Keeps a text as it lies in the arena; false where that is not all there is to it.
inline bool ZtSchemaDecoder::KeepInPlace(const ZtField& row, ZtPiece text) {
  const bool isPlain = row.place == ZtPlace::kTextElement || row.place == ZtPlace::kOwnText;
  if (!isPlain || row.value != ZtValue::kText || !m_pArena || !m_pArena->Holds(text.text)) {
    return false;
  }
  row.Text(*static_cast<XMLElement*>(m_Stack.top())).Refer(text);
  return true;
}

// Keeps the text of an element that has no object, in the innermost one.
void ZtSchemaDecoder::KeepText(const ZtField& row, ZtPiece text) {
  if (KeepInPlace(row, text)) return;
  XMLElement& object = *static_cast<XMLElement*>(m_Stack.top());
  const ZtOutcome outcome = ZtApplyRow(object, *CurrentType(), row, true, text, nullptr, m_pArena);
  if (outcome == ZtOutcome::kNoMemory) m_bFailed = true;
}

// The end of the innermost object; false when that is not what ends, or not all there is to it.
bool ZtSchemaDecoder::EndOpened(ZtPiece slashName, ZtPiece text) {
  if (m_iSkipped || m_iDropped || m_Stack.empty()) return false;
  const Frame& frame = Top();
  const ZtElementType& type = *frame.type;
  const ZtNameId name = ZtNameId::OfId(frame.name);
  if (frame.kind == Kind::kExtension) {
    // An extension is offered its own end, of which most have nothing but a line to log.
    const bool mayTake =
        type.extras->child || type.attributesAsTexts || type.rows.names.MayHave(name);
    if (mayTake || !ZtLogDiscards(kZtLogTrace)) return false;
  } else if (type.rows.takesText && frame.kind != Kind::kRoot) {
    const bool byRows = !type.extras->child && !type.attributesAsTexts;
    const ZtField* const row = byRows ? ZtFindChild(type, name) : nullptr;
    if (!row || !row->IsOwnText() || !KeepInPlace(*row, text)) {
      if (std::memchr(slashName.text, ':', slashName.size)) return false;
      Offer(Current(), ZtChildName(slashName, true, name), text, nullptr);
    }
  }
  Pop();
  m_Started = Open();
  return true;
}

// False when the content of the element is to be skipped.
bool ZtSchemaDecoder::StartElement(const Open& current, const ZtChildName& name) {
  const Element element = Find(name.id, current.type);
  m_bOfferEnd = true;
  m_pText = nullptr;
  m_Started = Open();
  if (element.kind == Kind::kRoot) {
    StartRoot(element, name.id);
    return m_Started.object != nullptr;
  }
  if (!current.object) {
    m_bOfferEnd = false;
    return false;
  }
  if (element.type) return StartChild(current, element, name);
  if (element.row && element.row->IsText() && !current.type->extras->child) {
    m_pText = element.row;
  } else {
    Offer(current, name, nullptr, nullptr, element.row);
  }
  return false;
}

// The first of two roots lives on until the decoder ends: its objects may be open. Intended: a root
// element inside an open tree replaces the tree: of several roots callers get the last one alone.
void ZtSchemaDecoder::StartRoot(const Element& element, ZtNameId name) {
  if (m_pRoot && !m_ReplacedRoots.Add(m_pRoot)) {
    m_bFailed = true;
    return;
  }
  m_pRoot = static_cast<XMLObject*>(Make(*element.type));
  if (m_pRoot) Push(m_pRoot, element, name);
}

bool ZtSchemaDecoder::StartChild(const Open& current, const Element& element,
                                 const ZtChildName& name) {
  const bool extension = element.kind == Kind::kExtension;
  const bool flag = element.type->extras->flag != nullptr;
  XMLElement* child = extension ? StartExtension(element, name.id)
                      : flag    ? MakeFlag({name.text, name.size})
                                : Make(*element.type);
  if (!child) return false;
  const ZtOutcome outcome = Offer(current, name, nullptr, child, element.row);
  if (outcome == ZtOutcome::kAdopted) {
    m_bOfferEnd = false;
    if (flag) return false;
    if (!extension) Push(child, element, name.id);
    return true;
  }
  // Nobody wants it. A refused element is offered once more without its object, as an unknown one.
  if (extension) Pop();
  m_Started = Open();
  ZtRelease(child);
  m_bOfferEnd = outcome == ZtOutcome::kRefused;
  if (m_bOfferEnd) Offer(current, name, nullptr, nullptr);
  return false;
}

// The end of an element; `skipped` for one that has no object of its own on the stack.
void ZtSchemaDecoder::EndElement(const Open& current, const ZtChildName& name, ZtPiece value,
                                 bool skipped) {
  Element element = Find(name.id, current.type);
  if (!element.type && !element.row) element.type = FindAnywhere(name.id, true);
  const bool closes = Closes(current, name.id);
  if (skipped || (!closes && (!element.type || element.type->extras->flag))) {
    if (value.text) OfferEnd(current, element.row, name, value);
  } else if (element.kind == Kind::kRoot) {
    Pop();
  } else if (element.kind == Kind::kExtension) {
    Pop();
    Offer(current, name, value, nullptr);
  } else if (m_iDropped) {
    // Its object is not on the stack; its text still reaches it when nothing stood in between.
    if (m_Started.type && m_Started.type->rows.takesText) Offer(m_Started, name, value, nullptr);
    Pop();
  } else if (closes || (current.type && ZtIsClass(element.type->className, *current.type))) {
    if (current.type->rows.takesText) Offer(current, name, value, nullptr);
    Pop();
  }
  m_Started = Open();
}

// Offers the text of an element, with the object that is made at its end if its row says so.
void ZtSchemaDecoder::OfferEnd(const Open& current, const ZtField* row, const ZtChildName& name,
                               ZtPiece value) {
  if (!current.object) return;
  XMLElement* child = nullptr;
  if (row && row->arrival == ZtArrival::kAtEnd) {
    child = Make(*row->detail.type);
    if (!child) return;
  }
  if (Offer(current, name, value, child, row) != ZtOutcome::kAdopted) ZtRelease(child);
}

XMLElement* ZtSchemaDecoder::ProcessAnyElement(char* name, char* value) {
  static_cast<void>(value);
  if (!name) {
    ZtLog(kZtLogTrace, m_Document.decoderSource)("In %s :: ProcessAnyElement, Element name is NULL",
                                                 m_Document.decoder);
    return nullptr;
  }
  const ZtChildName child(name);
  const ZtChoice* extension = ZtFindNamed(m_Document.extensions, child.id);
  if (!extension) return nullptr;
  if (!child.atEnd) {
    return StartExtension({extension->type, nullptr, Kind::kExtension}, child.id);
  }
  Pop();
  m_Started = Open();
  return nullptr;
}

XMLElement* ZtSchemaDecoder::StartExtension(const Element& element, ZtNameId name) {
  XMLElement* object = Make(*element.type);
  if (object) Push(object, element, name);
  return object;
}

// ---- Attributes ---------------------------------------------------------------------------------

namespace {
// The parser makes attributes of whatever stands before an equals sign, and one without a name of
// white space before the end of a tag. What is no name must not be written back.
bool IsAttributeName(const char* name) {
  const char* end = name + std::strcspn(name, "\"'<& \t\r\n");
  return end != name && !end[std::strspn(end, " \t\r\n")];
}
}  // namespace

// Attributes reach an object only from the element that made it; those of texts and of unknown
// elements are dropped.
int ZtSchemaDecoder::ProcessAttribute(char* element, char* name, char* value) {
  if (!element || !name) {
    ZtLog(kZtLogTrace, m_Document.decoderSource)("In %s :: ProcessAttribute, Element name is NULL",
                                                 m_Document.decoder);
    return -1;
  }
  std::size_t size = 0;
  if (!IsNamed(element) && !LocalName(element, size)) {
    ZtLog(kZtLogState, m_Document.decoderSource)(
        "<XML Module>%s :: ProcessAttribute: m_PassName is NULL", m_Document.decoder);
    m_bFailed = true;
    return -1;
  }
  m_pNamed = element;
  if (m_Stack.top() && m_Started.object && !m_bFailed) Attribute(*m_Started.type, name, value);
  return 0;
}

// Whether `element` is the name that was normalised last. Short ones are normalised for each
// attribute; a long one comes with the attributes of its tag at one place, and would make their
// number count twice.
bool ZtSchemaDecoder::IsNamed(const char* element) const {
  constexpr std::size_t kShort = 64;
  return element == m_pNamed && !std::memchr(element, '\0', kShort);
}

void ZtSchemaDecoder::Attributes(ScannedTag& tag) { KeepAttributes(tag); }

void ZtSchemaDecoder::KeepAttributes(ScannedTag& tag) {
  if (m_Stack.empty()) return NoteEmptyStack(tag.count + tag.blankAtEnd);
  if (!m_Started.object || m_bFailed) return;
  XMLElement& object = *m_Started.object;
  const ZtElementType& type = *m_Started.type;
  const ZtField* next = type.begin();
  const bool inPlace = m_pArena && m_pArena->Holds(tag.name);
  const bool hasEntity = tag.hasEntity;
  const ZtField* const rowsEnd = type.children();
  for (ScannedAttribute *attribute = tag.begin(), *end = tag.end(); attribute != end; ++attribute) {
    ScannedTag::Cut(*attribute, hasEntity);
    const ZtField* const row = ZtNextAttribute(type, rowsEnd, next, attribute->Name());
    if (inPlace && row && row->value == ZtValue::kText) {
      row->Text(object).Refer(attribute->Value());
    } else {
      KeepAttribute(type, row, attribute->Name(), attribute->Value());
      if (m_bFailed) return;
    }
  }
}

// An attribute of the element that was started.
void ZtSchemaDecoder::Attribute(const ZtElementType& type, ZtPiece name, ZtPiece value) {
  KeepAttribute(type, ZtFindAttribute(type, ZtNameId::Of(name)), name, value);
}

// `field` null: no row has it.
void ZtSchemaDecoder::KeepAttribute(const ZtElementType& type, const ZtField* field, ZtPiece name,
                                    ZtPiece value) {
  ZtOutcome outcome = ZtOutcome::kAccepted;
  if (field) {
    outcome = ZtStore(*m_Started.object, *field, value, m_pArena);
  } else if (!type.rows.keepsAttributes &&
             (!type.family->lines->unknownAttribute || ZtLogDiscards(kZtLogTrace))) {
    return;  // nobody would learn of it
  } else if (IsAttributeName(name.text)) {
    outcome = OfferAttribute(type, name, value);
  }
  if (outcome == ZtOutcome::kNoMemory) m_bFailed = true;
}

// An attribute that no row names. A type that keeps none of these
// is not given one, only told of it.
ZtOutcome ZtSchemaDecoder::OfferAttribute(const ZtElementType& type, ZtPiece name, ZtPiece value) {
  zt_AttributeValuePair* pair = nullptr;
  if (type.rows.keepsAttributes) {
    pair = ZtMakePair(SourceOf(type), name, value);
    if (!pair) return ZtOutcome::kNoMemory;
  }
  const ZtOutcome outcome =
      ZtOfferAttribute(*m_Started.object, type, name, value.text, pair, m_pArena);
  if (outcome != ZtOutcome::kAdopted) ZtRelease(pair);
  return outcome;
}

// ---- Objects ------------------------------------------------------------------------------------

// The file under which an object of `type` is recorded that is made now.
ZtSource ZtSchemaDecoder::SourceOf(const ZtElementType& type) {
  const ZtElementType* outer = CurrentType();
  const char* source = outer ? outer->family->recordedUnder : nullptr;
  if (!source) source = type.family->recordedUnder;
  return {source ? source : m_Document.decoderSource, m_pArena};
}

XMLElement* ZtSchemaDecoder::Make(const ZtElementType& type) {
  XMLElement* object = ZtRecordsNothing() ? type.Make(m_pArena) : type.Create(SourceOf(type));
  if (!object) m_bFailed = true;
  m_Started = {object, &type};
  return object;
}

// A flag element, present under its own name. Its attributes are nobody's.
XMLElement* ZtSchemaDecoder::MakeFlag(ZtPiece name) {
  zt_empty_element_type* flag = ZtMakeFlag(SourceOf(zt_empty_element_type::kType), name);
  if (!flag) m_bFailed = true;
  return flag;
}

// Offers a child to an open element, if there is one. `row` is the parent's for it, null when there
// is none or it is not known.
ZtOutcome ZtSchemaDecoder::Offer(const Open& parent, const ZtChildName& name, ZtPiece value,
                                 XMLElement* child, const ZtField* row) {
  if (!parent.object || !parent.type) return ZtOutcome::kAccepted;
  ZtOutcome outcome = ZtOutcome::kNotHere;
  if (row && !parent.type->extras->child) {
    // What was made for a row has the class that it asks for.
    const bool fits = child && row->IsObject();
    outcome =
        fits ? ZtAdopt(*parent.object, *row, child, {parent.type->family->source, m_pArena})
             : ZtApplyRow(*parent.object, *parent.type, *row, name.atEnd, value, child, m_pArena);
  }
  if (outcome == ZtOutcome::kNotHere) {
    outcome = ZtOfferChild(*parent.object, *parent.type, name, value, child, m_pArena);
  }
  if (outcome == ZtOutcome::kNoMemory) m_bFailed = true;
  return outcome;
}

ZtSchemaDecoder::Open ZtSchemaDecoder::Current() const {
  if (!m_Stack.empty()) return {static_cast<XMLElement*>(m_Stack.top()), CurrentType()};
  m_Stack.top();  // for its warning
  return {};
}

const ZtElementType* ZtSchemaDecoder::CurrentType() const {
  return m_Stack.empty() ? nullptr : Top().type;
}

void ZtSchemaDecoder::Push(XMLElement* object, const Element& element, ZtNameId name) {
  m_pText = nullptr;
  if (m_Stack.size() == XmlCodeGenStack::kCapacity - 1) ++m_iDropped;
  if (m_Stack.size() == kFewFrames - 1 && !ReserveFrames()) return;
  m_Stack.push(object);
  if (!m_iDropped) Top() = {element.type, element.type->children(), name.Id(), element.kind};
}

// Makes room for the frames of a full stack. False without memory: the document fails.
bool ZtSchemaDecoder::ReserveFrames() {
  if (m_pFrames != m_FewFrames) return true;
  auto* frames = static_cast<Frame*>(__malloc(sizeof(Frame) * XmlCodeGenStack::kCapacity));
  if (!frames) {
    m_bFailed = true;
    return false;
  }
  std::memcpy(frames, m_FewFrames, sizeof(m_FewFrames));
  m_pFrames = frames;
  return true;
}

// The end of an element that the full stack did not take closes nothing. Intended: no more than 100
// elements within each other are open: those further inside become children of the hundredth, where
// their names fit; callers get what could be kept, and no failure.
void ZtSchemaDecoder::Pop() {
  m_pText = nullptr;
  if (m_iDropped) {
    --m_iDropped;
  } else {
    m_Stack.pop();
  }
}

// ---- Names --------------------------------------------------------------------------------------

// What the element `name` is inside an object of the type `current`, null outside of the tree.
ZtSchemaDecoder::Element ZtSchemaDecoder::Find(ZtNameId name, const ZtElementType* current) {
  for (const ZtRoot& root : m_Document.roots) {
    if (root.name == name) return {root.type, nullptr, Kind::kRoot};
  }
  if (!current) return {};
  const ZtField* row = ZtFindChild(*current, name);
  if (row && !row->IsOwnText()) {
    return {row->IsObject() ? row->detail.type : nullptr, row, Kind::kObject};
  }
  if (const ZtChoice* extension = ZtFindNamed(m_Document.extensions, name)) {
    return {extension->type, nullptr, Kind::kExtension};
  }
  if (const ZtChoice* choice = ZtFindChoice(*current, name)) {
    return {choice->type, nullptr, Kind::kObject};
  }
  return {FindAnywhere(name, false), nullptr, Kind::kObject};
}

// Whether `name` ends the object on top of the stack.
bool ZtSchemaDecoder::Closes(const Open& current, ZtNameId name) const {
  return current.object && !m_iDropped && Top().name == name.Id();
}

const char* ZtSchemaDecoder::LocalPart(const char* name, const char* colon) const {
  return !colon || m_Document.prefixes == ZtPrefixRule::kExact ? name : colon + 1;
}
