#include <algorithm>
#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "TestSupport.h"
#include "XmlDecoder.h"

namespace {

using namespace std::string_literals;

// Writes the callbacks down: "+a;" start, "a.x=1;" attribute, "!a;" opened, "/a=text;" end.
class Recorder : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessAttribute(char* element, char* name, char* value) override {
    return Record(element + "."s + name + '=' + value);
  }
  int ProcessElement(char* name, char* value) override {
    return value ? Record(name, "="s + value) : Record("+"s + name);
  }
  int ProcessElementOpened(char* name) override { return Record("!"s + name); }
  void* GetSessionData() override { return nullptr; }

  std::string events;
  std::string structure;  // the events without the texts, which depend on the chunks

 private:
  int Record(const std::string& event, const std::string& text = "") {
    structure += event + ';';
    events += event + text + ';';
    return 1;  // refuses everything, which only the log must notice
  }
};

struct Parse {
  explicit Parse(bool heard = true) { decoder.SetSchema(heard ? &recorder : nullptr); }

  // Feeds memory that ends with the chunk, so that a sanitizer sees every over-read.
  int Feed(const std::string& text, std::size_t size = std::string::npos) {
    std::size_t at = 0;
    int result = ZT_XML_INCOMPLETE;
    do {
      const std::string part = text.substr(at, size);
      std::vector<char> chunk(part.begin(), part.end());
      result = decoder.Decode(chunk.data(), static_cast<int>(chunk.size()));
      at += part.size();
    } while (result == ZT_XML_INCOMPLETE && at < text.size());
    return result;
  }

  Recorder recorder;
  XmlDecoder decoder;
};

using Rows = std::vector<std::string>;  // "text~expected" each

std::pair<std::string, std::string> Split(const std::string& row) {
  const std::size_t at = row.find('~');
  return {row.substr(0, at), at == std::string::npos ? "" : row.substr(at + 1)};
}

// What each text gives at once and in chunks of `largest` bytes and less.
void Check(int result, eXmlDecodeState state, const Rows& rows, std::size_t largest = 100) {
  // A tag that does not match leaves the state; only the memory is safe from then on.
  const bool stays = state == ZT_XML_PARSE_BEGIN;
  for (const std::string& row : rows) {
    SCOPED_TRACE(row.substr(0, 80));
    const auto [text, events] = Split(row);
    Parse whole;
    EXPECT_EQ(whole.Feed(text), result);
    EXPECT_EQ(Parse(false).Feed(text), result);
    EXPECT_EQ(whole.recorder.events, events);
    EXPECT_EQ(whole.decoder.State(), state);
    for (std::size_t size = std::min(text.size() - 1, largest); size > 0; --size) {
      Parse parse;
      EXPECT_EQ(parse.Feed(text, size), result) << size;
      EXPECT_EQ(parse.decoder.State(), stays ? ZT_XML_PARSE_CONTINUE : state) << size;
      EXPECT_EQ(parse.recorder.structure, whole.recorder.structure) << size;
      if (result == ZT_XML_INCOMPLETE) continue;
      EXPECT_TRUE(parse.Feed(text, 1) == result || stays) << size;
      EXPECT_TRUE(parse.recorder.structure == whole.recorder.structure || stays) << size;
    }
  }
}

