#include "ZtHolders.h"

#include "base/ZtMemory.h"

namespace {

// Deletes what a list holds, each entry through the base that it was stored as, then the list.
template <class Item>
void ReleaseList(ZtSingleElementList* list) {
  if (!list) return;
  for (ZtListNode* node = list->GetPtrToListHead(); node; node = node->next) {
    ZtRelease(static_cast<Item*>(node->data));
  }
  ZtRelease(list);
}

}  // namespace

ZtText::~ZtText() { __free(m_pText); }

bool ZtText::Set(const char* text) {
  char* copy = text ? __strdup(text) : nullptr;
  __free(m_pText);
  m_pText = copy;
  return copy || !text;
}

ZtChild::~ZtChild() { ZtRelease(m_pChild); }

int ZtChild::Set(XMLElement* child) {
  if (child == m_pChild) return 1;
  XMLElement* old = m_pChild;
  m_pChild = child;
  ZtRelease(old);
  return 1;
}

template <class Item>
ZtOwnedList<Item>::~ZtOwnedList() {
  ReleaseList<Item>(m_pList);
}

template <class Item>
int ZtOwnedList<Item>::Set(ZtSingleElementList* list) {
  if (list == m_pList) return 1;
  ZtSingleElementList* old = m_pList;
  m_pList = list;
  ReleaseList<Item>(old);
  return 1;
}

template <class Item>
int ZtOwnedList<Item>::Add(Item* item, const char* source) {
  if (!item) return 0;
  ZtSingleElementList* list = m_pList ? m_pList : ZtCreate<ZtSingleElementList>(source);
  if (!list || !list->Add(item)) {
    if (list != m_pList) ZtRelease(list);
    return 0;
  }
  m_pList = list;
  return 1;
}

template class ZtOwnedList<XMLElement>;
template class ZtOwnedList<XMLAttribute>;
