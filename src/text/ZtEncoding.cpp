#include "text/ZtEncoding.h"

#include <type_traits>

#include "base/ZtBytes.h"
#include "text/ZtCharacters.h"
#include "text/ZtXmlDeclaration.h"

namespace {

// A character of the input and how many bytes it has there.
struct Character {
  std::uint32_t code;
  unsigned size;
  bool isGood;
};

unsigned char Byte(const char* at) { return static_cast<unsigned char>(*at); }

// The character that begins at `at`, which is not at the end. Of one that is bad, `code` and `size`
// say what it is counted as.
template <ZtEncoding kEncoding>
Character Get(const char* at, const char* end) {
  const auto left = static_cast<std::size_t>(end - at);
  if constexpr (kEncoding == ZtEncoding::kAscii) return {Byte(at), 1, Byte(at) < 0x80};
  if constexpr (kEncoding == ZtEncoding::kLatin1) return {Byte(at), 1, true};
  if constexpr (kEncoding == ZtEncoding::kUtf8) {
    const std::uint32_t lead = Byte(at);
    if (lead < 0x80) return {lead, 1, true};
    const unsigned size = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
    std::uint32_t code = lead & (0x7FU >> size);
    bool isGood = size > 1 && left >= size;
    for (unsigned i = 1; i < size && isGood; ++i) {
      isGood = (Byte(at + i) & 0xC0) == 0x80;
      code = code << 6 | (Byte(at + i) & 0x3F);
    }
    isGood = isGood && ZtUtf8Size(code) == size && code <= kZtLastCharacter && !ZtIsSurrogate(code);
    return isGood ? Character{code, size, true} : Character{0, 1, false};
  }
  constexpr int kLow = kEncoding == ZtEncoding::kUtf16Be ? 1 : 0;
  const auto unit = [&](const char* from) -> std::uint32_t {
    return static_cast<std::uint32_t>(Byte(from + 1 - kLow) << 8) | Byte(from + kLow);
  };
  if (left < 2) return {0, 1, false};
  const std::uint32_t first = unit(at);
  if (!ZtIsSurrogate(first)) return {first, 2, true};
  const std::uint32_t second = left < 4 ? 0 : unit(at + 2);
  if ((first & 0xFC00) != 0xD800 || (second & 0xFC00) != 0xDC00) return {first, 2, false};
  return {0x10000 + ((first & 0x3FF) << 10) + (second & 0x3FF), 4, true};
}

// Calls `work` with the encoding as a constant.
template <class Work>
auto With(ZtEncoding encoding, const Work& work) {
  switch (encoding) {
    case ZtEncoding::kAscii:
      return work(std::integral_constant<ZtEncoding, ZtEncoding::kAscii>());
    case ZtEncoding::kLatin1:
      return work(std::integral_constant<ZtEncoding, ZtEncoding::kLatin1>());
    case ZtEncoding::kUtf16Le:
      return work(std::integral_constant<ZtEncoding, ZtEncoding::kUtf16Le>());
    case ZtEncoding::kUtf16Be:
      return work(std::integral_constant<ZtEncoding, ZtEncoding::kUtf16Be>());
    default:
      return work(std::integral_constant<ZtEncoding, ZtEncoding::kUtf8>());
  }
}

constexpr bool IsWide(ZtEncoding encoding) {
  return encoding == ZtEncoding::kUtf16Le || encoding == ZtEncoding::kUtf16Be;
}

ZtPiece WithoutMark(ZtPiece input, const ZtTextForm& form) {
  return {input.text + form.mark.size, input.size - form.mark.size};
}

using SignedBlock = signed char __attribute__((vector_size(16)));

// All ones in those bytes that are printable ASCII or line feeds.
ZtBlock Common(ZtBlock block) {
  // As numbers with signs, the bytes beyond ASCII are below a blank, too.
  constexpr char kLast = ' ' - 1;
  return reinterpret_cast<ZtBlock>(reinterpret_cast<SignedBlock>(block) > SignedBlock{} + kLast) |
         ZtMatches(block, '\n');
}

// Copies characters of ASCII that XML allows, in blocks, as far as they go.
void CopyAscii(const char*& at, const char* end, char*& to) {
  constexpr unsigned kSize = sizeof(ZtBlock);
  constexpr std::ptrdiff_t kTwo = 2 * sizeof(ZtBlock);
  const char* from = at;
  char* copy = to;
  for (; kZtHasVectors && end - from >= kTwo; from += kTwo, copy += kTwo) {
    const auto first = ZtGet<ZtBlock>(from);
    const auto second = ZtGet<ZtBlock>(from + kSize);
    ZtPut(copy, first);
    ZtPut(copy + kSize, second);
    if (ZtFirst(~(Common(first) & Common(second))) < kSize) break;
  }
  unsigned good = kSize;
  for (; good == kSize && ZtHasBlock(from, end); from += good, copy += good) {
    const auto block = ZtGet<ZtBlock>(from);
    ZtPut(copy, block);  // what comes after the characters is written again
    good = ZtFirst(~(Common(block) | ZtMatches(block, '\r') | ZtMatches(block, '\t')));
  }
  at = from;
  to = copy;
}

template <ZtEncoding kEncoding>
ZtEncodingFault Decode(ZtPiece input, char* to, std::size_t& faultAt) {
  const char* const begin = to;
  const char* at = input.text;
  const char* const end = at + input.size;
  while (true) {
    // In UTF-16 a character of ASCII takes more room than after it is decoded.
    if constexpr (!IsWide(kEncoding)) CopyAscii(at, end, to);
    do {
      if (at == end) return ZtEncodingFault::kNone;
      const Character c = Get<kEncoding>(at, end);
      if (!c.isGood || !ZtIsXmlCharacter(c.code)) {
        faultAt = static_cast<std::size_t>(to - begin);
        if (c.isGood) return ZtEncodingFault::kBadCharacter;
        return IsWide(kEncoding) && c.size == 1 ? ZtEncodingFault::kCutShort
                                                : ZtEncodingFault::kBadBytes;
      }
      at += c.size;
      to = ZtPutUtf8(to, c.code);
    } while (at != end && Byte(at) >= 0x80);
  }
}

bool Lacks(ZtEncoding encoding, std::uint32_t c) {
  return (encoding == ZtEncoding::kAscii && c > 0x7F) ||
         (encoding == ZtEncoding::kLatin1 && c > 0xFF);
}

char* PutReference(char* to, std::uint32_t c) {
  *to++ = '&';
  *to++ = '#';
  *to++ = 'x';
  int shift = 20;
  while (!(c >> shift)) shift -= 4;
  for (; shift >= 0; shift -= 4) *to++ = "0123456789ABCDEF"[c >> shift & 0xF];
  *to++ = ';';
  return to;
}

char* PutUnit(char* to, std::uint32_t unit, ZtEncoding encoding) {
  const auto low = static_cast<char>(unit);
  const auto high = static_cast<char>(unit >> 8);
  *to++ = encoding == ZtEncoding::kUtf16Be ? high : low;
  *to++ = encoding == ZtEncoding::kUtf16Be ? low : high;
  return to;
}

char* Put(char* to, std::uint32_t c, ZtEncoding encoding) {
  if (Lacks(encoding, c)) return PutReference(to, c);
  if (!IsWide(encoding)) {
    *to++ = static_cast<char>(c);
    return to;
  }
  if (c < 0x10000) return PutUnit(to, c, encoding);
  to = PutUnit(to, 0xD800 | (c - 0x10000) >> 10, encoding);
  return PutUnit(to, 0xDC00 | ((c - 0x10000) & 0x3FF), encoding);
}

constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";
constexpr char kUtf16LeMark[] = "\xFF\xFE";
constexpr char kUtf16BeMark[] = "\xFE\xFF";

// The form as the first bytes tell it. (Without a mark, a document begins with a character of
// ASCII.)
ZtTextForm FormOfBytes(ZtPiece input) {
  const auto begins = [&](const char* mark, std::size_t size) {
    return input.size >= size && std::memcmp(input.text, mark, size) == 0;
  };
  if (begins(kUtf8Mark, 3)) return {ZtEncoding::kUtf8, {kUtf8Mark, 3}};
  if (begins(kUtf16LeMark, 2)) return {ZtEncoding::kUtf16Le, {kUtf16LeMark, 2}};
  if (begins(kUtf16BeMark, 2)) return {ZtEncoding::kUtf16Be, {kUtf16BeMark, 2}};
  if (input.size >= 2 && !input.text[0]) return {ZtEncoding::kUtf16Be, nullptr};
  if (input.size >= 2 && !input.text[1]) return {ZtEncoding::kUtf16Le, nullptr};
  return {};
}

// The name of an encoding in a text of any form, compared without regard to case.
bool IsNamed(ZtPiece text, ZtUnits units, const ZtXmlDeclaration& declaration, ZtPiece name) {
  if (declaration.encodingTo - declaration.encodingFrom != name.size) return false;
  const std::size_t step = units == ZtUnits::kBytes ? 1 : 2;
  const char* at = text.text + declaration.encodingFrom * step;
  if (units == ZtUnits::kBigEndian) ++at;
  for (std::size_t i = 0; i < name.size; ++i) {
    const char c = at[i * step];
    const bool isLower = c >= 'a' && c <= 'z';
    if ((isLower ? c - 'a' + 'A' : c) != name.text[i]) return false;
  }
  return true;
}

}  // namespace

