// Presence documents, with capabilities and service descriptions: in, trees, out.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLPresence.h"
#include "XMLValueTypes.h"
#include "base/ZtMemory.h"
#include "binding/ZtElementWriter.h"

namespace {

std::string In(const std::string& content) {
  return "<presence entity='e'>" + content + "</presence>";
}
std::string Out(const std::string& content) {
  return Document(
      "<presence  xmlns='urn:ietf:params:xml:ns:pidf'  xmlns:op='urn:oma:xml:prs:pidf:oma-pres'  "
      "xmlns:caps='urn:ietf:params:xml:ns:pidf:caps'  entity='e'>" +
      content + "</presence>");
}
std::string InTuple(const std::string& content) {
  return In("<tuple id='t'>" + content + "</tuple>");
}
std::string OutTuple(const std::string& content) {
  return Out("<tuple  id=\"t\">" + content + "</tuple>");
}

TEST(Presence, WritesWhatItReads) {
  const std::pair<std::string, std::string> kCases[] = {
      {"<p:presence xmlns:p='u' x='y' entity='e'/>", Out("")},
      {In("<note>1</note><tuple id='a'/><note xml:lang='en'>&lt;2</note><tuple id='b' id='&quot;' "
          "x='y'/><note/>"),
       Out("<tuple  id=\"a\"></tuple><tuple  id=\"&quot;\"></tuple><note>1</note><note>&lt;2</note>"
           "<note></note>")},
      {InTuple("<note>1</note><timestamp>2</timestamp><p:contact x='y'>3</p:contact><note>4</note>"
               "<servcaps/><op:service-description/><status/><p:servcaps/>"),
       OutTuple("<status></status><caps:servcaps></caps:servcaps><op:service-description>"
                "</op:service-description><caps:servcaps></caps:servcaps><contact>3</contact>"
                "<timestamp>2</timestamp><note>1</note><note>4</note>")},
      {InTuple("<status><basic>open</basic><x><basic>closed</basic></x></status><contact>old"
               "</contact><contact priority='0.8'><note>no</note>sip:u</contact>"),
       OutTuple("<status><basic>open</basic></status><contact  priority=\"0.8\">sip:u</contact>")},
      {In("<tuple id='a'><status><im:basic>closed</im:basic></status></tuple>"
          "<tuple id='b'><status><basic>open</basic><basic>opened</basic></status></tuple>"),
       Out("<tuple  id=\"a\"><status><basic>closed</basic></status></tuple>"
           "<tuple  id=\"b\"><status></status></tuple>")},
      {InTuple(
           "<servcaps><video>false</video><audio>true</audio></servcaps>"
           "<c:servcaps><c:video>true</c:video><audio>false</audio></c:servcaps>"
           "<servcaps><video>True</video><audio>true</audio><audio>1</audio><duplex/></servcaps>"),
       OutTuple("<caps:servcaps><caps:audio>true</caps:audio><caps:video>false</caps:video>"
                "</caps:servcaps><caps:servcaps><caps:audio>false</caps:audio><caps:video>true"
                "</caps:video></caps:servcaps><caps:servcaps><caps:duplex></caps:duplex>"
                "</caps:servcaps>")},
      {InTuple("<servcaps><duplex><notsupported><send-only/><receive-only>r</receive-only>"
               "</notsupported><c:supported><half/><full/><x/></c:supported></duplex>"
               "<methods><supported><send-only/></supported></methods></servcaps>"),
       OutTuple("<caps:servcaps><caps:duplex><caps:supported><caps:full></caps:full><caps:half>"
                "</caps:half></caps:supported><caps:notsupported><caps:receive-only>r"
                "</caps:receive-only><caps:send-only></caps:send-only></caps:notsupported>"
                "</caps:duplex></caps:servcaps>")},
      // Other extensions are skipped with what is in them; known elements elsewhere are only kept.
      {In("<dm:person id='p'><note>n</note><tuple id='x'/></dm:person><contact/><servcaps/>"),
       Out("")},
      {InTuple("<op:willingness><op:basic>open</op:basic></op:willingness><duplex/><tuple id='u'>"
               "<note>inner</note></tuple><ts:timed-status><note>n</note></ts:timed-status>"),
       OutTuple("")},
  };
  Schema schema(XML_SCHEMA_PRESENCE);
  for (const auto& [in, out] : kCases) {
    EXPECT_EQ(schema.RoundTrip(in), out) << in;
    EXPECT_EQ(schema.RoundTrip(out), out);
  }
  for (const char* text : {"<presence entity='e'>", "<tuple id='t'/>", "<x><presence/></x>"}) {
    EXPECT_FALSE(schema.Read<zt_presence>(text)) << text;
  }
}

// A service description by its class name the first time that it is asked, and then no more.
class Changing : public zt_ns_oma_pres_service_description {
  const char* ClassName() const override {
    return m_Asked++ ? "changed" : zt_ns_oma_pres_service_description::ClassName();
  }
  mutable int m_Asked = 0;
};

TEST(Presence, EveryWriterTellsWhatFails) {
  using Status = PresenceNameSpace::zt_status;
  using Modes = zt_ns_caps_duplextypes;
  using Spoil = void (*)(zt_presence&, zt_tuple&, zt_ns_caps_servcaps&);
  const std::string kMandatory =
      "PresenceMarshaller :: AddPresenceElementToXml: Entity is mandatory attribute";
  const std::string kFailed = "<XML Module>: PresenceMarshaller XML Failed";
  const std::pair<Spoil, std::vector<const char*>> kCases[] = {
      {[](auto& root, auto&, auto&) { root.setEntityValue(nullptr); }, {}},
      {[](auto&, auto& tuple, auto&) { tuple.setIdValue(nullptr); }, {"Tuple"}},
      {[](auto& root, auto&, auto&) { root.addNote(Foreign<zt_note>()); }, {"Note"}},
      {[](auto&, auto& tuple, auto&) { tuple.addNote(Foreign<zt_note>()); }, {"Note", "Tuple"}},
      {[](auto&, auto& tuple, auto&) { tuple.setStatusValue(Foreign<Status>()); },
       {"Status", "Tuple"}},
      {[](auto&, auto& tuple, auto&) { tuple.setContactValue(Foreign<zt_contact>()); },
       {"Contact", "Tuple"}},
      {[](auto&, auto& tuple, auto&) { tuple.addAnyElement(ZtCreate<Changing>("t")); },
       {"ServiceDescription", "Tuple"}},
      {[](auto&, auto&, auto& caps) { caps.setDuplexValue(Foreign<zt_ns_caps_duplextype>()); },
       {"Duplex", "Servcaps", "Tuple"}},
      {[](auto&, auto&, auto& caps) { caps.getDuplexValue()->setSupportedValue(Foreign<Modes>()); },
       {"DuplexTypes", "Duplex", "Servcaps", "Tuple"}},
  };
  Schema schema(XML_SCHEMA_PRESENCE);
  for (const auto& [spoil, failing] : kCases) {
    auto root = schema.Read<zt_presence>(InTuple("<servcaps><duplex/></servcaps>"));
    auto* tuple = EntryOf<zt_tuple>(root->getTupleListValue(), 0);
    spoil(*root, *tuple, *EntryOf<zt_ns_caps_servcaps>(tuple->getAnyElementValue(), 0));
    LogCapture log;
    EXPECT_EQ(schema.Write(root.get()), "(null)");
    std::vector<std::string> lines = log.Texts(), expected;
    for (const char* writer : failing) {
      expected.push_back(kFailed + " at Add" + writer + "ElementToXml!");
    }
    if (failing.empty()) expected.push_back(kMandatory);
    expected.push_back(kFailed + "!");
    ASSERT_GE(lines.size(), expected.size());
    lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(expected.size()));
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(log.Texts(4).size(), failing.empty());  // only the missing entity is an error
  }
}

