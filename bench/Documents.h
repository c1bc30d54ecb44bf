// The texts that the benchmarks work on: documents as servers send them, indented and with the
// namespaces, attributes and elements that phones meet, in any size.
#ifndef ZTXML_BENCH_DOCUMENTS_H
#define ZTXML_BENCH_DOCUMENTS_H

#include <cstddef>
#include <string>

#include "ztxml/XMLFactory.h"

namespace bench {

enum class Kind {
  kRegistration,
  kConference,
  kServices,
  kResourceLists,
  kPresence,
  kDisposition  // of one size only
};

struct Document {
  Kind kind;
  const char* size;  // to show, in KB
  std::string text;
};

const char* NameOf(Kind kind);
eXMLSchemaID SchemaOf(Kind kind);

/// A document of about 300 bytes, with the least that such documents hold.
Document LeastDocument(Kind kind);

/// A document of about `bytes` bytes, of a multiple of `step` contacts, users, tuples, entries or
/// rules.
Document MakeDocument(Kind kind, std::size_t bytes, const char* size, std::size_t step = 1);

}  // namespace bench

#endif  // ZTXML_BENCH_DOCUMENTS_H
