#include "ztxml/XmlDecoder.h"

#include <climits>

#include "base/ZtBytes.h"
#include "base/ZtLog.h"
#include "base/ZtMemory.h"
#include "text/TagScanner.h"
#include "ztxml/ZtSink.h"

namespace {

constexpr char kSource[] = "src/XmlDecoder";
constexpr char kNodeSource[] = "src/XmlCommon";  // of all nodes but the sentinel
constexpr int kSentinelLine = 100;  // where the memory log's readers know the sentinel from
constexpr char kWhiteSpace[] = " \t\r\n";
constexpr std::size_t kLeastCapacity = 64;

ZtLog Log(int level, int line = __builtin_LINE()) {
  return ZtLog(level, kSource, line, kZtModuleParser);
}

// A start tag that was cut down to its name.
ScannedTag TagOf(char* name) {
  ScannedTag tag;
  tag.name = name;
  tag.nameEnd = name + __strlen(name);
  tag.colon = __strchr(name, ':');
  tag.close = tag.nameEnd;
  tag.isEmpty = tag.blankAtEnd = tag.hasEntity = false;
  tag.count = 0;
  return tag;
}

}  // namespace

// A node of the element stack, after the sentinel, with the element's name.
struct XmlDecoder::OpenElement : BuddyLinkList {
  static constexpr std::size_t kRoom = 32;  // two blocks

  OpenElement* outer = nullptr;
  std::size_t size = 0;  // of the name; 0 when it is none that a tag can have
  bool alone = false;    // an allocation of its own, with its name in another: a caller may take it
  char room[kRoom];      // for all but long names
};

// Nodes that are allocated together: most documents need no more.
struct XmlDecoder::OpenElements : ZtHeapObject {
  OpenElements* older;
  OpenElement nodes[8];

  explicit OpenElements(OpenElements* before) : older(before) {
    for (int i = 1; i < 8; ++i) nodes[i - 1].outer = &nodes[i];
  }
};

// Tells a receiver of callbacks, if there is one.
class XmlDecoder::Callbacks final : public ZtSink {
 public:
  explicit Callbacks(XmlDecoder& parser) : m_Parser(parser), m_pBefore(parser.m_pSink) {
    parser.m_pSink = this;
  }
  ~Callbacks() { m_Parser.m_pSink = m_pBefore; }
  Callbacks(const Callbacks&) = delete;
  Callbacks& operator=(const Callbacks&) = delete;

  void Start(ScannedTag& tag) override {
    if (m_Parser.m_pSchema) m_Parser.m_pSchema->ProcessElement(tag.name, nullptr);
  }
  void Attributes(ScannedTag& tag) override {
    for (ScannedAttribute& attribute : tag) {
      tag.Cut(attribute);
      Attribute(tag.name, attribute.name, attribute.value);
    }
    if (tag.blankAtEnd) Attribute(tag.name, tag.close, tag.close);
  }
  void Opened(char* name) override {
    if (m_Parser.m_pSchema) m_Parser.m_pSchema->ProcessElementOpened(name);
  }
  void Tag(ScannedTag& tag) override { ZtTellTag(*this, tag); }
  int End(ZtPiece slashName, ZtPiece text) override {
    if (!m_Parser.m_pSchema) return 0;
    return m_Parser.m_pSchema->ProcessElement(const_cast<char*>(slashName.text),
                                              const_cast<char*>(text.text));
  }

 private:
  void Attribute(char* element, char* name, char* value) {
    if (m_Parser.m_pSchema) m_Parser.m_pSchema->ProcessAttribute(element, name, value);
  }

  XmlDecoder& m_Parser;
  ZtSink* const m_pBefore;
};

XmlDecoder::XmlDecoder() { InitXmlDecoder(); }

XmlDecoder::~XmlDecoder() { ResetXmlDecoder(); }

