// XCAP errors: what golden documents do not say.
#include <gtest/gtest.h>
#include <tuple>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "base/ZtMemory.h"
#include "ztxml/XMLValueTypes.h"
#include "ztxml/XMLXcapError.h"

namespace {

TEST(XcapError, HooksTakeWhatTheyKnow) {
  zt_xcap_error root;
  zt_extension extension;
  zt_exists exists;
  const std::tuple<XMLElement&, std::string, XMLElement*, int> kCases[] = {
      {root, "not-utf-8", nullptr, 0},
      {root, "not-utf-8-extra", &exists, 0},
      {root, "not-utf-", &extension, 1},
      {root, "/not-utf-8", nullptr, 1},
      {root, "extension", ZtCreate<zt_no_parent>("tests/XcapError"), 1},
      {root, "not-utf-8-extra", ZtCreate<zt_cannot_delete>("tests/XcapError"), 1},
  };
  for (auto [self, name, child, result] : kCases) {
    EXPECT_EQ(self.ProcessUnMarshall(name.data(), nullptr, child), result) << name;
  }
  EXPECT_TRUE(ZtAs<zt_cannot_delete>(root.getErrorValue()));
}

}  // namespace
