// What the types of presence documents have in common. Each logs under the name of its own file.
#ifndef ZTXML_SRC_PRESENCEBINDING_H
#define ZTXML_SRC_PRESENCEBINDING_H

#include "binding/ZtBinding.h"

constexpr ZtFamily ZtPresenceFamily(const char* source) {
  return {source, &kZtNoHookLines, kCannotAccommodate,
          "<XML Module>: PresenceMarshaller XML Failed at %s!"};
}

#endif  // ZTXML_SRC_PRESENCEBINDING_H
