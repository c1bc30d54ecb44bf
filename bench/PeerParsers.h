// The library's peers, as fast as each can be used: parsers that are handed a whole document.
// Those that were not found when the program was built are not declared.
#ifndef ZTXML_BENCH_PEERPARSERS_H
#define ZTXML_BENCH_PEERPARSERS_H

#include <string>

#if ZTXML_BENCH_TINYXML2
#include <tinyxml2.h>
#endif
#if ZTXML_BENCH_PUGIXML
#include <pugixml.hpp>
#endif

namespace bench {

/// Lets each peer allocate through the counted functions. Before anything else.
void PreparePeers();
/// The names and versions of the peers, separated by commas.
std::string PeerVersions();

// Events: the whole document with handlers that do nothing. True when it was well formed.
#if ZTXML_BENCH_EXPAT
bool EventsByExpat(const std::string& text);
#endif
#if ZTXML_BENCH_LIBXML2
bool EventsByLibxml2(const std::string& text);
#endif

#if ZTXML_BENCH_PUGIXML
/// A document tree, made and freed.
bool ParseByPugixml(const std::string& text, unsigned options);
/// Writes `document` to a buffer that keeps its capacity.
bool WriteByPugixml(const pugi::xml_document& document);
#endif

#if ZTXML_BENCH_TINYXML2
bool ParseByTinyXml2(const std::string& text);
bool WriteByTinyXml2(const tinyxml2::XMLDocument& document);
#endif

}  // namespace bench

#endif  // ZTXML_BENCH_PEERPARSERS_H
