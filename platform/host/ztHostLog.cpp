// Module log of the Linux host platform: formats a line and hands it to a replaceable sink.
#include <climits>
#include <cstdio>
#include <string>

#include "ztxml/ztHostPlatform.h"

// Lines up to this level are discarded: without a sink all, so that one comparison decides.
int ztLogDiscardedUpTo = INT_MAX;

namespace {

zthost::LogSink g_sink = nullptr;
void* g_user = nullptr;

template <typename Number>
void AppendNumber(std::string* out, const char* format, Number number) {
  char buffer[32];
  const int length = std::snprintf(buffer, sizeof buffer, format, number);
  if (length > 0) out->append(buffer, static_cast<std::size_t>(length));
}

bool IsLongModifier(char c) {
  return c == 'l' || c == 'z' || c == 'j' || c == 't' || c == 'q' || c == 'L';
}

// Appends `argument` as `conversion` asks; false when the conversion is not known.
bool AppendArgument(std::string* out, char conversion, bool isLong, ztLogArgument argument) {
  switch (conversion) {
    case 'd':
    case 'i':
      AppendNumber(
          out, "%ld",
          isLong ? static_cast<long>(argument) : static_cast<long>(static_cast<int>(argument)));
      return true;
    case 'u':
    case 'x':
      AppendNumber(out, conversion == 'u' ? "%lu" : "%lx",
                   isLong ? static_cast<unsigned long>(argument)
                          : static_cast<unsigned long>(static_cast<unsigned>(argument)));
      return true;
    case 'p':
      AppendNumber(out, "0x%lx", static_cast<unsigned long>(argument));
      return true;
    case 'c':
      // A NUL would cut the line short for its reader.
      if (static_cast<char>(argument) != '\0') out->push_back(static_cast<char>(argument));
      return true;
    case 's':
      // The log's contract: an argument of %s is the address of a text.
      // NOLINTNEXTLINE(performance-no-int-to-ptr)
      out->append(argument == 0 ? "(null)" : reinterpret_cast<const char*>(argument));
      return true;
    default:
      return false;
  }
}

// Formats the conversions that module log lines use; printf cannot take arguments that all have one
// type. Anything else, and a conversion without an argument left, is copied.
std::string Format(const char* format, const ztLogArgument (&arguments)[3]) {
  std::string out;
  std::size_t used = 0;
  for (const char* at = format; *at != '\0'; ++at) {
    if (*at != '%') {
      out.push_back(*at);
      continue;
    }
    if (at[1] == '%') {
      out.push_back('%');
      ++at;
      continue;
    }
    const char* conversion = at + 1;
    bool isLong = false;
    while (*conversion == 'h' || IsLongModifier(*conversion)) {
      isLong = isLong || *conversion != 'h';
      ++conversion;
    }
    if (used < 3 && AppendArgument(&out, *conversion, isLong, arguments[used])) {
      ++used;
      at = conversion;
    } else {
      out.push_back('%');
    }
  }
  return out;
}

}  // namespace

void zthost::SetLogSink(LogSink sink, void* user, int minLevel) {
  g_sink = sink;
  g_user = user;
  ztLogDiscardedUpTo = sink == nullptr ? INT_MAX : minLevel == INT_MIN ? INT_MIN : minLevel - 1;
}

void ztLogModuleEventSimple(int level, int moduleId, const char* sourceFile, int line,
                            const char* format, ztLogArgument a, ztLogArgument b, ztLogArgument c) {
  if (level <= ztLogDiscardedUpTo) return;
  const std::string text = Format(format == nullptr ? "(null)" : format, {a, b, c});
  g_sink({level, moduleId, sourceFile == nullptr ? "" : sourceFile, line, text.c_str()}, g_user);
}
