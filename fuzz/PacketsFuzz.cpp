// Captures of packets. First byte: whether the rest is a file, the packets of one, or a stream
// whose segments come out of order, twice, and overlapping.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "Packets.h"
#include "Require.h"

namespace {

std::string Number(std::uint32_t number, int bytes, bool bigEndian) {
  std::string text;
  for (int i = 0; i < bytes; ++i) {
    text += static_cast<char>(number >> 8 * (bigEndian ? bytes - 1 - i : i));
  }
  return text;
}

// A file of the packets that `input` has after their sizes.
std::string FileOf(std::string_view input) {
  constexpr std::uint32_t kLinks[] = {0, 1, 101, 113, 276};
  if (input.empty()) return "";
  std::string file = Number(0xa1b2c3d4, 4, false) + Number(2, 2, false) + Number(4, 2, false) +
                     std::string(8, '\0') + Number(262144, 4, false) +
                     Number(kLinks[static_cast<unsigned char>(input[0]) % 5], 4, false);
  input.remove_prefix(1);
  while (input.size() >= 3) {
    const auto at = [input](std::size_t i) { return static_cast<unsigned char>(input[i]); };
    const std::uint32_t lacking = at(0) % 8U == 7 ? at(0) : 0;
    const std::size_t size = std::min<std::size_t>(at(1) * 256U + at(2), input.size() - 3);
    file += Number(at(0), 4, false) + Number(0, 4, false) +
            Number(static_cast<std::uint32_t>(size), 4, false) +
            Number(static_cast<std::uint32_t>(size) + lacking, 4, false);
    file += input.substr(3, size);
    input.remove_prefix(3 + size);
  }
  return file;
}

Traffic ReadFile(const std::string& file) {
  Traffic traffic;
  std::string why;
  const bool isRead = ReadTraffic(file, traffic, why);
  Require(isRead == why.empty(), "a failure has a reason");
  return traffic;
}

void CheckFile(const std::string& file) {
  if (!IsPacketFile(file)) return;
  const Traffic traffic = ReadFile(file);
  std::size_t bytes = 0;
  const Time* last = nullptr;
  for (const PacketMessage& message : traffic.messages) {
    Require(BeginsSipOrHttp(message.text), "a message begins like one", message.text);
    Require(!message.origin.from.empty() && !message.origin.to.empty(), "its ends are known");
    Require(!last || !(message.origin.time < *last), "messages come in the order of time");
    last = &message.origin.time;
    bytes += message.text.size();
  }
  Require(bytes <= file.size(), "messages have no more bytes than the file");
  Require(traffic.packets <= file.size() / 16, "there are as many packets as headers of packets");
}

// The stream's messages do not depend on how it is cut into segments.
void CheckStream(std::string_view script, std::string_view stream) {
  const Endpoint from = {std::string(4, '\1'), 5060};
  const Endpoint to = {std::string(4, '\2'), 5060};
  const std::uint32_t first = 0U - static_cast<std::uint32_t>(stream.size() / 2);
  std::vector<Segment> segments;
  Traffic whole;
  Streams once(whole);
  const Segment begin = {first - 1, true, {}, 0, {}};
  once.Add(from, to, begin);
  once.Add(from, to, {first, false, stream, stream.size(), {}});
  once.Finish();
  // What follows each other overlaps; the script swaps and repeats.
  std::size_t step = 0;
  for (std::size_t at = 0; at < stream.size();) {
    const std::size_t byte = static_cast<unsigned char>(script[step++ % script.size()]);
    const std::size_t size = 1 + byte;
    const std::size_t back = std::min(at, byte % 16);
    const std::string_view bytes = stream.substr(at - back, size + back);
    segments.push_back(
        {first + static_cast<std::uint32_t>(at - back), false, bytes, bytes.size(), {}});
    if (byte % 3 == 0) segments.push_back(segments[segments.size() * byte / 256]);
    if (byte % 2 == 0) std::swap(segments.back(), segments[segments.size() * byte / 256]);
    at += size;
  }
  Traffic cut;
  Streams again(cut);
  again.Add(from, to, begin);
  for (const Segment& segment : segments) again.Add(from, to, segment);
  again.Finish();
  Require(cut.gaps == 0 && cut.strayBytes == whole.strayBytes &&
              cut.incompleteMessages == whole.incompleteMessages,
          "segments lack nothing");
  Require(std::equal(cut.messages.begin(), cut.messages.end(), whole.messages.begin(),
                     whole.messages.end(),
                     [](const PacketMessage& a, const PacketMessage& b) {
                       return a.text == b.text && a.hasNoBody == b.hasNoBody;
                     }),
          "segments make the stream", std::string(stream));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const std::string input(reinterpret_cast<const char*>(data + 1), size - 1);
  constexpr std::size_t kScript = 16;
  switch (data[0] % 3) {
    case 0:
      CheckFile(input);
      break;
    case 1:
      CheckFile(FileOf(input));
      break;
    default:
      if (input.size() > kScript) {
        CheckStream(std::string_view(input).substr(0, kScript),
                    std::string_view(input).substr(kScript));
      }
  }
  return 0;
}
