// Start tags in the form that nearly all have, recognised in one pass and before anything is cut:
// a name, then attributes in quotes, each after white space. The parser reads other tags in a
// slower way.
#ifndef ZTXML_SRC_TAGSCANNER_H
#define ZTXML_SRC_TAGSCANNER_H

#include "ztxml/ZtPiece.h"

struct ScannedAttribute {
  char* name;
  char* nameEnd;
  char* value;
  char* valueEnd;  // its closing quote

  ZtPiece Name() const { return {name, static_cast<std::size_t>(nameEnd - name)}; }
  ZtPiece Value() const { return {value, static_cast<std::size_t>(valueEnd - value)}; }
};

struct ScannedTag {
  static constexpr int kMostAttributes = 16;

  // Whether the tag whose name would begin at `begin`, in a text that ends with a NUL at `end`, has
  // that form. Up to `scanned` the text is known to hold no '>'. In any case `close` is set.
  bool Scan(char* begin, char* scanned, const char* end);

  std::size_t NameSize() const { return static_cast<std::size_t>(nameEnd - name); }

  char* name;
  char* nameEnd;
  char* colon;      // the first of the name, or null
  char* close;      // the first '>', or null
  bool isEmpty;     // "/>"
  bool blankAtEnd;  // white space after the last attribute, which is reported as one, too
  int count;
  ScannedAttribute attributes[kMostAttributes];
};

#endif  // ZTXML_SRC_TAGSCANNER_H
