// FILE#3: a document of a file by the number that messages give it.
#ifndef ZTXML_TOOLS_FILECHOICE_H
#define ZTXML_TOOLS_FILECHOICE_H

#include <string>
#include <vector>

#include "Document.h"

/// A file, and which of its documents is meant.
struct FileChoice {
  std::string path;
  std::string number = {};  ///< "#3", or "#3#1" for a part of a message; "" for all

  bool IsOfAll() const { return number.empty(); }
};

/// What an argument asks for. A file that has the whole of it as its name is taken whole.
FileChoice FileChoiceOf(const std::string& argument);

/// Moves what is meant from `all`, which the file has, to the end of `documents`: a document, or
/// all those of a message. False when it is not there, or with `needsDocument` has no document.
bool TakeChosen(const FileChoice& choice, bool needsDocument, std::vector<Document>& all,
                std::vector<Document>& documents);
/// Why it was not taken.
Failure WhyNotChosen(const FileChoice& choice, const std::vector<Document>& all);

#endif  // ZTXML_TOOLS_FILECHOICE_H
