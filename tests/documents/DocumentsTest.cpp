// Documents of several kinds: what their golden files do not say.
#include <tuple>

#include "ApiTable.h"
#include "DocumentSupport.h"
#include "base/ZtMemory.h"
#include "binding/ZtElementWriter.h"
#include "ztxml/ztxml.h"

namespace {

// ---- Hooks --------------------------------------------------------------------------------------

// An element of the plain class.
struct Plain : Nameless {
  const char* ClassName() const override { return "XMLElement"; }
};

// Names that only begin like one of the table, and objects of callers.
TEST(Hooks, TakeWhatTheyKnow) {
  zt_status status;
  zt_error statusError;
  zt_xcap_error error;
  zt_extension extension;
  zt_exists exists;
  const std::tuple<XMLElement&, std::string, XMLElement*, int> kCases[] = {
      {status, "other", &statusError, 1},  // dropped: only the plain class is kept, and the values
      {status, "other", ZtCreate<Plain>("tests/Hooks"), 1},
      {status, "/error", ZtCreate<zt_error>("tests/Hooks"), 1},
      {error, "not-utf-8", nullptr, 0},
      {error, "not-utf-8-extra", &exists, 0},
      {error, "not-utf-", &extension, 1},
      {error, "/not-utf-8", nullptr, 1},
      {error, "extension", ZtCreate<zt_no_parent>("tests/Hooks"), 1},
      {error, "not-utf-8-extra", ZtCreate<zt_cannot_delete>("tests/Hooks"), 1},
  };
  for (auto [self, name, child, result] : kCases) {
    EXPECT_EQ(self.ProcessUnMarshall(name.data(), nullptr, child), result) << name;
  }
  EXPECT_NE(status.getErrorValue(), nullptr);
  EXPECT_EQ(CountOf(status.getAnyElementValue()), 1);
  EXPECT_TRUE(ztxml::As<zt_cannot_delete>(error.getErrorValue()));
}

// Of a flag that is present without a name nothing is written; a flag of a rule needs a name.
TEST(Hooks, FlagsWithoutAName) {
  zt_empty_element_type flag;
  flag.setPresentValue(1);
  const LogCapture log(3);
  EXPECT_EQ(MediaControlMarshaller().AddEmptyElementToXml(&flag), 1);
  EXPECT_EQ(CallWaitingIndicationMarshaller().AddCallWaitingIndicationElementToXml(&flag), 1);
  EXPECT_TRUE(log.Texts().empty());
  EXPECT_EQ(Communication_diversionMarshaller().AddEmptyElementtoXml(&flag), 0);
  auto root = *ztxml::Create<zt_3gpp_ims>(ztxml::Exact());
  auto* service = root.Add(&zt_3gpp_ims::setAlternativeServiceValue);
  auto* action =
      ztxml::Add(*service, &zt_ns_call_waiting_indication_alternative_service::setActionValue);
  auto* nameless =
      ztxml::Add(*action, &zt_ns_call_waiting_indication_action::setCallWaitingIndicationValue);
  nameless->setValue(nullptr);
  nameless->setPresentValue(1);
  EXPECT_SAME(TextOf(root.Write()),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<3gpp-ims>\n<alternative-service>\n"
              "<action></action></alternative-service></3gpp-ims>");
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

// ---- Resource lists -----------------------------------------------------------------------------

// The members of a list: of an entry its URI, of a list its members in brackets.
std::string Describe(XMLElement* member) {
  if (auto* entry = ztxml::As<zt_entryType>(member)) {
    return entry->getUriValue() + std::string(" ");
  }
  std::string text = "(";
  for (XMLElement& inside : ztxml::Each(ztxml::As<zt_listType>(member)->getAnyElementValue())) {
    text += Describe(&inside);
  }
  return text + ") ";
}

// Elements deeper than the decoder's stack go to the last list on it, and elements after a list go
// to the list around it.
TEST(ResourceLists, NestedListsKeepTheirSiblings) {
  constexpr int kMost = 99;
  for (int depth : {2, kMost, kMost + 1, kMost + 60}) {
    std::string in = "<entry uri='0'/>", members = "0 ";
    for (int i = depth; i > 0; --i) {
      const std::string number = std::to_string(i);
      in.insert(0, "<list>").append("</list>");
      members.insert(0, i > kMost ? "() " : "(").append(i > kMost ? "" : ") ");
      if (i == 1) continue;
      in.append("<entry uri='").append(number).append("'/>");
      members.append(number).append(" ");
    }
    auto root = ztxml::Read<zt_resource_lists>("<resource-lists>" + in + "</resource-lists>",
                                               ztxml::Exact());
    EXPECT_EQ(Describe(EntryOf((*root)->getListListValue())), members);
  }
}

// ---- Presence -----------------------------------------------------------------------------------

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
  EntryOf(root->getTupleListValue())->addAnyElement(ZtCreate<Changing>("t"));
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
