// What callers build: every factory's objects, and trees of every class by every setter.
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>

#include "ApiScript.h"
#include "DocumentSupport.h"

namespace {

// What a factory makes is of the class that it says, and null when there is no memory.
TEST(Api, FactoriesMakeWhatTheySayOrNull) {
  for (const ApiTables::Factory& factory : kApiFactories) {
    SCOPED_TRACE(factory.name);
    const std::string name = factory.name;
    const LogCapture log;
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
    EXPECT_EQ(log.Has("<XML Module>: " + name), name.find("XcapErrorDataBinder") == 0);
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

// What the step `method` of a marshaller M makes of an empty object, and the line with which it
// begins. Null it takes only as a timer, which is optional.
struct Made {
  std::string name;
  int written;
  std::string line;
};
template <class M, class Base, class Element>
Made Step(int (Base::*method)(Element*), const char* name) {
  std::conditional_t<std::is_abstract_v<M>, Communication_diversionMarshaller, M> marshaller;
  const bool optional = std::is_same_v<Element, zt_NoReplyTimer>;
  EXPECT_EQ((marshaller.*method)(nullptr), optional ? 1 : 0) << name;
  const Tree<XMLElement> empty(Element::kType.maker.Create("tests/ApiTest"));
  LogCapture log(2);
  const int written = (marshaller.*method)(static_cast<Element*>(empty.get()));
  const std::vector<CapturedLine> lines = log.Lines();
  return {name, written, lines.empty() ? "" : std::to_string(lines[0].level) + lines[0].text};
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
  // Intended: logs are searched for these.
  const std::map<std::string, std::string> logOtherwise = {
      {"Communication_barringMarshaller::AddOutgoing_communication_barringElementToXml",
       "2<XML Module>: Addoutgoing_communication_barringElementToXml"},
      {"Conference_infoMarshall::AddUserElementToXml", "2<XML Module>: AddUserElementToXkjml"},
      {"OIPMarshaller::AddOIPElementToXml",
       "2<XML Module>: AddOriginatingIdentityPresentationElementToXml"},
      {"TIPMarshaller::AddTIPElementToXml",
       "2<XML Module>: AddTerminatingIdentityPresentationElementToXml"},
      {"Xcap_ErrorMarshall::AddXcap_errorElementToXml",
       "2<XML Module>: AddXcap_errorElementToXmlErrorElementToXml"},
  };
#define ZT_STEP(M, method) Step<M>(&M::method, #M "::" #method),
  for (const auto& [name, written, line] : {ZT_API_STEPS(ZT_STEP)}) {
    EXPECT_EQ(written, lackSomething.count(name) ? 0 : 1) << name;
    const bool error = name.find("Xcap_Error") == 0;
    const std::string own = name.substr(error ? 0 : name.find("::") + 2);
    const auto other = logOtherwise.find(name);
    EXPECT_EQ(line, other != logOtherwise.end() ? other->second
                                                : (error ? "3" : "2") + ("<XML Module>: " + own));
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

// What a type answers to names that it does not know: to none, to an element without an object and
// with one, and to an attribute. A '!' follows where the log tells; with a '+' the object is kept.
std::string Answers(const ZtElementType& type) {
  Tree<XMLElement> self(type.maker.Create("tests/ApiTest"));
  XMLElement* offered = ZtCreate<zt_string>("tests/ApiTest");
  std::string name = "unknown", text = "5", told;
  LogCapture log;
  const auto tell = [&](int answer) {
    told += std::to_string(answer) + (log.Texts().empty() ? "" : "!");
    log.Clear();
  };
  tell(self->ProcessUnMarshall(nullptr, text.data(), nullptr));
  const int taken = self->ProcessUnMarshall(name.data(), text.data(), nullptr);
  EXPECT_TRUE(log.Texts().empty() || log.Has("annot accommodate the element unknown"));
  tell(taken);
  tell(self->ProcessUnMarshall(name.data(), text.data(), offered));
  tell(self->ProcessUnMarshallAttribute(name.data(), text.data(), nullptr));
  self.reset();
  for (const zthost::MemoryEntry& entry : zthost::GetMemoryReport().live) {
    if (entry.pointer != offered) continue;
    XMLFactory::DeleteElement(offered);
    return told;
  }
  return told + "+";
}

TEST(Api, TypesAnswerToUnknownNames) {
  std::map<std::string, std::string> types;
  for (const ZtElementType* type : ApiTables::kTypes) {
    const std::string name = type->className;
    types[Answers(*type)] += name.substr(name.find("zt_") == 0 ? 3 : 0) + " ";
  }
  types.erase("11!1!1+");  // keeps everything
  const std::map<std::string, std::string> expected = {
      {"1!1!1!0!", "unknown_param "},
      {"1!1!1!0!+", "ns_reginfo_contact registration reginfo "},
      {"1000", "ns_common_policy_ruleset "},
      {"1001",
       "ns_common_policy_exceptType ns_common_policy_sphereType ns_common_policy_ruleType "
       "ns_xcap_forward_to_type "},
      {"11!1!0+",
       "ns_common_policy_identityType ns_common_policy_conditionsType "
       "ns_common_policy_extensibleType "},
      {"11!1!1",
       "bootstrappinginfo alternative_service ims_3gpp ns_call_waiting_indication_action "
       "ns_call_waiting_indication_alternative_service 3gpp_ims ns_ft_data ns_ft_file_info file "
       "to_encoder vc_primitive media_control ns_oma_pres_willingness "
       "ns_oma_pres_session_participation ns_oma_pres_registration_state "
       "ns_oma_pres_barring_state ns_oma_pres_overriding_willingness ns_rcs_terms_info_term "
       "rcs_terms_info "},
      {"11!11", "status "},
      {"1110", "ns_common_policy_validityType "},
      {"1110!", "pub_gruu temp_gruu ns_gruuinfo_pubGruu ns_gruuinfo_tempGruu "},
      {"1111",
       "parm characteristic allow_action_type incoming-communication-barring "
       "outgoing-communication-barring NoReplyTimer communication-diversion delivered failed "
       "displayed processed stored forbidden error delivery_notification display_notification "
       "processing_notification schema_namespace_retrieval Simservs ns_xcap_media_type "
       "presence_status_activity_type external_list string empty_element_type volte_config_info "
       "wap_provisioning_doc entry folder xcap_directory not_utf_8 cannot_delete "
       "constraint_failure not_well_formed not_xml_att_value cannot_insert not_xml_frag "
       "schema_validation_error no_parent exists uniqueness_failure xcap_error "},
  };
  EXPECT_EQ(types, expected);
}

// Who owns an offered child is told by the result, also when there is no memory for it or its text.
// Under a child's name nothing else is taken.
TEST(Api, OfferedChildrenAreTakenOrNot) {
  for (const ZtElementType* type : ApiTables::kTypes) {
    for (const ZtField& field : *type) {
      const bool child = field.place == ZtPlace::kChild || field.place == ZtPlace::kChildren;
      if (!child) continue;
      std::string name = ZtName(field.name), text = "a b";
      if (field.atEnd || field.madeHere) name.insert(0, "/");
      const Tree<XMLElement> sparse(type->maker.Create("tests/ApiTest")),
          foreign(ZtCreate<zt_string>("tests/ApiTest"));
      EXPECT_EQ(sparse->ProcessUnMarshall(name.data(), text.data(), foreign.get()), 0) << name;
      if (field.madeHere) continue;
      EXPECT_EQ(sparse->ProcessUnMarshall(name.data(), text.data(), nullptr), 0) << name;
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
