#include "text/ZtNamespaceScope.h"

#include "base/ZtBytes.h"

namespace {

constexpr char kXmlUri[] = "http://www.w3.org/XML/1998/namespace";
constexpr char kXmlnsUri[] = "http://www.w3.org/2000/xmlns/";

constexpr std::uint32_t kDefaultPrefix = 0;  // its index

bool Is(ZtPiece a, ZtPiece b) {
  return a.size == b.size && a.size > 0 && ZtSameBytes(a.text, b.text, a.size);
}
template <std::size_t kSize>
bool Is(ZtPiece text, const char (&literal)[kSize]) {
  return text.size == kSize - 1 && std::memcmp(text.text, literal, kSize - 1) == 0;
}

}  // namespace

bool ZtNamespaceScope::Begin() {
  m_Prefixes.Clear();
  m_Spaces.Clear();
  m_Bindings.Cut(0);
  return m_Prefixes.Push(nullptr, kZtNoSpace) &&
         Declare("xml", {kXmlUri, sizeof(kXmlUri) - 1}, 0) == Result::kDeclared;
}

ZtNamespaceScope::Result ZtNamespaceScope::Declare(ZtPiece prefix, ZtPiece uri,
                                                   std::uint32_t depth) {
  if (uri.size == 0 && prefix.size > 0) return Result::kNoUri;
  if (Is(prefix, "xmlns")) return Result::kReservedPrefix;
  const bool isXml = Is(uri, kXmlUri);
  if (Is(prefix, "xml") != isXml) return isXml ? Result::kReservedSpace : Result::kReservedPrefix;
  if (Is(uri, kXmlnsUri)) return Result::kReservedSpace;

  std::uint32_t p = prefix.size ? m_Prefixes.Find(prefix) : kDefaultPrefix;
  if (p == kZtNone) {
    p = m_Prefixes.Size();
    if (!m_Prefixes.Push(prefix, kZtNoSpace)) return Result::kNoMemory;
  }
  const std::uint32_t outer = m_Prefixes[p].newest;
  if (outer != kZtNone && m_Bindings[outer].depth == depth) return Result::kTwice;

  std::uint32_t s = uri.size ? m_Spaces.Find(uri) : kZtNone;
  const bool isNew = uri.size && s == kZtNone;
  if (isNew) {
    s = m_Spaces.Size();
    if (!m_Spaces.Push(uri, Number(uri))) return Result::kNoMemory;
  }
  const std::uint32_t index = m_Bindings.Size();
  if (!m_Bindings.Add({p, s, outer, depth, kZtNone, kZtNone, isNew})) return Result::kNoMemory;
  if (outer != kZtNone) Unlink(outer);
  if (s != kZtNone) m_Bindings[index].older = m_Spaces[s].newest;
  Link(index);
  Bind(p, index);
  return Result::kDeclared;
}

// Undoes the last declaration: lists and stacks are then as they were before it.
void ZtNamespaceScope::Undeclare() {
  const std::uint32_t index = m_Bindings.Size() - 1;
  const Binding last = m_Bindings[index];
  Unlink(index);
  if (last.outer != kZtNone) Link(last.outer);
  Bind(last.prefix, last.outer);
  m_Bindings.Cut(index);
  if (last.isFirst) m_Spaces.Pop();
  if (last.outer == kZtNone && last.prefix != kDefaultPrefix) m_Prefixes.Pop();
}

void ZtNamespaceScope::Bind(std::uint32_t prefix, std::uint32_t binding) {
  const std::uint32_t s = binding == kZtNone ? kZtNone : m_Bindings[binding].space;
  m_Prefixes[prefix].newest = binding;
  m_Prefixes[prefix].value = s == kZtNone ? kZtNoSpace : m_Spaces[s].value;
}

void ZtNamespaceScope::Link(std::uint32_t index) {
  const Binding& binding = m_Bindings[index];
  if (binding.space == kZtNone) return;
  if (binding.newer == kZtNone) {
    m_Spaces[binding.space].newest = index;
  } else {
    m_Bindings[binding.newer].older = index;
  }
  if (binding.older != kZtNone) m_Bindings[binding.older].newer = index;
}

// The binding keeps its neighbours, so that Link puts it back between them.
void ZtNamespaceScope::Unlink(std::uint32_t index) {
  const Binding& binding = m_Bindings[index];
  if (binding.space == kZtNone) return;
  if (binding.newer == kZtNone) {
    m_Spaces[binding.space].newest = binding.older;
  } else {
    m_Bindings[binding.newer].older = binding.older;
  }
  if (binding.older != kZtNone) m_Bindings[binding.older].newer = binding.newer;
}

// The number of a namespace that is about to be added.
ZtSpace ZtNamespaceScope::Number(ZtPiece uri) const {
  for (unsigned i = 0; i < m_iKnown; ++i) {
    if (Is(uri, m_pKnown[i])) return i + 1;
  }
  return m_iKnown + 1 + m_Spaces.Size();
}

ZtSpace ZtNamespaceScope::SpaceOf(ZtPiece prefix) const {
  const std::uint32_t p = prefix.size ? m_Prefixes.Find(prefix) : kDefaultPrefix;
  return p == kZtNone ? kZtNone : m_Prefixes[p].value;
}

ZtPiece ZtNamespaceScope::Uri(ZtSpace space) const {
  if (space == kZtNoSpace) return nullptr;
  if (space <= m_iKnown) return m_pKnown[space - 1];
  const std::uint32_t s = space - m_iKnown - 1;
  return s < m_Spaces.Size() && m_Spaces[s].value == space ? m_Spaces[s].name : nullptr;
}

bool ZtNamespaceScope::PrefixOf(ZtSpace space, bool orDefault, ZtPiece& prefix) const {
  const ZtPiece uri = Uri(space);
  const std::uint32_t s = !uri.text          ? kZtNone
                          : space > m_iKnown ? space - m_iKnown - 1
                                             : m_Spaces.Find(uri);
  if (s == kZtNone) return false;
  std::uint32_t binding = m_Spaces[s].newest;
  if (binding != kZtNone && m_Bindings[binding].prefix == kDefaultPrefix && !orDefault) {
    binding = m_Bindings[binding].older;
  }
  if (binding == kZtNone) return false;
  prefix = m_Prefixes[m_Bindings[binding].prefix].name;
  return true;
}
