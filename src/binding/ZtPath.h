// Where something is in a tree, as a text: "/reginfo/registration[1]/@aor".
#ifndef ZTXML_SRC_BINDING_ZTPATH_H
#define ZTXML_SRC_BINDING_ZTPATH_H

#include <cstddef>

#include "ztxml/ZtPiece.h"

class XMLElement;
struct ZtElementType;
struct ZtField;

class ZtPath {
 public:
  // Appends a step; `index` 0 for one that occurs once. What goes beyond the room is left out, with
  // "..." once. Returns what Pop wants back.
  std::size_t Push(const char* sign, ZtPiece name, std::size_t index = 0);
  std::size_t Size() const { return m_iSize; }
  void Pop(std::size_t size) {
    m_iSize = size;
    if (size <= kMost) m_Text[size] = '\0';
  }
  const char* Text() const { return m_Text; }

  // Appends the steps from `root`, an object of `type`, to what a row of an object below it keeps
  // (null: to the object). Those of an object that is not found are none. Linear in the tree.
  void PushObject(const XMLElement& root, const ZtElementType& type, const XMLElement* object,
                  const ZtField* row);

 private:
  static constexpr std::size_t kMost = 500;

  void Append(ZtPiece piece);

  char m_Text[kMost + sizeof("...")] = {};
  std::size_t m_iSize = 0;
};

#endif  // ZTXML_SRC_BINDING_ZTPATH_H
