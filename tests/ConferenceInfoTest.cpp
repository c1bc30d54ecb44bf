// Conference information: what is read, what is kept and what is written.
#include <gtest/gtest.h>
#include <iterator>

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

TEST(ConferenceInfo, EveryElementAndAttribute) {
  const std::string action = "<x/><when>1</when><reason>2</reason><by>3</by><when a='b'>4</when>";
  const std::string actionOut = "\n<when>4</when>\n<reason>2</reason>\n<by>3</by>";
  const struct {
    std::string in;
    std::string out;
  } kCases[] = {
      {"<conference-description a='1' b='2'><free-text>f</free-text><subject>s</subject>"
       "<display-text xml:lang='en'>d</display-text><maximum-user-count>7</maximum-user-count>"
       "<x><subject>no</subject></x></conference-description>",
       "\n<conference-description  a=\"1\"  b=\"2\">\n<display-text>d</display-text>"
       "\n<subject>s</subject>\n<free-text>f</free-text>"
       "\n<maximum-user-count>7</maximum-user-count></conference-description>"},
      {"<conference-description><keywords a='1'>one  two </keywords><maximum-user-count>0"
       "</maximum-user-count></conference-description>",
       "\n<conference-description>\n<keywords>one  two </keywords></conference-description>"},
      {"<conference-description><keywords>old</keywords><keywords></keywords>"
       "</conference-description>",
       "\n<conference-description>\n<keywords></keywords></conference-description>"},
      {"<conference-description><service-uris/><conf-uris state='deleted' a='1'><entry b='2'>"
       "<purpose>p</purpose><display-text>d</display-text><uri>u</uri><modified c='3'>" +
           action + "</modified></entry><entry/></conf-uris></conference-description>",
       "\n<conference-description>\n<conf-uris  state=\"deleted\"  a=\"1\">\n<entry  b=\"2\">"
       "\n<uri>u</uri>\n<display-text>d</display-text>\n<purpose>p</purpose>"
       "\n<modified  c=\"3\">" +
           actionOut +
           "</modified></entry>\n<entry></entry></conf-uris>\n<service-uris></service-uris>"
           "</conference-description>"},
      {"<conference-description><available-media a='1'><entry b='2' label='l'><status>recvonly"
       "</status><type>audio</type><display-text>d</display-text></entry></available-media>"
       "</conference-description>",
       "\n<conference-description>\n<available-media  a=\"1\">\n<entry  label=\"l\"  b=\"2\">"
       "\n<display-text>d</display-text>\n<type>audio</type>\n<status>recvonly</status></entry>"
       "</available-media></conference-description>"},
      {"<host-info a='1'><uris><entry><uri>u</uri></entry></uris><web-page>w</web-page>"
       "<display-text>d</display-text></host-info>",
       "\n<host-info  a=\"1\">\n<display-text>d</display-text>\n<web-page>w</web-page>\n<uris>"
       "\n<entry>\n<uri>u</uri></entry></uris></host-info>"},
      {"<conference-state/>",
       "\n<conference-state>\n<active>false</active>\n<locked>false</locked></conference-state>"},
      {"<conference-state a='1'><locked>yes</locked><active>true</active><user-count>32"
       "</user-count></conference-state>",
       "\n<conference-state  a=\"1\">\n<user-count>32</user-count>\n<active>true</active>"
       "\n<locked>false</locked></conference-state>"},
      {"<users a='1' state='partial'><user b='2' entity='u' state='full'><cascaded-focus>c"
       "</cascaded-focus><languages>de  en</languages><roles z='z'><entry>r1</entry><entry>r2"
       "</entry></roles><associated-aors><entry><uri>u</uri></entry></associated-aors>"
       "<display-text>d</display-text><media id='no'/><entry>no</entry></user><user/></users>",
       "\n<users  state=\"partial\"  a=\"1\">\n<user  state=\"full\"  entity=\"u\"  b=\"2\">"
       "\n<display-text>d</display-text>\n<associated-aors>\n<entry>\n<uri>u</uri></entry>"
       "</associated-aors>\n<roles  z=\"z\">\n<entry>r1</entry>\n<entry>r2</entry></roles>"
       "\n<languages>de  en</languages>\n<cascaded-focus>c</cascaded-focus></user>"
       "\n<user></user></users>"},
      {"<users><user><endpoint a='1' entity='p' state='deleted'><call-info b='2'><sip c='3'>"
       "<to-tag>t</to-tag><from-tag>f</from-tag><call-id>i</call-id><display-text>d"
       "</display-text></sip></call-info><media d='4' id='m'><status>inactive</status><src-id>s"
       "</src-id><label>l</label><type>t</type><display-text>d</display-text></media>"
       "<disconnection-info>" +
           action + "</disconnection-info><joining-info>" + action + "</joining-info><referred>" +
           action +
           "</referred><disconnection-method>booted</disconnection-method><joining-method>"
           "focus-owner</joining-method><status>on-hold</status><display-text>d</display-text>"
           "</endpoint></user></users>",
       "\n<users>\n<user>\n<endpoint  state=\"deleted\"  entity=\"p\"  a=\"1\">"
       "\n<display-text>d</display-text>\n<referred>" +
           actionOut +
           "</referred>\n<status>on-hold</status>\n<joining-method>focus-owner</joining-method>"
           "\n<joining-info>" +
           actionOut +
           "</joining-info>\n<disconnection-method>booted</disconnection-method>"
           "\n<disconnection-info>" +
           actionOut +
           "</disconnection-info>\n<media  id=\"m\"  d=\"4\">\n<display-text>d</display-text>"
           "\n<type>t</type>\n<label>l</label>\n<src-id>s</src-id>\n<status>inactive</status>"
           "</media>\n<call-info  b=\"2\">\n<sip  c=\"3\">\n<display-text>d</display-text>"
           "\n<call-id>i</call-id>\n<from-tag>f</from-tag>\n<to-tag>t</to-tag></sip></call-info>"
           "</endpoint></user></users>"},
      {"<sidebars-by-ref><entry><uri>u</uri></entry></sidebars-by-ref><sidebars-by-val/>",
       "\n<sidebars-by-ref>\n<entry>\n<uri>u</uri></entry></sidebars-by-ref>"
       "\n<sidebars-by-val></sidebars-by-val>"},
      {"<sidebars-by-val a='1' state='partial'><entry version='3' entity='s' x='y' state='full'>"
       "<users/></entry></sidebars-by-val>",
       "\n<sidebars-by-val  state=\"partial\"  a=\"1\">\n<entry  state=\"full\"  version=\"3\"  "
       "x=\"y\"  entity=\"s\">\n<users></users></entry></sidebars-by-val>"},
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

TEST(ConferenceInfo, EveryEnumerationValue) {
  const struct {
    const char* element;
    std::vector<const char*> values;
    unsigned absent;  // for values that are none of these, which are not written
    unsigned (*get)(const zt_endpoint_type& endpoint);
  } kCases[] = {
      {"status",
       {"pending", "dialing-out", "dialing-in", "alerting", "on-hold", "connected",
        "muted-via-focus", "disconnecting", "disconnected"},
       9,
       [](const zt_endpoint_type& e) -> unsigned { return e.getStatusValue(); }},
      {"joining-method",
       {"dialed-in", "dialed-out", "focus-owner"},
       3,
       [](const zt_endpoint_type& e) -> unsigned { return e.getJoiningMethodValue(); }},
      {"disconnection-method",
       {"departed", "booted", "failed", "busy"},
       5,
       [](const zt_endpoint_type& e) -> unsigned { return e.getDisconnectionMethodValue(); }},
  };
  Schema schema(XML_SCHEMA_CONFERENCE_INFO);
  const auto check = [&](const std::string& element, const std::string& value, unsigned index,
                         const std::string& written, unsigned (*get)(const zt_endpoint_type&)) {
    auto root =
        schema.Read<zt_conference_type>(In("<users><user><endpoint><" + element + ">" + value +
                                           "</" + element + "></endpoint></user></users>"));
    auto* user = EntryOf<zt_user_type>(root->getUsersValue()->getUserListValue(), 0);
    EXPECT_EQ(get(*EntryOf<zt_endpoint_type>(user->getEndpointListValue(), 0)), index) << value;
    const std::string child =
        written.empty() ? "" : "\n<" + element + ">" + written + "</" + element + ">";
    EXPECT_EQ(schema.Write(root.get()),
              Out("\n<users>\n<user>\n<endpoint>" + child + "</endpoint></user></users>"));
  };
  for (const auto& test : kCases) {
    unsigned index = 0;
    for (const char* value : test.values) {
      check(test.element, value, index, value, test.get);
      check(test.element, std::string(value) + "-ish", index++, value, test.get);
    }
    check(test.element, "Busy", test.absent, "", test.get);
    check(test.element, "", test.absent, "", test.get);
  }
  unsigned state = 0;
  for (const char* value : {"full", "partialx", "deleted-ish", "none"}) {
    auto root = schema.Read<zt_conference_type>(In("", std::string(" state='") + value + "'"));
    EXPECT_EQ(root->getStateValue(), state++);
    EXPECT_EQ(schema.Write(root.get()).find("  state=") != std::string::npos, state != 4);
  }
  unsigned media = 0;
  for (const char* value : {"recvonly", "sendonlyx", "sendrecv-ish", "inactive", "none"}) {
    auto root = schema.Read<zt_conference_type>(
        In("<conference-description><available-media><entry label='l'><status>" +
           std::string(value) + "</status></entry></available-media></conference-description>"));
    auto* list = root->getConferenceDescriptionValue()->getAvailableMediaValue();
    EXPECT_EQ(EntryOf<zt_conference_medium_type>(list->getEntryListValue(), 0)->getStatusValue(),
              media++);
    EXPECT_EQ(schema.Write(root.get()).find("<status>") != std::string::npos, media != 5);
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
  EXPECT_EQ(schema.writer()->Marshall(nullptr), nullptr);
  EXPECT_EQ(log.Texts(), std::vector<std::string>{"<XML Module>: Conference_infoMarshall :: "
                                                  "Marshall: Receiven NULL Object"});
  TestConference_infoMarshall();
  EXPECT_TRUE(log.Has("<XML Module>: TestConference_infoMarshall"));
  auto root = schema.Read<zt_conference_type>(In("<unknown>text</unknown><users><user/></users>"));
  EXPECT_TRUE(log.Has("Cannot accommodate the element /unknown with value text"));
  schema.Write(root.get());
  schema.Write(root.get());
  EXPECT_TRUE(
      log.Has("<XML Module>: Conference_infoMarshall :: Marshall: Deleting "
              "mConferenceInfoXml"));
  EXPECT_TRUE(log.Has("<XML Module>: AddUserElementToXkjml"));
  EXPECT_EQ(schema.RoundTrip("<conference entity='e'/>"), "(null)");
}

// A caller builds a document, and the hooks refuse what they must.
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
  zt_sidebars_by_val_type* sidebars = factory->CreateSideBarsByValueType();
  root->setSidebarsByValValue(sidebars);
  zt_conference_type* sidebar = factory->CreateConferenceInfoType();
  sidebar->setEntityValue("s");
  sidebar->setConferenceStateValue(factory->CreateConferenceStateType());
  sidebar->getConferenceStateValue()->setActiveValue(1);
  sidebar->getConferenceStateValue()->setLockedValue(2);
  sidebars->addEntry(sidebar);
  EXPECT_EQ(schema.Write(root.get()),
            Out("\n<users>\n<user>\n<languages>en de</languages></user></users>"
                "\n<sidebars-by-val>\n<entry  entity=\"s\">\n<conference-state>"
                "\n<active>true</active>\n<locked>false</locked></conference-state></entry>"
                "</sidebars-by-val>"));

  // Known children of another class are refused, others are kept; names are not words.
  Tree<zt_execution_type> other(factory->CreateExecutionType());
  std::string known[] = {"users", "/languages", "/display-text", "display-text", "other"};
  std::string text = "a b";
  EXPECT_EQ(root->ProcessUnMarshall(known[0].data(), nullptr, other.get()), 0);
  EXPECT_EQ(root->ProcessUnMarshall(known[0].data(), nullptr, nullptr), 0);
  EXPECT_EQ(user->ProcessUnMarshall(known[1].data(), text.data(), other.get()), 0);
  EXPECT_EQ(user->ProcessUnMarshall(known[2].data(), text.data(), other.get()), 0);
  EXPECT_EQ(user->ProcessUnMarshall(known[3].data(), nullptr, nullptr), 1);
  EXPECT_EQ(
      user->ProcessUnMarshall(known[1].data(), text.data(), factory->CreateUserLanguagesType()), 1);
  EXPECT_EQ(CountOf(user->getLanguagesValue()->getLanguageListValue()), 2);
  EXPECT_EQ(root->ProcessUnMarshall(known[4].data(), nullptr, other.get()), 1);
  EXPECT_EQ(EntryOf<XMLElement>(root->getAnyElementValue(), 0), other.release());
}

}  // namespace
