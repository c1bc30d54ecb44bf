// The abstract unmarshaller: text to tree.
#ifndef ZTXML_INCLUDE_XMLUNMARSHALLER_H
#define ZTXML_INCLUDE_XMLUNMARSHALLER_H

#include "ztxml/XMLElement.h"
#include "ztxml/error.h"

class XMLFile;

/// Reads documents of one schema. Owned by its context; keeps nothing between calls.
class ZT_API XMLUnMarshaller : public ZtNonCopyable {
 public:
  virtual ~XMLUnMarshaller() = default;
  /// The tree of the document `xml` (borrowed, unchanged), or null when `xml` is null, not well
  /// formed, incomplete or has another root. The caller frees it with XMLFactory::DeleteElement.
  virtual XMLElement* UnMarshall(const char* xml) = 0;
  /// The tree of the document in `file`, which is read whole; null as above.
  virtual XMLElement* UnMarshall(XMLFile* file) = 0;
  /// As the first, of the `size` bytes of `text`, which needs no NUL after it and must hold none:
  /// in UTF-16 no character 0.
  virtual XMLElement* UnMarshall(const char* text, std::size_t size) {
    static_cast<void>(text);
    static_cast<void>(size);
    return nullptr;
  }
  /// Has every later call say in `error` (borrowed; null for none, as at first) why it failed: its
  /// code is kNone after a success. Nothing is allocated for it, and a success costs nothing more.
  void ReportTo(ztxml::Error* error) { m_pError = error; }

 protected:
  ztxml::Error* m_pError = nullptr;
};

#endif  // ZTXML_INCLUDE_XMLUNMARSHALLER_H
