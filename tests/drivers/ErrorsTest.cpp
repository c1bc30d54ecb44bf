// Why a document was not read, written or updated.
#include "ErrorChecks.h"
#include "Samples.h"
#include "ztxml/reginfo.h"

namespace {

// What is said of a text that is read as registration information, with the path in brackets.
std::string Said(const ztxml::Options& options, const std::string& text) {
  const auto read = ztxml::Read<zt_reginfo>(text, options);
  return std::string(read.error().Text()) + " [" + read.error().path + "]";
}

TEST(Errors, SayWhatIsWrongAndWhere) {
  const struct {
    std::string text;
    const char* exact;
    const char* standard;  // null: as exact
  } kCases[] = {
      {"", "1:1: incomplete: the text has no element []", nullptr},
      {"hello", "1:1: malformed: there is text before the root element []", nullptr},
      {"<reginfo", "1:1: incomplete: the text ends within the tag <reginfo [/reginfo]", nullptr},
      {"<reginfo>\n <x/><x>", "2:9: incomplete: <x> is not closed (opened at 2:6) [/reginfo/x[2]]",
       nullptr},
      {"<reginfo>\n<registration/><registration>\n</x>",
       "3:1: malformed: the end tag </x> where </registration> is expected (opened at 2:16) "
       "[/reginfo/registration[2]]",
       nullptr},
      {"</reginfo>", "1:1: malformed: the end tag </reginfo> closes nothing []", nullptr},
      {"<reginfo state=full>",
       "1:16: malformed: the value of the attribute state has no quotes [/reginfo]", nullptr},
      {"<reginfo state=\"full\"\">",
       "1:22: malformed: a second quote after the value of the attribute state [/reginfo]",
       nullptr},
      {"<reginfo state=\"full><registration/></reginfo>",
       "1:22: malformed: '<' in the value of the attribute state: its closing quote may be missing "
       "[/reginfo/registration[1]]",
       "1:22: malformed: '<' in the value of the attribute state: its closing quote may be missing "
       "[/reginfo]"},
      {"<x/>", "1:1: wrong root: the root element is <x>, not <reginfo> [/x]", nullptr},
      {"<reginfo>< /a></reginfo>",
       "1:12: refused: the name of a start tag begins with a slash [/reginfo]",
       "1:11: malformed: a name is expected here [/reginfo]"},
      {"<reginfo><registration id='>'/></reginfo>",
       "1:28: refused: '>' in the value of the attribute id is read in the standard profile only "
       "[/reginfo/registration[1]]",
       " []"},
      {"<reginfo><![CDATA[a]]></reginfo>",
       "1:10: refused: CDATA sections are read in the standard profile only [/reginfo]", " []"},
      {"<reginfo><?a?></reginfo>",
       "1:10: refused: a processing instruction inside of the root element is read in the standard "
       "profile only [/reginfo]",
       " []"},
      {"<reginfo></reginfo\n>",
       "1:10: refused: white space in an end tag is read in the standard profile only [/reginfo]",
       " []"},
      {"<reginfo><!-- > --></reginfo>",
       "1:15: refused: '>' in a comment is read in the standard profile only [/reginfo]", " []"},
      {"<!DOCTYPE a [ ]><reginfo/>",
       "1:13: refused: a document type declaration with an internal subset is not supported []",
       nullptr},
      {std::string("\xff\xfe<\0", 4),
       "1:1: encoding: UTF-16 is read in the standard profile only []",
       "1:1: incomplete: the text ends within the tag < []"},
      {"<reginfo><registration/aor=\"x y\"/></reginfo>",
       "1:24: malformed: a blank, '/>' or '>' is expected here [/reginfo/registration[1]]",
       nullptr},
      {"<reginfo>a & b</reginfo>", " []",
       "1:13: malformed: '&' begins no reference: one that is meant is written &amp; [/reginfo]"},
      {"<reginfo><a\x1b\x7f></reginfo>",
       "1:15: malformed: the end tag </reginfo> where </a?\?> is expected (opened at 1:10) "
       "[/reginfo/a??]",
       "1:12: malformed: XML does not allow this character []"},
      {"<reginfo xmlns='urn:x'/>", " []",
       "1:1: wrong root: the root element is <reginfo> in the namespace urn:x, not in "
       "urn:ietf:params:xml:ns:reginfo [/reginfo]"},
      {"<reginfo><a:b/></reginfo>", " []",
       "1:11: malformed: no namespace is bound to the prefix a [/reginfo/a:b]"},
      {"<reginfo a='1' a='2'/>", " []",
       "1:16: malformed: the element has the attribute a twice (first at 1:10) [/reginfo]"},
      {"<reginfo>&nbsp;</reginfo>", " []",
       "1:10: malformed: the entity &nbsp; is not defined [/reginfo]"},
      {"<?xml version='1.0' encoding='koi8-r'?><reginfo/>", " []",
       "1:31: encoding: the encoding koi8-r is not supported []"},
      {"<reginfo>\n\xff</reginfo>", " []",
       "2:1: encoding: these bytes are no character of the encoding []"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Said(ztxml::Exact(), c.text), c.exact);
    EXPECT_EQ(Said(ztxml::ReadOnly(), c.text), c.standard ? c.standard : c.exact);
  }
}

TEST(Errors, OfHostileTextsAreShortAndInOneLine) {
  const std::string name(5000, 'n');
  const std::string deep = [] {
    std::string text;
    for (int i = 0; i < 3000; ++i) text += "<a>";
    return text + "</b>";
  }();
  for (const ztxml::Options& options : {ztxml::Exact(), ztxml::ReadOnly()}) {
    const std::string said = Said(options, "<" + name + "></\x01\n\xff" + name + ">");
    EXPECT_EQ(said.find('\n'), std::string::npos);
    EXPECT_LT(said.size(), 1200U);
    EXPECT_NE(Said(options, "<reginfo>" + deep).find("</b> where </a> is expected (opened at 1:"),
              std::string::npos);
  }
}

// Every document of examples/, cut, and with characters taken out, put in and changed.
TEST(Errors, AreWhereAnotherParserHasThem) {
  for (const Sample& sample : Samples()) {
    const std::string& text = sample.text;
    SCOPED_TRACE(sample.name);
    const std::size_t step = text.size() / 60 + 1;
    for (std::size_t at = 0; at < text.size(); at += step) {
      CheckErrors(sample.id, text.substr(0, at));
      std::string changed = text;
      CheckErrors(sample.id, changed.erase(at, 1));
      const char c = "<>&\"'/ =x!?:;\x80"[at % 14];
      changed = text;
      changed[at] = c;
      CheckErrors(sample.id, changed);
      CheckErrors(sample.id, changed.insert(at, 1, c));
    }
  }
}

// Workers tell them when they are asked to.
TEST(Errors, AreReportedByWorkers) {
  for (const eXMLProfile profile : {XML_PROFILE_EXACT, XML_PROFILE_STANDARD}) {
    Schema schema(XML_SCHEMA_REGINFO, profile);
    ztxml::Error error;
    schema.writer()->ReportTo(&error);
    schema.Write(nullptr);
    EXPECT_STREQ(error.Text(), "refused: there is no tree");
    const Tree<XMLElement> registration(ReginfoDataBinder().CreateRegistrationElement());
    schema.Write(registration.get());
    EXPECT_STREQ(error.Text(),
                 "wrong root: the root is of no class that this document begins with");
    const auto root = schema.Read<zt_reginfo>("<reginfo version='1' state='full'/>");
    EXPECT_NE(schema.Write(root.get()), "(null)");
    EXPECT_STREQ(error.Text(), "");
  }
}

// Of every document, read and written: without memory that is said, and nothing else.
TEST(Errors, SayThatMemoryIsLacking) {
  for (const Sample& sample : Samples()) {
    for (const eXMLProfile profile : {XML_PROFILE_EXACT, XML_PROFILE_STANDARD}) {
      SCOPED_TRACE(sample.name);
      const auto attempt = [&](bool tells) -> std::string {
        ztxml::Error error;
        const auto told = [&](bool done) {
          EXPECT_TRUE(done || !tells || error.code == ztxml::Code::kNoMemory) << error.Text();
          EXPECT_TRUE(!done || error.code == ztxml::Code::kNone) << error.Text();
          return done;
        };
        std::string result = "(null)";
        XMLContext* context = XMLFactory::newInstance(sample.id);
        const bool works = context && context->UseProfile(profile);
        XMLUnMarshaller* reader = works ? context->createUnMarshaller() : nullptr;
        if (reader) reader->ReportTo(&error);
        const Tree<XMLElement> root(reader ? reader->UnMarshall(sample.text.c_str()) : nullptr);
        if (reader && told(root != nullptr)) {
          XMLMarshaller* writer = context->createMarshaller();
          if (writer) writer->ReportTo(&error);
          EXPECT_TRUE(!writer || context->createMarshaller() || context->marshaller() == writer);
          const char* text = writer ? writer->Marshall(root.get()) : nullptr;
          if (!XMLFactory::getSchemaInfo(sample.id)->writes) {
            result = "read";
          } else if (writer && told(text != nullptr)) {
            result = text;
          }
        }
        XMLFactory::deleteContext(context);
        return result;
      };
      // Some samples are for one profile, or for a context that was told of namespaces.
      if (attempt(false) != "(null)") ExpectWholeOrNothing([&] { return attempt(true); });
    }
  }
}

}  // namespace