void XmlDecoder::InitXmlDecoder() {
  if (!m_pElementStack) {
    m_pElementStack = new BuddyLinkList;
    if (m_pElementStack) {
      ZtRecord(kZtTagStackNode, kSource, kSentinelLine, m_pElementStack, sizeof(BuddyLinkList));
    }
  }
  DropPending();
  m_DecodeState = ZT_XML_PARSE_BEGIN;
}

void XmlDecoder::DropPending() {
  if (!m_bBorrowed) __free(m_pPendingText);
  m_pPendingText = nullptr;
  m_bBorrowed = false;
  m_iLength = m_iCapacity = m_iTag = m_iScanned = 0;
}

bool XmlDecoder::IsLean() const {
  return m_pElementStack && !m_pTop && !(m_pNodes && m_pNodes->older);
}

void XmlDecoder::ResetXmlDecoder() {
  DropPending();
  if (!m_pElementStack) return;
  while (m_pTop) Pop();
  m_pSpare = nullptr;
  while (OpenElements* nodes = m_pNodes) {
    m_pNodes = nodes->older;
    delete nodes;
  }
  BuddyLinkList::Release(m_pElementStack);
  m_pElementStack = nullptr;
}

// ---- Feeding ------------------------------------------------------------------------------------

int XmlDecoder::Decode(char* n_strXML, int n_count) {
  Log(kZtLogTrace)("XmlDecoder::n_count = %d", n_count);
  if (!n_strXML || n_count <= 0) {
    Log(kZtLogTrace)("XmlDecoder::Decode n_strXML is null");
    return ZT_XML_ERROR;
  }
  if (m_DecodeState == ZT_XML_PARSE_COMPLETE) {
    Log(kZtLogTrace)("XmlDecoder::Decode m_DecodeState = ZT_XML_PARSE_COMPLETE ret ZT_XML_SUCCESS");
    return ZT_XML_SUCCESS;
  }
  if (m_DecodeState == ZT_XML_PARSE_ERROR) return ZT_XML_ERROR;
  if (AppendText(n_strXML, n_count) != 0) return ZT_XML_ERROR;
  const Callbacks callbacks(*this);
  return Continue();
}

int XmlDecoder::DecodeWhole(char* text, std::size_t size, ZtSink& sink) {
  Log(kZtLogTrace)("XmlDecoder::n_count = %d", static_cast<int>(size));
  if (size == 0) {
    Log(kZtLogTrace)("XmlDecoder::Decode n_strXML is null");
    return ZT_XML_ERROR;
  }
  DropPending();
  m_pPendingText = text;
  m_bBorrowed = true;
  m_iLength = size;
  m_pSink = &sink;
  const int result = Continue();
  m_pSink = nullptr;
  DropPending();
  return result;
}

// Adds the chunk to the pending text. The buffer doubles, so that feeding byte by byte stays
// linear. 0, or -1 with everything as it was.
int XmlDecoder::AppendText(const char* text, int count) {
  if (m_iLength + static_cast<std::size_t>(count) + 1 > static_cast<std::size_t>(INT_MAX)) {
    return -1;
  }
  const void* end = std::memchr(text, '\0', static_cast<std::size_t>(count));
  const std::size_t size = end ? static_cast<std::size_t>(static_cast<const char*>(end) - text)
                               : static_cast<std::size_t>(count);
  const std::size_t needed = m_iLength + size + 1 + kZtPadding;
  if (needed > m_iCapacity) {
    std::size_t capacity = m_iLength ? 2 * m_iCapacity : needed;
    if (capacity < needed) capacity = needed;
    if (capacity < kLeastCapacity) capacity = kLeastCapacity;
    auto* buffer = static_cast<char*>(__malloc(capacity));
    if (!buffer) return -1;
    if (m_iLength) std::memcpy(buffer, m_pPendingText, m_iLength);
    __free(m_pPendingText);
    m_pPendingText = buffer;
    m_iCapacity = capacity;
  }
  ZtCopyText(m_pPendingText + m_iLength, text, size);
  m_iLength += size;
  m_pPendingText[m_iLength] = '\0';
  return 0;
}

