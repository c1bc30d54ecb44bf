#include "drivers/ZtExplain.h"

#include "binding/ZtPath.h"
#include "binding/ZtStandardWriter.h"
#include "drivers/ZtSentence.h"
#include "text/ZtTagWalk.h"
#include "ztxml/XmlDecoder.h"

namespace {

using ztxml::Code;
using ztxml::Error;
using ztxml::Stage;

ZtTextPlace PlaceOf(const ZtFailedText& failed, std::size_t at) {
  return ZtPlaceFinder(failed.original, failed.form).Find(at);
}

// ---- Paths --------------------------------------------------------------------------------------

const ZtElementType* RootType(const ZtDocument& document, ZtPiece local) {
  for (const ZtRoot& root : document.roots) {
    if (root.name.Is(local)) return &ZtStandardOf(*root.type);
  }
  return nullptr;
}

// The path of what is open around a place. Elements that their parents keep have it as losses and
// refused values do.
void SetPath(const ZtFailedText& failed, const ZtOpenElements& open, Error& error) {
  ZtPath path;
  const ZtElementType* type = nullptr;
  for (std::size_t level = 0; level < open.Kept(); ++level) {
    const ZtPiece name = open.Name(level);
    if (name.size == 0) break;
    const ZtPiece local = ZtLocalIn(name);
    if (level == 0) {
      type = RootType(failed.document, local);
      path.Push("/", type ? local : name);
      continue;
    }
    const ZtNameId id = ZtNameId::Of(local);
    const ZtField* const row = type ? ZtFindChild(*type, id) : nullptr;
    const ZtChoice* const choice = type && !row ? ZtFindChoice(*type, id) : nullptr;
    const std::size_t index = open.Index(level);
    const bool isOne = row ? ZtIsSingle(*row) : !choice && index == 1;
    path.Push("/", row || choice ? local : name, isOne ? 0 : index);
    const ZtElementType* const own = row      ? row->IsObject() ? row->detail.type : nullptr
                                     : choice ? choice->type
                                              : nullptr;
    type = own ? &ZtStandardOf(*own) : nullptr;
  }
  if (open.Kept() < open.Depth()) path.Push("/", "...");
  ZtCopyShown(path.Text(), error.path);
}

ZtTagEnds EndsOf(const ZtFailedText& failed) {
  return failed.isStandard ? ZtTagEnds::kAsXml : ZtTagEnds::kFirst;
}

// Where the error is, with its path; the sentence is to follow.
ZtSentence& Place(ZtSentence& sentence, Error& error, const ZtFailedText& failed, std::size_t at) {
  SetPath(failed, ZtOpenElements(failed.text, EndsOf(failed), at), error);
  return sentence.At(PlaceOf(failed, at)).Begin();
}

// ---- Markup -------------------------------------------------------------------------------------

constexpr char kBlanks[] = " \t\r\n";

// What a fault is called where there is nothing special to say: its sentence as part of another.
void Plain(ZtSentence& sentence, const char* text) {
  const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
  const bool isWord = isCapital(text[0]) && !isCapital(text[1]);
  const char first = isWord ? static_cast<char>(text[0] | 0x20) : text[0];
  sentence << ZtPiece(&first, 1) << ZtPiece(text + 1, __strlen(text) - 2);  // without its full stop
}
void Plain(ZtSentence& sentence, ZtXmlFault fault) { Plain(sentence, ZtFaultText(fault)); }

// The name that the end tag at `at` is to have; empty when it closes nothing.
ZtPiece ExpectedAt(ZtPiece text, const ZtOpenElements& open) {
  return open.Depth() ? ZtNameInTag(text, open.Innermost()) : nullptr;
}

// What follows that name in the end tag; null when it has another.
const char* AfterExpected(ZtPiece text, std::size_t at, ZtPiece expected) {
  const char* const name = text.text + at + 2;
  if (!expected.size || std::strncmp(name, expected.text, expected.size) != 0) return nullptr;
  const char* const rest = name + expected.size;
  return *rest == '<' || std::strspn(rest, kBlanks) ? rest + std::strspn(rest, kBlanks) : nullptr;
}

void EndTag(ZtSentence& sentence, const ZtFailedText& failed, std::size_t at,
            const ZtOpenElements& open) {
  const ZtPiece expected = ExpectedAt(failed.text, open);
  const char* const rest = AfterExpected(failed.text, at, expected);
  if (rest && *rest != '>') {
    sentence << "'>' is expected after the name in the end tag </";
    sentence.Quote(expected);
    return;
  }
  const char* const name = failed.text.text + at + 2;
  const char* const close =
      ZtFind(const_cast<char*>(name), '>', failed.text.text + failed.text.size);
  sentence << "the end tag </";
  sentence.Quote({name, close ? static_cast<std::size_t>(close - name) : 0}) << ">";
  if (open.Depth() == 0) {
    sentence << " closes nothing";
    return;
  }
  sentence << " where </";
  sentence.Quote(expected) << "> is expected (opened at ";
  sentence.Other(PlaceOf(failed, open.Innermost())) << ")";
}

// An open element at the end of the text.
void NotClosed(ZtSentence& sentence, const ZtFailedText& failed, const ZtOpenElements& open) {
  sentence << "<";
  sentence.Quote(ZtNameInTag(failed.text, open.Innermost())) << "> is not closed (opened at ";
  sentence.Other(PlaceOf(failed, open.Innermost())) << ")";
}

// Within a start tag at `tag`.
void InTag(ZtSentence& sentence, const ZtFailedText& failed, ZtXmlFault fault, std::size_t at,
           std::size_t tag) {
  const ZtPiece text = failed.text;
  const ZtPiece attribute = ZtLastAttribute(text, tag, at);
  const char before = at ? text.text[at - 1] : '\0';
  const bool isAfterValue = attribute.size && (before == '"' || before == '\'');
  switch (attribute.size ? fault : ZtXmlFault::kNone) {
    case ZtXmlFault::kNoQuote:
      sentence << "the value of the attribute ";
      sentence.Quote(attribute) << " has no quotes";
      return;
    case ZtXmlFault::kNoEquals:
      sentence << "the attribute ";
      sentence.Quote(attribute) << " has no value";
      return;
    case ZtXmlFault::kLessThanInValue:
      sentence << "'<' in the value of the attribute ";
      sentence.Quote(attribute) << ": its closing quote may be missing";
      return;
    case ZtXmlFault::kBadTag:
    case ZtXmlFault::kBadName:
      if (!isAfterValue) break;
      if (text.text[at] == before) {
        sentence << "a second quote after the value of the attribute ";
        sentence.Quote(attribute);
      } else {
        sentence << "a blank is expected after the value of the attribute ";
        sentence.Quote(attribute) << ": its closing quote, or one before, may be missing";
      }
      return;
    default:
      break;
  }
  Plain(sentence, fault);
}

void CutShort(ZtSentence& sentence, const ZtFailedText& failed, std::size_t from) {
  const char* const at = failed.text.text + from;
  if (*at != '<') {
    sentence << "the text ends within a reference";
  } else if (at[1] == '?') {
    sentence << "the text ends within a processing instruction";
  } else if (at[1] == '!') {
    sentence << "the text ends within a "
             << (at[2] == '-'   ? "comment"
                 : at[2] == '[' ? "CDATA section"
                                : "document type");
  } else {
    sentence << (at[1] == '/' ? "the text ends within the end tag </"
                              : "the text ends within the tag <");
    sentence.Quote(ZtNameInTag(failed.text, from));
  }
}

Code CodeOf(ZtXmlFault fault) {
  switch (fault) {
    case ZtXmlFault::kNoElement:
    case ZtXmlFault::kNotClosed:
    case ZtXmlFault::kCutShort:
      return Code::kIncomplete;
    case ZtXmlFault::kInternalSubset:
      return Code::kRefused;
    case ZtXmlFault::kTooLarge:
      return Code::kTooLong;
    default:
      return Code::kMalformed;
  }
}

// The start of the tag that `at` lies in.
std::size_t TagAt(ZtPiece text, std::size_t at) {
  while (at && text.text[at] != '<') --at;
  return at;
}

}  // namespace