TEST(Presence, BuiltByHand) {
  Schema schema(XML_SCHEMA_PRESENCE);
  auto* make = static_cast<PresenceDataBinder*>(schema.context()->createBinderFactory());
  Tree<zt_presence> root(static_cast<zt_presence*>(make->CreateRootElement()));
  root->addNote(make->CreateNoteElement());
  root->setEntityValue("e");
  auto* tuple = make->CreateTupleElement();
  root->addTuple(tuple);
  tuple->setIdValue("t");
  tuple->setStatusValue(make->CreateStatusElement());
  auto* servcaps = make->CreateServcapsElement();
  servcaps->setAudioValue(ZT_CAPS_TRUE);
  tuple->addAnyElement(servcaps);
  tuple->addAnyElement(ZtCreate<zt_ns_oma_pres_willingness>("t"));  // never written
  EXPECT_EQ(schema.Write(root.get()),
            Out("<tuple  id=\"t\"><status></status><caps:servcaps><caps:audio>true</caps:audio>"
                "</caps:servcaps></tuple><note> </note>"));
  EXPECT_EQ(schema.Write(tuple), "(null)");

  // Modes alone have no element around them.
  zt_ns_caps_duplextypes modes;
  modes.setFullValue("");
  ZtXMLDocGenerator text;
  text.ztInitXmlDoc();
  EXPECT_EQ(ZtElementWriter(text, {"t"}).Write(&modes, zt_ns_caps_duplextypes::kType), 1);
  EXPECT_STREQ(text.ztGetXmlDoc(), "\n<caps:full></caps:full>");
  text.ztDeInitXmlDoc();
}

// A text element that callers make takes its text.
template <class T>
void Check(std::string label) {
  Tree<T> self(ZtCreate<T>("t"));
  std::string end = "/" + label;
  EXPECT_EQ(self->ProcessUnMarshall(end.data(), label.data(), nullptr), 1);
  EXPECT_EQ(self->getValueValue(), label);
}

TEST(Presence, TextsOfCallers) {
  Check<zt_ns_oma_pres_willingness>("willingness");
  Check<zt_ns_oma_pres_session_participation>("session-participation");
  Check<zt_ns_oma_pres_registration_state>("registration-state");
  Check<zt_ns_oma_pres_barring_state>("barring-state");
  Check<zt_ns_oma_pres_overriding_willingness>("overriding-willingness");
}

}  // namespace
