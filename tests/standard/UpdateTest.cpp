// Documents of which something is changed: all else stays byte for byte.
#include "DocumentSupport.h"
#include "ztxml/ztxml.h"

namespace {

// `text` with `from`, which it has once, replaced.
std::string With(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  if (at != std::string::npos) text.replace(at, from.size(), to);
  EXPECT_TRUE(from.empty() || text.find(from, at + to.size()) == std::string::npos) << from;
  return text;
}

// Reads `text`, which comes back unchanged, has it changed, and expects `changed`, which is read
// again and comes back unchanged as well.
template <class T, class Change>
void ExpectUpdate(const std::string& text, const Change& change, const std::string& changed) {
  auto read = ztxml::Read<T>(text);
  ASSERT_TRUE(read) << read.error().Text();
  EXPECT_SAME(TextOf(read->Update()), text);
  change(**read);
  EXPECT_SAME(TextOf(read->Update()), changed);
  auto again = ztxml::Read<T>(changed);
  ASSERT_TRUE(again) << again.error().Text() << '\n' << changed;
  EXPECT_SAME(TextOf(again->Update()), changed);
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

zt_registration& Registration(zt_reginfo& reginfo) {
  return *EntryOf(reginfo.getRegistrationListValue());
}
zt_ns_reginfo_contact* Contact(zt_reginfo& reginfo, int index) {
  return EntryOf(Registration(reginfo).getContactListValue(), index);
}
zt_ns_reginfo_contact& AddContact(zt_reginfo& reginfo) {
  auto& contact = *ztxml::Add(Registration(reginfo), &zt_registration::addContact);
  contact.setIdValue("c3");
  contact.setStateValue(ZT_CONTACT_STATE_ACTIVE);
  contact.setEventValue(ZT_CONTACT_EVENT_CREATED);
  contact.setUriValue("sip:c");
  return contact;
}

TEST(StandardUpdate, ValuesChangeInTheirPlaces) {
  const struct {
    void (*change)(zt_reginfo&);
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
      {[](zt_reginfo& r) { Registration(r).setIdValue("'\"<\n"); }, "\"r1\"",
       "\"'&quot;&lt;&#10;\""},
      {[](zt_reginfo& r) { Contact(r, 0)->setDisplayNameValue("A & <B> C"); }, "", ""},
      {[](zt_reginfo& r) { Contact(r, 0)->setDisplayNameValue("]]>"); },
       "A &amp; <![CDATA[<B>]]><!-- her name --> C", "]]&gt;<!-- her name -->"},
      {[](zt_reginfo& r) { Contact(r, 0)->setDisplayNameValue(nullptr); },
       "\n      <r:display-name>A &amp; <![CDATA[<B>]]><!-- her name --> C</r:display-name>", ""},
      {[](zt_reginfo& r) { Contact(r, 1)->setDisplayNameValue("D"); }, "192.0.2.2</r:uri>",
       "192.0.2.2</r:uri><r:display-name>D</r:display-name>"},
      {[](zt_reginfo& r) {
         EntryOf<zt_pub_gruu>(Contact(r, 0)->getAnyElementValue())->setUriValue("sip:a;gr=2");
       },
       "sip:a@example.com;gr=1", "sip:a;gr=2"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.to);
    ExpectUpdate<zt_reginfo>(kReginfo, c.change, *c.from ? With(kReginfo, c.from, c.to) : kReginfo);
  }
}

TEST(StandardUpdate, ChildrenComeGoAndMove) {
  const std::string second =
      "\n    <r:contact id=\"c2\" state=\"active\" event=\"created\"><r:uri>sip:a@192.0.2.2</r:uri>"
      "</r:contact>";
  const auto takeOut = [](zt_reginfo& r, int index) {
    zt_ns_reginfo_contact* contact = Contact(r, index);
    Registration(r).getContactListValue()->Remove(static_cast<XMLElement*>(contact));
    return contact;
  };
  ExpectUpdate<zt_reginfo>(
      kReginfo, [&](zt_reginfo& r) { XMLFactory::DeleteElement(takeOut(r, 1)); },
      With(kReginfo, second, ""));
  ExpectUpdate<zt_reginfo>(
      kReginfo,
      [](zt_reginfo& r) {
        ztxml::Add<zt_pub_gruu>(AddContact(r), &zt_ns_reginfo_contact::addAnyElement)
            ->setUriValue("sip:c;gr");
      },
      With(kReginfo, second,
           second + "<r:contact state=\"active\" event=\"created\" id=\"c3\"><r:uri>sip:c</r:uri>"
                    "<gr:pub-gruu uri=\"sip:c;gr\"/></r:contact>"));

  const std::size_t from = kReginfo.find("<r:contact id=\"c1\"");
  const std::size_t to = kReginfo.find("</r:contact>") + 12;
  const std::string first = kReginfo.substr(from, to - from);
  std::string swapped = kReginfo;
  swapped.replace(kReginfo.find(second) + 5, second.size() - 5, first);
  swapped.replace(from, first.size(), second.substr(5));
  ExpectUpdate<zt_reginfo>(
      kReginfo, [&](zt_reginfo& r) { Registration(r).addContact(takeOut(r, 0)); }, swapped);
}

TEST(StandardUpdate, AnEmptyElementThatGetsAChildIsOpened) {
  for (const std::string end : {"/>", " />", "></registration>"}) {
    const std::string text =
        "<reginfo version='0' state='full'><registration aor='a' id='1' state='init'" + end +
        "</reginfo>";
    ExpectUpdate<zt_reginfo>(
        text, [](zt_reginfo& r) { AddContact(r); },
        With(text, "'init'" + end,
             std::string("'init'") + (end == " />" ? " >" : ">") +
                 "<contact state=\"active\" event=\"created\" id=\"c3\"><uri>sip:c</uri>"
                 "</contact></registration>"));
  }
}

// ---- Services, conferences, lists ---------------------------------------------------------------

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
  const auto presentation = [](zt_Simservs& s) {
    return EntryOf<zt_originating_identity_presentation>(s.getServiceListValue());
  };
  const auto barring = [](zt_Simservs& s) {
    return EntryOf<zt_incoming_communication_barring>(s.getServiceListValue());
  };
  ExpectUpdate<zt_Simservs>(
      text, [&](zt_Simservs& s) { barring(s)->setActiveValue(0); },
      With(text, "barring active=\"true\"", "barring active=\"false\""));
  // One that is absent means true, and stays absent until it is set.
  ExpectUpdate<zt_Simservs>(
      text, [&](zt_Simservs& s) { EXPECT_EQ(presentation(s)->getActiveValue(), 1); }, text);
  ExpectUpdate<zt_Simservs>(
      text, [&](zt_Simservs& s) { presentation(s)->setActiveValue(0); },
      With(text, "presentation/>", "presentation active=\"false\"/>"));
  ExpectUpdate<zt_Simservs>(
      text,
      [&](zt_Simservs& s) {
        auto* actions = EntryOf(barring(s)->getRuleSetValue()->getRulesValue())->getActionsValue();
        EntryOf<zt_allow_action_type>(actions->getElementsValue())->setAllowValue(1);
      },
      With(text, "<ss:allow>false", "<ss:allow>true"));
}

TEST(StandardUpdate, AbsentAndZeroAreToldApart) {
  const std::string text =
      "<conference-info xmlns='urn:ietf:params:xml:ns:conference-info' entity='sip:c' "
      "state='partial' version='0'><conference-state><user-count>0</user-count></conference-state>"
      "<users><user entity='sip:u' state='deleted'/></users></conference-info>";
  ExpectUpdate<zt_conference_type>(
      text,
      [&](zt_conference_type& c) {
        EXPECT_EQ(c.getConferenceStateValue()->getActiveValue(), 0);
        c.setVersionValue(1);
      },
      With(text, "version='0'", "version='1'"));
  ExpectUpdate<zt_conference_type>(
      text,
      [&](zt_conference_type& c) {
        c.getConferenceStateValue()->setUserCountValue(0);
        c.getConferenceStateValue()->setActiveValue(0);
        c.getConferenceStateValue()->setLockedValue(1);
      },
      With(text, "</user-count>", "</user-count><active>false</active><locked>true</locked>"));
}

TEST(StandardUpdate, UnknownAttributesOfAnEntryStayAndNewOnesAreDeclared) {
  const std::string text =
      "<rl:resource-lists xmlns:rl='urn:ietf:params:xml:ns:resource-lists' "
      "xmlns:cc='urn:ietf:params:xml:ns:copycontrol'><rl:list><rl:entry uri='sip:a' "
      "cc:copyControl='to' /><rl:entry uri='sip:b' cc:copyControl='bcc' cc:anonymize=\"true\"/>"
      "</rl:list></rl:resource-lists>";
  const auto entry = [](zt_resource_lists& lists, int index) {
    return EntryOf<zt_entryType>(EntryOf(lists.getListListValue())->getAnyElementValue(), index);
  };
  ExpectUpdate<zt_resource_lists>(
      text,
      [&](zt_resource_lists& l) {
        EntryOf(entry(l, 0)->getAnyAttributeValue())->setValue("cc'\"");
        entry(l, 1)->setUriValue("sip:c");
        entry(l, 1)->addAnyAttribute(zt_xml_common_methods::CreateAttribute("uri", "twice"));
        entry(l, 1)->addAnyAttribute(zt_xml_common_methods::CreateAttribute("new", "1"));
        entry(l, 1)->addAnyAttribute(zt_xml_common_methods::CreateAttribute("new", "2"));
      },
      With(With(With(text, "'to'", "'cc&apos;\"'"), "sip:b", "sip:c"), "\"true\"",
           "\"true\" new=\"1\""));

  // An entry of another document brings its namespace along, once.
  auto from = ztxml::Read<zt_resource_lists>(
      "<resource-lists xmlns='urn:ietf:params:xml:ns:resource-lists'><list xmlns:q='urn:q'>"
      "<entry uri='sip:q' q:a='1' q:b='&lt;'/></list></resource-lists>");
  ASSERT_TRUE(from);
  ExpectUpdate<zt_resource_lists>(
      text,
      [&](zt_resource_lists& l) {
        zt_entryType* taken = entry(**from, 0);
        EntryOf((*from)->getListListValue())
            ->getAnyElementValue()
            ->Remove(static_cast<XMLElement*>(taken));
        EntryOf(l.getListListValue())->addEntry(taken);
      },
      With(text, "\"true\"/>",
           "\"true\"/><rl:entry xmlns:q=\"urn:q\" uri=\"sip:q\" q:a=\"1\" q:b=\"&lt;\"/>"));
}

// ---- Encodings and refusals ---------------------------------------------------------------------

TEST(StandardUpdate, NewTextIsInTheEncodingOfTheDocument) {
  const auto document = [](const std::string& encoding, const std::string& subject) {
    return "<?xml version='1.0' encoding='" + encoding +
           "'?>\n<imdn xmlns='urn:ietf:params:xml:ns:imdn'><message-id>m</message-id>"
           "<datetime>d</datetime><subject>" +
           subject +
           "</subject><delivery-notification><status><delivered/></status></delivery-notification>"
           "</imdn>";
  };
  const std::string subject = "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80";
  const auto change = [&](zt_imdn& imdn) { imdn.setSubjectValue(subject.c_str()); };
  ExpectUpdate<zt_imdn>(document("ISO-8859-1", "\xE9"), change,
                        document("ISO-8859-1", "\xE4 &#x20AC; &#x1F600;"));
  ExpectUpdate<zt_imdn>(document("us-ascii", "e"), change,
                        document("us-ascii", "&#xE4; &#x20AC; &#x1F600;"));
  ExpectUpdate<zt_imdn>("\xEF\xBB\xBF" + document("utf-8", "e"), change,
                        "\xEF\xBB\xBF" + document("utf-8", subject));
  for (const bool big : {false, true}) {
    const std::string ascii = document("UTF-16", "@");
    std::u16string text = u"\uFEFF" + std::u16string(ascii.begin(), ascii.end());
    const std::string before = Wide(text, big);
    text.replace(text.find('@'), 1, u"\u00E4 \u20AC \U0001F600");
    ExpectUpdate<zt_imdn>(before, change, Wide(text, big));
  }
}

TEST(StandardUpdate, WhatCannotBeWrittenIsRefused) {
  auto read = ztxml::Read<zt_reginfo>(kReginfo);
  ASSERT_TRUE(read);
  Contact(**read, 0)->setUriValue("\x01");
  EXPECT_SAME(TextOf(read->Update()),
              "/reginfo/registration[1]/contact[1]/uri: refused: it holds what XML does "
              "not allow");
  Contact(**read, 0)->setUriValue("sip:a@192.0.2.1");
  EXPECT_SAME(TextOf(read->Update()), kReginfo);
  ztxml::Options options;
  options.mostText = kReginfo.size();
  EXPECT_SAME(TextOf(ztxml::Read<zt_reginfo>(kReginfo, options)->Update()), kReginfo);
  EXPECT_SAME(TextOf(ztxml::Read<zt_reginfo>(kReginfo, ztxml::ReadOnly())->Update()),
              "refused: what the root was read from was not kept");
}

}  // namespace
