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

// Adds what is found in one message. False when it has no document.
bool ReadMessage(const PacketMessage& message, const std::string& name, bool keepsSkipped,
                 std::vector<Document>& documents) {
  const std::size_t before = documents.size();
  Document capture;
  capture.name = name;
  capture.text = message.text;
  Failure failure;
  if (message.hasNoBody || !ReadCapture(capture, documents, failure)) {
    capture.text.clear();
    capture.kind = Document::Kind::kSkipped;
    capture.fault = {"skipped", "no XML body"};
    documents.push_back(capture);
  }
  bool hasDocument = false;
  for (std::size_t i = before; i < documents.size(); ++i) {
    documents[i].origin = message.origin;
    hasDocument = hasDocument || documents[i].IsDocument();
  }
  if (!hasDocument && !keepsSkipped) {
    documents.erase(documents.begin() + static_cast<std::ptrdiff_t>(before), documents.end());
  }
  return hasDocument;
}

}  // namespace

bool ReadPacketFile(const Document& file, bool keepsSkipped, std::vector<Document>& documents,
                    Failure& failure) {
  Traffic traffic;
  std::string why;
  const bool isWhole = ReadTraffic(file.text, traffic, why);
  TellUnread(file.name, traffic);
  const std::size_t before = documents.size();
  std::size_t without = 0;
  std::size_t number = 0;
  for (const PacketMessage& message : traffic.messages) {
    const std::string name = file.name + '#' + std::to_string(++number);
    without += !ReadMessage(message, name, keepsSkipped, documents);
  }
  const std::string messages = Count(number, "message", "messages");
  if (!isWhole) {
    failure = {"capture", Escape(why)};
    return false;
  }
  if (documents.size() == before) {
    failure = {"capture", number ? "no XML body in " + messages
                                 : "no message of SIP or HTTP in " +
                                       Count(traffic.packets, "packet", "packets")};
    return false;
  }
  if (without && !keepsSkipped) {
    Complain(file.name, std::to_string(without) + " of " + messages + " without an XML body");
  }
  return true;
}