TEST(XmlDecoder, ReportsTheSameInChunksOfEverySize) {
  const Rows complete = {
      "<a>hi</a>~+a;!a;/a=hi;", "x><a> x &amp; > y </a>~+a;!a;/a= x &amp; > y ;",
      "<a><b>1</b>2<c/>3</a></a>~+a;!a;+b;!b;/b=1;+c;!c;/c=;/a=3;",
      "<a/>junk<b x=1></c>~+a;!a;/a=;", "<!-a></!-a>~+!-a;!!-a;/!-a=;",
      "<!----><a>x<!-- -- <b -->y</a>~+a;!a;/a=y;",
      "<?xml version='1.0'?><!-- --><?pi?><?><a/>~+a;!a;/a=;",
      // Attributes; white space behind the last may come out as one without a name.
      "<a x='1' y=\"&lt;b&gt;\"/>~+a;a.x=1;a.y=<b>;!a;/a=;",
      "<a x='q\"q' y=\"it's=\" z='<b'></a>~+a;a.x=q\"q;a.y=it's=;a.z=<b;!a;/a=;",
      "<a x='&apos;&amp;lt;&#65;&am'/>~+a;a.x='&lt;&#65;&am;!a;/a=;",
      "<a x=''y=\"\" z='z'/>~+a;a.x=;a.y=;a.z=z;!a;/a=;",
      "<a x=\"1\"y=\"2\" x='3'/>~+a;a.x=1;a.y=2;a.x=3;!a;/a=;",
      "<a\tx = '1'\r\ny\n='2'/>~+a;a.x =1;a.y\n=2;!a;/a=;", "<a x='1' ></a>~+a;a.x=1;a.=;!a;/a=;",
      "<  a  ></a>~+a;a.=;!a;/a=;", "<a ></a>~+a;!a;/a=;", "<\na />~+a;!a;/a=;",
      "<a b>t</a>~+a;a.b=;!a;/a=t;", "<a ='1' ='2'/>~+a;a.'1' =2;!a;/a=;",
      "<\xC3\xA4 \xFF='\xE2'/>~+\xC3\xA4;\xC3\xA4.\xFF=\xE2;!\xC3\xA4;/\xC3\xA4=;"};
  Check(ZT_XML_SUCCESS, ZT_XML_PARSE_COMPLETE, complete);
  const Rows partial = {"<~", "</~", "<a/~", "t>~", "<?x?>~", "<?x~", "<!-- --~", "<a b='~",
                        "<!---~", "<!-- a --><!-- b -->~", "<a>t~+a;!a;", "<a></~+a;!a;",
                        "<a/b><a/ >~+a/b;!a/b;+a/;!a/;",
                        // Not supported, and taken for an element.
                        "<!D a><a/>~+!D;!D.a=;!!D;+a;!a;/a=;"};
  Check(ZT_XML_INCOMPLETE, ZT_XML_PARSE_CONTINUE, partial);
  const Rows fatal = {"<>~", "< \t>~", "<!-->~", "<!--->~", "<!-- > -->~", "<!-- ->~", "<?x>~",
                      "<a><?pi?></a>~+a;!a;", "<a><!-- <b/> --></a>~+a;!a;", "<!D a 'b'>~+!D;",
                      // The start of a tag is reported before its attributes are found invalid.
                      "<a =>~", "<a =/>~+a;", "<a '>~+a;", "<a x=1/>~+a;", "<a x='>~+a;",
                      "<a x='1>'/>~+a;", "<a b='1' c></a>~+a;"};
  Check(ZT_XML_ERROR, ZT_XML_PARSE_ERROR, fatal);
  const Rows mismatch = {"</>~", "</ >~", "t</a>~", "<a></b>~+a;!a;", "<a></a >~+a;!a;",
                         "<a></>~+a;!a;", "<r><abc>t</abc></b>~+r;!r;+abc;!abc;/abc=t;",
                         // Not supported, and taken for an element.
                         "<a><![CDATA[x]]></a>~+a;!a;+![CDATA[x]];!![CDATA[x]];"};
  Check(ZT_XML_ERROR, ZT_XML_PARSE_BEGIN, mismatch);

  std::string text = "<r>", events = "+r;!r;", filler(150, 'v');  // outgrows the first buffer
  for (int i = 0; i < 60; ++i) {
    text += "<i k='" + filler + "'>t&lt;</i>";
    events += "+i;i.k=" + filler + ";!i;/i=t&lt;;";
  }
  Check(ZT_XML_SUCCESS, ZT_XML_PARSE_COMPLETE, {text + "</r>~" + events + "/r=;"}, 9);
}

