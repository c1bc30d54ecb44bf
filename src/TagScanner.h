// Start tags in the form that nearly all have, recognised in one pass and before anything is cut:
// a name, and attributes in quotes behind white space. All else is the parser's slow path's.
#ifndef ZTXML_SRC_TAGSCANNER_H
#define ZTXML_SRC_TAGSCANNER_H

struct ScannedAttribute {
  char* name;
  char* nameEnd;
  char* value;
  char* valueEnd;  // its closing quote
  bool hasEntity;
};

struct ScannedTag {
  static constexpr int kMostAttributes = 16;

  // Whether the tag whose name would begin at `name`, in a NUL-terminated text, has that form.
  bool Scan(char* name);

  char* nameEnd;
  char* close;      // the '>'
  bool isEmpty;     // "/>"
  bool blankAtEnd;  // white space behind the last attribute, which is reported as one, too
  int count;
  ScannedAttribute attributes[kMostAttributes];
};

#endif  // ZTXML_SRC_TAGSCANNER_H
