#include "FileChoice.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "Text.h"

namespace {

bool IsNumber(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

bool IsNumberOf(const FileChoice& choice, const Document& document) {
  const std::string name = NameOfInput(choice.path) + choice.number;
  return document.name == name || StartsWith(document.name, name + '#');
}

bool IsDocument(const Document& item) { return item.IsDocument(); }

}  // namespace

FileChoice FileChoiceOf(const std::string& argument) {
  std::string path = argument;
  std::error_code error;
  while (!std::filesystem::exists(path, error)) {
    const std::size_t mark = path.rfind('#');
    if (mark == std::string::npos || mark == 0 || !IsNumber(path.substr(mark + 1))) {
      return {argument};
    }
    path.resize(mark);
  }
  return {path, argument.substr(path.size())};
}

bool TakeChosen(const FileChoice& choice, bool needsDocument, std::vector<Document>& all,
                std::vector<Document>& documents) {
  // One that is alone has no number.
  const bool isFirst = choice.number == "#1";
  const bool isAlone = std::count_if(all.begin(), all.end(), IsDocument) == 1;
  const auto isMeant = [&](const Document& item) {
    const bool isThatOne =
        isFirst && isAlone && item.IsDocument() && item.name == NameOfInput(choice.path);
    return isThatOne || IsNumberOf(choice, item);
  };
  const auto isWanted = [&](const Document& item) {
    return isMeant(item) && (item.IsDocument() || !needsDocument);
  };
  if (std::none_of(all.begin(), all.end(), isWanted)) return false;
  for (Document& item : all) {
    if (isMeant(item)) documents.push_back(std::move(item));
  }
  return true;
}

Failure WhyNotChosen(const FileChoice& choice, const std::vector<Document>& all) {
  for (const Document& item : all) {
    if (IsNumberOf(choice, item)) return {"capture", "no XML body"};
  }
  const auto count = std::count_if(all.begin(), all.end(), IsDocument);
  std::string why = "no such document: " + Escape(NameOfInput(choice.path)) + " has " +
                    std::to_string(count) + (count == 1 ? " document" : " documents");
  const auto last = std::find_if(all.rbegin(), all.rend(), IsDocument);
  if (count > 1) why += ", of which the last is " + Escape(last->name);
  return {"capture", why};
}
