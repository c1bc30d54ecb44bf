// XCAP errors (RFC 4825): why a server refused a request, the body of a 409 response.
#ifndef ZTXML_INCLUDE_XMLXCAPERROR_H
#define ZTXML_INCLUDE_XMLXCAPERROR_H

#include "XMLValueTypes.h"
#include "ZtDocument.h"
#include "ZtElement.h"

/// What the errors that carry a phrase have in common.
class ZT_API ZtXcapPhrasedError : public ZtElement {
 public:
  /// An explanation for people (copied); null means absent.
  int setPhraseValue(const char* phrase) { return m_Phrase.Assign(phrase); }
  const char* getPhraseValue() const { return m_Phrase.Get(); }

 private:
  friend struct XcapErrorBinding;

  ZtText m_Phrase;
};

/// The error "not-utf-8". It and those below say no more than their name and the phrase.
class ZT_API zt_not_utf_8 : public ZtTyped<zt_not_utf_8, ZtXcapPhrasedError> {
 public:
  static const ZtElementType kType;
};
/// The error "cannot-delete".
class ZT_API zt_cannot_delete : public ZtTyped<zt_cannot_delete, ZtXcapPhrasedError> {
 public:
  static const ZtElementType kType;
};
/// The error "constraint-failure".
class ZT_API zt_constraint_failure : public ZtTyped<zt_constraint_failure, ZtXcapPhrasedError> {
 public:
  static const ZtElementType kType;
};
/// The error "not-well-formed".
class ZT_API zt_not_well_formed : public ZtTyped<zt_not_well_formed, ZtXcapPhrasedError> {
 public:
  static const ZtElementType kType;
};
/// The error "not-xml-att-value".
class ZT_API zt_not_xml_att_value : public ZtTyped<zt_not_xml_att_value, ZtXcapPhrasedError> {
 public:
  static const ZtElementType kType;
};
/// The error "cannot-insert".
class ZT_API zt_cannot_insert : public ZtTyped<zt_cannot_insert, ZtXcapPhrasedError> {
 public:
  static const ZtElementType kType;
};
/// The error "not-xml-frag".
class ZT_API zt_not_xml_frag : public ZtTyped<zt_not_xml_frag, ZtXcapPhrasedError> {
 public:
  static const ZtElementType kType;
};
/// The error "schema-validation-error".
class ZT_API zt_schema_validation_error
    : public ZtTyped<zt_schema_validation_error, ZtXcapPhrasedError> {
 public:
  static const ZtElementType kType;
};

/// The element "no-parent": the element to be put has no place to go.
class ZT_API zt_no_parent : public ZtTyped<zt_no_parent, ZtXcapPhrasedError> {
 public:
  static const ZtElementType kType;

  /// The URI of the nearest ancestor that exists (copied); null means absent. Raw text, to be
  /// escaped by the caller.
  int setAncestorValue(const char* uri) { return m_Ancestor.Assign(uri); }
  const char* getAncestorValue() const { return m_Ancestor.Get(); }

 private:
  friend struct XcapErrorBinding;

  ZtText m_Ancestor;
};

/// The element "exists": a value that has to be unique and is not.
class ZT_API zt_exists : public ZtTyped<zt_exists> {
 public:
  static const ZtElementType kType;

  /// The node selector of the value (copied); null means absent.
  int setFieldValue(const char* selector) { return m_Field.Assign(selector); }
  const char* getFieldValue() const { return m_Field.Get(); }

  /// The values that would do: a list of zt_string (taken). Raw texts, to be escaped by the caller.
  int setAltValueListValue(ZtSingleElementList* list) { return m_AltValues.Set(list); }
  ZtListOf<zt_string>* getAltValueListValue() const { return m_AltValues.Of<zt_string>(); }
  /// Takes `value`, a zt_string; 0 when it is null or owned, or there is no memory.
  int addAltValue(zt_string* value) { return m_AltValues.Add(value); }

 private:
  friend struct XcapErrorBinding;

  ZtText m_Field;
  ZtChildList m_AltValues;
};

/// The element "uniqueness-failure".
class ZT_API zt_uniqueness_failure : public ZtTyped<zt_uniqueness_failure, ZtXcapPhrasedError> {
 public:
  static const ZtElementType kType;

