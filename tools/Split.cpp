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

// The first of four characters from `at` on, or the end of the text.
std::size_t FindAny(std::string_view text, std::size_t at, const char (&which)[5]) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  for (; ZtHasBlock(begin + at, end); at += sizeof(ZtBlock)) {
    const auto block = ZtGet<ZtBlock>(begin + at);
    const unsigned first = ZtFirst(ZtMatches(block, which[0]) | ZtMatches(block, which[1]) |
                                   ZtMatches(block, which[2]) | ZtMatches(block, which[3]));
    if (first < sizeof(block)) return at + first;
  }
  return std::min(text.find_first_of(which, at), text.size());
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
  // What of a tag is to be looked at next, inside of the quotes `quote` or, if that is 0, of none.
  std::size_t EndOfPiece(std::size_t at, char quote) const {
    if (quote == '"') return FindAny(m_Text, at, "\"\"<<");
    return quote ? FindAny(m_Text, at, "''<<") : FindAny(m_Text, at, "<>\"'");
  }
  // False when the tag is not closed.
  bool PassTag() {
    char quote = '\0';
    while ((m_iAt = EndOfPiece(m_iAt + 1, quote)) < m_Text.size()) {
      const char c = m_Text[m_iAt];
      if (c == '<') {
        if (At(kDeclaration)) break;
      } else if (c == '>') {
        ++m_iAt;
        return true;
      } else {
        quote = quote ? '\0' : c;
      }
    }
    m_bCut = true;
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
