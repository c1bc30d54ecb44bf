// What the parts of the strict reader share: classes of characters, and names.
#ifndef ZTXML_SRC_TEXT_ZTXMLSYNTAX_H
#define ZTXML_SRC_TEXT_ZTXMLSYNTAX_H

#include "base/ZtBytes.h"
#include "text/ZtCharacters.h"

struct ZtXmlClasses {
  enum : unsigned char {
    kBeginsName = 1,
    kContinuesName = 2,
    kBeyondAscii = 4,
    kBlank = 8,
    kEndsText = 16,   // of character data: what must be looked at
    kEndsValue = 32,  // of attribute values, without the quote
    kEndsSection = 64,
    kPublic = 128,  // may stand in a public identifier
  };
  unsigned char of[256] = {};

  constexpr ZtXmlClasses() {
    for (unsigned c = 0; c < 256; ++c) {
      const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
      const bool isDigit = c >= '0' && c <= '9';
      if (isLetter || c == '_') Add(c, kBeginsName | kContinuesName);
      if (isDigit || c == '-' || c == '.') Add(c, kContinuesName);
      if (isLetter || isDigit) Add(c, kPublic);
      if (c >= 0x80) Add(c, kBeyondAscii);
      if (c < ' ') Add(c, kEndsValue);
    }
    AddAll(" \t\r\n", kBlank);
    AddAll("<&]\r", kEndsText);
    AddAll("<&", kEndsValue);
    AddAll("]\r", kEndsSection);
    AddAll(" \r\n-'()+,./:=?;!*#@$_%", kPublic);
    Add(0, kEndsText | kEndsSection);
  }

 private:
  constexpr void Add(unsigned c, int classes) {
    of[c] = static_cast<unsigned char>(of[c] | classes);
  }
  constexpr void AddAll(const char* characters, int classes) {
    for (; *characters; ++characters) Add(static_cast<unsigned char>(*characters), classes);
  }
};
inline constexpr ZtXmlClasses kZtXmlClasses;

inline bool ZtIs(char c, int classes) {
  return (kZtXmlClasses.of[static_cast<unsigned char>(c)] & classes) != 0;
}
inline char* ZtSkip(char* at, int classes) {
  while (ZtIs(*at, classes)) ++at;
  return at;
}
inline char* ZtSkipBlank(char* at) { return ZtSkip(at, ZtXmlClasses::kBlank); }

// The end of a name without a colon, null when there is none; and one in which a character beyond
// ASCII comes at `at`.
char* ZtEndOfOtherName(char* at, bool isFirst);
inline char* ZtEndOfName(char* at) {
  if (!ZtIs(*at, ZtXmlClasses::kBeginsName)) {
    return ZtIs(*at, ZtXmlClasses::kBeyondAscii) ? ZtEndOfOtherName(at, true) : nullptr;
  }
  at = ZtSkip(at + 1, ZtXmlClasses::kContinuesName);
  return ZtIs(*at, ZtXmlClasses::kBeyondAscii) ? ZtEndOfOtherName(at, false) : at;
}

// How many characters of `word` come at `at`, where a NUL ends the text.
inline std::size_t ZtMatched(const char* at, const char* word) {
  std::size_t size = 0;
  while (word[size] && at[size] == word[size]) ++size;
  return size;
}

#endif  // ZTXML_SRC_TEXT_ZTXMLSYNTAX_H
