// The abstract marshaller: tree to text.
#ifndef ZTXML_INCLUDE_XMLMARSHALLER_H
#define ZTXML_INCLUDE_XMLMARSHALLER_H

#include "ztxml/XMLElement.h"
#include "ztxml/error.h"

/// Writes trees of one schema. Owned by its context; to be used by one thread at a time.
class ZT_API XMLMarshaller : public ZtNonCopyable {
 public:
  virtual ~XMLMarshaller() = default;
  /// The document for `root`, which stays the caller's and is not changed. The text belongs to the
  /// marshaller until its next Marshall or its destruction. Null when the tree cannot be written.
  virtual char* Marshall(XMLElement* root) = 0;
  /// The object itself.
  virtual XMLMarshaller* Identity() = 0;
  /// The document that `root` was read from, with only that changed which was changed in the tree
  /// since: in its encoding, with its comments, white space and all that the types do not know. The
  /// root must have been read in the standard profile by a context that was asked to KeepSource.
  /// The text belongs to the marshaller as Marshall's does; its size in bytes goes to `size` unless
  /// that is null. Null, with a line in the log, when something in the tree cannot be written.
  virtual char* Update(XMLElement* root, std::size_t* size = nullptr) {
    static_cast<void>(root);
    static_cast<void>(size);
    return nullptr;
  }
  /// Has every later Marshall and Update say in `error` (borrowed; null for none, as at first) why
  /// it failed: its code is kNone after a success. Nothing is allocated for it.
  void ReportTo(ztxml::Error* error) { m_pError = error; }

 protected:
  ztxml::Error* m_pError = nullptr;
};

#endif  // ZTXML_INCLUDE_XMLMARSHALLER_H
