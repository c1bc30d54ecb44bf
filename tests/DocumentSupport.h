// For tests that read and write documents.
#ifndef ZTXML_TESTS_DOCUMENTSUPPORT_H
#define ZTXML_TESTS_DOCUMENTSUPPORT_H

#include <gtest/gtest.h>
#include <string>

#include "TestSupport.h"
#include "Workers.h"
#include "base/ZtMemory.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/XMLList.h"
#include "ztxml/XMLValueTypes.h"
#include "ztxml/document.h"
#include "ztxml/ztHostPlatform.h"

/// How most lines of the documents begin.
inline const std::string kModule = "<XML Module>: ";

inline void ExpectWholeOrNothing(Schema& schema, const std::string& text) {
  ExpectWholeOrNothing([&] { return schema.RoundTrip(text); });
}

/// What was written, or why nothing was.
inline std::string TextOf(const ztxml::Result<std::string>& written) {
  return written ? *written : written.error().Text();
}

/// How many entries a list of a schema object has.
inline int CountOf(ZtSingleElementList* list) { return list ? list->GetCount() : 0; }

/// Of the entries of a list that are a T, that at `index`; null when there are fewer.
template <class T>
T* EntryOf(ZtSingleElementList* list, int index = 0) {
  for (T& entry : ztxml::Each<T>(list)) {
    if (index-- == 0) return &entry;
  }
  return nullptr;
}
template <class T>
T* EntryOf(ZtListOf<T>* list, int index = 0) {
  return EntryOf<T>(static_cast<ZtSingleElementList*>(list), index);
}

/// A caller's own element, which gives no class name.
struct Nameless : XMLElement {
  const char* ClassName() const override { return nullptr; }
  const char* BaseClassName() const override { return "XMLElement"; }
  const char* ElementName() const override { return "nameless"; }
  int ReservedHook() override { return 0; }
};

#endif  // ZTXML_TESTS_DOCUMENTSUPPORT_H
