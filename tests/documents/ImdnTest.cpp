// Message disposition notifications: what golden documents do not say.
#include <gtest/gtest.h>
#include <tuple>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "base/ZtMemory.h"
#include "ztxml/XMLImdn.h"
#include "ztxml/XMLValueTypes.h"

namespace {

std::string Out(const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<imdn  "
         "xmlns=\"urn:ietf:params:xml:ns:imdn\">" +
         content + "</imdn>";
}
std::string OutNotification(const std::string& name, const std::string& value,
                            const std::string& attributes = "") {
  return "\n<" + name + ">\n<status" + attributes + ">\n<" + value + "/></status></" + name + ">";
}
// An element of the plain class.
class Plain : public XMLElement {
 public:
  const char* ClassName() const override { return "XMLElement"; }
  const char* BaseClassName() const override { return ClassName(); }
  const char* ElementName() const override { return ClassName(); }
  int ReservedHook() override { return 0; }
};

TEST(Imdn, HooksKeepWhatTheyKnow) {
  zt_status status;
  zt_error error;
  const std::tuple<XMLElement&, std::string, XMLElement*, int> kCases[] = {
      {status, "other", &error, 1},  // dropped: only the plain class is kept, and the values
      {status, "other", ZtCreate<Plain>("tests/Imdn"), 1},
      {status, "/error", ZtCreate<zt_error>("tests/Imdn"), 1},
  };
  for (auto [self, name, child, result] : kCases) {
    EXPECT_EQ(self.ProcessUnMarshall(name.data(), nullptr, child), result) << name;
  }
  EXPECT_NE(status.getErrorValue(), nullptr);
  EXPECT_EQ(CountOf(status.getAnyElementValue()), 1);
}

// Runs steps at the start of a document, where they can write.
class Steps : public IMDNMarshaller {
 public:
  explicit Steps(ZtSingleElementList* attributes) : attributes_(attributes) {}

 private:
  bool UseNamespaces(const ZtNamespaceBindings*&) override {
    EXPECT_EQ(AddNotificationXML(XML_STR_DISPLAY_NOTIFICATION, XML_STR_DELIVERED, nullptr), 1);
    EXPECT_EQ(AddNotificationXML(XML_STR_PROESSING_NOTIFICATION, XML_STR_ERROR, attributes_), 1);
    EXPECT_EQ(AddNotificationXML(XML_STR_ORIGINAL_RECIPIENT_URI, XML_STR_ERROR, nullptr), 0);
    EXPECT_EQ(AddNotificationXML(XML_STR_DELIVERED, XML_STR_ERROR, nullptr), 0);
    EXPECT_EQ(AddNotificationXML(XML_STR_DELIVERY_NOTIFICATION, XML_STR_PRESENCE, nullptr), 0);
    EXPECT_EQ(
        AddNotificationXML(XML_STR_DELIVERY_NOTIFICATION, XML_STR_PROESSING_NOTIFICATION, nullptr),
        0);
    return true;
  }
  ZtSingleElementList* attributes_;
};

TEST(Imdn, StepsOfCallers) {
  const Tree<zt_status> status(IMDNDataBinder().CreateStatus());
  auto* pair = ZtCreate<zt_AttributeValuePair>("tests/Imdn");
  pair->setName("n");  // and no value
  status->addAnyAttribute(pair);
  zt_imdn empty;
  EXPECT_SAME(
      Steps(status->getAnyAttributeValue()).Marshall(&empty),
      Out("").insert(38, OutNotification("display-notification", "delivered") +
                             OutNotification("proessing-notification", "error", "  n=\"\"")));
}

}  // namespace
