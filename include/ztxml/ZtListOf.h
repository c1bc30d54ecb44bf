// Lists typed by their entries, so that callers walk them without a cast:
//
//     for (zt_registration& registration : ZtEach(reginfo->getRegistrationListValue())) ...
//     for (zt_pub_gruu& gruu : ZtEach<zt_pub_gruu>(contact->getAnyElementValue())) ...
#ifndef ZTXML_INCLUDE_ZTLISTOF_H
#define ZTXML_INCLUDE_ZTLISTOF_H

#include <cstddef>
#include <iterator>
#include <type_traits>

#include "ztxml/XMLElement.h"
#include "ztxml/XMLList.h"

class zt_AttributeValuePair;

/// How the library reads and writes one type; opaque to callers.
struct ZtElementType;

/// Whether `element` is of the class that `type`, a T::kType, describes.
ZT_API bool ZtIsA(const XMLElement& element, const ZtElementType& type);

/// `element` as a T, or null when it is null or of another class. It tells what an entry of a list
/// of several types is: ZtAs<zt_ns_xcap_forward_to_type>(element).
template <class T>
T* ZtAs(XMLElement* element) {
  return element && ZtIsA(*element, T::kType) ? static_cast<T*>(element) : nullptr;
}

/// A list that holds `T`: a schema type, zt_string, zt_AttributeValuePair, or XMLElement for one of
/// several types. It is a ZtSingleElementList, made by zt_xml_common_methods::CreateElementList or
/// a factory, and adds only the type of the entries.
template <class T>
class ZtListOf : public ZtSingleElementList {
 public:
  ZtListOf() = delete;
};

/// The entries of a list that are a `T`, as a range. Other entries are skipped, so that one type
/// can be picked from a list of several, and wrong entries do no harm.
template <class T>
class ZtEntries {
 public:
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = T*;
    using reference = T&;

    explicit Iterator(ZtListNode* node) { Find(node); }
    T& operator*() const { return *m_pEntry; }
    T* operator->() const { return m_pEntry; }
    Iterator& operator++() {
      Find(m_pNext);
      return *this;
    }
    bool operator==(const Iterator& other) const { return m_pEntry == other.m_pEntry; }
    bool operator!=(const Iterator& other) const { return m_pEntry != other.m_pEntry; }

   private:
    void Find(ZtListNode* node) {
      m_pEntry = nullptr;
      for (; node && !m_pEntry; node = node->next) m_pEntry = EntryOf(node->data);
      m_pNext = node;
    }

    T* m_pEntry;
    ZtListNode* m_pNext;  // found early, because a loop may delete the entry that it is at
  };

  /// The entries of `list`; null has none.
  explicit ZtEntries(ZtSingleElementList* list) : m_pHead(list ? list->m_pHead : nullptr) {}
  /// The first entry.
  Iterator begin() const { return Iterator(m_pHead); }
  /// Where a walk ends.
  Iterator end() const { return Iterator(nullptr); }

 private:
  static T* EntryOf(void* data) {
    if constexpr (std::is_same_v<T, zt_AttributeValuePair>) {
      return T::From(static_cast<XMLAttribute*>(data));
    } else if constexpr (std::is_same_v<T, XMLElement>) {
      return static_cast<XMLElement*>(data);
    } else {
      return ZtAs<T>(static_cast<XMLElement*>(data));
    }
  }

  ZtListNode* m_pHead;
};

/// Walks `list`; null has no entries. A loop may remove and delete the entry that it is at, but no
/// other.
template <class T>
ZtEntries<T> ZtEach(ZtListOf<T>* list) {
  return ZtEntries<T>(list);
}
/// Walks, in the same way, only those entries of `list` that are a `T`. The list holds children, or
/// attributes when `T` is zt_AttributeValuePair.
template <class T>
ZtEntries<T> ZtEach(ZtSingleElementList* list) {
  return ZtEntries<T>(list);
}

#endif  // ZTXML_INCLUDE_ZTLISTOF_H
