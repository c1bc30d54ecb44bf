// A program linked as callers do by default: the loader may copy exported data that it names into
// the program, and even then the library must use that one copy.
#include <cstdio>

#include "ztxml/XMLFactory.h"
#include "ztxml/XMLReginfo.h"

namespace {

// Tells which table an object that the library made uses.
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
  for (int row = 0; row < XML_STR_ZT_COUNT; ++row) {
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
