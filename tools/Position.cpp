#include "Position.h"

#include <algorithm>

Position PositionAfter(std::string_view passed, Position start) {
  const std::size_t last = passed.rfind('\n');
  if (last != std::string_view::npos) {
    start.line += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
    start.column = 1;
    passed.remove_prefix(last + 1);
  }
  for (const char c : passed) start.column += (static_cast<unsigned char>(c) & 0xc0) != 0x80;
  return start;
}

std::string ToString(Position position) {
  return std::to_string(position.line) + ':' + std::to_string(position.column);
}
