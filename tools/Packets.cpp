#include "Packets.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <map>
#include <pcap/pcap.h>
#include <utility>

#include "Text.h"

namespace {

enum Protocol : unsigned {
  kHopOptions = 0,
  kTcp = 6,
  kUdp = 17,
  kRouting = 43,
  kFragment = 44,
  kEsp = 50,
  kAuthentication = 51,
  kDestinationOptions = 60,
  kMobility = 135
};

constexpr unsigned kIp4 = 0x0800;  // EtherTypes
constexpr unsigned kIp6 = 0x86dd;
constexpr std::size_t kMostDatagram = 65535;
constexpr std::size_t kEspOverhead = 8;  // the least one has: SPI and sequence number
constexpr std::uint16_t kEspPort = 4500;
constexpr std::int64_t kFragmentSeconds = 60;  // RFC 8200, 4.5

unsigned Byte(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}
unsigned Word(std::string_view bytes, std::size_t at) {
  return Byte(bytes, at) * 256 + Byte(bytes, at + 1);
}
std::uint32_t DoubleWord(std::string_view bytes, std::size_t at) {
  return std::uint32_t{Word(bytes, at)} * 65536 + Word(bytes, at + 2);
}

// What a link's header tells of a packet.
enum class Network { kIp, kOther, kMalformed };

// Cuts tags of VLANs off the bytes after an EtherType (IEEE 802.1Q).
Network SkipTags(unsigned type, std::string_view& bytes) {
  while (type == 0x8100 || type == 0x88a8 || type == 0x9100) {
    if (bytes.size() < 4) return Network::kMalformed;
    type = Word(bytes, 2);
    bytes.remove_prefix(4);
  }
  return type == kIp4 || type == kIp6 ? Network::kIp : Network::kOther;
}

// A link's header: its size, and where it has the EtherType if it has one.
struct Link {
  int type;
  std::size_t size;
  std::size_t etherType;
};
constexpr std::size_t kNoEtherType = ~std::size_t{0};
constexpr Link kLinks[] = {
    {DLT_EN10MB, 14, 12},        {DLT_LINUX_SLL, 16, 14},     {DLT_LINUX_SLL2, 20, 0},
    {DLT_NULL, 4, kNoEtherType}, {DLT_LOOP, 4, kNoEtherType}, {DLT_RAW, 0, kNoEtherType},
    {DLT_IPV4, 0, kNoEtherType}, {DLT_IPV6, 0, kNoEtherType},
};

// Null when packets of the type are not read.
const Link* FindLink(int type) {
  const auto* const link = std::find_if(std::begin(kLinks), std::end(kLinks),
                                        [type](const Link& known) { return known.type == type; });
  return link == std::end(kLinks) ? nullptr : link;
}

// A datagram of which fragments have come.
struct Datagram {
  Time time;
  std::map<std::size_t, std::string> parts;  // by their places
  std::size_t size = 0;                      // of all parts
  std::size_t whole = 0;                     // what it should be; 0: not known yet
  unsigned protocol = 0;
  bool isBroken = false;

  bool IsWhole() const {
    return !isBroken && whole != 0 && size == whole &&
           parts.rbegin()->first + parts.rbegin()->second.size() == whole;
  }
  // Parts that overlap break it (RFC 5722); one that comes twice does not.
  void Add(std::size_t at, std::string_view part, bool isLast) {
    const auto next = parts.lower_bound(at);
    if (next != parts.end() && next->first == at && next->second == part) return;
    const bool reachesNext = next != parts.end() && next->first < at + part.size();
    const bool isReached =
        next != parts.begin() && std::prev(next)->first + std::prev(next)->second.size() > at;
    if (reachesNext || isReached || (isLast && whole != 0)) {
      isBroken = true;
      return;
    }
    if (isLast) whole = at + part.size();
    parts.emplace_hint(next, at, part);
    size += part.size();
  }
};

class Reader {
 public:
  explicit Reader(Traffic& traffic) : m_Traffic(traffic), m_Streams(traffic) {}

