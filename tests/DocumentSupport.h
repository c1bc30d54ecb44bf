// One schema's workers, for tests that read and write documents.
#ifndef ZTXML_TESTS_DOCUMENTSUPPORT_H
#define ZTXML_TESTS_DOCUMENTSUPPORT_H

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "XMLFactory.h"
#include "XMLList.h"
#include "ztHostPlatform.h"

struct TreeDeleter {
  void operator()(XMLElement* element) const { XMLFactory::DeleteElement(element); }
};
template <class T>
using Tree = std::unique_ptr<T, TreeDeleter>;

/// The workers of one schema; texts of null documents come back as "(null)".
class Schema {
 public:
  explicit Schema(eXMLSchemaID id)
      : context_(XMLFactory::newInstance(id)),
        reader_(context_->createUnMarshaller()),
        writer_(context_->createMarshaller()) {}
  ~Schema() { XMLFactory::deleteContext(context_); }
  Schema(const Schema&) = delete;
  Schema& operator=(const Schema&) = delete;

  template <class T>
  Tree<T> Read(const std::string& text) {
    return Tree<T>(static_cast<T*>(reader_->UnMarshall(text.c_str())));
  }
  std::string Write(XMLElement* root) {
    const char* text = writer_->Marshall(root);
    return text ? text : "(null)";
  }
  std::string RoundTrip(const std::string& text) { return Write(Read<XMLElement>(text).get()); }

  XMLContext* context() { return context_; }
  XMLMarshaller* writer() { return writer_; }

 private:
  XMLContext* context_;
  XMLUnMarshaller* reader_;
  XMLMarshaller* writer_;
};

/// Each allocation of reading and writing `text` fails, once and from there on: what comes out is
/// whole or nothing.
inline void ExpectWholeOrNothing(Schema& schema, const std::string& text) {
  const std::string whole = schema.RoundTrip(text);
  ASSERT_NE(whole, "(null)");
  for (const bool after : {false, true}) {
    for (long n = 1, reached = 1; reached; ++n) {
      zthost::FailAllocation(n, after);
      const std::string written = schema.RoundTrip(text);
      reached = zthost::AllocationCount() >= n;
      zthost::FailAllocation(0);
      EXPECT_TRUE(written == whole || (reached && written == "(null)")) << n << written;
    }
  }
}

/// How many entries a list of a schema object has.
inline int CountOf(ZtSingleElementList* list) { return list ? list->GetCount() : 0; }

/// The entry at `index` of a list of elements.
template <class T>
T* EntryOf(ZtSingleElementList* list, unsigned short index) {
  return list ? static_cast<T*>(static_cast<XMLElement*>(list->GetKeyAtIndex(index))) : nullptr;
}

#endif  // ZTXML_TESTS_DOCUMENTSUPPORT_H
