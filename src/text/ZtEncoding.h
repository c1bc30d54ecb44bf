// The encodings that documents come in, and UTF-8, in which they are read.
#ifndef ZTXML_SRC_TEXT_ZTENCODING_H
#define ZTXML_SRC_TEXT_ZTENCODING_H

#include <cstdint>

#include "ztxml/ZtPiece.h"

enum class ZtEncoding : std::uint8_t { kUtf8, kAscii, kLatin1, kUtf16Le, kUtf16Be };

enum class ZtEncodingFault : std::uint8_t {
  kNone,
  kUnknown,       // the declaration names an encoding that is none of these
  kContradicted,  // the declaration names one that the text does not have
  kBadBytes,      // bytes that are no character
  kBadCharacter,  // a character that XML does not allow
  kCutShort,      // half a character at the end
};
// A sentence for people, static; null for kNone.
const char* ZtFaultText(ZtEncodingFault fault);

// What is not told by the characters of a text.
struct ZtTextForm {
  ZtEncoding encoding = ZtEncoding::kUtf8;
  ZtPiece mark = nullptr;  // the byte order mark, static; empty when there is none
};

// Offsets count the bytes that the characters before a place have in UTF-8, without a mark: they
// are offsets in what ZtDecode writes. Of a fault they tell where the bad name or character begins.

// Finds the form of a document by its mark, its first bytes and its XML declaration.
ZtEncodingFault ZtFindForm(ZtPiece input, ZtTextForm& form, std::size_t& faultAt);
// The bytes that the document has in UTF-8.
std::size_t ZtDecodedSize(ZtPiece input, const ZtTextForm& form);
// Writes the document in UTF-8, without its mark and without a NUL, into a buffer of that size that
// does not overlap the input. Nothing but characters that XML allows is accepted.
ZtEncodingFault ZtDecode(ZtPiece input, const ZtTextForm& form, char* to, std::size_t& faultAt);

// The bytes that a valid text has in an encoding, and those bytes, without a mark; returns their
// end. What the encoding lacks becomes a character reference, which stands for the character only
// in texts and attribute values.
std::size_t ZtEncodedSize(ZtPiece utf8, ZtEncoding encoding);
char* ZtEncode(ZtPiece utf8, ZtEncoding encoding, char* to);

// Passes one character of UTF-8, before the end; false when it is none that XML allows.
bool ZtPassCharacter(const char*& at, const char* end);
// Whether it is UTF-8 that holds nothing but characters that XML allows.
bool ZtIsXmlText(ZtPiece utf8);

// Both from 1; a column is a character.
struct ZtTextPlace {
  std::size_t line = 1;
  std::size_t column = 1;
};

// Tells places of a document by offsets. Increasing offsets are found in one pass in all.
class ZtPlaceFinder {
 public:
  ZtPlaceFinder(ZtPiece input, const ZtTextForm& form);

  // Of an offset within a character the place after it, of one beyond the end the end.
  ZtTextPlace Find(std::size_t offset);

 private:
  void Restart();

  ZtPiece m_Input;  // without the mark
  ZtEncoding m_Encoding;
  std::size_t m_iAt = 0;      // in the input
  std::size_t m_iOffset = 0;  // of that place
  ZtTextPlace m_Place;
  bool m_bAfterReturn = false;
};

#endif  // ZTXML_SRC_TEXT_ZTENCODING_H
