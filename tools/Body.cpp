// ztxml body: the documents of a captured message as they are.
#include <string>

#include "Commands.h"
#include "Text.h"

int PrintBody(const std::string& path, std::size_t nth) {
  std::vector<Document> documents;
  Failure failure;
  const bool opened = ReadDocuments(path, true, documents, failure);
  for (std::size_t i = 0; i < documents.size(); ++i) {
    if (nth == 0 || nth == i + 1) PrintText(documents[i].text);
  }
  // What comes after the one that was asked for does not matter.
  if (nth != 0 && nth <= documents.size()) return kDone;
  if (!opened) return Refuse(NameOfInput(path), failure);
  if (nth == 0) return kDone;
  const bool isOne = documents.size() == 1;
  Complain(NameOfInput(path),
           (isOne ? "there is one document"
                  : "there are " + std::to_string(documents.size()) + " documents") +
               std::string(", and no number ") + std::to_string(nth));
  return kCannotRead;
}
