// ztxml body: the documents of a captured message as they are.
#include <string>

#include "Commands.h"
#include "Output.h"
#include "Text.h"

int PrintBody(const std::string& path, std::size_t nth) {
  std::vector<Document> documents;
  Failure failure;
  const bool opened = ReadDocuments(path, true, documents, failure);
  int status = kDone;
  for (std::size_t i = 0; i < documents.size(); ++i) {
    const Document& document = documents[i];
    if (nth != 0 && nth != i + 1) continue;
    if (document.kind == Document::Kind::kText) {
      PrintText(document.text);
    } else {
      status = Refuse(document.name, document.fault);
    }
  }
  // What comes after the one that was asked for does not matter.
  if (nth != 0 && nth <= documents.size()) return status;
  if (!opened) return Refuse(NameOfInput(path), failure);
  if (documents.empty()) return kCannotRead;  // that they were skipped is told
  if (nth == 0) return status;
  const bool isOne = documents.size() == 1;
  Complain(NameOfInput(path),
           (isOne ? "there is one document"
                  : "there are " + std::to_string(documents.size()) + " documents") +
               std::string(", and no number ") + std::to_string(nth));
  return kCannotRead;
}
