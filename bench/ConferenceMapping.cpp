#include "PugiSupport.h"

namespace mapping {

namespace {

namespace C = conference;

constexpr std::string_view kStates[] = {"full", "partial", "deleted"};
constexpr std::string_view kStatuses[] = {"pending",         "dialing-out",   "dialing-in",
                                          "alerting",        "on-hold",       "connected",
                                          "muted-via-focus", "disconnecting", "disconnected"};
constexpr std::string_view kJoinings[] = {"dialed-in", "dialed-out", "focus-owner"};
constexpr std::string_view kDisconnections[] = {"departed", "booted", "failed", "busy"};
constexpr std::string_view kDirections[] = {"recvonly", "sendonly", "sendrecv", "inactive"};

void Keep(C::Extensible* out, pugi::xml_attribute at) {
  out->others.emplace_back(at.name(), at.value());
}

void ReadAttributes(pugi::xml_node node, C::Extensible* out) {
  EachAttribute(node, [&](std::string_view, pugi::xml_attribute at) { Keep(out, at); });
}

// The attributes of a type that has "state" and `name` besides.
void ReadAttributes(pugi::xml_node node, C::Extensible* out, C::State* state,
                    std::string_view wanted = {}, Text* text = nullptr) {
  EachAttribute(node, [&](std::string_view name, pugi::xml_attribute at) {
    if (state && name == "state") {
      *state = Find<C::State>(kStates, at.value());
    } else if (text && name == wanted) {
      text->emplace(at.value());
    } else {
      Keep(out, at);
    }
  });
}

void ReadTruth(pugi::xml_node node, bool* out) {
  *out = std::strcmp(node.child_value(), "true") == 0;
}

void ReadWords(pugi::xml_node node, C::Words* out) {
  ReadAttributes(node, out);
  std::string_view rest = node.child_value();
  while (!rest.empty()) {
    const std::size_t end = rest.find(' ');
    out->words.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
}

void ReadExecution(pugi::xml_node node, C::Execution* out) {
  ReadAttributes(node, out);
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    if (name == "when") {
      out->when.emplace(child.child_value());
    } else if (name == "reason") {
      out->reason.emplace(child.child_value());
    } else if (name == "by") {
      out->by.emplace(child.child_value());
    }
  });
}

void ReadUris(pugi::xml_node node, C::Uris* out) {
  ReadAttributes(node, out, &out->state);
  EachChild(node, [&](std::string_view outer, pugi::xml_node entry) {
    if (outer != "entry") return;
    C::Uri& uri = out->entries.emplace_back();
    ReadAttributes(entry, &uri);
    EachChild(entry, [&](std::string_view name, pugi::xml_node child) {
      if (name == "uri") {
        uri.uri.emplace(child.child_value());
      } else if (name == "display-text") {
        uri.displayText.emplace(child.child_value());
      } else if (name == "purpose") {
        uri.purpose.emplace(child.child_value());
      } else if (name == "modified") {
        ReadExecution(child, &uri.modified.emplace());
      }
    });
  });
}

void ReadAvailableMedia(pugi::xml_node node, C::AvailableMedia* out) {
  ReadAttributes(node, out);
  EachChild(node, [&](std::string_view outer, pugi::xml_node entry) {
    if (outer != "entry") return;
    C::Medium& medium = out->entries.emplace_back();
    ReadAttributes(entry, &medium, nullptr, "label", &medium.label);
    EachChild(entry, [&](std::string_view name, pugi::xml_node child) {
      if (name == "display-text") {
        medium.displayText.emplace(child.child_value());
      } else if (name == "type") {
        medium.type.emplace(child.child_value());
      } else if (name == "status") {
        medium.status = Find<C::Direction>(kDirections, child.child_value());
      }
    });
  });
}

void ReadDescription(pugi::xml_node node, C::Description* out) {
  ReadAttributes(node, out);
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    if (name == "display-text") {
      out->displayText.emplace(child.child_value());
    } else if (name == "subject") {
      out->subject.emplace(child.child_value());
    } else if (name == "free-text") {
      out->freeText.emplace(child.child_value());
    } else if (name == "keywords") {
      ReadWords(child, &out->keywords.emplace());
    } else if (name == "conf-uris") {
      ReadUris(child, &out->confUris.emplace());
    } else if (name == "service-uris") {
      ReadUris(child, &out->serviceUris.emplace());
    } else if (name == "maximum-user-count") {
      Parse(child.child_value(), &out->maximumUserCount);
    } else if (name == "available-media") {
      ReadAvailableMedia(child, &out->availableMedia.emplace());
    }
  });
}