const char* ztxml::NameOf(Code code) {
  switch (code) {
    case Code::kNone:
      return "";
    case Code::kNoMemory:
      return "no memory";
    case Code::kMalformed:
      return "malformed";
    case Code::kIncomplete:
      return "incomplete";
    case Code::kEncoding:
      return "encoding";
    case Code::kWrongRoot:
      return "wrong root";
    case Code::kRefused:
      return "refused";
    case Code::kMissingValue:
      return "missing value";
    case Code::kTooLong:
      return "too long";
  }
  return "";
}

void ZtExplain(Error& error, Code code, Stage stage, const char* sentence, const char* path) {
  ZtSentence(error, code, stage).In(path).Begin() << sentence;
}

void ZtExplainMissing(Error& error, Stage stage, const char* path) {
  ZtExplain(error, Code::kMissingValue, stage, "the element cannot be written without it", path);
}

void ZtExplainNoMemory(Error& error, Stage stage) {
  ZtExplain(error, Code::kNoMemory, stage, "an allocation failed");
}

ZtPiece ZtEncodingNameAt(const ZtFailedText& failed, std::size_t at) {
  const char* const name = failed.original.text + failed.form.mark.size + at;
  const char* const end = failed.original.text + failed.original.size;
  const char* stop = name;
  while (stop < end && *stop != '"' && *stop != '\'' && *stop > ' ') ++stop;
  return {name, static_cast<std::size_t>(stop - name)};
}

