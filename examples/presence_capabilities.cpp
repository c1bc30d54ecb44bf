// Prints what the services of a presence document (RFC 3863) are capable of (RFC 5196).
//
// Usage: presence_capabilities < FILE
#include <iostream>
#include <iterator>

#include <ztxml/presence.h>

int main() {
  const std::string body(std::istreambuf_iterator<char>(std::cin), {});
  const auto presence = ztxml::Read<zt_presence>(body, ztxml::ReadOnly());
  if (!presence) {
    std::cerr << presence.error().Text() << '\n';
    return 1;
  }
  for (const zt_tuple& tuple : ztxml::Each((*presence)->getTupleListValue())) {
    std::cout << ztxml::Text(tuple.getIdValue()) << ':';
    for (const auto& caps : ztxml::Each<zt_ns_caps_servcaps>(tuple.getAnyElementValue())) {
      const auto* duplex = caps.getDuplexValue();
      const auto* modes = duplex ? duplex->getSupportedValue() : nullptr;
      std::cout << (caps.audio().value_or(false) ? " audio" : "")
                << (caps.video().value_or(false) ? " video" : "")
                << (modes && modes->getFullValue() ? " full-duplex" : "");
    }
    std::cout << '\n';
  }
}
