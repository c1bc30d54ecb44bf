// Is-composing indications: documents in, trees, documents out.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLIsComposing.h"

namespace {

std::string Out(const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<isComposing  "
         "xmlns=\"urn:ietf:params:xml:ns:im-iscomposing\"  "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"  "
         "xsi:schemaLocation=\"urn:ietf:params:xml:ns:im-composing  iscomposing.xsd\">" +
         content + "</isComposing>";
}
std::string In(const std::string& content) {
  return "<isComposing a='1'>" + content + "</isComposing>";
}

TEST(IsComposing, WritesWhatItReads) {
  const std::string idle = "\n<state>idle</state>";
  const std::pair<std::string, std::string> kCases[] = {
      {In("<refresh>60</refresh><contenttype>text/plain</contenttype><lastactive>l</lastactive>"
          "<state>no such &lt;state&gt;</state>"),
       Out("\n<state>no such &lt;state&gt;</state>\n<lastactive>l</lastactive>"
           "\n<contenttype>text/plain</contenttype>\n<refresh>60</refresh>")},
      {In("<state>idle</state><refresh>0</refresh>"), Out(idle)},
      {In("<state>idle</state><refresh> 9s</refresh>"), Out(idle + "\n<refresh>9</refresh>")},
      // Names with a prefix are unknown, and skipped with what is in them.
      {In("<state>idle</state><i:state>active</i:state><x><state>active</state></x>"), Out(idle)},
      {"<i:isComposing><state>idle</state></i:isComposing>", "(null)"},
  };
  Schema schema(XML_SCHEMA_IS_COMPOSING);
  for (const auto& [in, out] : kCases) {
    EXPECT_EQ(schema.RoundTrip(in), out) << in;
    EXPECT_EQ(schema.RoundTrip(out), out) << out;
  }
}

TEST(IsComposing, TreeTellsWhatTheDocumentSays) {
  Schema schema(XML_SCHEMA_IS_COMPOSING);
  LogCapture log;
  auto root = schema.Read<zt_isComposing>(In("<state/><refresh>60</refresh><odd>o</odd>"));
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getRefreshValue(), 60U);
  EXPECT_EQ(root->getAnyElementValue(), nullptr);
  EXPECT_TRUE(log.Has("Cannot accommodate the element /odd with value o"));
  char text[] = "/state", other[] = "other";
  EXPECT_EQ(root->ProcessUnMarshall(text, other, root.get()), 0);
  EXPECT_EQ(root->ProcessUnMarshall(other, text, IsComposingDataBinder().CreateRootElement()), 1);
  EXPECT_EQ(CountOf(root->getAnyElementValue()), 1);
}

TEST(IsComposing, LogsWhatIsAbsent) {
  Schema schema(XML_SCHEMA_IS_COMPOSING);
  zt_isComposing root;
  LogCapture log;
  EXPECT_EQ(schema.Write(&root), "(null)");
  root.setStateValue("idle");
  log.Clear();
  schema.Write(&root);
  std::string absent;
  for (const CapturedLine& line : log.Lines()) absent += line.level == 1 ? line.text + ";" : "";
  EXPECT_EQ(absent, kModule + "IsComposingElement lastactive not present;" + kModule +
                        "IsComposingElement Content-type not present;" + kModule +
                        "IsComposingElement Refresh not present;");
}

TEST(IsComposing, StepsAndSelfCheck) {
  IsComposingMarshaller steps;
  char text[] = "text";
  LogCapture log;
  EXPECT_EQ(steps.AddStateElementToXml(text), 1);
  EXPECT_EQ(steps.AddLastactiveElementToXml(text), 1);
  EXPECT_EQ(steps.AddContenttypeElementToXml(text), 1);
  EXPECT_EQ(steps.AddRefreshElementToXml(1), 1);
  EXPECT_EQ(log.Texts(),
            (std::vector<std::string>{
                kModule + "AddStateElementToXml", kModule + "AddLastactiveElementToXml",
                kModule + "AddContenttypeElementToXml", kModule + "AddRefreshElementToXml"}));
  EXPECT_EQ(steps.AddStateElementToXml(nullptr), 0);
  EXPECT_EQ(steps.AddRefreshElementToXml(0), 0);
  TestIsComposingMarshall();
  EXPECT_EQ(log.Texts().back(),
            kModule + "IsComposingMarshaller XML " +
                Out("\n<state>active</state>\n<lastactive>2002-05-30T09:30:10-06:00</lastactive>"
                    "\n<contenttype>audio</contenttype>\n<refresh>9</refresh>"));
  for (long n = 1; n < 12; ++n) {
    zthost::FailAllocation(n);
    TestIsComposingMarshall();
  }
  zthost::FailAllocation(0);
}

}  // namespace
