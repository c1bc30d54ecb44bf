#include "Split.h"

#include <algorithm>

#include "Text.h"
#include "base/ZtBytes.h"

namespace {

constexpr std::string_view kMark = "\xef\xbb\xbf";
// What stands inside of no document but in comments and CDATA sections.
constexpr std::string_view kDeclaration = "<?xml version";

bool BeginsName(char c) {
  return static_cast<unsigned char>(c) >= 0x80 || c == '_' || c == ':' || (c >= '0' && c <= '9') ||
         (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Goes through tags without a judgement of them. What is not closed goes on to the end of the text,
// or to the next XML declaration.
class Scan {
 public:
  explicit Scan(std::string_view text) : m_Text(text) {}

  std::size_t Size() {
    while (m_iAt < m_Text.size()) {
      m_iAt = std::min(m_Text.find('<', m_iAt), m_Text.size());
      if (m_iAt == m_Text.size() || MeetsNextDocument()) break;
      if (PassMarkup()) continue;
      const bool isEnd = IsNext('/');
      const bool isEmpty = PassTag() && !isEnd && m_Text[m_iAt - 2] == '/';
      m_bInRoot = true;
      if (m_bCut) break;
      if (isEnd) {
        if (m_iDepth) --m_iDepth;
      } else if (!isEmpty) {
        ++m_iDepth;
      }
      if (m_iDepth == 0) break;
    }
    return m_iAt;
  }

 private:
  bool At(std::string_view what) const { return m_Text.compare(m_iAt, what.size(), what) == 0; }
  bool IsNext(char c) const { return m_iAt + 1 < m_Text.size() && m_Text[m_iAt + 1] == c; }
  bool MeetsNextDocument() const { return m_bInRoot && IsNext('?') && At(kDeclaration); }

  // To after `end`, which is looked for from `from` on.
  void PassTo(std::string_view end, std::size_t from) {
    const std::size_t found = m_Text.find(end, from);
    m_iAt = found == std::string_view::npos ? m_Text.size() : found + end.size();
  }
  // Passes what is no tag.
  bool PassMarkup() {
    if (!IsNext('!') && !IsNext('?')) return false;
    if (At("<!--")) {
      PassTo("-->", m_iAt + 4);
    } else if (At("<![CDATA[")) {
      PassTo("]]>", m_iAt + 9);
    } else if (At("<?")) {
      PassTo("?>", m_iAt + 2);
    } else if (At("<!")) {
      PassDocumentType();
    } else {
      return false;
    }
    return true;
  }
  void PassDocumentType() {
    const std::size_t end = m_Text.find_first_of("[>", m_iAt);
    const bool hasSubset = end != std::string_view::npos && m_Text[end] == '[';
    if (hasSubset) {
      PassTo("]", end);
      PassTo(">", m_iAt);
    } else {
      PassTo(">", m_iAt);
    }
  }
  // False when the tag is not closed.
  bool PassTag() {
    const char* const end = m_Text.data() + m_Text.size();
    const char* at = m_Text.data() + m_iAt + 1;
    char quote = '\0';
    while (true) {
      if (ZtHasBlock(at, end)) {
        const auto block = ZtGet<ZtBlock>(at);
        unsigned bits = ZtBits(ZtMatches(block, '"') | ZtMatches(block, '\'') |
                               ZtMatches(block, '<') | ZtMatches(block, '>'));
        for (; bits; bits &= bits - 1) {
          if (EndsTag(at + ZtFirstBit(bits), quote)) return !m_bCut;
        }
        at += sizeof(block);
      } else if (at == end) {
        m_iAt = m_Text.size();
        m_bCut = true;
        return false;
      } else if (EndsTag(at++, quote)) {
        return !m_bCut;
      }
    }
  }
  // Whether a tag ends at `at`, or is cut there; `quote` is that of the open value, 0 for none.
  bool EndsTag(const char* at, char& quote) {
    m_iAt = static_cast<std::size_t>(at - m_Text.data());
    if (*at == '<') {
      m_bCut = IsNext('?') && At(kDeclaration);
      return m_bCut;
    }
    if (quote) {
      if (*at == quote) quote = '\0';
    } else if (*at == '>') {
      ++m_iAt;
      return true;
    } else if (*at == '"' || *at == '\'') {
      quote = *at;
    }
    return false;
  }

  const std::string_view m_Text;
  std::size_t m_iAt = 0;
  std::size_t m_iDepth = 0;
  bool m_bInRoot = false;
  bool m_bCut = false;
};

}  // namespace

bool BeginsDocument(std::string_view text) {
  if (StartsWith(text, kMark)) text.remove_prefix(kMark.size());
  if (text.size() < 2 || text[0] != '<') return false;
  return BeginsName(text[1]) || StartsWith(text, "<?xml ") || StartsWith(text, "<!DOCTYPE");
}

std::size_t SizeOfDocument(std::string_view text) { return Scan(text).Size(); }
