#include "text/ZtTagWalk.h"

#include "text/ZtXmlSyntax.h"

namespace {

// Where `what` ends, from `at` on; null when it is not there.
const char* After(const char* at, const char* end, ZtPiece what) {
  while ((at = ZtFind(const_cast<char*>(at), *what.text, end))) {
    if (static_cast<std::size_t>(end - at) < what.size) return nullptr;
    if (std::memcmp(at, what.text, what.size) == 0) return at + what.size;
    ++at;
  }
  return nullptr;
}

// After the '>' of a tag that XML ends outside of quotes.
const char* AfterTag(const char* at, const char* end) {
  for (char quote = '\0'; at != end; ++at) {
    if (quote) {
      if (*at == quote) quote = '\0';
    } else if (*at == '"' || *at == '\'') {
      quote = *at;
    } else if (*at == '>') {
      return at + 1;
    }
  }
  return nullptr;
}

const char* EndOfRawName(const char* at, const char* end) {
  while (at != end && !ZtIs(*at, ZtXmlClasses::kBlank) && *at != '/' && *at != '>') ++at;
  return at;
}

bool Begins(const char* at, const char* end, ZtPiece mark) {
  return static_cast<std::size_t>(end - at) >= mark.size &&
         std::memcmp(at, mark.text, mark.size) == 0;
}

ZtPiece Between(const char* from, const char* to) {
  return {from, static_cast<std::size_t>(to - from)};
}

// The end of a name as XML has it without namespaces; null when there is none. Characters beyond
// ASCII are taken for those of names.
char* EndOfName(char* at) {
  constexpr int kBegins = ZtXmlClasses::kBeginsName | ZtXmlClasses::kBeyondAscii;
  constexpr int kContinues = ZtXmlClasses::kContinuesName | ZtXmlClasses::kBeyondAscii;
  if (!ZtIs(*at, kBegins) && *at != ':') return nullptr;
  do {
    at = ZtSkip(at + 1, kContinues);
  } while (*at == ':');
  return at;
}

}  // namespace

bool ZtTagWalk::Next(ZtRawTag& tag) {
  const char* const end = m_Text.text + m_Text.size;
  char* const from = ZtFind(const_cast<char*>(m_Text.text) + m_iAt, '<', end);
  if (!from) return false;
  const char* name = from + 1;
  const bool asXml = m_Ends == ZtTagEnds::kAsXml;
  const char* to = nullptr;
  tag.kind = ZtRawTag::Kind::kOther;
  const bool isComment = Begins(name, end, "!--");
  const bool isEnd = Begins(name, end, "/");
  if (Begins(name, end, "?")) {
    to = After(name + 1, end, asXml ? "?>" : ">");
  } else if (isComment || (asXml && Begins(name, end, "!"))) {
    const bool isSection = Begins(name, end, "![CDATA[");
    const char* const content = isComment ? name + 3 : name;
    to = After(content, end, !asXml ? ">" : isComment ? "-->" : isSection ? "]]>" : ">");
  } else {
    to = asXml && !isEnd ? AfterTag(name, end) : After(name, end, ">");
    tag.kind = isEnd                 ? ZtRawTag::Kind::kEnd
               : to && to[-2] == '/' ? ZtRawTag::Kind::kEmpty
                                     : ZtRawTag::Kind::kStart;
  }
  if (!to) {
    if (tag.kind == ZtRawTag::Kind::kOther) return false;
    to = end;
  }
  tag.from = static_cast<std::size_t>(from - m_Text.text);
  tag.to = m_iAt = static_cast<std::size_t>(to - m_Text.text);
  tag.name = ZtNameInTag(m_Text, tag.from);
  return true;
}

