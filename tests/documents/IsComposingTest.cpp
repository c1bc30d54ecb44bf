// Is-composing indications: what golden documents do not say.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "ztxml/XMLIsComposing.h"

namespace {

std::string Out(const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<isComposing  "
         "xmlns=\"urn:ietf:params:xml:ns:im-iscomposing\"  "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"  "
         "xsi:schemaLocation=\"urn:ietf:params:xml:ns:im-composing  iscomposing.xsd\">" +
         content + "</isComposing>";
}
TEST(IsComposing, SelfCheck) {
  LogCapture log;
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
