#include "Judge.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <expat.h>
#include <iterator>
#include <map>
#include <memory>
#include <new>
#include <string_view>

#include "Schemas.h"
#include "Text.h"
#include "binding/ZtNames.h"
#include "text/ZtEncoding.h"
#include "text/ZtXmlReader.h"

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr char kWhiteSpace[] = " \t\r\n";

struct ParserDeleter {
  void operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }
};
using ParserPtr = std::unique_ptr<XML_ParserStruct, ParserDeleter>;

ParserPtr Own(XML_Parser parser, void* user) {
  if (!parser) throw std::bad_alloc();
  XML_SetUserData(parser, user);
  return ParserPtr(parser);
}

std::size_t IndexOf(const ParserPtr& parser) {
  const XML_Index index = XML_GetCurrentByteIndex(parser.get());
  return index < 0 ? 0 : static_cast<std::size_t>(index);
}

bool Parse(const ParserPtr& parser, std::string_view text, bool last) {
  return XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), last) == XML_STATUS_OK;
}

// The piece of `text` from `at` up to the first of `ends`, without it.
std::string_view UpTo(std::string_view text, std::size_t at, const char* ends) {
  return text.substr(at, text.find_first_of(ends, at) - at);
}

// Whether a schema has the root `root` although XML allows the name only with a prefix, or not at
// all.
bool IsOdd(std::string_view root) {
  const std::string_view local = root.substr(root.find(':') + 1);
  return !local.empty() && std::isdigit(static_cast<unsigned char>(local[0])) &&
         FindSchemaOfRoot(std::string(local));
}

// `text` with the first character of the root's odd name replaced in the root's two tags.
std::string WithoutOddName(std::string_view text, std::string_view root) {
  std::string changed(text);
  const std::size_t first = root.find(':') + 1;
  changed[static_cast<std::size_t>(root.data() - text.data()) + first] = '_';
  const std::size_t end = text.rfind("</" + std::string(root));
  if (end != kNowhere) changed[end + 2 + first] = '_';
  return changed;
}

// ---- Well-formedness ----------------------------------------------------------------------------

class WellFormedness {
 public:
  // `changed` is the text of `document`, perhaps with some bytes replaced, none added.
  WellFormedness(const Document& document, std::string_view changed, Verdict& verdict)
      : m_Document(document),
        m_Text(document.text),
        m_Verdict(verdict),
        m_Parser(Own(XML_ParserCreate(nullptr), this)) {
    XML_SetElementHandler(m_Parser.get(), OnStart, OnEnd);
    XML_SetStartCdataSectionHandler(m_Parser.get(), OnCdata);
    XML_SetStartDoctypeDeclHandler(m_Parser.get(), OnDoctype);
    XML_SetDefaultHandler(m_Parser.get(), OnOther);
    m_bWhole = Parse(m_Parser, changed, true);
    const XML_Error code = XML_GetErrorCode(m_Parser.get());
    const bool isFault = !m_bWhole && code != XML_ERROR_ABORTED;
    if (isFault) verdict.malformed = Explain(code, IndexOf(m_Parser));
  }

  /// Whether the text was read to its end, and is well formed.
  bool IsWhole() const { return m_bWhole; }

 private:
  static WellFormedness& Self(void* user) { return *static_cast<WellFormedness*>(user); }
  static void OnStart(void* user, const char* /*name*/, const char** /*attributes*/) {
    WellFormedness& self = Self(user);
    const std::string_view tag = self.Take();
    // The library's parser ends all markup at the first ">".
    const std::size_t end = tag.find('>');
    if (end + 1 < tag.size()) self.Unsupported("a \">\" in an attribute value", tag.substr(end));
    self.m_bRooted = true;
  }
  static void OnEnd(void* user, const char* /*name*/) { Self(user).Take(); }
  static void OnCdata(void* user) {
    WellFormedness& self = Self(user);
    self.Unsupported("a CDATA section", self.Take());
  }
  static void OnDoctype(void* user, const char* /*name*/, const char* /*systemId*/,
                        const char* /*publicId*/, int /*hasSubset*/) {
    WellFormedness& self = Self(user);
    const std::size_t at = self.m_Text.rfind("<!DOCTYPE", IndexOf(self.m_Parser));
    self.Unsupported("a document type", self.m_Text.substr(at));
    XML_StopParser(self.m_Parser.get(), XML_FALSE);
  }
  static void OnOther(void* user, const char* /*text*/, int /*size*/) { Self(user).Take(); }

