// The factory, contexts, drivers and the namespace retrieval, tried on all documents.
#include <cstdio>

#include "DocumentSupport.h"
#include "ztxml/XMLFile.h"
#include "ztxml/XMLReginfo.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"

namespace {

const char kReginfo[] =
    "<?xml version='1.0'?><reginfo version='1' state='full'><registration aor='a' id='r' "
    "state='active' x='y'><contact id='c' state='active' event='created'><uri>u</uri>"
    "<unknown-param name='n'>\"v\"</unknown-param><gr:pub-gruu uri='\"p\"'/></contact>"
    "</registration></reginfo>";

TEST(Factory, ServesWhatItHas) {
  for (const int id : {-1, 6, 8, static_cast<int>(XML_SCHEMA_END), 1000}) {
    EXPECT_EQ(XMLFactory::newInstance(static_cast<eXMLSchemaID>(id)), nullptr) << id;
    EXPECT_EQ(XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id)), nullptr) << id;
  }
  for (int id = 0; id < XML_SCHEMA_END; ++id) {
    const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id));
    XMLContext* context = XMLFactory::newInstance(static_cast<eXMLSchemaID>(id));
    ASSERT_EQ(info != nullptr, context != nullptr) << id;
    if (!context) continue;
    EXPECT_EQ(info->id, id);
    EXPECT_EQ(context->marshaller(), nullptr);
    EXPECT_EQ(context->unMarshaller(), nullptr);
    EXPECT_EQ(context->binderFactory(), nullptr);
    XMLMarshaller* marshaller = context->createMarshaller();
    EXPECT_EQ(marshaller != nullptr, info->writes || info->roots[0]) << id;
    EXPECT_EQ(context->marshaller(), marshaller);
    EXPECT_TRUE(!marshaller || marshaller->Identity() == marshaller);
    ASSERT_NE(context->createUnMarshaller(), nullptr);
    ASSERT_NE(context->createBinderFactory(), nullptr);
    XMLFactory::deleteContext(context);
  }
  XMLFactory::deleteContext(nullptr);
  XMLFactory::DeleteElement(nullptr);
}

TEST(Context, KeepsEveryWorkerItMade) {
  XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_REGINFO);
  XMLUnMarshaller* reader = context->createUnMarshaller();
  XMLMarshaller* first = context->createMarshaller();
  XMLMarshaller* second = context->createMarshaller();
  XMLObjectFactory* factory = context->createBinderFactory();
  EXPECT_NE(context->createBinderFactory(), factory);
  EXPECT_NE(first, second);
  EXPECT_EQ(context->marshaller(), second);
  EXPECT_EQ(context->SetNamespaceBinder(nullptr), 0);
  Tree<XMLElement> root(reader->UnMarshall(kReginfo));
  const std::string text = first->Marshall(root.get());
  EXPECT_EQ(second->Marshall(root.get()), text);
  Tree<XMLElement> made(factory->CreateRootElement());
  EXPECT_STREQ(made->ClassName(), "zt_reginfo");
  XMLFactory::deleteContext(context);
}

TEST(UnMarshaller, FilesAndTexts) {
  Schema schema(XML_SCHEMA_REGINFO);
  XMLUnMarshaller* reader = schema.context()->createUnMarshaller();
  const std::string path = ::testing::TempDir() + "ztxml_reginfo_test.xml";
  XMLFile out(path.c_str(), XML_FILE_WRITE);
  ASSERT_EQ(out.Write(kReginfo), 1);
  out.CloseFile();
  XMLFile in(path.c_str(), XML_FILE_READ);
  Tree<XMLElement> fromFile(reader->UnMarshall(&in));
  EXPECT_SAME(schema.Write(fromFile.get()), schema.RoundTrip(kReginfo));
  const LogCapture log(4);
  Schema services(XML_SCHEMA_SIMSERVS);
  for (XMLUnMarshaller* worker : {reader, services.context()->unMarshaller()}) {
    for (long n = 1, reached = 1; reached; ++n) {
      zthost::FailAllocation(n);
      Tree<XMLElement>(worker->UnMarshall(&in));
      reached = zthost::AllocationCount() >= n;
      zthost::FailAllocation(0);
    }
  }
  EXPECT_FALSE(log.Has("StrDup failed"));  // only texts are said to be copied
  in.CloseFile();
  std::remove(path.c_str());
  EXPECT_EQ(reader->UnMarshall(&in), nullptr);  // the file is gone
}

