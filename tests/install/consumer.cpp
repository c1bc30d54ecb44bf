// What a program of others does with the installed package. It has headers of its own whose names
// the package's once had.
#include <cstdio>
#include <string>

#include "File.h"
#include "List.h"
#include "Presence.h"
#include <ztxml/XMLReginfo.h>
#include <ztxml/reginfo.h>
#include <ztxml/ztxml.h>

#if !defined(OWN_FILE_H) || !defined(OWN_LIST_H) || !defined(OWN_PRESENCE_H)
#error "the package's headers come before the program's"
#endif

int main() {
  const std::string body =
      "<reginfo xmlns='urn:ietf:params:xml:ns:reginfo' version='0' state='full'>"
      "<registration aor='sip:ada@example.com' id='r1' state='active'>"
      "<contact id='c1' state='active' event='created' expires='60'><uri>sip:ada@192.0.2.1</uri>"
      "</contact></registration></reginfo>";
  auto read = ztxml::Read<zt_reginfo>(body);
  if (!read) return std::puts(read.error().Text()), 1;
  for (zt_registration& registration : ztxml::Each((*read)->getRegistrationListValue())) {
    for (zt_ns_reginfo_contact& contact : ztxml::Each(registration.getContactListValue())) {
      std::printf("%s %llu\n", std::string(ztxml::Text(contact.getUriValue())).c_str(),
                  static_cast<unsigned long long>(contact.expires().value_or(0)));
    }
  }
  zt_registration* added = read->Add(&zt_reginfo::addRegistration);
  const auto refused = read->Write();
  std::puts(refused ? "written" : refused.error().Text());
  if (added) {
    added->setAorValue("sip:joe@example.com");
    added->setIdValue("r2");
    added->setStateValue(ZT_REGISTRATION_STATE_INIT);
  }
  for (const auto& text : {read->Update(), read->Write()}) {
    if (!text) return std::puts(text.error().Text()), 1;
    std::printf("%zu bytes\n", text->size());
  }
  for (const ztxml::Options& options : {ztxml::ReadOnly(), ztxml::Exact()}) {
    const auto broken = ztxml::Read<zt_reginfo>("<reginfo></x>", options);
    std::puts(broken ? "read" : broken.error().Text());
  }
  return 0;
}