void ZtExplainEncoding(Error& error, const ZtFailedText& failed, ZtEncodingFault fault,
                       std::size_t at) {
  const bool isCharacter = fault == ZtEncodingFault::kBadCharacter;
  ZtSentence sentence(error, isCharacter ? Code::kMalformed : Code::kEncoding, Stage::kDecoding);
  sentence.At(PlaceOf(failed, at)).Begin();
  if (fault == ZtEncodingFault::kUnknown) {
    const ZtPiece name = ZtEncodingNameAt(failed, at);
    if (name.size == 0) {
      sentence << "the encoding that the declaration names is not supported";
      return;
    }
    sentence << "the encoding ";
    sentence.Quote(name) << " is not supported";
    return;
  }
  Plain(sentence, ZtFaultText(fault));
}

void ZtExplainXml(Error& error, const ZtFailedText& failed, const ZtXmlError& fault) {
  if (fault.fault == ZtXmlFault::kOutOfMemory) return ZtExplainNoMemory(error, Stage::kParsing);
  ZtSentence sentence(error, CodeOf(fault.fault), Stage::kParsing);
  const ZtPiece text = failed.text;
  std::size_t at = fault.at;
  if (fault.fault == ZtXmlFault::kCutShort && fault.other != ZtXmlError::kNowhere) {
    at = fault.other;
    // Of a text the place is the reference in it.
    if (text.text[at] != '<') {
      for (at = text.size; at > fault.other && text.text[at] != '&';) --at;
    }
  }
  if (fault.fault == ZtXmlFault::kBadEndTag) at = TagAt(text, at - 1);
  Place(sentence, error, failed, at);
  switch (fault.fault) {
    case ZtXmlFault::kBadMarkup:
      if (std::strncmp(text.text + at, "</", 2) != 0) return Plain(sentence, fault.fault);
      [[fallthrough]];
    case ZtXmlFault::kBadEndTag:
    case ZtXmlFault::kWrongEndTag:
      return EndTag(sentence, failed, at, ZtOpenElements(text, ZtTagEnds::kAsXml, at));
    case ZtXmlFault::kNotClosed:
      return NotClosed(sentence, failed, ZtOpenElements(text, ZtTagEnds::kAsXml, text.size));
    case ZtXmlFault::kCutShort:
      return CutShort(sentence, failed, at);
    case ZtXmlFault::kNoQuote:
    case ZtXmlFault::kNoEquals:
    case ZtXmlFault::kBadTag:
    case ZtXmlFault::kBadName:
      return InTag(sentence, failed, fault.fault, at, TagAt(text, at));
    case ZtXmlFault::kLessThanInValue:
      return InTag(sentence, failed, fault.fault, at, TagAt(text, at ? at - 1 : 0));
    case ZtXmlFault::kAttributeTwice:
      sentence << "the element has the attribute ";
      sentence.Quote({text.text + at, std::strcspn(text.text + at, "= \t\r\n")}) << " twice";
      if (fault.other != ZtXmlError::kNowhere) {
        sentence << " (first at ";
        sentence.Other(PlaceOf(failed, fault.other)) << ")";
      }
      return;
    case ZtXmlFault::kUnboundPrefix:
      sentence << "no namespace is bound to the prefix ";
      sentence.Quote({text.text + at, std::strcspn(text.text + at, ":")});
      return;
    case ZtXmlFault::kBadReference:
      sentence << "'&' begins no reference: one that is meant is written &amp;";
      return;
    case ZtXmlFault::kUndefinedEntity:
      sentence << "the entity ";
      sentence.Quote({text.text + at, std::strcspn(text.text + at, ";") + 1}) << " is not defined";
      return;
    default:
      return Plain(sentence, fault.fault);
  }
}

