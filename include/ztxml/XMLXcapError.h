// XCAP errors (RFC 4825): why a server refused a request, the body of a 409 response.
#ifndef ZTXML_INCLUDE_XMLXCAPERROR_H
#define ZTXML_INCLUDE_XMLXCAPERROR_H

#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

/// What the errors that carry a phrase have in common.
class ZtXcapPhrasedError : public ZtElement {
 public:
  ZT_INLINE ~ZtXcapPhrasedError() override = default;

  /// An explanation for people (copied); null means absent.
  int setPhraseValue(const char* phrase) { return m_Phrase.Assign(phrase); }
  const char* getPhraseValue() const { return m_Phrase.Get(); }

 private:
  friend struct XcapErrorBinding;

  ZtText m_Phrase;
};

/// The error "not-utf-8". Like the errors below it has no content but the phrase.
class zt_not_utf_8 : public ZtTyped<zt_not_utf_8, ZtXcapPhrasedError> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The error "cannot-delete".
class zt_cannot_delete : public ZtTyped<zt_cannot_delete, ZtXcapPhrasedError> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The error "constraint-failure".
class zt_constraint_failure : public ZtTyped<zt_constraint_failure, ZtXcapPhrasedError> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The error "not-well-formed".
class zt_not_well_formed : public ZtTyped<zt_not_well_formed, ZtXcapPhrasedError> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The error "not-xml-att-value".
class zt_not_xml_att_value : public ZtTyped<zt_not_xml_att_value, ZtXcapPhrasedError> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The error "cannot-insert".
class zt_cannot_insert : public ZtTyped<zt_cannot_insert, ZtXcapPhrasedError> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The error "not-xml-frag".
class zt_not_xml_frag : public ZtTyped<zt_not_xml_frag, ZtXcapPhrasedError> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The error "schema-validation-error".
class zt_schema_validation_error : public ZtTyped<zt_schema_validation_error, ZtXcapPhrasedError> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The element "no-parent": the element to be put has no place to go.
class zt_no_parent : public ZtTyped<zt_no_parent, ZtXcapPhrasedError> {
 public:
  ZT_API static const ZtElementType kType;
  /// The URI of the nearest ancestor that exists (copied); null means absent. Raw text, to be
  /// escaped by the caller.
  int setAncestorValue(const char* uri) { return m_Ancestor.Assign(uri); }
  const char* getAncestorValue() const { return m_Ancestor.Get(); }

 private:
  ZtText m_Ancestor;
};

/// The element "exists": a value that has to be unique and is not.
class zt_exists : public ZtTyped<zt_exists> {
 public:
  ZT_API static const ZtElementType kType;
  /// The node selector of the value (copied); null means absent.
  int setFieldValue(const char* selector) { return m_Field.Assign(selector); }
  const char* getFieldValue() const { return m_Field.Get(); }
  /// The values that would do: a list of zt_string (taken). Raw texts, to be escaped by the caller.
  int setAltValueListValue(ZtSingleElementList* list) { return m_AltValues.Set(list); }
  ZtListOf<zt_string>* getAltValueListValue() const { return m_AltValues; }
  /// Takes `value`, a zt_string; returns 0 when it is null, has an owner, or there is no memory.
  int addAltValue(zt_string* value) { return m_AltValues.Add(value); }

 private:
  ZtText m_Field;
  ZtChildListOf<zt_string> m_AltValues;
};

/// The element "uniqueness-failure".
class zt_uniqueness_failure : public ZtTyped<zt_uniqueness_failure, ZtXcapPhrasedError> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_exists (taken).
  int setExistsListValue(ZtSingleElementList* list) { return m_Exists.Set(list); }
  ZtListOf<zt_exists>* getExistsListValue() const { return m_Exists; }
  /// Takes `exists`; returns 0 when it is null, has an owner, or there is no memory.
  int addExists(zt_exists* exists) { return m_Exists.Add(exists); }

 private:
  ZtChildListOf<zt_exists> m_Exists;
};

