// What the published schemas ask of documents that the standard profile reads and writes.
#include "DocumentSupport.h"
#include "ztxml/ztxml.h"

namespace {

std::string Indication(const std::string& version) {
  return "<ims-3gpp version=\"" + version + "\"><service-info>s</service-info></ims-3gpp>";
}

// The version of a 3GPP IMS body is a decimal by its schema, and a whole number in the types.
TEST(StandardSchemas, AWholeDecimalIsANumber) {
  for (const char* one : {"1", "1.0", " +01.000 ", "1.", "10"}) {
    auto read = ztxml::Read<zt_ims_3gpp>(Indication(one));
    ASSERT_TRUE(read) << one;
    const std::string number = one == std::string("10") ? "10" : "1";
    EXPECT_EQ(std::to_string((*read)->getVersionValue()), number) << one;
    EXPECT_NE(TextOf(read->Write()).find(" version=\"" + number + '"'), std::string::npos) << one;
    EXPECT_EQ(TextOf(read->Update()), Indication(one));
  }
  for (const char* none : {"1.5", ".", "-1.0", "1.0.0", "1e0", "4294967296.0"}) {
    auto read = ztxml::Read<zt_ims_3gpp>(Indication(none));
    ASSERT_TRUE(read) << none;
    EXPECT_EQ(read->Write().error().code, ztxml::Code::kMissingValue) << none;
    EXPECT_EQ(TextOf(read->Update()), Indication(none));
  }
}

// The value of xsi:type is a name with a prefix, which is bound in the document that was read only.
TEST(StandardSchemas, ATypeOfAnInstanceStaysInItsDocument) {
  const std::string text =
      "<c:conference-info xmlns:c=\"urn:ietf:params:xml:ns:conference-info\""
      " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:o=\"urn:o\" entity=\"e\""
      " xsi:type=\"c:conference-type\" o:type=\"&lt;&#10;\" xsi:schemaLocation=\"urn:o o.xsd\"/>";
  auto read = ztxml::Read<zt_conference_type>(text);
  ASSERT_TRUE(read);
  const std::string written = TextOf(read->Write());
  EXPECT_EQ(written.find("xsi:type"), std::string::npos) << written;
  EXPECT_NE(written.find(" o:type=\"&lt;&#10;\""), std::string::npos) << written;
  EXPECT_NE(written.find(" xsi:schemaLocation=\"urn:o o.xsd\""), std::string::npos) << written;
  EXPECT_SAME(TextOf(ztxml::Read<zt_conference_type>(written)->Write()), written);
  EXPECT_EQ(TextOf(read->Update()), text);
  // Nor does one come beside it.
  (*read)->addAnyAttribute(zt_xml_common_methods::CreateAttribute("xsi:type", "c:other"));
  EXPECT_EQ(TextOf(read->Update()), text);
}

}  // namespace
