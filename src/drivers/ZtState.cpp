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

void Refuse(ztxml::Error& error, ztxml::Code code, const char* why) {
  ZtExplain(error, code, ztxml::Stage::kBinding, why, "");
}

}  // namespace

const char* ztxml::NameOf(Merged::Reason reason) {
  constexpr const char* kWords[] = {"",
                                    "it is older than the state",
                                    "its version was there already",
                                    "it is of another resource",
                                    "notifications before it were missed",
                                    "it is partial, and there was no full one",
                                    "what it tells of is no more"};
  return kWords[static_cast<int>(reason)];
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
  const ZtField& state = *ZtFindAttribute(type, type.extras->telling->state);
  if (ZtIsRequired(state) && !ZtHeld(fresh, state).stated) {
    Refuse(error, ztxml::Code::kMissingValue, "it does not say whether it is full or partial");
    return false;
  }
  using Told = ZtMerger::Told;
  const Told told = ZtMerger::ToldOf(fresh, type);
  const bool isPart = told == Told::kPart;
  const unsigned long long last = m_pRoot ? VersionOf(*m_pRoot, type).number : 0;
  const bool hasKey = !type.extras->telling->key.IsNone();
  if (!m_pRoot) {
    if (isPart) merged.reason = Reason::kNoFull;
  } else if (hasKey && !ZtEqual(ZtKeyOf(*m_pRoot, type), ZtKeyOf(fresh, type))) {
    merged.reason = Reason::kOther;
    return false;
  } else if (version.number <= last) {
    merged.reason = version.number < last ? Reason::kOld : Reason::kRepeated;
    return false;
  } else if (isPart && ZtMerger::ToldOf(*m_pRoot, type) == Told::kDeleted) {
    merged.reason = Reason::kDeleted;
  } else if (isPart && version.number > last + 1) {
    merged.reason = Reason::kGap;
  }
  const bool isTaken = merged.reason == Reason::kNone ||
                       (merged.reason == Reason::kGap && type.extras->telling->bridges);
  if (told == Told::kDeleted) merged.reason = Reason::kDeleted;
  merged.outcome =
      merged.reason == Reason::kNone ? Merged::Outcome::kApplied : Merged::Outcome::kRefresh;
  return isTaken;
}

bool ZtState::Take(XMLElement* notification, Merged& merged, ztxml::Error& error) {
  merged = Merged();
  error = ztxml::Error();
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
  switch (merger.Take(m_pRoot, m_pLast, type)) {
    case ZtMerger::Result::kNoMemory:
      ZtExplainNoMemory(error, ztxml::Stage::kBinding);
      break;
    case ZtMerger::Result::kRefused:
      Refuse(error, ztxml::Code::kRefused,
             "too many elements are within each other, or one is of another class");
      break;
    case ZtMerger::Result::kDone:
      merged.isApplied = true;
      return true;
  }
  return false;
}
