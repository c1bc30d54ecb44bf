// Terms and conditions of an operator's services (GSMA RCS services).
//
// Elements own their texts, children and lists: setters copy texts, take objects and lists with
// their entries, and free what they replace; null means absent. The add operations take one object
// and return 1, or 0 when it is null, has an owner, or there is no memory. Texts are raw: callers
// escape them.
#ifndef ZTXML_INCLUDE_XMLRCSTERMSINFO_H
#define ZTXML_INCLUDE_XMLRCSTERMSINFO_H

#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtSchemaDecoder.h"

/// A "term": a document to be accepted.
class zt_ns_rcs_terms_info_term : public ZtTyped<zt_ns_rcs_terms_info_term> {
 public:
  ZT_API static const ZtElementType kType;
  /// The document's title.
  int setTitleValue(const char* text) { return m_Title.Assign(text); }
  const char* getTitleValue() const { return m_Title.Get(); }
  /// Where the document is.
  int setUrlValue(const char* text) { return m_Url.Assign(text); }
  const char* getUrlValue() const { return m_Url.Get(); }

 private:
  ZtText m_Title;
  ZtText m_Url;
};

/// The root element "rcs-terms-info".
class zt_rcs_terms_info : public ZtTyped<zt_rcs_terms_info, ZtObject> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "version"; 0 when absent.
  int setVersionValue(unsigned int value) { return m_Version.Set(value); }
  unsigned int getVersionValue() const { return m_Version; }
  std::optional<std::uint32_t> version() const { return m_Version.Stated<std::uint32_t>(); }
  /// The version of the terms.
  int setTermsVersionValue(const char* text) { return m_TermsVersion.Assign(text); }
  const char* getTermsVersionValue() const { return m_TermsVersion.Get(); }
  /// A list of zt_ns_rcs_terms_info_term.
  int setTermListValue(ZtSingleElementList* list) { return m_Terms.Set(list); }
  ZtListOf<zt_ns_rcs_terms_info_term>* getTermListValue() const { return m_Terms; }
  int addTerm(zt_ns_rcs_terms_info_term* element) { return m_Terms.Add(element); }

 private:
  ZtNumber m_Version;
  ZtText m_TermsVersion;
  ZtChildListOf<zt_ns_rcs_terms_info_term> m_Terms;
};

/// The context of this document, XML_SCHEMA_RCS_TERMS_INFO.
class RcsTermsInfoContext : public ZtDescribedBy<RcsTermsInfoContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class RcsTermsInfoDataBinder : public ZtDescribedBy<RcsTermsInfoContext, ZtFactory> {
 public:
  zt_ns_rcs_terms_info_term* CreateTermElement() { return Make(); }
};

/// Writes a zt_rcs_terms_info. Its Add functions write one element each and return 1, or 0 on
/// failure; they work only while Marshall runs.
class RcsTermsInfoMarshaller : public ZtDescribedBy<RcsTermsInfoContext, ZtMarshaller> {
 public:
  int AddRcsTermsInfoElementToXml(zt_rcs_terms_info* terms) { return Write(terms); }
  int AddTermElementToXml(zt_ns_rcs_terms_info_term* term) { return Write(term); }
};

/// Reads a "rcs-terms-info" document, with any prefixes.
class XMLRcsTermsInfoDecoder : public ZtDecoderOf<RcsTermsInfoContext> {};
/// Reads a zt_rcs_terms_info.
class RcsTermsInfoUnMarshaller : public ZtDescribedBy<RcsTermsInfoContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLRCSTERMSINFO_H