  // What the parser has just reported.
  std::string_view Take() {
    const std::size_t at = IndexOf(m_Parser);
    const auto size = static_cast<std::size_t>(XML_GetCurrentByteCount(m_Parser.get()));
    m_iTaken = at + size;
    return m_Text.substr(at, size);
  }
  void Unsupported(const char* what, std::string_view where) {
    if (m_Verdict.unsupported) return;
    m_Verdict.unsupported = {what, static_cast<std::size_t>(where.data() - m_Text.data())};
  }

  // The markup that the parser could not read to its end, or the rest of the text.
  std::string_view Markup() const {
    const std::size_t end = std::min(m_Text.find('>', m_iTaken), m_Text.size() - 1);
    return m_Text.substr(m_iTaken, end - m_iTaken + 1);
  }

  Fault Explain(XML_Error code, std::size_t at) {
    switch (code) {
      case XML_ERROR_INVALID_TOKEN:
        return ExplainToken(at);
      case XML_ERROR_DUPLICATE_ATTRIBUTE:
        return {"a second attribute " + QuoteShort(UpTo(m_Text, at, " \t\r\n=")), at};
      case XML_ERROR_JUNK_AFTER_DOC_ELEMENT:
        return {"something after the root element", at};
      case XML_ERROR_UNDEFINED_ENTITY:
        return UndefinedEntity();
      case XML_ERROR_BAD_CHAR_REF:
        return {QuoteShort(UpTo(m_Text, at, ";")) + " is no character that XML allows", at};
      case XML_ERROR_MISPLACED_XML_PI:
        return {"an XML declaration that is not at the very beginning", at};
      case XML_ERROR_SYNTAX:
        if (m_bRooted) break;
        return {"text before the root element", at};
      case XML_ERROR_XML_DECL:
        return {"the XML declaration is malformed", at};
      case XML_ERROR_UNKNOWN_ENCODING:
        return {"the encoding " + QuoteShort(UpTo(m_Text, at, "\"'")) + " is not known here", at};
      case XML_ERROR_INCORRECT_ENCODING:
        return {"the encoding " + QuoteShort(UpTo(m_Text, at, "\"'")) + " is not that of the text",
                at};
      default:
        break;
    }
    return {XML_ErrorString(code), at};
  }

  // Without a document type only five entities are defined.
  Fault UndefinedEntity() const {
    constexpr std::string_view kDeclared[] = {"amp", "lt", "gt", "quot", "apos"};
    for (std::size_t at = m_iTaken; (at = m_Text.find('&', at) + 1) != 0;) {
      const std::string_view name = UpTo(m_Text, at, ";");
      if (!StartsWith(name, "#") &&
          std::find(std::begin(kDeclared), std::end(kDeclared), name) == std::end(kDeclared)) {
        return {"the entity " + QuoteShort(name) + " is not declared", at - 1};
      }
    }
    return {"an entity is not declared", m_iTaken};
  }

  // Explains why the byte `at` cannot continue the markup that the parser was reading.
  Fault ExplainToken(std::size_t at) {
    const std::string_view rest = m_Text.substr(at);
    const std::size_t size = CharacterSize(rest);
    if (size == 0) return {"not UTF-8: the byte " + Quote(rest.substr(0, 1)), at};
    const auto lead = static_cast<unsigned char>(rest[0]);
    const std::string character = Quote(rest.substr(0, size));
    if ((lead < 0x20 && !std::strchr(kWhiteSpace, lead)) || StartsWith(rest, "\xef\xbf\xbe") ||
        StartsWith(rest, "\xef\xbf\xbf")) {
      return {"the character " + character + ", which XML does not allow", at};
    }
    const std::string_view before = m_Text.substr(0, at);
    const std::string_view markup = Markup();
    if (StartsWith(markup, "<!--") && EndsWith(before, "--")) {
      return {"\"--\" inside a comment", at - 2};
    }
    if (StartsWith(markup, "&")) return {"a raw \"&\"", m_iTaken};
    if (!StartsWith(markup, "<")) {
      if (!m_bRooted) return {"text before the root element", m_iTaken};
      if (EndsWith(before, "]]")) return {"\"]]>\" outside a CDATA section", at - 2};
      return {"unexpected " + character, at};
    }
    return ExplainTag(at, character);
  }

  Fault ExplainTag(std::size_t at, const std::string& character) {
    std::size_t value = 0;  // where the open value begins, with its quote
    for (std::size_t i = m_iTaken; i < at; ++i) {
      const char c = m_Text[i];
      if (value ? c == m_Text[value] : c == '"' || c == '\'') value = value ? 0 : i;
    }
    if (!value) return {"unexpected " + character + " in the tag " + QuoteShort(Markup()), at};
    const std::string in =
        " in the attribute value that begins at " + ToString(m_Document.At(value));
    const std::size_t reference = m_Text.find_last_of("&;", at);
    m_Verdict.rawInValue = true;
    if (m_Text[at] == '<') return {"a raw \"<\"" + in, at};
    if (reference > value && m_Text[reference] == '&') return {"a raw \"&\"" + in, reference};
    m_Verdict.rawInValue = false;
    return {"unexpected " + character + in, at};
  }