// ---- Tags ---------------------------------------------------------------------------------------

// Reads the pending text tag by tag. Tags are cut in place; everything handed to the callbacks
// points into the pending text.
int XmlDecoder::Continue() {
  char* position = m_pPendingText;
  char* const end = position + m_iLength;
  char* scan = position + m_iScanned;
  ZtStructure structure(position + m_iTag, end);
  for (;;) {
    m_bEmptyElement = 0;
    char* const tag = structure.NextTag(position);
    if (!tag) {
      // Intended: the text after the last tag of a chunk is dropped, also when its end tag comes
      // with the next chunk; callers end chunks with a tag.
      m_iFailed = m_iLength;
      m_DecodeState = ZT_XML_PARSE_CONTINUE;
      *m_pPendingText = '\0';
      m_iLength = m_iTag = m_iScanned = 0;
      Log(kZtLogState)("<XML Decoder>:ZT_XML_PARSE_CONTINUE ret:ZT_XML_INCOMPLETE");
      return ZT_XML_INCOMPLETE;
    }
    bool counts = true;  // whether the tag can end the document
    char* close = PlainEnd(tag, end);
    if (close) {
      *close = '\0';
      ReportEnd(position, tag);
    } else {
      ScannedTag scanned;
      const bool plain = scanned.Scan(tag + 1, scan, structure, end);
      close = scanned.close;
      if (!close) {
        m_iTag = static_cast<std::size_t>(tag - position);
        m_iFailed = static_cast<std::size_t>(tag - m_pPendingText);
        return OutOfTags(position);
      }
      if (plain) {
        if (!ReportTag(scanned)) {
          m_iFailed = static_cast<std::size_t>(tag - m_pPendingText);
          return ParseError();
        }
      } else {
        *close = '\0';
        m_iFailed = static_cast<std::size_t>(tag - m_pPendingText);
        const int result = AnyTag(position, tag, close, counts);
        if (result != 0) return result;
      }
    }
    position = scan = close + 1;
    if (counts && !m_pTop) {
      m_DecodeState = ZT_XML_PARSE_COMPLETE;
      Log(kZtLogState)("<XML Decoder>:Decoder Success");
      return ZT_XML_SUCCESS;
    }
  }
}

// The '>' of an end tag that is nothing but that of the innermost open element; null for others.
char* XmlDecoder::PlainEnd(char* tag, const char* end) const {
  if (tag[1] != '/' || !m_pTop || m_pTop->size == 0) return nullptr;
  char* const name = tag + 2;
  const std::size_t size = m_pTop->size;
  if (size >= static_cast<std::size_t>(end - name) || name[size] != '>') return nullptr;
  return ZtSameBytes(name, static_cast<char*>(m_pTop->data), size) ? name + size : nullptr;
}

// The start tag of `element` is complete and reported; false without memory.
[[gnu::always_inline]] inline bool XmlDecoder::Opened(const char* element, std::size_t size) {
  if (Push(element, size, m_pPendingText + m_iLength)) return true;
  m_DecodeState = ZT_XML_PARSE_ERROR;
  Log(kZtLogState)(
      "<XML Decoder>:Decoder Failed as stack is not empty at end, reason: ZT_XML_PARSE_ERROR");
  return false;
}