void ReadHost(pugi::xml_node node, C::Host* out) {
  ReadAttributes(node, out);
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    if (name == "display-text") {
      out->displayText.emplace(child.child_value());
    } else if (name == "web-page") {
      out->webPage.emplace(child.child_value());
    } else if (name == "uris") {
      ReadUris(child, &out->uris.emplace());
    }
  });
}

void ReadCondition(pugi::xml_node node, C::Condition* out) {
  ReadAttributes(node, out);
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    if (name == "user-count") {
      Parse(child.child_value(), &out->userCount);
    } else if (name == "active") {
      ReadTruth(child, &out->active);
    } else if (name == "locked") {
      ReadTruth(child, &out->locked);
    }
  });
}

void ReadMedia(pugi::xml_node node, C::Media* out) {
  ReadAttributes(node, out, nullptr, "id", &out->id);
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    switch (name.size()) {
      case 4:
        if (name == "type") out->type.emplace(child.child_value());
        break;
      case 5:
        if (name == "label") out->label.emplace(child.child_value());
        break;
      case 6:
        if (name == "src-id") {
          out->srcId.emplace(child.child_value());
        } else if (name == "status") {
          out->status = Find<C::Direction>(kDirections, child.child_value());
        }
        break;
      case 12:
        if (name == "display-text") out->displayText.emplace(child.child_value());
        break;
      default:
        break;
    }
  });
}

void ReadCall(pugi::xml_node node, C::Call* out) {
  ReadAttributes(node, out);
  EachChild(node, [&](std::string_view outer, pugi::xml_node dialog) {
    if (outer != "sip") return;
    C::Sip& sip = out->sip.emplace();
    ReadAttributes(dialog, &sip);
    EachChild(dialog, [&](std::string_view name, pugi::xml_node child) {
      if (name == "display-text") {
        sip.displayText.emplace(child.child_value());
      } else if (name == "call-id") {
        sip.callId.emplace(child.child_value());
      } else if (name == "from-tag") {
        sip.fromTag.emplace(child.child_value());
      } else if (name == "to-tag") {
        sip.toTag.emplace(child.child_value());
      }
    });
  });
}

void ReadEndpoint(pugi::xml_node node, C::Endpoint* out) {
  ReadAttributes(node, out, &out->state, "entity", &out->entity);
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    switch (name.size()) {
      case 5:
        if (name == "media") ReadMedia(child, &out->media.emplace_back());
        break;
      case 6:
        if (name == "status") out->status = Find<C::Status>(kStatuses, child.child_value());
        break;
      case 8:
        if (name == "referred") ReadExecution(child, &out->referred.emplace());
        break;
      case 9:
        if (name == "call-info") ReadCall(child, &out->callInfo.emplace());
        break;
      case 12:
        if (name == "display-text") {
          out->displayText.emplace(child.child_value());
        } else if (name == "joining-info") {
          ReadExecution(child, &out->joiningInfo.emplace());
        }
        break;
      case 14:
        if (name == "joining-method") {
          out->joiningMethod = Find<C::Joining>(kJoinings, child.child_value());
        }
        break;
      case 18:
        if (name == "disconnection-info") {
          ReadExecution(child, &out->disconnectionInfo.emplace());
        }
        break;
      case 20:
        if (name == "disconnection-method") {
          out->disconnectionMethod = Find<C::Disconnection>(kDisconnections, child.child_value());
        }
        break;
      default:
        break;
    }
  });
}

void ReadUser(pugi::xml_node node, C::User* out) {
  ReadAttributes(node, out, &out->state, "entity", &out->entity);
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    switch (name.size()) {
      case 5:
        if (name == "roles") {
          C::Roles& roles = out->roles.emplace();
          ReadAttributes(child, &roles);
          EachChild(child, [&](std::string_view inner, pugi::xml_node entry) {
            if (inner == "entry") roles.entries.emplace_back(entry.child_value());
          });
        }
        break;
      case 8:
        if (name == "endpoint") ReadEndpoint(child, &out->endpoints.emplace_back());
        break;
      case 9:
        if (name == "languages") ReadWords(child, &out->languages.emplace());
        break;
      case 12:
        if (name == "display-text") out->displayText.emplace(child.child_value());
        break;
      case 14:
        if (name == "cascaded-focus") out->cascadedFocus.emplace(child.child_value());
        break;
      case 15:
        if (name == "associated-aors") ReadUris(child, &out->associatedAors.emplace());
        break;
      default:
        break;
    }
  });
}