  const Document& m_Document;
  std::string_view m_Text;
  Verdict& m_Verdict;
  ParserPtr m_Parser;
  bool m_bWhole = false;
  bool m_bRooted = false;
  std::size_t m_iTaken = 0;  // the end of what the parser has reported
};

// ---- Namespaces ---------------------------------------------------------------------------------

// Checks the namespaces of a document that is well formed.
class NamespaceCheck {
 public:
  // The element that binds `scope` is put around the root, which begins at `root`.
  NamespaceCheck(std::string_view text, std::size_t root, const Scope& scope, Fault& fault)
      : m_Text(text), m_Parser(Own(XML_ParserCreateNS(nullptr, kSeparator), this)) {
    XML_SetNamespaceDeclHandler(m_Parser.get(), OnBound, OnEnded);
    std::string around = "<scope";
    for (const auto& [prefix, uri] : scope) {
      around.append(" xmlns:").append(prefix).append("='").append(uri).append("'");
    }
    around += '>';
    if (Parse(m_Parser, text.substr(0, root), false) && Parse(m_Parser, around, false) &&
        Parse(m_Parser, text.substr(root), false) && Parse(m_Parser, "</scope>", true)) {
      return;
    }
    const std::size_t at = IndexOf(m_Parser);
    fault = Explain(XML_GetErrorCode(m_Parser.get()),
                    at < root + around.size() ? std::min(at, root) : at - around.size());
  }

 private:
  // A character that no namespace can hold.
  static constexpr char kSeparator = '\x01';

  static void OnBound(void* user, const char* prefix, const char* /*uri*/) {
    ++static_cast<NamespaceCheck*>(user)->m_Bound[prefix ? prefix : ""];
  }
  static void OnEnded(void* user, const char* prefix) {
    --static_cast<NamespaceCheck*>(user)->m_Bound[prefix ? prefix : ""];
  }

  Fault Explain(XML_Error code, std::size_t at) {
    switch (code) {
      case XML_ERROR_UNBOUND_PREFIX:
        return Unbound(at);
      case XML_ERROR_INVALID_TOKEN: {
        const std::size_t begin = m_Text.find_last_of("< \t\r\n/", at) + 1;
        return {"the name " + QuoteShort(UpTo(m_Text, begin, " \t\r\n=/>")) +
                    " is not one name, or two with a colon between them",
                begin};
      }
      case XML_ERROR_DUPLICATE_ATTRIBUTE:
        return {"two attributes with one name in one namespace", at};
      default:
        return {XML_ErrorString(code), at};
    }
  }

  // The parser tells only the tag; it may or may not count the tag's own declarations.
  Fault Unbound(std::size_t tag) {
    constexpr std::string_view kDeclaration = "xmlns:";
    const std::vector<std::string_view> names = NamesIn(tag);
    m_Bound["xml"] = m_Bound["xmlns"] = 1;
    for (const std::string_view name : names) {
      if (StartsWith(name, kDeclaration)) {
        m_Bound[std::string(name.substr(kDeclaration.size()))] = 1;
      }
    }
    for (const std::string_view name : names) {
      const std::size_t colon = name.find(':');
      const std::string prefix(name.substr(0, colon));
      if (colon != kNowhere && m_Bound[prefix] <= 0) {
        return {"the prefix " + QuoteShort(prefix) + " is not bound",
                static_cast<std::size_t>(name.data() - m_Text.data())};
      }
    }
    return {XML_ErrorString(XML_ERROR_UNBOUND_PREFIX), tag};
  }

  // The names of the element and the attributes in a start tag.
  std::vector<std::string_view> NamesIn(std::size_t tag) const {
    std::vector<std::string_view> names;
    for (std::size_t at = tag + 1; m_Text[at] != '>' && m_Text[at] != '/';) {
      names.push_back(UpTo(m_Text, at, " \t\r\n=/>"));
      at = m_Text.find_first_not_of(kWhiteSpace, at + names.back().size());
      if (m_Text[at] != '=') continue;
      const std::size_t value = m_Text.find_first_of("\"'", at);
      at = m_Text.find_first_not_of(kWhiteSpace, m_Text.find(m_Text[value], value + 1) + 1);
    }
    return names;
  }

  std::string_view m_Text;
  ParserPtr m_Parser;
  std::map<std::string, int> m_Bound;
};

}  // namespace

