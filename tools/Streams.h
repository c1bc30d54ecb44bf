// The messages of SIP and HTTP in TCP connections, whose segments come in any order, twice, or not
// at all (RFC 9293; RFC 3261, 18.3; RFC 9112, 6).
#ifndef ZTXML_TOOLS_STREAMS_H
#define ZTXML_TOOLS_STREAMS_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Origin.h"

/// A message that was found, with its headers.
struct PacketMessage {
  Origin origin;
  std::string text;
  bool hasNoBody = false;  ///< whatever its headers say
};

/// What a capture of packets has.
struct Traffic {
  std::vector<PacketMessage> messages;
  std::size_t packets = 0;
  std::size_t cutPackets = 0;  ///< of which the capture has the beginning only
  std::size_t malformedPackets = 0;
  std::size_t encryptedPackets = 0;      ///< ESP
  std::size_t encryptedConnections = 0;  ///< TLS
  std::size_t brokenDatagrams = 0;       ///< of which fragments are missing, or overlap
  std::size_t gaps = 0;                  ///< places where segments are missing
  std::size_t incompleteMessages = 0;    ///< of which a part is missing
  std::size_t strayBytes = 0;            ///< between messages
};

struct Endpoint {
  std::string address;  ///< 4 or 16 bytes
  std::uint16_t port = 0;
};
/// As in an Origin.
std::string ToString(const Endpoint& endpoint);

struct Segment {
  std::uint32_t sequence = 0;
  bool begins = false;  ///< whether it is the first one of a connection (SYN)
  std::string_view bytes;
  std::size_t size = 0;  ///< of the bytes with those that the capture lacks
  Time time;
};

/// Whether a message begins like `text`, with a request line or a status line.
bool BeginsSipOrHttp(std::string_view text);
/// The same, of SIP only.
bool BeginsSipMessage(std::string_view text);

/// Collects the segments of all connections. What it finds goes to `traffic`.
class Streams {
 public:
  explicit Streams(Traffic& traffic) : m_Traffic(traffic) {}

  void Add(const Endpoint& from, const Endpoint& to, const Segment& segment);
  /// To be called after the last segment.
  void Finish();

 private:
  // A segment's bytes: their place in the stream, and in what the direction holds.
  struct Piece {
    std::int64_t at = 0;
    std::size_t offset = 0;
    std::size_t size = 0;
    Time time;
  };
  // What one end of a connection sends.
  struct Direction {
    std::string from;
    std::string to;
    int connection = 0;  // counts those between the two ends one after another
    bool isOpen = false;
    bool hasBegin = false;
    std::int64_t begin = 0;  // where the stream is known to begin
    std::int64_t end = 0;    // of what was seen last in the stream
    std::vector<Piece> pieces;
    std::string bytes;
  };

  void FinishDirection(const std::string& key, Direction& direction);

  Traffic& m_Traffic;
  std::map<std::string, Direction> m_Directions;
  std::set<std::string> m_Encrypted;
};

#endif  // ZTXML_TOOLS_STREAMS_H
