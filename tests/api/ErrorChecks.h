// What a refused document must be told of, compared with another parser.
#ifndef ZTXML_TESTS_API_ERRORCHECKS_H
#define ZTXML_TESTS_API_ERRORCHECKS_H

#include <algorithm>
#include <string>

#include "Require.h"
#include "WellFormed.h"
#include "text/ZtEncoding.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/ZtDocument.h"

/// The offset of a place of a text in UTF-8, whose columns count characters.
inline std::size_t OffsetOf(const std::string& text, std::size_t line, std::size_t column) {
  std::size_t at = 0;
  for (; line > 1 && at < text.size(); ++at) {
    if (text[at] == '\n' || (text[at] == '\r' && text[at + 1] != '\n')) --line;
  }
  while (column > 1 && at < text.size()) {
    ++at;
    if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) --column;
  }
  return line > 1 || column > 1 ? std::string::npos : at;
}

/// Whether one tag, one text or the declaration has both places.
inline bool AreNear(const std::string& text, std::size_t a, std::size_t b) {
  if (text.compare(0, 5, "<?xml") == 0 && std::max(a, b) <= text.find("?>")) return true;
  const auto from = text.begin() + static_cast<std::ptrdiff_t>(std::min(a, b));
  const auto to = text.begin() + static_cast<std::ptrdiff_t>(std::max(a, b));
  return std::find(from, to, '>') == to;
}

inline void CheckError(const ztxml::Error& error, const std::string& text, bool isStandard) {
  using ztxml::Code;
  Require(error.code != Code::kNone && *error.Sentence(), "a refusal has a kind and a sentence");
  if (error.code == Code::kNoMemory) return;
  const std::string said = std::string(error.Text()) + "\nof " + text;
  Require(std::string(error.Text()).size() < ztxml::Error::kTextRoom - 1, "it fits", said);
  Require(error.line && error.column, "it has a place", said);
  if (!ZtIsXmlText({text.data(), text.size()})) return;  // what is a character there is open
  const std::size_t at = OffsetOf(text, error.line, error.column);
  Require(at <= text.size(), "its place is in the text", said);
  // Before the root Expat reads quotes in its own way.
  if (text[std::min(text.find_first_not_of(" \t\r\n"), text.size())] != '<') return;
  const bool isFault = error.code == Code::kMalformed || error.code == Code::kIncomplete;
  const ExpatVerdict plain(text, false);
  if (!isStandard) {
    // The parser of the exact profile passes over some faults, and stops later then.
    Require(!isFault || !plain.accepts, "what is called malformed is", said);
    const bool isSection = text.find("<!") != std::string::npos;  // Expat's place is its end
    Require(!isFault || isSection || at >= plain.at || AreNear(text, at, plain.at),
            "it is after the first", said);
    return;
  }
  // Document types and encodings are other matters; so is Expat's reading of quotes before the
  // root.
  if (text.find("<!") != std::string::npos || text.find("encoding") < text.find("?>")) return;
  if (!isFault) return;
  const ExpatVerdict verdict(text, true);
  Require(!verdict.accepts && AreNear(text, at, verdict.at), "the place is that of another parser",
          said + "\nthere at byte " + std::to_string(verdict.at));
}

/// Reads `text` in both profiles; what is refused is told as it must be.
inline void CheckErrors(eXMLSchemaID id, const std::string& text) {
  for (const eXMLProfile profile : {XML_PROFILE_EXACT, XML_PROFILE_STANDARD}) {
    XMLContext* context = XMLFactory::newInstance(id);
    if (!context) return;
    context->UseProfile(profile);
    XMLUnMarshaller* reader = context->createUnMarshaller();
    ztxml::Error error;
    reader->ReportTo(&error);
    XMLElement* root = reader->UnMarshall(text.data(), text.size());
    Require(!root || error.code == ztxml::Code::kNone, "what is read has no error");
    // Any root is read by the retrieval of namespaces, and the exact profile is its only one.
    const bool isStandard = profile == XML_PROFILE_STANDARD && id != XML_SCHEMA_NAMESPACE_RETRIEVAL;
    if (!root) CheckError(error, text, isStandard);
    XMLFactory::DeleteElement(root);
    XMLFactory::deleteContext(context);
  }
}

#endif  // ZTXML_TESTS_API_ERRORCHECKS_H
