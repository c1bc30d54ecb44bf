#include "Log.h"

#include <cstring>

#include "Output.h"
#include "Text.h"

namespace {
constexpr int kErrors = 4;  // the level of the line about a document that was cut
constexpr char kDocumentCut[] = "document cut at ";

// What the calling thread was told of the document that it works on.
struct Told {
  bool isDocumentCut = false;
  std::string firstError;
};
thread_local Told t_Told;
}  // namespace

Log::Log(int level) : m_Level(level) {
  zthost::SetLogSink(&Receive, this, level == 0 ? kErrors : level);
}

Log::~Log() { zthost::SetLogSink(nullptr); }

bool Log::DocumentCut() const { return t_Told.isDocumentCut; }
const std::string& Log::FirstError() const { return t_Told.firstError; }
void Log::Forget() { t_Told = {}; }

void Log::Receive(const zthost::LogLine& line, void* user) {
  const auto* self = static_cast<const Log*>(user);
  if (line.level == kErrors && std::strstr(line.text, kDocumentCut)) {
    t_Told.isDocumentCut = true;
  } else if (line.level == kErrors && t_Told.firstError.empty()) {
    t_Told.firstError = line.text;
  }
  if (self->m_Level == 0) return;
  Out().flush();  // keeps the order when both streams go to one place
  Err() << "log " << line.level << ' ' << line.sourceFile << ':' << line.line << ": "
        << Escape(line.text) << '\n';
}
