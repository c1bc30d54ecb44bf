// The schemas that the library knows.
#ifndef ZTXML_INCLUDE_XMLSCHEMAINFO_H
#define ZTXML_INCLUDE_XMLSCHEMAINFO_H

/// The schemas. Intended: the numbers 6 and 8 have no context, and no other schema moved up to
/// them; callers are compiled with the numbers.
enum eXMLSchemaID : int {
  XML_SCHEMA_IS_COMPOSING = 0,
  XML_SCHEMA_RESOURCE_LISTS = 1,
  XML_SCHEMA_CONFERENCE_INFO = 2,
  XML_SCHEMA_IMDN = 3,
  XML_SCHEMA_COMMUNICATION_WAITING = 4,
  XML_SCHEMA_OIP = 5,
  XML_SCHEMA_TIP = 7,
  XML_SCHEMA_COMMUNICATION_DIVERSION = 9,
  XML_SCHEMA_COMMUNICATION_BARRING = 10,
  XML_SCHEMA_SIMSERVS = 11,
  XML_SCHEMA_XCAP_ERROR = 12,
  XML_SCHEMA_WAP_PROVISIONING_DOC = 13,
  XML_SCHEMA_VOLTE_CONFIG_INFO = 14,
  XML_SCHEMA_PRESENCE = 15,
  XML_SCHEMA_RLS_SERVICES = 16,
  XML_SCHEMA_LIST = 17,
  XML_SCHEMA_XCAP_DIRECTORY = 18,
  XML_SCHEMA_FILE = 19,
  XML_SCHEMA_MEDIA_CONTROL = 20,
  XML_SCHEMA_CALL_WAITING_INDICATION = 21,
  XML_SCHEMA_CW_INDICATION = 22,
  XML_SCHEMA_RCS_TERMS_INFO = 23,
  XML_SCHEMA_BOOTSTRAPPING_INFO = 24,
  XML_SCHEMA_GRUU = 25,
  XML_SCHEMA_REGINFO = 26,
  XML_SCHEMA_NAMESPACE_RETRIEVAL = 27,
  XML_SCHEMA_END  ///< one more than the last: no schema
};

/// What the library tells of a schema. All texts are static.
struct XMLSchemaInfo {
  eXMLSchemaID id;        ///< its number
  const char* name;       ///< the context's name without "Context", e.g. "Reginfo"
  const char* roots[2];   ///< local names of its root elements; null: none, or any root
  const char* nameSpace;  ///< namespace of the root element, null when it has none
  bool writes;            ///< whether its marshaller writes documents
};

#endif  // ZTXML_INCLUDE_XMLSCHEMAINFO_H
