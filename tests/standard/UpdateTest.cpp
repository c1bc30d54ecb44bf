// Documents of which something is changed: all else stays byte for byte.
#include "StandardSupport.h"
#include "ztxml/XMLCommonPolicy.h"
#include "ztxml/XMLCommunicationBarring.h"
#include "ztxml/XMLConferenceInfo.h"
#include "ztxml/XMLGruu.h"
#include "ztxml/XMLImdn.h"
#include "ztxml/XMLReginfo.h"
#include "ztxml/XMLResourceList.h"
#include "ztxml/XMLSimservs.h"

namespace {

// Reads `text`, which comes back unchanged, has it changed, and expects `changed`, which is read
// again and comes back unchanged as well.
template <class T, class Change>
void ExpectUpdate(eXMLSchemaID id, const std::string& text, const Change& change,
                  const std::string& changed) {
  StandardSchema schema(id);
  const auto root = schema.Read<T>(text);
  ASSERT_TRUE(root) << text;
  EXPECT_SAME(schema.Update(root.get()), text);
  change(*root);
  EXPECT_SAME(schema.Update(root.get()), changed);
  const auto again = schema.Read<T>(changed);
  ASSERT_TRUE(again) << changed;
  EXPECT_SAME(schema.Update(again.get()), changed);
}

// ---- Registrations ------------------------------------------------------------------------------

const std::string kReginfo = R"(<?xml version="1.0"?>
<r:reginfo xmlns:r="urn:ietf:params:xml:ns:reginfo" xmlns:gr='urn:ietf:params:xml:ns:gruuinfo'
    version="0" state = 'full' xmlns:x="urn:example:x" x:seen="yes">
  <!-- one phone, one laptop -->
  <r:registration aor="sip:a@example.com" id="r1" state="active">
    <r:contact id="c1" state="active" event="registered" expires="0"  x:age="3">
      <r:uri> sip:a@192.0.2.1 </r:uri>
      <r:display-name>A &amp; <![CDATA[<B>]]><!-- her name --> C</r:display-name>
      <gr:pub-gruu uri="sip:a@example.com;gr=1"/>
      <x:location><r:uri>sip:not-hers</r:uri></x:location>
    </r:contact>
    <r:contact id="c2" state="active" event="created"><r:uri>sip:a@192.0.2.2</r:uri></r:contact>
  </r:registration>
</r:reginfo>
<!-- end -->
)";

zt_registration* Registration(zt_reginfo& reginfo) {
  return &*ZtEach(reginfo.getRegistrationListValue()).begin();
}
zt_ns_reginfo_contact* Contact(zt_reginfo& reginfo, unsigned short index) {
  return EntryOf<zt_ns_reginfo_contact>(Registration(reginfo)->getContactListValue(), index);
}

