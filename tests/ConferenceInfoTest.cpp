// Conference information: what golden documents do not say.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLConferenceInfo.h"

namespace {

TEST(ConferenceInfo, SelfCheck) {
  const LogCapture log;
  TestConference_infoMarshall();
  EXPECT_EQ(log.Texts()[0], kModule + "TestConference_infoMarshall");
}

// Runs the steps that are given a name where they can be used, at the start of a document.
class Steps : public Conference_infoMarshall {
  bool UseNamespaces(const ZtNamespaceBindings*&) override {
    if (m_bRunning) return true;
    m_bRunning = true;
    zt_conference_type conference;
    conference.setEntityValue("e");
    zt_uris_type uris;
    EXPECT_EQ(AddConferenceInfoElementToXml(&conference, XML_STR_ENTRY), 1);
    EXPECT_EQ(AddConferenceInfoElementToXml(&conference, XML_STR_CONFERENCE_INFO), 1);
    EXPECT_EQ(AddUrisTypeElementToXml(&uris, XML_STR_SIDEBARS_BY_REF), 1);
    return true;
  }
  bool m_bRunning = false;
};

// Only a root declares the namespace.
TEST(ConferenceInfo, StepsOfCallers) {
  zt_conference_type root;
  root.setEntityValue("r");
  const std::string open =
      "<conference-info  xmlns='urn:ietf:params:xml:ns:conference-info'  entity='";
  EXPECT_SAME(Steps().Marshall(&root),
              Document("<entry  entity='e'></entry>" + open + "e'></conference-info>" +
                       "<sidebars-by-ref></sidebars-by-ref>" + open + "r'></conference-info>"));
}

}  // namespace
