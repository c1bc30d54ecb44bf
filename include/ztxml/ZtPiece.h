// A text with its size.
#ifndef ZTXML_INCLUDE_ZTPIECE_H
#define ZTXML_INCLUDE_ZTPIECE_H

#include <cstddef>
#include <cstring>

/// A text, borrowed, with its size in bytes; null has none.
struct ZtPiece {
  const char* text;  ///< borrowed
  std::size_t size;  ///< in bytes

  /// Of a size that is known, or of a text that ends with a NUL.
  constexpr ZtPiece(const char* t, std::size_t s) : text(t), size(s) {}
  ZtPiece(const char* t)  // NOLINT(google-explicit-constructor)
      : text(t), size(t ? std::strlen(t) : 0) {}
};

/// A text of which whole blocks of 16 bytes may be read, beyond its end, too: it lies in a table.
struct ZtPaddedPiece : ZtPiece {
  using ZtPiece::ZtPiece;
};

#endif  // ZTXML_INCLUDE_ZTPIECE_H
