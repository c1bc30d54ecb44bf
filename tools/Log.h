// What the tool needs of the library's log.
#ifndef ZTXML_TOOLS_LOG_H
#define ZTXML_TOOLS_LOG_H

#include <string>

#include "ztxml/ztHostPlatform.h"

/// Receives the library's log while it lives, on any thread; what it tells is of the thread that
/// asks. Only one may live at a time.
class Log {
 public:
  /// Prints the lines of `level` (1 to 4) and above on standard error; 0 prints none.
  explicit Log(int level);
  ~Log();
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;

  /// Whether the library has cut a document that was too long for it to write.
  bool DocumentCut() const;
  /// The first error since Forget: what an element lacks that was written. "" for none.
  const std::string& FirstError() const;
  void Forget();

 private:
  static void Receive(const zthost::LogLine& line, void* user);

  const int m_Level;
};

#endif  // ZTXML_TOOLS_LOG_H
