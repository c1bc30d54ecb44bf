// The state that results from notifications: registration information (RFC 3680), conference
// information (RFC 4575) and resource list meta-information (RFC 4662).
#ifndef ZTXML_INCLUDE_ZTSTATE_H
#define ZTXML_INCLUDE_ZTSTATE_H

#include "ztxml/XMLElement.h"
#include "ztxml/error.h"

struct ZtDocument;

namespace ztxml {

/// What became of a notification.
struct Merged {
  /// What is to be done about it.
  enum class Outcome : unsigned char {
    kApplied,  ///< it is part of the state
    kIgnored,  ///< it tells nothing new, or of something else
    kRefresh   ///< something is missing or over: ask for a full notification; see `isApplied`
  };
  /// Why it is not simply applied.
  enum class Reason : unsigned char {
    kNone,
    kOld,       ///< its version is lower than that of the state
    kRepeated,  ///< its version is that of the state
    kOther,     ///< it is of another resource, by the root's key
    kGap,       ///< notifications before it were missed
    kNoFull,    ///< it is partial, and there was no full one yet
    kDeleted    ///< what it tells of is no more
  };

  Outcome outcome = Outcome::kIgnored;  ///< what is to be done
  Reason reason = Reason::kNone;        ///< and why
  bool isApplied = false;               ///< whether the state is that of the notification now
};
/// In words, e.g. "a notification was missed"; static, empty for kNone.
ZT_API const char* NameOf(Merged::Reason reason);

/// Something that a notification changed.
struct Change {
  /// What became of the object.
  enum class Kind : unsigned char { kAdded, kChanged, kRemoved };

  Kind kind;  ///< what became of it
  /// Where it is, with the key of what occurs several times:
  /// "/conference-info/users/user[sip:ada@example.com]/endpoint[sip:ada@192.0.2.1]". Borrowed, as
  /// the object is, until the next notification.
  const char* path;
  XMLElement* object;  ///< as it is now, or was before it was removed
};

}  // namespace ztxml

/// The state of one subscription. It takes notifications one after another.
class ZT_API ZtState : public ZtNonCopyable {
 public:
  /// `document` is one of the three: ReginfoContext::kDocument, ConferenceInfoContext's,
  /// ListContext's.
  explicit ZtState(const ZtDocument& document) : m_Document(document) {}
  ~ZtState();
  /// Takes `notification`, a root that was read in the standard profile, whatever becomes of it.
  /// False, with the state as it was and why in `error`, when it cannot be merged: memory is
  /// lacking, it has no version, or it has too many elements within each other. The cost grows with
  /// the notification, not with the state.
  bool Take(XMLElement* notification, ztxml::Merged& merged, ztxml::Error& error);
  /// Forgets all, for a new subscription.
  void Reset();
  /// What is known: a full document, or what told that there is nothing more; null before the first
  /// full notification. It is the state's, and not to be changed.
  XMLElement* Root() const { return m_pRoot; }
  /// What the last notification changed.
  unsigned ChangeCount() const;
  ztxml::Change ChangeAt(unsigned index) const;

 private:
  struct Parts;

  ZT_LOCAL bool Fit(const XMLElement& notification, ztxml::Merged& merged,
                    ztxml::Error& error) const;

  const ZtDocument& m_Document;
  XMLElement* m_pRoot = nullptr;
  XMLElement* m_pLast = nullptr;  // what the last notification replaced
  Parts* m_pParts = nullptr;
};

#endif  // ZTXML_INCLUDE_ZTSTATE_H