TEST(StandardUpdate, ValuesChangeInTheirPlaces) {
  using Change = void (*)(zt_reginfo&);
  const struct {
    Change change;
    const char* from;
    const char* to;
  } kCases[] = {
      {[](zt_reginfo& r) { r.setVersionValue(0); }, "", ""},  // as it was
      {[](zt_reginfo& r) { r.setVersionValue(12); }, "version=\"0\"", "version=\"12\""},
      {[](zt_reginfo& r) { r.setStateValue(ZT_REGINFO_STATE_PARTIAL); }, "'full'", "'partial'"},
      {[](zt_reginfo& r) { Contact(r, 0)->setExpiresValue(60); }, "\"0\"  x", "\"60\"  x"},
      {[](zt_reginfo& r) { Contact(r, 0)->setUriValue("sip:b"); }, "sip:a@192.0.2.1", "sip:b"},
      {[](zt_reginfo& r) { Contact(r, 0)->setUriValue("sip:a@192.0.2.1"); }, "", ""},
      {[](zt_reginfo& r) { Contact(r, 0)->setQValue("0.5"); }, "x:age=\"3\"",
       "x:age=\"3\" q=\"0.5\""},
      {[](zt_reginfo& r) { Registration(r)->setIdValue("'\"<\n"); }, "\"r1\"",
       "\"'&quot;&lt;&#10;\""},
      {[](zt_reginfo& r) { Contact(r, 0)->setDisplayNameValue("A & <B> C"); }, "", ""},
      {[](zt_reginfo& r) { Contact(r, 0)->setDisplayNameValue("]]>"); },
       "A &amp; <![CDATA[<B>]]><!-- her name --> C", "]]&gt;<!-- her name -->"},
      {[](zt_reginfo& r) { Contact(r, 0)->setDisplayNameValue(nullptr); },
       "\n      <r:display-name>A &amp; <![CDATA[<B>]]><!-- her name --> C</r:display-name>", ""},
      {[](zt_reginfo& r) { Contact(r, 1)->setDisplayNameValue("D"); }, "192.0.2.2</r:uri>",
       "192.0.2.2</r:uri><r:display-name>D</r:display-name>"},
      {[](zt_reginfo& r) {
         auto* gruu = EntryOf<zt_pub_gruu>(Contact(r, 0)->getAnyElementValue(), 0);
         gruu->setUriValue("sip:a;gr=2");
       },
       "sip:a@example.com;gr=1", "sip:a;gr=2"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.to);
    const std::string changed = *c.from ? With(kReginfo, c.from, c.to) : kReginfo;
    ExpectUpdate<zt_reginfo>(XML_SCHEMA_REGINFO, kReginfo, c.change, changed);
  }
}

TEST(StandardUpdate, ChildrenComeGoAndMove) {
  const std::string second =
      "\n    <r:contact id=\"c2\" state=\"active\" event=\"created\"><r:uri>sip:a@192.0.2.2</r:uri>"
      "</r:contact>";
  const auto remove = [](zt_reginfo& r) {
    zt_ns_reginfo_contact* contact = Contact(r, 1);
    Registration(r)->getContactListValue()->Remove(static_cast<XMLElement*>(contact));
    XMLFactory::DeleteElement(contact);
  };
  ExpectUpdate<zt_reginfo>(XML_SCHEMA_REGINFO, kReginfo, remove, With(kReginfo, second, ""));

  const auto add = [](zt_reginfo& r) {
    zt_ns_reginfo_contact* contact = ReginfoDataBinder().CreateContactElement();
    contact->setIdValue("c3");
    contact->setStateValue(ZT_CONTACT_STATE_ACTIVE);
    contact->setEventValue(ZT_CONTACT_EVENT_CREATED);
    contact->setUriValue("sip:c");
    zt_pub_gruu* gruu = ReginfoDataBinder().CreatePubGruuElement();
    gruu->setUriValue("sip:c;gr");
    contact->addAnyElement(gruu);
    Registration(r)->addContact(contact);
  };
  ExpectUpdate<zt_reginfo>(
      XML_SCHEMA_REGINFO, kReginfo, add,
      With(kReginfo, second,
           second + "<r:contact state=\"active\" event=\"created\" id=\"c3\"><r:uri>sip:c</r:uri>"
                    "<gr:pub-gruu uri=\"sip:c;gr\"/></r:contact>"));

  const std::size_t from = kReginfo.find("<r:contact id=\"c1\"");
  const std::size_t to = kReginfo.find("</r:contact>") + 12;
  const std::string first = kReginfo.substr(from, to - from);
  std::string swapped = kReginfo;
  swapped.replace(kReginfo.find(second) + 5, second.size() - 5, first);
  swapped.replace(from, first.size(), second.substr(5));
  const auto swap = [](zt_reginfo& r) {
    zt_ns_reginfo_contact* contact = Contact(r, 0);
    Registration(r)->getContactListValue()->Remove(static_cast<XMLElement*>(contact));
    Registration(r)->addContact(contact);
  };
  ExpectUpdate<zt_reginfo>(XML_SCHEMA_REGINFO, kReginfo, swap, swapped);
}

