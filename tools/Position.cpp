#include "Position.h"

#include <algorithm>

#include "base/ZtBytes.h"

namespace {

std::size_t CountLineBreaks(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  std::size_t count = 0;
  while (ZtHasBlock(at, end)) {
    ZtBlock counts{};  // of each of the bytes, as far as one byte counts
    for (int i = 0; i < 255 && ZtHasBlock(at, end); ++i, at += sizeof(ZtBlock)) {
      counts -= ZtMatches(ZtGet<ZtBlock>(at), '\n');
    }
    for (std::size_t i = 0; i < sizeof(ZtBlock); ++i) count += counts[i];
  }
  return count + static_cast<std::size_t>(std::count(at, end, '\n'));
}

}  // namespace

Position PositionAfter(std::string_view passed, Position start) {
  const std::size_t last = passed.rfind('\n');
  if (last != std::string_view::npos) {
    start.line += CountLineBreaks(passed);
    start.column = 1;
    passed.remove_prefix(last + 1);
  }
  for (const char c : passed) start.column += (static_cast<unsigned char>(c) & 0xc0) != 0x80;
  return start;
}

std::string ToString(Position position) {
  return std::to_string(position.line) + ':' + std::to_string(position.column);
}
