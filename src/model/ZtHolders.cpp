#include "ztxml/ZtHolders.h"

#include "base/ZtMemory.h"
#include "model/ZtListItems.h"
#include "model/ZtOwnership.h"

// Deletes elements without recursion, however deep a tree is: what an element's destructor releases
// is queued until that element is gone. At most one queue runs on each thread.
class ZtReleaseQueue {
 public:
  static void Release(XMLElement* element) {
    if (!element) return;
    if (t_pRunning) {
      t_pRunning->Add(element);
    } else {
      ZtReleaseQueue().Run(element);
    }
  }

 private:
  void Add(XMLElement* element) {
    element->m_pNextReleased = m_pFirst;
    m_pFirst = element;
  }
  void Run(XMLElement* element) {
    t_pRunning = this;
    for (; element; element = Take()) ZtRelease(element);
    t_pRunning = nullptr;
  }
  XMLElement* Take() {
    XMLElement* element = m_pFirst;
    if (element) m_pFirst = element->m_pNextReleased;
    return element;
  }

  static thread_local ZtReleaseQueue* t_pRunning;

  XMLElement* m_pFirst = nullptr;
};

thread_local ZtReleaseQueue* ZtReleaseQueue::t_pRunning = nullptr;

namespace {

void Release(XMLElement* element) { ZtReleaseQueue::Release(element); }
void Release(XMLAttribute* attribute) { ZtRelease(attribute); }

template <class Item>
constexpr ZtListItems kItems = {
    [](void* data) { return ZtOwnership::Take(*static_cast<Item*>(data)); },
    [](void* data) { ZtOwnership::Drop(*static_cast<Item*>(data)); }};

// Deletes what a list holds, each entry through the base that it was stored as, and the list.
template <class Item>
void ReleaseList(ZtSingleElementList* list) {
  if (!list) return;
  for (ZtListNode* node = list->GetPtrToListHead(); node; node = node->next) {
    Release(static_cast<Item*>(node->data));
  }
  ZtRelease(list);
}

}  // namespace

ZtText::~ZtText() {
  if (m_bCopy) ZtFree(m_pText);
}

void ZtText::FreeCopy() {
  ZtFree(m_pText);
  m_bCopy = 0;
}

bool ZtText::Set(ZtPiece text, const ZtArena* arena) {
  if (!arena || !arena->Holds(text.text)) return Copy(text);
  Refer(text);
  return true;
}

bool ZtText::Copy(ZtPiece text) {
  char* copy = nullptr;
  if (text.text && text.size <= kMostSize) {
    copy = static_cast<char*>(ZtAllocate(text.size + 1));
    if (copy) {
      std::memcpy(copy, text.text, text.size);
      copy[text.size] = '\0';
    }
  }
  Refer({copy, copy ? text.size : 0});
  m_bCopy = copy != nullptr;
  m_bLost = !copy && text.text;
  return !m_bLost;
}

int ZtText::Assign(const char* text) {
  static_cast<void>(Copy(text));
  return 1;
}

ZtChild::~ZtChild() { Release(m_pChild); }

bool ZtChild::Take(XMLElement* child) {
  if (child == m_pChild) return true;
  if (child && !ZtOwnership::Take(*child)) return false;
  XMLElement* old = m_pChild;
  m_pChild = child;
  Release(old);
  return true;
}

template <class Item>
ZtOwnedList<Item>::~ZtOwnedList() {
  ReleaseList<Item>(m_pList);
}

template <class Item>
int ZtOwnedList<Item>::Set(ZtSingleElementList* list) {
  if (list == m_pList) return 1;
  if (list && list->m_pItems) {
    ZtOwnership::LogOwned("ZtSingleElementList");
    return 1;
  }
  // Done before the old entries are deleted: new ones may be among them or below them.
  if (list) {
    list->m_pItems = &kItems<Item>;
    ZtListNode* previous = nullptr;
    for (ZtListNode* node = list->m_pHead; node; node = previous ? previous->next : list->m_pHead) {
      auto* item = static_cast<Item*>(node->data);
      if (item && !ZtOwnership::Take(*item)) {
        list->Unlink(previous);
      } else {
        previous = node;
      }
    }
  }
  ReleaseList<Item>(m_pList);
  m_pList = list;
  return 1;
}

template <class Item>
int ZtOwnedList<Item>::Add(Item* item, const char* source, ZtArena* arena) {
  if (!item || !ZtOwnership::Take(*item)) return 0;
  ZtSingleElementList* list = m_pList ? m_pList : ZtCreate<ZtSingleElementList>({source, arena});
  if (!list || !list->Append(item, arena)) {
    if (list != m_pList) ZtRelease(list);
    ZtOwnership::Drop(*item);
    return 0;
  }
  list->m_pItems = &kItems<Item>;
  m_pList = list;
  return 1;
}

template class ZtOwnedList<XMLElement>;
template class ZtOwnedList<XMLAttribute>;
