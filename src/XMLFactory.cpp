#include "XMLFactory.h"

#include "XMLBootstrappingInfo.h"
#include "XMLCWIndication.h"
#include "XMLCallWaitingIndication.h"
#include "XMLCommunicationBarring.h"
#include "XMLCommunicationDiversion.h"
#include "XMLCommunicationWaiting.h"
#include "XMLConferenceInfo.h"
#include "XMLFt.h"
#include "XMLGruu.h"
#include "XMLImdn.h"
#include "XMLIsComposing.h"
#include "XMLMediaControl.h"
#include "XMLOIP.h"
#include "XMLPresence.h"
#include "XMLRcsTermsInfo.h"
#include "XMLReginfo.h"
#include "XMLResourceList.h"
#include "XMLRlmi.h"
#include "XMLRlsServices.h"
#include "XMLSchemaNameSpaceRetrieval.h"
#include "XMLSimservs.h"
#include "XMLTIP.h"
#include "XMLVolteConfigInfo.h"
#include "XMLWapProvisioningDoc.h"
#include "XMLXcapDirectory.h"
#include "XMLXcapError.h"
#include "binding/ZtDocumentTable.h"

namespace {

// Every document that the library knows.
constexpr const ZtDocument* kDocuments[] = {
    &BootstrappingInfoContext::kDocument,
    &CWIndicationContext::kDocument,
    &CallWaitingIndicationContext::kDocument,
    &CommunicationBarringContext::kDocument,
    &CommunicationDiversionContext::kDocument,
    &CommunicationWaitingContext::kDocument,
    &ConferenceInfoContext::kDocument,
    &FileContext::kDocument,
    &GruuContext::kDocument,
    &IMDNContext::kDocument,
    &IsComposingContext::kDocument,
    &ListContext::kDocument,
    &MediaControlContext::kDocument,
    &OIPContext::kDocument,
    &PresenceContext::kDocument,
    &RcsTermsInfoContext::kDocument,
    &ReginfoContext::kDocument,
    &ResourceListsContext::kDocument,
    &RlsServicesContext::kDocument,
    &SchemaNamespaceRetrievalContext::kDocument,
    &SimservsContext::kDocument,
    &TIPContext::kDocument,
    &VolteConfigInfoContext::kDocument,
    &WapProvisioningDocContext::kDocument,
    &XcapDirectoryContext::kDocument,
    &XcapErrorContext::kDocument,
};

const ZtDocument* Find(eXMLSchemaID id) {
  for (const ZtDocument* document : kDocuments) {
    if (document->info.id == id) return document;
  }
  return nullptr;
}

}  // namespace

XMLContext* XMLFactory::newInstance(eXMLSchemaID id) {
  const ZtDocument* document = Find(id);
  return document ? ZtNewContext(*document) : nullptr;
}

void XMLFactory::deleteContext(XMLContext* context) { ZtRelease(context); }

void XMLFactory::DeleteElement(XMLElement* element) { ZtRelease(element); }

const XMLSchemaInfo* XMLFactory::getSchemaInfo(eXMLSchemaID id) {
  const ZtDocument* document = Find(id);
  return document ? &document->info : nullptr;
}
