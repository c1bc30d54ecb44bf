// The stack of the elements that are open while a document is read.
#ifndef ZTXML_INCLUDE_XMLSTACK_H
#define ZTXML_INCLUDE_XMLSTACK_H

#include "ztxml/ZtExport.h"

/// Fixed-capacity stack of untyped pointers, which it does not own.
class ZT_API XmlCodeGenStack : public ZtNonCopyable {
 public:
  static constexpr int kCapacity = 100;  ///< entries

  XmlCodeGenStack() : m_iTop(-1) {}
  /// Stores `p` on top; on a full stack the pointer is dropped and a line is logged.
  void push(void* p) {
    if (m_iTop == kCapacity - 1) return Refuse();
    m_pEntries[++m_iTop] = p;
  }
  /// Takes the top entry off; on an empty stack only a line is logged.
  void pop() {
    if (m_iTop == -1) return NothingToPop();
    --m_iTop;
  }
  /// The top entry, or null with a log line when the stack is empty.
  void* top() const { return m_iTop == -1 ? NoTop() : m_pEntries[m_iTop]; }
  bool empty() const { return m_iTop == -1; }
  /// The index of the top entry. Intended: the size() of a stack is one less than the number of its
  /// entries, -1 when it is empty; callers depend on it not being a count.
  int size() const { return m_iTop; }

 private:
  static void Refuse();
  static void NothingToPop();
  static void* NoTop();

  void* m_pEntries[kCapacity];
  int m_iTop;
};

#endif  // ZTXML_INCLUDE_XMLSTACK_H
