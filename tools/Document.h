// The documents that the commands work on: where they come from and how messages name them.
#ifndef ZTXML_TOOLS_DOCUMENT_H
#define ZTXML_TOOLS_DOCUMENT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

enum ExitStatus : int {
  kDone = 0,
  kCannotRead = 1,  ///< a document was refused
  kUsage = 2,
  kCannotWrite = 3,   ///< a document cannot be written, or not as XML
  kOutputFailed = 4,  ///< the output cannot be written: the disk is full, the pipe closed
  kInternal = 5
};

/// A place in a file: lines and, in them, characters of UTF-8, both counted from 1. Line 0: none.
struct Position {
  std::size_t line = 0;
  std::size_t column = 0;

  bool operator==(const Position& other) const {
    return line == other.line && column == other.column;
  }
  bool operator<(const Position& other) const {
    return line != other.line ? line < other.line : column < other.column;
  }
};

/// The place after `passed`, which begins at `start`.
Position PositionAfter(std::string_view passed, Position start);
/// "3:17".
std::string ToString(Position position);

/// A whole document and what messages call it.
struct Document {
  std::string name;
  std::string text;         ///< a NUL byte ends it, unless all bytes were asked for
  std::string contentType;  ///< lower case, "" when nothing tells
  Position start = {1, 1};  ///< of the text in its file
  bool cut = false;         ///< whether there is more, after a NUL byte

  /// The place of the byte `offset`.
  Position At(std::size_t offset) const {
    return PositionAfter(std::string_view(text).substr(0, offset), start);
  }
  /// The place in the file of a place in the text.
  Position At(std::size_t line, std::size_t column) const {
    return {start.line + line - 1, line == 1 ? start.column + column - 1 : column};
  }
};

/// Why a document was refused, or what is wrong with it.
struct Failure {
  /// What ztxml::Code calls it; of the tool's own "file", "capture", "tree"; for a document that is
  /// read but faulty, "well-formedness", "namespaces", "required" or "value".
  const char* kind = "";
  std::string what;
  Position at = {};
  std::string path = {};  ///< of the element that is open there, or of what cannot be written
};

/// "name:line:column: kind: what", or with the path in place of the place when there is none.
std::string Describe(const std::string& name, const Failure& failure);

/// Prints "ztxml: name: message" on standard error, after what standard output has so far.
void Complain(const std::string& name, const std::string& message);
/// Prints a failure like Complain.
void Report(const std::string& name, const Failure& failure);
/// Reports why a document was refused. Returns kCannotRead, or the status that is given.
int Refuse(const std::string& name, const Failure& failure, ExitStatus status = kCannotRead);

/// What messages call `path`.
std::string NameOfInput(const std::string& path);

/// Adds what the file `path`, or standard input for "-", has: a document, or the XML bodies of a
/// captured message. With `allBytes` NUL bytes, which UTF-16 has, are bytes like others. False with
/// the failure; what was added before is kept.
bool ReadDocuments(const std::string& path, bool allBytes, std::vector<Document>& documents,
                   Failure& failure);
/// The one document that `path` has, all bytes of it or up to a NUL; false when it has none or
/// several, which was reported. `use` tells what can be done with one only: "compared".
bool ReadOneDocument(const std::string& path, bool allBytes, const char* use, Document& document);

#endif  // ZTXML_TOOLS_DOCUMENT_H
