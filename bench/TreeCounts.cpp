#include "TreeCounts.h"

#include <cstring>

#include "ztxml/XMLCommunicationDiversion.h"
#include "ztxml/XMLConferenceInfo.h"
#include "ztxml/XMLReginfo.h"
#include "ztxml/XMLResourceList.h"
#include "ztxml/XMLSimservs.h"

namespace bench {

namespace {

class Counter {
 public:
  TreeCounts counts;

  void Registration(zt_reginfo& root) {
    Object();
    Each<zt_registration>(root.getRegistrationListValue(), [this](zt_registration& registration) {
      Object();
      Texts({registration.getAorValue(), registration.getIdValue()});
      Each<zt_ns_reginfo_contact>(registration.getContactListValue(),
                                  [this](zt_ns_reginfo_contact& contact) { Contact(contact); });
    });
  }

  void Conference(zt_conference_type& root) {
    Extensible(root);
    Text(root.getEntityValue());
    if (auto* description = root.getConferenceDescriptionValue()) Description(*description);
    if (auto* host = root.getHostInfoValue()) {
      Extensible(*host);
      Texts({host->getDisplayTextValue(), host->getWebPageValue()});
      Uris(host->getUrisValue());
    }
    if (auto* state = root.getConferenceStateValue()) Extensible(*state);
    if (auto* users = root.getUsersValue()) {
      Extensible(*users);
      Each<zt_user_type>(users->getUserListValue(), [this](zt_user_type& user) { User(user); });
    }
    Uris(root.getSidebarsByRefValue());
    if (auto* sidebars = root.getSidebarsByValValue()) {
      Extensible(*sidebars);
      Each<zt_conference_type>(sidebars->getEntryListValue(),
                               [this](zt_conference_type& entry) { Conference(entry); });
    }
  }

  void Services(zt_Simservs& root) {
    Object();
    Each<XMLElement>(root.getServiceListValue(), [this](XMLElement& service) {
      Object();
      auto* diversion = ZtAs<zt_communication_diversion>(&service);
      if (!diversion) return;
      if (diversion->getNoReplyTimerValue()) Object();
      auto* rules = diversion->getRuleSetValue();
      if (!rules) return;
      Object();
      Each<zt_ns_common_policy_ruleType>(
          rules->getRulesValue(), [this](zt_ns_common_policy_ruleType& rule) { Rule(rule); });
    });
  }

  void ResourceLists(zt_resource_lists& root) {
    Extensible(root);
    Each<zt_listType>(root.getListListValue(), [this](zt_listType& list) {
      Extensible(list);
      Text(list.getNameValue());
      DisplayName(list);
      Each<XMLElement>(list.getAnyElementValue(), [this](XMLElement& member) {
        auto* entry = ZtAs<zt_entryType>(&member);
        if (!entry) return;
        ++counts.pieces;
        Extensible(*entry);
        Text(entry->getUriValue());
        DisplayName(*entry);
      });
    });
  }

 private:
  template <class T, class Visit>
  static void Each(ZtSingleElementList* list, Visit visit) {
    for (ZtListNode* node = ZtSingleElementList::HeadOf(list); node; node = node->next) {
      visit(*static_cast<T*>(static_cast<XMLElement*>(node->data)));
    }
  }

  void Object() { ++counts.objects; }
  void Text(const char* text) {
    if (!text) return;
    ++counts.texts;
    counts.bytes += std::strlen(text);
  }
  void Texts(std::initializer_list<const char*> texts) {
    for (const char* text : texts) Text(text);
  }

  // An object with the attributes that its type does not know.
  template <class Type>
  void Extensible(const Type& object) {
    Object();
    ZtListNode* node = ZtSingleElementList::HeadOf(object.getAnyAttributeValue());
    for (; node; node = node->next) {
      auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
      Object();
      if (pair) Texts({pair->getName(), pair->getValue()});
    }
  }

  void Contact(zt_ns_reginfo_contact& contact) {
    Object();
    ++counts.pieces;
    Texts({contact.getIdValue(), contact.getUriValue(), contact.getDisplayNameValue(),
           contact.getQValue(), contact.getCallidValue()});
    Each<zt_unknown_param>(contact.getUnknownParamListValue(), [this](zt_unknown_param& param) {
      Object();
      Texts({param.getNameValue(), param.getValueValue()});
    });
    Each<XMLElement>(contact.getAnyElementValue(), [this](XMLElement& element) {
      Object();
      if (auto* gruu = ZtAs<zt_pub_gruu>(&element)) Text(gruu->getUriValue());
      if (auto* gruu = ZtAs<zt_temp_gruu>(&element)) Text(gruu->getUriValue());
    });
  }

  void Uris(zt_uris_type* uris) {
    if (!uris) return;
    Extensible(*uris);
    Each<zt_uri_type>(uris->getEntryListValue(), [this](zt_uri_type& entry) {
      Extensible(entry);
      Texts({entry.getUriValue(), entry.getDisplayTextValue(), entry.getPurposeValue()});
      Execution(entry.getModifiedValue());
    });
  }