TEST(StandardUpdate, AnEmptyElementThatGetsAChildIsOpened) {
  for (const std::string end : {"/>", " />", "></registration>"}) {
    const std::string text =
        "<reginfo version='0' state='full'><registration aor='a' id='1' "
        "state='init'" +
        end + "</reginfo>";
    const std::string opened = end == " />" ? " >" : ">";
    ExpectUpdate<zt_reginfo>(
        XML_SCHEMA_REGINFO, text,
        [](zt_reginfo& r) {
          zt_ns_reginfo_contact* contact = ReginfoDataBinder().CreateContactElement();
          contact->setIdValue("c");
          contact->setStateValue(ZT_CONTACT_STATE_ACTIVE);
          contact->setEventValue(ZT_CONTACT_EVENT_CREATED);
          contact->setUriValue("u");
          Registration(r)->addContact(contact);
        },
        With(text, "'init'" + end,
             "'init'" + opened +
                 "<contact state=\"active\" event=\"created\" id=\"c\"><uri>u</uri>"
                 "</contact></registration>"));
  }
}

// ---- Services -----------------------------------------------------------------------------------

TEST(StandardUpdate, OneServiceChangesAndAllElseOfTheDocumentStays) {
  const std::string text = R"(<?xml version="1.0" encoding="UTF-8"?>
<ss:simservs xmlns:ss="http://uri.etsi.org/ngn/params/xml/simservs/xcap"
    xmlns:cp="urn:ietf:params:xml:ns:common-policy" xmlns:ocp="urn:oma:xml:xdm:common-policy">
  <ss:originating-identity-presentation/>
  <ss:some-new-service active="true"><ss:level>3</ss:level></ss:some-new-service>
  <ss:incoming-communication-barring active="true">
    <cp:ruleset>
      <cp:rule id="anonymous">
        <cp:conditions>
          <ocp:anonymous-request/>
          <ss:time>20:00-06:00</ss:time>
        </cp:conditions>
        <cp:actions><ss:allow>false</ss:allow></cp:actions>
      </cp:rule>
    </cp:ruleset>
  </ss:incoming-communication-barring>
</ss:simservs>
)";
  const auto service = [](zt_Simservs& simservs, unsigned short index) {
    return EntryOf<zt_ns_xcap_simservType>(simservs.getServiceListValue(), index);
  };
  const auto barring = [&](zt_Simservs& s) {
    return ZtAs<zt_incoming_communication_barring>(service(s, 1));
  };
  ExpectUpdate<zt_Simservs>(
      XML_SCHEMA_SIMSERVS, text, [&](zt_Simservs& s) { barring(s)->setActiveValue(0); },
      With(text, "barring active=\"true\"", "barring active=\"false\""));
  // One that is absent means true, and stays absent until it is set.
  ExpectUpdate<zt_Simservs>(
      XML_SCHEMA_SIMSERVS, text,
      [&](zt_Simservs& s) { EXPECT_EQ(service(s, 0)->getActiveValue(), 1); }, text);
  ExpectUpdate<zt_Simservs>(
      XML_SCHEMA_SIMSERVS, text, [&](zt_Simservs& s) { service(s, 0)->setActiveValue(0); },
      With(text, "presentation/>", "presentation active=\"false\"/>"));
  ExpectUpdate<zt_Simservs>(
      XML_SCHEMA_SIMSERVS, text,
      [&](zt_Simservs& s) {
        auto* rules = barring(s)->getRuleSetValue()->getRulesValue();
        auto* actions = EntryOf<zt_ns_common_policy_ruleType>(rules, 0)->getActionsValue();
        EntryOf<zt_allow_action_type>(actions->getElementsValue(), 0)->setAllowValue(1);
      },
      With(text, "<ss:allow>false", "<ss:allow>true"));
}

