// Builds the state of a conference of three users (RFC 4575) and prints it.
//
// Usage: build_conference
#include <iostream>

#include <ztxml/conference_info.h>

struct Member {
  const char* uri;
  const char* name;
  zt_endpoint_status_type_enum status;
};

constexpr Member kMembers[] = {
    {"sip:ada@example.com", "Ada", ZT_ENDPOINT_STATUS_CONNECTED},
    {"sip:grace@example.org", "Grace & Co.", ZT_ENDPOINT_STATUS_ON_HOLD},
    {"sip:linus@example.net", "Linus", ZT_ENDPOINT_STATUS_ALERTING},
};

int Fail(const char* why) {
  std::cerr << why << '\n';
  return 1;
}

int main() {
  auto conference = ztxml::Create<zt_conference_info>();
  if (!conference) return Fail(conference.error().Text());
  (*conference)->setEntityValue("sip:standup@conf.example.com");
  (*conference)->setStateValue(ZT_STATE_FULL);
  (*conference)->setVersionValue(1);
  zt_users_type* users = conference->Add(&zt_conference_info::setUsersValue);
  for (const Member& member : kMembers) {
    zt_user_type* user = ztxml::Add(users, &zt_users_type::addUser);
    zt_endpoint_type* endpoint = ztxml::Add(user, &zt_user_type::addEndpoint);
    if (!endpoint) return Fail("no memory");
    user->setEntityValue(member.uri);
    user->setDisplayTextValue(member.name);
    endpoint->setEntityValue(member.uri);
    endpoint->setStatusValue(member.status);
    const bool isWhole = user->getEntityValue() && user->getDisplayTextValue();
    if (!isWhole) return Fail("no memory");
  }
  const auto text = conference->Write();
  if (!text) return Fail(text.error().Text());
  std::cout << *text << '\n';
}
