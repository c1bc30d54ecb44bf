#include "Document.h"

#include <algorithm>
#include <climits>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <system_error>

#include "Capture.h"
#include "Colour.h"
#include "FileChoice.h"
#include "FileKind.h"
#include "Output.h"
#include "PacketFile.h"
#include "Packets.h"
#include "Text.h"

namespace {

constexpr std::size_t kMostBytes = INT_MAX - 1;

// Null, or why there is no text.
const char* ReadAll(std::istream& from, std::string& text) {
  constexpr std::size_t kBlock = 1 << 16;
  const std::unique_ptr<char[]> block(new char[kBlock]);  // not filled, for many small files
  while (from.read(block.get(), kBlock), from.gcount() > 0) {
    text.append(block.get(), static_cast<std::size_t>(from.gcount()));
    if (text.size() > kMostBytes) return "more than 2 GB";
  }
  return from.bad() ? "cannot be read whole" : nullptr;
}

const char* ReadFile(const std::string& path, std::string& text) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (status.type() == std::filesystem::file_type::not_found) return "no such file";
  if (std::filesystem::is_directory(status)) {
    const std::filesystem::directory_iterator entries(path, error);
    return error ? "a directory that cannot be read" : "a directory (-r takes the files in it)";
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) return "cannot be opened";
  // Without room for all of it, it would be moved again and again.
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (!error && size <= kMostBytes) text.reserve(static_cast<std::size_t>(size));
  return ReadAll(file, text);
}

// A text up to its first NUL byte.
void Cut(Document& document) {
  const std::size_t end = document.text.find('\0');
  if (end == std::string::npos) return;
  document.cut = true;
  document.text.resize(end);
}

// Takes what is no document out of `documents` from `first` on, and tells of it.
void TakeOutSkipped(std::vector<Document>& documents, std::size_t first, Skipping skipping) {
  const auto begin = documents.begin() + static_cast<std::ptrdiff_t>(first);
  if (skipping == Skipping::kRefused) {
    for (auto item = begin; item != documents.end(); ++item) {
      if (item->kind != Document::Kind::kSkipped) continue;
      item->kind = Document::Kind::kRefused;
      item->fault.kind = "capture";
    }
  }
  const auto isOther = [](const Document& item) {
    if (!item.IsDocument()) Report(item.name, item.fault);
    return !item.IsDocument();
  };
  documents.erase(std::remove_if(begin, documents.end(), isOther), documents.end());
}

// Adds all that a file has. False with the failure.
bool ReadAllDocuments(const std::string& path, bool allBytes, Skipping skipping,
                      std::vector<Document>& documents, Failure& failure) {
  Document file;
  file.name = NameOfInput(path);
  const char* why = path == "-" ? ReadAll(std::cin, file.text) : ReadFile(path, file.text);
  if (!why && file.text.empty()) why = "empty";
  const bool isPackets = !why && IsPacketFile(file.text);
  if (!why && !isPackets) why = KindOfFile(file.text);
  if (why) {
    failure = {"file", why};
    return false;
  }
  const std::size_t first = documents.size();
  const bool isRead = isPackets ? ReadPacketFile(file, skipping, documents, failure)
                                : ReadCapture(file, documents, failure);
  if (!allBytes)
    std::for_each(documents.begin() + static_cast<std::ptrdiff_t>(first), documents.end(), Cut);
  return isRead;
}

}  // namespace

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
  Out().flush();
  Err() << "ztxml: " << Escape(name) << ": " << message << '\n';
}

void Report(const std::string& name, const Failure& failure) {
  Out().flush();
  Err() << "ztxml: " << Coloured(Describe(name, failure), Colour::kRed, Err()) << '\n';
}

int Refuse(const std::string& name, const Failure& failure, ExitStatus status) {
  Report(name, failure);
  return status;
}

std::string NameOfInput(const std::string& path) { return path == "-" ? "(standard input)" : path; }

bool ReadDocuments(const std::string& path, bool allBytes, std::vector<Document>& documents,
                   Failure& failure, Skipping skipping) {
  const std::size_t first = documents.size();
  const FileChoice choice = FileChoiceOf(path);
  const bool keepsOthers = skipping == Skipping::kListed || skipping == Skipping::kShown;
  if (choice.IsOfAll()) {
    const bool isRead = ReadAllDocuments(path, allBytes, skipping, documents, failure);
    if (!keepsOthers) TakeOutSkipped(documents, first, skipping);
    return isRead;
  }
  std::vector<Document> all;
  const bool isRead = ReadAllDocuments(choice.path, allBytes, Skipping::kRefused, all, failure);
  // What is wrong elsewhere in the file does not matter to what was asked for.
  if (!TakeChosen(choice, skipping == Skipping::kTold, all, documents)) {
    if (isRead || !all.empty()) failure = WhyNotChosen(choice, all);
    return false;
  }
  if (!keepsOthers) TakeOutSkipped(documents, first, skipping);
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
    Refuse(NameOfInput(path),
           {"capture", std::to_string(documents.size()) + " XML bodies, of which only one can be " +
                           use + " (the first is " + Escape(documents[0].name) + ')'});
    return false;
  }
  if (documents.empty() || documents[0].kind == Document::Kind::kRefused) {
    const Failure none = {"capture", "no XML body", {1, 1}};
    Refuse(NameOfInput(path), documents.empty() ? none : documents[0].fault);
    return false;
  }
  document = std::move(documents[0]);
  return true;
}

std::vector<std::string> FilesIn(const std::vector<std::string>& paths) {
  std::vector<std::string> files;
  for (const std::string& path : paths) {
    std::error_code error;
    if (path == "-" || !std::filesystem::is_directory(path, error)) {
      files.push_back(path);
      continue;
    }
    const auto before = static_cast<std::ptrdiff_t>(files.size());
    std::filesystem::recursive_directory_iterator entry(path, error);
    for (; !error && entry != std::filesystem::recursive_directory_iterator();
         entry.increment(error)) {
      std::error_code unknown;
      if (entry->is_regular_file(unknown)) files.push_back(entry->path().string());
    }
    std::sort(files.begin() + before, files.end());
    if (error) {
      files.push_back(path);  // so that it is told that it cannot be read
    } else if (before == static_cast<std::ptrdiff_t>(files.size())) {
      Report(path, {"skipped", "no file is in this directory"});
    }
  }
  return files;
}
