// The services one by one: what golden documents do not say, and their namespaces.
#include "DocumentSupport.h"
#include "base/ZtMemory.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"
#include "ztxml/XmlCommon.h"
#include "ztxml/ZtNamespaces.h"
#include "ztxml/communication_barring.h"
#include "ztxml/communication_diversion.h"

namespace {

// A marshaller that had no memory for its namespaces works once there is memory again.
TEST(Services, MarshallersRecover) {
  Schema schema(XML_SCHEMA_COMMUNICATION_WAITING);
  const auto root = schema.Read<XMLElement>("<communication-waiting active='true'/>");
  for (long n = 2; n <= 4; ++n) {  // the records, after the marshaller itself
    zthost::FailAllocation(n);
    const LogCapture log;
    XMLMarshaller* marshaller = schema.context()->createMarshaller();
    ASSERT_NE(marshaller, nullptr) << n;
    EXPECT_TRUE(log.Has("Malloc cannot allocate memory")) << n;
    zthost::FailAllocation(1, true);
    EXPECT_EQ(marshaller->Marshall(root.get()), nullptr) << n;
    zthost::FailAllocation(0);
    EXPECT_STREQ(marshaller->Marshall(root.get()), "<ss:communication-waiting  active=\"true\"/>");
  }
}

// What the golden accessors do not say of parts that are written alone.
TEST(Services, PartsOfRules) {
  Schema diversion(XML_SCHEMA_COMMUNICATION_DIVERSION);
  Schema barring(XML_SCHEMA_COMMUNICATION_BARRING);
  auto root = *ztxml::Create<zt_communication_diversion>(ztxml::Exact());
  zt_NoReplyTimer* timer = root.Add(&zt_communication_diversion::setNoReplyTimerValue);
  for (const auto& [seconds, result] : {std::pair(5U, 1), {180U, 1}, {4U, 0}, {181U, 0}}) {
    EXPECT_EQ(timer->setNoReplyTimerValue(seconds), result) << seconds;
  }
  EXPECT_EQ(diversion.Write(timer), "<ss:NoReplyTimer>180</ss:NoReplyTimer>");
  EXPECT_EQ(barring.Write(timer), "(null)");
  EXPECT_EQ(barring.Write(root.get()), "(null)");

  const Tree<zt_ns_common_policy_conditionsType> conditions(
      CommunicationDiversionDataBinder().CreateConditionsTypeElement());
  zt_empty_element_type* flag = CommunicationDiversionDataBinder().CreateEmptyTypeElement();
  conditions->addAny(flag);
  flag->setPresentValue(1);  // without a name
  // A period needs both of its ends; one without a text is written empty.
  auto* validity = ztxml::Add(*conditions, &zt_ns_common_policy_conditionsType::addValidity);
  constexpr const char* kPeriods[][2] = {{"a", "b"}, {nullptr, "b"}, {"a", nullptr}};
  for (const auto& [from, until] : kPeriods) {
    validity->addFrom(zt_xml_common_methods::CreateString(from));
    validity->addUntil(zt_xml_common_methods::CreateString(until));
  }
  validity->getFromListValue()->Add(nullptr);
  validity->addUntil(zt_xml_common_methods::CreateString("c"));
  validity->addFrom(zt_xml_common_methods::CreateString("d"));
  validity->getUntilListValue()->Add(nullptr);
  EXPECT_SAME(diversion.Write(conditions.get()),
              "<cp:conditions>\n<cp:validity>\n<cp:from>a</cp:from>\n<cp:until>b</cp:until>"
              "\n<cp:from></cp:from>\n<cp:until>b</cp:until>"
              "\n<cp:from>a</cp:from>\n<cp:until></cp:until></cp:validity></cp:conditions>");
  flag->setValue(std::string(120, 'n').c_str());
  EXPECT_EQ(diversion.Write(flag), "<ss:" + std::string(98, 'n') + "/>");
}

// Services are read and written with the document's prefixes, else with the library's own.
TEST(Namespaces, PrefixesAreTheDocuments) {
  const std::string ss = "http://uri.etsi.org/ngn/params/xml/simservs/xcap";
  const std::string cp = "urn:ietf:params:xml:ns:common-policy";
  const struct {
    std::string declarations;
    const char* start;  // the prefixes that the document uses, with their colons
    const char* policy;
    const char* outStart;  // those that are written
    const char* outPolicy;
  } kCases[] = {
      {"", "ss:", "cp:", "ss:", "cp:"},
      {"", "", "", "ss:", "cp:"},
      {"xmlns='" + ss + "' xmlns:cp='" + cp + "'", "", "cp:", "", "cp:"},
      {"xmlns:a='" + ss + "' xmlns='" + cp + "'", "a:", "", "a:", ""},
      {"xmlns:a='" + ss + "' xmlns:b='" + cp + "' xmlns='" + ss + "'", "a:", "b:", "a:", "b:"},
      {"xmlns:a='" + ss + "' xmlns:c='" + ss + "' xmlns:q='urn:oma:xml:xdm:common-policy'",
       "c:", "cp:", "c:", "cp:"},
      {"xmlns:cp='" + ss + "' xmlns:ss='" + cp + "'", "cp:", "ss:", "cp:", "ss:"},
      {"xmlns:x='" + ss + "/'", "ss:", "cp:", "ss:", "cp:"},
      // Declared, but no name can have such a prefix.
      {"xmlns:a:b='" + ss + "' xmlns:c/='" + cp + "'", "ss:", "cp:", "ss:", "cp:"},
  };
  Schema declarations(XML_SCHEMA_NAMESPACE_RETRIEVAL);
  for (const auto& test : kCases) {
    const auto document = [](const std::string& s, const std::string& p) {
      return "<" + s + "communication-diversion  active=\"true\">\n<" + p + "ruleset>\n<" + p +
             "rule  id=\"r\">\n<" + p + "conditions>\n<" + s + "busy/></" + p + "conditions></" +
             p + "rule></" + p + "ruleset></" + s + "communication-diversion>";
    };
    Schema schema(XML_SCHEMA_COMMUNICATION_DIVERSION);
    const std::string in = document(test.start, test.policy);
    // The workers were made before the binder was set.
    auto binder =
        declarations.Read<zt_schema_namespace_retrieval>("<d " + test.declarations + "></d>");
    LogCapture log(3);
    EXPECT_EQ(schema.context()->SetNamespaceBinder(binder.get()), 1);
    EXPECT_TRUE(log.Has("<XML Module>: CommunicationDiversionContext :: SetNamespaceBinder"));
    EXPECT_EQ(schema.RoundTrip(in), document(test.outStart, test.outPolicy)) << test.declarations;
    auto* writer = static_cast<ZtNamespaceMarshaller*>(schema.writer());
    char* prefix = writer->AddNameSpaceChange("ss");
    EXPECT_EQ(prefix ? std::string(prefix) + ":" : "", test.outStart);
    FreeElement(prefix);
    prefix = writer->AddNameSpaceChange("ocp");
    const bool bound = test.declarations.find(" xmlns:q='") != std::string::npos;
    EXPECT_STREQ(prefix, bound ? "q" : "ocp");
    FreeElement(prefix);
    EXPECT_EQ(writer->AddNameSpaceChange("zz"), nullptr);
    EXPECT_EQ(writer->AddNameSpaceChange(nullptr), nullptr);
    // Neither null nor another object displaces the binder.
    Tree<XMLObject> other(schema.context()->createBinderFactory()->CreateRootElement());
    EXPECT_EQ(schema.context()->SetNamespaceBinder(nullptr), 0);
    EXPECT_EQ(schema.context()->SetNamespaceBinder(other.get()), 0);
    EXPECT_NE(schema.RoundTrip(in), "(null)");
    // A second binder replaces all prefixes of the first.
    auto second = declarations.Read<zt_schema_namespace_retrieval>("<d xmlns='" + ss +
                                                                   "' xmlns:cp='" + cp + "'/>");
    schema.context()->SetNamespaceBinder(second.get());
    EXPECT_EQ(schema.RoundTrip(document("", "cp:")), document("", "cp:"));
  }
}

}  // namespace
