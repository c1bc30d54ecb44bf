// Is-composing indications: what golden documents do not say.
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
  EXPECT_SAME(log.Texts().back(),
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
