#include "ztxml/ZtState.h"

#include "binding/ZtDocumentTable.h"
#include "drivers/ZtExplain.h"
#include "drivers/ZtMerger.h"

using ztxml::Merged;

struct ZtState::Parts : ZtHeapObject {
  ZtMerger merger;
};

namespace {

const ZtElementType& RootType(const ZtDocument& document) {
  return ZtStandardOf(*document.roots.begin()->type);
}

ZtStated VersionOf(const XMLElement& root, const ZtElementType& type) {
  return ZtHeld(root, *ZtFindAttribute(type, type.extras->telling->version));
}

void Refuse(ztxml::Error& error, ztxml::Code code, const char* why, const char* path = "") {
  ZtExplain(error, code, ztxml::Stage::kBinding, why, path);
}

}  // namespace

const char* ztxml::NameOf(Merged::Reason reason) {
  switch (reason) {
    case Merged::Reason::kNone:
      return "";
    case Merged::Reason::kOld:
      return "it is older than the state";
    case Merged::Reason::kRepeated:
      return "its version was there already";
    case Merged::Reason::kOther:
      return "it is of another resource";
    case Merged::Reason::kGap:
      return "notifications before it were missed";
    case Merged::Reason::kNoFull:
      return "it is partial, and there was no full one";
    case Merged::Reason::kDeleted:
      return "what it tells of is no more";
  }
  return "";
}

ZtState::~ZtState() {
  Reset();
  delete m_pParts;
}

void ZtState::Reset() {
  ZtRelease(m_pLast);
  ZtRelease(m_pRoot);
  m_pLast = m_pRoot = nullptr;
  if (m_pParts) m_pParts->merger.Forget();
}

unsigned ZtState::ChangeCount() const { return m_pParts ? m_pParts->merger.ChangeCount() : 0; }

ztxml::Change ZtState::ChangeAt(unsigned index) const { return m_pParts->merger.ChangeAt(index); }

// Whether a notification is to be taken, by its version and by what it tells of. False also when it
// cannot be taken, with the error.
bool ZtState::Fit(const XMLElement& fresh, Merged& merged, ztxml::Error& error) const {
  using Reason = Merged::Reason;
  const ZtElementType& type = RootType(m_Document);
  const ZtStated version = VersionOf(fresh, type);
  if (!version.stated) {
    Refuse(error, ztxml::Code::kMissingValue, "a notification without a version");
    return false;
  }
  const bool isPart = ZtMerger::ToldOf(fresh, type) == ZtMerger::Told::kPart;
  if (!m_pRoot) {
    if (isPart) merged = {Merged::Outcome::kRefresh, Reason::kNoFull, false};
    return !isPart;
  }
  const unsigned long long last = VersionOf(*m_pRoot, type).number;
  const bool hasKey = !type.extras->telling->key.IsNone();
  if (hasKey && !ZtEqual(ZtKeyOf(*m_pRoot, type), ZtKeyOf(fresh, type))) {
    merged.reason = Reason::kOther;
  } else if (version.number <= last) {
    merged.reason = version.number < last ? Reason::kOld : Reason::kRepeated;
  } else if (isPart && ZtMerger::ToldOf(*m_pRoot, type) == ZtMerger::Told::kDeleted) {
    merged = {Merged::Outcome::kRefresh, Reason::kDeleted, false};
  } else {
    const bool isGap = isPart && version.number > last + 1;
    if (isGap) merged = {Merged::Outcome::kRefresh, Reason::kGap, false};
    return !isGap || type.extras->telling->bridges;
  }
  return false;
}

bool ZtState::Take(XMLElement* notification, Merged& merged, ztxml::Error& error) {
  merged = Merged();
  ZtRelease(m_pLast);
  m_pLast = notification;
  if (m_pParts) m_pParts->merger.ForgetChanges();
  const ZtElementType& type = RootType(m_Document);
  if (!notification || !ZtIsClass(notification->ClassName(), type) || !type.extras->telling) {
    Refuse(error, ztxml::Code::kWrongRoot, "it is no notification of this kind");
    return false;
  }
  if (!m_pParts) m_pParts = new Parts;
  if (!m_pParts) {
    ZtExplainNoMemory(error, ztxml::Stage::kBinding);
    return false;
  }
  ZtMerger& merger = m_pParts->merger;
  if (!Fit(*notification, merged, error)) return error.code == ztxml::Code::kNone;
  const bool isDeleted = ZtMerger::ToldOf(*notification, type) == ZtMerger::Told::kDeleted;
  switch (merger.Take(m_pRoot, m_pLast, type)) {
    case ZtMerger::Result::kNoMemory:
      ZtExplainNoMemory(error, ztxml::Stage::kBinding);
      return false;
    case ZtMerger::Result::kRefused:
      Refuse(error, ztxml::Code::kRefused,
             "too many elements are within each other, or one is of another class");
      return false;
    case ZtMerger::Result::kDone:
      break;
  }
  merged.isApplied = true;
  if (isDeleted) {
    merged.outcome = Merged::Outcome::kRefresh;
    merged.reason = Merged::Reason::kDeleted;
  } else if (merged.outcome == Merged::Outcome::kIgnored) {
    merged.outcome = Merged::Outcome::kApplied;
  }
  return true;
}
