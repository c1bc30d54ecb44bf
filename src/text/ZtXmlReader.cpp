#include "text/ZtXmlReader.h"

#include "base/ZtHash.h"
#include "text/ZtXmlSyntax.h"

namespace {

using Classes = ZtXmlClasses;

ZtPiece Between(const char* from, const char* to) {
  return {from, static_cast<std::size_t>(to - from)};
}

bool IsXmlns(const char* name, const char* end) {
  constexpr std::size_t kSize = sizeof("xmlns") - 1;
  return *name == 'x' && end - name == kSize && std::memcmp(name, "xmlns", kSize) == 0;
}

// The first character of character data that must be looked at; a NUL follows the text.
[[gnu::always_inline]] inline char* EndOfText(char* at, const char* end) {
  for (; ZtHasBlock(at, end); at += sizeof(ZtBlock)) {
    const auto block = ZtGet<ZtBlock>(at);
    const unsigned first = ZtFirst(ZtMatches(block, '<') | ZtMatches(block, '&') |
                                   ZtMatches(block, ']') | ZtMatches(block, '\r'));
    if (first < sizeof(block)) return at + first;
  }
  while (!ZtIs(*at, Classes::kEndsText)) ++at;
  return at;
}

// Likewise of an attribute's value.
[[gnu::always_inline]] inline char* EndOfPart(char* at, char quote, const char* end) {
  for (; ZtHasBlock(at, end); at += sizeof(ZtBlock)) {
    const auto block = ZtGet<ZtBlock>(at);
    const unsigned first =
        ZtFirst(ZtMatches(block, quote) | ZtMatches(block, '<') | ZtMatches(block, '&') |
                reinterpret_cast<ZtBlock>(block < ZtBlock{} + ' '));
    if (first < sizeof(block)) return at + first;
  }
  while (*at != quote && !ZtIs(*at, Classes::kEndsValue)) ++at;
  return at;
}

// Moves what lies from `from` to `at` down to `to`, which passes its end.
void Move(char*& to, const char* from, const char* at) {
  const auto size = static_cast<std::size_t>(at - from);
  if (to != from) std::memmove(to, from, size);
  to += size;
}

bool AreEqual(ZtPiece a, ZtPiece b) {
  return a.size == b.size && ZtSameBytes(a.text, b.text, a.size);
}
bool AreEqual(const ZtXmlName& a, const ZtXmlName& b) {
  return a.space == b.space && AreEqual(a.local, b.local);
}

}  // namespace

char* ZtEndOfOtherName(char* at, bool isFirst) {
  while (true) {
    const char* next = at;
    const std::uint32_t c = ZtGetUtf8(next);
    if (!(isFirst ? ZtBeginsName(c) : ZtContinuesName(c))) return isFirst ? nullptr : at;
    isFirst = false;
    at = ZtSkip(at + (next - at), Classes::kContinuesName);
    if (!ZtIs(*at, Classes::kBeyondAscii)) return at;
  }
}

void ZtXmlReader::Begin(char* text, std::size_t size) {
  m_pText = m_pFrom = m_pAt = text;
  m_pEnd = text + size;
  m_Token = ZtToken::kText;
  m_Place = Place::kBeforeRoot;
  m_bEmpty = m_bCData = m_bDocumentType = false;
  m_Name = {nullptr, nullptr, kZtNoSpace};
  m_Text = nullptr;
  m_Error = {};
  m_Open.Cut(0);
  m_Attributes.Cut(0);
  if (size >= UINT32_MAX) {
    Fail(ZtXmlFault::kTooLarge, text);
  } else if (!m_Scope.Begin()) {
    Fail(ZtXmlFault::kOutOfMemory, text);
  }
}

[[gnu::always_inline]] inline bool ZtXmlReader::Scan() {
  while (true) {
    char* const from = m_pFrom = m_pAt;
    if (*from != '<') {
      if (m_Place == Place::kInside) return CharacterData(from);
      m_pAt = ZtSkipBlank(from);
      if (*m_pAt == '<') continue;
      return Finish();
    }
    switch (from[1]) {
      case '/':
        return EndTag(from);
      case '!':
        if (m_Place == Place::kInside && from[2] == '[') return Section(from);
        if (!Markup(from)) return false;
        break;
      case '?':
        if (!Instruction(from)) return false;
        break;
      default:
        return StartTag(from);
    }
  }
}

ZtToken ZtXmlReader::Next() {
  if (m_Token >= ZtToken::kDone) return m_Token;
  if (m_Token == ZtToken::kEnd) Leave();
  if (m_Token == ZtToken::kStart && m_bEmpty) {
    m_pFrom = m_pAt;
    m_Token = ZtToken::kEnd;
    return m_Token;
  }
  if (!Scan()) m_Token = ZtToken::kFailed;
  return m_Token;
}

