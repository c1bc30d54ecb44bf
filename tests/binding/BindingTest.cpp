// The machinery that documents share, on a document that uses all of it.
#include <cstring>
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "base/ZtLog.h"
#include "binding/ZtBinding.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"
#include "reflect/Reflect.h"
#include "ztxml/XMLReginfo.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"
#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtNamespaceDecoder.h"

namespace {

constexpr ZtHookLines kNoLines = {};
constexpr ZtFamily kFamily = {"tests/Toy", &kNoLines, "unknown %s with %s", "failed in %s",
                              ZtUnknown::kIgnore};
constexpr ZtEnumSlot kModeSlots[] = {"open", "opened"};
constexpr ZtEnumTable kModes = {kModeSlots, 2, 2, kZtKeepsValue, false};

// The types below have every kind of row: <list> nests, <keywords> comes with its end tag, <busy/>
// is a flag, <external-list> is an entry under another name, <alt-value> a repeated text.
class Keywords : public ZtTyped<Keywords> {
 public:
  static const ZtElementType kType;
  ZtText m_Text;
};

class Entry : public ZtTyped<Entry> {
 public:
  static const ZtElementType kType;
  ZtText m_Uri;
};

class List : public ZtTyped<List, ZtObject> {
 public:
  static const ZtElementType kType;
  ZtText m_Id, m_Note;
  ZtNumber m_Version = 0, m_Count = 0, m_Mode = 2;
  ZtAttributeList m_Extras;
  ZtChild m_Keywords, m_External;
  ZtChildList m_Texts, m_Lists, m_Flags, m_Others;
};

// Hooks: keywords cannot be "none", and any name that begins with "busy" is read as a note.
bool WriteKeywords(ZtElementWriter& writer, const XMLElement& self, const ZtElementType& type) {
  const char* text = static_cast<const Keywords&>(self).m_Text.Get();
  return text && std::strcmp(text, "none") != 0 && writer.WriteChildren(self, type);
}
bool NoteBusy(XMLElement& self, const char* name, const char* value, XMLElement* child,
              ZtOutcome& outcome) {
  if (child || std::strncmp(name, "/busy-", 6) != 0) return false;
  outcome =
      static_cast<List&>(self).m_Note.Set(value) ? ZtOutcome::kAccepted : ZtOutcome::kNoMemory;
  return true;
}

constexpr ZtExtras kKeywords = {{}, nullptr, WriteKeywords};
const ZtElementType Keywords::kType = {ZtTypeOf<Keywords>("Keywords", "keywords", kFamily)
                                           .Writer(XML_STR_KEYWORDS, "AddKeywords", XML_STR_OCP)
                                           .With(kKeywords),
                                       {ztrow::OwnText(XML_STR_KEYWORDS, &Keywords::m_Text)}};

const ZtElementType Entry::kType = {
    ZtTypeOf<Entry>("Entry", "entry", kFamily)
        .Writer(XML_STR_ENTRY, "AddEntry")
        .Starts(ZtStartTag::kEmpty)
        .RefusesUnknownAttributes()
        .RefusesUnknownChildren(),
    {ztrow::Attribute(XML_STR_URI, &Entry::m_Uri).Required("uri is required", kZtLogError)}};

constexpr ZtFlag kFlag = {"%s: flag is not present"};
constexpr ZtExtras kFlagExtras = ZtExtrasOf(kFlag);
constexpr ZtElementType kFlagType = ZtFlagOf(kFamily, "AddFlag", kFlagExtras);
constexpr ZtChoice kChoices[] = {{XML_STR_ENTRY, Entry::kType, XML_STR_CP}, {}};
constexpr ZtChoice kExtensions[] = {{XML_STR_RESOURCE, Entry::kType}, {}};
constexpr ZtExtras kList = {{{XML_STR_URI_3GPP_GBA, XML_STR_ZT_NULL},
                             {XML_STR_URN_IETF_PARAMS_XML_NS_COMMON_POLICY, XML_STR_CP},
                             {XML_STR_URI_3GPP_GBA, XML_STR_SCHEMA_LOCATION, XML_STR_XSI}},
                            NoteBusy};
const ZtElementType List::kType = {
    ZtTypeOf<List>("List", "list", kFamily).Writer(XML_STR_LIST, "AddList").With(kList).Root(),
    {ztrow::Attribute(XML_STR_ID, &List::m_Id), ztrow::Attribute(XML_STR_VERSION, &List::m_Version),
     ztrow::OtherAttributes(&List::m_Extras),
     ztrow::TextElement(XML_STR_NOTE, &List::m_Note).NoteAbsent("no note", kZtLogOptional),
     ztrow::TextElements(XML_STR_ALT_VALUE, &List::m_Texts),
     ztrow::TextElement(XML_STR_USER_COUNT, &List::m_Count),
     ztrow::TextElement(XML_STR_STATE, &List::m_Mode, kModes),
     ztrow::Child(XML_STR_KEYWORDS, &List::m_Keywords, Keywords::kType).Arrives(ZtArrival::kAtEnd),
     ztrow::Child(ZT_STR_EXTERNAL_LIST, &List::m_External, Entry::kType)
         .Lenient()
         .NoteFailed("external list %d failed", kZtLogError),
     ztrow::Children(XML_STR_LIST, &List::m_Lists, List::kType),
     ztrow::Children(XML_STR_BUSY, &List::m_Flags, kFlagType),
     ztrow::OtherChildren(&List::m_Others, kChoices).NoteLeftOut("no writer for %s")}};

static_assert(!ztrow::Sound({ztrow::Attribute(XML_STR_ID, &List::m_Id),
                             ztrow::Attribute(XML_STR_ID, &List::m_Note)}));
static_assert(!ztrow::Sound({ztrow::TextElement(XML_STR_NOTE, &List::m_Note),
                             ztrow::Attribute(XML_STR_ID, &List::m_Id)}));

constexpr ZtDocumentFacts Facts(ZtPrefixRule prefixes) {
  return ZtDocumentFacts{}
      .Decodes("Toy", "tests/Toy", prefixes)
      .Extensions(kExtensions)
      .NoMemory("no memory");
}
constexpr ZtDocument kExact = {Facts(ZtPrefixRule::kExact),
                               {{XML_STR_RESOURCE_LISTS, &List::kType}}};
constexpr ZtDocument kStrip = {Facts(ZtPrefixRule::kStrip),
                               {{XML_STR_RESOURCE_LISTS, &List::kType}}};

class ToyDecoder : public ZtSchemaDecoder {
 public:
  explicit ToyDecoder(const ZtDocument& document) : ZtSchemaDecoder(document) {}
};
class ToyNamespaceDecoder : public ZtNamespaceDecoder {
 public:
  ToyNamespaceDecoder() : ZtNamespaceDecoder(kStrip) {}
};

Tree<List> Parse(ZtSchemaDecoder& decoder, std::string text) {
  XmlDecoder parser;
  parser.SetSchema(&decoder);
  const int result = parser.Decode(text.data(), static_cast<int>(text.size()));
  Tree<List> root(static_cast<List*>(static_cast<XMLObject*>(decoder.GetSessionData())));
  if (result != ZT_XML_SUCCESS || decoder.Failed()) root.reset();
  return root;
}
Tree<List> Parse(const std::string& text, const ZtDocument& document = kStrip) {
  ToyDecoder decoder(document);
  return Parse(decoder, text);
}

std::string Written(List* list) {
  ZtXMLDocGenerator writer;
  writer.ztInitXmlDoc();
  const int result =
      ZtElementWriter(writer, {"tests/Toy", "Toy"}).Write(list, List::kType, XML_STR_ZT_NULL);
  if (!writer.ztGetXmlDoc() || writer.outOfMemory()) return "(null)";
  return (result ? "" : "failed:") + std::string(writer.ztGetXmlDoc());
}

std::string Around(const std::string& attributes, const std::string& content) {
  return "\n<list  xmlns=\"uri:3gpp-gba\"  xmlns:cp=\"urn:ietf:params:xml:ns:common-policy\"  "
         "xsi:schemaLocation=\"uri:3gpp-gba\"" +
         attributes + ">" + content + "</list>";
}

TEST(Binding, EveryKindOfRowReadsAndWrites) {
  const struct {
    const char* in;
    std::string out;
  } kCases[] = {
      {"<resource-lists/>", Around("", "")},
      {"<resource-lists no name/>", Around("", "")},
      {"<resource-lists version='3' b='2' id='i' a='1' xmlns='u' xmlns:x='v' xmlns:cp='w' ='e' "
       "b='3' "
       "a='4' c='5'='d' xsi:schemaLocation='s'/>",
       Around("  id=\"i\"  version=\"3\"  b=\"2\"  a=\"1\"  xmlns:x=\"v\"  c=\"5\"", "")},
      {"<resource-lists><note a='1'>t</note><user-count>12x</user-count><state>opened</state>"
       "</resource-lists>",
       Around("", "\n<note>t</note>\n<user-count>12</user-count>\n<state>opened</state>")},
      {"<resource-lists><state>openedx</state><user-count>0</user-count></resource-lists>",
       Around("", "")},
      {"<resource-lists><keywords a='b'>one<x/> two</keywords><keywords> last </keywords>"
       "</resource-lists>",
       Around("", "\n<ocp:keywords> last </ocp:keywords>")},
      {"<resource-lists><keywords></keywords><alt-value>1</alt-value><external-list uri='e' "
       "x='y'>text</external-list><alt-value/><busy-line>b</busy-line></resource-lists>",
       Around("",
              "\n<note>b</note>\n<alt-value>1</alt-value>\n<alt-value></alt-value>"
              "\n<ocp:keywords></ocp:keywords>\n<external-list  uri=\"e\"/>")},
      {"<resource-lists><busy a='1'>t<list/></busy><list id='l'/><busy/></resource-lists>",
       Around("", Around("  id=\"l\"", "") + "\n<busy/>\n<busy/>")},
      {"<resource-lists><entry uri='u'><list id='refused'/><entry uri='text here'/></entry>"
       "<resource uri='v'><x/></resource></resource-lists>",
       Around("", "\n<cp:entry  uri=\"u\"/>\n<cp:entry  uri=\"v\"/>")},
  };
  for (const auto& test : kCases) {
    auto root = Parse(test.in);
    ASSERT_TRUE(root) << Shortened(test.in);
    EXPECT_SAME(Written(root.get()), test.out) << Shortened(test.in);
  }
}

TEST(Binding, FailuresStayWhereTheyAreAllowed) {
  LogCapture log;
  auto root = Parse("<resource-lists><list><entry/></list></resource-lists>");
  ASSERT_TRUE(root);
  // The text has everything up to the failure, because discarding it is the marshaller's part.
  const std::string start = Around("", "");
  EXPECT_SAME(Written(root.get()), "failed:" + start.substr(0, start.size() - 7) +
                                       start.substr(0, start.size() - 7) + "\n<cp:entry ");
  EXPECT_TRUE(log.Has("uri is required"));
  EXPECT_EQ(log.Count("failed in AddEntry"), 1);
  EXPECT_EQ(log.Count("failed in AddList"), 1);
  root = Parse("<resource-lists><keywords>none</keywords></resource-lists>");
  EXPECT_SAME(Written(root.get()),
              "failed:" + start.substr(0, start.size() - 7) + "\n<ocp:keywords>");
  root = Parse("<resource-lists><busy/></resource-lists>");
  ASSERT_TRUE(root && root->m_Flags.Head());
  EntryOf<zt_empty_element_type>(root->m_Flags.Get(), 0)->setPresentValue(0);
  EXPECT_EQ(Written(root.get()).substr(0, 7), "failed:");
  EXPECT_TRUE(log.Has("Toy: flag is not present"));
  root = Parse("<resource-lists><external-list/></resource-lists>");
  EXPECT_SAME(Written(root.get()), start.substr(0, start.size() - 7) + "\n<external-list </list>");
  EXPECT_EQ(log.Texts(4).back(), "external list 0 failed");
  EXPECT_TRUE(log.Has("no note"));
  root = Parse("<resource-lists/>");
  ASSERT_TRUE(root);
  root->m_Others.Add(ZtCreate<zt_string>("tests/Toy"));
  EXPECT_SAME(Written(root.get()), start);
  EXPECT_TRUE(log.Has("no writer for zt_string"));
  root->m_Others.Set(zt_xml_common_methods::CreateElementList());
  EXPECT_SAME(Written(root.get()), start);
  EXPECT_EQ(log.Count("Head itself is null and No item is there"), 1);
}

TEST(Binding, PrefixRules) {
  const char kPrefixed[] = "<a:resource-lists><b:note>t</b:note></a:resource-lists>";
  EXPECT_FALSE(Parse(kPrefixed, kExact));
  ASSERT_TRUE(Parse(kPrefixed));
  EXPECT_STREQ(Parse(kPrefixed)->m_Note.Get(), "t");
  auto exact = Parse("<resource-lists><b:note>t</b:note></resource-lists>", kExact);
  ASSERT_TRUE(exact);
  EXPECT_EQ(exact->m_Note.Get(), nullptr);

  ToyDecoder strip(kStrip);
  const std::pair<const char*, const char*> kStripped[] = {
      {"a", "a"}, {"n:a", "a"}, {"/n:a", "/a"}, {"n:m:a", "m:a"}, {":", ""}, {"/", "/"}, {"", ""}};
  for (const auto& [in, out] : kStripped) {
    EXPECT_EQ(strip.XMLRemoveNameSpaceTag(const_cast<char*>(in)), 1);
    EXPECT_STREQ(strip.PassName(), out) << in;
  }
  // A decoder stores the size of a name plus 2 in 16 bits, so a longer name is cut.
  for (const auto& [size, kept] : {std::pair<std::size_t, std::size_t>{65533, 65533},
                                   {65534, 0},
                                   {65535, 0},
                                   {65536, 1},
                                   {65600, 65}}) {
    std::string name(size, 'x');
    EXPECT_EQ(strip.XMLRemoveNameSpaceTag(name.data()), 1);
    EXPECT_EQ(std::string(strip.PassName()).size(), kept) << size;
    // No leftovers of earlier names replace what a name lost, not even an end tag's slash.
    auto root = Parse("<resource-lists><keywords>k</keywords><" + name + ">t</" + name +
                      "></resource-lists>");
    ASSERT_TRUE(root);
    EXPECT_SAME(Written(root.get()), Around("", "\n<ocp:keywords>k</ocp:keywords>")) << size;
    EXPECT_EQ(root->m_Others.Get(), nullptr) << size;
  }
}

TEST(Binding, ForeignPrefixesAreRewrittenByTheDocumentsDeclarations) {
  const std::string kSs = "http://uri.etsi.org/ngn/params/xml/simservs/xcap";
  const std::string kCp = "urn:ietf:params:xml:ns:common-policy";
  Schema retrieval(XML_SCHEMA_NAMESPACE_RETRIEVAL);
  const auto rewritten = [&](const std::string& declarations, const char* name) {
    auto binder = retrieval.Read<XMLObject>("<a " + declarations + "/>");
    ToyNamespaceDecoder decoder;
    EXPECT_EQ(decoder.SetNameSpaceBinderInfo(binder.get()), 1);
    EXPECT_EQ(decoder.XMLChangeNamespaceTag(const_cast<char*>(name)), 1);
    return std::string(decoder.PassName());
  };
  const std::string x = "xmlns:x='" + kSs + "'";
  EXPECT_EQ(rewritten("", "/x:busy"), "/x:busy");
  EXPECT_EQ(rewritten("", "cp:rule"), "cp:rule");
  EXPECT_EQ(rewritten(x, "/x:busy"), "/ss:busy");
  EXPECT_EQ(rewritten(x, "x:"), "ss:");
  EXPECT_EQ(rewritten(x, "busy"), "busy");
  EXPECT_EQ(rewritten(x + " xmlns='" + kSs + "'", "x:busy"), "ss:busy");
  EXPECT_EQ(rewritten("xmlns='" + kCp + "'", "cp:rule"), "cp:rule");
}

TEST(Binding, DecoderCallbacksByHand) {
  ToyDecoder decoder(kStrip);
  char root[] = "resource-lists", endRoot[] = "/resource-lists", list[] = "list",
       endList[] = "/list", endEntry[] = "/entry", resource[] = "resource", id[] = "id";
  LogCapture log;
  EXPECT_EQ(decoder.ProcessElement(nullptr, nullptr), -1);
  EXPECT_TRUE(log.Has("In Toy :: ProcessElement, Element name is NULL"));
  EXPECT_EQ(decoder.ProcessAttribute(nullptr, id, id), -1);
  EXPECT_TRUE(log.Has("In Toy :: ProcessAttribute, Element name is NULL"));
  EXPECT_EQ(decoder.ProcessAnyElement(nullptr, nullptr), nullptr);
  EXPECT_TRUE(log.Has("In Toy :: ProcessAnyElement, Element name is NULL"));
  EXPECT_TRUE(log.Texts(kZtLogState).empty());
  EXPECT_EQ(decoder.ProcessElement(root, nullptr), 0);
  EXPECT_EQ(decoder.ProcessElement(list, nullptr), 0);
  EXPECT_EQ(decoder.ProcessElement(endEntry, nullptr), 0);  // of another class: closes nothing
  EXPECT_EQ(decoder.ProcessAttribute(list, id, nullptr), 0);
  EXPECT_EQ(decoder.ProcessElement(endList, nullptr), 0);
  EXPECT_EQ(decoder.ProcessAttribute(list, id, id), 0);  // nobody's any more
  Tree<XMLElement> extension(decoder.ProcessAnyElement(resource, nullptr));
  ASSERT_TRUE(extension);
  EXPECT_EQ(decoder.ProcessAnyElement(list, nullptr), nullptr);
  resource[0] = '/';
  EXPECT_EQ(decoder.ProcessAnyElement(resource, nullptr), nullptr);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(decoder.ProcessElement(endRoot, nullptr), 0);
  Tree<List> tree(static_cast<List*>(static_cast<XMLObject*>(decoder.GetSessionData())));
  ASSERT_TRUE(tree && tree->m_Lists.Head());
  EXPECT_EQ(tree->m_Id.Get(), nullptr);
  EXPECT_EQ(EntryOf<List>(tree->m_Lists.Get(), 0)->m_Id.Get(), nullptr);
}

// Reads without an unmarshaller, so with every object and text on the heap.
TEST(Binding, EveryAllocationMayFail) {
  ExpectWholeOrNothing([] {
    auto root = Parse(
        "<resource-lists id='i' x='y'><note>n</note><keywords>k</keywords><alt-value>a</alt-value>"
        "<list x='y'><busy/></list><resource uri='u'/><resource-lists><entry uri='v'/>"
        "</resource-lists></resource-lists>");
    return root ? Written(root.get()) : "(null)";
  });
}

// For elements out of place decoders look in all types of the document.
TEST(Binding, DecodersHaveRoomForAllTypes) {
  for (const reflect::Schema& schema : reflect::Schemas()) {
    EXPECT_LE(schema.Types().size(), ZtSchemaDecoder::kMostTypes) << schema.document->info.name;
  }
}

// The parser hands whole tags only to an unmarshaller's decoder: a caller's class that derives from
// a decoder gets every callback.
TEST(Binding, DerivedDecodersGetEveryCallback) {
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
  std::string text = "<reginfo version='1' state='full'><registration aor='a'/></reginfo>";
  Counting decoder;
  XmlDecoder parser;
  parser.SetSchema(&decoder);
  EXPECT_EQ(parser.Decode(text.data(), static_cast<int>(text.size())), ZT_XML_SUCCESS);
  Tree<XMLObject> tree(static_cast<XMLObject*>(decoder.GetSessionData()));
  EXPECT_EQ(decoder.elements, 4);
  EXPECT_EQ(decoder.attributes, 3);
}

}  // namespace
