// Presence documents: PIDF (RFC 3863) with service capabilities (RFC 5196) and the service
// description of OMA Presence SIMPLE. Other extensions, such as the data model (RFC 4479) and RPID
// (RFC 4480), are not kept.
#ifndef ZTXML_INCLUDE_XMLPRESENCE_H
#define ZTXML_INCLUDE_XMLPRESENCE_H

#include "ztxml/XMLCaps.h"
#include "ztxml/XMLOmaPres.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

/// Whether a tuple's contact takes communication.
enum zt_presence_basic_enum : unsigned {
  ZT_PRESENCE_BASIC_OPEN,
  ZT_PRESENCE_BASIC_CLOSED,
  ZT_PRESENCE_BASIC_ABSENT  ///< missing or not understood; not written
};

/// The element "note": a comment for people.
class zt_note : public ZtTyped<zt_note, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The element's text (copied). Raw text, to be escaped by the caller.
  int setValueValue(const char* value) { return m_Value.Assign(value); }
  const char* getValueValue() const { return m_Value.Get(); }

 private:
  ZtText m_Value;
};

/// The element "contact".
class zt_contact : public ZtTyped<zt_contact, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The preference of the contact, "0" to "1" (copied); null means absent.
  int setPriorityValue(const char* priority) { return m_Priority.Assign(priority); }
  const char* getPriorityValue() const { return m_Priority.Get(); }
  /// The contact's URI, the element's text (copied). Null is written as one blank.
  int setUriValue(const char* uri) { return m_Uri.Assign(uri); }
  const char* getUriValue() const { return m_Uri.Get(); }

 private:
  ZtText m_Priority;
  ZtText m_Uri;
};

/// Keeps zt_status apart from the zt_status of disposition notifications (XMLImdn.h).
namespace PresenceNameSpace {

/// The element "status".
class zt_status : public ZtTyped<zt_status, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The text of "basic".
  int setBasicValue(zt_presence_basic_enum basic) { return m_Basic.Set(basic); }
  zt_presence_basic_enum getBasicValue() const { return m_Basic; }
  std::optional<zt_presence_basic_enum> basic() const {
    return m_Basic.Stated(ZT_PRESENCE_BASIC_ABSENT);
  }

 private:
  ZtNumber m_Basic = ZT_PRESENCE_BASIC_ABSENT;
};

}  // namespace PresenceNameSpace

/// The element "tuple": one way to reach the presentity. Of the elements that it keeps (see
/// ZtKeepsElements), zt_ns_oma_pres_service_description and zt_ns_caps_servcaps are written.
class zt_tuple : public ZtTyped<zt_tuple, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The element cannot be written without it. Texts are copied; null means absent, here and below.
  int setIdValue(const char* id) { return m_Id.Assign(id); }
  const char* getIdValue() const { return m_Id.Get(); }
  /// Takes the status; null for none.
  int setStatusValue(PresenceNameSpace::zt_status* status) { return m_Status.Set(status); }
  PresenceNameSpace::zt_status* getStatusValue() const { return m_Status; }
  /// Takes the contact; null for none.
  int setContactValue(zt_contact* contact) { return m_Contact.Set(contact); }
  zt_contact* getContactValue() const { return m_Contact; }
  /// When the tuple last changed (RFC 3339).
  int setTimestampValue(const char* timestamp) { return m_Timestamp.Assign(timestamp); }
  const char* getTimestampValue() const { return m_Timestamp.Get(); }
  /// A list of zt_note (taken).
  int setNoteListValue(ZtSingleElementList* list) { return m_Notes.Set(list); }
  ZtListOf<zt_note>* getNoteListValue() const { return m_Notes; }
  /// Takes `note`; returns 0 when it is null, has an owner, or there is no memory.
  int addNote(zt_note* note) { return m_Notes.Add(note); }

 private:
  friend struct PresenceBinding;

  ZtText m_Id;
  ZtChildOf<PresenceNameSpace::zt_status> m_Status;
  ZtChildOf<zt_contact> m_Contact;
  ZtText m_Timestamp;
  ZtChildListOf<zt_note> m_Notes;
};