  /// A list of zt_exists (taken).
  int setExistsListValue(ZtSingleElementList* list) { return m_Exists.Set(list); }
  ZtListOf<zt_exists>* getExistsListValue() const { return m_Exists.Of<zt_exists>(); }
  /// Takes `exists`; 0 when it is null or owned, or there is no memory.
  int addExists(zt_exists* exists) { return m_Exists.Add(exists); }

 private:
  friend struct XcapErrorBinding;

  ZtChildList m_Exists;
};

/// The element "extension": an error that the standard does not know. What it keeps of its content
/// is never written.
class ZT_API zt_extension : public ZtTyped<zt_extension, ZtKeepsElements<>> {
 public:
  static const ZtElementType kType;
};

/// The root element "xcap-error".
class ZT_API zt_xcap_error : public ZtTyped<zt_xcap_error, ZtObject> {
 public:
  static const ZtElementType kType;

  /// Takes the error, an object of one of the classes above but zt_exists: others are not written.
  /// Null for none. What a document says is asked by class: ZtAs<zt_no_parent>(getErrorValue()).
  int setErrorValue(XMLElement* error) { return m_Error.Set(error); }
  XMLElement* getErrorValue() const { return m_Error.Get(); }

 private:
  friend struct XcapErrorBinding;

  ZtChild m_Error;
};

/// Makes empty objects; each is the caller's until a parent takes it. Null without memory.
class ZT_API XcapErrorDataBinder : public XMLObjectFactory {
 public:
  XMLObject* CreateRootElement() override;
  zt_extension* CreateExtensionElement();
  zt_not_utf_8* CreateNot_utf_8Element();
  zt_cannot_delete* CreateCannot_deleteElement();
  zt_constraint_failure* CreateConstraint_failureElement();
  zt_not_well_formed* CreateNot_well_formedElement();
  zt_exists* CreateExistsElement();
  zt_uniqueness_failure* CreateUniqueness_failureElement();
  zt_not_xml_att_value* CreateNot_xml_att_valueElement();
  zt_cannot_insert* CreateCannot_insertElement();
  zt_no_parent* CreateNo_parentElement();
  zt_not_xml_frag* CreateNot_xml_fragElement();
  zt_schema_validation_error* CreateSchema_validation_errorElement();
  /// A list that elements can take.
  ZtSingleElementList* CreateList();
};

class XcapErrorContext;

/// Writes a zt_xcap_error. Besides Marshall, the steps that write one element each (1 written, 0
/// failed), which only a running Marshall can use.
class ZT_API Xcap_ErrorMarshall : public ZtDescribedBy<XcapErrorContext, ZtMarshaller> {
 public:
  int AddXcap_errorElementToXml(zt_xcap_error* root);
  int AddNot_utf_8ElementToXml(zt_not_utf_8* error);
  int AddCannot_deleteElementToXml(zt_cannot_delete* error);
  int AddConstraint_failureElementToXml(zt_constraint_failure* error);
  int AddNot_well_formedElementToXml(zt_not_well_formed* error);
  int AddExistsElementToXml(zt_exists* exists);
  int AddUniqueness_failureElementToXml(zt_uniqueness_failure* error);
  int AddNot_xml_att_valueElementToXml(zt_not_xml_att_value* error);
  int AddCannot_insertElementToXml(zt_cannot_insert* error);
  int AddNo_parentElementToXml(zt_no_parent* error);
  int AddNot_xml_fragElementToXml(zt_not_xml_frag* error);
  int AddSchema_validation_errorElementToXml(zt_schema_validation_error* error);
  int AddExtensionElementToXml(zt_extension* error);
};

/// Reads a zt_xcap_error. Elements are known by their local names, whatever their prefixes; of
/// several errors the last stands.
class ZT_API XcapErrorUnMarshaller : public ZtDescribedBy<XcapErrorContext, ZtUnMarshaller> {};

/// The context of XCAP errors, XML_SCHEMA_XCAP_ERROR.
class ZT_API XcapErrorContext : public ZtDescribedBy<XcapErrorContext, ZtContext> {
 public:
  static const ZtDocument kDocument;
};

#endif  // ZTXML_INCLUDE_XMLXCAPERROR_H
