// Schema decoders as callers drive them: by the public callbacks, one by one.
#include "DocumentSupport.h"
#include "Samples.h"
#include "reflect/Reflect.h"
#include "ztxml/XMLCommunicationDiversion.h"
#include "ztxml/XMLIsComposing.h"
#include "ztxml/XMLReginfo.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"

namespace {

// The callbacks take writable texts, but decoders must not write to them: these are constants.
char* Literal(const char* text) { return const_cast<char*>(text); }

Tree<zt_reginfo> RootOf(XMLReginfoDecoder& decoder) {
  return Tree<zt_reginfo>(
      static_cast<zt_reginfo*>(static_cast<XMLObject*>(decoder.GetSessionData())));
}

TEST(Decoder, NamesAreNormalisedApartFromTheirTexts) {
  XMLReginfoDecoder decoder;
  EXPECT_EQ(decoder.PassName(), nullptr);
  const struct {
    const char *element, *attribute, *passName;  // an attribute of it, null: its start or end
  } kCallbacks[] = {
      {":reginfo", nullptr, "reginfo"},
      {"p:reginfo", "version", "reginfo"},
      {"q:registration", nullptr, "registration"},
      {"q:registration", "aor", "registration"},
      {"a:b:unknown", nullptr, "b:unknown"},
      {"inside", nullptr, "inside"},  // skipped
      {"/inside", nullptr, "/inside"},
      {"/a:b:unknown", nullptr, "/b:unknown"},
      {"/:registration", nullptr, "/registration"},
      {"/ns:reginfo", nullptr, "/reginfo"},
  };
  for (const auto& [element, attribute, passName] : kCallbacks) {
    if (attribute) {
      EXPECT_EQ(decoder.ProcessAttribute(Literal(element), Literal(attribute), Literal("7")), 0);
    } else {
      EXPECT_EQ(decoder.ProcessElement(Literal(element), Literal("")), 0);
    }
    EXPECT_STREQ(decoder.PassName(), passName);
  }
  const Tree<zt_reginfo> root = RootOf(decoder);
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getVersionValue(), 7U);
  ASSERT_EQ(CountOf(root->getRegistrationListValue()), 1);
  EXPECT_STREQ(EntryOf(root->getRegistrationListValue())->getAorValue(), "7");

  XMLCommunicationDiversionDecoder services;
  services.ProcessElement(Literal("cp:rule"), nullptr);
  EXPECT_STREQ(services.PassName(), "cp:rule");
  XMLIsComposingDecoder exact;  // knows no prefixes
  exact.ProcessElement(Literal("ic:isComposing"), nullptr);
  EXPECT_EQ(exact.GetSessionData(), nullptr);
}

TEST(Decoder, NamesLoseTheirFirstPrefix) {
  XMLReginfoDecoder decoder;
  const std::pair<const char*, const char*> kStripped[] = {
      {"a", "a"}, {"n:a", "a"}, {"/n:a", "/a"}, {"n:m:a", "m:a"}, {":", ""}, {"/", "/"}, {"", ""}};
  for (const auto& [in, out] : kStripped) {
    EXPECT_EQ(decoder.XMLRemoveNameSpaceTag(Literal(in)), 1);
    EXPECT_STREQ(decoder.PassName(), out) << in;
  }
  // A decoder stores the size of a name plus 2 in 16 bits, so a longer name is cut.
  for (const auto& [size, kept] : {std::pair<std::size_t, std::size_t>{65533, 65533},
                                   {65534, 0},
                                   {65535, 0},
                                   {65536, 1},
                                   {65600, 65}}) {
    std::string name(size, 'x');
    EXPECT_EQ(decoder.XMLRemoveNameSpaceTag(name.data()), 1);
    EXPECT_EQ(std::string(decoder.PassName()).size(), kept) << size;
    // No leftovers of earlier names replace what a name lost, not even an end tag's slash.
    const auto root =
        Schema(XML_SCHEMA_REGINFO)
            .Read<zt_reginfo>("<reginfo><registration/><" + name + ">t</" + name + "></reginfo>");
    ASSERT_TRUE(root);
    EXPECT_EQ(CountOf(root->getRegistrationListValue()), 1) << size;
    EXPECT_EQ(root->getAnyElementValue(), nullptr) << size;
  }
}

