// Where something is in a tree, as a text: "/reginfo/registration[1]/@aor".
#ifndef ZTXML_SRC_BINDING_ZTPATH_H
#define ZTXML_SRC_BINDING_ZTPATH_H

#include <cstring>

#include "binding/ZtBinding.h"

class ZtPath {
 public:
  // Appends a step; `index` 0 for one that occurs once. What goes beyond the room is left out, with
  // "..." once. Returns what Pop wants back.
  std::size_t Push(const char* sign, ZtPiece name, std::size_t index = 0) {
    const std::size_t size = m_iSize;
    char buffer[kZtNumberSize];
    const ZtPiece number = index ? ZtFormatNumber(index, buffer) : ZtPiece(nullptr);
    const ZtPiece start = sign;
    const std::size_t more = start.size + name.size + (index ? number.size + 2 : 0);
    if (m_iSize > kMost || more > kMost - m_iSize) {
      if (m_iSize <= kMost) Append("...");
      m_iSize = kMost + 1;
      return size;
    }
    Append(start);
    Append(name);
    if (index) {
      Append("[");
      Append(number);
      Append("]");
    }
    return size;
  }
  std::size_t Size() const { return m_iSize; }
  void Pop(std::size_t size) {
    m_iSize = size;
    if (size <= kMost) m_Text[size] = '\0';
  }
  const char* Text() const { return m_Text; }

 private:
  static constexpr std::size_t kMost = 500;

  void Append(ZtPiece piece) {
    if (piece.size) std::memcpy(m_Text + m_iSize, piece.text, piece.size);
    m_iSize += piece.size;
    m_Text[m_iSize] = '\0';
  }

  char m_Text[kMost + sizeof("...")] = {};
  std::size_t m_iSize = 0;
};

#endif  // ZTXML_SRC_BINDING_ZTPATH_H
