#include "Document.h"

#include <algorithm>
#include <climits>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

#include "Capture.h"
#include "Colour.h"
#include "Text.h"

namespace {

// Null, or why there is no text.
const char* ReadFile(const std::string& path, std::string& text) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (status.type() == std::filesystem::file_type::not_found) return "no such file";
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    return "not a regular file (for standard input give - instead)";
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) return "cannot be opened";
  text.assign(std::istreambuf_iterator<char>(file), {});
  return file.bad() || text.empty() ? "empty, or cannot be read whole" : nullptr;
}

const char* ReadStandardInput(std::string& text) {
  text.assign(std::istreambuf_iterator<char>(std::cin), {});
  return std::cin.bad() ? "cannot be read whole" : nullptr;
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
  if (failure.at.line) {
    text += ':' + ToString(failure.at);
  } else if (!failure.path.empty()) {
    text += ": " + Escape(failure.path);
  }
  return text + ": " + failure.kind + ": " + failure.what;
}

void Complain(const std::string& name, const std::string& message) {
  std::cout.flush();
  std::cerr << "ztxml: " << Escape(name) << ": " << message << '\n';
}

void Report(const std::string& name, const Failure& failure) {
  std::cout.flush();
  std::cerr << "ztxml: " << Coloured(Describe(name, failure), Colour::kRed, std::cerr) << '\n';
}

int Refuse(const std::string& name, const Failure& failure, ExitStatus status) {
  Report(name, failure);
  return status;
}

std::string NameOfInput(const std::string& path) { return path == "-" ? "(standard input)" : path; }

bool ReadDocuments(const std::string& path, bool allBytes, std::vector<Document>& documents,
                   Failure& failure) {
  Document document;
  document.name = NameOfInput(path);
  std::string& text = document.text;
  const char* why = path == "-" ? ReadStandardInput(text) : ReadFile(path, text);
  if (!why && text.size() >= INT_MAX) why = "cannot be read whole";
  const std::size_t end = allBytes ? std::string::npos : text.find('\0');
  if (end != std::string::npos) {
    document.cut = true;
    text.resize(end);
  }
  if (!why && text.empty()) why = "empty";
  if (why) {
    failure = {"file", why};
    return false;
  }
  if (IsCapture(document.text)) return ReadCapture(document, documents, failure);
  documents.push_back(std::move(document));
  return true;
}

bool ReadOneDocument(const std::string& path, bool allBytes, const char* use, Document& document) {
  std::vector<Document> documents;
  Failure failure;
  if (!ReadDocuments(path, allBytes, documents, failure)) {
    Refuse(NameOfInput(path), failure);
    return false;
  }
  if (documents.size() > 1) {
    Refuse(NameOfInput(path), {"capture", std::to_string(documents.size()) +
                                              " XML bodies, of which only one can be " + use});
    return false;
  }
  document = std::move(documents[0]);
  return true;
}
