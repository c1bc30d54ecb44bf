// Message disposition notifications: documents in, trees, documents out.
#include <gtest/gtest.h>
#include <tuple>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLImdn.h"
#include "XMLValueTypes.h"
#include "base/ZtMemory.h"

namespace {

std::string Out(const std::string& content, const std::string& attributes = "") {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<imdn  "
         "xmlns=\"urn:ietf:params:xml:ns:imdn\"" +
         attributes + ">" + content + "</imdn>";
}
std::string OutNotification(const std::string& name, const std::string& value,
                            const std::string& attributes = "") {
  return "\n<" + name + ">\n<status" + attributes + ">\n<" + value + "/></status></" + name + ">";
}
std::string In(const std::string& name, const std::string& values) {
  return "<imdn><" + name + "><status>" + values + "</status></" + name + "></imdn>";
}

TEST(Imdn, WritesWhatItReads) {
  const std::string delivered = OutNotification("delivery-notification", "delivered");
  const std::pair<std::string, std::string> kCases[] = {
      {"<imdn><subject>s &amp; t</subject><x:original-recipient-uri>o</x:original-recipient-uri>"
       "<recipient-uri>r</recipient-uri><datetime>d</datetime><message-id>m</message-id></imdn>",
       Out("\n<message-id>m</message-id>\n<datetime>d</datetime>\n<recipient-uri>r</recipient-uri>"
           "\n<original-recipient-uri>o</original-recipient-uri>\n<subject>s &amp; t</subject>")},
      {"<i:imdn b='2' xmlns='u' xmlns:i='v' a='\"' b='3' ='e'/>",
       Out("", "  b=\"2\"  xmlns:i=\"v\"  a=\"&quot;\"")},
      {"<imdn><delivery-notification a='1'><status a='1' ='e' xmlns='u' a='2'><delivered b='1'>t"
       "<failed/></delivered></status></delivery-notification></imdn>",
       Out(OutNotification("delivery-notification", "delivered", "  a=\"1\"  xmlns=\"u\""))},
      // One notification only, however they are ordered; a later one of a kind replaces the first.
      {"<imdn><processing-notification><status><stored/></status></processing-notification>"
       "<display-notification><status><displayed/></status></display-notification>"
       "<delivery-notification/><delivery-notification><status><delivered/></status>"
       "</delivery-notification></imdn>",
       Out(delivered)},
      // Unknown elements are never written, nor what is in them; objects in a wrong place neither.
      {"<imdn><x><message-id>evil</message-id></x><message-id a='1'>m<b/>n</message-id>"
       "<delivery-notification><x/><display-notification/><status><y><error/></y><status><failed/>"
       "</status><display-notification><status/></display-notification><delivered/></status>"
       "</delivery-notification><status><error/></status><error/></imdn>",
       Out("\n<message-id>n</message-id>" + delivered)},
      // Written so, but not read.
      {Out(OutNotification("proessing-notification", "processed")), Out("")},
  };
  Schema schema(XML_SCHEMA_IMDN);
  for (const auto& [in, out] : kCases) {
    EXPECT_EQ(schema.RoundTrip(in), out) << in;
    EXPECT_EQ(schema.RoundTrip(out), out) << out;
  }
  EXPECT_FALSE(schema.Read<zt_imdn>("<Imdn/>"));
}

// Of several values, in the wrong order, the first that the notification knows is written. Without
// any it is left out, and no other notification takes its place.
TEST(Imdn, EachNotificationKnowsItsValues) {
  const struct {
    std::string in, out, line, others;
    std::vector<std::string> known;  // the last first
  } kCases[] = {
      {"delivery-notification",
       "delivery-notification",
       "Delivery",
       "<displayed/><processed/><stored/>",
       {"error", "forbidden", "failed", "delivered"}},
      {"display-notification",
       "display-notification",
       "Display",
       "<delivered/><failed/><processed/><stored/>",
       {"error", "forbidden", "displayed"}},
      {"processing-notification",
       "proessing-notification",
       "Processing",
       "<delivered/><failed/><displayed/>",
       {"error", "forbidden", "stored", "processed"}},
  };
  Schema schema(XML_SCHEMA_IMDN);
  for (const auto& test : kCases) {
    const std::string line =
        kModule + "AddIMDNElementToXml, failed to add " + test.line + " Notification.";
    LogCapture log;
    EXPECT_EQ(schema.RoundTrip("<imdn><" + test.in + "/></imdn>"), Out(""));
    std::string values = test.others;
    auto root = schema.Read<zt_imdn>(In(test.in, values));
    if (test.line == "Delivery")
      root->setDisplayNotificationValue(ZtCreate<zt_display_notification>("tests/Imdn"));
    EXPECT_EQ(schema.Write(root.get()), Out(""));
    EXPECT_EQ(log.Texts(4), (std::vector<std::string>{line, line}));
    for (const std::string& name : test.known) {
      values += "<" + name + "></" + name + ">";
      EXPECT_EQ(schema.RoundTrip(In(test.in, values)), Out(OutNotification(test.out, name)));
    }
  }
}

TEST(Imdn, TreeKeepsWhatIsUnknown) {
  Schema schema(XML_SCHEMA_IMDN);
  LogCapture log;
  auto root = schema.Read<zt_imdn>(
      "<imdn><n:odd b='2'><odd/></n:odd><display-notification><status><any>t</any></status>"
      "</display-notification><error/><status><failed/></status></imdn>");
  ASSERT_TRUE(root);
  ASSERT_EQ(CountOf(root->getAnyElementValue()), 3);
  unsigned short index = 0;
  for (const char* name : {"odd", "error", "status"}) {
    auto* unknown =
        ZtAs<zt_empty_element_type>(EntryOf<XMLElement>(root->getAnyElementValue(), index++));
    ASSERT_TRUE(unknown);
    EXPECT_STREQ(unknown->getValue(), name);
    EXPECT_EQ(unknown->getPresentValue(), 1);
  }
  EXPECT_EQ(log.Count("Cannot accommodate"), 2);
  EXPECT_TRUE(log.Has("Cannot accommodate the element /any with value t"));
}

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

// Runs the steps where they can be used, at the start of a document.
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

TEST(Imdn, BuiltByHand) {
  Schema schema(XML_SCHEMA_IMDN);
  auto* factory = static_cast<IMDNDataBinder*>(schema.context()->createBinderFactory());
  Tree<zt_imdn> root(static_cast<zt_imdn*>(factory->CreateRootElement()));
  auto* delivery = factory->CreateDeliverNotification();
  auto* status = factory->CreateStatus();
  delivery->setStatusValue(status);
  root->setDeliveryNotificationValue(delivery);
  status->setFailedValue(factory->CreateFailedElement());
  status->setAnyAttributeValue(zt_xml_common_methods::CreateElementList());
  const std::string text = Out(OutNotification("delivery-notification", "failed"));
  EXPECT_EQ(schema.Write(root.get()), text);
  // With an attribute list the last attribute closes the start tag: an empty one leaves it open.
  root->setAnyAttributeValue(zt_xml_common_methods::CreateElementList());
  EXPECT_EQ(schema.Write(root.get()), std::string(text).replace(text.find(":imdn\">") + 6, 1, " "));
  auto* pair = ZtCreate<zt_AttributeValuePair>("tests/Imdn");
  pair->setName("n");
  status->addAnyAttribute(pair);
  zt_imdn empty;
  EXPECT_EQ(Steps(status->getAnyAttributeValue()).Marshall(&empty),
            Out("").insert(38, OutNotification("display-notification", "delivered") +
                                   OutNotification("proessing-notification", "error", "  n=\"\"")));
}

}  // namespace
