// ztxml format: a document with its elements on lines of their own.
#include "Format.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Colour.h"
#include "Commands.h"
#include "Output.h"
#include "Read.h"
#include "Text.h"
#include "binding/ZtSourceText.h"
#include "binding/ZtStandardWriter.h"
#include "model/ZtOwnership.h"
#include "text/ZtTagWalk.h"

namespace {

constexpr std::size_t kDeepest = 60;  // levels that are indented, so that the output stays linear

struct Token {
  enum class Kind { kSpace, kText, kStart, kEmpty, kEnd, kComment, kOther };

  Kind kind = Kind::kText;
  std::size_t from = 0;
  std::string_view text;
  std::size_t parent = 0;     // of a start tag: which token is that of the element around it
  std::size_t end = 0;        // of a start tag: which token is its end tag
  bool hasElements = false;   // of a start tag: whether there are elements right in it,
  bool hasText = false;       // or a text that is not white space
  bool keepsContent = false;  // whether what is in it stays as it is
};

// The tokens of a well-formed text.
class Tokens {
 public:
  explicit Tokens(std::string_view text) : m_Text(text) {
    while (m_iAt < m_Text.size()) Add(Next());
  }
  std::vector<Token>& All() { return m_Tokens; }

 private:
  Token Next() {
    const std::string_view rest = m_Text.substr(m_iAt);
    if (rest[0] != '<') {
      const std::string_view text = rest.substr(0, rest.find('<'));
      return Take(Trim(text).empty() ? Token::Kind::kSpace : Token::Kind::kText, text.size());
    }
    if (StartsWith(rest, "<!--")) return To(Token::Kind::kComment, "-->", 4);
    if (StartsWith(rest, "<![CDATA[")) return To(Token::Kind::kText, "]]>", 9);
    if (StartsWith(rest, "<?")) return To(Token::Kind::kOther, "?>", 2);
    if (StartsWith(rest, "</")) return To(Token::Kind::kEnd, ">", 2);
    std::size_t size = 0;
    for (char quote = 0; size < rest.size() && (quote || rest[size] != '>'); ++size) {
      const char c = rest[size];
      if (quote) {
        if (c == quote) quote = 0;
      } else if (c == '"' || c == '\'') {
        quote = c;
      }
    }
    if (StartsWith(rest, "<!")) return Take(Token::Kind::kOther, size + 1);
    const bool isEmpty = rest[size - 1] == '/';
    return Take(isEmpty ? Token::Kind::kEmpty : Token::Kind::kStart, size + 1);
  }
  Token To(Token::Kind kind, std::string_view end, std::size_t from) {
    return Take(kind, m_Text.find(end, m_iAt + from) - m_iAt + end.size());
  }
  Token Take(Token::Kind kind, std::size_t size) {
    Token token;
    token.kind = kind;
    token.from = m_iAt;
    token.text = m_Text.substr(m_iAt, size);
    m_iAt += token.text.size();
    return token;
  }

  void Add(Token token) {
    if (!m_Open.empty()) token.parent = m_Open.back();
    if (token.kind == Token::Kind::kEnd && !m_Open.empty()) {
      m_Tokens[m_Open.back()].end = m_Tokens.size();
      m_Open.pop_back();
    } else if (!m_Open.empty()) {
      Token& parent = m_Tokens[m_Open.back()];
      const bool isElement = token.kind == Token::Kind::kStart || token.kind == Token::Kind::kEmpty;
      parent.hasElements = parent.hasElements || isElement;
      parent.hasText = parent.hasText || token.kind == Token::Kind::kText;
    }
    if (token.kind == Token::Kind::kStart) m_Open.push_back(m_Tokens.size());
    m_Tokens.push_back(token);
  }

  std::string_view m_Text;
  std::size_t m_iAt = 0;
  std::vector<Token> m_Tokens;
  std::vector<std::size_t> m_Open;
};

// Tells of which elements the library keeps a text, also one of white space.
class TextElements {
 public:
  explicit TextElements(const ZtSourceText& source) {
    for (const ZtSourceText::Part& part : source.parts) {
      if (part.row && part.row->IsAttribute()) continue;
      const auto& object = *static_cast<const XMLElement*>(part.object);
      m_Types.emplace(part.from, &ZtStandardOf(reflect::TypeOf(object)));
    }
  }
  bool Has(const Token& token, const Token& parent) const {
    const ZtElementType* const own = TypeAt(token.from);
    if (own) return own->rows.takesText;
    const ZtElementType* const around = TypeAt(parent.from);
    const ZtNameId name = NameOf(token);
    if (!around || name == kZtNoName) return false;
    const ZtField* const row = ZtFindChild(*around, name);
    return row && row->value != ZtValue::kObject;
  }

