#include "PacketFile.h"

#include <utility>

#include "Capture.h"
#include "Packets.h"
#include "Text.h"

namespace {

std::string Count(std::size_t count, const char* one, const char* several) {
  return std::to_string(count) + ' ' + (count == 1 ? one : several);
}

// Tells what of the traffic is not read, and why.
void TellUnread(const std::string& name, const Traffic& traffic) {
  const auto tell = [&name](std::size_t count, const char* one, const char* several) {
    if (count) Complain(name, Count(count, one, several));
  };
  tell(traffic.encryptedConnections, "connection is encrypted (TLS)",
       "connections are encrypted (TLS)");
  tell(traffic.encryptedPackets, "packet is encrypted (ESP)", "packets are encrypted (ESP)");
  tell(traffic.cutPackets, "packet was captured in part only",
       "packets were captured in part only");
  tell(traffic.malformedPackets, "packet is malformed", "packets are malformed");
  tell(traffic.brokenDatagrams, "datagram lacks fragments, or they overlap",
       "datagrams lack fragments, or they overlap");
  tell(traffic.gaps, "gap in a connection: packets are missing",
       "gaps in connections: packets are missing");
  tell(traffic.incompleteMessages, "message is incomplete and not read",
       "messages are incomplete and not read");
  tell(traffic.strayBytes, "byte between messages is in none",
       "bytes between messages are in none");
}

// The bodies of one message. False when it cannot be read.
bool ReadMessage(const PacketMessage& message, const std::string& name, bool allBytes,
                 std::vector<Document>& documents, std::size_t& withoutBody) {
  if (message.hasNoBody) {
    ++withoutBody;
    return true;
  }
  const std::size_t before = documents.size();
  Document capture;
  capture.name = name;
  capture.text = message.text;
  Failure failure;
  const bool isRead = ReadCapture(capture, documents, failure);
  for (std::size_t i = before; i < documents.size(); ++i) {
    Document& document = documents[i];
    document.origin = message.origin;
    const std::size_t end = allBytes ? std::string::npos : document.text.find('\0');
    if (end != std::string::npos) {
      document.cut = true;
      document.text.resize(end);
    }
  }
  if (isRead) return true;
  if (documents.size() == before && StartsWith(failure.what, "no XML body")) {
    ++withoutBody;  // as most messages of a call are
    return true;
  }
  Report(name, failure);
  return false;
}

}  // namespace

bool ReadPacketFile(const Document& file, bool allBytes, std::vector<Document>& documents,
                    Failure& failure) {
  Traffic traffic;
  std::string why;
  const bool isWhole = ReadTraffic(file.text, traffic, why);
  TellUnread(file.name, traffic);
  const std::size_t before = documents.size();
  std::size_t withoutBody = 0;
  std::size_t unread = 0;
  std::size_t number = 0;
  for (const PacketMessage& message : traffic.messages) {
    const std::string name = file.name + '#' + std::to_string(++number);
    unread += !ReadMessage(message, name, allBytes, documents, withoutBody);
  }
  const std::string messages = Count(number, "message", "messages");
  const bool isEmpty = documents.size() == before;
  if (!isWhole) {
    failure = {"capture", Escape(why)};
  } else if (unread) {
    failure = {"capture", std::to_string(unread) + " of " + messages + " cannot be read"};
  } else if (isEmpty) {
    failure = {"capture", number ? "no XML body in " + messages
                                 : "no message of SIP or HTTP in " +
                                       Count(traffic.packets, "packet", "packets")};
  } else {
    if (withoutBody) {
      Complain(file.name, std::to_string(withoutBody) + " of " + messages + " without an XML body");
    }
    return true;
  }
  return false;
}
