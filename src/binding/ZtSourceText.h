// What a tree was read from, kept so that the document can be updated in place.
#ifndef ZTXML_SRC_BINDING_ZTSOURCETEXT_H
#define ZTXML_SRC_BINDING_ZTSOURCETEXT_H

#include "base/ZtSmallArray.h"
#include "binding/ZtModel.h"
#include "text/ZtEncoding.h"

struct ZtDocument;

// It lives as long as the objects that were read: their arena frees it with the last of them.
class ZtSourceText : public ZtArenaGuest {
 public:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  // An object, and the element or attribute that it was made from.
  struct Part {
    const void* object;    // as its holder has it: an XMLElement or an XMLAttribute
    std::size_t from;      // where the element or attribute begins
    std::size_t to;        // after its end
    std::uint32_t parent;  // the part of the element that it is in
    std::uint32_t next;    // the first part that is not in it
    const ZtField* row;    // of the parent
    std::uint64_t taken;   // which rows of single children and texts the element has
  };

  // Keeps a copy of `text`, in UTF-8; false without memory.
  bool Keep(ZtPiece text) {
    m_Text = static_cast<char*>(__malloc(text.size + 1));
    if (!m_Text) return false;
    std::memcpy(m_Text, text.text, text.size);
    m_Text[text.size] = '\0';
    m_iSize = text.size;
    return true;
  }
  ~ZtSourceText() override { __free(m_Text); }
  ZtSourceText() = default;
  ZtSourceText(const ZtSourceText&) = delete;
  ZtSourceText& operator=(const ZtSourceText&) = delete;

  ZtPiece Text() const { return {m_Text, m_iSize}; }

  const ZtDocument* document = nullptr;  // by which it was read
  ZtTextForm form;                       // in which it came
  ZtSmallArray<Part, 16> parts;          // in the order in which they begin

 private:
  char* m_Text = nullptr;
  std::size_t m_iSize = 0;
};

#endif  // ZTXML_SRC_BINDING_ZTSOURCETEXT_H
