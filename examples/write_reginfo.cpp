// Builds registration information (RFC 3680) with a GRUU (RFC 5628) and prints its XML.
#include <cstdio>

#include "ztxml/XMLFactory.h"
#include "ztxml/XMLReginfo.h"

namespace {

// Adds a new child to an existing parent. What a factory makes is the caller's until a parent takes
// it, so a child that is not taken is freed. Returns whether it was taken.
bool AddGruu(ReginfoDataBinder& factory, zt_ns_reginfo_contact& contact) {
  zt_pub_gruu* gruu = factory.CreatePubGruuElement();
  if (!gruu) return false;
  gruu->setUriValue("sip:ada@example.com;gr=urn:uuid:0c67446e-f1a1-11d9-94d3-000a95a0e128");
  if (contact.addAnyElement(gruu)) return true;
  XMLFactory::DeleteElement(gruu);
  return false;
}

bool AddContact(ReginfoDataBinder& factory, zt_registration& registration) {
  zt_ns_reginfo_contact* contact = factory.CreateContactElement();
  if (!contact) return false;
  contact->setIdValue("c1");
  contact->setStateValue(ZT_CONTACT_STATE_ACTIVE);
  contact->setEventValue(ZT_CONTACT_EVENT_REGISTERED);
  contact->setExpiresValue(3600);
  contact->setUriValue("sip:ada@192.0.2.20:5060");
  // Texts of elements are written unchanged: escape them as XML yourself.
  contact->setDisplayNameValue("Ada &amp; Co.");
  if (AddGruu(factory, *contact) && registration.addContact(contact)) return true;
  XMLFactory::DeleteElement(contact);
  return false;
}

bool AddRegistration(ReginfoDataBinder& factory, zt_reginfo& reginfo) {
  zt_registration* registration = factory.CreateRegistrationElement();
  if (!registration) return false;
  registration->setAorValue("sip:ada@example.com");
  registration->setIdValue("r1");
  registration->setStateValue(ZT_REGISTRATION_STATE_ACTIVE);
  if (AddContact(factory, *registration) && reginfo.addRegistration(registration)) return true;
  XMLFactory::DeleteElement(registration);
  return false;
}

// The whole tree, which is the caller's, or null.
zt_reginfo* BuildReginfo(XMLContext& context) {
  // The factory of a reginfo context is a ReginfoDataBinder, its root a zt_reginfo.
  auto* factory = static_cast<ReginfoDataBinder*>(context.createBinderFactory());
  if (!factory) return nullptr;
  auto* reginfo = static_cast<zt_reginfo*>(factory->CreateRootElement());
  if (!reginfo) return nullptr;
  reginfo->setVersionValue(0);
  reginfo->setStateValue(ZT_REGINFO_STATE_FULL);
  if (AddRegistration(*factory, *reginfo)) return reginfo;
  XMLFactory::DeleteElement(reginfo);
  return nullptr;
}

}  // namespace

int main() {
  XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_REGINFO);
  zt_reginfo* reginfo = context ? BuildReginfo(*context) : nullptr;
  XMLMarshaller* marshaller = reginfo ? context->createMarshaller() : nullptr;
  // Null when something required is missing; the text is the marshaller's.
  const char* text = marshaller ? marshaller->Marshall(reginfo) : nullptr;
  if (text) {
    std::printf("%s\n", text);
  } else {
    std::fprintf(stderr, "write_reginfo: the document cannot be written\n");
  }
  const int status = text ? 0 : 1;
  XMLFactory::DeleteElement(reginfo);
  XMLFactory::deleteContext(context);  // with its workers and the text
  return status;
}
