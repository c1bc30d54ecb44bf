// Trees that are written in the standard profile, what is refused, and what the types do not keep.
#include "DocumentSupport.h"
#include "ztxml/reginfo.h"

namespace {

ztxml::Document<zt_reginfo> Registrations(int contacts, const ztxml::Options& options = {}) {
  auto reginfo = *ztxml::Create<zt_reginfo>(options);
  reginfo->setVersionValue(0);
  reginfo->setStateValue(ZT_REGINFO_STATE_FULL);
  zt_registration& registration = *reginfo.Add(&zt_reginfo::addRegistration);
  registration.setAorValue("sip:a@example.com");
  registration.setIdValue("r");
  registration.setStateValue(ZT_REGISTRATION_STATE_ACTIVE);
  for (int i = 0; i < contacts; ++i) {
    auto& contact = *ztxml::Add(registration, &zt_registration::addContact);
    contact.setIdValue(std::to_string(i).c_str());
    contact.setStateValue(ZT_CONTACT_STATE_ACTIVE);
    contact.setEventValue(ZT_CONTACT_EVENT_CREATED);
    contact.setUriValue("sip:a@192.0.2.1;line=<\"&'>");
  }
  return reginfo;
}

TEST(StandardWrite, LongDocumentsAreWrittenWholeUpToTheLimit) {
  const std::string text = TextOf(Registrations(5000).Write());
  EXPECT_GT(text.size(), 5000U * 80);
  for (const std::size_t over : {0U, 1U}) {
    ztxml::Options options;
    options.mostText = text.size() - over;
    const std::string expected = over ? "too long: the text is longer than the limit" : text;
    EXPECT_SAME(TextOf(Registrations(5000, options).Write()), expected);
    auto again = ztxml::Read<zt_reginfo>(text, options);
    ASSERT_TRUE(again);
    EXPECT_SAME(TextOf(again->Write()), expected);
    EXPECT_SAME(TextOf(again->Update()), expected);
  }
}

TEST(StandardWrite, WhatCannotBeXmlIsRefusedWithItsPath) {
  const struct {
    void (*change)(zt_ns_reginfo_contact&);
    const char* error;
  } kCases[] = {
      {[](zt_ns_reginfo_contact& c) { c.setUriValue("\xC3"); },
       "uri: refused: it holds what XML does not allow"},
      {[](zt_ns_reginfo_contact& c) { c.setUriValue("\xED\xA0\x80"); },
       "uri: refused: it holds what XML does not allow"},
      {[](zt_ns_reginfo_contact& c) { c.setCallidValue("\x1F"); },
       "@callid: refused: it holds what XML does not allow"},
      {[](zt_ns_reginfo_contact& c) { c.setUriValue(nullptr); },
       "uri: missing value: a required value is missing"},
      {[](zt_ns_reginfo_contact& c) { c.setStateValue(ZT_CONTACT_STATE_ABSENT); },
       "@state: missing value: a required value is missing"},
  };
  for (const auto& c : kCases) {
    auto reginfo = Registrations(3);
    zt_registration& registration = *EntryOf(reginfo->getRegistrationListValue());
    c.change(*EntryOf(registration.getContactListValue(), 1));
    EXPECT_EQ(TextOf(reginfo.Write()),
              "/reginfo/registration[1]/contact[2]/" + std::string(c.error));
  }
}

// ---- Losses -------------------------------------------------------------------------------------

const std::string kLosing =
    "<reginfo xmlns='urn:ietf:params:xml:ns:reginfo' version='x' state='full' a='1'>\n"
    " <registration aor='a' id='r' state='init'>stray<b:c "
    "xmlns:b='b'><uri/></b:c></registration>\n"
    " <registration aor='a' id='r' state='active'><contact id='c' state='active' event='created' "
    "expires='9z'><uri b='2'>u</uri><uri>v</uri></contact></registration>\n"
    "</reginfo>";
const std::vector<std::string> kLost = {
    "3 /reginfo/@version 1:58",
    "1 /reginfo/@a 1:74",
    "2 /reginfo/registration[1]/(text) 2:44",
    "0 /reginfo/registration[1]/b:c 2:49",
    "3 /reginfo/registration[2]/contact[1]/@expires 3:102",
    "1 /reginfo/registration[2]/contact[1]/uri/@b 3:111",
    "0 /reginfo/registration[2]/contact[1]/uri 3:124",
};
template <class Loss>  // as it is told or kept
std::string LineOf(const Loss& loss) {
  return std::to_string(loss.kind) + ' ' + std::string(loss.path) + ' ' +
         std::to_string(loss.line) + ':' + std::to_string(loss.column);
}

TEST(StandardLosses, BothProfilesTellWhatTheTypesDoNotKeep) {
  for (const ztxml::Options& options :
       {ztxml::Options(), ztxml::ReadOnly().NotingLosses(), ztxml::Exact().NotingLosses()}) {
    auto read = ztxml::Read<zt_reginfo>(kLosing, options);
    ASSERT_TRUE(read);
    std::vector<std::string> lost;
    for (const ztxml::Loss& loss : read->Lost()) lost.push_back(LineOf(loss));
    EXPECT_SAME(lost, kLost);
  }
}

// ---- Workers ------------------------------------------------------------------------------------

// A context's workers do all that as well, and log why something is refused.
TEST(StandardWorkers, TellLossesAndLogRefusals) {
  for (const eXMLProfile profile : {XML_PROFILE_EXACT, XML_PROFILE_STANDARD}) {
    Schema schema(XML_SCHEMA_REGINFO, profile);
    XMLContext& context = *schema.context();
    EXPECT_EQ(context.UseProfile(XML_PROFILE_STANDARD), 0);  // there are workers
    EXPECT_EQ(context.profile(), profile);
    std::vector<std::string> told;
    context.TellLosses(
        [](const ZtLoss& loss, void* lines) {
          static_cast<std::vector<std::string>*>(lines)->push_back(LineOf(loss));
        },
        &told);
    EXPECT_TRUE(schema.Read<zt_reginfo>(kLosing));
    EXPECT_SAME(told, kLost);
    if (profile == XML_PROFILE_EXACT) continue;

    const std::string text = TextOf(Registrations(1).Write());
    const LogCapture log(4);
    const auto forgotten = schema.Read<zt_reginfo>(text);
    EXPECT_EQ(schema.Update(forgotten.get()), "(null)");
    EXPECT_TRUE(log.Has("was not kept"));
    context.KeepSource(true);
    const auto root = schema.Read<zt_reginfo>(text);
    for (const bool updates : {false, true}) {
      const auto write = [&] {
        return updates ? schema.Update(root.get()) : schema.Write(root.get());
      };
      context.LimitText(text.size() - 1);
      EXPECT_EQ(write(), "(null)");
      EXPECT_TRUE(log.Texts().back().find("longer than the limit") != std::string::npos);
      context.LimitText(text.size());
      EXPECT_SAME(write(), text);
    }
    auto* registration = EntryOf(root->getRegistrationListValue());
    EntryOf(registration->getContactListValue())->setUriValue("\x01");
    EXPECT_EQ(schema.Update(root.get()), "(null)");
    EXPECT_TRUE(log.Has("/reginfo/registration[1]/contact[1]/uri cannot be written"))
        << log.Texts().back();
  }
}

}  // namespace
