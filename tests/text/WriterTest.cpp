#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "TestSupport.h"
#include "ztxml/ztXMLDocGenerator.h"

namespace {

using Writer = ZtXMLDocGenerator;
using Call = std::function<void(Writer&)>;
using Calls = std::vector<Call>;

// Binds arguments to a call of `member` that is made later.
template <class... Arguments>
auto Calling(void (Writer::*member)(Arguments...)) {
  return [member](Arguments... arguments) -> Call {
    return [=](Writer& writer) { (writer.*member)(arguments...); };
  };
}
const auto Init = Calling(&Writer::ztInitXmlDoc);
const auto Drop = Calling(&Writer::ztDeInitXmlDoc);
const auto Reset = Calling(&Writer::ztResetHeader);
const auto Header = Calling(&Writer::ztAddHeader);
const auto Comment = Calling(&Writer::ztAddComment);
const auto Prefix = Calling(&Writer::ztSetXmlNamespace);
const auto Start = Calling(&Writer::ztStartElement);
const auto Inline = Calling(&Writer::ztStartElementWithoutNL);
const auto StartNs = Calling(&Writer::ztStartElementNs);
const auto Empty = Calling(&Writer::ztStartElementSelfEnding);
const auto Attribute = Calling(&Writer::ztStartAttribute);
const auto AttributeNs = Calling(&Writer::ztStartAttributeNs);
const auto Declare = Calling(&Writer::ztAddNameSpacePrefixToXml);
const auto Data = Calling(&Writer::ztXmlSetData);
const auto End = Calling(&Writer::ztEndXmlElement);
const auto EndNs = Calling(&Writer::ztEndXmlElementNs);

// The flags of these calls.
constexpr int kOpen = 1, kPrefixed = 1, kSelfEnd = 1, kClose = 1;

// Makes the calls and returns the text so far.
std::string Write(Writer& writer, const Calls& calls) {
  for (const Call& call : calls) call(writer);
  return writer.ztGetXmlDoc() ? writer.ztGetXmlDoc() : "(null)";
}

TEST(XmlWriter, WritesExactTexts) {
  const struct {
    Calls calls;
    std::string text;  // with ' instead of "
  } kCases[] = {
      {{Header(nullptr, nullptr), Header("1.0", "UTF-8")},
       "<?xml version='1.0' encoding='ISO-8859-15'?>"},
      {{Start("a", 0), Header("1.0", "UTF-8")}, "\n<a>"},
      {{Header(nullptr, nullptr), Start("a", 0), Reset()}, ""},
      {{Header(nullptr, nullptr), Reset(), Header("1.1", "x")},
       "<?xml version='1.1' encoding='x'?>"},
      {{Comment("c"), Comment(nullptr), Inline("a", 0)}, "\n<!--c --><a>"},
      {{Header("1.0", "UTF-8"), Start("a", kOpen), Declare("x", "1", nullptr, 0, kClose),
        Start("b", 0), Data("t"), End("b"), Empty("c"), End("a")},
       "<?xml version='1.0' encoding='UTF-8'?>\n<a  x='1'>\n<b>t</b>\n<c/></a>"},
      // A start tag left open is closed once: by data, by an attribute, by the next start or end.
      {{Start("a", kOpen), Data("x"), Data("y")}, "\n<a >xy"},
      {{Inline("a", kOpen), StartNs("b", nullptr, nullptr, 0)}, "<a >\n<b>"},
      {{Inline("a", 2), Data(nullptr), Data("\"<&")}, "<a> '<&"},
      {{Start("a", kOpen), Declare("id", "7", nullptr, 0, kClose), Data("x")}, "\n<a  id='7'>x"},
      {{Start("a", kOpen), Attribute("x", "1", 0, kSelfEnd, kClose), Attribute("y", "2", 0, 0, 0),
        Data("x")},
       "\n<a x='1'/>x"},
      {{Start("a", kOpen), AttributeNs("x", "1", "p", kSelfEnd, 0), StartNs("b", "p", "u", 0)},
       "\n<a  p:x='1'/>\n<p:b xmlns:p='u'>"},
      {{Start("a", kOpen), StartNs("b", "p", "u", kOpen), Data("x")},
       "\n<a >\n<p:b xmlns:p='u' >x"},
      {{Start("a", kOpen), StartNs(nullptr, "p", "u", kOpen), Data("x")}, "\n<a >x"},
      {{Start("a", kOpen), End("a"), Data("x")}, "\n<a </a>x"},
      {{Start("a", kOpen), EndNs("a", nullptr), Data("x")}, "\n<a \n</a>x"},
      {{Start("a", kOpen), Empty("b"), Data("x")}, "\n<a \n<b/>>x"},
      {{Start("a", kOpen), Reset(), Data("x")}, "x"},
      // Attributes.
      {{Start("a", kOpen), Attribute("x", "1", kPrefixed, 0, 0),
        Attribute("y", nullptr, 0, 0, kClose)},
       "\n<a x='1'y=''>"},
      {{Start("a", kOpen), AttributeNs("x", "1", "p", 0, 0),
        AttributeNs("y", nullptr, nullptr, 0, kClose)},
       "\n<a  p:x='1' y=''>"},
      {{Attribute("x", "1", 0, 0, kClose), AttributeNs("x", "1", "p", 0, kClose),
        Declare("x", nullptr, nullptr, kSelfEnd, kClose)},
       " x=''/>"},
      {{Start("a", kOpen), Declare("xmlns", "u", "cp", 0, 0), Declare("v", "3", "", 0, kClose)},
       "\n<a  xmlns:cp='u'  v:='3'>"},
      {{Start("a", kOpen), Attribute("x", "say \"hi\"", 0, 0, 0), AttributeNs("y", "\"", "p", 0, 0),
        Declare("z", "<&>\"\"", "q", 0, 0)},
       "\n<a x='say &quot;hi&quot;' p:y='&quot;'  z:q='<&>&quot;&quot;' "},
      // Prefixes.
      {{Prefix("x"), Prefix("cp"), Start("r", 0), Inline("i", 0), Empty("e"), End("r"),
        EndNs("y", nullptr), EndNs("z", "q")},
       "\n<cp:r><cp:i>\n<cp:e/></cp:r>\n</cp:y>\n</q:z>"},
      {{Prefix("p"), Start("a", kOpen), Attribute("x", "1", kPrefixed, 0, 0),
        Attribute("y", "2", 0, 0, 0), AttributeNs("z", "3", "q", 0, kClose)},
       "\n<p:a  p:x='1'y='2' q:z='3'>"},
      {{Prefix("p"), StartNs("a", "q", "u", 0), StartNs("b", "q", nullptr, 0),
        StartNs("c", nullptr, "u", kOpen)},
       "\n<q:a xmlns:q='u'>\n<p:b>\n<p:c "},
      {{Prefix(""), Start("a", kOpen), Attribute("x", "1", kPrefixed, 0, kClose)}, "\n<:a  x='1'>"},
      {{Prefix("p"), Prefix(nullptr), Start("a", 0), Prefix("q"), Reset(), Start("b", 0),
        EndNs("b", nullptr)},
       "\n<b>\n</b>"},
      // Without a name or a document nothing is written, and nothing stays of an earlier document.
      {{Start(nullptr, 0), Inline(nullptr, kOpen), StartNs(nullptr, "p", "u", kOpen),
        Empty(nullptr), Declare(nullptr, "1", "x", 0, kClose), End(nullptr), EndNs(nullptr, "p"),
        Data("x")},
       "x"},
      {{Start("a", kOpen), Attribute(nullptr, "1", 0, 0, kClose),
        AttributeNs(nullptr, "1", "p", 0, kClose)},
       "\n<a "},
      {{Drop(), Header("1.0", "x"), Comment("c"), Prefix("p"), Start("a", kOpen),
        Inline("b", kOpen), StartNs("c", "p", "u", kOpen), Empty("d"), Attribute("x", "1", 0, 0, 0),
        AttributeNs("x", "1", "p", 0, 0), Declare("x", "\"", nullptr, 0, 0), Data("t"), End("a"),
        EndNs("a", "p"), Reset()},
       "(null)"},
      {{Drop(), Prefix("p"), Start("early", kOpen), Init(), Start("a", kOpen), Init(), Data("x")},
       "\n<a >x"},
      {{Prefix("p"), Header("1.0", "x"), Start("a", kOpen), Drop(), Init(), Data("x"), End("b")},
       "x</b>"}};
  for (auto [calls, text] : kCases) {
    std::replace(text.begin(), text.end(), '\'', '"');
    Writer writer;
    writer.ztInitXmlDoc();
    EXPECT_SAME(Write(writer, calls), text);
  }
}

// A caller that fetched the text early sees in it what has been written since.
TEST(XmlWriter, HeldTextsEndWhereTheDocumentEnds) {
  Writer writer;
  writer.ztInitXmlDoc();
  const char* held = writer.ztGetXmlDoc();
  const Calls calls = {Header(nullptr, nullptr),
                       Comment("c"),
                       StartNs("a", "p", "u", 1),
                       Attribute("b", "\"", 0, 0, 0),
                       AttributeNs("c", "d", "q", 0, 0),
                       Declare("e", "f", nullptr, 0, kClose),
                       Data("text"),
                       Empty("g"),
                       EndNs("a", "p"),
                       Reset(),
                       Inline("h", 0),
                       End("h")};
  for (std::size_t i = 0; i < calls.size(); ++i) {
    calls[i](writer);
    const std::string seen = held;
    EXPECT_SAME(seen, writer.ztGetXmlDoc()) << i;
  }
  EXPECT_SAME(held, "<h></h>");
}

TEST(XmlWriter, CutsWhatIsTooLongAndSaysSoOnce) {
  const std::string cut = "4 ZtXMLDocGenerator :: document cut at 32767 characters";
  constexpr std::size_t kMost = 32767;
  const std::string filler(kMost - 10, 'f');
  const LogCapture log;
  const std::string quotes(kMost, '"');
  const Call fill = Data(filler.c_str());
  Writer g;
  EXPECT_SAME(Write(g, {Init(), fill, Start("a234567", 0)}), filler + "\n<a234567>");
  EXPECT_EQ(log.Lines().size(), 0u);
  EXPECT_SAME(Write(g, {Reset(), fill, Start("a", kOpen), Declare("x", "1", nullptr, 0, kClose)}),
              filler + "\n<a  x=\"1\"");
  EXPECT_EQ(Write(g, {Data(""), Data("x"), End("a"), Empty("b")}).size(), kMost);
  EXPECT_EQ(log.Lines().size(), 1u);
  EXPECT_EQ(Write(g, {Drop(), Init(), Declare("q", quotes.c_str(), "", 0, 0)}).size(), kMost);
  ASSERT_EQ(log.Lines().size(), 2u);
  for (const CapturedLine& line : log.Lines()) {
    EXPECT_EQ(std::to_string(line.level) + ' ' + line.text, cut);
    EXPECT_EQ(line.file + std::to_string(line.module), "src/ztXMLDocGenerator6070");
  }
}

TEST(XmlWriter, LacksWhatThereWasNoMemoryFor) {
  const Call quoted = Declare("x", "\"1\"", nullptr, 0, kClose);
  ExpectWholeOrNothing([&] {
    Writer g;
    const std::string text = Write(g, {Init(), Header("1.0", "UTF-8"), Prefix("p"),
                                       Start("a", kOpen), quoted, Prefix("q"), End("a")});
    return g.outOfMemory() ? "(null)" : text;
  });
  const LogCapture log;
  const std::pair<Calls, std::string> cases[] = {
      {{Init(), Header("1.0", "x"), Start("a", 0), Data("x")}, "(null)"},
      {{Prefix("p"), Start("a", 0)}, "\n<a>"},
      {{quoted, Start("a", 0)}, " x=\"\">\n<old:a>"}};
  for (const auto& [calls, text] : cases) {
    Writer g;
    if (text != "(null)") Write(g, {Init(), Prefix("old")});
    EXPECT_FALSE(g.outOfMemory());
    zthost::FailAllocation(1);
    EXPECT_EQ(Write(g, calls), text);
    EXPECT_TRUE(g.outOfMemory());
    EXPECT_EQ(Write(g, {Drop(), Init(), Data("x")}), "x");
    EXPECT_FALSE(g.outOfMemory());
  }
  ASSERT_EQ(log.Lines().size(), 1u);
  const CapturedLine line = log.Lines()[0];
  EXPECT_EQ(line.text, "ZtXMLDocGenerator :: escapeString malloc failed");
  EXPECT_TRUE(line.file == "src/ztXMLDocGenerator" && line.line == 880 && line.level == 2);
  EXPECT_EQ(Writer::escapeString(nullptr), nullptr);
}

}  // namespace
