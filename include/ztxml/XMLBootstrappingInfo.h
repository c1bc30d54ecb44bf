// What a bootstrapping server answers (3GPP TS 24.109).
//
// Elements own what they hold: setters copy texts, take objects, and free what they replace; null
// means absent. Texts are raw: callers escape them.
#ifndef ZTXML_INCLUDE_XMLBOOTSTRAPPINGINFO_H
#define ZTXML_INCLUDE_XMLBOOTSTRAPPINGINFO_H

#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The root element "BootstrappingInfo".
class zt_bootstrappinginfo : public ZtTyped<zt_bootstrappinginfo, ZtObject> {
 public:
  ZT_API static const ZtElementType kType;
  /// The bootstrapping transaction identifier.
  int setBtidValue(const char* text) { return m_Btid.Assign(text); }
  const char* getBtidValue() const { return m_Btid.Get(); }
  /// The date and time up to which the identifier is valid.
  int setLifetimeValue(const char* text) { return m_Lifetime.Assign(text); }
  const char* getLifetimeValue() const { return m_Lifetime.Get(); }

 private:
  ZtText m_Btid;
  ZtText m_Lifetime;
};

/// The context of this document, XML_SCHEMA_BOOTSTRAPPING_INFO.
class BootstrappingInfoContext : public ZtDescribedBy<BootstrappingInfoContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class BootstrappingInfoDataBinder : public ZtDescribedBy<BootstrappingInfoContext, ZtFactory> {
 public:
};

/// Writes a zt_bootstrappinginfo. Its Add functions write one element each and return 1, or 0 on
/// failure; they work only while Marshall runs.
class BootstrappingInfoMarshaller : public ZtDescribedBy<BootstrappingInfoContext, ZtMarshaller> {
 public:
  int AddBootstrappingInfoElementToXml(zt_bootstrappinginfo* info) { return Write(info); }
  int AddBtidElementToXml(char* btid) {
    return WriteText<zt_bootstrappinginfo>(XML_STR_BTID, btid);
  }
  int AddLifetimeElementToXml(char* lifetime) {
    return WriteText<zt_bootstrappinginfo>(XML_STR_LIFETIME, lifetime);
  }
};

/// Reads a "BootstrappingInfo" document, with any prefixes.
class XMLBootstrappingInfoDecoder : public ZtDecoderOf<BootstrappingInfoContext> {};
/// Reads a zt_bootstrappinginfo.
class BootstrappingInfoUnMarshaller
    : public ZtDescribedBy<BootstrappingInfoContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLBOOTSTRAPPINGINFO_H
