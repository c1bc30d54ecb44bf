// The documents that the commands work on: where they come from and how messages name them.
#ifndef ZTXML_TOOLS_DOCUMENT_H
#define ZTXML_TOOLS_DOCUMENT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Origin.h"
#include "Position.h"

enum ExitStatus : int {
  kDone = 0,
  kCannotRead = 1,  ///< a document was refused
  kUsage = 2,
  kCannotWrite = 3,   ///< a document cannot be written, or not as XML
  kOutputFailed = 4,  ///< the output cannot be written: the disk is full, the pipe closed
  kInternal = 5
};

/// Why a document was refused, or what is wrong with it.
struct Failure {
  /// What ztxml::Code calls it; of the tool's own "file", "capture", "tree", "skipped"; for a
  /// document that is read but faulty, "well-formedness", "namespaces", "required" or "value".
  const char* kind = "";
  std::string what;
  Position at = {};
  std::string path = {};  ///< of the element that is open there, or of what cannot be written
};

/// A whole document and what messages call it; or what else is told of a capture.
struct Document {
  enum class Kind {
    kText,
    kRefused,  ///< cannot be had from its message
    kSkipped,  ///< a message without a document
    kNoted     ///< something else that is worth a line
  };

  std::string name;
  std::string text;         ///< a NUL byte ends it, unless all bytes were asked for
  std::string contentType;  ///< lower case, "" when nothing tells
  Position start = {1, 1};  ///< of the text in its file
  bool cut = false;         ///< whether there is more, after a NUL byte
  Kind kind = Kind::kText;
  Failure fault = {};  ///< what is to be told, of all but a text
  Origin origin = {};  ///< of a message in a capture of packets
  Envelope message = {};

  bool IsDocument() const { return kind == Kind::kText || kind == Kind::kRefused; }
  /// The place of the byte `offset`.
  Position At(std::size_t offset) const {
    return PositionAfter(std::string_view(text).substr(0, offset), start);
  }
  /// The place in the file of a place in the text.
  Position At(std::size_t line, std::size_t column) const {
    return {start.line + line - 1, line == 1 ? start.column + column - 1 : column};
  }
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

/// What becomes of messages that have no document.
enum class Skipping {
  kTold,    ///< standard error tells of each
  kListed,  ///< each is among the documents, with what else is to be told
  kShown,   ///< likewise, also those in captures of packets and what is told of these
  kRefused  ///< each counts as a document that cannot be read
};

/// Adds what the file `path`, or standard input for "-", has: a document, several, or the XML
/// bodies of captured messages, also of those in a capture of packets; of "FILE#3" the third of
/// these, unless a file is called that. With `allBytes` NUL bytes,
/// which UTF-16 has, are bytes like others. False with the failure; what was added before is kept.
bool ReadDocuments(const std::string& path, bool allBytes, std::vector<Document>& documents,
                   Failure& failure, Skipping skipping = Skipping::kTold);
/// The one document that `path` has, all bytes of it or up to a NUL; false when it has none or
/// several, which was reported. `use` tells what can be done with one only: "compared".
bool ReadOneDocument(const std::string& path, bool allBytes, const char* use, Document& document);

/// The paths with the files that are in directories, at any depth, in their place, sorted by name.
std::vector<std::string> FilesIn(const std::vector<std::string>& paths);

#endif  // ZTXML_TOOLS_DOCUMENT_H
