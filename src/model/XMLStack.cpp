#include "ztxml/XMLStack.h"

#include "base/ZtLog.h"

namespace {
constexpr char kSource[] = "src/XMLStack";
// Intended: the log texts of the stack end with a line break, unlike all others; log readers search
// for them as they are.
constexpr int kPushLine = 15;
constexpr int kPopLine = 29;
constexpr int kTopLine = 41;
}  // namespace

void XmlCodeGenStack::Refuse() { ZtLog(kZtLogTrace, kSource, kPushLine)("stack overflow\n"); }

void XmlCodeGenStack::NothingToPop() { ZtLog(kZtLogTrace, kSource, kPopLine)("stack underflow\n"); }

void* XmlCodeGenStack::NoTop() {
  ZtLog(kZtLogTrace, kSource, kTopLine)("stack is empty\n");
  return nullptr;
}