// Reports a tag in its plain form. False without memory.
[[gnu::always_inline]] inline bool XmlDecoder::ReportTag(ScannedTag& tag) {
  *tag.nameEnd = *tag.close = '\0';
  if (ZtLogDiscards(kZtLogTrace)) {
    m_pSink->Tag(tag);
  } else {
    // The line comes between the steps.
    const bool started = tag.isEmpty || tag.count > 0;
    if (started) m_pSink->Start(tag);
    Log(kZtLogTrace)("XmlDecoder:: DecodeAttributes %d", 0);
    if (tag.count) m_pSink->Attributes(tag);
    if (!started) m_pSink->Start(tag);
    m_pSink->Opened(tag.name);
  }
  if (!tag.isEmpty) return Opened(tag.name, tag.NameSize());
  EndEmpty(tag.name, tag.NameSize(), {tag.close, 0});
  return true;
}

// A tag of any other form, cut at its '>'. 0, or the result of the parse; `counts` is cleared for
// one that cannot end the document.
int XmlDecoder::AnyTag(char* text, char* tag, char* close, bool& counts) {
  char* const name = tag + 1;
  if (*name == '?') {
    // Intended: a processing instruction inside the root is an error, where XML allows it;
    // receivers have no callback for it.
    if (close[-1] != '?' || m_pTop) return ParseError();
    counts = false;
  } else if (close - tag >= 4 && std::memcmp(name, "!--", 3) == 0) {
    if (close - tag < 6 || close[-1] != '-' || close[-2] != '-') return ParseError();
    counts = false;
  } else if (*name == '/') {
    return EndTag(text, tag, close);
  } else if (close[-1] == '/') {
    close[-1] = '\0';
    m_bEmptyElement = 1;
    if (DecodeAttributes(name) < 0) {
      Log(kZtLogState)(
          "<XML Decoder>:Decoder Failed in DecodeAttributes and ret:ZT_XML_PARSE_ERROR");
      return ParseError();
    }
  } else {
    const int result = DecodeAttributes(name);
    if (result < 0) {
      Log(kZtLogState)("<XML Decoder>:Decoder Failed in DecodeAttributes");
      return ParseError();
    }
    char* const element = name + std::strspn(name, kWhiteSpace);
    if (result == 1) {
      ScannedTag plain = TagOf(element);
      m_pSink->Start(plain);
    }
    m_pSink->Opened(element);
    if (!Opened(element, __strlen(element))) return ParseError();
  }
  return 0;
}

// The input ended inside a tag that begins at `position` or after it: keeps the text from there.
int XmlDecoder::OutOfTags(char* position) {
  Log(kZtLogState)("<XML Decoder>:ZT_XML_PARSE_CONTINUE ret:ZT_XML_INCOMPLETE ");
  m_DecodeState = ZT_XML_PARSE_CONTINUE;
  const auto consumed = static_cast<std::size_t>(position - m_pPendingText);
  if (consumed && !m_bBorrowed) {
    m_iLength -= consumed;
    __memmove(m_pPendingText, m_iCapacity, position, m_iLength + 1);
  }
  m_iScanned = m_iLength;
  return ZT_XML_INCOMPLETE;
}

// An end tag: `tag` points at its '<', `text` at the element's text before it. Intended: an end tag
// that does not fit fails the call and leaves the parser's state as it was, so that callers may
// feed it further; other faults of a document are final.
int XmlDecoder::EndTag(char* text, char* tag, const char* close) {
  if (!m_pTop) {
    Log(kZtLogState)("<XML Decoder>:stack is empty when decodeBegin is not");
    ForgetConsumed(text, tag, close);
    return ZT_XML_ERROR;
  }
  char* const slashName = tag + 1;  // "/name": the slash is the end tag's own
  const char* stored = static_cast<char*>(m_pTop->data);
  if (__strcmp(stored, slashName + 1) != 0) {
    Log(kZtLogState)(
        "<XML Decoder>:stack mismatch happened when stored value is \"%s\" and ret:ZT_XML_ERROR",
        stored);
    Pop();
    ForgetConsumed(text, tag, close);
    return ZT_XML_ERROR;
  }
  ReportEnd(text, tag);
  return 0;
}

