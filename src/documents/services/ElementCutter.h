// Cuts elements out of a document's text, for documents that are read in pieces.
#ifndef ZTXML_SRC_ELEMENTCUTTER_H
#define ZTXML_SRC_ELEMENTCUTTER_H

#include <cstddef>

#include "binding/ZtNames.h"

// The elements of one local name that were cut out of a text.
class ZtElementCutter {
 public:
  enum Result { kCut, kNoTable, kNoCopy };  // without memory one of the last two; text unchanged

  ZtElementCutter() = default;
  ~ZtElementCutter();
  ZtElementCutter(const ZtElementCutter&) = delete;
  ZtElementCutter& operator=(const ZtElementCutter&) = delete;

  // Cuts every element `name`, with any prefix and at any depth, out of `text` and closes the gaps.
  // Such an element inside another is cut out with it. Names in comments, attributes and texts do
  // not count, nor does a start tag without its end. Call it once for each object; linear in the
  // text.
  Result Cut(char* text, const char* name);

  std::size_t Count() const { return m_iCount; }
  // The elements' texts, each with its NUL, one after the other.
  const char* Texts() const { return m_pTexts; }

 private:
  struct Span {
    std::size_t begin;
    std::size_t end;    // 0 while the element is open
    std::size_t outer;  // the open element around it, counted from 1; 0 for none
  };

  bool Find(const char* text, const char* name);
  Span* Append();

  Span* m_pSpans = nullptr;
  std::size_t m_iSpans = 0;
  std::size_t m_iCapacity = 0;
  char* m_pTexts = nullptr;
  std::size_t m_iCount = 0;
};

#endif  // ZTXML_SRC_ELEMENTCUTTER_H
