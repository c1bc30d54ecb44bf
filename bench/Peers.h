// The library's peers, as fast as each can be used: parsers that are handed a whole document.
#ifndef ZTXML_BENCH_PEERS_H
#define ZTXML_BENCH_PEERS_H

#include <pugixml.hpp>
#include <string>

namespace bench {

/// Before anything else.
void PreparePeers();
/// The names and versions of the peers.
std::string PeerVersions();

// The whole document with handlers that do nothing. True when it was well formed.
bool EventsByExpat(const std::string& text);
bool EventsByLibxml2(const std::string& text);

/// pugixml has no events: its document tree, made and freed.
bool TreeByPugixml(const std::string& text);

/// Writes `document` into a buffer that keeps its capacity, and gives that.
const std::string& WriteByPugixml(const pugi::xml_document& document);

}  // namespace bench

#endif  // ZTXML_BENCH_PEERS_H