// The end of the innermost open element, whose '<' is at `tag`. Intended: an element's text is
// handed on as it stands, with its entities, where an attribute's value has them replaced; callers
// unescape texts themselves.
void XmlDecoder::ReportEnd(char* text, char* tag) {
  char* const slashName = tag + 1;
  *tag = '\0';
  if (m_pSink->End({slashName, m_pTop->size + 1}, {text, static_cast<std::size_t>(tag - text)})) {
    Log(kZtLogState)(
        "<XML Decoder>:ProcessElement(pStrEndElement, start) failed when pStrEndElement=\"%s\"",
        slashName);
  }
  Pop();
}

// After a failure that keeps the state, a later call reads the text again up to where it was first
// cut. That makes no sense as a document, but stays within the buffer; and a tag or a '>' that is
// known not to be there is not looked for again.
void XmlDecoder::ForgetConsumed(const char* text, const char* tag, const char* close) {
  m_iTag = m_iScanned = 0;
  if (text == m_pPendingText) {
    m_iLength = m_iScanned = static_cast<std::size_t>(close - text);
    m_iTag = static_cast<std::size_t>(tag - text);
  } else {
    m_iLength = __strlen(m_pPendingText);
  }
}

int XmlDecoder::ParseError() {
  m_DecodeState = ZT_XML_PARSE_ERROR;
  ResetXmlDecoder();
  return ZT_XML_ERROR;
}

// ---- Attributes ---------------------------------------------------------------------------------

// Reports a start or empty-element tag whose text follows its '<'; cuts the text down to the
// element's name. -1 failure; 1 when the caller has to report the start; 0 when all is reported.
int XmlDecoder::DecodeAttributes(char* n_strAttrList) {
  char* rest = nullptr;
  char* element = N_strtok(n_strAttrList, kWhiteSpace, &rest);
  if (!element) {
    m_DecodeState = ZT_XML_PARSE_ERROR;
    return -1;
  }
  const bool started = m_bEmptyElement == 1 || rest[std::strspn(rest, "=")] != '\0';
  ScannedTag tag = TagOf(element);
  if (started) m_pSink->Start(tag);
  const int valid = ValidateAttributeList(rest);
  Log(kZtLogTrace)("XmlDecoder:: DecodeAttributes %d", valid);
  if (valid != 0) {
    Log(kZtLogTrace)("XmlDecoder:: DecodeAttributes - Attribute list invalid");
    return -1;
  }
  return ReportAttributes(tag, rest, started);
}

int XmlDecoder::ReportAttributes(ScannedTag& tag, char* rest, bool started) {
  while (*rest) {
    char* name = N_strtok(rest, "=", &rest);
    if (!name) break;
    // Intended: only the leading side of an attribute's name is trimmed, so that `x ="1"` is the
    // attribute "x ", and white space before the '>' comes out as an attribute with an empty name;
    // receivers drop it.
    name += std::strspn(name, kWhiteSpace);
    rest += std::strspn(rest, kWhiteSpace);
    char* value = tag.nameEnd;  // its NUL
    if ((rest[0] == '"' || rest[0] == '\'') && rest[1] == rest[0]) {
      rest += 2;
    } else if (char* token = N_strtok(rest, rest[0] == '\'' ? "'" : "\"", &rest)) {
      value = token;
    }
    UnescapeXml(value);
    tag.attributes[tag.count++] = {name, name + __strlen(name), value, value + __strlen(value)};
    if (tag.count == ScannedTag::kMostAttributes) {
      m_pSink->Attributes(tag);
      tag.count = 0;
    }
  }
  if (tag.count) {
    m_pSink->Attributes(tag);
    tag.count = 0;
  }
  if (m_bEmptyElement != 1) return started ? 0 : 1;
  m_pSink->Opened(tag.name);
  EndEmpty(tag.name, tag.NameSize(), rest);
  m_bEmptyElement = 0;
  return 0;
}

