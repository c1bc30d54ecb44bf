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

void XmlCodeGenStack::push(void* p) {
  if (m_iTop == kCapacity - 1) {
    ZtLog(kZtLogTrace, kSource, kPushLine)("stack overflow\n");
    return;
  }
  m_pEntries[++m_iTop] = p;
}

void XmlCodeGenStack::pop() {
  if (m_iTop == -1) {
    ZtLog(kZtLogTrace, kSource, kPopLine)("stack underflow\n");
    return;
  }
  --m_iTop;
}

void* XmlCodeGenStack::top() const {
  if (m_iTop == -1) {
    ZtLog(kZtLogTrace, kSource, kTopLine)("stack is empty\n");
    return nullptr;
  }
  return m_pEntries[m_iTop];
}
