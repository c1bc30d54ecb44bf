// The list in which schema types keep repeated children and attributes.
#ifndef ZTXML_INCLUDE_XMLLIST_H
#define ZTXML_INCLUDE_XMLLIST_H

#include <cstdint>

#include "ztxml/ZtExport.h"

/// A node of a ZtSingleElementList. Walk a list with ZtEach, or by hand with GetPtrToListHead() and
/// `next`.
struct ZtListNode {
  void* data;        ///< the stored pointer, not owned
  ZtListNode* next;  ///< null at the end
};

/// How objects get their owner when they enter an owned list; opaque to callers.
struct ZtListItems;

/// Singly linked list of untyped pointers. It owns its nodes and never what they point to. A list
/// that an element has taken holds exactly XMLElement* (children) or exactly XMLAttribute*
/// (attributes), which the element owns: an object that has an owner already cannot be added, and
/// one that is removed is the caller's.
class ZT_API ZtSingleElementList : public ZtNonCopyable {
  template <class Item>
  friend class ZtOwnedList;
  template <class T>
  friend class ZtEntries;
  friend class ZtSplice;

 public:
  ZtSingleElementList();
  ~ZtSingleElementList();
  /// Appends `data` (null is stored too). Returns 1; 0 when there is no memory, or when an element
  /// has taken the list and the object has an owner already.
  int Add(void* data);
  /// Removes the first node that holds `data` (never null); the data is not freed. Returns 1
  /// removed, 0 not found.
  int Remove(void* data);
  /// The pointer at `index`, counted from 0, or null. Linear in the index.
  void* GetKeyAtIndex(unsigned short index);
  /// The first node (not its data), or null when the list is empty.
  ZtListNode* GetPtrToListHead();
  /// The first node of `list`; null when the list is null or empty.
  static ZtListNode* HeadOf(ZtSingleElementList* list);
  /// Always null, which is also the `next` of the last node.
  ZtListNode* GetPtrToListEnd();
  /// Number of nodes. Intended: GetCount counts in 16 bits, as callers are compiled for, so that it
  /// is the number of nodes modulo 65536 and cannot bound a loop.
  std::uint16_t GetCount() const { return m_iListCount; }

 private:
  // Appends `data` with a node of `arena`, null for the heap; false without memory.
  ZT_LOCAL bool Append(void* data, ZtArena* arena);
  // Unlinks the node after `previous`, or the first node when that is null.
  ZT_LOCAL void Unlink(ZtListNode* previous);

  ZtListNode* m_pHead;
  std::uint16_t m_iListCount;
  ZtListNode* m_pTail;                    // makes Add independent of the length
  const ZtListItems* m_pItems = nullptr;  // null until an element takes the list
};

#endif  // ZTXML_INCLUDE_XMLLIST_H