const char* ZtFaultText(ZtEncodingFault fault) {
  switch (fault) {
    case ZtEncodingFault::kNone:
      return nullptr;
    case ZtEncodingFault::kUnknown:
      return "The encoding that the XML declaration names is not supported.";
    case ZtEncodingFault::kContradicted:
      return "The XML declaration names another encoding than the text has.";
    case ZtEncodingFault::kBadBytes:
      return "These bytes are no character of the encoding.";
    case ZtEncodingFault::kBadCharacter:
      return "XML does not allow this character.";
    case ZtEncodingFault::kCutShort:
      return "The text ends within a character.";
  }
  return nullptr;
}

ZtEncodingFault ZtFindForm(ZtPiece input, ZtTextForm& form, std::size_t& faultAt) {
  form = FormOfBytes(input);
  const ZtUnits units = form.encoding == ZtEncoding::kUtf16Le   ? ZtUnits::kLittleEndian
                        : form.encoding == ZtEncoding::kUtf16Be ? ZtUnits::kBigEndian
                                                                : ZtUnits::kBytes;
  const ZtPiece text = WithoutMark(input, form);
  const ZtXmlDeclaration declaration(text, units);
  if (declaration.encodingTo == declaration.encodingFrom) return ZtEncodingFault::kNone;
  if (declaration.form == ZtXmlDeclaration::Form::kBad) return ZtEncodingFault::kNone;

  struct Name {
    ZtPiece text;
    ZtEncoding encoding;
  };
  const Name kNames[] = {
      {{"UTF-8", 5}, ZtEncoding::kUtf8},         {{"US-ASCII", 8}, ZtEncoding::kAscii},
      {{"ISO-8859-1", 10}, ZtEncoding::kLatin1}, {{"UTF-16", 6}, ZtEncoding::kUtf16Le},
      {{"UTF-16", 6}, ZtEncoding::kUtf16Be},     {{"UTF-16LE", 8}, ZtEncoding::kUtf16Le},
      {{"UTF-16BE", 8}, ZtEncoding::kUtf16Be}};
  auto fault = ZtEncodingFault::kUnknown;
  for (const Name& name : kNames) {
    if (!IsNamed(text, units, declaration, name.text)) continue;
    fault = ZtEncodingFault::kContradicted;
    const bool isSame = name.encoding == form.encoding;
    if (!isSame && (IsWide(form.encoding) || IsWide(name.encoding))) continue;
    form.encoding = name.encoding;
    return ZtEncodingFault::kNone;
  }
  faultAt = declaration.encodingFrom;
  return fault;
}

