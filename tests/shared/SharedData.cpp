// A program as callers link it by default, beside the shared library: of exported data that it
// names the loader may give it a copy, and then there is still but one.
#include <cstdio>

#include "XMLFactory.h"
#include "XMLReginfo.h"

namespace {

// What an object that the library made takes for its table.
struct Peek : zt_reginfo {
  static const ZtElementType* TypeOf(const zt_reginfo& object) {
    return &(object.*(&Peek::Type))();
  }
};

bool Check(bool holds, const char* what) {
  if (!holds) std::printf("two of them: %s\n", what);
  return holds;
}

}  // namespace

int main() {
  bool one = true;
  for (int row = 0; row < kXmlStrRefCount; ++row) {
    const char* named = zt_xml_common_array_definition::arrXmlStrRef[row];
    one =
        Check(named == zt_xml_common_array_definition::getStringName(static_cast<e_XmlStrRef>(row)),
              named) &&
        one;
  }
  auto* root = static_cast<zt_reginfo*>(ReginfoDataBinder().CreateRootElement());
  one = Check(root && Peek::TypeOf(*root) == &zt_reginfo::kType, "zt_reginfo::kType") && one;
  XMLFactory::DeleteElement(root);
  return one ? 0 : 1;
}
