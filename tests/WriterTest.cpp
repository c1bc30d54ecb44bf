#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "TestSupport.h"
#include "ztXMLDocGenerator.h"

namespace {

using Rows = std::vector<std::string>;

Rows Split(const std::string& text, char mark) {
  Rows parts;
  std::stringstream stream(text + mark);
  for (std::string part; std::getline(stream, part, mark);) parts.push_back(part);
  return parts;
}

// Does "call,argument,...|call,..." ('-' is null) and returns the text so far.
std::string Write(ZtXMLDocGenerator& g, const std::string& calls) {
  for (const std::string& call : Split(calls, '|')) {
    Rows words = Split(call, ',');
    words.resize(6);
    const std::string name = words[0];
    const char* text[6];
    int flag[6];
    for (std::size_t i = 0; i < 6; ++i) {
      text[i] = words[i] == "-" ? nullptr : words[i].c_str();
      flag[i] = words[i].size() == 1 ? words[i][0] - '0' : 0;
    }
    if (name == "init") g.ztInitXmlDoc();
    if (name == "drop") g.ztDeInitXmlDoc();
    if (name == "reset") g.ztResetHeader();
    if (name == "header") g.ztAddHeader(text[1], text[2]);
    if (name == "comment") g.ztAddComment(text[1]);
    if (name == "prefix") g.ztSetXmlNamespace(text[1]);
    if (name == "start") g.ztStartElement(text[1], flag[2]);
    if (name == "inline") g.ztStartElementWithoutNL(text[1], flag[2]);
    if (name == "startNs") g.ztStartElementNs(text[1], text[2], text[3], flag[4]);
    if (name == "empty") g.ztStartElementSelfEnding(text[1]);
    if (name == "attr") g.ztStartAttribute(text[1], text[2], flag[3], flag[4], flag[5]);
    if (name == "attrNs") g.ztStartAttributeNs(text[1], text[2], text[3], flag[4], flag[5]);
    if (name == "decl") g.ztAddNameSpacePrefixToXml(text[1], text[2], text[3], flag[4], flag[5]);
    if (name == "data") g.ztXmlSetData(text[1]);
    if (name == "end") g.ztEndXmlElement(text[1]);
    if (name == "endNs") g.ztEndXmlElementNs(text[1], text[2]);
  }
  return g.ztGetXmlDoc() ? g.ztGetXmlDoc() : "(null)";
}

TEST(XmlWriter, WritesExactTexts) {
  const Rows rows = {
      // "calls~text", with ' for "
      "header,-,-|header,1.0,UTF-8~<?xml version='1.0' encoding='ISO-8859-15'?>",
      "start,a|header,1.0,UTF-8~\n<a>", "header,-,-|start,a|reset~",
      "header,-,-|reset|header,1.1,x~<?xml version='1.1' encoding='x'?>",
      "comment,c|comment,-|inline,a~\n<!--c --><a>",
      "header,1.0,UTF-8|start,a,1|decl,x,1,-,0,1|start,b|data,t|end,b|empty,c|end,a"
      "~<?xml version='1.0' encoding='UTF-8'?>\n<a  x='1'>\n<b>t</b>\n<c/></a>",
      // A start tag left open is closed once: by data, by an attribute, by the next start or end.
      "start,a,1|data,x|data,y~\n<a >xy", "inline,a,2|data,-|data,'<&~<a> '<&",
      "start,a,1|decl,id,7,-,0,1|data,x~\n<a  id='7'>x",
      "start,a,1|attr,x,1,0,1,1|attr,y,2,0,0,0|data,x~\n<a x='1'/>x",
      "start,a,1|attrNs,x,1,p,1,0|startNs,b,p,u~\n<a  p:x='1'/>\n<p:b xmlns:p='u'>",
      "start,a,1|startNs,b,p,u,1|data,x~\n<a >\n<p:b xmlns:p='u' >x",
      "start,a,1|startNs,-,p,u,1|data,x~\n<a >x", "start,a,1|end,a|data,x~\n<a </a>x",
      "start,a,1|endNs,a,-|data,x~\n<a \n</a>x", "start,a,1|empty,b|data,x~\n<a \n<b/>>x",
      "start,a,1|reset|data,x~x",
      // Attributes.
      "start,a,1|attr,x,1,1,0,0|attr,y,-,0,0,1~\n<a x='1'y=''>",
      "start,a,1|attrNs,x,1,p,0,0|attrNs,y,-,-,0,1~\n<a  p:x='1' y=''>",
      "attr,x,1,0,0,1|attrNs,x,1,p,0,1|decl,x,-,-,1,1~ x=''/>",
      "start,a,1|decl,xmlns,u,cp,0,0|decl,v,3,-,0,1~\n<a  xmlns:cp='u'  v='3'>",
      "start,a,1|attr,x,say 'hi',0,0,0|attrNs,y,',p,0,0|decl,z,<&>'',q,0,0"
      "~\n<a x='say &quot;hi&quot;' p:y='&quot;'  z:q='<&>&quot;&quot;' ",
      // Prefixes.
      "prefix,x|prefix,cp|start,r|inline,i|empty,e|end,r|endNs,y,-|endNs,z,q"
      "~\n<cp:r><cp:i>\n<cp:e/></cp:r>\n</cp:y>\n</q:z>",
      "prefix,p|start,a,1|attr,x,1,1,0,0|attr,y,2,0,0,0|attrNs,z,3,q,0,1"
      "~\n<p:a  p:x='1'y='2' q:z='3'>",
      "prefix,p|startNs,a,q,u|startNs,b,q,-|startNs,c,-,u,1~\n<q:a xmlns:q='u'>\n<p:b>\n<p:c ",
      "prefix,|start,a,1|attr,x,1,1,0,1~\n<:a  x='1'>",
      "prefix,p|prefix,-|start,a|prefix,q|reset|start,b|endNs,b,-~\n<b>\n</b>",
      // Nothing without a name or a document, and nothing kept from an earlier one.
      "start,-|inline,-,1|startNs,-,p,u,1|empty,-|decl,-,1,x,0,1|end,-|endNs,-,p|data,x~x",
      "start,a,1|attr,-,1,0,0,1|attrNs,-,1,p,0,1~\n<a ",
      "drop|header,1.0,x|comment,c|prefix,p|start,a,1|inline,b,1|startNs,c,p,u,1|empty,d|"
      "attr,x,1,0,0,0|attrNs,x,1,p,0,0|decl,x,',-,0,0|data,t|end,a|endNs,a,p|reset~(null)",
      "drop|prefix,p|start,early,1|init|start,a,1|init|data,x~\n<a >x",
      "prefix,p|header,1.0,x|start,a,1|drop|init|data,x|end,b~x</b>"};
  for (std::string row : rows) {
    std::replace(row.begin(), row.end(), '\'', '"');
    const std::size_t at = row.find('~');
    ZtXMLDocGenerator g;
    g.ztInitXmlDoc();
    EXPECT_EQ(Write(g, row.substr(0, at)), row.substr(at + 1)) << row;
  }
}

TEST(XmlWriter, CutsWhatIsTooLongAndSaysSoOnce) {
  const std::string cut = "4 ZtXMLDocGenerator :: document cut at 32767 characters";
  constexpr std::size_t kMost = 32767;
  const std::string filler(kMost - 10, 'f');
  const LogCapture log;
  ZtXMLDocGenerator g;
  EXPECT_EQ(Write(g, "init|data," + filler + "|start,a234567"), filler + "\n<a234567>");
  EXPECT_EQ(log.Lines().size(), 0u);
  EXPECT_EQ(Write(g, "reset|data," + filler + "|start,a,1|decl,x,1,-,0,1"),
            filler + "\n<a  x=\"1\"");
  EXPECT_EQ(Write(g, "data,|data,x|end,a|empty,b").size(), kMost);
  EXPECT_EQ(log.Lines().size(), 1u);
  EXPECT_EQ(Write(g, "drop|init|decl,q," + std::string(kMost, '"')).size(), kMost);
  ASSERT_EQ(log.Lines().size(), 2u);
  for (const CapturedLine& line : log.Lines()) {
    EXPECT_EQ(std::to_string(line.level) + ' ' + line.text, cut);
    EXPECT_EQ(line.file + std::to_string(line.module), "src/ztXMLDocGenerator6070");
  }
}

TEST(XmlWriter, LacksWhatThereWasNoMemoryFor) {
  ExpectWholeOrNothing([] {
    ZtXMLDocGenerator g;
    const std::string text =
        Write(g, "init|header,1.0,UTF-8|prefix,p|start,a,1|decl,x,\"1\",-,0,1|prefix,q|end,a");
    return g.outOfMemory() ? "(null)" : text;
  });
  const LogCapture log;
  const std::pair<std::string, std::string> cases[] = {
      {"init|header,1.0,x|start,a,1|data,x", "(null)"},
      {"prefix,p|start,a", "\n<a>"},
      {"decl,x,\"1\",-,0,1|start,a", " x=\"\">\n<old:a>"}};
  for (const auto& [calls, text] : cases) {
    ZtXMLDocGenerator g;
    if (text != "(null)") Write(g, "init|prefix,old");
    EXPECT_FALSE(g.outOfMemory());
    zthost::FailAllocation(1);
    EXPECT_EQ(Write(g, calls), text);
    EXPECT_TRUE(g.outOfMemory());
    EXPECT_EQ(Write(g, "drop|init|data,x"), "x");
    EXPECT_FALSE(g.outOfMemory());
  }
  ASSERT_EQ(log.Lines().size(), 1u);
  const CapturedLine line = log.Lines()[0];
  EXPECT_EQ(line.text, "ZtXMLDocGenerator :: escapeString malloc failed");
  EXPECT_TRUE(line.file == "src/ztXMLDocGenerator" && line.line == 880 && line.level == 2);
  EXPECT_EQ(ZtXMLDocGenerator::escapeString(nullptr), nullptr);
}

}  // namespace