TEST(XmlDecoder, TextIsWhatCameWithTheEndTagAndNulEndsAChunk) {
  const Rows rows = {"<a><b>t</b></a>~+a;!a;+b;!b;/b=t;/a=;", "<a>hello</a>~+a;!a;/a=llo;",
                     "<a>h</a>~+a;!a;/a=h;", "<a>\0<t</a>~+a;!a;/a=t;"s,
                     "<a \0\"y='\0 1'/>~+a;a.y=1;!a;/a=;"s};
  for (const std::string& row : rows) {
    Parse parse;
    EXPECT_EQ(parse.Feed(Split(row).first, 5), ZT_XML_SUCCESS);
    EXPECT_EQ(parse.recorder.events, Split(row).second);
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
  const std::string lead = "3 <XML Decoder>:", attributes = "|2 XmlDecoder:: DecodeAttributes ";
  const std::string invalid = attributes + "-1" + attributes + "- Attribute list invalid|" + lead;
  const std::string failed = "Decoder Failed in DecodeAttributes";
  const std::string incomplete = lead + "ZT_XML_PARSE_CONTINUE ret:ZT_XML_INCOMPLETE";
  const Rows rows = {
      "~0|2 XmlDecoder::Decode n_strXML is null", "t~1|" + incomplete, "<a~2|" + incomplete + " ",
      "</a>~4|" + lead + "stack is empty when decodeBegin is not", "<>~2|" + lead + failed,
      "<a x=1/>~8" + invalid + failed + " and ret:ZT_XML_PARSE_ERROR", "<!-->~5",
      "<a x=1>~7" + invalid + failed, "<a/>~4" + attributes + "0|" + lead + "Decoder Success",
      // The texts of a document are no formats.
      "<%s></b>~8" + attributes + "0|" + lead +
          "stack mismatch happened when stored value is \"%s\" and ret:ZT_XML_ERROR",
      "<%d></%d>~9" + attributes + "0|" + lead +
          "ProcessElement(pStrEndElement, start) failed when pStrEndElement=\"/%d\"|" + lead +
          "Decoder Success"};
  LogCapture log;
  for (const std::string& row : rows) {
    log.Clear();
    Parse().Feed(Split(row).first);
    std::string lines;
    for (const CapturedLine& line : log.Lines()) {
      EXPECT_EQ(line.file + std::to_string(line.module), "src/XmlDecoder6053");
      lines += '|' + std::to_string(line.level) + ' ' + line.text;
    }
    EXPECT_EQ(lines, "|2 XmlDecoder::n_count = " + Split(row).second);
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
  EXPECT_TRUE(log.Has("Decoder Failed as stack is not empty at end, reason: ZT_XML_PARSE_ERROR"));

  // Without memory for a chunk nothing has happened, and the chunk may come again.
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
  EXPECT_EQ(parse.recorder.events, "+a;!a;+b;!b;/b=" + text + ";/a=;");
}

// What callers push and pop: they get back the node that was made, without any memory; of what the
// parser has opened they get a copy.
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
  // An end tag ends what was pushed, but at its first '>'.
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
  const std::pair<Helper, Rows> cases[] = {
      {XmlCommon::LocateBeginElement, {"a><<~<<", "a>", ""}},  // without a '~': null
      {XmlCommon::LocateEndElement, {"<a>>~>>", "<", ""}},
      {XmlCommon::SkipSpaces, {" \t\r\nx ~x ", "\v x~\v x", "  ~", "~"}},
      {XmlCommon::TrimSpaces, {" x ~x "}},
      {XmlCommon::RemoveQuotes, {"\"\"a\"\"~\"a\"", "'a'~'a'", "a\"~a", "\"~", "~"}},
      {XmlDecoder::TrimSpaces, {" \tx y\r\n~x y", " \n ~", "~"}},
      {right, {"x  ~x ", "x\t~x\t", " ~", "~"}},
      {five, {"&&lt;&quot;&amp;gt;&amp~&<\"&gt;&amp", "&~&", "~"}},
      {twoA, {"xaaaay~x--y", "baaa~b-a", "a~a", "~"}},
      {token, {",,a;b,,c,d~c", "z\xFFz~z", "a;b", "a,", ",", ""}}};
  LogCapture log;
  for (const auto& [helper, rows] : cases) {
    EXPECT_EQ(helper(nullptr), nullptr);
    for (const std::string& row : rows) {
      const auto [text, expected] = Split(row);
      std::vector<char> bytes(text.c_str(), text.c_str() + text.size() + 1);
      const bool null = row.find('~') == std::string::npos;
      EXPECT_STREQ(helper(bytes.data()), null ? nullptr : expected.c_str()) << text;
    }
  }
  for (const char* list : {"", "a b", "=\"1\"", " a = '1'\r\n"}) {
    EXPECT_EQ(XmlDecoder::ValidateAttributeList(list), 0) << list;
  }
  for (const char* list : {"a\tb='1'", "a=='1'", "a=\"1\" junk", "a=x'1'", "a='1'b"}) {
    EXPECT_EQ(XmlDecoder::ValidateAttributeList(list), -1) << list;
  }
  EXPECT_EQ(log.Count("XmlDecoder::N_strtok incomming params are null"), 2);
  EXPECT_TRUE(XmlCommon::IsEmailFormat("sip:a@b"));
  EXPECT_FALSE(XmlCommon::IsEmailFormat("<sip:a@b>;aor=1") || XmlCommon::IsEmailFormat("ab"));
}

TEST(BuddyLinkList, LeavesTheSentinelAlone) {
  BuddyLinkList list;
  EXPECT_EQ(list.RemoveLast(), nullptr);
  BuddyLinkList* first = list.Append(&list);
  BuddyLinkList* last = first->Append(nullptr);
  BuddyLinkList* between = first->Append(nullptr);  // hangs after the node that it is asked of
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
