#include "ztxml/XMLFactory.h"

#include "binding/ZtDocumentTable.h"
#include "ztxml/XMLBootstrappingInfo.h"
#include "ztxml/XMLCWIndication.h"
#include "ztxml/XMLCallWaitingIndication.h"
#include "ztxml/XMLCommunicationBarring.h"
#include "ztxml/XMLCommunicationDiversion.h"
#include "ztxml/XMLCommunicationWaiting.h"
#include "ztxml/XMLConferenceInfo.h"
#include "ztxml/XMLFt.h"
#include "ztxml/XMLGruu.h"
#include "ztxml/XMLImdn.h"
#include "ztxml/XMLIsComposing.h"
#include "ztxml/XMLMediaControl.h"
#include "ztxml/XMLOIP.h"
#include "ztxml/XMLPresence.h"
#include "ztxml/XMLRcsTermsInfo.h"
#include "ztxml/XMLReginfo.h"
#include "ztxml/XMLResourceList.h"
#include "ztxml/XMLRlmi.h"
#include "ztxml/XMLRlsServices.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"
#include "ztxml/XMLSimservs.h"
#include "ztxml/XMLTIP.h"
#include "ztxml/XMLVolteConfigInfo.h"
#include "ztxml/XMLWapProvisioningDoc.h"
#include "ztxml/XMLXcapDirectory.h"
#include "ztxml/XMLXcapError.h"

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