void XmlDecoder::EndEmpty(char* element, std::size_t size, ZtPiece text) {
  // The byte before the name is the '<' or white space after it: it becomes the end tag's slash.
  element[-1] = '/';
  m_pSink->End({element - 1, size + 1}, text);
}

// ---- Stack of open elements ---------------------------------------------------------------------

BuddyLinkList* XmlDecoder::PushElement(char* name) {
  if (!name || !m_pElementStack) return nullptr;
  auto* node = new OpenElement;
  char* copy = node ? __strdup(name) : nullptr;
  if (!copy) {
    delete node;
    Log(kZtLogTrace)("XmlDecoder::PushElement | ztDplStrdup failed");
    return nullptr;
  }
  node->alone = true;
  node->data = copy;
  // The first '>' ends a tag, so that none can end an element that has one in its name.
  node->size = __strchr(name, '>') ? 0 : __strlen(name);
  Link(node);
  return node;
}

// A node for a name of `size` bytes with room for it; null without memory.
XmlDecoder::OpenElement* XmlDecoder::Reserve(std::size_t size) {
  if (!m_pElementStack) return nullptr;
  if (!m_pSpare) {
    auto* nodes = new OpenElements(m_pNodes);
    if (nodes) {
      m_pNodes = nodes;
      m_pSpare = nodes->nodes;
    }
  }
  OpenElement* node = m_pSpare;
  if (node) node->data = size < OpenElement::kRoom ? node->room : __malloc(size + 1);
  if (node && node->data) return node;
  Log(kZtLogTrace)("XmlDecoder::PushElement | ztDplStrdup failed");
  return nullptr;
}

// The text that the name is in ends at `end`.
bool XmlDecoder::Push(const char* name, std::size_t size, const char* end) {
  OpenElement* node = m_pSpare;
  if (node && size < OpenElement::kRoom &&
      end - name >= static_cast<std::ptrdiff_t>(OpenElement::kRoom)) {
    std::memcpy(node->room, name, OpenElement::kRoom);
    node->room[size] = '\0';
    node->data = node->room;
  } else {
    node = Reserve(size);
    if (!node) return false;
    *ZtCopy(static_cast<char*>(node->data), {name, size}) = '\0';
  }
  m_pSpare = node->outer;
  node->size = size;
  Link(node);
  return true;
}

void XmlDecoder::Link(OpenElement* node) {
  node->outer = m_pTop;
  (m_pTop ? m_pTop : m_pElementStack)->next = node;
  ZtRecord(kZtTagStackNode, kNodeSource, __LINE__, node, sizeof(BuddyLinkList));
  m_pTop = node;
}

XmlDecoder::OpenElement* XmlDecoder::Unlink() {
  OpenElement* node = m_pTop;
  m_pTop = node->outer;
  (m_pTop ? m_pTop : m_pElementStack)->next = nullptr;
  return node;
}

void XmlDecoder::Pop() {
  OpenElement* node = Unlink();
  ZtWithdraw(kZtTagStackNode, node);
  if (node->data != node->room) {
    __free(node->data);
    if (node->alone) {
      delete node;
      return;
    }
  }
  node->outer = m_pSpare;
  m_pSpare = node;
}

// What the parser itself has opened shares its memory with others: the caller gets a copy.
BuddyLinkList* XmlDecoder::PopElement() {
  if (!m_pTop) return nullptr;
  if (m_pTop->alone) {
    OpenElement* node = Unlink();
    char* name = static_cast<char*>(node->data);
    // The caller deletes it as what it is declared to be.
    auto* plain = ::new (static_cast<void*>(node)) BuddyLinkList;
    plain->data = name;
    return plain;
  }
  char* name = __strdup(static_cast<char*>(m_pTop->data));
  BuddyLinkList copy;
  BuddyLinkList* node = name ? copy.Append(name) : nullptr;
  if (node) {
    Pop();
  } else {
    __free(name);
  }
  return node;
}
