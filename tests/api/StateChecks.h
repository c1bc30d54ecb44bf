// A conference that changes at random, told in full and partial notifications of which some are
// lost or come again: whoever merges them knows the conference, or knows that it does not.
#ifndef ZTXML_TESTS_API_STATECHECKS_H
#define ZTXML_TESTS_API_STATECHECKS_H

#include <map>
#include <string>

#include "Require.h"
#include "TreeScript.h"
#include "ztxml/state.h"

class ModelConference {
 public:
  /// Changes something, and returns the partial notification that tells it.
  std::string Change(Choices& choices) {
    ++m_iVersion;
    std::string told;
    const std::string name = "u" + std::to_string(choices.Below(5));
    switch (choices.Below(8)) {
      case 0:
        m_Users.erase(name);
        return Partial("<user entity='" + name + "' state='deleted'><ignored/></user>");
      case 1:
        m_Users[name] = User();
        m_Users[name].text = Word(choices);
        return Partial(Told(name, m_Users[name], "full"));
      case 2:
        m_Subject = Word(choices);
        return Whole("partial", Description());
      case 3: {
        m_Users.clear();
        if (choices.OneIn(2)) return Whole("partial", "<users state='deleted'/>");
        m_Users[name].text = Word(choices);
        return Whole("partial", Users());
      }
      default:
        break;
    }
    // A part of a user, who may be new.
    User& user = m_Users[name];
    if (choices.OneIn(2)) {
      user.text = Word(choices);
      told += "<display-text>" + user.text + "</display-text>";
    }
    const std::string at = "e" + std::to_string(choices.Below(3));
    if (choices.OneIn(4)) {
      user.endpoints.erase(at);
      told += "<endpoint entity='" + at + "' state='deleted'/>";
    } else {
      Endpoint& endpoint = user.endpoints[at];
      std::string part;
      if (choices.OneIn(2)) {
        endpoint.status = choices.OneIn(2) ? "connected" : "on-hold";
        part += "<status>" + endpoint.status + "</status>";
      }
      const std::string id = std::to_string(choices.Below(3));
      endpoint.media[id] = Word(choices);
      part += Medium(id, endpoint.media[id]);
      told += "<endpoint state='partial' entity='" + at + "'>" + part + "</endpoint>";
    }
    return Partial("<user state='partial' entity='" + name + "'>" + told + "</user>");
  }
  std::string Full() const {
    return Whole("full", Description() + (m_Users.empty() ? "" : Users()));
  }

 private:
  struct Endpoint {
    std::string status;
    std::map<std::string, std::string> media;
  };
  struct User {
    std::string text;
    std::map<std::string, Endpoint> endpoints;
  };

  static std::string Word(Choices& choices) { return std::string(1 + choices.Below(3), 'w'); }
  static std::string Medium(const std::string& id, const std::string& label) {
    return "<media id='" + id + "'><label>" + label + "</label></media>";
  }
  static std::string Told(const std::string& name, const User& user, const char* state) {
    std::string told = "<user entity='" + name + "' state='" + state + "'>";
    if (!user.text.empty()) told += "<display-text>" + user.text + "</display-text>";
    for (const auto& [at, endpoint] : user.endpoints) {
      told += "<endpoint entity='" + at + "'>";
      if (!endpoint.status.empty()) told += "<status>" + endpoint.status + "</status>";
      for (const auto& [id, label] : endpoint.media) told += Medium(id, label);
      told += "</endpoint>";
    }
    return told + "</user>";
  }
  std::string Description() const {
    return m_Subject.empty() ? ""
                             : "<conference-description><subject>" + m_Subject +
                                   "</subject></conference-description>";
  }
  std::string Users() const {
    std::string told = "<users>";
    for (const auto& [name, user] : m_Users) told += Told(name, user, "full");
    return told + "</users>";
  }
  std::string Partial(const std::string& user) const {
    return Whole("partial", "<users state='partial'>" + user + "</users>");
  }
  std::string Whole(const char* state, const std::string& content) const {
    return "<conference-info xmlns='urn:ietf:params:xml:ns:conference-info' entity='sip:c' "
           "state='" +
           std::string(state) + "' version='" + std::to_string(m_iVersion) + "'>" + content +
           "</conference-info>";
  }

  unsigned m_iVersion = 0;
  std::string m_Subject;
  std::map<std::string, User> m_Users;
};

/// What a conference is, in one order: who came first is not told again.
inline std::string Known(const zt_conference_type& conference) {
  std::map<std::string, std::string> users;
  const zt_users_type* list = conference.getUsersValue();
  for (zt_user_type& user : ztxml::Each(list ? list->getUserListValue() : nullptr)) {
    std::map<std::string, std::string> endpoints;
    for (zt_endpoint_type& endpoint : ztxml::Each(user.getEndpointListValue())) {
      std::map<std::string, std::string> media;
      for (zt_media_type& medium : ztxml::Each(endpoint.getMediaListValue())) {
        media[medium.getIdValue()] = ztxml::Text(medium.getLabelValue());
      }
      std::string& told = endpoints[endpoint.getEntityValue()];
      told = std::to_string(endpoint.getStatusValue());
      for (const auto& [id, label] : media) told += ' ' + id + '=' + label;
    }
    std::string& told = users[user.getEntityValue()];
    told = ztxml::Text(user.getDisplayTextValue());
    for (const auto& [at, endpoint] : endpoints) told += '\n' + at + ": " + endpoint;
  }
  const auto* description = conference.getConferenceDescriptionValue();
  std::string known(description ? ztxml::Text(description->getSubjectValue()) : "");
  for (const auto& [name, user] : users) known += "\n\n" + name + ": " + user;
  return known;
}

/// Follows a conference as the bytes of `choices` have it; whenever the state says that it is
/// complete, it is the conference.
inline void CheckState(Choices& choices) {
  using Outcome = ztxml::Merged::Outcome;
  ModelConference model;
  ztxml::State<zt_conference_type> state;
  std::string last = model.Full();
  bool isLost = false;
  while (choices.AreLeft()) {
    std::string body = last;  // the one before, again
    switch (choices.Below(6)) {
      case 0:
        break;
      case 1:
        last = model.Change(choices);
        isLost = true;
        continue;
      case 2:
        model.Change(choices);
        body = last = model.Full();
        isLost = false;
        break;
      default:
        body = last = model.Change(choices);
    }
    const auto merged = state.Apply(body);
    Require(static_cast<bool>(merged), "a notification is merged", body);
    const bool isFull = body.find(" state='full' version") != std::string::npos;
    if (isFull) isLost = false;
    Require(merged->isApplied == (merged->outcome == Outcome::kApplied), "only that is part of it");
    if (merged->outcome == Outcome::kRefresh) {
      Require(isLost || !state, "nothing is missing", body);
      body = model.Full();  // as a server answers, with a version of its own
      last = body;
      if (!state || state.Apply(body)->isApplied) isLost = false;
      continue;
    }
    if (isLost || !state) continue;
    const auto whole = ztxml::Read<zt_conference_type>(model.Full());
    Require(Known(*state) == Known(**whole), "the state is the conference",
            Known(*state) + "\nis not\n" + Known(**whole) + "\nafter " + body);
    const auto text = state.Write();
    Require(text && ztxml::Read<zt_conference_type>(*text), "it can be written", body);
  }
}

#endif  // ZTXML_TESTS_API_STATECHECKS_H
