// Captures of packets, pcap and pcapng: what they carry of SIP and HTTP, on any port.
#ifndef ZTXML_TOOLS_PACKETS_H
#define ZTXML_TOOLS_PACKETS_H

#include <string>
#include <string_view>

#include "Streams.h"

/// Whether `bytes` begin like a capture of packets.
bool IsPacketFile(std::string_view bytes);

/// Reads the packets of a capture and finds their messages, in the order of time. False with the
/// reason when it cannot be read to its end; what was found before is kept.
bool ReadTraffic(std::string_view bytes, Traffic& traffic, std::string& why);

#endif  // ZTXML_TOOLS_PACKETS_H