namespace {

constexpr char kStandardOnly[] = " read in the standard profile only";

// Where the first "<!" stands, up to `at`, that begins no comment: the parser of the exact profile
// takes it for a start tag. `at` when there is none.
std::size_t FirstSection(ZtPiece text, std::size_t at) {
  ZtRawTag tag;
  for (ZtTagWalk walk(text, ZtTagEnds::kFirst); walk.Next(tag) && tag.from <= at;) {
    const char* const name = text.text + tag.from + 1;
    if (*name == '!' && std::strncmp(name, "!--", 3) != 0) return tag.from;
  }
  return at;
}

// Says that a text is in UTF-16; false when it is not.
bool SaysUtf16(Error& error, const ZtFailedText& failed) {
  const ZtPiece text = failed.original;
  if (text.size < 2 ||
      (std::memcmp(text.text, "\xff\xfe", 2) != 0 && std::memcmp(text.text, "\xfe\xff", 2) != 0)) {
    return false;
  }
  ZtSentence sentence(error, Code::kEncoding, Stage::kDecoding);
  sentence.At({}).Begin() << "UTF-16 is read in the standard profile only";
  return true;
}

// Why markup that is no tag ends the exact profile's reading: it is not XML either, or `what`.
struct Refused {
  ZtXmlFault fault;
  const char* what;
  std::size_t at;  // after its beginning
};
Refused WhyRefused(const char* markup, const ZtRawTag& tag, bool isInside) {
  const auto is = [markup](ZtPiece mark) {
    return std::strncmp(markup, mark.text, mark.size) == 0;
  };
  const std::size_t close = std::strcspn(markup, ">");
  if (is("<!--")) {
    const auto dashes = static_cast<std::size_t>(std::strstr(markup + 4, "--") + 2 - markup);
    if (dashes + 1 != tag.to) return {ZtXmlFault::kBadComment, nullptr, dashes};
    return {ZtXmlFault::kNone, "'>' in a comment is", close};
  }
  if (is("<?")) {
    const bool isDeclaration = ZtEqual(tag.name, "?xml");
    if (!isDeclaration && isInside) {
      return {ZtXmlFault::kNone, "a processing instruction inside of the root element is", 0};
    }
    if (!isDeclaration) return {ZtXmlFault::kNone, "'>' in a processing instruction is", close};
    return {isInside ? ZtXmlFault::kMisplacedDeclaration : ZtXmlFault::kBadDeclaration, nullptr, 0};
  }
  const bool isSection = is("<![CDATA[");
  if (isSection && isInside) return {ZtXmlFault::kNone, "CDATA sections are", 0};
  if (isSection || !is("<!DOCTYPE")) return {ZtXmlFault::kBadMarkup, nullptr, 0};
  if (isInside) return {ZtXmlFault::kMisplacedDocumentType, nullptr, 0};
  const std::size_t subset = std::strcspn(markup, "[>");
  if (markup[subset] == '[') return {ZtXmlFault::kInternalSubset, nullptr, subset};
  return {ZtXmlFault::kNone, "document types are", 0};
}

void NotTag(Error& error, const ZtFailedText& failed, std::size_t at) {
  const ZtPiece text = failed.text;
  const char* const markup = text.text + at;
  const ZtOpenElements open(text, ZtTagEnds::kAsXml, at);
  ZtRawTag tag;
  const bool isWhole = ZtTagWalk({markup, text.size - at}, ZtTagEnds::kAsXml).Next(tag);
  const Refused why = isWhole ? WhyRefused(markup, tag, open.Depth() > 0)
                              : Refused{ZtXmlFault::kCutShort, nullptr, 0};
  const bool isXml = why.fault == ZtXmlFault::kNone;
  ZtSentence sentence(error, isXml ? Code::kRefused : CodeOf(why.fault), Stage::kParsing);
  SetPath(failed, open, error);
  sentence.At(PlaceOf(failed, at + why.at)).Begin();
  if (!isWhole) return CutShort(sentence, failed, at);
  if (!isXml) return Plain(sentence, why.fault);
  sentence << why.what << kStandardOnly;
}

// Whether the parser of the exact profile takes a start tag that follows its '<' and ends at
// `close`. Its name ends at white space.
bool IsTaken(const char* tag, char* close) {
  char* const end = close[-1] == '/' ? close - 1 : close;
  const char last = *end;
  *end = '\0';
  const char* const name = tag + std::strspn(tag, " \t\r\n");
  const std::size_t size = std::strcspn(name, " \t\r\n");
  const bool isTaken = size && XmlDecoder::ValidateAttributeList(name + size) == 0;
  *end = last;
  return isTaken;
}

}  // namespace

