// When the library's output must be well formed, and whether it is, judged by another parser.
#ifndef ZTXML_TESTS_API_WELLFORMED_H
#define ZTXML_TESTS_API_WELLFORMED_H

#include <algorithm>
#include <expat.h>
#include <string>

#include "ztxml/XMLFactory.h"
#include "ztxml/ztXMLDocGenerator.h"

/// Where and whether Expat refuses a text of bytes; offsets count bytes.
struct ExpatVerdict {
  bool accepts;
  std::size_t at;

  ExpatVerdict(const std::string& text, bool withNamespaces) {
    XML_Parser parser =
        withNamespaces ? XML_ParserCreateNS(nullptr, '\1') : XML_ParserCreate(nullptr);
    accepts = XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1) == XML_STATUS_OK;
    at = static_cast<std::size_t>(std::max<XML_Index>(0, XML_GetCurrentByteIndex(parser)));
    XML_ParserFree(parser);
  }
};

inline bool ExpatAccepts(const std::string& text) { return ExpatVerdict(text, false).accepts; }

/// Whether writers of the schema go on after an element that lacks something required (rule sets
/// and GRUUs), or have a root whose name begins with a digit.
inline bool MayBeMalformed(eXMLSchemaID id) {
  return id == XML_SCHEMA_COMMUNICATION_DIVERSION || id == XML_SCHEMA_COMMUNICATION_BARRING ||
         id == XML_SCHEMA_SIMSERVS || id == XML_SCHEMA_REGINFO ||
         id == XML_SCHEMA_CALL_WAITING_INDICATION;
}

/// Whether `out`, which was written after reading `in`, is well formed, or need not be: because
/// entities of `in` were resolved, or the writer cut the text.
inline bool IsSound(eXMLSchemaID id, const std::string& in, const std::string& out) {
  return MayBeMalformed(id) || out == "(null)" || in.find('&') != std::string::npos ||
         out.size() >= ZtXMLDocGenerator::kBufferSize - 1 || !ExpatAccepts(in) || ExpatAccepts(out);
}

#endif  // ZTXML_TESTS_API_WELLFORMED_H
