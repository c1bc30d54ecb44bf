#include "Log.h"

#include <cstring>
#include <iostream>

#include "Text.h"

namespace {
constexpr int kErrors = 4;  // the level of the line about a document that was cut
constexpr char kDocumentCut[] = "document cut at ";
}  // namespace

Log::Log(int level) : m_Level(level) {
  zthost::SetLogSink(&Receive, this, level == 0 ? kErrors : level);
}

Log::~Log() { zthost::SetLogSink(nullptr); }

void Log::Forget() {
  m_bDocumentCut = false;
  m_FirstError.clear();
}

void Log::Receive(const zthost::LogLine& line, void* user) {
  auto* self = static_cast<Log*>(user);
  if (line.level == kErrors && std::strstr(line.text, kDocumentCut)) {
    self->m_bDocumentCut = true;
  } else if (line.level == kErrors && self->m_FirstError.empty()) {
    self->m_FirstError = line.text;
  }
  if (self->m_Level == 0) return;
  std::cout.flush();  // keeps the order when both streams go to one place
  std::cerr << "log " << line.level << ' ' << line.sourceFile << ':' << line.line << ": "
            << Escape(line.text) << '\n';
}
