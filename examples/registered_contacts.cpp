// Prints the registered contacts of a registration-information document (RFC 3680) with their GRUUs
// (RFC 5628).
//
// Usage: registered_contacts < FILE
#include <iostream>
#include <iterator>

#include <ztxml/reginfo.h>

int main() {
  const std::string body(std::istreambuf_iterator<char>(std::cin), {});
  const auto reginfo = ztxml::Read<zt_reginfo>(body, ztxml::ReadOnly());
  if (!reginfo) {
    std::cerr << reginfo.error().Text() << '\n';
    return 1;
  }
  for (const zt_registration& registration : ztxml::Each((*reginfo)->getRegistrationListValue())) {
    std::cout << ztxml::Text(registration.getAorValue()) << '\n';
    for (const zt_ns_reginfo_contact& contact : ztxml::Each(registration.getContactListValue())) {
      if (contact.state() != ZT_CONTACT_STATE_ACTIVE) continue;
      std::cout << "  " << ztxml::Text(contact.getUriValue());
      if (const auto seconds = contact.expires()) std::cout << ", expires in " << *seconds << " s";
      std::cout << '\n';
      for (const zt_pub_gruu& gruu : ztxml::Each<zt_pub_gruu>(contact.getAnyElementValue())) {
        std::cout << "    public GRUU " << ztxml::Text(gruu.getUriValue()) << '\n';
      }
      for (const zt_temp_gruu& gruu : ztxml::Each<zt_temp_gruu>(contact.getAnyElementValue())) {
        std::cout << "    temporary GRUU " << ztxml::Text(gruu.getUriValue()) << '\n';
      }
    }
  }
}
