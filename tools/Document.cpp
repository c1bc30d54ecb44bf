#include "Document.h"

#include <climits>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <system_error>

#include "XMLFile.h"

namespace {

std::string EscapeWith(const char* text, bool quotes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string escaped;
  for (; *text; ++text) {
    const auto byte = static_cast<unsigned char>(*text);
    if (*text == '\n') {
      escaped += "\\n";
    } else if (*text == '\t') {
      escaped += "\\t";
    } else if (*text == '\\' || (quotes && *text == '"')) {
      escaped += '\\';
      escaped += *text;
    } else if (byte < 0x20 || byte == 0x7f) {
      escaped += "\\x";
      escaped += kDigits[byte / 16];
      escaped += kDigits[byte % 16];
    } else {
      escaped += *text;
    }
  }
  return escaped;
}

const char* WhyNotOpened(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (status.type() == std::filesystem::file_type::not_found) return "no such file";
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    return "not a regular file (for standard input give - instead)";
  }
  return "cannot be opened";
}

bool ReadFile(const std::string& path, Document& document) {
  XMLFile file(path.c_str(), XML_FILE_READ);
  if (!file.OpenFile()) {
    Complain(document.name, std::string("file: ") + WhyNotOpened(path));
    return false;
  }
  const char* text = file.Read();
  if (text) document.text = text;
  file.CloseFile();
  if (!text) Complain(document.name, "file: empty, or cannot be read whole");
  return text != nullptr;
}

bool ReadStandardInput(Document& document) {
  document.text.assign(std::istreambuf_iterator<char>(std::cin), {});
  if (std::cin.bad() || document.text.size() >= INT_MAX) {
    Complain(document.name, "file: cannot be read whole");
    return false;
  }
  document.text.resize(std::strlen(document.text.c_str()));
  return true;
}

}  // namespace

void Complain(const std::string& name, const std::string& message) {
  std::cout.flush();
  std::cerr << "ztxml: " << name << ": " << message << '\n';
}

std::string Escape(const char* text) { return EscapeWith(text, false); }
std::string Quote(const char* text) { return '"' + EscapeWith(text, true) + '"'; }

bool ReadDocument(const std::string& path, Document& document) {
  const bool isInput = path == "-";
  document.name = isInput ? "(standard input)" : path;
  if (!(isInput ? ReadStandardInput(document) : ReadFile(path, document))) return false;
  if (document.text.empty()) Complain(document.name, "file: empty");
  return !document.text.empty();
}

namespace {

int RunParser(const std::string& text, XmlDecoderSchema* receiver) {
  XmlDecoder parser;
  parser.SetSchema(receiver);
  // The parser leaves unchanged what it is given.
  return parser.Decode(const_cast<char*>(text.c_str()), static_cast<int>(text.size()));
}

}  // namespace

bool IsWellFormed(const std::string& text) { return RunParser(text, nullptr) == ZT_XML_SUCCESS; }

bool Parse(const Document& document, XmlDecoderSchema* receiver) {
  switch (RunParser(document.text, receiver)) {
    case ZT_XML_SUCCESS:
      return true;
    case ZT_XML_INCOMPLETE:
      Complain(document.name, "parser: incomplete: the root element is missing or not closed");
      return false;
    default:
      Complain(document.name, "parser: not well formed (--log 2 may tell more)");
      return false;
  }
}

ElementPtr ReadTree(XMLContext& context, const Document& document) {
  XMLUnMarshaller* unMarshaller = context.createUnMarshaller();
  return ElementPtr(unMarshaller ? unMarshaller->UnMarshall(document.text.c_str()) : nullptr);
}
