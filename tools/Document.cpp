#include "Document.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <system_error>

#include "Capture.h"
#include "Text.h"
#include "XMLFile.h"

namespace {

const char* WhyNotOpened(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (status.type() == std::filesystem::file_type::not_found) return "no such file";
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    return "not a regular file (for standard input give - instead)";
  }
  return "cannot be opened";
}

// Null, or why there is no text.
const char* ReadFile(const std::string& path, Document& document) {
  XMLFile file(path.c_str(), XML_FILE_READ);
  if (!file.OpenFile()) return WhyNotOpened(path);
  const char* read = file.Read();
  if (read) document.text = read;
  file.CloseFile();
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  document.cut = !error && size > document.text.size();
  return read ? nullptr : "empty, or cannot be read whole";
}

const char* ReadStandardInput(Document& document) {
  std::string& text = document.text;
  text.assign(std::istreambuf_iterator<char>(std::cin), {});
  if (std::cin.bad() || text.size() >= INT_MAX) return "cannot be read whole";
  const std::size_t size = std::strlen(text.c_str());
  document.cut = size < text.size();
  text.resize(size);
  return nullptr;
}

}  // namespace

Position PositionAfter(std::string_view passed, Position start) {
  const std::size_t last = passed.rfind('\n');
  if (last != std::string_view::npos) {
    start.line += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
    start.column = 1;
    passed.remove_prefix(last + 1);
  }
  for (const char c : passed) start.column += (static_cast<unsigned char>(c) & 0xc0) != 0x80;
  return start;
}

std::string ToString(Position position) {
  return std::to_string(position.line) + ':' + std::to_string(position.column);
}

std::string Describe(const std::string& name, const Failure& failure) {
  std::string text = Escape(name);
  if (failure.at.line) text += ':' + ToString(failure.at);
  return text + ": " + failure.stage + ": " + failure.what;
}

void Complain(const std::string& name, const std::string& message) {
  std::cout.flush();
  std::cerr << "ztxml: " << Escape(name) << ": " << message << '\n';
}

void Report(const std::string& name, const Failure& failure) {
  std::cout.flush();
  std::cerr << "ztxml: " << Describe(name, failure) << '\n';
}

int Refuse(const std::string& name, const Failure& failure) {
  Report(name, failure);
  return kCannotRead;
}

std::string NameOfInput(const std::string& path) { return path == "-" ? "(standard input)" : path; }

bool ReadDocuments(const std::string& path, std::vector<Document>& documents, Failure& failure) {
  Document document;
  document.name = NameOfInput(path);
  const char* why = path == "-" ? ReadStandardInput(document) : ReadFile(path, document);
  if (!why && document.text.empty()) why = "empty";
  if (why) {
    failure = {"file", why};
    return false;
  }
  if (IsCapture(document.text)) return ReadCapture(document, documents, failure);
  documents.push_back(std::move(document));
  return true;
}