void ReadUsers(pugi::xml_node node, C::Users* out) {
  ReadAttributes(node, out, &out->state);
  out->users.reserve(ChildCount(node));
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    if (name == "user") ReadUser(child, &out->users.emplace_back());
  });
}

void ReadRoot(pugi::xml_node node, C::Root* out) {
  EachAttribute(node, [&](std::string_view name, pugi::xml_attribute at) {
    if (name == "state") {
      out->state = Find<C::State>(kStates, at.value());
    } else if (name == "version") {
      Parse(at.value(), &out->version);
    } else if (name == "entity") {
      out->entity.emplace(at.value());
    } else {
      Keep(out, at);
    }
  });
  EachChild(node, [&](std::string_view name, pugi::xml_node child) {
    if (name == "conference-description") {
      ReadDescription(child, &out->description.emplace());
    } else if (name == "host-info") {
      ReadHost(child, &out->host.emplace());
    } else if (name == "conference-state") {
      ReadCondition(child, &out->condition.emplace());
    } else if (name == "users") {
      ReadUsers(child, &out->users.emplace());
    } else if (name == "sidebars-by-ref") {
      ReadUris(child, &out->sidebarsByRef.emplace());
    } else if (name == "sidebars-by-val") {
      C::Sidebars& sidebars = out->sidebarsByVal.emplace();
      ReadAttributes(child, &sidebars, &sidebars.state);
      EachChild(child, [&](std::string_view inner, pugi::xml_node entry) {
        if (inner == "entry") ReadRoot(entry, &sidebars.entries.emplace_back());
      });
    }
  });
}

}  // namespace

bool Read(const std::string& text, std::string* buffer, Conference* out) {
  buffer->assign(text);
  pugi::xml_document document;
  if (!document.load_buffer_inplace(buffer->data(), buffer->size(), kParse, pugi::encoding_utf8)) {
    return false;
  }
  const pugi::xml_node root = document.document_element();
  if (Local(root.name()) != "conference-info") return false;
  ReadRoot(root, &out->root);
  return true;
}

// ---- Writing ------------------------------------------------------------------------------------