/// The element "extension": an error that the standard does not know. What it keeps of its content
/// is never written.
class zt_extension : public ZtTyped<zt_extension, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The root element "xcap-error".
class zt_xcap_error : public ZtTyped<zt_xcap_error, ZtObject> {
 public:
  ZT_API static const ZtElementType kType;
  /// Takes the error, an object of a class above other than zt_exists: others are not written. Null
  /// for none. Ask which error it is by class, e.g. ZtAs<zt_no_parent>(getErrorValue()).
  int setErrorValue(XMLElement* error) { return m_Error.Set(error); }
  XMLElement* getErrorValue() const { return m_Error.Get(); }

 private:
  ZtChild m_Error;
};

/// The context of XCAP errors, XML_SCHEMA_XCAP_ERROR.
class XcapErrorContext : public ZtDescribedBy<XcapErrorContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty objects; each is the caller's until a parent takes it. Null when out of memory.
class ZT_API XcapErrorDataBinder : public ZtDescribedBy<XcapErrorContext, ZtFactory> {
 public:
  XMLObject* CreateRootElement() override;
  zt_extension* CreateExtensionElement() { return Make(__func__); }
  zt_not_utf_8* CreateNot_utf_8Element() { return Make(__func__); }
  zt_cannot_delete* CreateCannot_deleteElement() { return Make(__func__); }
  zt_constraint_failure* CreateConstraint_failureElement() { return Make(__func__); }
  zt_not_well_formed* CreateNot_well_formedElement() { return Make(__func__); }
  zt_exists* CreateExistsElement() { return Make(__func__); }
  zt_uniqueness_failure* CreateUniqueness_failureElement() { return Make(__func__); }
  zt_not_xml_att_value* CreateNot_xml_att_valueElement() { return Make(__func__); }
  zt_cannot_insert* CreateCannot_insertElement() { return Make(__func__); }
  zt_no_parent* CreateNo_parentElement() { return Make(__func__); }
  zt_not_xml_frag* CreateNot_xml_fragElement() { return Make(__func__); }
  zt_schema_validation_error* CreateSchema_validation_errorElement() { return Make(__func__); }
  /// A new list for elements to take; null when out of memory.
  ZtSingleElementList* CreateList();

 private:
  Made Make(const char* operation) const;
  ZT_LOCAL static void Log(const char* operation);
};

/// Writes a zt_xcap_error. Its Add functions write one element each and return 1, or 0 on failure;
/// they work only while Marshall runs.
class Xcap_ErrorMarshall : public ZtDescribedBy<XcapErrorContext, ZtMarshaller> {
 public:
  int AddXcap_errorElementToXml(zt_xcap_error* root) { return Write(root); }
  int AddNot_utf_8ElementToXml(zt_not_utf_8* error) { return Write(error); }
  int AddCannot_deleteElementToXml(zt_cannot_delete* error) { return Write(error); }
  int AddConstraint_failureElementToXml(zt_constraint_failure* error) { return Write(error); }
  int AddNot_well_formedElementToXml(zt_not_well_formed* error) { return Write(error); }
  int AddExistsElementToXml(zt_exists* exists) { return Write(exists); }
  int AddUniqueness_failureElementToXml(zt_uniqueness_failure* error) { return Write(error); }
  int AddNot_xml_att_valueElementToXml(zt_not_xml_att_value* error) { return Write(error); }
  int AddCannot_insertElementToXml(zt_cannot_insert* error) { return Write(error); }
  int AddNo_parentElementToXml(zt_no_parent* error) { return Write(error); }
  int AddNot_xml_fragElementToXml(zt_not_xml_frag* error) { return Write(error); }
  int AddSchema_validation_errorElementToXml(zt_schema_validation_error* error) {
    return Write(error);
  }
  int AddExtensionElementToXml(zt_extension* error) { return Write(error); }
};

/// Reads an "xcap-error" document. Names are taken without their prefixes.
class XMLXcapErrorDecoder : public ZtDecoderOf<XcapErrorContext> {};
/// Reads a zt_xcap_error. Elements are known by their local names, whatever their prefixes; of
/// several errors the last one is kept.
class XcapErrorUnMarshaller : public ZtDescribedBy<XcapErrorContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLXCAPERROR_H
