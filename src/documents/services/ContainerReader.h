// Reads a container of services in one pass.
#ifndef ZTXML_SRC_CONTAINERREADER_H
#define ZTXML_SRC_CONTAINERREADER_H

#include "base/ZtSmallArray.h"
#include "documents/services/Services.h"
#include "ztxml/XMLSimservs.h"

// The parser and the decoders of the container and of its services, which are kept from one
// document to the next. Each tag is told to the decoder of the service that it is part of, or to
// the container's: each decoder is told what it would be told if the services were cut out and read
// by themselves, one document after the other.
class ZtContainerReader final : public ZtHeapObject, private ZtSink {
 public:
  ZtContainerReader() = default;
  ~ZtContainerReader();
  ZtContainerReader(const ZtContainerReader&) = delete;
  ZtContainerReader& operator=(const ZtContainerReader&) = delete;

  // The container that `xml` is, with its services, under the prefixes of `binder` (null for none).
  // Null for what cannot be read so or is too odd, such as a service inside another, and without
  // memory; the reader is not to be used any more then.
  XMLElement* Read(ZtPiece xml, XMLObject* binder);

 private:
  struct Service {
    XMLObject* object;
    std::size_t kind;
  };

  void Start(ScannedTag& tag) override;
  void Attributes(ScannedTag& tag) override;
  void Opened(char* name) override;
  void Tag(ScannedTag& tag) override;
  int End(ZtPiece slashName, ZtPiece text) override;

  bool Begin(XMLObject* binder);
  bool Prepare(const ZtDocument& document, ZtNamespaceDecoder*& decoder);
  bool Enter(const ScannedTag& tag);
  bool FindDecoder(const ScannedTag& tag, const char* local);
  bool MayBegin(const ScannedTag& tag, const char* local);
  bool BeginService(std::size_t kind);
  void EndService();
  zt_Simservs* Join();

  XmlDecoder m_Parser;
  ZtNamespaceDecoder* m_pContainer = nullptr;
  ZtNamespaceDecoder* m_Decoders[kZtServiceCount] = {};  // by the first service of their documents

  // Of the document that is being read.
  ZtArena* m_pArena = nullptr;
  const char* m_pEnd = nullptr;          // of its text
  ZtNamespaceDecoder* m_pNow = nullptr;  // the decoder that is told the tags
  std::size_t m_iDepth = 0;              // elements that are open
  std::size_t m_iService = 0;            // as many were when the service began; 0 outside of one
  std::size_t m_iKind = 0;               // the service's
  bool m_bOdd = false;                   // it is not to be read so
  ZtSmallArray<Service, 8> m_Services;   // in the document's order
};

#endif  // ZTXML_SRC_CONTAINERREADER_H
