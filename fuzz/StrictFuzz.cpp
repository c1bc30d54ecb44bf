// The strict reader: it accepts what Expat accepts and tells the same of it. First byte: which
// allocation fails.
#include "FuzzSupport.h"
#include "StrictEvents.h"

namespace {

// What the reader refuses by design, or Expat accepts by mistake.
bool MayBeRefused(const StrictReading& ours) {
  if (ours.error.fault == ZtXmlFault::kInternalSubset) return true;
  // With a document type, Expat takes any entity for one that is defined elsewhere.
  if (ours.error.fault == ZtXmlFault::kUndefinedEntity) {
    return ours.text.find("<!DOCTYPE") != std::string::npos;
  }
  // In other encodings than UTF-8, Expat has these letters in names, where XML 1.0 had them not.
  if (ours.form.encoding != ZtEncoding::kUtf8) {
    for (const char* letter : {"\xC2\xAA", "\xC2\xB5", "\xC2\xBA"}) {
      if (ours.text.find(letter) != std::string::npos) return true;
    }
  }
  // Expat does not look at the second half of a character beyond U+FFFF.
  const bool isWide =
      ours.form.encoding == ZtEncoding::kUtf16Le || ours.form.encoding == ZtEncoding::kUtf16Be;
  return isWide && ours.encodingFault == ZtEncodingFault::kBadBytes;
}

void RequireFailure(const std::string& document, std::uint8_t failing, const StrictReading& whole) {
  zthost::FailAllocation(failing, true);
  const StrictReading ours(document);
  const bool failed = zthost::AllocationCount() >= failing;
  zthost::FailAllocation(0);
  if (failed) {
    Require(ours.error.fault == ZtXmlFault::kOutOfMemory, "a failed allocation is told", document);
  } else {
    Require(ours.events.lines == whole.events.lines, "one that is not made changes nothing");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const std::string document(reinterpret_cast<const char*>(data + 1), size - 1);
  const Balanced balanced;
  const StrictReading ours(document);
  const ExpatReading theirs(document);
  if (theirs.events.accepted != ours.events.accepted) {
    const char* fault = ZtFaultText(ours.error.fault);
    Require(theirs.events.accepted && MayBeRefused(ours), "both accept or both refuse",
            fault ? fault : "accepted");
  }
  if (ours.events.accepted) {
    Require(AreAlike(ours, theirs.events), "both tell the same",
            Told(ours.events) + "---\n" + Told(theirs.events));
  } else if (ours.encodingFault == ZtEncodingFault::kNone) {
    Require(ZtFaultText(ours.error.fault) && ours.error.at <= ours.text.size(),
            "a failure tells a fault and its place");
  }
  if (data[0] && ours.encodingFault == ZtEncodingFault::kNone) {
    RequireFailure(document, data[0], ours);
  }
  return 0;
}
