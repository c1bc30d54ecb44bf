// The text of an error, written into the room that the error has.
#ifndef ZTXML_SRC_DRIVERS_ZTSENTENCE_H
#define ZTXML_SRC_DRIVERS_ZTSENTENCE_H

#include "base/ZtBytes.h"
#include "binding/ZtBinding.h"
#include "text/ZtEncoding.h"
#include "ztxml/error.h"

// Whether a character can be shown as it is: none that moves or hides others.
inline bool ZtIsShown(const char* at, std::size_t size) {
  const auto c = static_cast<unsigned char>(*at);
  if (size == 1) return c >= ' ' && c != 0x7F;
  const auto second = static_cast<unsigned char>(at[1]);
  if (size == 2) return c != 0xC2 || second >= 0xA0;
  const auto third = static_cast<unsigned char>(at[size - 1]);
  const bool isMark =
      (second == 0x80 && (third == 0x8E || third == 0x8F || (third >= 0xA8 && third <= 0xAE))) ||
      (second == 0x81 && third >= 0xA6 && third <= 0xA9);
  return size != 3 || c != 0xE2 || !isMark;
}

// The next character of what strangers sent, or a question mark for what cannot be shown.
inline ZtPiece ZtNextShown(const char*& at, const char* end) {
  const char* const from = at;
  const bool isCharacter = ZtPassCharacter(at, end);
  if (!isCharacter) at = from + 1;
  const auto size = static_cast<std::size_t>(at - from);
  return isCharacter && ZtIsShown(from, size) ? ZtPiece(from, size) : ZtPiece("?");
}

// Copies a text, which is no longer than its room, in that way.
inline void ZtCopyShown(const char* from, char* to) {
  const char* const end = from + __strlen(from);
  while (from < end) to = ZtCopy(to, ZtNextShown(from, end));
  *to = '\0';
}

// Writes the sentence into the error's room, and leaves out what goes beyond it.
class ZtSentence {
 public:
  ZtSentence(ztxml::Error& error, ztxml::Code code, ztxml::Stage stage) : m_Error(error) {
    error.code = code;
    error.stage = stage;
    error.line = error.column = error.otherLine = error.otherColumn = 0;
    error.path[0] = error.text[0] = '\0';
  }
  ~ZtSentence() { m_Error.text[m_iSize] = '\0'; }
  ZtSentence(const ZtSentence&) = delete;
  ZtSentence& operator=(const ZtSentence&) = delete;

  // The beginning: where, and the kind of the failure.
  ZtSentence& At(const ZtTextPlace& place) {
    m_Error.line = place.line;
    m_Error.column = place.column;
    return *this << place << ": ";
  }
  ZtSentence& In(const char* path) {
    const ZtPiece text = path;
    std::memcpy(m_Error.path, path, text.size + 1);
    if (text.size) *this << text << ": ";
    return *this;
  }
  ZtSentence& Begin() {
    *this << ztxml::NameOf(m_Error.code) << ": ";
    m_Error.sentence = static_cast<unsigned short>(m_iSize);
    return *this;
  }

  ZtSentence& operator<<(ZtPiece text) {
    const std::size_t room = ztxml::Error::kTextRoom - 1 - m_iSize;
    const std::size_t size = text.size < room ? text.size : room;
    if (size) std::memcpy(m_Error.text + m_iSize, text.text, size);
    m_iSize += size;
    return *this;
  }
  ZtSentence& operator<<(const char* text) { return *this << ZtPiece(text); }
  ZtSentence& operator<<(const ZtTextPlace& place) {
    return Number(place.line) << ":", Number(place.column);
  }
  // Where what it contradicts is.
  ZtSentence& Other(const ZtTextPlace& place) {
    m_Error.otherLine = place.line;
    m_Error.otherColumn = place.column;
    return *this << place;
  }
  // A name or another piece of what strangers sent: short, and in one line.
  ZtSentence& Quote(ZtPiece piece) {
    const char* at = piece.text;
    const char* const end = at + piece.size;
    while (at < end) {
      if (static_cast<std::size_t>(at - piece.text) >= kMostQuoted) return *this << "...";
      *this << ZtNextShown(at, end);
    }
    return *this;
  }

 private:
  static constexpr std::size_t kMostQuoted = 60;

  ZtSentence& Number(std::size_t number) {
    char buffer[kZtNumberSize];
    return *this << ZtFormatNumber(number, buffer);
  }

  ztxml::Error& m_Error;
  std::size_t m_iSize = 0;
};

#endif  // ZTXML_SRC_DRIVERS_ZTSENTENCE_H