  // A packet as captured: `isCut` when the capture has its beginning only.
  void Read(const Link& link, std::string_view bytes, bool isCut, Time time) {
    ++m_Traffic.packets;
    m_Traffic.cutPackets += isCut;
    if (!ReadLink(link, bytes, time)) m_Traffic.malformedPackets += !isCut;
  }
  void Finish() {
    m_Streams.Finish();
    m_Traffic.brokenDatagrams += m_Datagrams.size();
    m_Datagrams.clear();
  }

 private:
  // What an IP packet carries, and the size that it has with what the capture lacks.
  struct Payload {
    Endpoint from;
    Endpoint to;
    Time time;
    unsigned protocol = 0;
    std::string_view bytes;
    std::size_t size = 0;
    bool isReassembled = false;

    bool Skip(std::size_t count) {
      if (count > bytes.size()) return false;
      bytes.remove_prefix(count);
      size -= count;
      return true;
    }
  };

  // These give false for what is malformed.
  bool ReadLink(const Link& link, std::string_view bytes, Time time) {
    if (bytes.size() < link.size) return false;
    const unsigned type = link.etherType == kNoEtherType ? kIp4 : Word(bytes, link.etherType);
    bytes.remove_prefix(link.size);
    const Network network = SkipTags(type, bytes);
    if (network != Network::kIp) return network == Network::kOther;
    if (bytes.empty()) return false;
    const unsigned version = Byte(bytes, 0) / 16;
    if (version == 4) return ReadIp4(bytes, time);
    return version == 6 && ReadIp6(bytes, time);
  }

  bool ReadIp4(std::string_view bytes, Time time) {
    if (bytes.size() < 20) return false;
    const std::size_t header = std::size_t{Byte(bytes, 0) % 16} * 4;
    // It is 0 where the network adapter was to cut the packet.
    const std::size_t total = Word(bytes, 2) != 0 ? Word(bytes, 2) : bytes.size();
    if (header < 20 || header > total) return false;
    Payload payload;
    payload.from.address = bytes.substr(12, 4);
    payload.to.address = bytes.substr(16, 4);
    payload.time = time;
    payload.protocol = Byte(bytes, 9);
    payload.bytes = bytes.substr(0, total);
    payload.size = total;
    if (!payload.Skip(header)) return false;
    const unsigned place = Word(bytes, 6);
    const bool isLast = (place & 0x2000) == 0;
    const std::size_t at = std::size_t{place & 0x1fff} * 8;
    if (isLast && at == 0) return ReadPayload(payload);
    const std::string id = {bytes[4], bytes[5], bytes[9]};
    return ReadFragment(payload, id, at, isLast);
  }

  bool ReadIp6(std::string_view bytes, Time time) {
    if (bytes.size() < 40) return false;
    Payload payload;
    payload.from.address = bytes.substr(8, 16);
    payload.to.address = bytes.substr(24, 16);
    payload.time = time;
    payload.protocol = Byte(bytes, 6);
    payload.size = Word(bytes, 4) != 0 ? Word(bytes, 4) : bytes.size() - 40;
    payload.bytes = bytes.substr(40, payload.size);
    return ReadPayload(payload);
  }

