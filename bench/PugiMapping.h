// Registration and conference information as plain structs, read with pugixml and written with it:
// what a careful engineer writes by hand for speed where the library is not used. The structs keep
// what the library's objects keep.
#ifndef ZTXML_BENCH_PUGIMAPPING_H
#define ZTXML_BENCH_PUGIMAPPING_H

#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <utility>
#include <vector>

namespace mapping {

using Text = std::optional<std::string>;

// ---- Registration information -------------------------------------------------------------------

struct Reginfo {
  enum class State : std::uint8_t { kFull, kPartial, kAbsent };
  enum class RegistrationState : std::uint8_t { kInit, kActive, kTerminated, kAbsent };
  enum class ContactState : std::uint8_t { kActive, kTerminated, kAbsent };
  enum class Event : std::uint8_t {
    kRegistered,
    kCreated,
    kRefreshed,
    kShortened,
    kExpired,
    kDeactivated,
    kProbation,
    kUnregistered,
    kRejected,
    kAbsent
  };

  struct UnknownParam {
    Text name;
    Text value;
  };
  struct Gruu {
    Text uri;
    unsigned firstCseq = 0;
    bool temporary = false;
  };
  struct Contact {
    Text id;
    Text uri;
    Text displayName;
    Text q;
    Text callid;
    std::vector<UnknownParam> unknownParams;
    std::vector<Gruu> gruus;
    std::uint64_t durationRegistered = 0;
    std::uint64_t expires = 0;
    std::uint64_t retryAfter = 0;
    std::uint64_t cseq = 0;
    ContactState state = ContactState::kAbsent;
    Event event = Event::kAbsent;
  };
  struct Registration {
    Text aor;
    Text id;
    std::vector<Contact> contacts;
    RegistrationState state = RegistrationState::kAbsent;
  };

  std::vector<Registration> registrations;
  unsigned version = 0;
  State state = State::kAbsent;
};

// ---- Conference information ---------------------------------------------------------------------

namespace conference {

enum class State : std::uint8_t { kFull, kPartial, kDeleted, kAbsent };
enum class Status : std::uint8_t {
  kPending,
  kDialingOut,
  kDialingIn,
  kAlerting,
  kOnHold,
  kConnected,
  kMutedViaFocus,
  kDisconnecting,
  kDisconnected,
  kAbsent
};
enum class Joining : std::uint8_t { kDialedIn, kDialedOut, kFocusOwner, kAbsent };
enum class Disconnection : std::uint8_t { kDeparted, kBooted, kFailed, kBusy, kAbsent };
enum class Direction : std::uint8_t { kRecvonly, kSendonly, kSendrecv, kInactive, kAbsent };

/// Attributes that the type does not know.
struct Extensible {
  std::vector<std::pair<std::string, std::string>> others;
};
struct Execution : Extensible {
  Text when;
  Text reason;
  Text by;
};
struct Uri : Extensible {
  Text uri;
  Text displayText;
  Text purpose;
  std::optional<Execution> modified;
};
struct Uris : Extensible {
  std::vector<Uri> entries;
  State state = State::kAbsent;
};
struct Words : Extensible {
  std::vector<std::string> words;
};
struct Medium : Extensible {
  Text label;
  Text displayText;
  Text type;
  Direction status = Direction::kAbsent;
};
struct AvailableMedia : Extensible {
  std::vector<Medium> entries;
};
struct Description : Extensible {
  Text displayText;
  Text subject;
  Text freeText;
  std::optional<Words> keywords;
  std::optional<Uris> confUris;
  std::optional<Uris> serviceUris;
  std::optional<AvailableMedia> availableMedia;
  unsigned maximumUserCount = 0;
};
struct Host : Extensible {
  Text displayText;
  Text webPage;
  std::optional<Uris> uris;
};
struct Condition : Extensible {
  unsigned userCount = 0;
  bool active = false;
  bool locked = false;
};
struct Sip : Extensible {
  Text displayText;
  Text callId;
  Text fromTag;
  Text toTag;
};
struct Call : Extensible {
  std::optional<Sip> sip;
};
struct Media : Extensible {
  Text id;
  Text displayText;
  Text type;
  Text label;
  Text srcId;
  Direction status = Direction::kAbsent;
};
struct Endpoint : Extensible {
  Text entity;
  Text displayText;
  std::optional<Execution> referred;
  std::optional<Execution> joiningInfo;
  std::optional<Execution> disconnectionInfo;
  std::vector<Media> media;
  std::optional<Call> callInfo;
  State state = State::kAbsent;
  Status status = Status::kAbsent;
  Joining joiningMethod = Joining::kAbsent;
  Disconnection disconnectionMethod = Disconnection::kAbsent;
};
struct Roles : Extensible {
  std::vector<std::string> entries;
};
struct User : Extensible {
  Text entity;
  Text displayText;
  Text cascadedFocus;
  std::optional<Uris> associatedAors;
  std::optional<Roles> roles;
  std::optional<Words> languages;
  std::vector<Endpoint> endpoints;
  State state = State::kAbsent;
};
struct Users : Extensible {
  std::vector<User> users;
  State state = State::kAbsent;
};
struct Root;
struct Sidebars : Extensible {
  std::vector<Root> entries;
  State state = State::kAbsent;
};
struct Root : Extensible {
  Text entity;
  std::optional<Description> description;
  std::optional<Host> host;
  std::optional<Condition> condition;
  std::optional<Users> users;
  std::optional<Uris> sidebarsByRef;
  std::optional<Sidebars> sidebarsByVal;
  unsigned version = 0;
  State state = State::kAbsent;
};

}  // namespace conference

struct Conference {
  conference::Root root;
};

// ---- What can be done with both -----------------------------------------------------------------

/// Reads `text`, of which `*buffer` becomes the copy that the parser changes. False when it is no
/// such document.
bool Read(const std::string& text, std::string* buffer, Reginfo* out);
bool Read(const std::string& text, std::string* buffer, Conference* out);

/// Makes the document tree that pugixml writes.
void Build(const Reginfo& in, pugi::xml_document* out);
void Build(const Conference& in, pugi::xml_document* out);

}  // namespace mapping

#endif  // ZTXML_BENCH_PUGIMAPPING_H
