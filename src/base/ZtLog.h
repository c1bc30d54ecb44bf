// One log line, typed: the only way the library calls the platform's module log.
#ifndef ZTXML_SRC_BASE_ZTLOG_H
#define ZTXML_SRC_BASE_ZTLOG_H

#include <type_traits>

#include "ztxml/ztPlatform.h"

enum ZtLogModule : int { kZtModuleLibrary = 6070, kZtModuleParser = 6053 };

enum ZtLogLevel : int {
  kZtLogOptional = 1,  // optional items that are absent
  kZtLogTrace = 2,     // trace lines and most failures
  kZtLogState = 3,     // marshal entry, state changes, minor faults
  kZtLogError = 4,     // missing mandatory items, failed copies
};

// Whether the platform says that it discards lines of this level.
inline bool ZtLogDiscards(int level) { return &ztLogDiscardedUpTo && level <= ztLogDiscardedUpTo; }

// Usage: ZtLog(kZtLogTrace, "src/XMLReginfo")("text %s", name). The line number is that of the
// call, unless log readers know another one. Document text is always an argument, never the format.
// Intended: some log lines and recorded objects have fixed line numbers, which are not those of
// their sources; readers of the log and of the memory log search for them by number.
class ZtLog {
 public:
  constexpr ZtLog(int level, const char* source, int line = __builtin_LINE(),
                  int module = kZtModuleLibrary)
      : m_Level(level), m_Module(module), m_Line(line), m_pSource(source) {}

  // Lines that the platform would discard are not even passed to it.
  template <class A = int, class B = int, class C = int>
  void operator()(const char* format, A a = A(), B b = B(), C c = C()) const {
    if (ZtLogDiscards(m_Level)) return;
    ztLogModuleEventSimple(m_Level, m_Module, m_pSource, m_Line, format, Argument(a), Argument(b),
                           Argument(c));
  }

 private:
  static ztLogArgument Argument(const char* text) {
    return reinterpret_cast<ztLogArgument>(text ? text : "(null)");
  }
  template <class Number>
  static std::enable_if_t<std::is_integral_v<Number>, ztLogArgument> Argument(Number number) {
    return static_cast<ztLogArgument>(number);
  }

  int m_Level;
  int m_Module;
  int m_Line;
  const char* m_pSource;
};

#endif  // ZTXML_SRC_BASE_ZTLOG_H
