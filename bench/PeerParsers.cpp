#include "PeerParsers.h"

#include <cstring>

#include "Counting.h"

#if ZTXML_BENCH_EXPAT
#include <expat.h>
#endif
#if ZTXML_BENCH_LIBXML2
#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#endif

namespace bench {

// ---- Expat --------------------------------------------------------------------------------------

#if ZTXML_BENCH_EXPAT

namespace {

void XMLCALL ExpatStart(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL ExpatEnd(void*, const XML_Char*) {}
void XMLCALL ExpatText(void*, const XML_Char*, int) {}

}  // namespace

bool EventsByExpat(const std::string& text) {
  // One parser for all documents: resetting it is cheaper than making one.
  static const XML_Memory_Handling_Suite memory = {CountedMalloc, CountedRealloc, CountedFree};
  static XML_Parser parser = XML_ParserCreate_MM(nullptr, &memory, nullptr);
  XML_ParserReset(parser, nullptr);
  XML_SetElementHandler(parser, ExpatStart, ExpatEnd);
  XML_SetCharacterDataHandler(parser, ExpatText);
  return XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1) == XML_STATUS_OK;
}

#endif

// ---- libxml2 ------------------------------------------------------------------------------------

#if ZTXML_BENCH_LIBXML2

namespace {

void Libxml2Start(void*, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int,
                  int, const xmlChar**) {}
void Libxml2End(void*, const xmlChar*, const xmlChar*, const xmlChar*) {}
void Libxml2Text(void*, const xmlChar*, int) {}
void Libxml2Silent(void*, const char*, ...) {}

}  // namespace

bool EventsByLibxml2(const std::string& text) {
  xmlSAXHandler handler = {};
  handler.initialized = XML_SAX2_MAGIC;
  handler.startElementNs = Libxml2Start;
  handler.endElementNs = Libxml2End;
  handler.characters = Libxml2Text;
  // The function for texts, so that libxml2 need not test whether each text is blank.
  handler.ignorableWhitespace = Libxml2Text;
  return xmlSAXUserParseMemory(&handler, nullptr, text.data(), static_cast<int>(text.size())) == 0;
}

#endif

// ---- pugixml ------------------------------------------------------------------------------------

#if ZTXML_BENCH_PUGIXML

namespace {

struct PugixmlText : pugi::xml_writer {
  std::string text;
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }
};

}  // namespace

bool ParseByPugixml(const std::string& text, unsigned options) {
  pugi::xml_document document;
  return document.load_buffer(text.data(), text.size(), options, pugi::encoding_utf8);
}

bool WriteByPugixml(const pugi::xml_document& document) {
  static PugixmlText writer;
  writer.text.clear();
  document.save(writer, "", pugi::format_raw, pugi::encoding_utf8);
  return !writer.text.empty();
}

#endif

// ---- TinyXML-2 ----------------------------------------------------------------------------------

#if ZTXML_BENCH_TINYXML2

bool ParseByTinyXml2(const std::string& text) {
  tinyxml2::XMLDocument document;
  return document.Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS;
}

bool WriteByTinyXml2(const tinyxml2::XMLDocument& document) {
  static tinyxml2::XMLPrinter printer(nullptr, true);
  printer.ClearBuffer();
  document.Print(&printer);
  return printer.CStrSize() > 1;
}

#endif

// ---- All ----------------------------------------------------------------------------------------

void PreparePeers() {
#if ZTXML_BENCH_LIBXML2
  xmlMemSetup(CountedFree, CountedMalloc, CountedRealloc, CountedStrdup);
  xmlInitParser();
  xmlSetGenericErrorFunc(nullptr, Libxml2Silent);
#endif
#if ZTXML_BENCH_PUGIXML
  pugi::set_memory_management_functions(CountedMalloc, CountedFree);
#endif
}

std::string PeerVersions() {
  std::string versions;
#if ZTXML_BENCH_EXPAT
  const XML_Expat_Version expat = XML_ExpatVersionInfo();
  versions += ", Expat " + std::to_string(expat.major) + "." + std::to_string(expat.minor);
#endif
#if ZTXML_BENCH_LIBXML2
  versions += ", libxml2 " LIBXML_DOTTED_VERSION;
#endif
#if ZTXML_BENCH_PUGIXML
  versions += ", pugixml " + std::to_string(PUGIXML_VERSION / 1000) + "." +
              std::to_string(PUGIXML_VERSION % 1000 / 10);
#endif
#if ZTXML_BENCH_TINYXML2
  versions += ", TinyXML-2 " + std::to_string(TINYXML2_MAJOR_VERSION) + "." +
              std::to_string(TINYXML2_MINOR_VERSION);
#endif
  return versions.empty() ? "none" : versions.substr(2);
}

}  // namespace bench