// Outside of the root, where there is neither blank nor markup.
bool ZtXmlReader::Finish() {
  const bool isAfter = m_Place == Place::kAfterRoot;
  if (m_pAt != m_pEnd) {
    return Fail(isAfter ? ZtXmlFault::kJunkAfterRoot : ZtXmlFault::kTextBeforeRoot, m_pAt);
  }
  if (!isAfter) return Fail(ZtXmlFault::kNoElement, m_pAt);
  m_pFrom = m_pAt;
  m_Token = ZtToken::kDone;
  return true;
}

namespace {

// The end of the name at `local`, null when there is none; `local` passes its prefix.
[[gnu::always_inline]] inline char* EndOfQualified(char*& local) {
  char* const end = ZtEndOfName(local);
  if (!end || *end != ':') return end;
  local = end + 1;
  return ZtEndOfName(local);
}

}  // namespace

[[gnu::always_inline]] inline bool ZtXmlReader::Attribute(char*& at) {
  char* const name = at;
  char* local = name;
  char* const end = EndOfQualified(local);
  if (!end) return FailAt(ZtXmlFault::kBadName, local);
  at = *end == '=' ? end : ZtSkipBlank(end);
  if (*at != '=') return FailAt(ZtXmlFault::kNoEquals, at);
  if (*++at != '"') at = ZtSkipBlank(at);
  const char quote = *at;
  if (quote != '"' && quote != '\'') return FailAt(ZtXmlFault::kNoQuote, at);
  char* const value = ++at;
  char* valueEnd = at = EndOfPart(at, quote, m_pEnd);
  if (*at != quote && !RestOfValue(at, quote, valueEnd)) return false;
  *valueEnd = '\0';
  const std::uint32_t from = Offset(name);
  const std::uint32_t valueFrom = Offset(value);
  const std::uint32_t valueTo = Offset(at++);
  const ZtPiece text = Between(value, valueEnd);
  if (local == name && IsXmlns(name, end)) return Declare({nullptr, 0}, text, from);
  if (local != name && IsXmlns(name, local - 1)) return Declare(Between(local, end), text, from);
  // Most names differ in what is noted of them as one bit; those that do not are compared later.
  const unsigned mixed = static_cast<unsigned char>(*local) +
                         static_cast<unsigned>(end - local) * 8 +
                         static_cast<unsigned char>(end[-1]) * 4U;
  const std::uint64_t bit = std::uint64_t{1} << (mixed & 63);
  m_iAlike |= m_iSeen & bit;
  m_iSeen |= bit;
  ZtPiece prefix(nullptr, 0);
  if (local != name) {
    prefix = Between(name, local - 1);
    m_bPrefixed = true;
  }
  return m_Attributes.Add(
             {{prefix, Between(local, end), kZtNoSpace}, text, from, valueFrom, valueTo}) ||
         Fail(ZtXmlFault::kOutOfMemory, name);
}

bool ZtXmlReader::StartTag(char* from) {
  if (m_Place == Place::kAfterRoot) return Fail(ZtXmlFault::kJunkAfterRoot, from);
  char* const name = from + 1;
  char* local = name;
  char* const end = EndOfQualified(local);
  if (!end) return FailAt(ZtXmlFault::kBadName, local);
  const auto prefixSize = local == name ? 0 : static_cast<std::uint32_t>(local - name - 1);
  const std::uint32_t declarations = m_Scope.Declarations();
  m_Attributes.Cut(0);
  m_bPrefixed = m_bEmpty = false;
  m_iSeen = m_iAlike = 0;
  char* at = end;
  while (*at != '>') {
    char* const blank = at;
    at = ZtSkipBlank(at);
    if (*at == '>') break;
    if (*at == '/' && at[1] == '>') {
      m_bEmpty = true;
      ++at;
      break;
    }
    if (at == blank) return FailAt(ZtXmlFault::kBadTag, *at == '/' ? at + 1 : at);
    if (!Attribute(at)) return false;
  }
  m_pAt = at + 1;

  m_Name = {{prefixSize ? name : nullptr, prefixSize}, Between(local, end), m_Scope.Default()};
  if (prefixSize) {
    m_Name.space = m_Scope.SpaceOf(m_Name.prefix);
    if (m_Name.space == kZtNone) return Fail(ZtXmlFault::kUnboundPrefix, name);
  }
  if ((m_bPrefixed || m_iAlike) && !ResolveNames()) return false;
  if (!m_Open.Add({Offset(from), static_cast<std::uint32_t>(end - name), prefixSize, m_Name.space,
                   declarations})) {
    return Fail(ZtXmlFault::kOutOfMemory, from);
  }
  m_Place = Place::kInside;
  m_Token = ZtToken::kStart;
  return true;
}