TEST(Decoder, ForeignPrefixesAreRewrittenByTheDocumentsDeclarations) {
  const std::string ss = "http://uri.etsi.org/ngn/params/xml/simservs/xcap";
  const std::string bound = "xmlns:x='" + ss + "'";
  const struct {
    std::string declarations;
    const char *name, *passName;
  } kCases[] = {
      {"", "/x:busy", "/x:busy"},
      {"", "cp:rule", "cp:rule"},
      {bound, "/x:busy", "/ss:busy"},
      {bound, "x:", "ss:"},
      {bound, "busy", "busy"},
      {bound + " xmlns='" + ss + "'", "x:busy", "ss:busy"},
      {"xmlns='urn:ietf:params:xml:ns:common-policy'", "cp:rule", "cp:rule"},
  };
  for (const auto& [declarations, name, passName] : kCases) {
    const auto binder =
        Schema(XML_SCHEMA_NAMESPACE_RETRIEVAL).Read<XMLObject>("<a " + declarations + "/>");
    XMLCommunicationDiversionDecoder decoder;
    EXPECT_EQ(decoder.SetNameSpaceBinderInfo(binder.get()), 1);
    EXPECT_EQ(decoder.XMLChangeNamespaceTag(Literal(name)), 1);
    EXPECT_STREQ(decoder.PassName(), passName) << declarations;
  }
}

TEST(Decoder, CallbacksInAnyOrder) {
  XMLReginfoDecoder decoder;
  const LogCapture log;
  EXPECT_EQ(decoder.ProcessElement(nullptr, nullptr), -1);
  EXPECT_EQ(decoder.ProcessAttribute(nullptr, Literal("id"), Literal("i")), -1);
  EXPECT_EQ(decoder.ProcessAnyElement(nullptr, nullptr), nullptr);
  for (const char* method : {"ProcessElement", "ProcessAttribute", "ProcessAnyElement"}) {
    EXPECT_EQ(log.Count(method + std::string(", Element name is NULL")), 1);
  }
  const auto element = [&](const char* name) {
    EXPECT_EQ(decoder.ProcessElement(Literal(name), nullptr), 0) << name;
  };
  element("reginfo");
  element("registration");
  element("/contact");  // is not open: closes nothing
  EXPECT_EQ(decoder.ProcessAttribute(Literal("registration"), Literal("id"), nullptr), 0);
  element("/registration");
  EXPECT_EQ(decoder.ProcessAttribute(Literal("registration"), Literal("id"), Literal("i")), 0);
  for (int i = 0; i < 3; ++i) element("/reginfo");
  const Tree<zt_reginfo> root = RootOf(decoder);
  ASSERT_EQ(CountOf(root->getRegistrationListValue()), 1);
  EXPECT_EQ(EntryOf(root->getRegistrationListValue())->getIdValue(), nullptr);
}

// A tag outside of the tree is logged as such, whichever callback tells of it.
TEST(Decoder, SaysThatNothingIsOpen) {
  const std::string text = "<x a='1' b='2'><y c='3' >t</y></x>";
  LogCapture log;
  EXPECT_EQ(Schema(XML_SCHEMA_REGINFO).RoundTrip(text), "(null)");
  EXPECT_EQ(log.Count("stack is empty\n"), 8);  // two starts, four attributes, two ends
  log.Clear();
  XMLReginfoDecoder decoder;
  EXPECT_EQ(Parse(text, &decoder), ZT_XML_SUCCESS);
  EXPECT_EQ(log.Count("stack is empty\n"), 8);
}

