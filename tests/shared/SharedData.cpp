// A program linked as callers do by default: the loader may copy exported data that it names into
// the program. What may be written to has to be the library's even then; tables of types and
// documents have to serve in either copy.
#include <cstdio>
#include <string>

#include "ztxml/XMLFactory.h"
#include "ztxml/gruu.h"
#include "ztxml/reginfo.h"

namespace {

bool Check(bool holds, const char* what) {
  if (!holds) std::printf("wrong: %s\n", what);
  return holds;
}

bool NamesAreShared() {
  bool one = true;
  for (int row = 0; row < XML_STR_ZT_COUNT; ++row) {
    const char* named = zt_xml_common_array_definition::arrXmlStrRef[row];
    one =
        Check(named == zt_xml_common_array_definition::getStringName(static_cast<e_XmlStrRef>(row)),
              named) &&
        one;
  }
  return one;
}

// The library is given the program's tables, and its own by way of a context that it made.
bool TablesServe() {
  const std::string text =
      "<reginfo xmlns='urn:ietf:params:xml:ns:reginfo' version='0' state='full'><!-- kept "
      "--></reginfo>";
  auto reginfo = ztxml::Read<zt_reginfo>(text);
  if (!Check(static_cast<bool>(reginfo), "reading by the root's table")) return false;
  (*reginfo)->setStateValue(ZT_REGINFO_STATE_PARTIAL);
  XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_REGINFO);
  context->UseProfile(XML_PROFILE_STANDARD);
  const char* updated = context->createMarshaller()->Update(reginfo->get());
  bool fine =
      Check(updated && std::string(updated).find("'partial'><!-- kept -->") != std::string::npos,
            "updating by another copy of the document's table");
  XMLFactory::deleteContext(context);

  auto* made = static_cast<zt_reginfo*>(ReginfoDataBinder().CreateRootElement());
  fine = Check(made && ZtIsA(*made, zt_reginfo::kType) && !ZtIsA(*made, zt_pub_gruu::kType),
               "telling what an object is") &&
         fine;
  XMLFactory::DeleteElement(made);

  const auto other =
      ztxml::Read<zt_temp_gruu>("<pub-gruu xmlns='urn:ietf:params:xml:ns:gruuinfo'/>");
  fine = Check(!other &&
                   std::string(other.error().Text()).find("not <temp-gruu>") != std::string::npos,
               "saying which root is meant") &&
         fine;
  return fine;
}

}  // namespace

int main() {
  const bool shared = NamesAreShared();
  return TablesServe() && shared ? 0 : 1;
}
