// Conference information: what is read, what is kept and what is written.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLConferenceInfo.h"
#include "base/ZtMemory.h"

namespace {

const std::string kNamespace = "xmlns=\"urn:ietf:params:xml:ns:conference-info\"";
const std::string kStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<conference-info  " + kNamespace;
const std::string kEnd = "</conference-info>";

// A document around `content` and the text that is written for it around `written`.
std::string In(const std::string& content, const std::string& attributes = "") {
  return "<conference-info entity='e'" + attributes + ">" + content + kEnd;
}
std::string Out(const std::string& content, const std::string& attributes = "") {
  return kStart + attributes + "  entity=\"e\">" + content + kEnd;
}

TEST(ConferenceInfo, WritesWhatItReads) {
  const struct {
    std::string in;
    std::string out;
  } kCases[] = {
      {"<conference-description><keywords a='1'>one  two </keywords><maximum-user-count>0"
       "</maximum-user-count></conference-description>",
       "\n<conference-description>\n<keywords>one  two </keywords></conference-description>"},
      {"<conference-description><keywords>old</keywords><keywords></keywords>"
       "</conference-description>",
       "\n<conference-description>\n<keywords></keywords></conference-description>"},
      {"<conference-state/>",
       "\n<conference-state>\n<active>false</active>\n<locked>false</locked></conference-state>"},
      {"<users><user><languages>de  en</languages><media id='no'/><entry>no</entry></user><user/>"
       "</users>",
       "\n<users>\n<user>\n<languages>de  en</languages></user>\n<user></user></users>"},
      // Elements in another's place are unknown.
      {"<user entity='no'/><uris/><entry/><available-media/><sip/><languages>no</languages>", ""},
  };
  Schema schema(XML_SCHEMA_CONFERENCE_INFO);
  for (const auto& test : kCases) {
    const std::string text = schema.RoundTrip(In(test.in));
    EXPECT_EQ(text, Out(test.out)) << test.in;
    EXPECT_EQ(schema.RoundTrip(text), text);
  }
  EXPECT_EQ(
      schema.RoundTrip("<c:conference-info xmlns:c='u' xmlns='v' b='2' version='5' b='3' "
                       "state='partial' entity='e'/>"),
      kStart + "  state=\"partial\"  version=\"5\"  xmlns:c=\"u\"  b=\"2\"  entity=\"e\">" + kEnd);
}

// What is none of an enumeration's values is not written. Of methods and statuses callers are told.
TEST(ConferenceInfo, ValuesAreKnownByTheirBeginnings) {
  const struct {
    const char *status, *joining, *disconnection;
    unsigned values[3];
  } kCases[] = {
      {"pending", "dialed-in", "departed", {0, 0, 0}},
      {"dialing-out", "dialed-out", "booted", {1, 1, 1}},
      {"dialing-in-ish", "focus-owner-ish", "failed-ish", {2, 2, 2}},
      {"alerting", "none", "busy", {3, 3, 3}},
      {"on-hold", "none", "none", {4, 3, 5}},
      {"connected", "none", "none", {5, 3, 5}},
      {"muted-via-focus", "none", "none", {6, 3, 5}},
      {"disconnecting", "none", "none", {7, 3, 5}},
      {"disconnected", "none", "none", {8, 3, 5}},
      {"Pending", "", "Busy", {9, 3, 5}},  // absent, but for the last, which is one more
  };
  Schema schema(XML_SCHEMA_CONFERENCE_INFO);
  for (const auto& [status, joining, disconnection, values] : kCases) {
    auto root = schema.Read<zt_conference_type>(
        In("<users><user><endpoint><status>" + std::string(status) + "</status><joining-method>" +
           joining + "</joining-method><disconnection-method>" + disconnection +
           "</disconnection-method></endpoint></user></users>"));
    auto* user = EntryOf<zt_user_type>(root->getUsersValue()->getUserListValue(), 0);
    auto* endpoint = EntryOf<zt_endpoint_type>(user->getEndpointListValue(), 0);
    EXPECT_EQ(static_cast<unsigned>(endpoint->getStatusValue()), values[0]);
    EXPECT_EQ(static_cast<unsigned>(endpoint->getJoiningMethodValue()), values[1]);
    EXPECT_EQ(static_cast<unsigned>(endpoint->getDisconnectionMethodValue()), values[2]);
    const std::string text = schema.Write(root.get());
    EXPECT_EQ(text.find("<endpoint></endpoint>") != std::string::npos, values[0] == 9) << text;
    EXPECT_EQ(text.find("-ish"), std::string::npos) << text;
  }
}

TEST(ConferenceInfo, WhatIsRequiredFailsTheDocument) {
  const struct {
    std::string in;
    std::vector<const char*> lines;
  } kCases[] = {
      {"<conference-info/>",
       {"<XML Module>: AddConferenceInfoElementToXml entity attribute is mandatory"}},
      {In("<sidebars-by-val><entry entity='e'/><entry/></sidebars-by-val>"),
       {"<XML Module>: AddConferenceInfoElementToXml entity attribute is mandatory",
        "<XML Module>: Add Sidebars_by_val ElementToXml fail @ tempNum: 1"}},
      {In("<users><user/><user><endpoint><media id='i'/><media/></endpoint></user></users>"),
       {"<XML Module>: AddMediaElementToXml: id attribute mandatory",
        "<XML Module>: issue in Media Element number [tempNum: 1]",
        "<XML Module>: AddEndPointElementToXml XML Failed!",
        "<XML Module>: AddIUsersElementToXml tempNum: 1"}},
      {In("<conference-description><available-media><entry label='l'/><entry/></available-media>"
          "</conference-description>"),
       {"<XML Module>: AddConferenceMediaTypeElementToXml tempNum: 1",
        "<XML Module>: AddConferenceMediaTypeElementToXml: label attribute mandatory tempNum:1"}},
  };
  Schema schema(XML_SCHEMA_CONFERENCE_INFO);
  for (const auto& test : kCases) {
    LogCapture log;
    EXPECT_EQ(schema.RoundTrip(test.in), "(null)") << test.in;
    EXPECT_TRUE(log.Has("<XML Module>: Conference_infoMarshall XML Failed!"));
    for (const char* line : test.lines) EXPECT_EQ(log.Count(line), 1) << line;
    EXPECT_FALSE(log.Has("(null)"));
  }
  LogCapture log;
  TestConference_infoMarshall();
  EXPECT_TRUE(log.Has("<XML Module>: TestConference_infoMarshall"));
  schema.RoundTrip(In("<unknown>text</unknown>"));
  EXPECT_TRUE(log.Has("Cannot accommodate the element /unknown with value text"));
  EXPECT_EQ(schema.RoundTrip("<conference entity='e'/>"), "(null)");
}

// A caller builds a document.
TEST(ConferenceInfo, BuiltByTheFactory) {
  Schema schema(XML_SCHEMA_CONFERENCE_INFO);
  auto* factory = static_cast<ConferenceInfoDataBinder*>(schema.context()->createBinderFactory());
  Tree<zt_conference_info> root(static_cast<zt_conference_info*>(factory->CreateRootElement()));
  EXPECT_EQ(root->IsRootElement(), 1);
  root->setEntityValue("e");
  zt_users_type* users = factory->CreateUsersType();
  root->setUsersValue(users);
  zt_user_type* user = factory->CreateUserType();
  users->addUser(user);
  zt_user_languages_type* languages = factory->CreateUserLanguagesType();
  user->setLanguagesValue(languages);
  for (const char* tag : {"en", "", "de"}) {
    zt_string* word = ZtCreate<zt_string>("t");
    if (*tag) word->setValue(tag);
    languages->addLanguage(word);
  }
  root->setConferenceStateValue(factory->CreateConferenceStateType());
  root->getConferenceStateValue()->setActiveValue(1);
  root->getConferenceStateValue()->setLockedValue(2);
  EXPECT_EQ(
      schema.Write(root.get()),
      Out("\n<conference-state>\n<active>true</active>\n<locked>false</locked>"
          "</conference-state>\n<users>\n<user>\n<languages>en de</languages></user></users>"));
  // Names are not words.
  std::string end = "/languages", text = "a b";
  EXPECT_EQ(user->ProcessUnMarshall(end.data(), text.data(), factory->CreateUserLanguagesType()),
            1);
  EXPECT_EQ(CountOf(user->getLanguagesValue()->getLanguageListValue()), 2);
}

}  // namespace
