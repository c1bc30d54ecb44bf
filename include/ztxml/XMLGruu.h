// GRUU information (RFC 5628): a public or temporary GRUU, inside a registration-state body or on
// its own.
#ifndef ZTXML_INCLUDE_XMLGRUU_H
#define ZTXML_INCLUDE_XMLGRUU_H

#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

/// What public and temporary GRUUs have in common.
class ZtGruu : public ZtObject {
 public:
  ZT_INLINE ~ZtGruu() override = default;

  /// The GRUU's URI; the element cannot be written without it.
  int setUriValue(const char* uri) { return m_Uri.Assign(uri); }
  const char* getUriValue() const { return m_Uri.Get(); }

 private:
  friend struct GruuBinding;
  ZtText m_Uri;
};

/// What a temporary GRUU has besides.
class ZtTemporaryGruu : public ZtGruu {
 public:
  ZT_INLINE ~ZtTemporaryGruu() override = default;

  /// The CSeq of the REGISTER request that made the GRUU valid.
  int setFirstCseqValue(unsigned cseq) { return m_FirstCseq.Set(cseq); }
  unsigned getFirstCseqValue() const { return m_FirstCseq; }
  std::optional<std::uint32_t> firstCseq() const { return m_FirstCseq.Stated<std::uint32_t>(); }

 private:
  friend struct GruuBinding;
  ZtNumber m_FirstCseq;
};

/// The element "pub-gruu".
class zt_pub_gruu : public ZtTyped<zt_pub_gruu, ZtGruu> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The element "temp-gruu".
class zt_temp_gruu : public ZtTyped<zt_temp_gruu, ZtTemporaryGruu> {
 public:
  ZT_API static const ZtElementType kType;
};

/// "pub-gruu" where it is not a root. The library reads GRUUs as zt_pub_gruu.
class zt_ns_gruuinfo_pubGruu : public ZtTyped<zt_ns_gruuinfo_pubGruu, ZtGruu> {
 public:
  ZT_API static const ZtElementType kType;
};

/// "temp-gruu" where it is not a root. The library reads GRUUs as zt_temp_gruu.
class zt_ns_gruuinfo_tempGruu : public ZtTyped<zt_ns_gruuinfo_tempGruu, ZtTemporaryGruu> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The context of GRUU information, XML_SCHEMA_GRUU.
class GruuContext : public ZtDescribedBy<GruuContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty objects; each is the caller's until a parent takes it. Null when out of memory.
class ZT_API GruuDataBinder : public ZtDescribedBy<GruuContext, ZtFactory> {
 public:
  /// Chooses what CreateRootElement makes: "pub-gruu", "temp-gruu" or the beginning of either
  /// (copied). Always 1.
  int setGruuType(const char* type) { return m_pGruutype.Assign(type); }
  /// A new zt_pub_gruu or zt_temp_gruu, as set with setGruuType; null for any other text.
  XMLObject* CreateRootElement() override;
  zt_pub_gruu* CreatePubGruuElement() { return Make(); }
  zt_temp_gruu* CreateTempGruuElement() { return Make(); }
  zt_ns_gruuinfo_pubGruu* CreateNsPubGruuElement() { return Make(); }
  zt_ns_gruuinfo_tempGruu* CreateNsTempGruuElement() { return Make(); }

 private:
  ZtText m_pGruutype;
};

/// Writes one GRUU without any prefix. Its Add functions write one element each and return 1, or 0
/// on failure; they work only while Marshall runs.
class GruuMarshaller : public ZtDescribedBy<GruuContext, ZtMarshaller> {
 public:
  int AddPubGruuElementToXml(zt_pub_gruu* gruu) { return Write(gruu); }
  int AddTempGruuElementToXml(zt_temp_gruu* gruu) { return Write(gruu); }
};

/// Reads one "pub-gruu" or "temp-gruu" element, with any prefix.
class XMLGruuDecoder : public ZtDecoderOf<GruuContext> {};
/// Reads one GRUU: a zt_pub_gruu or a zt_temp_gruu.
class GruuUnMarshaller : public ZtDescribedBy<GruuContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLGRUU_H