ZtOpenElements::ZtOpenElements(ZtPiece text, ZtTagEnds ends, std::size_t at) {
  ZtRawTag tag;
  for (ZtTagWalk walk(text, ends); walk.Next(tag) && tag.from <= at;) {
    if (tag.kind == ZtRawTag::Kind::kEnd && tag.from < at && m_iDepth) --m_iDepth;
    if (tag.Opens() && (tag.kind == ZtRawTag::Kind::kStart || at < tag.to)) {
      if (m_iDepth < kKept) m_Levels[m_iDepth] = {tag.from, tag.name, 0};
      ++m_iDepth;
    }
  }
  // Those that are open are known now: a second look counts their siblings.
  std::size_t depth = 0;
  std::size_t entered = 0;  // of those that are kept
  for (ZtTagWalk walk(text, ends); walk.Next(tag) && tag.from <= at;) {
    if (tag.kind == ZtRawTag::Kind::kEnd && depth) --depth;
    if (!tag.Opens()) continue;
    if (depth == entered && entered < Kept()) {
      Level& level = m_Levels[entered];
      if (ZtEqual(tag.name, level.name)) ++level.index;
      if (tag.from == level.from) ++entered;
    }
    if (tag.kind == ZtRawTag::Kind::kStart || at < tag.to) {
      if (++depth == m_iDepth) m_iInnermost = tag.from;
    }
  }
}

ZtPiece ZtNameInTag(ZtPiece text, std::size_t tag) {
  const char* const end = text.text + text.size;
  const char* name = text.text + tag + 1;
  if (Begins(name, end, "/")) ++name;
  while (name != end && ZtIs(*name, ZtXmlClasses::kBlank)) ++name;
  return Between(name, EndOfRawName(name, end));
}

ZtPiece ZtLastAttribute(ZtPiece text, std::size_t tag, std::size_t at) {
  const char* const end = text.text + (at < text.size ? at : text.size);
  const ZtPiece element = ZtNameInTag(text, tag);
  const char* position = element.text + element.size;
  ZtPiece last = {position, 0};
  while (position < end) {
    while (position < end && ZtIs(*position, ZtXmlClasses::kBlank)) ++position;
    const char* const name = position;
    while (position < end && *position != '=' && !ZtIs(*position, ZtXmlClasses::kBlank)) ++position;
    if (position == name && position < end) ++position;
    if (position == name) break;
    if (*name != '=') last = Between(name, position);
    while (position < end && (*position == '=' || ZtIs(*position, ZtXmlClasses::kBlank)))
      ++position;
    if (position < end && (*position == '"' || *position == '\'')) {
      const char* const close = ZtFind(const_cast<char*>(position) + 1, *position, end);
      position = close ? close + 1 : end;
    }
  }
  return last;
}

ZtXmlError ZtFaultInTag(ZtPiece text, std::size_t tag) {
  char* const from = const_cast<char*>(text.text) + tag;
  const char* const end = text.text + text.size;
  const auto fault = [&](ZtXmlFault what, const char* at) {
    return ZtXmlError{at == end ? ZtXmlFault::kCutShort : what,
                      static_cast<std::size_t>(at - text.text), tag};
  };
  char* at = EndOfName(from + 1);
  if (!at) return fault(ZtXmlFault::kBadName, from + 1);
  while (*at != '>' && !(*at == '/' && at[1] == '>')) {
    char* const blank = at;
    at = ZtSkipBlank(at);
    if (*at == '>' || (*at == '/' && at[1] == '>')) break;
    if (at == blank) return fault(ZtXmlFault::kBadTag, *at == '/' ? at + 1 : at);
    char* const name = at;
    at = EndOfName(name);
    if (!at) return fault(ZtXmlFault::kBadName, name);
    at = ZtSkipBlank(at);
    if (*at != '=') return fault(ZtXmlFault::kNoEquals, at);
    at = ZtSkipBlank(at + 1);
    const char quote = *at;
    if (quote != '"' && quote != '\'') return fault(ZtXmlFault::kNoQuote, at);
    for (++at; at == end || *at != quote; ++at) {
      if (at == end || *at == '<') return fault(ZtXmlFault::kLessThanInValue, at);
    }
    ++at;
  }
  return {};
}
