// Conference information: what golden documents do not say.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "ztxml/XMLConferenceInfo.h"

namespace {

TEST(ConferenceInfo, SelfCheck) {
  const LogCapture log;
  TestConference_infoMarshall();
  EXPECT_EQ(log.Texts()[0], kModule + "TestConference_infoMarshall");
}

}  // namespace
