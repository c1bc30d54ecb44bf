// Telling files that are no text with documents.
#ifndef ZTXML_TOOLS_FILEKIND_H
#define ZTXML_TOOLS_FILEKIND_H

#include <string_view>

/// What a file with the content `text` is, "a gzip file", if it is known and has no documents; else
/// null.
const char* KindOfFile(std::string_view text);

#endif  // ZTXML_TOOLS_FILEKIND_H
