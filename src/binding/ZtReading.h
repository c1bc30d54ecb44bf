// How a document's decoder reads it. Which elements there are say the rows of its types: this is
// only what rows do not know.
#ifndef ZTXML_SRC_BINDING_ZTREADING_H
#define ZTXML_SRC_BINDING_ZTREADING_H

#include "binding/ZtBinding.h"

// What a decoder does with prefixes. Only a ZtNamespaceDecoder rewrites them.
enum class ZtPrefixRule : std::uint8_t { kExact, kStrip, kRewrite };

// What an element with an object is.
enum class ZtElementKind : unsigned char { kObject, kRoot, kExtension };

// A root element.
struct ZtRoot {
  ZtNameId name;
  const ZtElementType* type;
};

struct ZtReading {
  const char* decoder;   // class name for the logs
  const char* source;    // file of the decoder, for the logs
  const char* noMemory;  // the line when a name cannot be normalised; %s is the decoder
  ZtPrefixRule prefixes;
  const ZtRoot* roots = nullptr;
  std::size_t rootCount = 0;
  // Elements of a foreign namespace, which are opened before they are offered; ends with none.
  const ZtChoice* extensions = nullptr;

  constexpr ZtReading(const char* className, const char* file, ZtPrefixRule rule)
      : decoder(className),
        source(file),
        noMemory(rule == ZtPrefixRule::kRewrite
                     ? "%s :: XMLChangeNamespaceTag Malloc unable to allocate memory"
                     : "%s :: XMLRemoveNameSpaceTag: Malloc unable to allocate memory"),
        prefixes(rule) {}

  template <std::size_t N>
  constexpr ZtReading Roots(const ZtRoot (&table)[N]) const {
    return ZtWith(ZtWith(*this, &ZtReading::roots, table), &ZtReading::rootCount, N);
  }
  constexpr ZtReading Extensions(const ZtChoice* choices) const {
    return ZtWith(*this, &ZtReading::extensions, choices);
  }
  constexpr ZtReading NoMemory(const char* line) const {
    return ZtWith(*this, &ZtReading::noMemory, line);
  }
};

// The bytes of `name` that are kept. Intended: decoders keep the size of a name, with two bytes
// more, in 16 bits, so that names of 65534 bytes or more are cut short; callers that drive a
// decoder themselves get the same.
inline std::size_t ZtShortNameSize(const char* name) {
  const std::size_t size = __strlen(name);
  const std::size_t room = static_cast<std::uint16_t>(size + 2);
  return size < room ? size : room ? room - 1 : 0;
}

#endif  // ZTXML_SRC_BINDING_ZTREADING_H
