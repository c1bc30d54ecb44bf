// XCAP directories: documents in, trees, documents out.
#include <gtest/gtest.h>
#include <tuple>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLValueTypes.h"
#include "XMLXcapDirectory.h"
#include "base/ZtMemory.h"

namespace {

std::string Out(const std::string& folder) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xcap-directory  "
         "xmlns=\"urn:oma:xml:xdm:xcap-directory\">\n<folder  auid=\"a\">" +
         folder + "</folder></xcap-directory>";
}
std::string In(const std::string& folder, const std::string& attributes = "auid='a' b='1'") {
  return "<d:xcap-directory b='1'><entry/><folder " + attributes + ">" + folder +
         "</folder></d:xcap-directory>";
}

TEST(XcapDirectory, WritesWhatItReads) {
  const std::string entry = "\n<entry  uri=\"u\"  etag=\"e\"/>";
  const std::pair<std::string, std::string> kCases[] = {
      {"<entry etag='e' uri='u'/><x/><e:entry etag='e' uri='u'>t</e:entry>", entry + entry},
      {"<entry size=' 2738' etag='&quot;e&amp;' xmlns:x='v' last-modified='l' x:a='' uri='u' "
       "x:a='2' ='3'/>",
       "\n<entry  uri=\"u\"  last-modified=\"l\"  size=\"2738\"  xmlns:x=\"v\"  x:a=\"\"  "
       "etag=\"&quot;e&\"/>"},
      {"<entry uri='u' size='0' etag='e'/><entry uri='u' size='-1' etag='e'/>", entry + entry},
      {"<entry uri='u' size='99999999999' etag='e'/>",
       "\n<entry  uri=\"u\"  etag=\"e\"/>"},  // the largest number says that there is none
      // An error code is only written of a folder without entries, and always then.
      {"", "\n<error-code> </error-code>"},
      {"<error-code a='1'>4<x/>03</error-code>", "\n<error-code>03</error-code>"},
      {"<error-code>403</error-code><entry uri='u' etag='e'/>", entry},
      // Nothing of what stands in a wrong place.
      {"<entry uri='u' etag='e'><entry uri='v'/><error-code>1</error-code></entry>"
       "<folder><entry/></folder><x><entry/></x>",
       entry},
  };
  Schema schema(XML_SCHEMA_XCAP_DIRECTORY);
  for (const auto& [in, out] : kCases) {
    EXPECT_EQ(schema.RoundTrip(In(in)), Out(out)) << in;
    EXPECT_EQ(schema.RoundTrip(Out(out)), Out(out));
  }
}

TEST(XcapDirectory, RequiredAttributes) {
  const std::tuple<std::string, std::string, std::string> kCases[] = {
      {"", "b='1'", "AddFolderElementToXml AUID"},
      {"<entry etag='e' size='1'/>", "auid='a'", "AddEntryElementToXml URI"},
      {"<entry uri='u' etag='e'/><entry uri='u' b='1'/>", "auid='a'", "AddEntryElementToXml ETAG"},
  };
  Schema schema(XML_SCHEMA_XCAP_DIRECTORY);
  for (const auto& [folder, attributes, line] : kCases) {
    LogCapture log;
    EXPECT_EQ(schema.RoundTrip(In(folder, attributes)), "(null)");
    EXPECT_EQ(log.Texts(4), std::vector{kModule + line + " mandatory attribute"});
    EXPECT_EQ(log.Count(kModule + "AddEntryElementToXml XML Failed!"), folder.empty() ? 0 : 1);
    EXPECT_TRUE(log.Has(kModule + "AddFolderElementToXml XML Failed!"));
    EXPECT_TRUE(log.Has(kModule + "XcapDirectoryMarshaller XML Failed!"));
  }
}

TEST(XcapDirectory, BuiltByHand) {
  Schema schema(XML_SCHEMA_XCAP_DIRECTORY);
  auto* factory = static_cast<XcapDirectoryDataBinder*>(schema.context()->createBinderFactory());
  Tree<zt_xcap_directory> root(static_cast<zt_xcap_directory*>(factory->CreateRootElement()));
  zt_folder* folder = factory->CreateFolderElement();
  zt_entry* entry = factory->CreateEntryElement();
  std::string end = "/error-code", text = "12";
  EXPECT_EQ(folder->ProcessUnMarshall(end.data(), text.data(), nullptr), 1);
  root->addFolder(folder);
  folder->setAuidValue("a");
  folder->setEntryListValue(zt_xml_common_methods::CreateElementList());  // as good as none
  EXPECT_EQ(schema.Write(root.get()), Out("\n<error-code>12</error-code>"));
  folder->addEntry(entry);
  entry->setUriValue("u");
  entry->setEtagValue("e");
  entry->setSizeValue(12);
  entry->addAnyAttribute(zt_xml_common_methods::CreateAttribute("other", "v"));
  EXPECT_EQ(schema.Write(root.get()),
            Out("\n<entry  uri=\"u\"  size=\"12\"  other=\"v\"  etag=\"e\"/>"));
}

}  // namespace
