// Why a document was not read, written or updated.
#ifndef ZTXML_INCLUDE_ERROR_H
#define ZTXML_INCLUDE_ERROR_H

#include <cstddef>
#include <cstring>

#include "ztxml/ZtExport.h"

namespace ztxml {

/// What kind of failure it was.
enum class Code : unsigned char {
  kNone,          ///< none
  kNoMemory,      ///< memory was lacking; another try may succeed
  kMalformed,     ///< the text is no XML, or none with namespaces
  kIncomplete,    ///< the text ends too early
  kEncoding,      ///< its bytes are in no encoding that is read, or in another than it says
  kWrongRoot,     ///< the root is none of this document
  kRefused,       ///< what was given is not taken in this profile, or at all
  kMissingValue,  ///< the tree lacks a value without which it cannot be written
  kTooLong        ///< the text would be, or is, longer than the limit
};
/// What it is called in `Error::Text`, e.g. "malformed"; static.
ZT_API const char* NameOf(Code code);

/// What was being done when it failed.
enum class Stage : unsigned char {
  kNone,      ///< nothing failed
  kDecoding,  ///< bytes became characters
  kParsing,   ///< characters became tags and texts
  kBinding,   ///< tags and texts became objects
  kWriting,   ///< a tree became a text
  kUpdating   ///< the document that a tree was read from was changed
};

/// A failure, in a room of its own: nothing is allocated for it.
struct Error {
  static constexpr std::size_t kPathRoom = 504;  ///< of the path, with a NUL
  static constexpr std::size_t kTextRoom = 800;  ///< of the text, with a NUL

  /// No failure.
  Error() { path[0] = text[0] = '\0'; }
  /// Copies what is in the rooms, not the rooms.
  Error(const Error& other) { *this = other; }
  Error& operator=(const Error& other) {
    if (this == &other) return *this;
    code = other.code;
    stage = other.stage;
    line = other.line;
    column = other.column;
    otherLine = other.otherLine;
    otherColumn = other.otherColumn;
    sentence = other.sentence;
    std::memcpy(path, other.path, std::strlen(other.path) + 1);
    std::memcpy(text, other.text, std::strlen(other.text) + 1);
    return *this;
  }

  /// All there is to say, in one line: "6:1: malformed: the end tag </x> where </reginfo> is
  /// expected (opened at 5:1)", "/reginfo/@state: missing value: the element cannot be written
  /// without it". Empty when nothing failed.
  const char* Text() const { return text; }
  /// The end of that line: what is wrong, without place and code.
  const char* Sentence() const { return text + sentence; }

  Code code = Code::kNone;     ///< what kind of failure
  Stage stage = Stage::kNone;  ///< what was being done
  /// Where in the text that was read, both from 1 on, columns in characters; 0 when the failure has
  /// no place there.
  std::size_t line = 0;
  std::size_t column = 0;
  /// Where what it contradicts is: the start tag of an end tag, the first of two attributes; else
  /// 0.
  std::size_t otherLine = 0;
  std::size_t otherColumn = 0;
  /// The element that is open there, or what in the tree cannot be written, e.g.
  /// "/reginfo/registration[2]/@aor"; empty when there is none. A long one ends with "...".
  char path[kPathRoom];
  /// Text and Sentence.
  char text[kTextRoom];
  unsigned short sentence = 0;  ///< where the sentence begins in the text
};

}  // namespace ztxml

#endif  // ZTXML_INCLUDE_ERROR_H