  // After the header of IP: the headers that it is extended by, and what is carried.
  bool ReadPayload(Payload& payload) {
    const bool isLong = payload.from.address.size() == 16;
    for (;;) {
      std::size_t unit = 8;
      switch (payload.protocol) {
        case kTcp:
          return ReadTcp(payload);
        case kUdp:
          return ReadUdp(payload);
        case kEsp:
          ++m_Traffic.encryptedPackets;
          return true;
        case kAuthentication:
          unit = 4;
          break;
        case kHopOptions:
        case kRouting:
        case kDestinationOptions:
        case kMobility:
          if (!isLong) return true;
          break;
        case kFragment: {
          if (!isLong) return true;
          const std::string_view header = payload.bytes;
          if (!payload.Skip(8)) return false;
          payload.protocol = Byte(header, 0);
          const unsigned place = Word(header, 2);
          const bool isLast = place % 2 == 0;
          if (isLast && place < 8) continue;  // the only one
          return ReadFragment(payload, std::string(header.substr(4, 4)), place - place % 8, isLast);
        }
        default:
          return true;
      }
      if (payload.bytes.size() < 2) return false;
      const std::size_t size = (std::size_t{Byte(payload.bytes, 1)} + (8 / unit)) * unit;
      payload.protocol = Byte(payload.bytes, 0);
      if (!payload.Skip(size)) return false;
    }
  }

  bool ReadFragment(const Payload& payload, const std::string& id, std::size_t at, bool isLast) {
    // Fragments of fragments could go on for ever.
    if (payload.isReassembled || payload.size == 0 || (!isLast && payload.size % 8 != 0) ||
        at + payload.size > kMostDatagram) {
      return false;
    }
    const std::string key = payload.from.address + payload.to.address + id;
    Datagram& datagram = m_Datagrams[key];
    if ((!datagram.parts.empty() || datagram.isBroken) &&
        datagram.time.seconds + kFragmentSeconds < payload.time.seconds) {
      ++m_Traffic.brokenDatagrams;
      datagram = Datagram();
    }
    if (datagram.parts.empty()) datagram.time = payload.time;
    if (at == 0) datagram.protocol = payload.protocol;
    if (payload.bytes.size() < payload.size) {
      datagram.isBroken = true;  // the capture has the beginning only
    } else {
      datagram.Add(at, payload.bytes, isLast);
    }
    if (!datagram.IsWhole()) return true;
    std::string bytes;
    for (const auto& [place, part] : datagram.parts) bytes += part;
    Payload whole = payload;
    whole.time = datagram.time;
    whole.protocol = datagram.protocol;
    whole.bytes = bytes;
    whole.size = bytes.size();
    whole.isReassembled = true;
    m_Datagrams.erase(key);
    return ReadPayload(whole);
  }

  bool ReadUdp(Payload& payload) {
    const std::string_view header = payload.bytes;
    if (!payload.Skip(8)) return false;
    payload.from.port = static_cast<std::uint16_t>(Word(header, 0));
    payload.to.port = static_cast<std::uint16_t>(Word(header, 2));
    const std::size_t size = Word(header, 4);
    if (size < 8 || size - 8 > payload.size) return false;
    const bool isWhole = size - 8 <= payload.bytes.size();
    std::string_view text = payload.bytes.substr(0, size - 8);
    const bool isEspPort = payload.from.port == kEspPort || payload.to.port == kEspPort;
    // After zeros it would be a key exchange (RFC 3948).
    const bool isEsp = isEspPort && text.size() > kEspOverhead && DoubleWord(text, 0) != 0;
    text.remove_prefix(std::min(text.find_first_not_of("\r\n"), text.size()));
    if (!BeginsSipMessage(text)) {
      m_Traffic.encryptedPackets += isEsp;
    } else if (!isWhole) {
      ++m_Traffic.incompleteMessages;
    } else {
      m_Traffic.messages.push_back(
          {{payload.time, ToString(payload.from), ToString(payload.to)}, std::string(text), false});
    }
    return true;
  }

  bool ReadTcp(Payload& payload) {
    const std::string_view header = payload.bytes;
    if (header.size() < 20) return false;
    const std::size_t size = std::size_t{Byte(header, 12) / 16} * 4;
    if (size < 20 || !payload.Skip(size)) return false;
    payload.from.port = static_cast<std::uint16_t>(Word(header, 0));
    payload.to.port = static_cast<std::uint16_t>(Word(header, 2));
    Segment segment;
    segment.sequence = DoubleWord(header, 4);
    segment.begins = (Byte(header, 13) & 2) != 0;
    segment.bytes = payload.bytes;
    segment.size = payload.size;
    segment.time = payload.time;
    m_Streams.Add(payload.from, payload.to, segment);
    return true;
  }

