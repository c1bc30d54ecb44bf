// Start tags in the form that nearly all have, recognised before anything is cut: a name, then
// attributes in quotes, each after white space. The parser reads other tags in a slower way.
#ifndef ZTXML_SRC_TAGSCANNER_H
#define ZTXML_SRC_TAGSCANNER_H

#include "text/ZtStructure.h"
#include "ztxml/ZtPiece.h"
#include "ztxml/ZtSink.h"

struct ScannedAttribute {
  char* name;
  char* nameEnd;
  char* value;
  char* valueEnd;  // its closing quote

  ZtPaddedPiece Name() const { return {name, static_cast<std::size_t>(nameEnd - name)}; }
  ZtPiece Value() const { return {value, static_cast<std::size_t>(valueEnd - value)}; }
};

// Undoes the five predefined entities in a text, in place; returns its new end.
char* ZtUnescape(char* text, char* end);

struct ScannedTag {
  static constexpr int kMostAttributes = 16;

  // Whether the tag whose name would begin at `begin` has that form; `structure` is in that tag,
  // and the text, which is padded, ends with a NUL at `end`. Up to `scanned` it is known to hold no
  // '>'. In any case `close` is set.
  inline bool Scan(char* begin, char* scanned, ZtStructure& structure, const char* end);

  // Cuts one of the attributes out of the text; before that its name and value have no NULs, and
  // the value has its entities.
  void Cut(ScannedAttribute& attribute) const { Cut(attribute, hasEntity); }
  static void Cut(ScannedAttribute& attribute, bool hasEntity) {
    *attribute.nameEnd = *attribute.valueEnd = '\0';
    if (hasEntity) attribute.valueEnd = ZtUnescape(attribute.value, attribute.valueEnd);
  }
  ScannedAttribute* begin() { return attributes; }
  ScannedAttribute* end() { return attributes + count; }

  std::size_t NameSize() const { return static_cast<std::size_t>(nameEnd - name); }

  char* name;
  char* nameEnd;
  char* colon;      // the first of the name, or null
  char* close;      // the first '>', or null
  bool isEmpty;     // "/>"
  bool blankAtEnd;  // white space after the last attribute, which is reported as one, too
  bool hasEntity;   // there is an '&' in a value
  int count;
  ScannedAttribute attributes[kMostAttributes];

 private:
  bool ScanAttributes(ZtStructure& structure);
  bool Ends(char* at, char* sign);
  inline void FindNameEnd();
};

namespace ztscan {

enum : unsigned char { kEndsName = 1, kColon = 2 };

struct Classes {
  unsigned char of[256] = {};

  constexpr Classes() {
    for (const char c : " \t\r\n>/=\"'<!?") Set(c, kEndsName);  // and the NUL at the end of these
    Set(':', kColon);
  }
  constexpr void Set(char c, unsigned char what) { of[static_cast<unsigned char>(c)] = what; }
};
inline constexpr Classes kClasses;

inline char* EndOf(char* at, unsigned char what) {
  while ((kClasses.of[static_cast<unsigned char>(*at)] & what) == 0) ++at;
  return at;
}

// One bit for each of the sixteen bytes at `at` that ends a name or may end one, or is a colon.
inline unsigned MayEndName(const char* at) {
  const auto block = ZtGet<ZtBlock>(at);
  constexpr unsigned char kLowest = '\'';  // and white space, quotes, '!', NUL
  return ZtBits(reinterpret_cast<ZtBlock>(block <= ZtBlock{} + kLowest) | ZtMatches(block, '/') |
                ZtMatches(block, ':') | ZtMatches(block & 0xFC, '<'));  // and '=', '>', '?'
}

}  // namespace ztscan

// Sets `nameEnd` and `colon`.
inline void ScannedTag::FindNameEnd() {
  char* at = name;
  colon = nullptr;
  if (kZtHasVectors) {
    const unsigned bits = ztscan::MayEndName(at);
    at += bits ? ZtFirstBit(bits) : sizeof(ZtBlock);
    nameEnd = at;
    if (*at == '>' || *at == ' ') return;
  }
  at = ztscan::EndOf(at, ztscan::kEndsName | ztscan::kColon);
  if (*at == ':') {
    colon = at;
    at = ztscan::EndOf(at, ztscan::kEndsName);
  }
  nameEnd = at;
}

// Most tags end after their name. Intended: the first '>' ends a tag, so that none can stand in an
// attribute's value, where XML allows it; callers escape it there.
inline bool ScannedTag::Scan(char* begin, char* scanned, ZtStructure& structure, const char* end) {
  const bool resumed = scanned > begin;
  close = resumed ? ZtFind(scanned, '>', end) : nullptr;
  if (resumed && !close) return false;
  name = begin;
  FindNameEnd();
  count = 0;
  isEmpty = blankAtEnd = hasEntity = false;
  if (*nameEnd == '>') {
    close = nameEnd;
    return nameEnd != begin;
  }
  if (nameEnd != begin && ScanAttributes(structure)) return true;
  if (!close) close = ZtFind(nameEnd, '>', end);
  return false;
}

// What the Tag of a sink does that takes a whole start tag in steps.
template <class Sink>
[[gnu::always_inline]] inline void ZtTellTag(Sink& sink, ScannedTag& tag) {
  const bool started = tag.isEmpty || tag.count > 0;
  if (started) sink.Start(tag);
  if (tag.count) sink.Attributes(tag);
  if (!started) sink.Start(tag);
  sink.Opened(tag.name);
}

#endif  // ZTXML_SRC_TAGSCANNER_H
