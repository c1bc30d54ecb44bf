// Texts as a document of the standard profile has them.
#ifndef ZTXML_SRC_TEXT_ZTESCAPE_H
#define ZTXML_SRC_TEXT_ZTESCAPE_H

#include "base/ZtBuffer.h"

// Appends `text` as character data (`quote` 0), or as the value of an attribute in these quotes, so
// that it is read as it is. False, with nothing appended, when it is not UTF-8 or holds a character
// that XML does not allow.
bool ZtAppendEscaped(ZtBuffer& to, ZtPiece text, char quote);
// Appends a blank and an attribute called `prefix` (with its colon, or empty) and `name`. False
// when the value cannot be written, as above: the text is of no use then.
bool ZtAppendAttribute(ZtBuffer& to, ZtPiece prefix, ZtPiece name, ZtPiece value);
// Whether `name` can be the name of an attribute: a name of XML with at most one colon.
bool ZtIsQualifiedName(ZtPiece name);

#endif  // ZTXML_SRC_TEXT_ZTESCAPE_H