 private:
  const ZtElementType* TypeAt(std::size_t from) const {
    const auto found = m_Types.find(from);
    return found == m_Types.end() ? nullptr : found->second;
  }
  static ZtNameId NameOf(const Token& token) {
    const ZtPiece text(token.text.data(), token.text.size());
    return ZtNameId::Of(ZtLocalIn(ZtNameInTag(text, 0)));
  }

  std::unordered_map<std::size_t, const ZtElementType*> m_Types;  // by where elements begin
};

bool PreservesSpace(std::string_view tag) {
  const std::size_t at = tag.find("xml:space");
  return at != std::string_view::npos && tag.find("preserve", at) != std::string_view::npos;
}

class Indenter {
 public:
  explicit Indenter(const std::string_view text)
      : m_Break(text.find('\n') != std::string_view::npos &&
                        text.find("\r\n") + 1 == text.find('\n')
                    ? "\r\n"
                    : "\n") {}

  std::string Indent(const std::vector<Token>& tokens) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      const Token& token = tokens[i];
      if (token.kind == Token::Kind::kSpace) continue;
      if (token.kind == Token::Kind::kEnd) --m_iDepth;
      const bool staysOnLine = token.kind == Token::Kind::kComment && i > 1 &&
                               tokens[i - 1].kind == Token::Kind::kSpace &&
                               tokens[i - 2].kind != Token::Kind::kStart &&
                               tokens[i - 1].text.find('\n') == std::string_view::npos;
      if (staysOnLine) {
        m_Text += ' ';
      } else {
        NewLine();
      }
      m_Text += token.text;
      if (token.kind != Token::Kind::kStart) continue;
      if (!token.keepsContent) {
        ++m_iDepth;
        continue;
      }
      for (++i; i <= token.end; ++i) m_Text += tokens[i].text;
      --i;
    }
    return m_Text + m_Break;
  }

 private:
  void NewLine() {
    if (m_Text.empty()) return;
    m_Text += m_Break;
    m_Text.append(2 * std::min(m_iDepth, kDeepest), ' ');
  }

  const char* const m_Break;
  std::size_t m_iDepth = 0;
  std::string m_Text;
};

std::string Encode(const std::string& text, const ZtTextForm& form) {
  const ZtPiece utf8(text.data(), text.size());
  std::string encoded(form.mark.size + ZtEncodedSize(utf8, form.encoding), '\0');
  std::copy(form.mark.text, form.mark.text + form.mark.size, encoded.begin());
  ZtEncode(utf8, form.encoding, encoded.data() + form.mark.size);
  return encoded;
}

}  // namespace

bool Indent(const Tree& tree, std::string& indented, ZtTextForm* form) {
  const ZtSourceText* source = ZtOwnership::SourceOf(*tree.root);
  if (!source) return false;
  const std::string_view text(source->Text().text, source->Text().size);
  const TextElements texts(*source);
  Tokens tokens(text);
  for (Token& token : tokens.All()) {
    if (token.kind != Token::Kind::kStart) continue;
    token.keepsContent = !token.hasElements || token.hasText || PreservesSpace(token.text) ||
                         texts.Has(token, tokens.All()[token.parent]);
  }
  indented = Indenter(text).Indent(tokens.All());
  if (form) *form = source->form;
  return true;
}

int Format(const Document& document, const Reading& reading) {
  Reading keeping = reading;
  keeping.keepsSource = true;
  Tree tree;
  Failure failure;
  if (!ReadTree(document, keeping, tree, failure)) return Refuse(document, failure);
  std::string indented;
  ZtTextForm form;
  if (!Indent(tree, indented, &form)) {
    return Refuse(document.name, {NameOf(ztxml::Code::kNoMemory), "memory is lacking"}, kInternal);
  }
  PrintText(Encode(indented, form));
  return kDone;
}
