// What callers build: every factory's objects, and trees of every class by every setter.
#include <gtest/gtest.h>
#include <random>
#include <set>

#include "ApiScript.h"
#include "DocumentSupport.h"

namespace {

// What a factory makes is of the class that it says, and null when there is no memory.
TEST(Api, FactoriesMakeWhatTheySayOrNull) {
  for (const ApiTables::Factory& factory : kApiFactories) {
    SCOPED_TRACE(factory.name);
    for (long n = 1, reached = 1; reached; ++n) {
      zthost::FailAllocation(n, true);
      const Tree<XMLElement> made(factory.make());
      reached = zthost::AllocationCount() >= n;
      zthost::FailAllocation(0);
      EXPECT_EQ(made == nullptr, reached != 0) << n;
      if (!made) continue;
      EXPECT_EQ(made->ReservedHook(), 0);
      if (factory.made) {
        EXPECT_TRUE(ZtIsA(*made, *factory.made));
      } else {
        EXPECT_STREQ(made->BaseClassName(), "XMLObject");
        EXPECT_EQ(static_cast<XMLObject*>(made.get())->IsRootElement(), 1);
      }
    }
  }
}

// Labels are names of elements, and classes are called as they are written, but for these.
TEST(Api, ClassesTellWhoTheyAre) {
  std::string told;
  const auto tell = [&](const char* name, const ZtElementType& type) {
    const bool labelled = type.tag.IsNone()
                              ? ZtNameId::Of({type.label, __strlen(type.label)}) != kZtNoName
                              : __strcmp(type.label, ZtName(type.tag)) == 0;
    const bool called = __strcmp(type.className, name) == 0;
    if (!labelled || !called)
      told += std::string(type.label) + (called ? " " : "!" + std::string(type.className) + " ");
  };
#define ZT_TELL(C) tell(#C, C::kType);
  ZT_API_ELEMENTS(ZT_TELL)
#undef ZT_TELL
  EXPECT_EQ(
      told,
      "duplextypes CommonPolicy:ExceptType CommonPolicy:OneType CommonPolicy:ManyType "
      "CommonPolicy:IdentityType CommonPolicy:SphereType CommonPolicy:ValidityType "
      "CommonPolicy:ConditionsType CommonPolicy:ExtensibleType CommonPolicy:RuleType "
      "CommonPolicy:Ruleset CommunicationBarring:AllowActionType "
      "IncomingComunicationBarring!incoming-communication-barring "
      "OutgoingCommunicationBarring!outgoing-communication-barring "
      "CommunicationDiversion:ForwardToType CommunicationDiversion!communication-diversion "
      "CommunicationWaiting!communication-waiting execution processing-notification "
      "OriginatingIdentityPresentation!originating-identity-presentation "
      "schema_namespace_retrieval SimservType MediaType PresenceStatusActivityType ExternalList "
      "TerminatingIdentityPresentation!terminating-identity-presentation string_class "
      "empty_element ");
}

// What the step `method` of a marshaller M makes of an empty object. Null it takes only as a timer,
// which is optional.
template <class M, class Base, class Element>
std::pair<std::string, int> Step(int (Base::*method)(Element*), const char* name) {
  std::conditional_t<std::is_abstract_v<M>, Communication_diversionMarshaller, M> marshaller;
  const bool optional = std::is_same_v<Element, zt_NoReplyTimer>;
  EXPECT_EQ((marshaller.*method)(nullptr), optional ? 1 : 0) << name;
  const Tree<XMLElement> empty(Element::kType.maker.Create("tests/ApiTest"));
  return {name, (marshaller.*method)(static_cast<Element*>(empty.get()))};
}

TEST(Api, StepsTakeTheirTypes) {
  const std::set<std::string> lackSomething = {
      "CallWaitingIndicationMarshaller::AddCallWaitingIndicationElementToXml",
      "Conference_infoMarshall::AddMediaElementToXml",
      "GruuMarshaller::AddPubGruuElementToXml",
      "GruuMarshaller::AddTempGruuElementToXml",
      "IMDNMarshaller::AddDeliverNotificationElementToXml",
      "IMDNMarshaller::AddDisplayNotificationElementToXml",
      "IMDNMarshaller::AddProcessingNotificationElementToXml",
      "IsComposingMarshaller::AddIsComposingElementToXml",
      "ListMarshaller::AddInstanceElementToXml",
      "ListMarshaller::AddListElementToXml",
      "ListMarshaller::AddResourceElementToXml",
      "MediaControlMarshaller::AddEmptyElementToXml",
      "PresenceMarshaller::AddPresenceElementToXml",
      "PresenceMarshaller::AddTupleElementToXml",
      "ReginfoMarshaller::AddPubGruuElementToXml",
      "ReginfoMarshaller::AddReginfoContactElementToXml",
      "ReginfoMarshaller::AddReginfoElementToXml",
      "ReginfoMarshaller::AddRegistrationElementToXml",
      "ReginfoMarshaller::AddTempGruuElementToXml",
      "ReginfoMarshaller::AddUnknownParamElementToXml",
      "Resource_listsMarshall::AddEntryElementToXml",
      "Resource_listsMarshall::AddEntryRefElementToXml",
      "RlsServicesMarshaller::AddServiceElementToXml",
      "XcapDirectoryMarshaller::AddEntryElementToXml",
      "XcapDirectoryMarshaller::AddFolderElementToXml",
      "ZtPolicyMarshaller::AddEmptyElementtoXml",
      "ZtPolicyMarshaller::AddRuleElementToXml",
  };
#define ZT_STEP(M, method) Step<M>(&M::method, #M "::" #method),
  for (const auto& [name, written] : {ZT_API_STEPS(ZT_STEP)}) {
    EXPECT_EQ(written, lackSomething.count(name) ? 0 : 1) << name;
  }
#undef ZT_STEP
}

// Steps that take more or less than one object.
TEST(Api, OtherSteps) {
  ConferenceInfoDataBinder make;
  Tree<zt_uris_type> uris(make.CreateURIsType());
  Tree<zt_conference_type> sidebar(make.CreateConferenceInfoType());
  Conference_infoMarshall conference;
  EXPECT_EQ(conference.AddUrisTypeElementToXml(uris.get(), XML_STR_CONF_URIS), 1);
  EXPECT_EQ(conference.AddConferenceInfoElementToXml(sidebar.get(), XML_STR_ENTRY), 0);
  sidebar->setEntityValue("e");
  EXPECT_EQ(conference.AddConferenceInfoElementToXml(sidebar.get(), XML_STR_ENTRY), 1);
  EXPECT_EQ(conference.AddConferenceInfoElementToXml(nullptr, XML_STR_CONFERENCE_INFO), 0);
  char text[] = "text";
  EXPECT_EQ(BootstrappingInfoMarshaller().AddBtidElementToXml(text), 1);
  EXPECT_EQ(BootstrappingInfoMarshaller().AddLifetimeElementToXml(nullptr), 0);
}

// Who owns an offered child is told by the result, also when there is no memory for it or its text.
TEST(Api, ChildrenOfferedWithoutMemory) {
  for (const ZtElementType* type : ApiTables::kTypes) {
    for (const ZtField& field : *type) {
      const bool child = field.place == ZtPlace::kChild || field.place == ZtPlace::kChildren;
      if (!child || field.madeHere) continue;
      std::string name = std::string(field.atEnd ? "/" : "") + ZtName(field.name), text = "a b";
      for (long n = 1, reached = 1; reached; ++n) {
        const Tree<XMLElement> parent(type->maker.Create("tests/ApiTest"));
        Tree<XMLElement> offered(field.detail.type->maker.Create("tests/ApiTest"));
        zthost::FailAllocation(n);
        const int taken = parent->ProcessUnMarshall(name.data(), text.data(), offered.get());
        reached = zthost::AllocationCount() >= n;
        zthost::FailAllocation(0);
        if (taken) static_cast<void>(offered.release());
        // What zt_status is offered it ignores.
        if (taken && type == &zt_status::kType) break;
        EXPECT_EQ(taken != 0, !reached) << type->className << name << n;
      }
    }
  }
}

TEST(Api, TreesOfAnyCallsAreWrittenAndFreed) {
  std::mt19937 random(1);
  for (int run = 0; run < 500; ++run) {
    std::vector<std::uint8_t> bytes(random() % 2000);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    EXPECT_EQ(ApiScript(bytes.data(), bytes.size()).Run(), "") << run;
  }
}

// Trees that callers nest without end are written down to a depth that no document has that was
// read, then not at all; freeing them takes no more stack.
TEST(Api, DeepTrees) {
  Schema lists(XML_SCHEMA_RESOURCE_LISTS);
  const auto nested = [](int depth) {
    ResourceListsDataBinder make;
    auto* root = static_cast<zt_resource_lists*>(make.CreateRootElement());
    zt_listType* inner = make.CreateListType();
    root->addList(inner);
    for (int i = 2; i < depth; ++i) {
      zt_listType* next = make.CreateListType();
      inner->addList(next);
      inner = next;
    }
    return Tree<XMLElement>(root);
  };
  EXPECT_NE(lists.Write(nested(200).get()), "(null)");
  EXPECT_EQ(lists.Write(nested(201).get()), "(null)");
  EXPECT_EQ(lists.Write(nested(200000).get()), "(null)");
  Tree<zt_xcap_error> error;
  for (int i = 0; i < 200000; ++i) {
    Tree<zt_xcap_error> outer(
        static_cast<zt_xcap_error*>(XcapErrorDataBinder().CreateRootElement()));
    outer->setErrorValue(error.release());
    error = std::move(outer);
  }
}

}  // namespace
