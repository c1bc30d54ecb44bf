// What the fuzz targets share: assertions, a check for leaks, and what must hold for any text that
// any schema reads and writes.
#ifndef ZTXML_FUZZ_FUZZSUPPORT_H
#define ZTXML_FUZZ_FUZZSUPPORT_H

#include <cstdint>
#include <string>

#include "PublicCallbacks.h"
#include "Require.h"
#include "WellFormed.h"
#include "Workers.h"
#include "ztxml/XmlDecoder.h"
#include "ztxml/ztHostPlatform.h"
#include "ztxml/ztXMLDocGenerator.h"

/// Requires at its end that the memory log is balanced.
class Balanced {
 public:
  Balanced() {
    zthost::EnableMemoryLog(true);
    zthost::ResetMemoryLog();
  }
  ~Balanced() {
    zthost::FailAllocation(0);
    const zthost::MemoryReport report = zthost::GetMemoryReport();
    Require(report.live.empty(), "every entry of the memory log is removed",
            report.live.empty() ? "" : report.live.front().sourceFile);
    Require(report.doubleAdds.empty() && report.badRemoves.empty(),
            "every entry is added and removed once");
  }
  Balanced(const Balanced&) = delete;
  Balanced& operator=(const Balanced&) = delete;
};

inline bool IsWellFormed(std::string text) {
  XmlDecoder parser;
  parser.SetSchema(nullptr);
  return parser.Decode(text.data(), static_cast<int>(text.size())) == ZT_XML_SUCCESS;
}

/// Documents whose output may by design be read as another tree: entities in attributes are
/// resolved and not written again, and an element that lacks something required is cut short.
inline bool MayDiffer(eXMLSchemaID id, const std::string& in, const std::string& out) {
  return in.find('&') != std::string::npos || out.size() >= ZtXMLDocGenerator::kBufferSize - 1 ||
         out.find("<proessing-notification") != std::string::npos ||
         (MayBeMalformed(id) && !IsWellFormed(out));
}

/// Requires that what was read can be written, well formed if `text` was, and that the output is
/// read and written as itself. When an allocation after `failing` fails, it is written whole or not
/// at all.
inline void CheckRoundTrip(eXMLSchemaID id, const std::string& text, bool bound,
                           std::uint8_t failing) {
  if (!XMLFactory::getSchemaInfo(id)) return;
  BoundSchema workers(id, bound ? text : "");
  const std::string first = workers.RoundTrip(text);
  Require(IsSound(id, text, first), "what is written is well formed", text + "\n---\n" + first);
  if (id != XML_SCHEMA_SIMSERVS) {
    const std::string other = RoundTripThroughCallbacks(*workers.context(), text);
    Require(other == first, "the callbacks one by one make an equal tree",
            text + "\n---\n" + first + "\n---\n" + other);
  }
  if (first != "(null)" && !MayDiffer(id, text, first)) {
    const std::string second =
        workers.RoundTrip(first);  // with the namespaces of `text` bound again
    Require(second == first, "what was written is read and written unchanged",
            text + "\n---\n" + first + "\n---\n" + second);
  }
  if (!failing) return;
  zthost::FailAllocation(failing % 128 * (1 + failing / 128 * 7), failing % 2 != 0);
  const std::string unsure = workers.RoundTrip(text);
  zthost::FailAllocation(0);
  Require(unsure == "(null)" || unsure == first, "without memory whole or nothing",
          text + "\n---\n" + unsure);
}

/// An input after its `first` bytes, as a text, which ends with the first NUL.
inline std::string TextAfter(std::size_t first, const std::uint8_t* data, std::size_t size) {
  const std::string all(reinterpret_cast<const char*>(data + first), size - first);
  return all.substr(0, all.find('\0'));
}

#endif  // ZTXML_FUZZ_FUZZSUPPORT_H
