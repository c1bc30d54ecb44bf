// Flags and attributes that are in no golden document.
#include <gtest/gtest.h>

#include "ApiTable.h"
#include "DocumentSupport.h"

namespace {

// Of a flag that is present without a name nothing is written; a flag of a rule needs a name.
TEST(Hooks, FlagsWithoutAName) {
  zt_empty_element_type flag;
  flag.setPresentValue(1);
  const LogCapture log(3);
  EXPECT_EQ(MediaControlMarshaller().AddEmptyElementToXml(&flag), 1);
  EXPECT_EQ(CallWaitingIndicationMarshaller().AddCallWaitingIndicationElementToXml(&flag), 1);
  EXPECT_TRUE(log.Texts().empty());
  EXPECT_EQ(Communication_diversionMarshaller().AddEmptyElementtoXml(&flag), 0);
  CallWaitingIndicationDataBinder make;
  const Tree<XMLElement> root(make.CreateRootElement());
  auto* service = make.CreateAlternativeServiceElement();
  auto* action = make.CreateActionElement();
  zt_empty_element_type* nameless = make.CreateCallWaitingIndicationElement();
  nameless->setValue(nullptr);
  nameless->setPresentValue(1);
  action->setCallWaitingIndicationValue(nameless);
  service->setActionValue(action);
  static_cast<zt_3gpp_ims*>(root.get())->setAlternativeServiceValue(service);
  EXPECT_SAME(Schema(XML_SCHEMA_CALL_WAITING_INDICATION).Write(root.get()),
              Document("<3gpp-ims><alternative-service><action></action></alternative-service>"
                       "</3gpp-ims>"));
}

// A blank before the equals sign is part of an attribute's name: types with unknown attributes keep
// it.
TEST(Hooks, BlanksBeforeTheEqualsSign) {
  Schema lists(XML_SCHEMA_RESOURCE_LISTS);
  const auto list = [&](const std::string& attributes) {
    const std::string text =
        lists.RoundTrip("<resource-lists><list" + attributes + "/></resource-lists>");
    const std::size_t at = text.find("<list") + 5;
    return text.substr(at, text.find('>', at) - at);
  };
  EXPECT_EQ(list(" name = 'n'"), "  name =\"n\"");
  EXPECT_EQ(list(" name\t= 'n' name='m'"), "  name=\"m\"");  // the tag has one already
  EXPECT_EQ(list(" x ='1' x='2'"), "  x =\"1\"");
  EXPECT_SAME(
      Schema(XML_SCHEMA_OIP).RoundTrip("<originating-identity-presentation active =\"true\"/>"),
      "<ss:originating-identity-presentation  active=\"false\"/>");
}

}  // namespace
