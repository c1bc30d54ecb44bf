#include <algorithm>
#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "ParserEvents.h"
#include "TestSupport.h"

namespace {

using namespace std::string_literals;

using Attributes = std::vector<std::pair<std::string, std::string>>;
// The callbacks of an element without other elements inside.
std::string Element(const std::string& name, const std::string& text = "",
                    const Attributes& attributes = {}) {
  std::string events = Start(name);
  for (const auto& [key, value] : attributes) events += Attribute(name, key, value);
  return events + Opened(name) + End('/' + name, text);
}

struct Outcome {
  int result;
  eXmlDecodeState state;
};
constexpr Outcome kComplete = {ZT_XML_SUCCESS, ZT_XML_PARSE_COMPLETE};
constexpr Outcome kPartial = {ZT_XML_INCOMPLETE, ZT_XML_PARSE_CONTINUE};
constexpr Outcome kFatal = {ZT_XML_ERROR, ZT_XML_PARSE_ERROR};
// After a tag that does not match the state stays, but only memory safety is promised.
constexpr Outcome kMismatch = {ZT_XML_ERROR, ZT_XML_PARSE_BEGIN};

// Checks what each text gives when fed whole and in chunks of up to `largest` bytes.
void Check(const Outcome& outcome, const std::string& events, const std::vector<std::string>& texts,
           std::size_t largest = 100) {
  const auto [result, state] = outcome;
  const bool stays = state == kMismatch.state;
  for (const std::string& text : texts) {
    SCOPED_TRACE(Shortened(text));
    Parse whole;
    EXPECT_EQ(whole.Feed(text), result);
    EXPECT_EQ(Parse(false).Feed(text), result);
    EXPECT_SAME(whole.recorder.events, events);
    EXPECT_EQ(whole.decoder.State(), state);
    for (std::size_t size = std::min(text.size() - 1, largest); size > 0; --size) {
      SCOPED_TRACE(size);
      Parse parse;
      EXPECT_EQ(parse.Feed(text, size), result);
      EXPECT_EQ(parse.decoder.State(), stays ? ZT_XML_PARSE_CONTINUE : state);
      EXPECT_SAME(parse.recorder.structure, whole.recorder.structure);
      if (result != ZT_XML_INCOMPLETE) {
        EXPECT_TRUE(parse.Feed(text, 1) == result || stays);
        EXPECT_TRUE(parse.recorder.structure == whole.recorder.structure || stays);
      }
      if (testing::Test::HasFailure()) return;  // smaller chunks would repeat the failure
    }
  }
}

TEST(XmlDecoder, ReportsTheSameInChunksOfEverySize) {
  const std::string opened = Start("a") + Opened("a");
  const std::pair<const char*, std::string> complete[] = {
      {"<a>hi</a>", Element("a", "hi")},
      {"x><a> x &amp; > y </a>", Element("a", " x &amp; > y ")},
      {"<a><b>1</b>2<c/>3</a></a>", opened + Element("b", "1") + Element("c") + End("/a", "3")},
      {"<!-a></!-a>", Element("!-a")},
      {"<!----><a>x<!-- -- <b -->y</a>", Element("a", "y")},
      // Attributes; white space after the last may come out as one without a name.
      {"<a x='1' y=\"&lt;b&gt;\"/>", Element("a", "", {{"x", "1"}, {"y", "<b>"}})},
      {"<a x='q\"q' y=\"it's=\" z='<b'></a>",
       Element("a", "", {{"x", "q\"q"}, {"y", "it's="}, {"z", "<b"}})},
      {"<a x='&apos;&amp;lt;&#65;&am'/>", Element("a", "", {{"x", "'&lt;&#65;&am"}})},
      {"<a x=''y=\"\" z='z'/>", Element("a", "", {{"x", ""}, {"y", ""}, {"z", "z"}})},
      {"<a x=\"1\"y=\"2\" x='3'/>", Element("a", "", {{"x", "1"}, {"y", "2"}, {"x", "3"}})},
      {"<a\tx = '&lt;'\r\ny\n='2'/>", Element("a", "", {{"x ", "<"}, {"y\n", "2"}})},
      {"<a x='1' ></a>", Element("a", "", {{"x", "1"}, {"", ""}})},
      {"<a b>t</a>", Element("a", "t", {{"b", ""}})},
      {"<a ='1' ='2'/>", Element("a", "", {{"'1' ", "2"}})},
      {"<\xC3\xA4 \xFF='\xE2'/>", Element("\xC3\xA4", "", {{"\xFF", "\xE2"}})}};
  for (const auto& [text, events] : complete) Check(kComplete, events, {text});
  Check(kComplete, Element("a", "", {{"", ""}}), {"<  a  ></a>", "<a  ></a>"});
  Check(
      kComplete, Element("a"),
      {"<a ></a>", "<\na />", "<a/>junk<b x=1></c>", "<?xml version='1.0'?><!-- --><?pi?><?><a/>"});
  Check(kPartial, "",
        {"<", "</", "<a/", "t>", "<?x?>", "<?x", "<!-- --", "<a b='", "<!---",
         "<!-- a --><!-- b -->"});
  Check(kPartial, opened, {"<a>t", "<a></"});
  Check(kPartial, Start("a/b") + Opened("a/b") + Start("a/") + Opened("a/"), {"<a/b><a/ >"});
  Check(kFatal, "", {"<>", "< \t>", "<!-->", "<!--->", "<!-- > -->", "<!-- ->", "<?x>", "<a =>"});
  Check(kFatal, opened, {"<a><?pi?></a>", "<a><!-- <b/> --></a>"});
  // The start of a tag is reported before its attributes are found invalid.
  Check(kFatal, Start("a"),
        {"<a =/>", "<a '>", "<a x=11/>", "<a x='>", "<a x='1>'/>", "<a b='1' c></a>",
         "<a b \"1\"></a>", "<a b='1' c '2'/>"});
  Check(kMismatch, "", {"</>", "</ >", "t</a>"});
  Check(kMismatch, opened, {"<a></b>", "<a></a >", "<a></>"});
  Check(kMismatch, Start("r") + Opened("r") + Element("abc", "t"), {"<r><abc>t</abc></b>"});
  // Not supported: parsed as if they were elements.
  Check(kPartial, Start("!D") + Attribute("!D", "a", "") + Opened("!D") + Element("a"),
        {"<!D a><a/>"});
  Check(kFatal, Start("!D"), {"<!D a 'b'>"});
  Check(kMismatch, opened + Start("![CDATA[x]]") + Opened("![CDATA[x]]"), {"<a><![CDATA[x]]></a>"});

  // Names around the size of a block.
  for (std::size_t size = 14; size <= 34; ++size) {
    const std::string name(size, 'n');
    Check(kComplete, Element(name, "", {{name, "v"}, {"p:" + name, "w"}}),
          {'<' + name + ' ' + name + "='v' p:" + name + "=\"w\"/>"});
    Check(kFatal, Start("a"), {"<a " + name + " '1'/>", "<a " + name + "x=1 y='2'/>"}, 3);
  }

  const std::string filler(150, 'v');  // outgrows the first buffer
  std::string text = "<r>", events = Start("r") + Opened("r");
  for (int i = 0; i < 60; ++i) {
    text += "<i k='" + filler + "'>t&lt;</i>";
    events += Element("i", "t&lt;", {{"k", filler}});
  }
  Check(kComplete, events + End("/r", ""), {text + "</r>"}, 9);
}

TEST(XmlDecoder, TextIsWhatCameWithTheEndTagAndNulEndsAChunk) {
  const std::pair<std::string, std::string> cases[] = {
      {"<a><b>t</b></a>", Start("a") + Opened("a") + Element("b", "t") + End("/a", "")},
      {"<a>hello</a>", Element("a", "llo")},
      {"<a>h</a>", Element("a", "h")},
      {"<a>\0<t</a>"s, Element("a", "t")},
      {"<a \0\"y='\0 1'/>"s, Element("a", "", {{"y", "1"}})}};
  for (const auto& [text, events] : cases) {
    Parse parse;
    EXPECT_EQ(parse.Feed(text, 5), ZT_XML_SUCCESS);
    EXPECT_SAME(parse.recorder.events, events);
  }
}

TEST(XmlDecoder, CountsAtTheLimitsStayInsideTheText) {
  std::vector<char> text = {'<', 'a', '/', '>', '\0'};
  XmlDecoder decoder;
  for (const int count : {0, -1, INT_MIN, INT_MAX})
    EXPECT_EQ(decoder.Decode(text.data(), count), ZT_XML_ERROR);
  EXPECT_EQ(decoder.Decode(nullptr, 1), ZT_XML_ERROR);
  EXPECT_EQ(decoder.State(), ZT_XML_PARSE_BEGIN);
  EXPECT_EQ(decoder.Decode(text.data(), 2), ZT_XML_INCOMPLETE);
  EXPECT_EQ(decoder.Decode(&text[2], INT_MAX - 1), ZT_XML_ERROR);
  EXPECT_EQ(decoder.Decode(&text[2], INT_MAX - 3), ZT_XML_SUCCESS);
}

TEST(XmlDecoder, LogsItsFailures) {
  const std::string lead = "3 <XML Decoder>:", attributes = "2 XmlDecoder:: DecodeAttributes ";
  const std::string failed = lead + "Decoder Failed in DecodeAttributes", valid = attributes + "0";
  const std::string invalid = attributes + "-1", list = attributes + "- Attribute list invalid";
  const std::string incomplete = lead + "ZT_XML_PARSE_CONTINUE ret:ZT_XML_INCOMPLETE";
  const struct {
    std::string text;
    std::vector<std::string> lines;
  } kCases[] = {
      {"", {"2 XmlDecoder::Decode n_strXML is null"}},
      {"t", {incomplete}},
      {"<a", {incomplete + " "}},
      {"</a>", {lead + "stack is empty when decodeBegin is not"}},
      {"<>", {failed}},
      {"<!-->", {}},
      {"<a x=1/>", {invalid, list, failed + " and ret:ZT_XML_PARSE_ERROR"}},
      {"<a x=1>", {invalid, list, failed}},
      {"<a/>", {valid, lead + "Decoder Success"}},
      // Texts of a document must not be used as formats.
      {"<%s></b>",
       {valid, lead + "stack mismatch happened when stored value is \"%s\" and ret:ZT_XML_ERROR"}},
      {"<%d></%d>",
       {valid, lead + "ProcessElement(pStrEndElement, start) failed when pStrEndElement=\"/%d\"",
        lead + "Decoder Success"}}};
  LogCapture log;
  for (auto [text, lines] : kCases) {
    log.Clear();
    Parse().Feed(text);
    std::vector<std::string> logged;
    for (const CapturedLine& line : log.Lines()) {
      EXPECT_EQ(line.file + std::to_string(line.module), "src/XmlDecoder6053");
      logged.push_back(std::to_string(line.level) + ' ' + line.text);
    }
    lines.insert(lines.begin(), "2 XmlDecoder::n_count = " + std::to_string(text.size()));
    EXPECT_SAME(logged, lines);
  }
  Parse parse;
  for (int i = 0; i < 2; ++i) parse.Feed("<a/>");
  EXPECT_EQ(log.Texts().back(),
            "XmlDecoder::Decode m_DecodeState = ZT_XML_PARSE_COMPLETE ret ZT_XML_SUCCESS");
}

TEST(XmlDecoder, ResetsAndBeginsAnew) {
  Parse parse;
  EXPECT_EQ(parse.Feed("<a><b x='"), ZT_XML_INCOMPLETE);
  const std::vector<zthost::MemoryEntry> live = zthost::GetMemoryReport().live;
  EXPECT_EQ(live.size(), 2u);  // the sentinel and the node of <a>
  for (const zthost::MemoryEntry& entry : live) {
    EXPECT_EQ(entry.tag, 1);
    EXPECT_EQ(entry.sourceFile, entry.line == 100 ? "src/XmlDecoder" : "src/XmlCommon");
  }
  for (int i = 0; i < 2; ++i) {
    parse.decoder.ResetXmlDecoder();
    EXPECT_EQ(parse.decoder.State(), ZT_XML_PARSE_CONTINUE);
    EXPECT_EQ(zthost::GetMemoryReport().live.size(), 0u);
  }
  EXPECT_EQ(parse.Feed("'/>"), ZT_XML_INCOMPLETE);
  EXPECT_EQ(parse.Feed("<b></b>"), ZT_XML_ERROR);
  EXPECT_EQ(parse.decoder.State(), ZT_XML_PARSE_ERROR);
  for (int i = 0; i < 2; ++i) parse.decoder.InitXmlDecoder();
  EXPECT_EQ(parse.Feed("<b></b>"), ZT_XML_SUCCESS);
}

TEST(XmlDecoder, EveryAllocationMayFail) {
  const LogCapture log;
  ExpectWholeOrNothing([] {
    const int result = Parse().Feed("<a x='1'><b y='&amp;'><c/></b></a>");
    return result == ZT_XML_ERROR ? "(null)" : std::to_string(result);
  });
  EXPECT_TRUE(log.Has("XmlDecoder::PushElement | ztDplStrdup failed"));
  for (const std::string& text : log.Texts(3)) EXPECT_EQ(text.find("PushElement"), text.npos);
  EXPECT_TRUE(log.Has("Decoder Failed as stack is not empty at end, reason: ZT_XML_PARSE_ERROR"));

  // A chunk for which there is no memory changes nothing and may be fed again.
  zthost::FailAllocation(0);
  Parse parse;
  const std::string text(200, 't');
  for (const std::string& chunk : {"<a><b"s, ">" + text + "</b></a>"}) {
    const eXmlDecodeState state = parse.decoder.State();
    zthost::FailAllocation(1);
    EXPECT_EQ(parse.Feed(chunk), ZT_XML_ERROR);
    EXPECT_EQ(parse.decoder.State(), state);
    parse.Feed(chunk);
  }
  EXPECT_SAME(parse.recorder.events, Start("a") + Opened("a") + Element("b", text) + End("/a", ""));
}

// Callers that pop what they pushed get the pushed node back, which needs no memory; of an element
// that the parser opened they get a copy.
TEST(XmlDecoder, CallersOpenAndCloseElements) {
  Parse parsed;
  EXPECT_EQ(parsed.decoder.PushElement(nullptr), nullptr);
  EXPECT_EQ(parsed.decoder.PopElement(), nullptr);
  parsed.Feed("<parsed>");
  const auto release = [](BuddyLinkList* node) {
    FreeElement(node->data);
    BuddyLinkList::Release(node);
  };
  for (std::string name : {"a"s, std::string(200, 'n')}) {
    for (long n = 1; n <= 2; ++n) {
      zthost::FailAllocation(n);
      EXPECT_EQ(parsed.decoder.PushElement(name.data()), nullptr);
    }
    zthost::FailAllocation(0);
    BuddyLinkList* pushed = parsed.decoder.PushElement(name.data());
    ASSERT_NE(pushed, nullptr);
    zthost::FailAllocation(1);
    ASSERT_EQ(parsed.decoder.PopElement(), pushed);
    EXPECT_EQ(parsed.decoder.PopElement(), nullptr);
    zthost::FailAllocation(0);
    EXPECT_TRUE(static_cast<const char*>(pushed->data) == name && !pushed->next);
    release(pushed);
  }
  BuddyLinkList* node = parsed.decoder.PopElement();
  ASSERT_NE(node, nullptr);
  EXPECT_STREQ(static_cast<const char*>(node->data), "parsed");
  release(node);
  // An end tag closes a pushed element, but ends at the first '>' itself.
  for (const auto& [name, result] : {std::pair("b"s, ZT_XML_INCOMPLETE), {"b>c"s, ZT_XML_ERROR}}) {
    Parse parse;
    parse.Feed("<a>");
    ASSERT_NE(parse.decoder.PushElement(std::string(name).data()), nullptr);
    EXPECT_EQ(parse.Feed("</" + name + ">"), result);
  }
}

TEST(XmlDecoder, DepthIsLimitedByMemoryOnly) {
  std::string open, close;
  for (int i = 0; i < 100000; ++i) open += "<a>", close += "</a>";
  Parse closed(false), left(false);
  EXPECT_EQ(closed.Feed(open), ZT_XML_INCOMPLETE);
  EXPECT_EQ(closed.Feed(close), ZT_XML_SUCCESS);
  EXPECT_EQ(left.Feed(open), ZT_XML_INCOMPLETE);
}

TEST(XmlText, HelpersStayInsideTheirText) {
  using Helper = char* (*)(char*);
  const Helper right = [](char* text) { return XmlCommon::TrimRightSingle(text), text; };
  const Helper five = [](char* text) { return XmlDecoder::UnescapeXml(text), text; };
  const Helper twoA = [](char* text) {
    for (const char* entity : {static_cast<const char*>(nullptr), "", "aa"}) {
      XmlDecoder::UnescapeXmlString(text, entity, '-');
    }
    return text;
  };
  const Helper token = [](char* text) {  // the second; of the delimiters the ';' is one too many
    static const std::string delimiters = "\xFF" + std::string(31, ',') + ';';
    XmlDecoder::N_strtok(text, delimiters.c_str(), &text);
    return XmlDecoder::N_strtok(text, delimiters.c_str(), &text);
  };
  using Texts = std::vector<std::pair<const char*, const char*>>;  // before and after
  const auto expect = [](Helper helper, const Texts& texts) {
    EXPECT_EQ(helper(nullptr), nullptr);
    for (const auto& [before, after] : texts) {
      std::vector<char> bytes(before, before + std::string(before).size() + 1);
      EXPECT_STREQ(helper(bytes.data()), after) << before;
    }
  };
  const LogCapture log;
  expect(XmlCommon::LocateBeginElement, {{"a><<", "<<"}, {"a>", nullptr}, {"", nullptr}});
  expect(XmlCommon::LocateEndElement, {{"<a>>", ">>"}, {"<", nullptr}, {"", nullptr}});
  expect(XmlCommon::SkipSpaces, {{" \t\r\nx ", "x "}, {"\v x", "\v x"}, {"  ", ""}, {"", ""}});
  expect(XmlCommon::TrimSpaces, {{" x ", "x "}});
  expect(XmlCommon::RemoveQuotes,
         {{"\"\"a\"\"", "\"a\""}, {"'a'", "'a'"}, {"a\"", "a"}, {"\"", ""}, {"", ""}});
  expect(XmlDecoder::TrimSpaces, {{" \tx y\r\n", "x y"}, {" \n ", ""}, {"", ""}});
  expect(right, {{"x  ", "x "}, {"x\t", "x\t"}, {" ", ""}, {"", ""}});
  expect(five, {{"&&lt;&quot;&amp;gt;&amp", "&<\"&gt;&amp"}, {"&", "&"}, {"", ""}});
  expect(twoA, {{"xaaaay", "x--y"}, {"baaa", "b-a"}, {"a", "a"}, {"", ""}});
  expect(token, {{",,a;b,,c,d", "c"}, {"z\xFFz", "z"}});
  expect(token, {{"a;b", nullptr}, {"a,", nullptr}, {",", nullptr}, {"", nullptr}});
  for (const char* list : {"", "a b", "=\"1\"", " a = '1'\r\n", "a='b=c'"}) {
    EXPECT_EQ(XmlDecoder::ValidateAttributeList(list), 0) << list;
  }
  for (const char* list : {"a\tb='1'", "a=='1'", "a=\"1\" junk", "a=x'1'", "a='1'b"}) {
    EXPECT_EQ(XmlDecoder::ValidateAttributeList(list), -1) << list;
  }
  EXPECT_EQ(log.Count("XmlDecoder::N_strtok incomming params are null"), 4);
  EXPECT_TRUE(XmlCommon::IsEmailFormat("sip:a@b"));
  EXPECT_FALSE(XmlCommon::IsEmailFormat("<sip:a@b>;aor=1") || XmlCommon::IsEmailFormat("ab"));
}

TEST(BuddyLinkList, LeavesTheSentinelAlone) {
  BuddyLinkList list;
  EXPECT_EQ(list.RemoveLast(), nullptr);
  BuddyLinkList* first = list.Append(&list);
  BuddyLinkList* last = first->Append(nullptr);
  BuddyLinkList* between =
      first->Append(nullptr);  // linked in after the node whose Append is called
  EXPECT_TRUE(first->next == between && between->next == last && !last->next);
  EXPECT_EQ(list.SeekEnd(), last);
  BuddyLinkList mine;  // a chain that was linked by hand
  last->next = &mine;
  EXPECT_EQ(list.RemoveLast(), &mine);
  EXPECT_EQ(list.RemoveLast(), last);
  EXPECT_EQ(list.RemoveLast(), between);
  EXPECT_TRUE(list.next == first && first->data == &list && !first->next);
  for (BuddyLinkList* node : {between, last}) BuddyLinkList::Release(node);
  list.FreeList(nullptr);  // the data is not its own
  EXPECT_EQ(list.RemoveLast(), nullptr);
}

}  // namespace