// ---- Conferences, lists, presence ---------------------------------------------------------------

TEST(StandardUpdate, AbsentAndZeroAreToldApart) {
  const std::string text =
      "<conference-info xmlns='urn:ietf:params:xml:ns:conference-info' entity='sip:c' "
      "state='partial' version='0'><conference-state><user-count>0</user-count></conference-state>"
      "<users><user entity='sip:u' state='deleted'/></users></conference-info>";
  const auto state = [](zt_conference_type& c) { return c.getConferenceStateValue(); };
  ExpectUpdate<zt_conference_type>(
      XML_SCHEMA_CONFERENCE_INFO, text,
      [&](zt_conference_type& c) {
        EXPECT_EQ(state(c)->getActiveValue(), 0);
        c.setVersionValue(1);
      },
      With(text, "version='0'", "version='1'"));
  ExpectUpdate<zt_conference_type>(
      XML_SCHEMA_CONFERENCE_INFO, text,
      [&](zt_conference_type& c) {
        state(c)->setUserCountValue(0);
        state(c)->setActiveValue(0);
        state(c)->setLockedValue(1);
      },
      With(text, "</user-count>", "</user-count><active>false</active><locked>true</locked>"));
}

TEST(StandardUpdate, UnknownAttributesOfAnEntryStayAndNewOnesAreDeclared) {
  const std::string text =
      "<rl:resource-lists xmlns:rl='urn:ietf:params:xml:ns:resource-lists' "
      "xmlns:cc='urn:ietf:params:xml:ns:copycontrol'><rl:list><rl:entry uri='sip:a' "
      "cc:copyControl='to' /><rl:entry uri='sip:b' cc:copyControl='bcc' cc:anonymize=\"true\"/>"
      "</rl:list></rl:resource-lists>";
  const auto entry = [](zt_resource_lists& lists, unsigned short index) {
    auto* list = EntryOf<zt_listType>(lists.getListListValue(), 0);
    return EntryOf<zt_entryType>(list->getAnyElementValue(), index);
  };
  const auto attribute = [&](zt_resource_lists& lists, unsigned short index) {
    auto* all = entry(lists, index)->getAnyAttributeValue();
    return &*ZtEach(all).begin();
  };
  ExpectUpdate<zt_resource_lists>(
      XML_SCHEMA_RESOURCE_LISTS, text,
      [&](zt_resource_lists& l) {
        attribute(l, 0)->setValue("cc'\"");
        entry(l, 1)->setUriValue("sip:c");
        entry(l, 1)->addAnyAttribute(zt_xml_common_methods::CreateAttribute("uri", "twice"));
        entry(l, 1)->addAnyAttribute(zt_xml_common_methods::CreateAttribute("new", "1"));
        entry(l, 1)->addAnyAttribute(zt_xml_common_methods::CreateAttribute("new", "2"));
      },
      With(With(With(text, "'to'", "'cc&apos;\"'"), "sip:b", "sip:c"), "\"true\"",
           "\"true\" new=\"1\""));

  // An entry of another document brings its namespace along, once.
  StandardSchema schema(XML_SCHEMA_RESOURCE_LISTS);
  const auto from = schema.Read<zt_resource_lists>(
      "<resource-lists xmlns='urn:ietf:params:xml:ns:resource-lists'><list xmlns:q='urn:q'>"
      "<entry uri='sip:q' q:a='1' q:b='&lt;'/></list></resource-lists>");
  ASSERT_TRUE(from);
  ExpectUpdate<zt_resource_lists>(
      XML_SCHEMA_RESOURCE_LISTS, text,
      [&](zt_resource_lists& l) {
        auto* source = EntryOf<zt_listType>(from->getListListValue(), 0);
        zt_entryType* taken = entry(*from, 0);
        source->getAnyElementValue()->Remove(static_cast<XMLElement*>(taken));
        EntryOf<zt_listType>(l.getListListValue(), 0)->addEntry(taken);
      },
      With(text, "\"true\"/>",
           "\"true\"/><rl:entry xmlns:q=\"urn:q\" uri=\"sip:q\" q:a=\"1\" q:b=\"&lt;\"/>"));
}

