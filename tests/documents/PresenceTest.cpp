// Presence documents: what golden documents do not say.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "base/ZtMemory.h"
#include "binding/ZtElementWriter.h"
#include "ztxml/XMLPresence.h"

namespace {

// Gives the class name of a service description the first time, then another one.
class Changing : public zt_ns_oma_pres_service_description {
  const char* ClassName() const override {
    return m_Asked++ ? "changed" : zt_ns_oma_pres_service_description::ClassName();
  }
  mutable int m_Asked = 0;
};

TEST(Presence, WriterOfAServiceDescriptionFails) {
  Schema schema(XML_SCHEMA_PRESENCE);
  const auto root = schema.Read<zt_presence>("<presence entity='e'><tuple id='t'/></presence>");
  EntryOf<zt_tuple>(root->getTupleListValue(), 0)->addAnyElement(ZtCreate<Changing>("t"));
  const LogCapture log;
  EXPECT_EQ(schema.Write(root.get()), "(null)");
  for (const char* at :
       {" at AddServiceDescriptionElementToXml!", " at AddTupleElementToXml!", "!"}) {
    EXPECT_EQ(log.Count(kModule + "PresenceMarshaller XML Failed" + at), 1) << at;
  }
}

// Modes alone have no element around them.
TEST(Presence, ModesAlone) {
  zt_ns_caps_duplextypes modes;
  modes.setFullValue("");
  ZtXMLDocGenerator text;
  text.ztInitXmlDoc();
  EXPECT_EQ(ZtElementWriter(text, {"t"}).Write(&modes, zt_ns_caps_duplextypes::kType), 1);
  EXPECT_STREQ(text.ztGetXmlDoc(), "\n<caps:full></caps:full>");
  text.ztDeInitXmlDoc();
}

}  // namespace
