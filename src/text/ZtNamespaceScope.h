// The namespaces in scope at a place of a document.
#ifndef ZTXML_SRC_TEXT_ZTNAMESPACESCOPE_H
#define ZTXML_SRC_TEXT_ZTNAMESPACESCOPE_H

#include "text/ZtNameStack.h"

// Which namespace: 0 none, 1 to n the known one of that number, above n another one that is in
// scope. The number of such a foreign one holds until the element ends that declares it; after that
// another namespace may get it.
using ZtSpace = std::uint32_t;
constexpr ZtSpace kZtNoSpace = 0;

class ZtNamespaceScope {
 public:
  enum class Result : std::uint8_t {
    kDeclared,
    kTwice,
    kReservedPrefix,
    kReservedSpace,
    kNoUri,
    kNoMemory
  };

  ZtNamespaceScope(const ZtPiece* known, unsigned count) : m_pKnown(known), m_iKnown(count) {}

  // Nothing is declared but `xml`; false without memory.
  bool Begin();

  // Binds a prefix, empty for the default namespace, to a namespace, empty for none, in the element
  // of that depth. Both texts are borrowed until Leave.
  Result Declare(ZtPiece prefix, ZtPiece uri, std::uint32_t depth);
  // How many declarations there are, and goes back to as many.
  std::uint32_t Declarations() const { return m_Bindings.Size(); }
  void Leave(std::uint32_t declarations) {
    while (m_Bindings.Size() > declarations) Undeclare();
  }

  // The namespace of elements without a prefix.
  ZtSpace Default() const { return m_Prefixes[0].value; }
  // The namespace that a prefix is bound to, kZtNone when it is not bound.
  ZtSpace SpaceOf(ZtPiece prefix) const;
  // The text of a namespace, null for kZtNoSpace and numbers that no namespace has now.
  ZtPiece Uri(ZtSpace space) const;
  // The prefix that was bound to a namespace last and still is; a null one stands for the default
  // namespace, which is passed over unless it is asked for. False when there is none.
  bool PrefixOf(ZtSpace space, bool orDefault, ZtPiece& prefix) const;

 private:
  // The unshadowed bindings to a namespace are a list.
  struct Binding {
    std::uint32_t prefix;
    std::uint32_t space;  // index in m_Spaces or kZtNone
    std::uint32_t outer;  // the binding of the prefix that this one shadows, or kZtNone
    std::uint32_t depth;
    std::uint32_t newer;
    std::uint32_t older;
    bool isFirst;  // to this namespace
  };

  void Undeclare();
  void Link(std::uint32_t index);
  void Unlink(std::uint32_t index);
  void Bind(std::uint32_t prefix, std::uint32_t binding);
  ZtSpace Number(ZtPiece uri) const;

  const ZtPiece* m_pKnown;
  unsigned m_iKnown;
  // Of both, `newest` is the last binding that is not shadowed, and `value` the namespace's number.
  ZtNameStack m_Prefixes;
  ZtNameStack m_Spaces;
  ZtSmallArray<Binding, 8> m_Bindings;
};

#endif  // ZTXML_SRC_TEXT_ZTNAMESPACESCOPE_H
