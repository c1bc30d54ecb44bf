#include "PugiMapping.h"

namespace mapping {

namespace {

void Count(bench::TreeCounts* counts, const std::string& text) {
  ++counts->texts;
  counts->bytes += text.size();
}
void Count(bench::TreeCounts* counts, std::initializer_list<const Text*> texts) {
  for (const Text* text : texts) {
    if (*text) Count(counts, **text);
  }
}

}  // namespace

// ---- Registration information -------------------------------------------------------------------

bench::TreeCounts CountsOf(const Reginfo& in) {
  bench::TreeCounts counts;
  counts.objects = 1 + in.registrations.size();
  for (const Reginfo::Registration& registration : in.registrations) {
    Count(&counts, {&registration.aor, &registration.id});
    for (const Reginfo::Contact& contact : registration.contacts) {
      ++counts.pieces;
      counts.objects += 1 + contact.unknownParams.size() + contact.gruus.size();
      Count(&counts,
            {&contact.id, &contact.uri, &contact.displayName, &contact.q, &contact.callid});
      for (const Reginfo::UnknownParam& param : contact.unknownParams) {
        Count(&counts, {&param.name, &param.value});
      }
      for (const Reginfo::Gruu& gruu : contact.gruus) Count(&counts, {&gruu.uri});
    }
  }
  return counts;
}

// ---- Conference information ---------------------------------------------------------------------

namespace {

namespace C = conference;

class Counter {
 public:
  bench::TreeCounts counts;

  void Root(const C::Root& in) {
    Object(in);
    Count(&counts, {&in.entity});
    if (in.description) Description(*in.description);
    if (in.host) {
      Object(*in.host);
      Count(&counts, {&in.host->displayText, &in.host->webPage});
      Uris(in.host->uris);
    }
    if (in.condition) Object(*in.condition);
    if (in.users) {
      Object(*in.users);
      for (const C::User& user : in.users->users) User(user);
    }
    Uris(in.sidebarsByRef);
    if (!in.sidebarsByVal) return;
    Object(*in.sidebarsByVal);
    for (const C::Root& entry : in.sidebarsByVal->entries) Root(entry);
  }

 private:
  void Object(const C::Extensible& in) {
    counts.objects += 1 + in.others.size();
    for (const auto& [name, value] : in.others) {
      Count(&counts, name);
      Count(&counts, value);
    }
  }
  void Texts(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) Count(&counts, text);
  }
  void Execution(const std::optional<C::Execution>& in) {
    if (!in) return;
    Object(*in);
    Count(&counts, {&in->when, &in->reason, &in->by});
  }
  void Uris(const std::optional<C::Uris>& in) {
    if (!in) return;
    Object(*in);
    for (const C::Uri& uri : in->entries) {
      Object(uri);
      Count(&counts, {&uri.uri, &uri.displayText, &uri.purpose});
      Execution(uri.modified);
    }
  }
  void Words(const std::optional<C::Words>& in) {
    if (!in) return;
    Object(*in);
    Texts(in->words);
  }
  void Description(const C::Description& in) {
    Object(in);
    Count(&counts, {&in.displayText, &in.subject, &in.freeText});
    Words(in.keywords);
    Uris(in.confUris);
    Uris(in.serviceUris);
    if (!in.availableMedia) return;
    Object(*in.availableMedia);
    for (const C::Medium& medium : in.availableMedia->entries) {
      Object(medium);
      Count(&counts, {&medium.label, &medium.displayText, &medium.type});
    }
  }
  void User(const C::User& in) {
    Object(in);
    ++counts.pieces;
    Count(&counts, {&in.entity, &in.displayText, &in.cascadedFocus});
    Uris(in.associatedAors);
    if (in.roles) {
      Object(*in.roles);
      Texts(in.roles->entries);
    }
    Words(in.languages);
    for (const C::Endpoint& endpoint : in.endpoints) Endpoint(endpoint);
  }
  void Endpoint(const C::Endpoint& in) {
    Object(in);
    Count(&counts, {&in.entity, &in.displayText});
    Execution(in.referred);
    Execution(in.joiningInfo);
    Execution(in.disconnectionInfo);
    for (const C::Media& media : in.media) {
      Object(media);
      Count(&counts, {&media.id, &media.displayText, &media.type, &media.label, &media.srcId});
    }
    if (!in.callInfo) return;
    Object(*in.callInfo);
    if (!in.callInfo->sip) return;
    const C::Sip& sip = *in.callInfo->sip;
    Object(sip);
    Count(&counts, {&sip.displayText, &sip.callId, &sip.fromTag, &sip.toTag});
  }
};

}  // namespace

bench::TreeCounts CountsOf(const Conference& in) {
  Counter counter;
  counter.Root(in.root);
  return counter.counts;
}

}  // namespace mapping