  Traffic& m_Traffic;
  Streams m_Streams;
  std::map<std::string, Datagram> m_Datagrams;
};

// A file that lies in memory.
class File {
 public:
  explicit File(std::string_view bytes) {
    char reason[PCAP_ERRBUF_SIZE] = "";
    // It is only read.
    std::FILE* const stream = fmemopen(const_cast<char*>(bytes.data()), bytes.size(), "rb");
    if (stream) {
      m_pFile =
          pcap_fopen_offline_with_tstamp_precision(stream, PCAP_TSTAMP_PRECISION_NANO, reason);
      if (!m_pFile) static_cast<void>(std::fclose(stream));
    }
    if (!m_pFile) m_Why = stream ? reason : "no memory";
  }
  ~File() {
    if (m_pFile) pcap_close(m_pFile);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  bool IsOpen() const { return m_pFile != nullptr; }
  int LinkType() const { return pcap_datalink(m_pFile); }
  // False at the end, and with a reason when it comes too early.
  bool Next(std::string_view& bytes, bool& isCut, Time& time) {
    pcap_pkthdr* header = nullptr;
    const unsigned char* data = nullptr;
    const int result = pcap_next_ex(m_pFile, &header, &data);
    if (result != 1) {
      if (result != PCAP_ERROR_BREAK) m_Why = pcap_geterr(m_pFile);
      return false;
    }
    bytes = {reinterpret_cast<const char*>(data), header->caplen};
    isCut = header->caplen < header->len;
    // Times of strangers may be any; those that are compared must not overflow.
    constexpr std::int64_t kMostSeconds = std::int64_t{1} << 40;
    time.seconds = std::clamp<std::int64_t>(header->ts.tv_sec, 0, kMostSeconds);
    time.nanoseconds = std::clamp<std::int64_t>(header->ts.tv_usec, 0, 999999999);
    return true;
  }
  const std::string& Why() const { return m_Why; }

 private:
  pcap_t* m_pFile = nullptr;
  std::string m_Why;
};

}  // namespace

bool IsPacketFile(std::string_view bytes) {
  if (bytes.size() < 12) return false;
  constexpr std::string_view kOrders[] = {"\xa1\xb2\xc3\xd4", "\xd4\xc3\xb2\xa1",
                                          "\xa1\xb2\x3c\x4d", "\x4d\x3c\xb2\xa1"};
  const std::string_view order = bytes.substr(8, 4);
  return std::find(std::begin(kOrders), std::end(kOrders), bytes.substr(0, 4)) !=
             std::end(kOrders) ||
         (StartsWith(bytes, "\n\r\r\n") &&
          (order == "\x1a\x2b\x3c\x4d" || order == "\x4d\x3c\x2b\x1a"));
}

bool ReadTraffic(std::string_view bytes, Traffic& traffic, std::string& why) {
  File file(bytes);
  if (!file.IsOpen()) {
    why = file.Why();
    return false;
  }
  const Link* const link = FindLink(file.LinkType());
  if (!link) {
    const char* const name = pcap_datalink_val_to_name(file.LinkType());
    why = "packets of the link type " + (name ? name : std::to_string(file.LinkType())) +
          " are not read";
    return false;
  }
  Reader reader(traffic);
  std::string_view packet;
  bool isCut = false;
  Time time;
  while (file.Next(packet, isCut, time)) reader.Read(*link, packet, isCut, time);
  reader.Finish();
  std::stable_sort(
      traffic.messages.begin(), traffic.messages.end(),
      [](const PacketMessage& a, const PacketMessage& b) { return a.origin.time < b.origin.time; });
  why = file.Why();
  return why.empty();
}
