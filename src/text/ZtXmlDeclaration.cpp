#include "text/ZtXmlDeclaration.h"

#include "text/ZtCharacters.h"

namespace {

// The characters of a text; NULs are those beyond ASCII and what comes after the end.
template <ZtUnits kUnits>
class Characters {
 public:
  explicit Characters(ZtPiece text) : m_Text(text) {}
  char operator[](std::size_t index) const {
    if constexpr (kUnits == ZtUnits::kBytes) return index < m_Text.size ? m_Text.text[index] : '\0';
    if (index >= m_Text.size / 2) return '\0';
    const char* unit = m_Text.text + 2 * index;
    constexpr int kLow = kUnits == ZtUnits::kBigEndian ? 1 : 0;
    return unit[1 - kLow] ? '\0' : unit[kLow];
  }

 private:
  ZtPiece m_Text;
};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsInValue(char c) {
  return IsLetter(c) || (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '_';
}

template <class Text>
class Scanner {
 public:
  Scanner(Text text, ZtXmlDeclaration& found) : m_Text(text), m_Found(found) {}

  // As other parsers do, takes any version that has the form of one.
  void Scan() {
    using Form = ZtXmlDeclaration::Form;
    if (!Skip("<?xml") || !(ZtIsBlank(m_Text[m_iAt]) || m_Text[m_iAt] == '?')) return;
    const bool isGood = Parts();
    m_Found.form = isGood ? Form::kGood : Form::kBad;
    m_Found.end = m_iAt;
  }

 private:
  bool Parts() {
    if (!Blank() || !Skip("version") || !Value()) return false;
    bool blank = Blank();
    if (m_Text[m_iAt] == 'e') {
      if (!blank || !Skip("encoding") || !Value()) return false;
      m_Found.encodingFrom = m_iFrom;
      m_Found.encodingTo = m_iTo;
      if (!IsLetter(m_Text[m_iFrom])) {
        m_iAt = m_iFrom;
        return false;
      }
      blank = Blank();
    }
    if (m_Text[m_iAt] == 's') {
      if (!blank || !Skip("standalone") || !Value() || !(Is("yes") || Is("no"))) return false;
      Blank();
    }
    return Skip("?>");
  }

  bool Blank() {
    const std::size_t from = m_iAt;
    while (ZtIsBlank(m_Text[m_iAt])) ++m_iAt;
    return m_iAt > from;
  }
  bool Skip(const char* word) {
    std::size_t size = 0;
    while (word[size] && m_Text[m_iAt + size] == word[size]) ++size;
    if (word[size]) return false;
    m_iAt += size;
    return true;
  }
  bool Value() {
    Blank();
    if (!Skip("=")) return false;
    Blank();
    const char quote = m_Text[m_iAt];
    if (quote != '"' && quote != '\'') return false;
    m_iFrom = ++m_iAt;
    while (IsInValue(m_Text[m_iAt])) ++m_iAt;
    m_iTo = m_iAt;
    if (m_Text[m_iAt] != quote) return false;
    ++m_iAt;
    return true;
  }
  bool Is(const char* word) {
    std::size_t at = m_iFrom;
    while (*word && at < m_iTo && m_Text[at] == *word) ++at, ++word;
    return !*word && at == m_iTo;
  }

  Text m_Text;
  ZtXmlDeclaration& m_Found;
  std::size_t m_iAt = 0;
  std::size_t m_iFrom = 0;  // the value that was read last
  std::size_t m_iTo = 0;
};

template <ZtUnits kUnits>
void Scan(ZtPiece text, ZtXmlDeclaration& found) {
  Scanner<Characters<kUnits>>(Characters<kUnits>(text), found).Scan();
}

}  // namespace

ZtXmlDeclaration::ZtXmlDeclaration(ZtPiece text, ZtUnits units) {
  switch (units) {
    case ZtUnits::kBytes:
      Scan<ZtUnits::kBytes>(text, *this);
      break;
    case ZtUnits::kLittleEndian:
      Scan<ZtUnits::kLittleEndian>(text, *this);
      break;
    case ZtUnits::kBigEndian:
      Scan<ZtUnits::kBigEndian>(text, *this);
      break;
  }
}
