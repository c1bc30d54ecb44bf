// Merges what a notification tells into the tree of what is known, by the keys and states of the
// rows: first without a change, to find what changes and whether there is memory for it, then
// without a way to fail.
#ifndef ZTXML_SRC_DRIVERS_ZTMERGER_H
#define ZTXML_SRC_DRIVERS_ZTMERGER_H

#include "base/ZtBuffer.h"
#include "base/ZtSmallArray.h"
#include "binding/ZtKeyIndex.h"
#include "ztxml/ZtState.h"

class ZtMerger {
 public:
  enum class Result : std::uint8_t { kDone, kNoMemory, kRefused };

  // How much of an element is told.
  enum class Told : std::uint8_t { kAll, kPart, kDeleted };
  static Told ToldOf(const XMLElement& element, const ZtElementType& type);

  // Takes `fresh`, an object of `type` that tells a part of `known` or all, into `known`, which may
  // be null where all is told. When it is done, `fresh` is what is not kept of either; else nothing
  // is changed but who has the texts of `fresh`.
  Result Take(XMLElement*& known, XMLElement*& fresh, const ZtElementType& type);
  void ForgetChanges() { m_Changes.Cut(0); }
  void Forget() {
    ForgetChanges();
    m_Index.Clear();
  }

  // What the last call changed, in the order of the notification.
  std::uint32_t ChangeCount() const { return m_Changes.Size(); }
  ztxml::Change ChangeAt(std::uint32_t index) const;

 private:
  struct Noted {
    ztxml::Change::Kind kind;
    XMLElement* object;
    std::size_t path;
  };
  class Step;

  bool Prepare(XMLElement& fresh, const ZtElementType& type, bool isPart, int depth);
  void Index(XMLElement& element, const ZtElementType& type);
  void IndexList(XMLElement& parent, const ZtField& row);
  void Unindex(const XMLElement& element, const ZtElementType& type);

  void Merge(XMLElement& known, XMLElement& fresh, const ZtElementType& type);
  void MergeChild(XMLElement& known, XMLElement& fresh, const ZtField& row);
  void MergeEntries(XMLElement& known, XMLElement& fresh, const ZtField& row);

  bool Compare(XMLElement* known, XMLElement& fresh, const ZtElementType& type);
  void CompareChild(XMLElement* known, XMLElement* fresh, const ZtField& row);
  void CompareEntry(XMLElement* known, XMLElement& fresh, const ZtField& row);
  void CompareEntries(XMLElement* known, XMLElement* fresh, const ZtField& row);
  void Note(ztxml::Change::Kind kind, XMLElement& object);

  ZtKeyIndex m_Index;
  ZtSmallArray<Noted, 8> m_Changes;
  ZtBuffer m_Paths;
  ZtBuffer m_Path;
  std::size_t m_iEntries = 0;
  bool m_bApplies = false;
  bool m_bNoMemory = false;
  bool m_bOdd = false;  // too deep, or an entry is of another class
};

#endif  // ZTXML_SRC_DRIVERS_ZTMERGER_H