TEST(Decoder, ExtensionsAreOpenedAndClosed) {
  XMLReginfoDecoder decoder;
  for (const char* name : {"reginfo", "registration", "contact"}) {
    decoder.ProcessElement(Literal(name), nullptr);
  }
  const Tree<XMLElement> gruu(decoder.ProcessAnyElement(Literal("pub-gruu"), nullptr));
  ASSERT_TRUE(gruu);
  EXPECT_EQ(decoder.ProcessAnyElement(Literal("/pub-gruu"), Literal("")), nullptr);
  // The innermost open element: the contact.
  EXPECT_EQ(decoder.ProcessAnyElement(Literal("/temp-gruu"), Literal("")), nullptr);
  decoder.ProcessElement(Literal("contact"), nullptr);
  const Tree<zt_reginfo> root = RootOf(decoder);
  auto* registration = EntryOf(root->getRegistrationListValue());
  EXPECT_EQ(CountOf(registration->getContactListValue()), 2);

  // An element that its parent refuses leaves the parent open.
  const std::string text =
      "<reginfo state='full'><registration aor='a' id='r' state='init'><contact state='active' "
      "event='created' id='c'><unknown-param name='n'>%</unknown-param><unknown-param name='m'>w"
      "</unknown-param></contact></registration></reginfo>";
  const auto written = [&](const std::string& parameter) {
    return Schema(XML_SCHEMA_REGINFO)
        .RoundTrip(std::string(text).replace(text.find('%'), 1, parameter));
  };
  EXPECT_SAME(written("<gr:pub-gruu uri='u'><x/>t</gr:pub-gruu>v"), written("v"));
}

// A start tag that would pass for an end.
TEST(Decoder, StartTagsWithASlashRefuseTheDocument) {
  const struct {
    eXMLSchemaID schema;
    const char* text;
  } kCases[] = {
      {XML_SCHEMA_REGINFO, "<reginfo state='full'>< /reginfo><//reginfo></reginfo>"},
      {XML_SCHEMA_REGINFO,
       "<reginfo state='full'><x:/registration aor='a' state='init'></x:/registration></reginfo>"},
      {XML_SCHEMA_REGINFO, "<reginfo state='full'><x><:/y/></x></reginfo>"},
      {XML_SCHEMA_IS_COMPOSING,
       "<isComposing><state>s</state><x:/state>t</x:/state></isComposing>"},
      {XML_SCHEMA_COMMUNICATION_WAITING,
       "<communication-waiting>< /a><//a></communication-waiting>"},
      {XML_SCHEMA_COMMUNICATION_DIVERSION,
       "<communication-diversion><cp:/ruleset/></communication-diversion>"},
      {XML_SCHEMA_NAMESPACE_RETRIEVAL, "<a xmlns='u'>< /b><//b></a>"},
      {XML_SCHEMA_NAMESPACE_RETRIEVAL, "<a xmlns='u'><x:/b y='z'/></a>"},
      {XML_SCHEMA_SIMSERVS, "<simservs>< /b><//b></simservs>"},
  };
  for (const auto& [schema, text] : kCases) {
    const LogCapture log(4);
    EXPECT_FALSE(Schema(schema).Read<XMLElement>(text)) << text;
    EXPECT_EQ(log.Count(": the name of a start tag begins with a slash"), 1) << text;
  }
  XMLReginfoDecoder decoder;
  decoder.ProcessElement(Literal("reginfo"), nullptr);
  EXPECT_EQ(decoder.ProcessElement(Literal("x:/registration"), nullptr), -1);
  EXPECT_TRUE(decoder.Failed());
  EXPECT_STREQ(decoder.PassName(), "/registration");
  EXPECT_EQ(RootOf(decoder)->getRegistrationListValue(), nullptr);
}

// For elements out of place decoders look in all types of the document.
TEST(Decoder, HaveRoomForAllTypes) {
  for (const reflect::Schema& schema : reflect::Schemas()) {
    EXPECT_LE(schema.Types().size(), ZtSchemaDecoder::kMostTypes) << schema.document->info.name;
  }
}

// The parser hands whole tags only to an unmarshaller's decoder: a caller's class that derives from
// a decoder gets every callback.
TEST(Decoder, DerivedOnesGetEveryCallback) {
  struct Counting : XMLReginfoDecoder {
    int elements = 0;
    int attributes = 0;
    int ProcessElement(char* name, char* value) override {
      ++elements;
      return XMLReginfoDecoder::ProcessElement(name, value);
    }
    int ProcessAttribute(char* element, char* name, char* value) override {
      ++attributes;
      return XMLReginfoDecoder::ProcessAttribute(element, name, value);
    }
  };
  Counting decoder;
  EXPECT_EQ(Parse("<reginfo version='1' state='full'><registration aor='a'/></reginfo>", &decoder),
            ZT_XML_SUCCESS);
  const Tree<zt_reginfo> root = RootOf(decoder);
  EXPECT_EQ(decoder.elements, 4);
  EXPECT_EQ(decoder.attributes, 3);
}

}  // namespace
