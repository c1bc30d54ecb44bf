// Text helpers of the parser and the list that serves as its stack of open element names.
#ifndef ZTXML_INCLUDE_XMLCOMMON_H
#define ZTXML_INCLUDE_XMLCOMMON_H

#include "ztxml/ZtExport.h"

/// Frees memory that came from the platform's allocator; null is ignored.
ZT_API void FreeElement(void* p);

/// Node of a singly linked list whose first node is a sentinel without data. Nodes are recorded
/// in the memory log under tag 1.
class ZT_API BuddyLinkList : public ZtNonCopyable {
 public:
  void* data = nullptr;           ///< untyped, not owned by the node
  BuddyLinkList* next = nullptr;  ///< null at the end

  /// Links a new node with `data` in after this one, before those that follow, and returns it; null
  /// when out of memory.
  BuddyLinkList* Append(void* data);

  /// The last node of the chain. Linear in the nodes after this one.
  BuddyLinkList* SeekEnd();

  /// Unlinks the last node and returns it (for Release); null when the chain is only this node.
  /// Linear in the nodes after this one.
  BuddyLinkList* RemoveLast();

  /// Deletes every node after this one, calling `release` (may be null) on each node's data.
  void FreeList(void (*release)(void*));

  /// Withdraws `node` from the memory log and deletes it; its data is the caller's.
  static void Release(BuddyLinkList* node);
};

/// Helpers on NUL-terminated byte strings. None reads before the start or after the end.
class ZT_API XmlCommon {
 public:
  /// The first '<', or null.
  static char* LocateBeginElement(char* text);
  /// The first '>', or null.
  static char* LocateEndElement(char* text);
  /// The first character that is not space, tab, CR or LF (it may be the NUL); null for null.
  static char* SkipSpaces(char* text);
  /// SkipSpaces by another name. Intended: XmlCommon::TrimSpaces trims the leading side only,
  /// unlike XmlDecoder::TrimSpaces; callers depend on trailing white space staying.
  static char* TrimSpaces(char* text);
  /// Cuts one trailing space. Intended: TrimRightSingle cuts no more than one space and no tab;
  /// callers depend on further white space staying.
  static void TrimRightSingle(char* text);
  /// Skips one leading and cuts one trailing double quote; returns the start. Intended:
  /// RemoveQuotes removes a quote also when the other side has none, and leaves single quotes;
  /// callers depend on both.
  static char* RemoveQuotes(char* text);
  /// Whether the text looks like an address: it has an '@' and no "aor=".
  static bool IsEmailFormat(const char* text);
};

#endif  // ZTXML_INCLUDE_XMLCOMMON_H
