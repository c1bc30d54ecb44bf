// The XCAP document of the supplementary services (3GPP TS 24.623): the root element "simservs"
// with the services of one user.
#ifndef ZTXML_INCLUDE_XMLSIMSERVS_H
#define ZTXML_INCLUDE_XMLSIMSERVS_H

#include "ztxml/XMLSimservsXcap.h"
#include "ztxml/ZtNamespaceDecoder.h"
#include "ztxml/ZtNamespaceDocument.h"

class ZtContainerReader;

/// The root element "simservs": services in any order, each an object of the service's own root
/// type, e.g. zt_communication_diversion.
class zt_Simservs : public ZtTyped<zt_Simservs, ZtObject> {
 public:
  ZT_API static const ZtElementType kType;
  /// Takes `service`; returns 0 when it is null, has an owner, or there is no memory.
  int addService(XMLObject* service) { return m_Services.Add(service); }
  /// The services in the order in which they were added (taken; the entries are XMLElement*).
  int setServiceListValue(ZtSingleElementList* list) { return m_Services.Set(list); }
  ZtListOf<XMLElement>* getServiceListValue() const { return m_Services; }

 private:
  friend struct SimservsBinding;
  friend class ZtContainerReader;

  ZtChildListOf<XMLElement> m_Services;
};

/// The context of the whole document, XML_SCHEMA_SIMSERVS. Its namespace binder serves the reading
/// of every service; documents are always written with "ss", "cp" and "ocp".
class SimservsContext : public ZtDescribedBy<SimservsContext, ZtNamespaceContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes an empty zt_Simservs. The factories of the services make what goes into it.
class SimservsDataBinder : public ZtDescribedBy<SimservsContext, ZtFactory> {
 public:
};

/// Writes a whole document: the element "simservs", which declares the prefixes "ss", "cp" and
/// "ocp", with the texts of its services. Other objects are left out. Null when memory does not
/// suffice for all of them, because a server deletes a service that the document lacks.
class ZT_API SimservsMarshaller : public ZtDescribedBy<SimservsContext, ZtMarshaller> {
 public:
  /// Writes the element without services while Marshall runs. Returns 1, or 0 on failure.
  int AddSimservsElementToXml(zt_Simservs* simservs) { return Write(simservs); }
  /// A new text with `services` put in before the first "</" of `envelope`, which is freed; the
  /// unchanged envelope when either is null, when it has no "</" or when out of memory. The
  /// envelope must be, and the result is, for FreeElement.
  char* InsertString(char* envelope, const char* services);

 private:
  char* Complete(XMLElement* root, char* text) override;
};

/// Reads a simservs document without its services, under the prefixes that its document declares.
class XMLSimservsDecoder : public ZtDecoderOf<SimservsContext, ZtNamespaceDecoder> {};
/// Reads a whole document, each service as its own unmarshaller does; a service that cannot be read
/// is dropped, with a log line. The services come in the order incoming and outgoing barring,
/// diversion, waiting, originating and terminating identity presentation. While the log discards
/// all but errors, what a document of up to 8 KB is read with is kept for the next one: about 4 KB,
/// and 3 KB for each kind of service.
class ZT_API SimservsUnMarshaller : public ZtDescribedBy<SimservsContext, ZtUnMarshaller> {
 public:
  ~SimservsUnMarshaller() override;
  XMLElement* UnMarshall(const char* xml) override;
  XMLElement* UnMarshall(XMLFile* file) override;
  XMLElement* UnMarshall(const char* text, std::size_t size) override;
  /// 1 when the parser takes `text` as a whole document, else 0.
  int validateXML(char* text);
  /// Moves `length` bytes of `text` from `start` on to a new text, `*out`, which is for
  /// FreeElement, and closes the gap. Returns `text`. Without memory, or where there are no such
  /// bytes, nothing is moved and `*out` is null. Each call costs time linear in the whole text: do
  /// not cut many pieces with it.
  char* replaceSubStringWithNull(char* text, char** out, int start, int length);

 private:
  ZT_LOCAL XMLElement* Read(ZtPiece xml, const char* noMemory);
  ZT_LOCAL XMLElement* ReadOnePass(ZtPiece xml);
  ZT_LOCAL XMLElement* ReadPieces(ZtPiece xml, char* text);

  ZtContainerReader* m_pReader = nullptr;  // kept from one document to the next
};

#endif  // ZTXML_INCLUDE_XMLSIMSERVS_H
