#include "ztxml/XMLList.h"

#include "base/ZtLog.h"
#include "model/ZtListItems.h"
#include "ztxml/ZtArena.h"

namespace {

constexpr char kSource[] = "src/XMLList";
// Intended: a list's destructor logs the text of its constructor, and GetPtrToListHead and
// GetPtrToListEnd log the text of GetKeyAtIndex; log readers tell the lines apart by their numbers.
constexpr int kConstructorLine = 35;
constexpr int kDestructorLine = 56;
constexpr int kListHeadLine = 238;
constexpr int kListEndLine = 265;
constexpr char kLifeText[] = "<XML Module>: ZtSingleElementList::ZtSingleElementList";
constexpr char kEmptyText[] =
    "ZtSingleElementList::GetKeyAtIndex: Head itself is null and No item is there to be removed";

}  // namespace

ZtSingleElementList::ZtSingleElementList() : m_pHead(nullptr), m_iListCount(0), m_pTail(nullptr) {
  ZtLog(kZtLogState, kSource, kConstructorLine)(kLifeText);
}

ZtSingleElementList::~ZtSingleElementList() {
  ZtLog(kZtLogState, kSource, kDestructorLine)(kLifeText);
  while (m_pHead) {
    ZtListNode* node = m_pHead;
    m_pHead = node->next;
    ZtFree(node);
  }
}

int ZtSingleElementList::Add(void* data) {
  const ZtListItems* items = data ? m_pItems : nullptr;
  if (items && !items->take(data)) return 0;
  if (Append(data, nullptr)) return 1;
  if (items) items->drop(data);
  return 0;
}

void ZtSingleElementList::Unlink(ZtListNode* previous) {
  ZtListNode* node = previous ? previous->next : m_pHead;
  (previous ? previous->next : m_pHead) = node->next;
  if (node == m_pTail) m_pTail = previous;
  ZtFree(node);
  --m_iListCount;
}

int ZtSingleElementList::Remove(void* data) {
  ZtLog(kZtLogState, kSource)("<XML Module>: ZtSingleElementList::Remove");
  if (!m_pHead) {
    ZtLog(kZtLogError, kSource)("<XML Module> ZtSingleElementList::Remove: Head itself is null");
    return 0;
  }
  ZtListNode* previous = nullptr;
  for (ZtListNode* node = m_pHead; node; previous = node, node = node->next) {
    if (!node->data || node->data != data) continue;
    Unlink(previous);
    if (m_pItems) m_pItems->drop(data);
    return 1;
  }
  ZtLog(kZtLogError,
        kSource)("<XML Module> ZtSingleElementList::Remove: Entry not found in the list");
  return 0;
}

void* ZtSingleElementList::GetKeyAtIndex(unsigned short index) {
  if (!m_pHead) {
    ZtLog(kZtLogError, kSource)(kEmptyText);
    return nullptr;
  }
  // Intended: for an index equal to the number of nodes GetKeyAtIndex gives null without the log
  // line that greater indexes get, and log readers are used to that.
  if (index > m_iListCount) {
    ZtLog(kZtLogError, kSource)("ZtSingleElementList::GetKeyAtIndex: Invalid index");
    return nullptr;
  }
  ZtListNode* node = m_pHead;
  for (unsigned i = 0; node && i < index; ++i) node = node->next;
  return node ? node->data : nullptr;
}

ZtListNode* ZtSingleElementList::GetPtrToListHead() { return HeadOf(this); }

ZtListNode* ZtSingleElementList::HeadOf(ZtSingleElementList* list) {
  ZtListNode* head = list ? list->m_pHead : nullptr;
  if (!head) ZtLog(kZtLogError, kSource, kListHeadLine)(kEmptyText);
  return head;
}

// Intended: GetPtrToListEnd gives null instead of the last node; callers are not to depend on a
// node.
ZtListNode* ZtSingleElementList::GetPtrToListEnd() {
  if (!m_pHead) ZtLog(kZtLogError, kSource, kListEndLine)(kEmptyText);
  return nullptr;
}
