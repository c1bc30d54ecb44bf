// What the published schemas ask of documents that the standard profile reads and writes.
#include "StandardSupport.h"
#include "ztxml/XMLCWIndication.h"
#include "ztxml/XMLConferenceInfo.h"

namespace {

std::string Indication(const std::string& version) {
  return "<ims-3gpp version=\"" + version + "\"><service-info>s</service-info></ims-3gpp>";
}

}  // namespace

// The version of a 3GPP IMS body is a decimal by its schema, and a whole number in the types.
TEST(StandardSchemas, AWholeDecimalIsANumber) {
  StandardSchema schema(XML_SCHEMA_CW_INDICATION);
  for (const char* one : {"1", "1.0", " +01.000 ", "1."}) {
    auto tree = schema.Read<zt_ims_3gpp>(Indication(one));
    ASSERT_TRUE(tree) << one;
    EXPECT_EQ(tree->getVersionValue(), 1U) << one;
    EXPECT_NE(schema.Write(tree.get()).find(" version=\"1\""), std::string::npos) << one;
    EXPECT_EQ(schema.Update(tree.get()), Indication(one));
  }
  auto ten = schema.Read<zt_ims_3gpp>(Indication("10"));
  ASSERT_TRUE(ten);
  EXPECT_EQ(ten->getVersionValue(), 10U);
  for (const char* none : {"1.5", ".", "-1.0", "1.0.0", "1e0", "4294967296.0"}) {
    auto tree = schema.Read<zt_ims_3gpp>(Indication(none));
    ASSERT_TRUE(tree) << none;
    EXPECT_EQ(schema.Write(tree.get()), "(null)") << none;
    EXPECT_EQ(schema.Update(tree.get()), Indication(none));
  }
}

// The value of xsi:type is a name with a prefix, which is bound in the document that was read only.
TEST(StandardSchemas, ATypeOfAnInstanceStaysInItsDocument) {
  const std::string text =
      "<c:conference-info xmlns:c=\"urn:ietf:params:xml:ns:conference-info\""
      " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:o=\"urn:o\" entity=\"e\""
      " xsi:type=\"c:conference-type\" o:type=\"kept\" xsi:schemaLocation=\"urn:o o.xsd\"/>";
  StandardSchema schema(XML_SCHEMA_CONFERENCE_INFO);
  auto tree = schema.Read<zt_conference_type>(text);
  ASSERT_TRUE(tree);
  const std::string written = schema.Write(tree.get());
  EXPECT_EQ(written.find("xsi:type"), std::string::npos) << written;
  EXPECT_NE(written.find(" o:type=\"kept\""), std::string::npos) << written;
  EXPECT_NE(written.find(" xsi:schemaLocation=\"urn:o o.xsd\""), std::string::npos) << written;
  EXPECT_EQ(schema.Update(tree.get()), text);
  // Nor does one come beside it.
  tree->addAnyAttribute(zt_xml_common_methods::CreateAttribute("xsi:type", "c:other"));
  EXPECT_EQ(schema.Update(tree.get()), text);
}