// Parser and decoder are kept where the memory log is off, unless a document has made them large.
TEST(UnMarshaller, KeepsWhatItReadsWith) {
  zthost::EnableMemoryLog(false);
  Schema schema(XML_SCHEMA_REGINFO);
  const auto allocations = [&](const std::string& text) {
    zthost::CountAllocations();
    EXPECT_TRUE(schema.Read<zt_reginfo>(text)) << text.substr(0, 99);
    const long count = zthost::AllocationCount();
    zthost::FailAllocation(0);
    return count;
  };
  const std::string plain = "<reginfo version='1'/>";
  const long first = allocations(plain);
  EXPECT_LT(allocations(plain), first);
  std::string deep;
  for (int i = 0; i < 20; ++i) deep = "<a>" + deep + "</a>";
  const std::string prefix(200, 'p');
  for (const std::string& large :
       {"<reginfo>" + deep + "</reginfo>", "<reginfo><" + prefix + ":q:registration/></reginfo>",
        std::string("<reginfo><reginfo/></reginfo>")}) {
    allocations(large);
    EXPECT_EQ(allocations(plain), first) << large.substr(0, 99);
  }
  zthost::EnableMemoryLog(true);
  allocations(plain);
  EXPECT_EQ(allocations(plain), first);
  zthost::EnableMemoryLog(false);
}

TEST(NamespaceRetrieval, CollectsDeclarationsInDocumentOrder) {
  Schema schema(XML_SCHEMA_NAMESPACE_RETRIEVAL);
  const auto pairs = [&](const char* text) {
    auto root = schema.Read<zt_schema_namespace_retrieval>(text);
    std::string all = root ? "" : "(null)";
    for (const auto& pair : ZtEach(root ? root->getNameSpaceInfo() : nullptr)) {
      all += std::string(pair.getName() ? pair.getName() : "-") + "=" + pair.getValue() + ";";
    }
    return all;
  };
  EXPECT_EQ(pairs("<a xmlns='urn:x' b='c' xmlns:cp='urn:y'><cp:b xmlns:ss='urn:z'/></a>"),
            "-=urn:x;cp=urn:y;ss=urn:z;");
  EXPECT_EQ(pairs("<a xmlnsfoo='f' xmlns:a:b='g' xmln='h' xmlns:='i' />"), "-=f;a:b=g;=i;");
  EXPECT_EQ(pairs("<a/>"), "");
  EXPECT_EQ(pairs("<a xmlns='urn:x'>"), "(null)");
  ExpectWholeOrNothing([&] { return pairs("<a xmlns='u' xmlns:p='v'/>"); });

  EXPECT_EQ(schema.writer(), nullptr);
  Tree<zt_schema_namespace_retrieval> root(static_cast<zt_schema_namespace_retrieval*>(
      schema.context()->createBinderFactory()->CreateRootElement()));
  const LogCapture log;
  char xmlns[] = "xmlns:p", uri[] = "u";
  EXPECT_EQ(root->ProcessUnMarshallAttribute(xmlns, uri, nullptr), 1);
  zthost::FailAllocation(1);
  EXPECT_EQ(root->ProcessUnMarshallAttribute(xmlns, uri, nullptr), 0);
  EXPECT_TRUE(log.Has("cannot allocate memory to pXMLNSValuePair "));
  EXPECT_EQ(root->ProcessUnMarshallAttribute(uri, uri, nullptr), 1);
  EXPECT_EQ(root->getNameSpaceInfo()->GetCount(), 1);
  XMLSchemaNamespaceRetrievalDecoder decoder;
  EXPECT_EQ(decoder.ProcessElement(nullptr, nullptr), -1);
  EXPECT_EQ(decoder.ProcessAttribute(uri, nullptr, uri), -1);
  XMLFactory::DeleteElement(static_cast<XMLObject*>(decoder.GetSessionData()));
}

}  // namespace
