// Every name that rows and grammars can refer to: the shared table and a few names beyond it.
#ifndef ZTXML_SRC_BINDING_ZTNAMES_H
#define ZTXML_SRC_BINDING_ZTNAMES_H

#include <cstddef>

#include "XMLCommonDef.h"

// The names beyond the table, numbered behind its rows.
enum ZtExtraName : int {
  kZtLastTableName = kXmlStrRefCount - 1,
#define ZT_NAME(id, text) id,
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
};

// A row of the table or an extra name.
class ZtNameId {
 public:
  constexpr ZtNameId(e_XmlStrRef row) : m_Id(row) {}      // NOLINT(google-explicit-constructor)
  constexpr ZtNameId(ZtExtraName extra) : m_Id(extra) {}  // NOLINT(google-explicit-constructor)
  constexpr bool IsNone() const { return m_Id == XML_STR_ZT_NULL; }
  constexpr bool operator==(ZtNameId other) const { return m_Id == other.m_Id; }
  constexpr bool operator!=(ZtNameId other) const { return m_Id != other.m_Id; }

  const char* Text() const;
  // Whether `text` of `size` bytes is this name.
  bool Is(const char* text, std::size_t size) const;

 private:
  int m_Id;
};

inline const char* ZtName(ZtNameId id) { return id.Text(); }

#endif  // ZTXML_SRC_BINDING_ZTNAMES_H
