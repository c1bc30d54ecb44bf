// The services that a container of supplementary services may have.
#ifndef ZTXML_SRC_SERVICES_H
#define ZTXML_SRC_SERVICES_H

#include "binding/ZtNames.h"
#include "ztxml/XMLCommunicationBarring.h"
#include "ztxml/XMLCommunicationDiversion.h"
#include "ztxml/XMLCommunicationWaiting.h"
#include "ztxml/XMLOIP.h"
#include "ztxml/XMLTIP.h"

// A service, in the order in which they are cut out and read. Intended: the ClassName of a
// service's root type is its element's name ("communication-diversion"), where other types give the
// name of their C++ class; callers tell services apart by it. Intended: log lines call one service
// by several names, such as "pOIP", "poip" and "OIP"; log readers search for all of them.
struct ZtService {
  e_XmlStrRef element;
  const ZtDocument* document;
  std::size_t first;  // the first service of this document
  const char* table;
  const char* cut;
  const char* read;
  const char* written;
};
inline constexpr ZtService kZtServices[] = {
    {XML_STR_INCOMING_COMMUNICATION_BARRING, &CommunicationBarringContext::kDocument, 0,
     "pCommunicationBarring", "Incoming Communication Barring", "Communication Barring (Incoming)",
     "Communication Barring"},
    {XML_STR_OUTGOING_COMMUNICATION_BARRING, &CommunicationBarringContext::kDocument, 0,
     "pCommunicationBarring", "Outgoing Communication Barring", "Communication Barring (Outgoing)",
     "Communication Barring"},
    {XML_STR_COMMUNICATION_DIVERSION, &CommunicationDiversionContext::kDocument, 2,
     "pCommunicationDiversion", "Communication Diversion", "Communication Diversion",
     "Communication Diversion"},
    {XML_STR_COMMUNICATION_WAITING, &CommunicationWaitingContext::kDocument, 3,
     "pCommunicationWaiting", "Communication Waiting", "Communication Waiting",
     "Communication Waiting"},
    {XML_STR_ORIGINATING_IDENTITY_PRESENTATION, &OIPContext::kDocument, 4, "pOIP", "OIP", "poip",
     "OIP"},
    {XML_STR_TERMINATING_IDENTITY_PRESENTATION, &TIPContext::kDocument, 5, "pTIP", "TIP", "ptip",
     "TIP"},
};
inline constexpr std::size_t kZtServiceCount = sizeof(kZtServices) / sizeof(kZtServices[0]);

// The index of the service that is called so, kZtServiceCount when none is.
inline std::size_t ZtFindService(ZtPiece name) {
  std::size_t i = 0;
  while (i < kZtServiceCount && !ZtNameId(kZtServices[i].element).Is(name)) ++i;
  return i;
}

#endif  // ZTXML_SRC_SERVICES_H
