// The reader's markup that yields no token, and CDATA sections.
#include "text/ZtXmlDeclaration.h"
#include "text/ZtXmlReader.h"
#include "text/ZtXmlSyntax.h"

namespace {

using Classes = ZtXmlClasses;

// The first character of a CDATA section that must be looked at; a NUL follows the text.
char* EndOfPart(char* at, const char* end) {
  for (; ZtHasBlock(at, end); at += sizeof(ZtBlock)) {
    const auto block = ZtGet<ZtBlock>(at);
    const unsigned first = ZtFirst(ZtMatches(block, ']') | ZtMatches(block, '\r'));
    if (first < sizeof(block)) return at + first;
  }
  while (!ZtIs(*at, Classes::kEndsSection)) ++at;
  return at;
}

// After the quoted text at `at`, whose characters are of `classes` (0: any); null when there is
// none. `failed` is then where it goes wrong.
char* EndOfLiteral(char* at, int classes, char* end, char*& failed) {
  const char quote = *at;
  failed = at;
  if (quote != '"' && quote != '\'') return nullptr;
  for (++at; *at != quote; ++at) {
    failed = at;
    if (at == end || (classes && !ZtIs(*at, classes))) return nullptr;
  }
  return at + 1;
}

}  // namespace

bool ZtXmlReader::Markup(char* from) {
  const std::size_t dashes = ZtMatched(from, "<!--");
  if (dashes == sizeof("<!--") - 1) return Comment(from);
  const std::size_t letters = ZtMatched(from, "<!DOCTYPE");
  if (letters == sizeof("<!DOCTYPE") - 1) return DocumentType(from);
  const char* const end = from + (dashes > letters ? dashes : letters);
  return end == m_pEnd ? FailAt(ZtXmlFault::kCutShort, end) : Fail(ZtXmlFault::kBadMarkup, from);
}

bool ZtXmlReader::Comment(char* from) {
  char* at = from + sizeof("<!--") - 1;
  while (true) {
    at = ZtFind(at, '-', m_pEnd);
    if (!at) return FailAt(ZtXmlFault::kCutShort, m_pEnd);
    if (at[1] == '-') break;
    ++at;
  }
  if (at[2] != '>') return FailAt(ZtXmlFault::kBadComment, at + 2);
  m_pAt = at + 3;
  return true;
}

bool ZtXmlReader::Section(char* from) {
  const std::size_t matched = ZtMatched(from, "<![CDATA[");
  char* at = from + matched;
  if (matched < sizeof("<![CDATA[") - 1) {
    return at == m_pEnd ? FailAt(ZtXmlFault::kCutShort, at) : Fail(ZtXmlFault::kBadMarkup, from);
  }
  const char* const text = at;
  char* to = at;
  while (true) {
    const char* const run = at;
    at = EndOfPart(at, m_pEnd);
    const auto size = static_cast<std::size_t>(at - run);
    if (to != run) std::memmove(to, run, size);
    to += size;
    if (at == m_pEnd) return FailAt(ZtXmlFault::kCutShort, at);
    if (*at == '\r') {
      at += at[1] == '\n' ? 2 : 1;
      *to++ = '\n';
      continue;
    }
    if (at[1] == ']' && at[2] == '>') break;
    ++at;
    *to++ = ']';
  }
  m_Text = {text, static_cast<std::size_t>(to - text)};
  m_bCData = true;
  m_pAt = at + 3;
  m_Token = ZtToken::kText;
  return true;
}

bool ZtXmlReader::Instruction(char* from) {
  if (from == m_pText) {
    using Form = ZtXmlDeclaration::Form;
    const ZtXmlDeclaration declaration({m_pText, static_cast<std::size_t>(m_pEnd - m_pText)});
    m_pAt = m_pText + declaration.end;
    if (declaration.form == Form::kBad) return FailAt(ZtXmlFault::kBadDeclaration, m_pAt);
    if (declaration.form == Form::kGood) return true;
  }
  char* const name = from + 2;
  char* at = ZtEndOfName(name);
  if (!at) return FailAt(ZtXmlFault::kBadInstruction, name);
  if (at - name == 3 && (name[0] | 0x20) == 'x' && (name[1] | 0x20) == 'm' &&
      (name[2] | 0x20) == 'l') {
    if (at == m_pEnd) return FailAt(ZtXmlFault::kCutShort, at);
    if (ZtMatched(name, "xml") < 3) return Fail(ZtXmlFault::kBadInstruction, from);
    return Fail(from == m_pText ? ZtXmlFault::kBadDeclaration : ZtXmlFault::kMisplacedDeclaration,
                from);
  }
  if (!ZtIs(*at, Classes::kBlank) && !(at[0] == '?' && at[1] == '>')) {
    return FailAt(ZtXmlFault::kBadInstruction, *at == '?' ? at + 1 : at);
  }
  while (true) {
    at = ZtFind(at, '?', m_pEnd);
    if (!at) return FailAt(ZtXmlFault::kCutShort, m_pEnd);
    if (*++at == '>') break;
  }
  m_pAt = at + 1;
  return true;
}