Verdict Judge(const Document& document, const Scope& scope) {
  Verdict verdict;
  const std::string_view text = document.text;
  const std::string_view root = RootName(document.text);
  std::string changed;
  if (IsOdd(root)) {
    verdict.oddRoot = root;
    changed = WithoutOddName(text, root);
  }
  const std::string_view judged = changed.empty() ? text : changed;
  const WellFormedness wellFormedness(document, judged, verdict);
  if (document.cut && wellFormedness.IsWhole()) {
    verdict.malformed = {"a NUL byte, after which nothing is read", text.size()};
  } else if (wellFormedness.IsWhole()) {
    const auto name = static_cast<std::size_t>(root.data() - text.data());
    const NamespaceCheck namespaces(judged, name - 1, scope, verdict.unbound);
  }
  return verdict;
}

// The library's strict reader, which the standard profile has, accepts nothing that the other
// parser refuses.
bool IsSurelySound(const Document& document) {
  if (document.cut) return false;
  const ZtPiece input(document.text.data(), document.text.size());
  ZtTextForm form;
  std::size_t at = 0;
  if (ZtFindForm(input, form, at) != ZtEncodingFault::kNone) return false;
  if (form.encoding != ZtEncoding::kUtf8) return false;
  const std::size_t size = ZtDecodedSize(input, form);
  // Not filled, since it is large.
  const std::unique_ptr<char[]> text(new char[size + 1]);
  if (ZtDecode(input, form, text.get(), at) != ZtEncodingFault::kNone) return false;
  text[size] = '\0';
  const std::string_view source = std::string_view(document.text).substr(input.size - size);
  ZtXmlReader reader(nullptr, 0);
  reader.Begin(text.get(), size);
  bool isRoot = true;
  while (true) {
    switch (reader.Next()) {
      case ZtToken::kStart: {
        if (isRoot && source.substr(0, reader.From()).find("<!DOCTYPE") != kNowhere) return false;
        isRoot = false;
        const std::size_t tag = reader.To() - reader.From();
        if (source.substr(reader.From(), tag).find('>') + 1 < tag) return false;
        break;
      }
      case ZtToken::kEnd:
        break;
      case ZtToken::kText:
        if (reader.IsCData()) return false;
        break;
      case ZtToken::kDone:
        return true;
      case ZtToken::kFailed:
        return false;
    }
  }
}

Scope ScopeAround(const XMLSchemaInfo& schema) {
  const XMLSchemaInfo& whole = *XMLFactory::getSchemaInfo(XML_SCHEMA_SIMSERVS);
  const bool isService = schema.id != whole.id && schema.nameSpace &&
                         std::strcmp(schema.nameSpace, whole.nameSpace) == 0;
  if (!isService) return {};
  return {{ZtName(XML_STR_SS), ZtName(XML_STR_HTTP_URI_ETSI_ORG_NGN_PARAMS_XML_SIMSERVS_XCAP)},
          {ZtName(XML_STR_CP), ZtName(XML_STR_URN_IETF_PARAMS_XML_NS_COMMON_POLICY)},
          {ZtName(XML_STR_OCP), ZtName(XML_STR_URN_OMA_XML_XDM_COMMON_POLICY)}};
}

bool FindFault(const Document& document, const Verdict& verdict, Failure& failure) {
  if (verdict.malformed) {
    failure = {"well-formedness", verdict.malformed.what, document.At(verdict.malformed.at)};
  } else if (verdict.unsupported) {
    failure = {"not supported",
               verdict.unsupported.what + ", which the exact profile reads wrongly",
               document.At(verdict.unsupported.at)};
  } else if (verdict.unbound) {
    failure = {"namespaces", verdict.unbound.what, document.At(verdict.unbound.at)};
  } else {
    return false;
  }
  return true;
}

std::string OddRoot(const std::string& name) {
  return "XML does not allow the name " + QuoteShort(name) + ", which the schema gives its root";
}

void JudgeText(const Document& document, const XMLSchemaInfo& schema, std::vector<Failure>& faults,
               std::string& remark) {
  if (IsSurelySound(document)) return;
  const Scope scope = ScopeAround(schema);
  const Verdict verdict = Judge(document, scope);
  Failure failure;
  if (FindFault(document, verdict, failure)) {
    faults.push_back(failure);
    return;
  }
  if (!verdict.oddRoot.empty()) remark = OddRoot(verdict.oddRoot);
  const Fault unbound = scope.empty() ? Fault() : Judge(document).unbound;
  if (!unbound) return;
  if (!remark.empty()) remark += "; ";
  remark += unbound.what + ": that is for the document around the service";
}