namespace {

pugi::xml_node Start(pugi::xml_node parent, const char* name, const C::Extensible& in) {
  pugi::xml_node node = parent.append_child(name);
  for (const auto& [other, value] : in.others) Put(node, other.c_str(), value.c_str());
  return node;
}

void BuildExecution(pugi::xml_node parent, const char* name,
                    const std::optional<C::Execution>& in) {
  if (!in) return;
  pugi::xml_node node = Start(parent, name, *in);
  PutElement(node, "when", in->when);
  PutElement(node, "reason", in->reason);
  PutElement(node, "by", in->by);
}

void BuildUris(pugi::xml_node parent, const char* name, const std::optional<C::Uris>& in) {
  if (!in) return;
  pugi::xml_node node = Start(parent, name, *in);
  Put(node, "state", kStates, in->state);
  for (const C::Uri& uri : in->entries) {
    pugi::xml_node entry = Start(node, "entry", uri);
    PutElement(entry, "uri", uri.uri);
    PutElement(entry, "display-text", uri.displayText);
    PutElement(entry, "purpose", uri.purpose);
    BuildExecution(entry, "modified", uri.modified);
  }
}

void BuildWords(pugi::xml_node parent, const char* name, const std::optional<C::Words>& in) {
  if (!in) return;
  std::string text;
  for (const std::string& word : in->words) {
    if (!text.empty()) text += ' ';
    text += word;
  }
  Start(parent, name, *in).append_child(pugi::node_pcdata).set_value(text.c_str());
}

void BuildNumber(pugi::xml_node parent, const char* name, unsigned number) {
  if (number != 0) PutElement(parent, name, std::to_string(number).c_str());
}

void BuildDescription(pugi::xml_node parent, const C::Description& in) {
  pugi::xml_node node = Start(parent, "conference-description", in);
  PutElement(node, "display-text", in.displayText);
  PutElement(node, "subject", in.subject);
  PutElement(node, "free-text", in.freeText);
  BuildWords(node, "keywords", in.keywords);
  BuildUris(node, "conf-uris", in.confUris);
  BuildUris(node, "service-uris", in.serviceUris);
  BuildNumber(node, "maximum-user-count", in.maximumUserCount);
  if (!in.availableMedia) return;
  pugi::xml_node media = Start(node, "available-media", *in.availableMedia);
  for (const C::Medium& medium : in.availableMedia->entries) {
    pugi::xml_node entry = Start(media, "entry", medium);
    Put(entry, "label", medium.label);
    PutElement(entry, "display-text", medium.displayText);
    PutElement(entry, "type", medium.type);
    PutElement(entry, "status", kDirections, medium.status);
  }
}

void BuildEndpoint(pugi::xml_node parent, const C::Endpoint& in) {
  pugi::xml_node node = Start(parent, "endpoint", in);
  Put(node, "state", kStates, in.state);
  Put(node, "entity", in.entity);
  PutElement(node, "display-text", in.displayText);
  BuildExecution(node, "referred", in.referred);
  PutElement(node, "status", kStatuses, in.status);
  PutElement(node, "joining-method", kJoinings, in.joiningMethod);
  BuildExecution(node, "joining-info", in.joiningInfo);
  PutElement(node, "disconnection-method", kDisconnections, in.disconnectionMethod);
  BuildExecution(node, "disconnection-info", in.disconnectionInfo);
  for (const C::Media& media : in.media) {
    pugi::xml_node inner = Start(node, "media", media);
    Put(inner, "id", media.id);
    PutElement(inner, "display-text", media.displayText);
    PutElement(inner, "type", media.type);
    PutElement(inner, "label", media.label);
    PutElement(inner, "src-id", media.srcId);
    PutElement(inner, "status", kDirections, media.status);
  }
  if (!in.callInfo) return;
  pugi::xml_node call = Start(node, "call-info", *in.callInfo);
  if (!in.callInfo->sip) return;
  const C::Sip& sip = *in.callInfo->sip;
  pugi::xml_node inner = Start(call, "sip", sip);
  PutElement(inner, "display-text", sip.displayText);
  PutElement(inner, "call-id", sip.callId);
  PutElement(inner, "from-tag", sip.fromTag);
  PutElement(inner, "to-tag", sip.toTag);
}

void BuildUser(pugi::xml_node parent, const C::User& in) {
  pugi::xml_node node = Start(parent, "user", in);
  Put(node, "state", kStates, in.state);
  Put(node, "entity", in.entity);
  PutElement(node, "display-text", in.displayText);
  BuildUris(node, "associated-aors", in.associatedAors);
  if (in.roles) {
    pugi::xml_node roles = Start(node, "roles", *in.roles);
    for (const std::string& role : in.roles->entries) PutElement(roles, "entry", role.c_str());
  }
  BuildWords(node, "languages", in.languages);
  PutElement(node, "cascaded-focus", in.cascadedFocus);
  for (const C::Endpoint& endpoint : in.endpoints) BuildEndpoint(node, endpoint);
}

void BuildRoot(pugi::xml_node node, const C::Root& in) {
  Put(node, "state", kStates, in.state);
  PutNumber(node, "version", in.version);
  Put(node, "entity", in.entity);
  if (in.description) BuildDescription(node, *in.description);
  if (in.host) {
    pugi::xml_node host = Start(node, "host-info", *in.host);
    PutElement(host, "display-text", in.host->displayText);
    PutElement(host, "web-page", in.host->webPage);
    BuildUris(host, "uris", in.host->uris);
  }
  if (in.condition) {
    pugi::xml_node condition = Start(node, "conference-state", *in.condition);
    BuildNumber(condition, "user-count", in.condition->userCount);
    PutElement(condition, "active", in.condition->active ? "true" : "false");
    PutElement(condition, "locked", in.condition->locked ? "true" : "false");
  }
  if (in.users) {
    pugi::xml_node users = Start(node, "users", *in.users);
    Put(users, "state", kStates, in.users->state);
    for (const C::User& user : in.users->users) BuildUser(users, user);
  }
  BuildUris(node, "sidebars-by-ref", in.sidebarsByRef);
  if (!in.sidebarsByVal) return;
  pugi::xml_node sidebars = Start(node, "sidebars-by-val", *in.sidebarsByVal);
  Put(sidebars, "state", kStates, in.sidebarsByVal->state);
  for (const C::Root& entry : in.sidebarsByVal->entries) {
    BuildRoot(Start(sidebars, "entry", entry), entry);
  }
}

}  // namespace

void Build(const Conference& in, pugi::xml_document* out) {
  Declare(out);
  pugi::xml_node root = Start(*out, "conference-info", in.root);
  if (!root.attribute("xmlns")) Put(root, "xmlns", "urn:ietf:params:xml:ns:conference-info");
  BuildRoot(root, in.root);
}

}  // namespace mapping
