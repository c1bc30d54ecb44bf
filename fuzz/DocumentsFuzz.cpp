// Every schema: what was read is written, and what was written is read and written the same. First
// byte: the schema and whether namespaces are bound. Second: which allocation fails.
#include "FuzzSupport.h"
#include "XmlDecoder.h"
#include "ztXMLDocGenerator.h"

namespace {

bool IsWellFormed(std::string text) {
  XmlDecoder parser;
  parser.SetSchema(nullptr);
  return parser.Decode(text.data(), static_cast<int>(text.size())) == ZT_XML_SUCCESS;
}

// Documents that may be written otherwise than they are read, by design: entities in attributes are
// resolved and not written again, and an element that lacks something required is cut short.
bool MayDiffer(const std::string& in, const std::string& out) {
  return in.find('&') != std::string::npos || out.size() >= ZtXMLDocGenerator::kBufferSize - 1 ||
         out.find("<proessing-notification") != std::string::npos || !IsWellFormed(out);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  const auto id = static_cast<eXMLSchemaID>(data[0] % 32);
  const bool bound = data[0] >= 128;
  const std::string all(reinterpret_cast<const char*>(data + 2), size - 2);
  const std::string text = all.substr(0, all.find('\0'));
  const Balanced balanced;
  const std::string first = RoundTrip(id, text, bound);
  if (first != "(null)" && !MayDiffer(text, first)) {
    const std::string second = RoundTrip(id, first, bound);
    Require(second == first, "what was written is read and written the same",
            text + "\n---\n" + first + "\n---\n" + second);
  }
  if (data[1]) {
    zthost::FailAllocation(data[1] % 128 * (1 + data[1] / 128 * 7), data[1] % 2 != 0);
    const std::string failing = RoundTrip(id, text, bound);
    zthost::FailAllocation(0);
    // Without its namespaces a document may read differently.
    Require(bound || failing == "(null)" || failing == first, "without memory whole or nothing",
            text + "\n---\n" + failing);
  }
  return 0;
}
