#include "Locate.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Judge.h"
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

// Passes the parser's callbacks on and keeps the root and the open elements with the places of
// their tags.
class Tracker : public Receiver {
 public:
  struct Element {
    std::string name;
    std::size_t offset;
  };

  explicit Tracker(XmlDecoderSchema* next) : m_pNext(next) {}

  void SetTag(std::size_t offset) { m_iTag = offset; }
  std::size_t Root() const { return m_iRoot; }
  const std::string& RootName() const { return m_RootName; }
  const std::vector<Element>& OpenElements() const { return m_Open; }

  int ProcessAttribute(char* element, char* name, char* value) override {
    return m_pNext ? m_pNext->ProcessAttribute(element, name, value) : 0;
  }
  int ProcessElement(char* name, char* value) override {
    if (m_iRoot == kNowhere) {
      m_iRoot = m_iTag;
      m_RootName = name;
    }
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
  std::size_t m_iTag = 0;
  std::size_t m_iRoot = kNowhere;
  std::string m_RootName;
  std::vector<Element> m_Open;
};

// What became of a document that was fed tag by tag.
struct Outcome {
  int result = ZT_XML_INCOMPLETE;
  std::size_t tag = 0;    // where the last tag that was fed begins
  std::string_view text;  // of that tag
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
    tracker.SetTag(outcome.tag);
    // The parser leaves unchanged what it is given.
    outcome.result = parser.Decode(const_cast<char*>(piece.data()), static_cast<int>(end));
    text.remove_prefix(end);
  }
  return outcome;
}

// Why the library's parser stopped at a tag, or missed one at the end, in its own view.
Failure WhyStopped(const Document& document, const Outcome& outcome,
                   const std::vector<Tracker::Element>& open) {
  const std::string tag = QuoteShort(outcome.text);
  std::string what = "the tag " + tag;
  if (outcome.result == ZT_XML_INCOMPLETE) {
    if (open.empty()) {
      return {"parser", "incomplete: there is no root element", document.At(document.text.size())};
    }
    return {"parser", "incomplete: the element " + QuoteShort(open.back().name) + " is not closed",
            document.At(open.back().offset)};
  }
  if (StartsWith(outcome.text, "</") && !open.empty()) {
    what = "the end tag " + tag + " where " + QuoteShort("</" + open.back().name + ">") +
           " is expected (opened at " + ToString(document.At(open.back().offset)) + ')';
  }
  return {"parser", "cannot be read: " + what, document.At(outcome.tag)};
}

}  // namespace

std::size_t RootOffset(const Document& document) {
  Tracker tracker(nullptr);
  Feed(document.text, tracker, [&] { return tracker.Root() != kNowhere; });
  return tracker.Root() == kNowhere ? 0 : tracker.Root();
}

Failure WhyNotParsed(const Document& document) {
  if (StartsWith(document.text, "\xff\xfe") || StartsWith(document.text, "\xfe\xff")) {
    return {"parser", "not supported: UTF-16", document.start};
  }
  const Verdict verdict = Judge(document);
  if (const Fault& fault = verdict.unsupported) {
    return {"parser", "not supported: " + fault.what, document.At(fault.at)};
  }
  Tracker tracker(nullptr);
  const Outcome outcome = Feed(document.text, tracker, [] { return false; });
  const std::vector<Tracker::Element>& open = tracker.OpenElements();
  const Fault& fault = verdict.malformed;
  // The library's parser passes over some faults: it may stop later than at the first.
  const bool inLast = outcome.result == ZT_XML_ERROR ? fault.at >= outcome.tag : verdict.incomplete;
  const bool inOpen = !open.empty() && fault.at >= open.back().offset &&
                      fault.at <= document.text.find('>', open.back().offset);
  if (!fault || (!inLast && !inOpen)) return WhyStopped(document, outcome, open);
  return {"parser", (verdict.incomplete ? "incomplete: " : "not well formed: ") + fault.what,
          document.At(fault.at)};
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
  if (tables.document->prefixes == ZtPrefixRule::kExact && schema.roots[0]) {
    return {"root element",
            QuoteShort(tracker.RootName()) + " is not " + Quote(schema.roots[0]) + ": the schema " +
                schema.name + " compares names whole and takes no prefixes off",
            document.At(tracker.Root())};
  }
  return {"schema decoder",
          by + ": the root element's prefix is not bound to a namespace that it knows",
          document.At(tracker.Root())};
}