void ZtExplainParser(Error& error, const ZtFailedText& failed, std::size_t at) {
  const ZtPiece text = failed.text;
  if (SaysUtf16(error, failed)) return;
  at = FirstSection(text, at);
  const bool isSection = std::strncmp(text.text + at, "<!", 2) == 0;
  if (isSection || std::strncmp(text.text + at, "<?", 2) == 0) return NotTag(error, failed, at);
  const ZtOpenElements open(text, ZtTagEnds::kFirst, at);
  const bool hasTag = at < text.size && text.text[at] == '<';
  const bool hasEnd =
      hasTag && ZtFind(const_cast<char*>(text.text) + at, '>', text.text + text.size);
  if (!hasEnd && (hasTag || open.Depth())) {
    ZtSentence sentence(error, Code::kIncomplete, Stage::kParsing);
    Place(sentence, error, failed, at);
    return hasTag ? CutShort(sentence, failed, at) : NotClosed(sentence, failed, open);
  }
  if (!hasEnd) {
    const std::size_t blank = std::strspn(text.text, " \t\r\n");
    const bool isText = blank < text.size && text.text[blank] != '<';
    ZtSentence sentence(error, isText ? Code::kMalformed : Code::kIncomplete, Stage::kParsing);
    Place(sentence, error, failed, isText ? blank : at);
    return Plain(sentence, isText ? ZtXmlFault::kTextBeforeRoot : ZtXmlFault::kNoElement);
  }
  if (text.text[at + 1] == '/') {
    const char* const rest = AfterExpected(text, at, ExpectedAt(text, open));
    const bool isXml = rest && *rest == '>';
    ZtSentence sentence(error, isXml ? Code::kRefused : Code::kMalformed, Stage::kParsing);
    Place(sentence, error, failed, at);
    if (!isXml) return EndTag(sentence, failed, at, open);
    sentence << "white space in an end tag is" << kStandardOnly;
    return;
  }
  // The parser has seen the tag up to its first '>'.
  char* const close = ZtFind(const_cast<char*>(text.text) + at, '>', text.text + text.size);
  const auto size = static_cast<std::size_t>(close + 1 - text.text);
  // A tag that it takes can only have failed for lack of memory.
  if (IsTaken(text.text + at + 1, close)) return ZtExplainNoMemory(error, Stage::kParsing);
  ZtXmlError fault = ZtFaultInTag({text.text, size}, at);
  const bool isInValue = fault.fault == ZtXmlFault::kCutShort;
  if (isInValue) fault = ZtFaultInTag(text, at);
  const bool isXml = fault.fault == ZtXmlFault::kNone;
  ZtSentence sentence(error, isXml ? Code::kRefused : CodeOf(fault.fault), Stage::kParsing);
  const std::size_t place = isXml ? size - 1 : fault.at;
  Place(sentence, error, failed, place);
  if (!isXml) return InTag(sentence, failed, fault.fault, place, at);
  sentence << "'>' in the value of the attribute ";
  sentence.Quote(ZtLastAttribute(text, at, size)) << " is" << kStandardOnly;
}

