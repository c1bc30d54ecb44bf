// The state that results from notifications, in the C++ interface:
//
//     ztxml::State<zt_conference_type> conference;
//     for (const std::string& body : notifications) {
//       auto merged = conference.Apply(body);
//       if (!merged) return Log(merged.error().Text());
//       if (merged->reason == ztxml::Merged::Reason::kDeleted) return Leave();
//       if (merged->outcome == ztxml::Merged::Outcome::kRefresh) SubscribeAgain();
//       for (const ztxml::Change& change : conference.Changes()) Show(change.path);
//     }
#ifndef ZTXML_INCLUDE_STATE_H
#define ZTXML_INCLUDE_STATE_H

#include "ztxml/ZtState.h"
#include "ztxml/conference_info.h"
#include "ztxml/document.h"
#include "ztxml/list.h"
#include "ztxml/reginfo.h"

namespace ztxml {

/// The state of one subscription: T is zt_reginfo (RFC 3680), zt_conference_type (RFC 4575) or
/// zt_list (RFC 4662). To be used by one thread at a time.
template <class T>
class State {
 public:
  State() : m_State(RootOf<T>::Table()) {
    static_assert(std::is_same_v<T, zt_reginfo> || std::is_same_v<T, zt_conference_type> ||
                      std::is_same_v<T, zt_list>,
                  "notifications of T do not come in parts");
  }

  /// Takes a notification's body. What became of it; or why it could not be read or merged, and
  /// then the state is as it was.
  Result<Merged> Apply(std::string_view body) {
    auto read = Read<T>(body, ReadOnly());
    if (read) return Apply(std::move(*read));
    Merged merged;
    Error none;
    m_State.Take(nullptr, merged, none);  // what was changed before is not told again
    return read.error();
  }
  /// Takes one that was read in the standard profile.
  Result<Merged> Apply(Document<T> notification) {
    Merged merged;
    Error error;
    if (!m_State.Take(notification.Release(), merged, error)) return error;
    return merged;
  }
  /// What the last notification changed; none where it was not applied. Paths and objects live
  /// until the next one.
  std::vector<Change> Changes() const {
    std::vector<Change> changes;
    changes.reserve(m_State.ChangeCount());
    for (unsigned i = 0; i < m_State.ChangeCount(); ++i) changes.push_back(m_State.ChangeAt(i));
    return changes;
  }

  /// Whether there was a full notification; only then may the state be asked for.
  explicit operator bool() const { return get() != nullptr; }
  const T& operator*() const { return *get(); }
  const T* operator->() const { return get(); }
  const T* get() const { return static_cast<const T*>(m_State.Root()); }
  /// The state as a full document in the standard profile.
  Result<std::string> Write() const {
    Error error;
    std::size_t size = 0;
    char* const text = ZtWriteDocument(RootOf<T>::Table(), StandardSettings(), m_State.Root(),
                                       nullptr, size, error);
    if (!text) return error;
    std::string written(text, size);
    ZtFreeText(text);
    return written;
  }
  /// Forgets all, for a new subscription.
  void Reset() { m_State.Reset(); }

 private:
  static ZtSettings StandardSettings() {
    ZtSettings settings;
    settings.profile = XML_PROFILE_STANDARD;
    return settings;
  }

  ZtState m_State;
};

}  // namespace ztxml

#endif  // ZTXML_INCLUDE_STATE_H
