// What the strict reader tells of a document, and what Expat tells of it, in words that can be
// compared.
#ifndef ZTXML_TESTS_API_STRICTEVENTS_H
#define ZTXML_TESTS_API_STRICTEVENTS_H

#include <cstring>
#include <expat.h>
#include <memory>
#include <string>
#include <vector>

#include "text/ZtEncoding.h"
#include "text/ZtXmlReader.h"

struct StrictEvents {
  bool accepted = false;
  std::vector<std::string> lines;    // of each tag and attribute, and of the text between two tags
  std::vector<std::string> places;   // of each tag: line and column
  std::vector<std::size_t> offsets;  // of each tag: in the text, for Expat in the input
};

inline std::string Told(const StrictEvents& events) {
  std::string text;
  for (const auto* lines : {&events.lines, &events.places}) {
    for (const std::string& line : *lines) text += line + '\n';
  }
  return text;
}

inline std::string PlaceWords(std::size_t line, std::size_t column) {
  return std::to_string(line) + ':' + std::to_string(column);
}

inline std::string Words(ZtPiece piece) { return std::string(piece.text, piece.size); }

/// Namespaces that the reader knows by numbers, in documents that tests make.
inline const std::vector<ZtPiece>& KnownSpaces() {
  static const std::vector<ZtPiece> known = {"urn:ietf:params:xml:ns:reginfo", "u",
                                             "http://www.w3.org/XML/1998/namespace"};
  return known;
}

/// Reads a document as a caller that changes all that it may change as soon as it may.
class StrictReading {
 public:
  explicit StrictReading(const std::string& document) : input_(document) {
    const ZtPiece input(input_.data(), input_.size());
    encodingFault = ZtFindForm(input, form, faultAt);
    if (encodingFault != ZtEncodingFault::kNone) return;
    const std::size_t size = ZtDecodedSize(input, form);
    text_ = std::make_unique<char[]>(size + 1);
    encodingFault = ZtDecode(input, form, text_.get(), faultAt);
    if (encodingFault != ZtEncodingFault::kNone) return;
    text_[size] = '\0';
    text = std::string(text_.get(), size);
    ZtXmlReader reader(KnownSpaces().data(), static_cast<unsigned>(KnownSpaces().size()));
    reader.Begin(text_.get(), size);
    Read(reader, ZtPlaceFinder(input, form));
  }

  ZtTextForm form;
  ZtEncodingFault encodingFault;
  std::size_t faultAt = 0;
  std::string text;  // in UTF-8
  StrictEvents events;
  ZtXmlError error;

 private:
  void Read(ZtXmlReader& reader, ZtPlaceFinder places) {
    std::string characters;
    std::vector<std::size_t> starts;
    const auto flush = [&] {
      if (!characters.empty()) events.lines.push_back("text " + characters);
      characters.clear();
    };
    char* consumed = nullptr;  // the text of the last token
    char* consumedEnd = nullptr;
    for (ZtToken token = reader.Next();; token = reader.Next()) {
      if (consumed) std::memset(consumed, 'x', static_cast<std::size_t>(consumedEnd - consumed));
      if (consumed && ended_) *ended_ = '\0';
      consumed = ended_ = nullptr;
      const std::size_t from = reader.From();
      const ZtTextPlace place = places.Find(from);
      if (token == ZtToken::kText) {
        characters += Words(reader.Text());
        consumed = text_.get() + from;
        consumedEnd = text_.get() + reader.To();
        ended_ = const_cast<char*>(reader.Text().text) + reader.Text().size;
        continue;
      }
      flush();
      if (token == ZtToken::kDone || token == ZtToken::kFailed) break;
      events.places.push_back(PlaceWords(place.line, place.column));
      events.offsets.push_back(from);
      const bool isStart = token == ZtToken::kStart;
      events.lines.push_back((isStart ? "start " : "end ") + Name(reader, reader.Name()));
      if (!isStart) {  // what is closed may be overwritten
        consumed = text_.get() + starts.back();
        consumedEnd = text_.get() + reader.To();
        starts.pop_back();
        continue;
      }
      starts.push_back(from);
      for (std::uint32_t i = 0; i < reader.AttributeCount(); ++i) {
        const ZtXmlAttribute& attribute = reader.Attributes()[i];
        events.lines.push_back("attribute " + Name(reader, attribute.name) + '=' +
                               attribute.value.text);
      }
    }
    error = reader.Error();
    events.accepted = reader.Token() == ZtToken::kDone;
  }
  static std::string Name(const ZtXmlReader& reader, const ZtXmlName& name) {
    const ZtNamespaceScope& scope = reader.Scope();
    std::string words = Words(scope.Uri(name.space));
    if (!words.empty()) words += '\1';
    words += Words(name.local);
    if (name.prefix.size) words += '\1' + Words(name.prefix);
    // The other way round: a prefix of the namespace is in scope.
    ZtPiece prefix = nullptr;
    if (name.space &&
        !(scope.PrefixOf(name.space, true, prefix) && scope.SpaceOf(prefix) == name.space)) {
      words += " without a prefix";
    }
    return words;
  }

  std::string input_;
  std::unique_ptr<char[]> text_;
  char* ended_ = nullptr;
};

/// Whether both read the document alike. Expat counts a byte order mark as characters of the first
/// line, which are left out then.
inline bool AreAlike(const StrictReading& ours, const StrictEvents& theirs) {
  const StrictEvents& events = ours.events;
  const bool hasMark = ours.form.mark.size > 0;
  const bool hasOffsets = ours.form.encoding == ZtEncoding::kUtf8 && !hasMark;
  return events.accepted && theirs.accepted && events.lines == theirs.lines &&
         (hasMark || events.places == theirs.places) &&
         (!hasOffsets || events.offsets == theirs.offsets);
}

class ExpatReading {
 public:
  explicit ExpatReading(const std::string& document) {
    parser_ = XML_ParserCreateNS(nullptr, '\1');
    XML_SetReturnNSTriplet(parser_, 1);
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser_, OnText);
    events.accepted =
        XML_Parse(parser_, document.data(), static_cast<int>(document.size()), 1) != 0;
    Flush();
    XML_ParserFree(parser_);
  }

  StrictEvents events;

 private:
  static void OnStart(void* self, const char* name, const char** attributes) {
    auto& me = *static_cast<ExpatReading*>(self);
    me.Tag("start ", name);
    for (; *attributes; attributes += 2) {
      me.events.lines.push_back(std::string("attribute ") + attributes[0] + '=' + attributes[1]);
    }
  }
  static void OnEnd(void* self, const char* name) {
    static_cast<ExpatReading*>(self)->Tag("end ", name);
  }
  static void OnText(void* self, const char* text, int size) {
    static_cast<ExpatReading*>(self)->text_.append(text, static_cast<std::size_t>(size));
  }
  void Tag(const char* kind, const char* name) {
    Flush();
    events.lines.push_back(kind + std::string(name));
    events.places.push_back(
        PlaceWords(XML_GetCurrentLineNumber(parser_), XML_GetCurrentColumnNumber(parser_) + 1));
    events.offsets.push_back(static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_)));
  }
  void Flush() {
    if (!text_.empty()) events.lines.push_back("text " + text_);
    text_.clear();
  }

  XML_Parser parser_;
  std::string text_;
};

#endif  // ZTXML_TESTS_API_STRICTEVENTS_H
