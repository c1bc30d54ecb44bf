// Trees that are written in the standard profile, and what is refused.
#include "StandardSupport.h"
#include "ztxml/XMLConferenceInfo.h"
#include "ztxml/XMLReginfo.h"
#include "ztxml/XMLSimservs.h"

namespace {

Tree<zt_reginfo> Registrations(int contacts) {
  Tree<zt_reginfo> reginfo(static_cast<zt_reginfo*>(ReginfoDataBinder().CreateRootElement()));
  reginfo->setVersionValue(0);
  reginfo->setStateValue(ZT_REGINFO_STATE_FULL);
  zt_registration* registration = ReginfoDataBinder().CreateRegistrationElement();
  registration->setAorValue("sip:a@example.com");
  registration->setIdValue("r");
  registration->setStateValue(ZT_REGISTRATION_STATE_ACTIVE);
  reginfo->addRegistration(registration);
  for (int i = 0; i < contacts; ++i) {
    zt_ns_reginfo_contact* contact = ReginfoDataBinder().CreateContactElement();
    contact->setIdValue(std::to_string(i).c_str());
    contact->setStateValue(ZT_CONTACT_STATE_ACTIVE);
    contact->setEventValue(ZT_CONTACT_EVENT_CREATED);
    contact->setUriValue("sip:a@192.0.2.1;line=<\"&'>");
    registration->addContact(contact);
  }
  return reginfo;
}

TEST(StandardWrite, LongDocumentsAreWrittenWholeUpToTheLimit) {
  StandardSchema schema(XML_SCHEMA_REGINFO);
  const Tree<zt_reginfo> reginfo = Registrations(5000);
  const std::string text = schema.Write(reginfo.get());
  EXPECT_GT(text.size(), 5000U * 80);
  const auto again = schema.Read<zt_reginfo>(text);
  ASSERT_TRUE(again);
  EXPECT_SAME(schema.Write(again.get()), text);
  EXPECT_SAME(schema.Update(again.get()), text);

  const LogCapture log(4);
  for (const std::size_t over : {1U, 0U}) {
    schema.Context().LimitText(text.size() - over);
    EXPECT_SAME(schema.Write(reginfo.get()), over ? "(null)" : text);
    EXPECT_SAME(schema.Update(again.get()), over ? "(null)" : text);
  }
  EXPECT_EQ(log.Count("longer than the limit"), 2);
}

TEST(StandardWrite, WhatCannotBeXmlIsRefusedWithItsPath) {
  StandardSchema schema(XML_SCHEMA_REGINFO);
  using Change = void (*)(zt_ns_reginfo_contact&);
  const struct {
    Change change;
    const char* path;
    const char* why;
  } kCases[] = {
      {[](zt_ns_reginfo_contact& c) { c.setUriValue("\xC3"); }, "contact[2]/uri", "XML"},
      {[](zt_ns_reginfo_contact& c) { c.setUriValue("\xED\xA0\x80"); }, "contact[2]/uri", "XML"},
      {[](zt_ns_reginfo_contact& c) { c.setCallidValue("\x1F"); }, "contact[2]/@callid", "XML"},
      {[](zt_ns_reginfo_contact& c) { c.setUriValue(nullptr); }, "contact[2]/uri", "required"},
      {[](zt_ns_reginfo_contact& c) { c.setStateValue(ZT_CONTACT_STATE_ABSENT); },
       "contact[2]/@state", "required"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(std::string(c.path) + ' ' + c.why);
    const Tree<zt_reginfo> reginfo = Registrations(3);
    auto* registration = EntryOf<zt_registration>(reginfo->getRegistrationListValue(), 0);
    c.change(*EntryOf<zt_ns_reginfo_contact>(registration->getContactListValue(), 1));
    const LogCapture log(4);
    EXPECT_SAME(schema.Write(reginfo.get()), "(null)");
    EXPECT_TRUE(log.Has("/reginfo/registration[1]/" + std::string(c.path)));
    EXPECT_TRUE(log.Has(c.why)) << log.Texts().back();
  }
}

TEST(StandardWrite, AnAttributeKeepsItsNamespaceOutsideOfItsDocument) {
  StandardSchema schema(XML_SCHEMA_CONFERENCE_INFO);
  const auto root = schema.Read<zt_conference_type>(
      "<c:conference-info xmlns:c='urn:ietf:params:xml:ns:conference-info' xmlns:x='urn:x' "
      "entity='sip:c' x:y='&lt;&#10;' xml:lang='en'/>");
  ASSERT_TRUE(root);
  const std::string text = schema.Write(root.get());
  const auto again = schema.Read<zt_conference_type>(text);
  ASSERT_TRUE(again) << text;
  EXPECT_NE(text.find("xmlns:x=\"urn:x\""), std::string::npos) << text;
  EXPECT_NE(text.find("x:y=\"&lt;&#10;\""), std::string::npos) << text;
  EXPECT_SAME(schema.Write(again.get()), text);
}

// ---- Losses -------------------------------------------------------------------------------------

TEST(StandardLosses, BothProfilesTellWhatTheTypesDoNotKeep) {
  const std::string text =
      "<reginfo xmlns='urn:ietf:params:xml:ns:reginfo' version='x' state='full' a='1'>\n"
      " <registration aor='a' id='r' state='init'>stray<b:c "
      "xmlns:b='b'><uri/></b:c></registration>\n"
      " <registration aor='a' id='r' state='active'><contact id='c' state='active' event='created' "
      "expires='9z'><uri b='2'>u</uri><uri>v</uri></contact></registration>\n"
      "</reginfo>";
  const std::vector<std::string> expected = {
      "3 /reginfo/@version 1:58",
      "1 /reginfo/@a 1:74",
      "2 /reginfo/registration[1]/(text) 2:44",
      "0 /reginfo/registration[1]/b:c 2:49",
      "3 /reginfo/registration[2]/contact[1]/@expires 3:102",
      "1 /reginfo/registration[2]/contact[1]/uri/@b 3:111",
      "0 /reginfo/registration[2]/contact[1]/uri 3:124",
  };
  for (const eXMLProfile profile : {XML_PROFILE_STANDARD, XML_PROFILE_EXACT}) {
    XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_REGINFO);
    std::vector<std::string> told;
    context->UseProfile(profile);
    context->TellLosses(
        [](const ZtLoss& loss, void* lines) {
          static_cast<std::vector<std::string>*>(lines)->push_back(
              std::to_string(loss.kind) + ' ' + loss.path + ' ' + std::to_string(loss.line) + ':' +
              std::to_string(loss.column));
        },
        &told);
    const Tree<XMLElement> root(context->createUnMarshaller()->UnMarshall(text.c_str()));
    EXPECT_TRUE(root);
    EXPECT_SAME(told, expected);
    XMLFactory::deleteContext(context);
  }
}

}  // namespace
