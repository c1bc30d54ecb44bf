#include "Locate.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Read.h"
#include "Text.h"
#include "reflect/Reflect.h"

namespace {

constexpr char kSource[] = "tools/Locate";
constexpr std::size_t kNowhere = std::string::npos;

struct Release {
  template <class T>
  void operator()(T* object) const {
    ZtRelease(object);
  }
};
using DecoderPtr = std::unique_ptr<ZtSchemaDecoder, Release>;

// Passes the parser's callbacks on and keeps the open elements with the places of their tags.
class Tracker : public Receiver {
 public:
  struct Element {
    std::string name;
    std::size_t offset;
  };

  explicit Tracker(XmlDecoderSchema* next) : m_pNext(next) {}

  void SetTag(std::size_t offset) { m_iTag = offset; }
  const std::vector<Element>& OpenElements() const { return m_Open; }
  std::size_t Root() const { return m_iRoot; }

  int ProcessAttribute(char* element, char* name, char* value) override {
    return m_pNext ? m_pNext->ProcessAttribute(element, name, value) : 0;
  }
  int ProcessElement(char* name, char* value) override {
    if (m_iRoot == kNowhere) m_iRoot = m_iTag;
    // Only an end has a text; a start tag's name may begin with a slash, too.
    if (value && !m_Open.empty()) m_Open.pop_back();
    return m_pNext ? m_pNext->ProcessElement(name, value) : 0;
  }
  int ProcessElementOpened(char* name) override {
    m_Open.push_back({name, m_iTag});
    return m_pNext ? m_pNext->ProcessElementOpened(name) : 0;
  }

 private:
  XmlDecoderSchema* m_pNext;
  std::vector<Element> m_Open;
  std::size_t m_iTag = 0;
  std::size_t m_iRoot = kNowhere;
};

// What became of a document that was fed tag by tag.
struct Outcome {
  int result = ZT_XML_INCOMPLETE;
  std::size_t tag = 0;    // where the last tag begins that was looked at
  std::string_view text;  // of it
  bool closed = false;    // whether it has its '>'
};

template <class Stop>
Outcome Feed(std::string_view text, Tracker& tracker, Stop stop) {
  XmlDecoder parser;
  parser.SetSchema(&tracker);
  Outcome outcome;
  while (!text.empty() && outcome.result == ZT_XML_INCOMPLETE && !stop()) {
    const std::size_t end = std::min(text.find('>'), text.size() - 1) + 1;
    const std::string_view piece = text.substr(0, end);
    std::size_t begin = piece.find('<');
    if (begin == kNowhere) begin = std::min(piece.find_first_not_of(" \t\r\n"), end - 1);
    const std::size_t before = outcome.tag + outcome.text.size();
    outcome.tag = before + begin;
    outcome.text = piece.substr(begin);
    outcome.closed = piece.back() == '>';
    tracker.SetTag(outcome.tag);
    // The parser leaves unchanged what it is given.
    outcome.result = parser.Decode(const_cast<char*>(piece.data()), static_cast<int>(end));
    text.remove_prefix(end);
  }
  return outcome;
}

bool StartsWith(std::string_view text, std::string_view begin) {
  return text.substr(0, begin.size()) == begin;
}

// The parser takes these for start tags until an end tag is missing. Null for a name that is one.
const char* WhyNoElement(std::string_view name) {
  if (StartsWith(name, "![CDATA[")) return "a CDATA section, which is not supported";
  if (StartsWith(name, "!DOCTYPE")) return "a document type, which is not supported";
  return nullptr;
}

std::string WhyBadTag(const Document& document, std::string_view tag,
                      const std::vector<Tracker::Element>& open) {
  if (StartsWith(tag, "</")) {
    if (open.empty()) return "the end tag " + QuoteShort(tag) + " has no start tag";
    return "the end tag " + QuoteShort(tag) + " where " +
           QuoteShort("</" + open.back().name + ">") + " is expected (opened at " +
           ToString(document.At(open.back().offset)) + ')';
  }
  if (const char* why = WhyNoElement(tag.substr(1))) return why;
  if (StartsWith(tag, "<!--")) return "the comment holds a \">\" or does not end with \"-->\"";
  if (StartsWith(tag, "<?")) {
    return open.empty() ? "the processing instruction does not end with \"?>\""
                        : "a processing instruction inside the root element is not supported";
  }
  return "the tag " + QuoteShort(tag);
}

}  // namespace

std::size_t RootOffset(const Document& document) {
  Tracker tracker(nullptr);
  Feed(document.text, tracker, [&] { return tracker.Root() != kNowhere; });
  return tracker.Root() == kNowhere ? 0 : tracker.Root();
}

Failure WhyNotParsed(const Document& document) {
  Tracker tracker(nullptr);
  const Outcome outcome = Feed(document.text, tracker, [] { return false; });
  const std::vector<Tracker::Element>& open = tracker.OpenElements();
  if (const char* why = open.empty() ? nullptr : WhyNoElement(open.back().name)) {
    return {"parser", std::string("not well formed: ") + why, document.At(open.back().offset)};
  }
  if (outcome.result == ZT_XML_ERROR) {
    return {"parser", "not well formed: " + WhyBadTag(document, outcome.text, open),
            document.At(outcome.tag)};
  }
  constexpr char kIncomplete[] = "incomplete: ";
  if (!outcome.closed && StartsWith(outcome.text, "<")) {
    return {"parser", kIncomplete + ("the tag " + QuoteShort(outcome.text)) + " is not closed",
            document.At(outcome.tag)};
  }
  if (!open.empty()) {
    return {"parser",
            kIncomplete + ("the element " + QuoteShort(open.back().name)) + " is not closed",
            document.At(open.back().offset)};
  }
  return {"parser", std::string(kIncomplete) + "there is no root element",
          document.At(document.text.size())};
}

Failure WhyRefused(const Document& document, const XMLSchemaInfo& schema, XMLObject* namespaces) {
  const std::string by = std::string("refused by the schema ") + schema.name;
  reflect::Schema tables;
  const bool known = reflect::FindSchema(schema.id, tables);
  const DecoderPtr decoder(known ? tables.document->newDecoder.Create(kSource) : nullptr);
  if (!decoder) return {"schema decoder", "out of memory"};
  decoder->SetNameSpaceBinderInfo(namespaces);
  Tracker tracker(decoder.get());
  const Outcome outcome = Feed(document.text, tracker, [&] { return decoder->Failed(); });
  const ElementPtr root(static_cast<XMLObject*>(decoder->GetSessionData()));
  if (decoder->Failed()) {
    return {"schema decoder", by + " at the tag " + QuoteShort(outcome.text),
            document.At(outcome.tag)};
  }
  if (root) return {"schema decoder", by + " for want of memory"};
  return {"schema decoder",
          by + ": the root element's prefix is not bound to a namespace that it knows",
          document.At(RootOffset(document))};
}
