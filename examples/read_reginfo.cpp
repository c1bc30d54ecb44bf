// Reads a registration-information file (RFC 3680) and prints what it says.
// Usage: read_reginfo FILE
#include <cstdio>

#include "ztxml/XMLFactory.h"
#include "ztxml/XMLFile.h"
#include "ztxml/XMLReginfo.h"

namespace {

// Optional texts are null when the document does not have them.
const char* OrNone(const char* text) { return text ? text : "(none)"; }

// A value beyond the named ones means that the document's value was absent or unknown.
const char* NameOf(zt_reginfo_state_type_enum state) {
  switch (state) {
    case ZT_REGINFO_STATE_FULL:
      return "full";
    case ZT_REGINFO_STATE_PARTIAL:
      return "partial";
    default:
      return "unknown";
  }
}

const char* NameOf(zt_registration_state_type_enum state) {
  switch (state) {
    case ZT_REGISTRATION_STATE_INIT:
      return "init";
    case ZT_REGISTRATION_STATE_ACTIVE:
      return "active";
    case ZT_REGISTRATION_STATE_TERMINATED:
      return "terminated";
    default:
      return "unknown";
  }
}

const char* NameOf(zt_contact_state_type_enum state) {
  switch (state) {
    case ZT_CONTACT_STATE_ACTIVE:
      return "active";
    case ZT_CONTACT_STATE_TERMINATED:
      return "terminated";
    default:
      return "unknown";
  }
}

// A list of other elements holds several types: ZtAs gives null for an element of another type.
void PrintGruu(XMLElement& element) {
  if (const auto* gruu = ZtAs<zt_pub_gruu>(&element)) {
    std::printf("    public GRUU %s\n", OrNone(gruu->getUriValue()));
  } else if (const auto* temporary = ZtAs<zt_temp_gruu>(&element)) {
    std::printf("    temporary GRUU %s since CSeq %u\n", OrNone(temporary->getUriValue()),
                temporary->getFirstCseqValue());
  }
}

void PrintContact(const zt_ns_reginfo_contact& contact) {
  std::printf("  contact %s: %s, %s\n", OrNone(contact.getIdValue()),
              NameOf(contact.getStateValue()), OrNone(contact.getUriValue()));
  if (contact.getDisplayNameValue()) std::printf("    name %s\n", contact.getDisplayNameValue());
  // Numbers are 0 when they are absent.
  if (contact.getExpiresValue()) std::printf("    expires in %llu s\n", contact.getExpiresValue());

  // A list is null when the document has no such elements; ZtEach takes null for an empty list.
  for (const zt_unknown_param& param : ZtEach(contact.getUnknownParamListValue())) {
    std::printf("    parameter %s = %s\n", OrNone(param.getNameValue()),
                OrNone(param.getValueValue()));
  }
  for (XMLElement& element : ZtEach(contact.getAnyElementValue())) PrintGruu(element);
}

void PrintReginfo(const zt_reginfo& reginfo) {
  std::printf("registration information, version %u, %s\n", reginfo.getVersionValue(),
              NameOf(reginfo.getStateValue()));
  for (const zt_registration& registration : ZtEach(reginfo.getRegistrationListValue())) {
    std::printf("%s: %s\n", OrNone(registration.getAorValue()),
                NameOf(registration.getStateValue()));
    for (const zt_ns_reginfo_contact& contact : ZtEach(registration.getContactListValue())) {
      PrintContact(contact);
    }
  }
}

// The tree of the document in `path`, which is the caller's, or null.
XMLElement* ReadReginfo(XMLContext& context, const char* path) {
  XMLUnMarshaller* unMarshaller = context.createUnMarshaller();  // the context's
  if (!unMarshaller) return nullptr;
  XMLFile file(path, XML_FILE_READ);
  XMLElement* root = unMarshaller->UnMarshall(&file);
  file.CloseFile();  // UnMarshall leaves it open
  return root;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: read_reginfo FILE\n");
    return 2;
  }
  XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_REGINFO);
  if (!context) {
    std::fprintf(stderr, "read_reginfo: out of memory\n");
    return 1;
  }
  XMLElement* root = ReadReginfo(*context, argv[1]);
  if (root) {
    // The root that a context reads is always of the schema's root type.
    PrintReginfo(*static_cast<zt_reginfo*>(root));
  } else {
    std::fprintf(stderr, "read_reginfo: %s is no registration information\n", argv[1]);
  }
  const int status = root ? 0 : 1;
  XMLFactory::DeleteElement(root);     // with everything below it
  XMLFactory::deleteContext(context);  // with the unmarshaller
  return status;
}
