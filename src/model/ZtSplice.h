// Moves nodes from one list that elements own to another: entries keep their owner's mark, and
// nothing is allocated.
#ifndef ZTXML_SRC_MODEL_ZTSPLICE_H
#define ZTXML_SRC_MODEL_ZTSPLICE_H

#include "ztxml/XMLList.h"

class ZtSplice {
 public:
  static ZtListNode* First(const ZtSingleElementList* list) {
    return list ? list->m_pHead : nullptr;
  }
  static ZtListNode* Last(const ZtSingleElementList& list) { return list.m_pTail; }
  // `previous` is the node before it, null for the first.
  static void Unhook(ZtSingleElementList& list, ZtListNode* previous, ZtListNode& node) {
    (previous ? previous->next : list.m_pHead) = node.next;
    if (list.m_pTail == &node) list.m_pTail = previous;
    --list.m_iListCount;
  }
  static void HookLast(ZtSingleElementList& list, ZtListNode& node) {
    node.next = nullptr;
    (list.m_pHead ? list.m_pTail->next : list.m_pHead) = &node;
    list.m_pTail = &node;
    ++list.m_iListCount;
  }
};

#endif  // ZTXML_SRC_MODEL_ZTSPLICE_H
