#include "PacketFile.h"

#include <string_view>
#include <utility>

#include "Capture.h"
#include "Headers.h"
#include "Packets.h"
#include "Text.h"

namespace {

// Tells what of the traffic is not read, and why; on standard error unless `notes` take it.
void TellUnread(const std::string& name, const Traffic& traffic, std::vector<Document>* notes) {
  const auto tell = [&](std::size_t count, const char* one, const char* several) {
    if (count && !notes) Complain(name, Count(count, one, several));
    if (!count || !notes) return;
    Document note;
    note.name = name;
    note.kind = Document::Kind::kNoted;
    note.fault = {"capture", Count(count, one, several)};
    notes->push_back(note);
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
bool ReadMessage(const PacketMessage& message, const std::string& file, std::size_t number,
                 bool keepsSkipped, std::vector<Document>& documents) {
  const std::size_t before = documents.size();
  std::string_view text = message.text;
  Document capture;
  capture.name = file + '#' + std::to_string(number);
  capture.text = message.text;
  capture.message.startLine = NextLine(text).substr(0, Envelope::kMost);
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
    documents[i].message.number = number;
    hasDocument = hasDocument || documents[i].IsDocument();
  }
  if (!hasDocument && !keepsSkipped) {
    documents.erase(documents.begin() + static_cast<std::ptrdiff_t>(before), documents.end());
  }
  return hasDocument;
}

}  // namespace

bool ReadPacketFile(const Document& file, Skipping skipping, std::vector<Document>& documents,
                    Failure& failure) {
  const bool keepsSkipped = skipping == Skipping::kRefused || skipping == Skipping::kShown;
  Traffic traffic;
  std::string why;
  const bool isWhole = ReadTraffic(file.text, traffic, why);
  TellUnread(file.name, traffic, skipping == Skipping::kShown ? &documents : nullptr);
  const std::size_t before = documents.size();
  std::size_t without = 0;
  std::size_t number = 0;
  for (const PacketMessage& message : traffic.messages) {
    without += !ReadMessage(message, file.name, ++number, keepsSkipped, documents);
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
