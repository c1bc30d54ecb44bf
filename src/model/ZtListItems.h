// How objects get their owner, and lose it, as they enter and leave a list that an element owns.
#ifndef ZTXML_SRC_BASE_ZTLISTITEMS_H
#define ZTXML_SRC_BASE_ZTLISTITEMS_H

#include "base/ZtLog.h"
#include "ztxml/XMLList.h"
#include "ztxml/ZtArena.h"

struct ZtListItems {
  bool (*take)(void* data);  // false for an object that has an owner
  void (*drop)(void* data);
};

// Here because most entries come from documents that are read.
inline bool ZtSingleElementList::Append(void* data, ZtArena* arena) {
  ZtLog(kZtLogState, "src/XMLList")("<XML Module>: ZtSingleElementList::Add");
  auto* node = static_cast<ZtListNode*>(ZtAllocate(sizeof(ZtListNode), arena));
  if (!node) {
    ZtLog(kZtLogError,
          "src/XMLList")(m_pHead ? "<XML Module>: ZtSingleElementList:Add pTravNode Buffer is NULL"
                                 : "<XML Module>: ZtSingleElementList:Add m_pHead Buffer is NULL");
    return false;
  }
  node->data = data;
  node->next = nullptr;
  (m_pHead ? m_pTail->next : m_pHead) = node;
  m_pTail = node;
  ++m_iListCount;
  ZtLog(kZtLogState, "src/XMLList")("<XML Module>: m_iListCount: %d", m_iListCount);
  return true;
}

#endif  // ZTXML_SRC_BASE_ZTLISTITEMS_H
