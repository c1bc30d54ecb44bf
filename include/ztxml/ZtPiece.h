// A text with its size.
#ifndef ZTXML_INCLUDE_ZTPIECE_H
#define ZTXML_INCLUDE_ZTPIECE_H

#include <cstddef>
#include <cstring>

/// A text with its size; the size of a null text is 0.
struct ZtPiece {
  const char* text;  ///< borrowed
  std::size_t size;  ///< in bytes

  /// With a known size, or measured by the NUL at the end.
  constexpr ZtPiece(const char* t, std::size_t s) : text(t), size(s) {}
  ZtPiece(const char* t)  // NOLINT(google-explicit-constructor)
      : text(t), size(t ? std::strlen(t) : 0) {}
};

/// How many bytes may be read after a text that is padded, whatever they are: a block.
constexpr std::size_t kZtPadding = 16;

/// A text of which whole blocks of kZtPadding bytes may be read, beyond its end, too: it lies in a
/// table or in a padded text.
struct ZtPaddedPiece : ZtPiece {
  using ZtPiece::ZtPiece;
};

#endif  // ZTXML_INCLUDE_ZTPIECE_H
