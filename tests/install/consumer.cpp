// A program that uses the installed library as others do: reads a registration body (RFC 3680) and
// prints its address of record, and builds a delivery notification (RFC 5438) and prints it.
#include <cstdio>
#include <string>

#include "XMLFactory.h"
#include "XMLImdn.h"
#include "XMLReginfo.h"

namespace {

// The address of record of the first registration in `text`; empty when it cannot be read.
std::string AddressOfRecord(const char* text) {
  XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_REGINFO);
  if (!context) return {};
  auto* reginfo = static_cast<zt_reginfo*>(context->createUnMarshaller()->UnMarshall(text));
  ZtSingleElementList* list = reginfo ? reginfo->getRegistrationListValue() : nullptr;
  ZtListNode* node = list ? list->GetPtrToListHead() : nullptr;
  auto* registration =
      node ? static_cast<zt_registration*>(static_cast<XMLElement*>(node->data)) : nullptr;
  const char* aor = registration ? registration->getAorValue() : nullptr;
  std::string result = aor ? aor : "";
  XMLFactory::DeleteElement(reginfo);
  XMLFactory::deleteContext(context);
  return result;
}

// A notification that the message `id` was delivered; empty when it cannot be written.
std::string DeliveryNotification(const char* id) {
  XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_IMDN);
  if (!context) return {};
  auto* factory = static_cast<IMDNDataBinder*>(context->createBinderFactory());
  auto* imdn = static_cast<zt_imdn*>(factory->CreateRootElement());
  imdn->setMessageIdValue(id);
  imdn->setDatetimeValue("2024-05-06T07:08:09Z");
  zt_status* status = factory->CreateStatus();
  status->setDeliveredValue(factory->CreateDeliveredElement());
  zt_delivery_notification* notification = factory->CreateDeliverNotification();
  notification->setStatusValue(status);
  imdn->setDeliveryNotificationValue(notification);
  const char* text = context->createMarshaller()->Marshall(imdn);
  std::string result = text ? text : "";
  XMLFactory::DeleteElement(imdn);
  XMLFactory::deleteContext(context);
  return result;
}

}  // namespace

int main() {
  std::puts(AddressOfRecord("<reginfo xmlns=\"urn:ietf:params:xml:ns:reginfo\" version=\"0\" "
                            "state=\"full\"><registration aor=\"sip:ada@example.com\" id=\"r1\" "
                            "state=\"active\"/></reginfo>")
                .c_str());
  std::puts(DeliveryNotification("a1f09c77").c_str());
  return 0;
}