std::size_t ZtDecodedSize(ZtPiece input, const ZtTextForm& form) {
  const ZtPiece text = WithoutMark(input, form);
  if (form.encoding == ZtEncoding::kUtf8 || form.encoding == ZtEncoding::kAscii) return text.size;
  return With(form.encoding, [&](auto encoding) {
    std::size_t size = 0;
    const char* const end = text.text + text.size;
    for (const char* at = text.text; at != end;) {
      const Character c = Get<encoding()>(at, end);
      at += c.size;
      size += ZtUtf8Size(c.code);
    }
    return size;
  });
}

ZtEncodingFault ZtDecode(ZtPiece input, const ZtTextForm& form, char* to, std::size_t& faultAt) {
  return With(form.encoding, [&](auto encoding) {
    return Decode<encoding()>(WithoutMark(input, form), to, faultAt);
  });
}

std::size_t ZtEncodedSize(ZtPiece utf8, ZtEncoding encoding) {
  if (encoding == ZtEncoding::kUtf8) return utf8.size;
  std::size_t size = 0;
  char buffer[sizeof("&#x10FFFF;")];
  for (const char *at = utf8.text, *end = at + utf8.size; at != end;) {
    size += static_cast<std::size_t>(Put(buffer, ZtGetUtf8(at), encoding) - buffer);
  }
  return size;
}

