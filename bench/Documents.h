// The texts that the benchmarks work on: documents as servers send them, indented and with the
// namespaces, attributes and elements that phones meet, in any size.
#ifndef ZTXML_BENCH_DOCUMENTS_H
#define ZTXML_BENCH_DOCUMENTS_H

#include <cstddef>
#include <string>

#include "ztxml/XMLFactory.h"

namespace bench {

enum class Kind { kRegistration, kConference, kServices, kResourceLists };

struct Document {
  Kind kind;
  const char* size;  // to show, e.g. "8.5 KB"
  std::string name;  // to show, e.g. "registration 8.5 KB"
  std::string text;
  std::size_t pieces;  // contacts, users, rules or entries
};

const char* NameOf(Kind kind);
eXMLSchemaID SchemaOf(Kind kind);

/// A document of about `bytes` bytes; one piece at least.
Document MakeDocument(Kind kind, std::size_t bytes, const char* size);

}  // namespace bench

#endif  // ZTXML_BENCH_DOCUMENTS_H