// The rest of a value that is not what stands in the source, from the first of its characters that
// is to be changed to its quote; `end` is that of the value when it is resolved.
bool ZtXmlReader::RestOfValue(char*& at, char quote, char*& end) {
  do {
    if (*at == '&') {
      if (!Reference(at, end)) return false;
    } else if (ZtIs(*at, Classes::kBlank)) {
      at += *at == '\r' && at[1] == '\n' ? 2 : 1;
      *end++ = ' ';
    } else {
      return FailAt(ZtXmlFault::kLessThanInValue, at);
    }
    const char* const run = at;
    at = EndOfPart(at, quote, m_pEnd);
    Move(end, run, at);
  } while (*at != quote);
  return true;
}

bool ZtXmlReader::Declare(ZtPiece prefix, ZtPiece uri, std::uint32_t from) {
  using Result = ZtNamespaceScope::Result;
  const char* const at = m_pText + from;
  switch (m_Scope.Declare(prefix, uri, m_Open.Size() + 1)) {
    case Result::kDeclared:
      return true;
    case Result::kTwice:
      return Fail(ZtXmlFault::kAttributeTwice, at);
    case Result::kReservedPrefix:
      return Fail(ZtXmlFault::kReservedPrefix, at);
    case Result::kReservedSpace:
      return Fail(ZtXmlFault::kReservedNamespace, at);
    case Result::kNoUri:
      return Fail(ZtXmlFault::kNoNamespace, at);
    case Result::kNoMemory:
      break;
  }
  return Fail(ZtXmlFault::kOutOfMemory, at);
}

// Only now are all namespaces known that the tag declares.
bool ZtXmlReader::ResolveNames() {
  if (m_bPrefixed) {
    for (ZtXmlAttribute& attribute : m_Attributes) {
      if (!attribute.name.prefix.size) continue;
      attribute.name.space = m_Scope.SpaceOf(attribute.name.prefix);
      if (attribute.name.space == kZtNone) {
        return Fail(ZtXmlFault::kUnboundPrefix, m_pText + attribute.from);
      }
    }
  }
  return !m_iAlike || AreDifferent();
}

// Whether no attribute is there twice.
bool ZtXmlReader::AreDifferent() {
  constexpr std::uint32_t kFew = 16;
  if (m_Attributes.Size() > kFew) return AreManyDifferent();
  for (const ZtXmlAttribute& attribute : m_Attributes) {
    for (const ZtXmlAttribute* other = m_Attributes.begin(); other != &attribute; ++other) {
      if (AreEqual(other->name, attribute.name)) {
        return Fail(ZtXmlFault::kAttributeTwice, m_pText + attribute.from, other->from);
      }
    }
  }
  return true;
}

bool ZtXmlReader::AreManyDifferent() {
  std::size_t slots = 64;
  while (slots < std::size_t{2} * m_Attributes.Size()) slots *= 2;
  auto* table = static_cast<std::uint32_t*>(__calloc(slots, sizeof(std::uint32_t)));
  if (!table) return Fail(ZtXmlFault::kOutOfMemory, m_pFrom);
  bool differ = true;
  for (std::uint32_t i = 0; i < m_Attributes.Size() && differ; ++i) {
    const ZtXmlAttribute& attribute = m_Attributes[i];
    const std::uint64_t seed = ZtSeed(table) + attribute.name.space;
    auto slot = static_cast<std::size_t>(ZtHash(attribute.name.local, seed)) & (slots - 1);
    for (; table[slot] && differ; slot = (slot + 1) & (slots - 1)) {
      const ZtXmlAttribute& other = m_Attributes[table[slot] - 1];
      differ = !AreEqual(other.name, attribute.name) ||
               Fail(ZtXmlFault::kAttributeTwice, m_pText + attribute.from, other.from);
    }
    table[slot] = i + 1;
  }
  __free(table);
  return differ;
}

