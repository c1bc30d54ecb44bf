// Factory, contexts, drivers, and the namespace retrieval, on the documents that exist.
#include <cstdio>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "Samples.h"
#include "SchemaNameSpaceRetrieval.h"
#include "TestSupport.h"
#include "XMLFile.h"
#include "XMLReginfo.h"
#include "XMLSchemaNameSpaceRetrieval.h"

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
  in.CloseFile();
  std::remove(path.c_str());
  EXPECT_EQ(schema.Write(fromFile.get()), schema.RoundTrip(kReginfo));
  EXPECT_EQ(reader->UnMarshall(&in), nullptr);  // the file is gone

  LogCapture log;
  EXPECT_EQ(reader->UnMarshall(static_cast<const char*>(nullptr)), nullptr);
  EXPECT_EQ(reader->UnMarshall(static_cast<XMLFile*>(nullptr)), nullptr);
  EXPECT_TRUE(log.Texts().empty());
}

// Each under its own name. (The names themselves stand in the README's table, which is checked.)
TEST(UnMarshaller, SaysWhenItCannotCopyTheText) {
  for (int id = 0; id < XML_SCHEMA_END; ++id) {
    const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id));
    if (!info) continue;
    Schema schema(info->id);
    XMLUnMarshaller* reader = schema.context()->createUnMarshaller();
    LogCapture log(4);
    zthost::FailAllocation(1);
    EXPECT_EQ(reader->UnMarshall("<a/>"), nullptr);
    EXPECT_EQ(log.Texts(), std::vector<std::string>{std::string("<XML Module>: StrDup failed in ") +
                                                    info->name + "UnMarshaller::UnMarshall"});
  }
}

// What a document's workers call themselves and their buffer, what they log of null, and when they
// read.
struct WorkerNames {
  std::string marshaller, buffer, null = "", read = "";
};

TEST(Marshaller, LogsUnderItsName) {
  const std::map<int, WorkerNames> kOwn = {
      {XML_SCHEMA_RESOURCE_LISTS, {"Resource_listsMarshall", "mResourceListsXml"}},
      {XML_SCHEMA_CONFERENCE_INFO,
       {"Conference_infoMarshall", "mConferenceInfoXml", " :: Marshall: Receiven NULL Object"}},
      {XML_SCHEMA_IMDN, {"IMDNMarshaller", "mIMDNXml"}},
      {XML_SCHEMA_COMMUNICATION_WAITING,
       {"Communication_waitingMarshaller", "mCommunicationWaitingXml", "",
        "CommunicationWaitingUnMarshaller::UnMarshall: pstring is <"}},
      {XML_SCHEMA_OIP,
       {"OIPMarshaller", "mOIPXml", "", "OIPUnMarshaller::UnMarshall: pstring is <"}},
      {XML_SCHEMA_TIP,
       {"TIPMarshaller", "mTIPXml", "", "TIPUnMarshaller::UnMarshall: pstring is <"}},
      {XML_SCHEMA_COMMUNICATION_DIVERSION, {"Communication_diversionMarshaller", "mCdivXml"}},
      {XML_SCHEMA_COMMUNICATION_BARRING, {"Communication_barringMarshaller", "mCbXml"}},
      {XML_SCHEMA_SIMSERVS, {"SimservsMarshaller", "SimservsXml"}},
      {XML_SCHEMA_XCAP_ERROR,
       {"Xcap_ErrorMarshall", "mXcapErrorXml", " :: Marshall: Received Object is NULL",
        "XcapErrorUnMarshaller::UnMarshall"}},
      // Under the name of the other indication's marshaller.
      {XML_SCHEMA_CW_INDICATION, {"CallWaitingIndicationMarshaller", "mCallWaitingIndicationXml"}},
      {XML_SCHEMA_BOOTSTRAPPING_INFO,
       {"BootstrappingInfoMarshaller", "mBootstrappingInfoXml", " pObj is NULL"}},
      {XML_SCHEMA_GRUU,
       {"GruuMarshaller", "mGruuXml", " :: Incoming obj is NULL",
        "In GruuUnMarshaller::UnMarshall with pXmlString=<"}},
  };
  std::set<std::string> files;
  for (const Sample& sample : Samples()) {
    const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(sample.id);
    if (!info->writes) continue;
    SCOPED_TRACE(sample.name);
    const std::string name = info->name, module = "<XML Module>: ";
    const auto own = kOwn.find(sample.id);
    const WorkerNames names =
        own != kOwn.end() ? own->second : WorkerNames{name + "Marshaller", "m" + name + "Xml"};
    const std::string marshaller = module + names.marshaller;
    BoundSchema schema(sample.id, sample.text);
    LogCapture log(2);
    auto root = schema.Read<XMLElement>(sample.text);
    ASSERT_TRUE(root);
    EXPECT_TRUE(names.read.empty() || log.Has(module + names.read));
    const std::string text = schema.Write(root.get());
    log.Clear();
    EXPECT_EQ(schema.Write(root.get()), text);
    const std::vector<CapturedLine> lines = log.Lines();
    EXPECT_EQ(lines[0].text, marshaller + " :: Marshall");
    EXPECT_EQ(lines[1].text, marshaller + " :: Marshall: Deleting " + names.buffer);
    // Two of them use other names for what they have written or not.
    const bool imdn = sample.id == XML_SCHEMA_IMDN;
    const std::string writer = sample.id == XML_SCHEMA_PRESENCE ? module + "IsComposingMarshaller"
                               : imdn                           ? module + "Marshall"
                                                                : marshaller;
    EXPECT_EQ(lines.back().text, writer + " XML " + text);
    // Who writes logs, also for types of other documents.
    files.insert(lines[0].file.substr(lines[0].file.find("XML") + 3));
    for (const CapturedLine& line : lines) {
      const bool step = line.text.find("ElementToXml") != std::string::npos;
      EXPECT_TRUE(!step || line.file == lines[0].file || sample.id == XML_SCHEMA_SIMSERVS);
    }
    log.Clear();
    EXPECT_EQ(schema.Write(nullptr), "(null)");
    EXPECT_EQ(log.Texts(), std::vector(names.null.empty() ? 0 : 1, marshaller + names.null));
    zt_string foreign;
    EXPECT_EQ(schema.Write(&foreign), "(null)");
    EXPECT_EQ(log.Texts().back(), (imdn ? writer : marshaller) + " XML Failed!");
  }
  const std::set<std::string> kFiles = {"BootstrappingInfo",
                                        "CWIndication",
                                        "CallWaitingIndication",
                                        "CommunicationBarring",
                                        "CommunicationDiversion",
                                        "CommunicationWaiting",
                                        "ConferenceInfo",
                                        "Ft",
                                        "Gruu",
                                        "Imdn",
                                        "IsComposing",
                                        "MediaControl",
                                        "OIP",
                                        "Presence",
                                        "RcsTermsInfo",
                                        "Reginfo",
                                        "ResourceList",
                                        "Rlmi",
                                        "RlsServices",
                                        "Simservs",
                                        "TIP",
                                        "XcapDirectory",
                                        "XcapError"};
  EXPECT_EQ(files, kFiles);
}

