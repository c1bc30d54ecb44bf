#include "Peers.h"

#include <expat.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>

namespace bench {

namespace {

void XMLCALL ExpatStart(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL ExpatEnd(void*, const XML_Char*) {}
void XMLCALL ExpatText(void*, const XML_Char*, int) {}

void Libxml2Start(void*, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int,
                  int, const xmlChar**) {}
void Libxml2End(void*, const xmlChar*, const xmlChar*, const xmlChar*) {}
void Libxml2Text(void*, const xmlChar*, int) {}
void Libxml2Silent(void*, const char*, ...) {}

struct PugixmlText : pugi::xml_writer {
  std::string text;
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }
};

}  // namespace

void PreparePeers() {
  xmlInitParser();
  xmlSetGenericErrorFunc(nullptr, Libxml2Silent);
}

std::string PeerVersions() {
  const XML_Expat_Version expat = XML_ExpatVersionInfo();
  return "Expat " + std::to_string(expat.major) + "." + std::to_string(expat.minor) +
         ", libxml2 " LIBXML_DOTTED_VERSION ", pugixml " + std::to_string(PUGIXML_VERSION / 1000) +
         "." + std::to_string(PUGIXML_VERSION % 1000 / 10);
}

bool EventsByExpat(const std::string& text) {
  // One parser for all documents: resetting it is cheaper than making one.
  static XML_Parser parser = XML_ParserCreate(nullptr);
  XML_ParserReset(parser, nullptr);
  XML_SetElementHandler(parser, ExpatStart, ExpatEnd);
  XML_SetCharacterDataHandler(parser, ExpatText);
  return XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1) == XML_STATUS_OK;
}

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

bool TreeByPugixml(const std::string& text) {
  pugi::xml_document document;
  return document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
}

const std::string& WriteByPugixml(const pugi::xml_document& document) {
  static PugixmlText writer;
  writer.text.clear();
  document.save(writer, "", pugi::format_raw, pugi::encoding_utf8);
  return writer.text;
}

}  // namespace bench
