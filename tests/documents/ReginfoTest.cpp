// Registration information and GRUU: what golden documents do not say.
#include "DocumentSupport.h"
#include "ztxml/XMLReginfo.h"

namespace {

// A document around one contact, as it is read and as it is written.
std::string InContact(const std::string& attributes, const std::string& content = "") {
  return "<reginfo version=\"0\" state=\"full\"><registration aor='a' id='r' "
         "state='active'><contact " +
         attributes + ">" + content + "</contact></registration></reginfo>";
}
std::string OutContact(const std::string& attributes, const std::string& content = "") {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<reginfo  "
         "xmlns=\"urn:ietf:params:xml:ns:reginfo\"  xmlns:gr=\"urn:ietf:params:xml:ns:gruuinfo\"  "
         "version=\"0\"  state=\"full\">\n<registration  aor=\"a\"  id=\"r\"  state=\"active\">"
         "\n<contact  " +
         attributes + ">" + content + "</contact></registration></reginfo>";
}
const char kIn[] = "id='c' state='active' event='created'";

TEST(Reginfo, ValuesOfEverySize) {
  Schema schema(XML_SCHEMA_REGINFO);
  for (std::size_t size = 0; size <= 40; ++size) {
    for (std::size_t quote = 0; quote <= size; ++quote) {  // the last one: none
      std::string value(size, 'v');
      std::string written = value;
      if (quote < size) value.replace(quote, 1, "\""), written.replace(quote, 1, "&quot;");
      EXPECT_SAME(schema.RoundTrip(InContact("id='" + value + "' state='active' event='created'")),
                  OutContact("state=\"active\"  event=\"created\"  id=\"" + written + "\""));
    }
  }
  for (std::string digits = "1"; digits.size() < 20; digits += digits.size() % 3 ? '0' : '9') {
    EXPECT_SAME(
        schema.RoundTrip(InContact(std::string(kIn) + " expires='" + digits + "'")),
        OutContact("state=\"active\"  event=\"created\"  expires=\"" + digits + "\"  id=\"c\""));
  }
}

TEST(Reginfo, NumbersAfterWhiteSpace) {
  const auto root =
      Schema(XML_SCHEMA_REGINFO).Read<zt_reginfo>("<reginfo version=' \t\n\v\f\r7'/>");
  EXPECT_EQ(root->getVersionValue(), 7U);
}

// The cut falls on every byte of a tag, of an element with text and of names with a prefix.
TEST(Reginfo, CutAnywhere) {
  const LogCapture log(4);
  Schema schema(XML_SCHEMA_REGINFO);
  constexpr std::size_t kMost = 32767;
  const std::string more = " q='1' callid='a\"b'";
  const std::string content = "<uri>sip:u@example.com</uri><gr:temp-gruu uri='t' first-cseq='7'/>";
  const std::string tail =
      OutContact("state=\"active\"  event=\"created\"  q=\"1\"  callid=\"a&quot;b\"  id=\"c\"",
                 "\n<uri>sip:u@example.com</uri>\n<gr:temp-gruu  first-cseq=\"7\"  uri=\"t\"/>");
  const std::size_t aor = tail.find("aor=\"a") + 5;
  for (std::size_t over = 0; over < tail.size() - aor + 2; ++over) {
    const std::string filler(kMost + over - tail.size(), 'f');
    std::string in = InContact(kIn + more, content);
    in.insert(in.find("aor='") + 5, filler);
    std::string whole = tail;
    whole.insert(aor, filler);
    ASSERT_SAME(schema.RoundTrip(in), whole.substr(0, kMost)) << over;
    ASSERT_EQ(log.Has("ZtXMLDocGenerator :: document cut at 32767 characters"), over != 0);
  }
}

// A document outgrows the room that the one before took on every byte of its text.
TEST(Reginfo, LongerThanTheOneBefore) {
  Schema schema(XML_SCHEMA_REGINFO);
  const std::string in = InContact(kIn + std::string(" q='\"'"), "<uri>u</uri>");
  const std::string out =
      OutContact("state=\"active\"  event=\"created\"  q=\"&quot;\"  id=\"c\"", "\n<uri>u</uri>");
  const auto with = [](std::string text, const std::string& filler) {
    return text.insert(text.find("aor=") + 5, filler);
  };
  const std::size_t room = out.size() + out.size() / 8 + 64;
  for (std::size_t more = 0; more < room; ++more) {
    const std::string filler(more, 'f');
    ASSERT_SAME(schema.RoundTrip(in), out) << more;
    ASSERT_SAME(schema.RoundTrip(with(in, filler)), with(out, filler)) << more;
  }
  const std::string filler(9000, 'f');
  ExpectWholeOrNothing([&] {
    schema.RoundTrip(in);
    return schema.RoundTrip(with(in, filler));
  });
}

// A second root replaces the first, whose elements may still be open.
TEST(Reginfo, SecondRootWithoutMemory) {
  Schema schema(XML_SCHEMA_REGINFO);
  ExpectWholeOrNothing(
      schema,
      "<reginfo version='1'><registration aor='a'><reginfo version='2' state='full'><registration "
      "aor='b' state='init'/></reginfo><contact id='c'/></registration></reginfo>");
}

// In a contact only GRUUs of the classes that the library reads them as are written.
TEST(Gruu, OfOtherClassesInAContact) {
  Schema schema(XML_SCHEMA_REGINFO);
  const auto root = schema.Read<zt_reginfo>(InContact(kIn, "<gr:pub-gruu uri='p'/>"));
  auto* registration = EntryOf(root->getRegistrationListValue());
  auto* contact = EntryOf(registration->getContactListValue());
  GruuDataBinder make;
  zt_ns_gruuinfo_pubGruu* nested = make.CreateNsPubGruuElement();
  zt_ns_gruuinfo_tempGruu* temporary = make.CreateNsTempGruuElement();
  nested->setUriValue("n");
  temporary->setUriValue("t");
  contact->addAnyElement(nested);
  contact->addAnyElement(temporary);
  const LogCapture log;
  EXPECT_SAME(schema.Write(root.get()), OutContact("state=\"active\"  event=\"created\"  id=\"c\"",
                                                   "\n<gr:pub-gruu  uri=\"p\"/>"));
  for (const char* name : {"zt_ns_gruuinfo_pubGruu", "zt_ns_gruuinfo_tempGruu"}) {
    EXPECT_EQ(log.Count(std::string("any element classname: ") + name), 1) << name;
  }
}

}  // namespace