// Contexts, workers, reading and writing with each allocation failing, once and from there on: null
// or complete, and nothing leaks.
TEST(Drivers, EveryAllocationMayFail) {
  ExpectWholeOrNothing([] {
    XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_REGINFO);
    XMLUnMarshaller* reader = context ? context->createUnMarshaller() : nullptr;
    XMLMarshaller* writer = context ? context->createMarshaller() : nullptr;
    EXPECT_TRUE(!writer || context->createMarshaller() || context->marshaller() == writer);
    const Tree<XMLElement> root(reader ? reader->UnMarshall(kReginfo) : nullptr);
    const char* text = writer && root ? writer->Marshall(root.get()) : nullptr;
    const std::string told = text ? text : "(null)";
    XMLFactory::deleteContext(context);
    return told;
  });
}

TEST(NamespaceRetrieval, CollectsDeclarationsInDocumentOrder) {
  Schema schema(XML_SCHEMA_NAMESPACE_RETRIEVAL);
  const auto pairs = [&](const char* text) {
    auto root = schema.Read<zt_schema_namespace_retrieval>(text);
    std::string all = root ? "" : "(null)";
    ZtSingleElementList* list = root ? root->getNameSpaceInfo() : nullptr;
    for (ZtListNode* node = list ? list->GetPtrToListHead() : nullptr; node; node = node->next) {
      const auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
      all += std::string(pair->getName() ? pair->getName() : "-") + "=" + pair->getValue() + ";";
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
  LogCapture log;
  EXPECT_EQ(root->setNameSpaceInfo(nullptr), 1);
  EXPECT_EQ(root->getNameSpaceInfo(), nullptr);
  EXPECT_TRUE(log.Has("<XML Module>: zt_schema_namespace_retrieval::setNameSpaceInfo"));
  EXPECT_TRUE(log.Has("<XML Module>: zt_schema_namespace_retrieval::getNameSpaceInfo"));
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
