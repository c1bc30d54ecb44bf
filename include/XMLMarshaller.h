// The abstract marshaller: tree to text.
#ifndef ZTXML_INCLUDE_XMLMARSHALLER_H
#define ZTXML_INCLUDE_XMLMARSHALLER_H

#include "XMLElement.h"

/// Writes trees of one schema. Owned by its context; to be used by one thread at a time.
class ZT_API XMLMarshaller : public ZtNonCopyable {
 public:
  virtual ~XMLMarshaller() = default;
  /// The document for `root`, which stays the caller's and is not changed. The text belongs to the
  /// marshaller until its next Marshall or its destruction. Null when the tree cannot be written.
  virtual char* Marshall(XMLElement* root) = 0;
  /// The object itself.
  virtual XMLMarshaller* Identity() = 0;
};

#endif  // ZTXML_INCLUDE_XMLMARSHALLER_H