/// The root element "presence".
class zt_presence : public ZtTyped<zt_presence, ZtKeepsElements<ZtObject>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The URI of the presentity (copied); the element cannot be written without it.
  int setEntityValue(const char* entity) { return m_Entity.Assign(entity); }
  const char* getEntityValue() const { return m_Entity.Get(); }
  /// A list of zt_tuple (taken).
  int setTupleListValue(ZtSingleElementList* list) { return m_Tuples.Set(list); }
  ZtListOf<zt_tuple>* getTupleListValue() const { return m_Tuples; }
  /// Takes `tuple`; returns 0 when it is null, has an owner, or there is no memory.
  int addTuple(zt_tuple* tuple) { return m_Tuples.Add(tuple); }
  /// A list of zt_note (taken), written after the tuples.
  int setNoteListValue(ZtSingleElementList* list) { return m_Notes.Set(list); }
  ZtListOf<zt_note>* getNoteListValue() const { return m_Notes; }
  /// Takes `note`; returns 0 when it is null, has an owner, or there is no memory.
  int addNote(zt_note* note) { return m_Notes.Add(note); }

 private:
  ZtText m_Entity;
  ZtChildListOf<zt_tuple> m_Tuples;
  ZtChildListOf<zt_note> m_Notes;
};

/// The context of presence documents, XML_SCHEMA_PRESENCE.
class PresenceContext : public ZtDescribedBy<PresenceContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty objects; each is the caller's until a parent takes it. Null when out of memory.
class PresenceDataBinder : public ZtDescribedBy<PresenceContext, ZtFactory> {
 public:
  zt_tuple* CreateTupleElement() { return Make(); }
  PresenceNameSpace::zt_status* CreateStatusElement() { return Make(); }
  zt_contact* CreateContactElement() { return Make(); }
  zt_note* CreateNoteElement() { return Make(); }
  zt_ns_oma_pres_service_description* CreateServiceDescriptionElement() { return Make(); }
  zt_ns_caps_servcaps* CreateServcapsElement() { return Make(); }
  zt_ns_caps_duplextype* CreateDuplexElement() { return Make(); }
  zt_ns_caps_duplextypes* CreateDuplexTypesElement() { return Make(); }
};

/// Writes a zt_presence. Its Add functions write one element each and return 1, or 0 on failure;
/// they work only while Marshall runs.
class PresenceMarshaller : public ZtDescribedBy<PresenceContext, ZtMarshaller> {
 public:
  int AddPresenceElementToXml(zt_presence* presence) { return Write(presence); }
  int AddTupleElementToXml(zt_tuple* tuple) { return Write(tuple); }
  int AddStatusElementToXml(PresenceNameSpace::zt_status* status) { return Write(status); }
  int AddContactElementToXml(zt_contact* contact) { return Write(contact); }
  int AddNoteElementToXml(zt_note* note) { return Write(note); }
  int AddServiceDescriptionElementToXml(zt_ns_oma_pres_service_description* description) {
    return Write(description);
  }
  int AddServcapsElementToXml(zt_ns_caps_servcaps* servcaps) { return Write(servcaps); }
  int AddDuplexElementToXml(zt_ns_caps_duplextype* duplex) { return Write(duplex); }
  /// Writes the modes alone, without an element around them.
  int AddDuplexTypesElementToXml(zt_ns_caps_duplextypes* modes) { return Write(modes); }
};

/// Reads a "presence" document, with any prefixes.
class XMLPresenceDecoder : public ZtDecoderOf<PresenceContext> {};
/// Reads a zt_presence. Elements are known by their local names, whatever their prefixes.
class PresenceUnMarshaller : public ZtDescribedBy<PresenceContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLPRESENCE_H
