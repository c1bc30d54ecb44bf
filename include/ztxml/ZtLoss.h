// What of a document the types do not keep, as reading it can report.
#ifndef ZTXML_INCLUDE_ZTLOSS_H
#define ZTXML_INCLUDE_ZTLOSS_H

#include <cstddef>

/// What kind of thing was not kept.
enum eZtLoss {
  ZT_LOST_ELEMENT,    ///< an element with all that is in it
  ZT_LOST_ATTRIBUTE,  ///< an attribute that its element does not know
  ZT_LOST_TEXT,       ///< a text between elements
  ZT_LOST_VALUE       ///< a value that is none of its type: a number, a boolean, an enumeration
};

/// Something in a document that the types do not keep.
struct ZtLoss {
  eZtLoss kind;  ///< what it is
  /// Where it is in the tree, e.g. "/reginfo/registration[1]/contact[2]/@q"; names of what is
  /// unknown as they stand in the document. Borrowed; a long one is cut short with "...".
  const char* path;
  std::size_t line;    ///< where it begins, from 1 on
  std::size_t column;  ///< in characters, from 1 on
};

/// Told of each loss while a document is read, in the order of the document: of the value of an
/// element at its end.
using ZtLossHandler = void (*)(const ZtLoss& loss, void* context);

#endif  // ZTXML_INCLUDE_ZTLOSS_H
