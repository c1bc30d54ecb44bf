// Places in files, as messages tell them.
#ifndef ZTXML_TOOLS_POSITION_H
#define ZTXML_TOOLS_POSITION_H

#include <cstddef>
#include <string>
#include <string_view>

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

#endif  // ZTXML_TOOLS_POSITION_H
