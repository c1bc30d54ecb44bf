// The small documents: file transfer, media control, terms, bootstrapping, the two indications of
// the IMS, and the provisioning documents.
#include <functional>
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLBootstrappingInfo.h"
#include "XMLCWIndication.h"
#include "XMLCallWaitingIndication.h"
#include "XMLFt.h"
#include "XMLMediaControl.h"
#include "XMLRcsTermsInfo.h"
#include "XMLVolteConfigInfo.h"
#include "XMLWapProvisioningDoc.h"

namespace {

const std::string kHeader = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

TEST(SmallDocuments, WriteWhatTheyRead) {
  const struct {
    eXMLSchemaID schema;
    const char* in;
    const char* out;
  } kCases[] = {
      {XML_SCHEMA_FILE,
       "<f:file><f:file-info type='file' a='b'><data url='u' x='y' until='t' etag='e'>text</data>"
       "<file-size>123</file-size><file-name>n</file-name></f:file-info><file-info><file-size>0"
       "</file-size><data url='old'/><data/></file-info></f:file>",
       "<file>\n<file-info  type=\"file\">\n<file-size>123</file-size>\n<data  etag=\"e\"  "
       "until=\"t\"  url=\"u\"/></file-info>\n<file-info>\n<data/></file-info></file>"},
      {XML_SCHEMA_MEDIA_CONTROL,
       "<media_control><vc_primitive><to_encoder><picture_fast_update>t</picture_fast_update>"
       "</to_encoder></vc_primitive><general_error>e</general_error></media_control>",
       "<media_control>\n<vc_primitive>\n<to_encoder>\n<picture_fast_update/></to_encoder>"
       "</vc_primitive></media_control>"},
      {XML_SCHEMA_MEDIA_CONTROL,
       "<media_control><vc_primitive/><vc_primitive><to_encoder><freeze/></to_encoder>"
       "</vc_primitive></media_control>",
       "<media_control>\n<vc_primitive>\n<to_encoder></to_encoder></vc_primitive></media_control>"},
      {XML_SCHEMA_RCS_TERMS_INFO,
       "<rcs-terms-info version='2'><term><url>u&amp;</url><title>t</title></term><term/>"
       "<termsVersion>7.1</termsVersion></rcs-terms-info>",
       "<rcs-terms-info  version=\"2\">\n<termsVersion>7.1</termsVersion>\n<term>\n<title>t</title>"
       "\n<url>u&amp;</url></term>\n<term></term></rcs-terms-info>"},
      {XML_SCHEMA_RCS_TERMS_INFO, "<rcs-terms-info version='0'/>",
       "<rcs-terms-info></rcs-terms-info>"},
      {XML_SCHEMA_CALL_WAITING_INDICATION,
       "<3gpp-ims><alternative-service><action>x</action></alternative-service></3gpp-ims>",
       "<3gpp-ims>\n<alternative-service>\n<action></action></alternative-service></3gpp-ims>"},
      {XML_SCHEMA_CW_INDICATION, "<3gpp-ims/>", nullptr},
      {XML_SCHEMA_CALL_WAITING_INDICATION, "<ims-3gpp/>", nullptr},
  };
  for (const auto& test : kCases) {
    Schema schema(test.schema);
    const std::string text = schema.RoundTrip(test.in);
    EXPECT_EQ(text, test.out ? kHeader + test.out : "(null)") << test.in;
    if (!test.out) continue;
    EXPECT_EQ(schema.RoundTrip(text), text);
  }
}

TEST(SmallDocuments, BootstrappingTellsWhatIsMissing) {
  LogCapture log;
  Schema(XML_SCHEMA_BOOTSTRAPPING_INFO).RoundTrip("<BootstrappingInfo/>");
  EXPECT_TRUE(log.Has("<XML Module>: BootstrappingInfoElement btid not present"));
  EXPECT_TRUE(log.Has("<XML Module>: BootstrappingInfoElement lifetime not present"));
}

TEST(SmallDocuments, FlagsOfTheFactories) {
  LogCapture log;
  Schema control(XML_SCHEMA_MEDIA_CONTROL);
  MediaControlDataBinder make;
  Tree<zt_media_control> root(static_cast<zt_media_control*>(make.CreateRootElement()));
  root->setVcPrimitiveValue(make.CreateVcPrimitiveElement());
  root->getVcPrimitiveValue()->setToEncoderValue(make.CreateToEncoderElement());
  zt_empty_element_type* flag = make.CreatePictureFastUpdateElement();
  root->getVcPrimitiveValue()->getToEncoderValue()->setPictureFastUpdateValue(flag);
  const std::string start = kHeader + "<media_control>\n<vc_primitive>\n<to_encoder>";
  const std::string end = "</to_encoder></vc_primitive></media_control>";
  EXPECT_EQ(control.Write(root.get()), start + "\n<picture_fast_update/>" + end);
  flag->setPresentValue(0);
  EXPECT_EQ(control.Write(root.get()), start + end);
  EXPECT_TRUE(
      log.Has("MediaControlMarshaller::AddEmptyElementToXml: Received empty present false"));
  MediaControlMarshaller writer;
  EXPECT_EQ(writer.AddEmptyElementToXml(nullptr), 0);
  EXPECT_TRUE(
      log.Has("MediaControlMarshaller::AddEmptyElementToXml: Received empty element is NULL"));

  Schema indication(XML_SCHEMA_CALL_WAITING_INDICATION);
  CallWaitingIndicationDataBinder makeIndication;
  Tree<zt_3gpp_ims> ims(static_cast<zt_3gpp_ims*>(makeIndication.CreateRootElement()));
  ims->setAlternativeServiceValue(makeIndication.CreateAlternativeServiceElement());
  zt_ns_call_waiting_indication_action* action = makeIndication.CreateActionElement();
  ims->getAlternativeServiceValue()->setActionValue(action);
  action->setCallWaitingIndicationValue(makeIndication.CreateCallWaitingIndicationElement());
  EXPECT_NE(indication.Write(ims.get()).find("<call-waiting-indication/>"), std::string::npos);
  action->getCallWaitingIndicationValue()->setPresentValue(0);
  EXPECT_EQ(indication.Write(ims.get()), "(null)");
  EXPECT_TRUE(
      log.Has("CallWaitingIndicationMarshaller::AddCallWaitingIndicationElementToXml: "
              "Received empty present false"));
}

// A provisioning tree on one line: type(name=value ... groups).
std::string Told(const char* type, ZtSingleElementList* parms, ZtSingleElementList* groups) {
  std::string text = std::string(type ? type : "-") + "(";
  for (ZtListNode* node = parms ? parms->GetPtrToListHead() : nullptr; node; node = node->next) {
    auto* parm = ZtAs<zt_parm>(static_cast<XMLElement*>(node->data));
    text += std::string(parm->getParmName() ? parm->getParmName() : "-") + "=" +
            (parm->getParmValue() ? parm->getParmValue() : "-") + " ";
  }
  for (ZtListNode* node = groups ? groups->GetPtrToListHead() : nullptr; node; node = node->next) {
    auto* group = ZtAs<zt_characteristic>(static_cast<XMLElement*>(node->data));
    text += Told(group->getType(), group->getParamList(), group->getCharacteristicList());
  }
  return text + ")";
}

TEST(Provisioning, IsOnlyRead) {
  const std::string content =
      " version='1.1' x='y'><characteristic type='A' name='no'><parm name='n' value='&lt;v'/>"
      "<characteristic type='B'><parm value=''/></characteristic><parm/><other><parm name='no'/>"
      "</other><type>no</type></characteristic><parm name='no'/><characteristic/>";
  const std::string expected = "1.1(A(n=<v -=- B(-= ))-())";
  const struct {
    eXMLSchemaID schema;
    const char* root;
    bool served;
  } kCases[] = {
      {XML_SCHEMA_WAP_PROVISIONING_DOC, "wap-provisioningdoc", true},
      {XML_SCHEMA_WAP_PROVISIONING_DOC, "volte-config-info", false},
      {XML_SCHEMA_VOLTE_CONFIG_INFO, "volte-config-info", true},
      {XML_SCHEMA_VOLTE_CONFIG_INFO, "wap-provisioningdoc", true},
  };
  for (const auto& test : kCases) {
    const std::string name = test.root, text = "<" + name + content + "</" + name + ">";
    Schema schema(test.schema);
    auto root = schema.Read<ZtProvisioning>(text);
    ASSERT_EQ(root != nullptr, test.served) << name;
    if (!root) continue;
    EXPECT_EQ(root->IsRootElement(), 1);
    EXPECT_EQ(schema.Write(root.get()), "(null)");
    EXPECT_FALSE(XMLFactory::getSchemaInfo(test.schema)->writes);
    const auto told = [&] {
      root = schema.Read<ZtProvisioning>(text);
      return root ? Told(root->getVersion(), nullptr, root->getCharacteristicList()) : "(null)";
    };
    EXPECT_EQ(told(), expected);
    ExpectWholeOrNothing(told);
  }
}

TEST(Provisioning, HooksTakeTextsUnderPlainNames) {
  WapProvisioningDocDataBinder make;
  Tree<zt_characteristic> group(make.CreateCharacteristic());
  Tree<zt_parm> parm(make.CreateParm());
  std::string type = "type", slashed = "/type", nested = "characteristic", value = "v";
  EXPECT_EQ(group->ProcessUnMarshall(type.data(), value.data(), nullptr), 1);
  EXPECT_EQ(group->ProcessUnMarshall(slashed.data(), slashed.data(), nullptr), 1);
  EXPECT_EQ(group->ProcessUnMarshall(type.data(), slashed.data(), parm.get()), 1);
  EXPECT_EQ(group->ProcessUnMarshall(type.data(), nullptr, nullptr), 1);
  EXPECT_STREQ(group->getType(), "v");
  EXPECT_EQ(group->ProcessUnMarshall(nested.data(), nullptr, parm.get()), 0);
  EXPECT_EQ(group->ProcessUnMarshall(nested.data(), nullptr, nullptr), 0);
}

}  // namespace
