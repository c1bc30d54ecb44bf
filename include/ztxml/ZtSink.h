// What the parser tells of a document inside the library.
#ifndef ZTXML_INCLUDE_ZTSINK_H
#define ZTXML_INCLUDE_ZTSINK_H

#include "ztxml/ZtPiece.h"

struct ScannedTag;

/// Told of each tag, in the order of the document. Texts are borrowed; each ends with a NUL, those
/// of attributes when they are cut out.
class ZtSink {
 public:
  /// A start tag with the name that `tag` has.
  virtual void Start(ScannedTag& tag) = 0;
  /// Attributes of that start tag; a tag with many has them told in several calls.
  virtual void Attributes(ScannedTag& tag) = 0;
  /// The start tag is complete.
  virtual void Opened(char* name) = 0;
  /// An end tag: its slash and name, and the raw text since the last tag. Not 0 when it is refused.
  virtual int End(ZtPiece slashName, ZtPiece text) = 0;

  /// What Start, Attributes and Opened do for a whole start tag, in one go.
  virtual void Tag(ScannedTag& tag) = 0;

 protected:
  ~ZtSink() = default;
};

#endif  // ZTXML_INCLUDE_ZTSINK_H
