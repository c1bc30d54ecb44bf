// Where one of several documents in a text ends.
#ifndef ZTXML_TOOLS_SPLIT_H
#define ZTXML_TOOLS_SPLIT_H

#include <cstddef>
#include <string_view>

/// Whether `text` begins like a document, perhaps after a byte order mark: with an XML declaration,
/// a document type or a start tag.
bool BeginsDocument(std::string_view text);

/// The size of the document at the beginning of `text`, up to the end of its root element; that of
/// the whole text when the root does not end. A document that is cut ends before an XML
/// declaration.
std::size_t SizeOfDocument(std::string_view text);

#endif  // ZTXML_TOOLS_SPLIT_H