// One that only names the document's type, or where its definition is, which is not fetched.
bool ZtXmlReader::DocumentType(char* from) {
  if (m_Place != Place::kBeforeRoot || m_bDocumentType) {
    return Fail(ZtXmlFault::kMisplacedDocumentType, from);
  }
  m_bDocumentType = true;
  const auto fault = ZtXmlFault::kBadDocumentType;
  char* at = from + sizeof("<!DOCTYPE") - 1;
  if (!ZtIs(*at, Classes::kBlank)) return FailAt(fault, at);
  char* failed = at = ZtSkipBlank(at);
  at = ZtEndOfName(at);
  if (at && *at == ':') at = ZtEndOfName(failed = at + 1);
  if (!at) return FailAt(fault, failed);
  char* const name = at;
  at = ZtSkipBlank(at);
  const bool isPublic = ZtMatched(at, "PUBLIC") == 6;
  if (at != name && (isPublic || ZtMatched(at, "SYSTEM") == 6)) {
    for (int literals = isPublic ? 2 : 1; literals > 0; --literals) {
      at += literals == 1 && isPublic ? 0 : 6;
      if (!ZtIs(*at, Classes::kBlank)) return FailAt(fault, at);
      at = EndOfLiteral(ZtSkipBlank(at), literals == 2 ? Classes::kPublic : 0, m_pEnd, failed);
      if (!at) return FailAt(fault, failed);
    }
    at = ZtSkipBlank(at);
  }
  if (*at == '[') return Fail(ZtXmlFault::kInternalSubset, at);
  if (*at != '>') return FailAt(fault, at);
  m_pAt = at + 1;
  return true;
}

const char* ZtFaultText(ZtXmlFault fault) {
  switch (fault) {
    case ZtXmlFault::kNone:
      return nullptr;
    case ZtXmlFault::kNoElement:
      return "The text has no element.";
    case ZtXmlFault::kNotClosed:
      return "The text ends before an element is closed.";
    case ZtXmlFault::kCutShort:
      return "The text ends within markup.";
    case ZtXmlFault::kWrongEndTag:
      return "The end tag has another name than the start tag.";
    case ZtXmlFault::kBadName:
      return "A name is expected here.";
    case ZtXmlFault::kBadTag:
      return "A blank, '/>' or '>' is expected here.";
    case ZtXmlFault::kBadEndTag:
      return "'>' is expected here.";
    case ZtXmlFault::kNoEquals:
      return "'=' is expected here.";
    case ZtXmlFault::kNoQuote:
      return "A quote is expected here.";
    case ZtXmlFault::kLessThanInValue:
      return "'<' stands in the value of an attribute.";
    case ZtXmlFault::kAttributeTwice:
      return "The element has this attribute twice.";
    case ZtXmlFault::kUnboundPrefix:
      return "No namespace is bound to this prefix.";
    case ZtXmlFault::kReservedPrefix:
      return "The prefixes xml and xmlns cannot be bound to other namespaces.";
    case ZtXmlFault::kReservedNamespace:
      return "The namespaces of xml and xmlns cannot be bound to other prefixes.";
    case ZtXmlFault::kNoNamespace:
      return "A prefix cannot be bound to no namespace.";
    case ZtXmlFault::kUndefinedEntity:
      return "The entity is not defined.";
    case ZtXmlFault::kBadReference:
      return "The reference after '&' is malformed.";
    case ZtXmlFault::kBadCharacterReference:
      return "The reference is to a character that XML does not allow.";
    case ZtXmlFault::kSectionEndInText:
      return "']]>' stands in a text.";
    case ZtXmlFault::kBadComment:
      return "'--' stands in a comment.";
    case ZtXmlFault::kBadInstruction:
      return "The processing instruction is malformed.";
    case ZtXmlFault::kBadDeclaration:
      return "The XML declaration is malformed.";
    case ZtXmlFault::kMisplacedDeclaration:
      return "The XML declaration is not at the beginning.";
    case ZtXmlFault::kBadMarkup:
      return "There is no such markup here.";
    case ZtXmlFault::kTextBeforeRoot:
      return "There is text before the root element.";
    case ZtXmlFault::kJunkAfterRoot:
      return "There is more after the root element.";
    case ZtXmlFault::kBadDocumentType:
      return "The document type declaration is malformed.";
    case ZtXmlFault::kMisplacedDocumentType:
      return "A document type declaration is not allowed here.";
    case ZtXmlFault::kInternalSubset:
      return "A document type declaration with an internal subset is not supported.";
    case ZtXmlFault::kTooLarge:
      return "The text is too large.";
    case ZtXmlFault::kOutOfMemory:
      return "Out of memory.";
  }
  return nullptr;
}