  void Execution(zt_execution_type* execution) {
    if (!execution) return;
    Extensible(*execution);
    Texts({execution->getWhenValue(), execution->getReasonValue(), execution->getByValue()});
  }

  // Of lists of texts only the texts count, not the objects that the library makes of them.
  void Words(ZtSingleElementList* words) {
    Each<zt_string>(words, [this](zt_string& word) { Text(word.getValue()); });
  }

  void Description(zt_conference_description_type& description) {
    Extensible(description);
    Texts({description.getDisplayTextValue(), description.getSubjectValue(),
           description.getFreeTextValue()});
    if (auto* keywords = description.getKeywordsValue()) {
      Extensible(*keywords);
      Words(keywords->getKeywordListValue());
    }
    Uris(description.getConfUrisValue());
    Uris(description.getServiceUrisValue());
    auto* media = description.getAvailableMediaValue();
    if (!media) return;
    Extensible(*media);
    Each<zt_conference_medium_type>(
        media->getEntryListValue(), [this](zt_conference_medium_type& entry) {
          Extensible(entry);
          Texts({entry.getLabelValue(), entry.getDisplayTextValue(), entry.getTypeValue()});
        });
  }

  void User(zt_user_type& user) {
    Extensible(user);
    ++counts.pieces;
    Texts({user.getEntityValue(), user.getDisplayTextValue(), user.getCascadedFocusValue()});
    Uris(user.getAssociatedAorsValue());
    if (auto* roles = user.getRolesValue()) {
      Extensible(*roles);
      Words(roles->getEntryListValue());
    }
    if (auto* languages = user.getLanguagesValue()) {
      Extensible(*languages);
      Words(languages->getLanguageListValue());
    }
    Each<zt_endpoint_type>(user.getEndpointListValue(),
                           [this](zt_endpoint_type& endpoint) { Endpoint(endpoint); });
  }

  void Endpoint(zt_endpoint_type& endpoint) {
    Extensible(endpoint);
    Texts({endpoint.getEntityValue(), endpoint.getDisplayTextValue()});
    Execution(endpoint.getReferredValue());
    Execution(endpoint.getJoiningInfoValue());
    Execution(endpoint.getDisconnectionInfoValue());
    Each<zt_media_type>(endpoint.getMediaListValue(), [this](zt_media_type& media) {
      Extensible(media);
      Texts({media.getIdValue(), media.getDisplayTextValue(), media.getTypeValue(),
             media.getLabelValue(), media.getSrcIdValue()});
    });
    auto* call = endpoint.getCallInfoValue();
    if (!call) return;
    Extensible(*call);
    auto* sip = call->getSipValue();
    if (!sip) return;
    Extensible(*sip);
    Texts({sip->getDisplayTextValue(), sip->getCallIdValue(), sip->getFromTagValue(),
           sip->getToTagValue()});
  }

  void Rule(zt_ns_common_policy_ruleType& rule) {
    Object();
    ++counts.pieces;
    Text(rule.getIdValue());
    if (auto* conditions = rule.getConditionsValue()) {
      Object();
      Each<zt_ns_common_policy_identityType>(
          conditions->getIdentityListValue(), [this](zt_ns_common_policy_identityType& identity) {
            Object();
            Each<zt_ns_common_policy_oneType>(identity.getOneListValue(),
                                              [this](zt_ns_common_policy_oneType& one) {
                                                Object();
                                                Text(one.getIdValue());
                                              });
          });
      Each<XMLElement>(conditions->getAnyListValue(), [this](XMLElement& condition) {
        Object();
        if (auto* flag = ZtAs<zt_empty_element_type>(&condition)) Text(flag->getValue());
      });
    }
    if (auto* actions = rule.getActionsValue()) {
      Object();
      Each<XMLElement>(actions->getElementsValue(), [this](XMLElement& action) {
        Object();
        if (auto* forward = ZtAs<zt_ns_xcap_forward_to_type>(&action)) {
          Text(forward->getTargetValue());
        }
      });
    }
  }

  void DisplayName(const ZtDisplayNamed& named) {
    auto* name = named.getDisplayNameValue();
    if (!name) return;
    Extensible(*name);
    Text(name->getValueValue());
  }
};

}  // namespace

TreeCounts CountsOf(Kind kind, XMLElement* root) {
  Counter counter;
  switch (kind) {
    case Kind::kRegistration:
      if (auto* reginfo = ZtAs<zt_reginfo>(root)) counter.Registration(*reginfo);
      break;
    case Kind::kConference:
      if (auto* conference = ZtAs<zt_conference_type>(root)) counter.Conference(*conference);
      break;
    case Kind::kServices:
      if (auto* services = ZtAs<zt_Simservs>(root)) counter.Services(*services);
      break;
    case Kind::kResourceLists:
      if (auto* lists = ZtAs<zt_resource_lists>(root)) counter.ResourceLists(*lists);
      break;
  }
  return counter.counts;
}

}  // namespace bench
