#include "XMLPresence.h"

#include "Presence.h"
#include "PresenceBinding.h"
#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtReading.h"

namespace {

constexpr char kSource[] = "src/XMLPresence";
constexpr ZtFamily kFamily = ZtPresenceFamily(kSource);

constexpr ZtEnumSlot kBasicSlots[] = {"open", "closed"};
constexpr ZtEnumTable kBasic = {kBasicSlots, 2, 2, ZT_PRESENCE_BASIC_ABSENT, false};

}  // namespace

// ---- Types --------------------------------------------------------------------------------------

struct PresenceBinding {
  using Status = PresenceNameSpace::zt_status;

  static constexpr ZtField kNote[] = {
      ztrow::OwnText(XML_STR_NOTE, &zt_note::m_Value),
      kZtOthers,
  };
  static constexpr ZtField kContact[] = {
      ztrow::Attribute(XML_STR_PRIORITY, &zt_contact::m_Priority),
      ztrow::OwnText(XML_STR_CONTACT, &zt_contact::m_Uri),
      kZtOthers,
  };
  static constexpr ZtField kStatus[] = {
      ztrow::TextElement(XML_STR_BASIC, &Status::m_Basic, kBasic),
      kZtOthers,
  };

  static constexpr ZtChoice kExtensions[] = {
      {XML_STR_SERVICE_DESCRIPTION, zt_ns_oma_pres_service_description::kType},
      {XML_STR_SERVCAPS, zt_ns_caps_servcaps::kType},
      {}};
  // Intended: a tuple without its required id fails the document without a line of its own; log
  // readers find the line of the document that failed.
  static constexpr ZtField kTuple[] = {
      ztrow::Attribute(XML_STR_ID, &zt_tuple::m_Id).Required(nullptr, 0),
      ztrow::Child(XML_STR_STATUS, &zt_tuple::m_Status, Status::kType),
      ZtExtensibleRows::Elements<ZtElement>(kExtensions),
      ztrow::Child(XML_STR_CONTACT, &zt_tuple::m_Contact, zt_contact::kType),
      ztrow::TextElement(XML_STR_TIMESTAMP, &zt_tuple::m_Timestamp),
      ztrow::Children(XML_STR_NOTE, &zt_tuple::m_Notes, zt_note::kType),
  };

  static constexpr ZtField kPresence[] = {
      ztrow::Attribute(XML_STR_ENTITY, &zt_presence::m_Entity)
          .Required("PresenceMarshaller :: AddPresenceElementToXml: Entity is mandatory attribute",
                    kZtLogError),
      ztrow::Children(XML_STR_TUPLE, &zt_presence::m_Tuples, zt_tuple::kType),
      ztrow::Children(XML_STR_NOTE, &zt_presence::m_Notes, zt_note::kType),
      ZtExtensibleRows::kElements<ZtObject>,
  };

  static_assert(ztrow::Sound(kNote) && ztrow::Sound(kContact) && ztrow::Sound(kStatus));
  static_assert(ztrow::Sound(kTuple) && ztrow::Sound(kPresence));

  // Intended: the prefixes "op" and "caps" are always declared, and written in the place of those
  // that the document had; peers compare the text.
  static constexpr ZtFixedAttribute kNamespaces[] = {
      {XML_STR_URN_IETF_PARAMS_XML_NS_PIDF, XML_STR_ZT_NULL},
      {XML_STR_URN_OMA_XML_PRS_PIDF_OMA_PRES, XML_STR_OP},
      {XML_STR_URN_IETF_PARAMS_XML_NS_PIDF_CAPS, XML_STR_CAPS}};
};

const ZtElementType zt_note::kType = ZtTypeOf<zt_note>("zt_note", "note", kFamily)
                                         .Fields(PresenceBinding::kNote)
                                         .Writer(XML_STR_NOTE, "AddNoteElementToXml");

const ZtElementType zt_contact::kType = ZtTypeOf<zt_contact>("zt_contact", "contact", kFamily)
                                            .Fields(PresenceBinding::kContact)
                                            .Writer(XML_STR_CONTACT, "AddContactElementToXml");

const ZtElementType PresenceNameSpace::zt_status::kType =
    ZtTypeOf<PresenceNameSpace::zt_status>("PresenceNameSpace::zt_status", "status", kFamily)
        .Fields(PresenceBinding::kStatus)
        .Writer(XML_STR_STATUS, "AddStatusElementToXml");

const ZtElementType zt_tuple::kType = ZtTypeOf<zt_tuple>("zt_tuple", "tuple", kFamily)
                                          .Fields(PresenceBinding::kTuple)
                                          .Writer(XML_STR_TUPLE, "AddTupleElementToXml");

