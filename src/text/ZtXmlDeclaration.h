// The XML declaration that a document may begin with.
#ifndef ZTXML_SRC_TEXT_ZTXMLDECLARATION_H
#define ZTXML_SRC_TEXT_ZTXMLDECLARATION_H

#include <cstdint>

#include "ztxml/ZtPiece.h"

// How the characters of ASCII lie in a text: one byte each, or two.
enum class ZtUnits : std::uint8_t { kBytes, kLittleEndian, kBigEndian };

struct ZtXmlDeclaration {
  enum class Form : std::uint8_t { kAbsent, kGood, kBad };

  // Reads that of a text whose mark is cut off.
  explicit ZtXmlDeclaration(ZtPiece text, ZtUnits units = ZtUnits::kBytes);

  // Offsets in characters.
  Form form = Form::kAbsent;
  std::size_t end = 0;           // after it; if it is bad, where it goes wrong
  std::size_t encodingFrom = 0;  // the name of the encoding; empty when there is none
  std::size_t encodingTo = 0;
};

#endif  // ZTXML_SRC_TEXT_ZTXMLDECLARATION_H
