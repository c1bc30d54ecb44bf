// The services that a container of supplementary services may have.
#ifndef ZTXML_SRC_SERVICES_H
#define ZTXML_SRC_SERVICES_H

#include "binding/ZtNames.h"

struct ZtDocument;

struct ZtService {
  e_XmlStrRef element;
  const ZtDocument* document;
  std::size_t first;  // the first service of this document
  // Names in log lines.
  const char* table;
  const char* cut;
  const char* read;
  const char* written;
};

constexpr std::size_t kZtServiceCount = 6;
// In the order in which they are cut out and read.
extern const ZtService kZtServices[kZtServiceCount];

// The index of the service that is called so, kZtServiceCount when none is.
std::size_t ZtFindService(ZtPiece name);

#endif  // ZTXML_SRC_SERVICES_H
