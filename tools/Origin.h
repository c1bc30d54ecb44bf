// When and between whom a message was captured, where a capture of packets tells; and which one it
// is.
#ifndef ZTXML_TOOLS_ORIGIN_H
#define ZTXML_TOOLS_ORIGIN_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>

/// Since the beginning of 1970, in UTC.
struct Time {
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;  ///< less than a second

  bool operator<(const Time& other) const {
    return std::tie(seconds, nanoseconds) < std::tie(other.seconds, other.nanoseconds);
  }
};

struct Origin {
  Time time;         ///< when the message began to arrive, after all before it
  std::string from;  ///< "192.0.2.1:5060" or "[2001:db8::1]:5060"; "" when nothing tells
  std::string to;

  bool IsKnown() const { return !from.empty(); }
};

/// The message that something was found in.
struct Envelope {
  static constexpr std::size_t kMost = 512;  ///< bytes that are kept of each text

  std::size_t number = 0;  ///< in its file, from 1; 0 for what is in no message
  std::string startLine;   ///< with what a log has before it, cut when it is long; "" for none
  std::string callId;      ///< likewise
};

#endif  // ZTXML_TOOLS_ORIGIN_H
