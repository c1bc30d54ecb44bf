#include "PugiSupport.h"

namespace mapping {

namespace {

constexpr std::string_view kStates[] = {"full", "partial"};
constexpr std::string_view kRegistrationStates[] = {"init", "active", "terminated"};
constexpr std::string_view kContactStates[] = {"active", "terminated"};
constexpr std::string_view kEvents[] = {"registered", "created",      "refreshed",
                                        "shortened",  "expired",      "deactivated",
                                        "probation",  "unregistered", "rejected"};

void ReadContactAttribute(std::string_view name, const char* value, Reginfo::Contact* out) {
  switch (name.size()) {
    case 1:
      if (name == "q") out->q.emplace(value);
      break;
    case 2:
      if (name == "id") out->id.emplace(value);
      break;
    case 4:
      if (name == "cseq") Parse(value, &out->cseq);
      break;
    case 5:
      if (name == "state") {
        out->state = Find<Reginfo::ContactState>(kContactStates, value);
      } else if (name == "event") {
        out->event = Find<Reginfo::Event>(kEvents, value);
      }
      break;
    case 6:
      if (name == "callid") out->callid.emplace(value);
      break;
    case 7:
      if (name == "expires") Parse(value, &out->expires);
      break;
    case 11:
      if (name == "retry-after") Parse(value, &out->retryAfter);
      break;
    case 19:
      if (name == "duration-registered") Parse(value, &out->durationRegistered);
      break;
    default:
      break;
  }
}

void ReadUnknownParam(pugi::xml_node node, Reginfo::UnknownParam* out) {
  EachAttribute(node, [&](std::string_view name, pugi::xml_attribute at) {
    if (name == "name") out->name.emplace(at.value());
  });
  out->value.emplace(node.child_value());
}

void ReadGruu(pugi::xml_node node, bool temporary, Reginfo::Gruu* out) {
  out->temporary = temporary;
  EachAttribute(node, [&](std::string_view name, pugi::xml_attribute at) {
    if (name == "uri") {
      out->uri.emplace(at.value());
    } else if (name == "first-cseq") {
      Parse(at.value(), &out->firstCseq);
    }
  });
}

void ReadContact(pugi::xml_node node, Reginfo::Contact* out) {
  EachAttribute(node, [&](std::string_view name, pugi::xml_attribute at) {
    ReadContactAttribute(name, at.value(), out);
  });
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    switch (name.size()) {
      case 3:
        if (name == "uri") out->uri.emplace(child.child_value());
        break;
      case 8:
        if (name == "pub-gruu") ReadGruu(child, false, &out->gruus.emplace_back());
        break;
      case 9:
        if (name == "temp-gruu") ReadGruu(child, true, &out->gruus.emplace_back());
        break;
      case 12:
        if (name == "display-name") out->displayName.emplace(child.child_value());
        break;
      case 13:
        if (name == "unknown-param") ReadUnknownParam(child, &out->unknownParams.emplace_back());
        break;
      default:
        break;
    }
  });
}

void ReadRegistration(pugi::xml_node node, Reginfo::Registration* out) {
  EachAttribute(node, [&](std::string_view name, pugi::xml_attribute at) {
    if (name == "aor") {
      out->aor.emplace(at.value());
    } else if (name == "id") {
      out->id.emplace(at.value());
    } else if (name == "state") {
      out->state = Find<Reginfo::RegistrationState>(kRegistrationStates, at.value());
    }
  });
  out->contacts.reserve(ChildCount(node));
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    if (name == "contact") ReadContact(child, &out->contacts.emplace_back());
  });
}

}  // namespace

bool Read(const std::string& text, std::string* buffer, Reginfo* out) {
  buffer->assign(text);
  pugi::xml_document document;
  if (!document.load_buffer_inplace(buffer->data(), buffer->size(), kParse, pugi::encoding_utf8)) {
    return false;
  }
  const pugi::xml_node root = document.document_element();
  if (Local(root.name()) != "reginfo") return false;
  EachAttribute(root, [&](std::string_view name, pugi::xml_attribute at) {
    if (name == "version") {
      Parse(at.value(), &out->version);
    } else if (name == "state") {
      out->state = Find<Reginfo::State>(kStates, at.value());
    }
  });
  out->registrations.reserve(ChildCount(root));
  EachChild(root, [&](std::string_view name, pugi::xml_node child) {
    if (name == "registration") ReadRegistration(child, &out->registrations.emplace_back());
  });
  return true;
}

void Build(const Reginfo& in, pugi::xml_document* out) {
  Declare(out);
  pugi::xml_node root = out->append_child("reginfo");
  Put(root, "xmlns", "urn:ietf:params:xml:ns:reginfo");
  Put(root, "xmlns:gr", "urn:ietf:params:xml:ns:gruuinfo");
  Put(root, "version", in.version);
  Put(root, "state", kStates, in.state);
  for (const Reginfo::Registration& registration : in.registrations) {
    pugi::xml_node node = root.append_child("registration");
    Put(node, "aor", registration.aor);
    Put(node, "id", registration.id);
    Put(node, "state", kRegistrationStates, registration.state);
    for (const Reginfo::Contact& contact : registration.contacts) {
      pugi::xml_node inner = node.append_child("contact");
      Put(inner, "state", kContactStates, contact.state);
      Put(inner, "event", kEvents, contact.event);
      PutNumber(inner, "duration-registered", contact.durationRegistered);
      PutNumber(inner, "expires", contact.expires);
      PutNumber(inner, "retry-after", contact.retryAfter);
      Put(inner, "q", contact.q);
      Put(inner, "callid", contact.callid);
      PutNumber(inner, "cseq", contact.cseq);
      Put(inner, "id", contact.id);
      PutElement(inner, "uri", contact.uri);
      PutElement(inner, "display-name", contact.displayName);
      for (const Reginfo::UnknownParam& param : contact.unknownParams) {
        pugi::xml_node element = inner.append_child("unknown-param");
        Put(element, "name", param.name);
        if (param.value) element.append_child(pugi::node_pcdata).set_value(param.value->c_str());
      }
      for (const Reginfo::Gruu& gruu : contact.gruus) {
        pugi::xml_node element =
            inner.append_child(gruu.temporary ? "gr:temp-gruu" : "gr:pub-gruu");
        Put(element, "uri", gruu.uri);
        if (gruu.temporary) Put(element, "first-cseq", gruu.firstCseq);
      }
    }
  }
}

}  // namespace mapping