void ZtExplainNul(Error& error, const ZtFailedText& failed, std::size_t at) {
  if (SaysUtf16(error, failed)) return;
  ZtSentence sentence(error, Code::kMalformed, Stage::kDecoding);
  sentence.At(PlaceOf(failed, at)).Begin() << "there is a NUL in the text";
}

void ZtExplainRest(Error& error, const ZtFailedText& failed) {
  ZtRawTag tag;
  std::size_t depth = 0;
  for (ZtTagWalk walk(failed.text, ZtTagEnds::kFirst); walk.Next(tag);) {
    if (tag.kind == ZtRawTag::Kind::kStart) ++depth;
    if (tag.kind == ZtRawTag::Kind::kEnd && depth) --depth;
    if (depth == 0 && tag.kind != ZtRawTag::Kind::kOther) break;
  }
  ZtSentence sentence(error, Code::kMalformed, Stage::kParsing);
  sentence.At(PlaceOf(failed, tag.to)).Begin();
  Plain(sentence, ZtXmlFault::kJunkAfterRoot);
}

void ZtExplainSlash(Error& error, const ZtFailedText& failed, std::size_t at) {
  ZtSentence sentence(error, Code::kRefused, Stage::kBinding);
  Place(sentence, error, failed, at) << "the name of a start tag begins with a slash";
}

void ZtExplainRoot(Error& error, const ZtFailedText& failed, ZtPiece uri) {
  const ZtDocument& document = failed.document;
  ZtRawTag tag;
  ZtTagWalk walk(failed.text, EndsOf(failed));
  bool found = true;
  do {
    found = walk.Next(tag);
  } while (found && !tag.Opens());
  ZtSentence sentence(error, Code::kWrongRoot, Stage::kBinding);
  Place(sentence, error, failed, tag.from) << "the root element is <";
  sentence.Quote(tag.name) << ">";
  if (document.roots.size() == 0) {
    sentence << ", but documents of this kind are read in the exact profile only";
    return;
  }
  const ZtElementType* const type = RootType(document, ZtLocalIn(tag.name));
  if (!type || (failed.type && !ZtIsOneType(*type, ZtStandardOf(*failed.type)))) {
    const char* sign = ", not <";
    for (const ZtRoot& root : document.roots) {
      if (failed.type && !ZtIsOneType(*root.type, *failed.type)) continue;
      sentence << sign << root.name.Piece() << ">";
      sign = " or <";
    }
  } else if (failed.isStandard) {
    sentence << (uri.size ? " in the namespace " : " in no namespace");
    if (uri.size) sentence.Quote(uri);
    if (document.info.nameSpace) sentence << ", not in " << document.info.nameSpace;
  } else if (document.prefixes == ZtPrefixRule::kExact) {
    sentence << ": the exact profile takes no prefix off this document's names";
  } else {
    sentence << ": its prefix is bound to no namespace that this document knows";
  }
}
