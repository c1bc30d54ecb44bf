#include "Documents.h"

namespace bench {

namespace {

constexpr char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

// What a document consists of: pieces between a head and a tail, some of them in groups.
struct Shape {
  const char* name;
  eXMLSchemaID schema;
  const char* least;  // the whole of the smallest document
  const char* head;
  std::size_t group;  // pieces in a group, 0 for none
  std::string (*open)(std::size_t group);
  std::string (*piece)(std::size_t piece);
  const char* close;
  const char* tail;
};

std::string N(std::size_t number) { return std::to_string(number); }

// ---- Registration information -------------------------------------------------------------------

std::string Registration(std::size_t group) {
  return "  <registration aor=\"sip:+1555010" + N(1000 + group) + "@ims.example.com\" id=\"reg-" +
         N(group) + "\" state=\"active\">\n";
}

std::string Contact(std::size_t i) {
  const std::string id = N(10000 + i);
  std::string text = "    <contact id=\"contact-" + id + "\" state=\"active\" event=\"" +
                     (i % 3 == 0 ? "registered" : "refreshed") + "\" duration-registered=\"" +
                     N(7260 + i) + "\" expires=\"600000\" q=\"0.9\" callid=\"b0e5c7d2f1-" + id +
                     "@192.0.2.20\" cseq=\"" + N(412 + i) +
                     "\">\n"
                     "      <uri>sip:" +
                     id + "@192.0.2.20:5060;transport=udp</uri>\n";
  if (i % 4 == 0) text += "      <display-name>Ada Example</display-name>\n";
  text +=
      "      <unknown-param name=\"+sip.instance\">"
      "\"&lt;urn:gsma:imei:35" +
      id + "-000000-0&gt;\"</unknown-param>\n";
  if (i % 4 == 1) {
    text += "      <gr:pub-gruu uri=\"sip:ada@example.com;gr=urn:gsma:imei:35" + id + "\"/>\n";
  }
  return text + "    </contact>\n";
}

constexpr Shape kRegistration = {
    "registration",
    XML_SCHEMA_REGINFO,
    "<reginfo xmlns=\"urn:ietf:params:xml:ns:reginfo\" version=\"0\" state=\"full\">\n"
    "  <registration aor=\"sip:ada@ims.example.com\" id=\"reg-0\" state=\"active\">\n"
    "    <contact id=\"c0\" state=\"active\" event=\"registered\">\n"
    "      <uri>sip:ada@192.0.2.20:5060</uri>\n"
    "    </contact>\n"
    "  </registration>\n"
    "</reginfo>\n",
    "<reginfo xmlns=\"urn:ietf:params:xml:ns:reginfo\""
    " xmlns:gr=\"urn:ietf:params:xml:ns:gruuinfo\" version=\"7\" state=\"full\">\n",
    4,
    Registration,
    Contact,
    "  </registration>\n",
    "</reginfo>\n"};

// ---- Conference information ---------------------------------------------------------------------

std::string User(std::size_t i) {
  const std::string id = N(1000 + i);
  std::string text = "    <user entity=\"sip:user" + id +
                     "@example.com\" state=\"full\">\n"
                     "      <display-text>User " +
                     id + "</display-text>\n";
  if (i % 8 == 0) text += "      <roles>\n        <entry>participant</entry>\n      </roles>\n";
  text += "      <endpoint entity=\"sip:user" + id +
          "@192.0.2.7:5060\" state=\"full\">\n"
          "        <status>connected</status>\n"
          "        <joining-method>dialed-in</joining-method>\n"
          "        <joining-info>\n"
          "          <when>2027-02-01T08:00:12Z</when>\n"
          "        </joining-info>\n"
          "        <media id=\"1\">\n"
          "          <type>audio</type>\n"
          "          <label>10</label>\n"
          "          <src-id>432" +
          id +
          "</src-id>\n"
          "          <status>sendrecv</status>\n"
          "        </media>\n";
  if (i % 4 == 1) {
    text +=
        "        <call-info>\n          <sip>\n"
        "            <call-id>k2-" +
        id +
        "@198.51.100.3</call-id>\n"
        "            <from-tag>f9" +
        id +
        "</from-tag>\n"
        "            <to-tag>t4" +
        id +
        "</to-tag>\n"
        "          </sip>\n        </call-info>\n";
  }
  return text + "      </endpoint>\n    </user>\n";
}

constexpr Shape kConference = {
    "conference",
    XML_SCHEMA_CONFERENCE_INFO,
    "<conference-info xmlns=\"urn:ietf:params:xml:ns:conference-info\""
    " entity=\"sip:standup@conf.example.com\" state=\"partial\" version=\"5\">\n"
    "  <users state=\"partial\">\n"
    "    <user entity=\"sip:ada@example.com\" state=\"deleted\"/>\n"
    "  </users>\n"
    "</conference-info>\n",
    "<conference-info xmlns=\"urn:ietf:params:xml:ns:conference-info\""
    " entity=\"sip:standup@conf.example.com\" state=\"full\" version=\"4\">\n"
    "  <conference-description xml:lang=\"en\">\n"
    "    <subject>What happens today</subject>\n"
    "    <maximum-user-count>5000</maximum-user-count>\n"
    "  </conference-description>\n"
    "  <conference-state>\n"
    "    <user-count>12</user-count>\n"
    "    <active>true</active>\n"
    "  </conference-state>\n"
    "  <users state=\"full\">\n",
    0,
    nullptr,
    User,
    "",
    "  </users>\n</conference-info>\n"};

// ---- Supplementary services ---------------------------------------------------------------------

std::string Rule(std::size_t i) {
  const std::string id = N(1000 + i);
  return "      <cp:rule id=\"rule-" + id +
         "\">\n"
         "        <cp:conditions>\n"
         "          " +
         (i % 2 == 0 ? "<busy/>" : "<no-answer/>") +
         "\n"
         "          <cp:identity>\n"
         "            <cp:one id=\"sip:caller" +
         id +
         "@example.com\"/>\n"
         "          </cp:identity>\n"
         "        </cp:conditions>\n"
         "        <cp:actions>\n"
         "          <forward-to>\n"
         "            <target>sip:voicemail" +
         id +
         "@example.com</target>\n"
         "            <notify-caller>true</notify-caller>\n"
         "          </forward-to>\n"
         "        </cp:actions>\n"
         "      </cp:rule>\n";
}

constexpr Shape kServices = {
    "simservs",
    XML_SCHEMA_SIMSERVS,
    "<simservs xmlns=\"http://uri.etsi.org/ngn/params/xml/simservs/xcap\">\n"
    "  <originating-identity-presentation active=\"true\"/>\n"
    "  <terminating-identity-presentation active=\"true\"/>\n"
    "  <communication-waiting active=\"true\"/>\n"
    "</simservs>\n",
    "<simservs xmlns=\"http://uri.etsi.org/ngn/params/xml/simservs/xcap\""
    " xmlns:cp=\"urn:ietf:params:xml:ns:common-policy\">\n"
    "  <originating-identity-presentation active=\"true\"/>\n"
    "  <communication-waiting active=\"true\"/>\n"
    "  <communication-diversion active=\"true\">\n"
    "    <NoReplyTimer>25</NoReplyTimer>\n"
    "    <cp:ruleset>\n",
    0,
    nullptr,
    Rule,
    "",
    "    </cp:ruleset>\n  </communication-diversion>\n</simservs>\n"};

// ---- Resource lists -----------------------------------------------------------------------------

std::string List(std::size_t group) {
  return "  <list name=\"list-" + N(group) + "\">\n    <display-name>List " + N(group) +
         "</display-name>\n";
}

std::string Entry(std::size_t i) {
  const std::string id = N(10000 + i);
  return "    <entry uri=\"sip:user" + id +
         "@example.com\">\n"
         "      <display-name>User " +
         id +
         "</display-name>\n"
         "    </entry>\n";
}

constexpr Shape kResourceLists = {
    "resource lists",
    XML_SCHEMA_RESOURCE_LISTS,
    "<resource-lists xmlns=\"urn:ietf:params:xml:ns:resource-lists\">\n"
    "  <list name=\"list-0\">\n"
    "    <display-name>List 0</display-name>\n"
    "    <entry uri=\"sip:ada@example.com\"/>\n"
    "    <entry uri=\"sip:joe@example.com\"/>\n"
    "  </list>\n"
    "</resource-lists>\n",
    "<resource-lists xmlns=\"urn:ietf:params:xml:ns:resource-lists\">\n",
    20,
    List,
    Entry,
    "  </list>\n",
    "</resource-lists>\n"};

// ---- Presence and dispositions ------------------------------------------------------------------

std::string Tuple(std::size_t i) {
  const std::string id = N(1000 + i);
  std::string text = "  <tuple id=\"service-" + id +
                     "\">\n"
                     "    <status><basic>open</basic></status>\n"
                     "    <op:service-description>\n"
                     "      <op:service-id>org.example.service-" +
                     id +
                     "</op:service-id>\n"
                     "      <op:version>2.1</op:version>\n"
                     "    </op:service-description>\n";
  if (i % 2 == 0) {
    text +=
        "    <caps:servcaps>\n      <caps:audio>true</caps:audio>\n"
        "      <caps:video>true</caps:video>\n    </caps:servcaps>\n";
  }
  return text + "    <contact>sip:+1555010" + id +
         "@ims.example.com</contact>\n"
         "    <timestamp>2027-02-01T08:00:12Z</timestamp>\n  </tuple>\n";
}

constexpr Shape kPresence = {
    "presence",
    XML_SCHEMA_PRESENCE,
    "<presence xmlns=\"urn:ietf:params:xml:ns:pidf\" entity=\"sip:ada@ims.example.com\">\n"
    "  <tuple id=\"desk\">\n"
    "    <status><basic>open</basic></status>\n"
    "    <contact>sip:ada@desk.example.com</contact>\n"
    "    <timestamp>2027-02-01T08:00:12Z</timestamp>\n"
    "  </tuple>\n"
    "</presence>\n",
    "<presence xmlns=\"urn:ietf:params:xml:ns:pidf\""
    " xmlns:op=\"urn:oma:xml:prs:pidf:oma-pres\""
    " xmlns:caps=\"urn:ietf:params:xml:ns:pidf:caps\" entity=\"sip:ada@ims.example.com\">\n",
    0,
    nullptr,
    Tuple,
    "",
    "</presence>\n"};

constexpr Shape kDisposition = {"IMDN",
                                XML_SCHEMA_IMDN,
                                "<imdn xmlns=\"urn:ietf:params:xml:ns:imdn\">\n"
                                "  <message-id>a1f09c7730</message-id>\n"
                                "  <datetime>2027-02-01T08:00:12Z</datetime>\n"
                                "  <recipient-uri>sip:ada@ims.example.com</recipient-uri>\n"
                                "  <delivery-notification>\n"
                                "    <status><delivered/></status>\n"
                                "  </delivery-notification>\n"
                                "</imdn>\n",
                                nullptr,
                                0,
                                nullptr,
                                nullptr,
                                nullptr,
                                nullptr};

const Shape& ShapeOf(Kind kind) {
  switch (kind) {
    case Kind::kRegistration:
      return kRegistration;
    case Kind::kConference:
      return kConference;
    case Kind::kPresence:
      return kPresence;
    case Kind::kResourceLists:
      return kResourceLists;
    case Kind::kServices:
      return kServices;
    case Kind::kDisposition:
      break;
  }
  return kDisposition;
}

}  // namespace

const char* NameOf(Kind kind) { return ShapeOf(kind).name; }
eXMLSchemaID SchemaOf(Kind kind) { return ShapeOf(kind).schema; }

Document LeastDocument(Kind kind) {
  return {kind, "0.3", kDeclaration + std::string(ShapeOf(kind).least)};
}

Document MakeDocument(Kind kind, std::size_t bytes, const char* size, std::size_t step) {
  const Shape& shape = ShapeOf(kind);
  Document document{kind, size, kDeclaration};
  std::string& text = document.text;
  text.reserve(bytes + 1024);
  text += shape.head;
  std::size_t i = 0;
  do {
    if (shape.group != 0 && i % shape.group == 0) {
      if (i != 0) text += shape.close;
      text += shape.open(i / shape.group);
    }
    text += shape.piece(i++);
  } while (i % step != 0 || text.size() + 200 < bytes);  // half a piece before the end is nearest
  if (shape.group != 0) text += shape.close;
  text += shape.tail;
  return document;
}

}  // namespace bench
