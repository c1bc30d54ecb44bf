// Notifications that are merged.
#include "Golden.h"
#include "StateChecks.h"
#include "ztxml/state.h"

namespace {

using ztxml::Merged;

std::string Conference(const std::string& version, const std::string& state,
                       const std::string& content) {
  return "<conference-info xmlns='urn:ietf:params:xml:ns:conference-info' entity='sip:c' state='" +
         state + "' version='" + version + "'>" + content + "</conference-info>";
}
std::string Reginfo(const std::string& version, const std::string& state,
                    const std::string& content) {
  return "<reginfo xmlns='urn:ietf:params:xml:ns:reginfo' version='" + version + "' state='" +
         state + "'>" + content + "</reginfo>";
}
std::string Registration(const std::string& id, const std::string& state,
                         const std::string& contacts) {
  return "<registration aor='sip:a' id='" + id + "' state='" + state + "'>" + contacts +
         "</registration>";
}
std::string Contact(const std::string& id, const std::string& state, const std::string& uri) {
  return "<contact id='" + id + "' state='" + state + "' event='created'><uri>" + uri +
         "</uri></contact>";
}
std::string List(const std::string& version, const std::string& full, const std::string& content) {
  return "<list xmlns='urn:ietf:params:xml:ns:rlmi' uri='sip:l' version='" + version +
         "' fullState='" + full + "'>" + content + "</list>";
}

// What became of a notification: "applied", "ignored: why", "refresh: why", with the changes.
template <class T>
std::string Told(ztxml::State<T>& state, const std::string& body) {
  const auto merged = state.Apply(body);
  if (!merged) return merged.error().Text();
  const char* const kOutcomes[] = {"applied", "ignored", "refresh"};
  std::string told = kOutcomes[static_cast<int>(merged->outcome)];
  if (merged->reason != Merged::Reason::kNone) told += std::string(": ") + NameOf(merged->reason);
  if (merged->outcome == Merged::Outcome::kRefresh && merged->isApplied) told += ", applied";
  for (const ztxml::Change& change : state.Changes()) {
    told += std::string("\n") + "+*-"[static_cast<int>(change.kind)] + change.path;
    EXPECT_TRUE(change.object && change.object->ClassName());
  }
  return told;
}

// The state without its declaration, in one line.
template <class T>
std::string Written(const ztxml::State<T>& state) {
  std::string text = *state.Write();
  text.erase(0, text.find("?>") + 3);
  for (std::size_t at; (at = text.find('\n')) != std::string::npos;) text.erase(at, 1);
  return text;
}

TEST(State, ConferencesAreMergedByStatesAndKeys) {
  ztxml::State<zt_conference_type> state;
  EXPECT_FALSE(state);
  EXPECT_EQ(Told(state, Conference("1", "partial", "")),
            "refresh: it is partial, and there was no full one");
  EXPECT_EQ(
      Told(state, Conference("4", "full",
                             "<conference-description><subject>s</subject><free-text>f</free-text>"
                             "</conference-description><conference-state><user-count>0</user-count>"
                             "<active>true</active></conference-state><users><user entity='a'>"
                             "<display-text>A</display-text><cascaded-focus>x</cascaded-focus>"
                             "<endpoint entity='1'><status>connected</status><media id='m'>"
                             "<type>audio</type></media></endpoint></user><user entity='b'/>"
                             "<user entity='c'/></users>")),
      "applied\n+/conference-info/conference-description\n+/conference-info/conference-state\n"
      "+/conference-info/users/user[a]\n+/conference-info/users/user[b]\n"
      "+/conference-info/users/user[c]");
  // An atomic element is replaced as a whole; what is absent stays; 0 and false are told.
  EXPECT_EQ(
      Told(state, Conference("5", "partial",
                             "<conference-description><subject>t</subject></conference-description>"
                             "<users state='partial'><user entity='a' state='partial'>"
                             "<display-text>AA</display-text><endpoint entity='1' state='partial'>"
                             "<media id='m'><label>l</label></media><media id='n'/></endpoint>"
                             "</user><user entity='b' state='deleted'/>"
                             "<user entity='d' state='partial'><endpoint entity='2' "
                             "state='deleted'/></user></users>")),
      "applied\n*/conference-info/conference-description\n"
      "*/conference-info/users/user[a]/endpoint[1]/media[m]\n"
      "+/conference-info/users/user[a]/endpoint[1]/media[n]\n*/conference-info/users/user[a]\n"
      "-/conference-info/users/user[b]\n+/conference-info/users/user[d]");
  EXPECT_SAME(
      Written(state),
      "<conference-info xmlns=\"urn:ietf:params:xml:ns:conference-info\" state=\"full\" "
      "version=\"5\" entity=\"sip:c\"><conference-description><subject>t</subject>"
      "</conference-description><conference-state><user-count>0</user-count><active>true</active>"
      "</conference-state><users><user entity=\"a\"><display-text>AA</display-text>"
      "<cascaded-focus>x</cascaded-focus><endpoint entity=\"1\"><status>connected</status>"
      "<media id=\"m\"><label>l</label></media><media id=\"n\"/></endpoint></user>"
      "<user entity=\"c\"/><user entity=\"d\"/></users></conference-info>");
  // Entries go and come at each end of their list, and twice in one notification.
  EXPECT_EQ(Told(state, Conference("6", "partial",
                                   "<conference-state><active>false</active></conference-state>"
                                   "<users state='partial'><user entity='a' state='deleted'/>"
                                   "<user entity='d' state='deleted'/><user entity='e'/>"
                                   "<user entity='e'><display-text>E</display-text></user>"
                                   "<user entity='a'/></users>")),
            "applied\n*/conference-info/conference-state\n-/conference-info/users/user[a]\n"
            "-/conference-info/users/user[d]\n+/conference-info/users/user[e]\n"
            "+/conference-info/users/user[e]");
  EXPECT_NE(Written(state).find("<conference-state><active>false</active></conference-state><users>"
                                "<user entity=\"c\"/><user entity=\"e\"><display-text>E"
                                "</display-text></user><user entity=\"a\"/></users>"),
            std::string::npos)
      << Written(state);
  EXPECT_EQ(Told(state, Conference("7", "partial", "<users state='deleted'/>")),
            "applied\n-/conference-info/users/user[c]\n-/conference-info/users/user[e]\n"
            "-/conference-info/users/user[a]");
  EXPECT_EQ(Told(state, Conference("8", "partial",
                                   "<users state='partial'><user entity='z'/></users>"
                                   "<sidebars-by-val state='partial'><entry entity='s' "
                                   "state='partial'><users><user entity='y'/></users></entry>"
                                   "</sidebars-by-val><sidebars-by-ref><entry><uri>u</uri></entry>"
                                   "</sidebars-by-ref>")),
            "applied\n+/conference-info/users/user[z]\n"
            "+/conference-info/sidebars-by-ref/entry[u]\n"
            "+/conference-info/sidebars-by-val/entry[s]");
  EXPECT_EQ(Told(state, Conference("9", "deleted", "")).substr(0, 46),
            "refresh: what it tells of is no more, applied\n");
  EXPECT_EQ(Told(state, Conference("10", "partial", "")), "refresh: what it tells of is no more");
}

TEST(State, AnElementThatTellsNothingChangesNothing) {
  ztxml::State<zt_conference_type> state;
  const std::string users = "<users state='partial'>";
  Told(state, Conference("1", "full", "<users><user entity='a'/></users>"));
  EXPECT_EQ(Told(state, Conference("2", "partial", users + "</users>")), "applied");
  EXPECT_EQ(
      Told(state, Conference("3", "partial", users + "<user entity='a' state='deleted'/></users>")),
      "applied\n-/conference-info/users/user[a]");
  EXPECT_EQ(
      Told(state, Conference("4", "partial", users + "<user entity='a' state='partial'/></users>")),
      "applied\n+/conference-info/users/user[a]");
  EXPECT_EQ(
      Told(state, Conference("5", "partial", users + "<user entity='a' state='partial'/></users>")),
      "applied");
}

// Keys are to be unique: the first of several is the one that is found.
TEST(State, EntriesWithTheKeyOfAnotherStay) {
  ztxml::State<zt_conference_type> state;
  const std::string users = "<users state='partial'>";
  Told(state, Conference("1", "full",
                         "<users><user entity='a'/><user/><user entity='a'/><user/></users>"));
  EXPECT_EQ(Told(state, Conference("2", "partial",
                                   users + "<user entity='a' state='deleted'/><user "
                                           "state='deleted'/></users>")),
            "applied\n-/conference-info/users/user[a]\n-/conference-info/users/user[]");
  EXPECT_NE(Written(state).find("<users><user entity=\"a\"/><user/></users>"), std::string::npos)
      << Written(state);
}

// What a peer tells of something that it tells to be deleted is nothing; what is told again, too.
TEST(State, WhatIsDeletedHasNothingInIt) {
  ztxml::State<zt_conference_type> state;
  const std::string gone = "<users state='deleted'><user entity='x'/></users>";
  const std::string host = "<host-info><uris><entry><uri>u</uri></entry></uris></host-info>";
  EXPECT_EQ(Told(state, Conference("1", "full", gone + host)),
            "applied\n+/conference-info/host-info");
  EXPECT_EQ(Written(state).find("users"), std::string::npos) << Written(state);
  EXPECT_EQ(Told(state, Conference("2", "full", gone + host)), "applied");
  EXPECT_EQ(Told(state, Conference("3", "partial", host)), "applied");
  EXPECT_EQ(Told(state, Conference("4", "deleted", "<users><user entity='x'/></users>")),
            "refresh: what it tells of is no more, applied\n-/conference-info/host-info");
  EXPECT_EQ(Written(state).find("users"), std::string::npos) << Written(state);
}

// RFC 3680, section 5.3 and 5.2.
TEST(State, RegistrationsAreTablesOfContacts) {
  ztxml::State<zt_reginfo> state;
  EXPECT_EQ(Told(state, Reginfo("0", "full",
                                Registration("as9", "active",
                                             Contact("76", "active", "sip:user@pc887.example.com") +
                                                 Contact("77", "terminated", "sip:u@uni.edu")))),
            "applied\n+/reginfo/registration[as9]");
  EXPECT_EQ(
      Told(state, Reginfo("1", "partial",
                          Registration("as9", "active",
                                       Contact("76", "terminated", "sip:user@pc887.example.com") +
                                           Contact("78", "active", "sip:new")) +
                              Registration("as10", "init", ""))),
      "applied\n*/reginfo/registration[as9]/contact[76]\n+/reginfo/registration[as9]/contact[78]\n"
      "+/reginfo/registration[as10]");
  ASSERT_TRUE(state);
  std::string ids;
  for (auto& registration : ztxml::Each(state->getRegistrationListValue())) {
    ids += registration.getIdValue();
    for (auto& contact : ztxml::Each(registration.getContactListValue())) {
      ids += std::string(" ") + contact.getIdValue() + "=" + contact.getUriValue();
    }
    ids += ';';
  }
  EXPECT_EQ(ids, "as9 76=sip:user@pc887.example.com 77=sip:u@uni.edu 78=sip:new;as10;");
  EXPECT_EQ(Told(state, Reginfo("2", "partial", Registration("as10", "active", ""))),
            "applied\n*/reginfo/registration[as10]");
  EXPECT_EQ(Told(state, Reginfo("3", "full", Registration("as10", "active", ""))),
            "applied\n-/reginfo/registration[as9]");
}

// RFC 4662, section 5.6.
TEST(State, ResourcesOfAListAreWhole) {
  ztxml::State<zt_list> state;
  const std::string bob =
      "<resource uri='sip:bob'><name>Bob</name><instance id='1' "
      "state='active' cid='x'/></resource>";
  EXPECT_EQ(Told(state, List("7", "1", "<name>L</name>" + bob + "<resource uri='sip:ed'/>")),
            "applied\n+/list/resource[sip:bob]\n+/list/resource[sip:ed]");
  EXPECT_EQ(Told(state, List("8", "0",
                             "<resource uri='sip:bob'><instance id='2' state='pending'/>"
                             "</resource><resource uri='sip:jim'/>")),
            "applied\n+/list/resource[sip:bob]/instance[2]\n-/list/resource[sip:bob]/instance[1]\n"
            "*/list/resource[sip:bob]\n+/list/resource[sip:jim]");
  EXPECT_EQ(Written(state),
            "<list xmlns=\"urn:ietf:params:xml:ns:rlmi\" uri=\"sip:l\" version=\"8\" "
            "fullState=\"true\"><name>L</name><resource uri=\"sip:bob\"><instance id=\"2\" "
            "state=\"pending\"/></resource><resource uri=\"sip:ed\"/><resource uri=\"sip:jim\"/>"
            "</list>");
  const std::string other = Replaced(List("9", "true", ""), "sip:l", "sip:m");
  EXPECT_EQ(Told(state, other), "ignored: it is of another resource");
}

template <class T, class Make>
void ExpectVersions(const Make& make, const char* partial, const char* full, bool bridges) {
  ztxml::State<T> state;
  const std::string old = "ignored: it is older than the state";
  const std::string repeated = "ignored: its version was there already";
  const std::string gap = "refresh: notifications before it were missed";
  EXPECT_EQ(Told(state, make("9", partial)), "refresh: it is partial, and there was no full one");
  EXPECT_EQ(Told(state, make("5", full)), "applied");
  EXPECT_EQ(Told(state, make("5", partial)), repeated);
  EXPECT_EQ(Told(state, make("5", full)), repeated);
  EXPECT_EQ(Told(state, make("4", partial)), old);
  EXPECT_EQ(Told(state, make("4", full)), old);
  EXPECT_EQ(Told(state, make("6", partial)), "applied");
  EXPECT_EQ(Told(state, make("8", partial)), bridges ? gap + ", applied" : gap);
  EXPECT_EQ(Told(state, make("7", partial)), bridges ? old : "applied");
  EXPECT_EQ(Told(state, make("20", full)), "applied");
  EXPECT_EQ(Told(state, make("4294967295", full)), "applied");
  state.Reset();
  EXPECT_FALSE(state);
  EXPECT_EQ(Told(state, make("0", full)), "applied");
  EXPECT_EQ(Told(state, make("1", partial)), "applied");
  const auto refused = state.Apply(Replaced(make("2", partial), "version", "other"));
  EXPECT_FALSE(refused);
  EXPECT_EQ(refused.error().code, ztxml::Code::kMissingValue);
  EXPECT_EQ(state.Apply("<a").error().code, ztxml::Code::kIncomplete);
  // Whether all is told must be told, unless the standard has a default.
  constexpr bool hasDefault = std::is_same_v<T, zt_conference_type>;
  const auto unsaid = state.Apply(make("2", "Partial"));
  EXPECT_EQ(unsaid.error().code, hasDefault ? ztxml::Code::kNone : ztxml::Code::kMissingValue);
  if (unsaid) return;
  EXPECT_EQ(Told(state, make("2", partial)), "applied");
}

TEST(State, VersionsAreAsTheStandardsHaveThem) {
  ExpectVersions<zt_conference_type>(
      [](const char* version, const char* state) { return Conference(version, state, ""); },
      "partial", "full", false);
  ExpectVersions<zt_reginfo>(
      [](const char* version, const char* state) { return Reginfo(version, state, ""); }, "partial",
      "full", true);
  ExpectVersions<zt_list>(
      [](const char* version, const char* state) { return List(version, state, ""); }, "false",
      "true", true);
}

TEST(State, IsTheConferenceThatIsTold) {
  std::uint32_t seed = 1;
  std::vector<std::uint8_t> script(400);
  for (int run = 0; run < 60; ++run) {
    for (std::uint8_t& byte : script) {
      seed = seed * 1664525 + 1013904223;
      byte = static_cast<std::uint8_t>(seed >> 24);
    }
    Choices choices(script.data(), script.size());
    CheckState(choices);
  }
}

// Each allocation fails in turn: the state is as it was, and takes the notification afterwards.
TEST(State, WithoutMemoryItStaysAsItWas) {
  const std::string first = Conference(
      "1", "full", "<users><user entity='a'><display-text>A</display-text></user></users>");
  for (const char* kind : {"partial", "full"}) {
    const std::string second = Conference(
        "2", kind,
        std::string("<conference-description><subject>s</subject></conference-description><users "
                    "state='") +
            kind + "'><user entity='a' state='" + kind +
            "'><display-text>B</display-text><endpoint entity='e'/></user><user entity='c'/>"
            "</users>");
    ztxml::State<zt_conference_type> unhurt;
    ASSERT_TRUE(unhurt.Apply(first) && unhurt.Apply(second));
    for (long n = 1, reached = 1; reached; ++n) {
      SCOPED_TRACE(n);
      ztxml::State<zt_conference_type> state;
      ASSERT_TRUE(state.Apply(first));
      const std::string before = Written(state);
      zthost::FailAllocation(n);
      const auto merged = state.Apply(second);
      reached = zthost::AllocationCount() >= n;
      zthost::FailAllocation(0);
      if (!merged) {
        ASSERT_EQ(merged.error().code, ztxml::Code::kNoMemory);
        ASSERT_SAME(Written(state), before);
        ASSERT_TRUE(state.Changes().empty());
        ASSERT_TRUE(state.Apply(second));
      }
      ASSERT_SAME(Written(state), Written(unhurt));
    }
  }
}

}  // namespace