char* ZtEncode(ZtPiece utf8, ZtEncoding encoding, char* to) {
  if (encoding == ZtEncoding::kUtf8) return ZtCopy(to, utf8);
  for (const char *at = utf8.text, *end = at + utf8.size; at != end;) {
    to = Put(to, ZtGetUtf8(at), encoding);
  }
  return to;
}

ZtPlaceFinder::ZtPlaceFinder(ZtPiece input, const ZtTextForm& form)
    : m_Input(WithoutMark(input, form)), m_Encoding(form.encoding) {}

void ZtPlaceFinder::Restart() {
  m_iAt = m_iOffset = 0;
  m_Place = {};
  m_bAfterReturn = false;
}

ZtTextPlace ZtPlaceFinder::Find(std::size_t offset) {
  if (offset < m_iOffset) Restart();
  With(m_Encoding, [&](auto encoding) {
    const char* at = m_Input.text + m_iAt;
    const char* const end = m_Input.text + m_Input.size;
    while (m_iOffset < offset && at != end) {
      const Character c = Get<encoding()>(at, end);
      at += c.size;
      m_iOffset += ZtUtf8Size(c.code);
      if (c.code == '\r' || (c.code == '\n' && !m_bAfterReturn)) {
        ++m_Place.line;
        m_Place.column = 1;
      } else if (c.code != '\n') {
        ++m_Place.column;
      }
      m_bAfterReturn = c.code == '\r';
    }
    m_iAt = static_cast<std::size_t>(at - m_Input.text);
  });
  return m_Place;
}

bool ZtPassCharacter(const char*& at, const char* end) {
  const Character c = Get<ZtEncoding::kUtf8>(at, end);
  if (!c.isGood || !ZtIsXmlCharacter(c.code)) return false;
  at += c.size;
  return true;
}

bool ZtIsXmlText(ZtPiece utf8) {
  const char* at = utf8.text;
  const char* const end = at + utf8.size;
  while (at != end && ZtPassCharacter(at, end)) continue;
  return at == end;
}
