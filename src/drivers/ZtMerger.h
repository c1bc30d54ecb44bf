// Merges what a notification tells into the tree of what is known, by the keys and states of the
// rows. What can fail comes first and changes nothing; what changes the tree cannot fail.
#ifndef ZTXML_SRC_DRIVERS_ZTMERGER_H
#define ZTXML_SRC_DRIVERS_ZTMERGER_H

#include "base/ZtBuffer.h"
#include "base/ZtSmallArray.h"
#include "binding/ZtKeyIndex.h"
#include "ztxml/ZtState.h"

class ZtMerger {
 public:
  enum class Result : std::uint8_t { kDone, kNoMemory, kTooDeep };

  // How much of an element is told.
  enum class Told : std::uint8_t { kAll, kPart, kDeleted };
  static Told ToldOf(const XMLElement& element, const ZtElementType& type);

  // Replaces the tree `known`, which may be null, by `fresh`, or merges `fresh` into it. Both are
  // objects of `type`. When it is done, what was replaced or removed is in the tree that is not
  // kept: the old one, or `fresh`. Else both are as they were but for texts in `fresh`.
  Result Replace(XMLElement* known, XMLElement& fresh, const ZtElementType& type);
  Result Merge(XMLElement& known, XMLElement& fresh, const ZtElementType& type);
  void ForgetChanges() { m_Changes.Cut(0); }
  void Forget() {
    ForgetChanges();
    m_Index.Clear();
  }

  // What the last of these changed, in the order of the notification. Paths have a key where there
  // are several: /conference-info/users/user[sip:ada@example.com].
  std::uint32_t ChangeCount() const { return m_Changes.Size(); }
  ztxml::Change ChangeAt(std::uint32_t index) const;

 private:
  struct Noted {
    ztxml::Change::Kind kind;
    XMLElement* object;
    std::size_t path;
  };
  class Step;

  Result Begin(XMLElement& fresh, const ZtElementType& type);
  Result End(Result result);
  bool Prepare(XMLElement& fresh, const ZtElementType& type, bool isPart, int depth);

  void Index(XMLElement& element, const ZtElementType& type);
  void Unindex(XMLElement& element, const ZtElementType& type);
  void IndexList(XMLElement& parent, const ZtField& row);

  void NoteMerge(XMLElement& known, XMLElement& fresh, const ZtElementType& type);
  void NoteReplaced(XMLElement* known, XMLElement& fresh, const ZtElementType& type);
  void NoteGone(XMLElement& known, const ZtElementType& type);
  void NoteChild(XMLElement* known, XMLElement* fresh, const ZtField& row);
  void NoteEntries(XMLElement* known, XMLElement& fresh, const ZtField& row, bool replaces);
  void Note(ztxml::Change::Kind kind, XMLElement& object);

  void Apply(XMLElement& known, XMLElement& fresh, const ZtElementType& type);
  void ApplyEntries(XMLElement& known, XMLElement& fresh, const ZtField& row);

  ZtKeyIndex m_Index;
  ZtSmallArray<Noted, 8> m_Changes;
  ZtBuffer m_Paths;
  ZtBuffer m_Path;
  std::size_t m_iEntries = 0;
  bool m_bNoMemory = false;
  bool m_bTooDeep = false;
};

#endif  // ZTXML_SRC_DRIVERS_ZTMERGER_H