// ---- Encodings ----------------------------------------------------------------------------------

std::string Wide(const std::string& ascii, bool big) {
  std::string wide = big ? "\xFE\xFF" : "\xFF\xFE";
  for (char c : ascii) wide += big ? std::string(1, '\0') + c : c + std::string(1, '\0');
  return wide;
}

TEST(StandardUpdate, NewTextIsInTheEncodingOfTheDocument) {
  const auto document = [](const std::string& encoding, const std::string& subject) {
    return "<?xml version='1.0' encoding='" + encoding +
           "'?>\n<imdn xmlns='urn:ietf:params:xml:ns:imdn'><message-id>m</message-id>"
           "<datetime>d</datetime><subject>" +
           subject +
           "</subject><delivery-notification><status><delivered/></status></delivery-notification>"
           "</imdn>";
  };
  const auto change = [](zt_imdn& imdn) {
    imdn.setSubjectValue("\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80");
  };
  const struct {
    std::string before, after;
  } kCases[] = {
      {document("ISO-8859-1", "\xE9"), document("ISO-8859-1", "\xE4 &#x20AC; &#x1F600;")},
      {document("us-ascii", "e"), document("us-ascii", "&#xE4; &#x20AC; &#x1F600;")},
      {"\xEF\xBB\xBF" + document("utf-8", "e"),
       "\xEF\xBB\xBF" + document("utf-8", "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80")},
  };
  for (const auto& c : kCases) {
    ExpectUpdate<zt_imdn>(XML_SCHEMA_IMDN, c.before, change, c.after);
  }
  for (const bool big : {false, true}) {
    const std::string le = std::string("\xE4\0 \0\xAC\x20 \0\x3D\xD8\x00\xDE", 12);
    std::string units = le;
    for (std::size_t i = 0; big && i < units.size(); i += 2) std::swap(units[i], units[i + 1]);
    const std::string before = Wide(document("UTF-16", "@"), big);
    std::string after = before;
    after.replace(after.find('@') - (big ? 1 : 0), 2, units);
    ExpectUpdate<zt_imdn>(XML_SCHEMA_IMDN, before, change, after);
  }
}

// ---- Refusals -----------------------------------------------------------------------------------

TEST(StandardUpdate, WhatCannotBeWrittenIsRefusedWithALine) {
  StandardSchema schema(XML_SCHEMA_REGINFO);
  const LogCapture log(4);
  const auto root = schema.Read<zt_reginfo>(kReginfo);
  ASSERT_TRUE(root);
  Contact(*root, 0)->setUriValue("\x01");
  EXPECT_SAME(schema.Update(root.get()), "(null)");
  EXPECT_TRUE(log.Has("/reginfo/registration[1]/contact[1]/uri cannot")) << log.Texts().back();
  Contact(*root, 0)->setUriValue("sip:a@192.0.2.1");
  EXPECT_SAME(schema.Update(root.get()), kReginfo);

  StandardSchema other(XML_SCHEMA_REGINFO, false);
  const auto forgotten = other.Read<zt_reginfo>(kReginfo);
  EXPECT_SAME(other.Update(forgotten.get()), "(null)");
  EXPECT_TRUE(log.Has("was not kept"));
  schema.Context().LimitText(kReginfo.size() - 1);
  EXPECT_SAME(schema.Update(root.get()), "(null)");
  EXPECT_TRUE(log.Has("longer than the limit")) << log.Texts().back();
  schema.Context().LimitText(kReginfo.size());
  EXPECT_SAME(schema.Update(root.get()), kReginfo);
}

}  // namespace