bool ZtXmlReader::EndTag(char* from) {
  if (m_Place == Place::kAfterRoot) return Fail(ZtXmlFault::kJunkAfterRoot, from);
  if (m_Place == Place::kBeforeRoot) return Fail(ZtXmlFault::kBadMarkup, from);
  const Open& open = m_Open.Last();
  char* const name = from + 2;
  const char* const opened = m_pText + open.from + 1;
  if (m_pEnd - name < static_cast<std::ptrdiff_t>(open.size) ||
      !ZtSameBytes(name, opened, open.size)) {
    const bool isCut = !ZtFind(name, '>', m_pEnd);
    return isCut ? FailAt(ZtXmlFault::kCutShort, m_pEnd)
                 : Fail(ZtXmlFault::kWrongEndTag, from, open.from);
  }
  char* at = name + open.size;
  if (*at != '>') {
    at = ZtSkipBlank(at);
    if (*at != '>') {
      if (at != name + open.size || at == m_pEnd) return FailAt(ZtXmlFault::kBadEndTag, at);
      return Fail(ZtXmlFault::kWrongEndTag, from, open.from);
    }
  }
  m_pAt = at + 1;
  m_Name = {{open.prefix ? opened : nullptr, open.prefix}, {opened, open.size}, open.space};
  if (open.prefix) {
    m_Name.local = {opened + open.prefix + 1, open.size - open.prefix - std::size_t{1}};
  }
  m_Token = ZtToken::kEnd;
  return true;
}

// After its end the element is closed, and what it declared is out of scope.
void ZtXmlReader::Leave() {
  m_Scope.Leave(m_Open.Last().declarations);
  m_Open.Cut(m_Open.Size() - 1);
  if (m_Open.Size() == 0) m_Place = Place::kAfterRoot;
}

bool ZtXmlReader::CharacterData(char* from) {
  char* at = EndOfText(from, m_pEnd);
  char* to = at;
  while (*at != '<') {
    if (*at == '&') {
      if (!Reference(at, to)) return false;
    } else if (*at == '\r') {
      at += at[1] == '\n' ? 2 : 1;
      *to++ = '\n';
    } else if (*at == ']') {
      if (at[1] == ']' && at[2] == '>') return Fail(ZtXmlFault::kSectionEndInText, at);
      ++at;
      *to++ = ']';
    } else {
      return Fail(ZtXmlFault::kNotClosed, at, m_Open.Last().from);
    }
    const char* const run = at;
    at = EndOfText(at, m_pEnd);
    Move(to, run, at);
  }
  m_Text = Between(from, to);
  m_bCData = false;
  m_pAt = at;
  m_Token = ZtToken::kText;
  return true;
}

// Of the reference at `at` writes the character at `to`; both pass it.
bool ZtXmlReader::Reference(char*& at, char*& to) {
  struct Entity {
    const char* source;
    char character;
  };
  constexpr Entity kEntities[] = {
      {"amp;", '&'}, {"lt;", '<'}, {"gt;", '>'}, {"quot;", '"'}, {"apos;", '\''}};
  char* const name = at + 1;
  if (*name == '#') return CharacterReference(at, to);
  for (const Entity& entity : kEntities) {
    const std::size_t size = ZtMatched(name, entity.source);
    if (entity.source[size]) continue;
    at = name + size;
    *to++ = entity.character;
    return true;
  }
  char* const end = ZtEndOfName(name);
  if (!end || *end != ';') return FailAt(ZtXmlFault::kBadReference, end ? end : name);
  return Fail(ZtXmlFault::kUndefinedEntity, at);
}

bool ZtXmlReader::CharacterReference(char*& at, char*& to) {
  const char* const from = at;
  at += 2;
  const bool isHex = *at == 'x';
  if (isHex) ++at;
  const char* const digits = at;
  std::uint32_t c = 0;
  for (;; ++at) {
    const auto digit = static_cast<unsigned>(*at - '0');
    const auto letter = static_cast<unsigned>((*at | 0x20) - 'a');
    if (digit < 10) {
      c = c * (isHex ? 16 : 10) + digit;
    } else if (isHex && letter < 6) {
      c = c * 16 + 10 + letter;
    } else {
      break;
    }
    if (c > kZtLastCharacter) c = kZtLastCharacter + 1;
  }
  if (at == digits || *at != ';') return FailAt(ZtXmlFault::kBadReference, at);
  if (!ZtIsXmlCharacter(c)) return Fail(ZtXmlFault::kBadCharacterReference, from);
  ++at;
  to = ZtPutUtf8(to, c);
  return true;
}

bool ZtXmlReader::Fail(ZtXmlFault fault, const char* at, std::size_t other) {
  m_Error = {fault, static_cast<std::size_t>(at - m_pText), other};
  m_Token = ZtToken::kFailed;
  return false;
}

bool ZtXmlReader::FailAt(ZtXmlFault fault, const char* at) {
  if (at != m_pEnd) return Fail(fault, at);
  return Fail(ZtXmlFault::kCutShort, at, Offset(m_pFrom));
}