const ZtElementType zt_presence::kType = ZtTypeOf<zt_presence>("zt_presence", "presence", kFamily)
                                             .Fields(PresenceBinding::kPresence)
                                             .Writer(XML_STR_PRESENCE, "AddPresenceElementToXml")
                                             .Declares(PresenceBinding::kNamespaces)
                                             .Root();

// ---- Decoder ------------------------------------------------------------------------------------

namespace {

constexpr ZtRoot kRoots[] = {{XML_STR_PRESENCE, &zt_presence::kType}};
constexpr ZtReading kReading =
    ZtReading("XMLPresenceDecoder", "src/Presence", ZtPrefixRule::kStrip).Roots(kRoots);

}  // namespace

XMLPresenceDecoder::XMLPresenceDecoder() : ZtSchemaDecoder(kReading) {}

// ---- Workers ------------------------------------------------------------------------------------

XMLObject* PresenceDataBinder::CreateRootElement() { return ZtCreate<zt_presence>(kSource); }
zt_tuple* PresenceDataBinder::CreateTupleElement() { return ZtCreate<zt_tuple>(kSource); }
PresenceNameSpace::zt_status* PresenceDataBinder::CreateStatusElement() {
  return ZtCreate<PresenceNameSpace::zt_status>(kSource);
}
zt_contact* PresenceDataBinder::CreateContactElement() { return ZtCreate<zt_contact>(kSource); }
zt_note* PresenceDataBinder::CreateNoteElement() { return ZtCreate<zt_note>(kSource); }
zt_ns_oma_pres_service_description* PresenceDataBinder::CreateServiceDescriptionElement() {
  return ZtCreate<zt_ns_oma_pres_service_description>(kSource);
}
zt_ns_caps_servcaps* PresenceDataBinder::CreateServcapsElement() {
  return ZtCreate<zt_ns_caps_servcaps>(kSource);
}
zt_ns_caps_duplextype* PresenceDataBinder::CreateDuplexElement() {
  return ZtCreate<zt_ns_caps_duplextype>(kSource);
}
zt_ns_caps_duplextypes* PresenceDataBinder::CreateDuplexTypesElement() {
  return ZtCreate<zt_ns_caps_duplextypes>(kSource);
}

int PresenceMarshaller::AddPresenceElementToXml(zt_presence* presence) {
  return Write(presence, zt_presence::kType);
}
int PresenceMarshaller::AddTupleElementToXml(zt_tuple* tuple) {
  return Write(tuple, zt_tuple::kType);
}
int PresenceMarshaller::AddStatusElementToXml(PresenceNameSpace::zt_status* status) {
  return Write(status, PresenceNameSpace::zt_status::kType);
}
int PresenceMarshaller::AddContactElementToXml(zt_contact* contact) {
  return Write(contact, zt_contact::kType);
}
int PresenceMarshaller::AddNoteElementToXml(zt_note* note) { return Write(note, zt_note::kType); }
int PresenceMarshaller::AddServiceDescriptionElementToXml(
    zt_ns_oma_pres_service_description* description) {
  return Write(description, zt_ns_oma_pres_service_description::kType);
}
int PresenceMarshaller::AddServcapsElementToXml(zt_ns_caps_servcaps* servcaps) {
  return Write(servcaps, zt_ns_caps_servcaps::kType);
}
int PresenceMarshaller::AddDuplexElementToXml(zt_ns_caps_duplextype* duplex) {
  return Write(duplex, zt_ns_caps_duplextype::kType);
}
int PresenceMarshaller::AddDuplexTypesElementToXml(zt_ns_caps_duplextypes* modes) {
  return Write(modes, zt_ns_caps_duplextypes::kType);
}

const ZtDocument PresenceContext::kDocument =
    ZtDocumentOf<PresenceContext, XMLPresenceDecoder, PresenceUnMarshaller, PresenceMarshaller,
                 PresenceDataBinder>({XML_SCHEMA_PRESENCE,
                                      "Presence",
                                      {"presence", nullptr},
                                      "urn:ietf:params:xml:ns:pidf",
                                      true},
                                     kSource)
        .Reads("PresenceUnMarshaller")
        .Writes(kZtRoots<zt_presence>, "PresenceMarshaller", "mPresenceXml")
        // Intended: log readers know a presence document that was written as the
        // IsComposingMarshaller's; a failure has the right name.
        .ReportsAs("IsComposingMarshaller", "PresenceMarshaller");
