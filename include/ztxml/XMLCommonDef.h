// The shared table of element, attribute and namespace names.
#ifndef ZTXML_INCLUDE_XMLCOMMONDEF_H
#define ZTXML_INCLUDE_XMLCOMMONDEF_H

#include <atomic>

#include "ztxml/ZtExport.h"

/// Indices of the rows of the name table; each enumerator is named after its row's text, the
/// second of two equal texts ends in _2.
enum e_XmlStrRef : int {
#define ZT_NAME(id, text) id,
#include "ztxml/XMLCommonNames.inc"
#undef ZT_NAME
  XML_STR_ZT_COUNT  ///< number of rows, not a row
};

/// The name table and its one shared instance, which every marshaller holds.
class ZT_API zt_xml_common_array_definition : public ZtNonCopyable {
 public:
  /// Returns the shared instance and makes it when there is none; null when out of memory.
  static zt_xml_common_array_definition* CreateArrayInstance();
  /// Deletes the shared instance if there is one. Intended: references to the instance of the name
  /// table are not counted, so that the first marshaller that is deleted deletes it for all others;
  /// callers notice nothing, because getStringName needs no instance.
  static void ReleaseArrayInstance();
  /// The text of row `id` (borrowed, static). No bounds check: pass enumerators only.
  static char* getStringName(e_XmlStrRef id);

  static constexpr int kRowSize = 100;  ///< bytes of a row, padded with NULs

  /// The rows; read them through getStringName.
  static char arrXmlStrRef[XML_STR_ZT_COUNT][kRowSize];

 private:
  ZT_LOCAL static std::atomic<zt_xml_common_array_definition*> m_pXmlStrRef;
};

#endif  // ZTXML_INCLUDE_XMLCOMMONDEF_H
