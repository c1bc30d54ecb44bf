// Capabilities of a service in a presence document (RFC 5196).
#ifndef ZTXML_INCLUDE_XMLCAPS_H
#define ZTXML_INCLUDE_XMLCAPS_H

#include "ztxml/ZtElement.h"

/// Whether a service has a capability.
enum zt_caps_boolean_enum : unsigned {
  ZT_CAPS_FALSE,
  ZT_CAPS_TRUE,
  ZT_CAPS_ABSENT  ///< missing or not understood; not written
};

/// The duplex modes inside "supported" or "notsupported". A mode is there when its text is set,
/// usually to "", and is written with that text; null means absent. Texts are copied.
class zt_ns_caps_duplextypes : public ZtTyped<zt_ns_caps_duplextypes, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Any text makes the mode present and is written, unescaped, as its content; null makes it
  /// absent.
  int setFullValue(const char* full) { return m_Full.Assign(full); }
  const char* getFullValue() const { return m_Full.Get(); }
  int setHalfValue(const char* half) { return m_Half.Assign(half); }
  const char* getHalfValue() const { return m_Half.Get(); }
  int setReceiveOnlyValue(const char* receiveOnly) { return m_ReceiveOnly.Assign(receiveOnly); }
  const char* getReceiveOnlyValue() const { return m_ReceiveOnly.Get(); }
  int setSendOnlyValue(const char* sendOnly) { return m_SendOnly.Assign(sendOnly); }
  const char* getSendOnlyValue() const { return m_SendOnly.Get(); }

 private:
  ZtText m_Full;
  ZtText m_Half;
  ZtText m_ReceiveOnly;
  ZtText m_SendOnly;
};

/// The element "duplex".
class zt_ns_caps_duplextype : public ZtTyped<zt_ns_caps_duplextype, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The modes that the service supports (taken); null for none.
  int setSupportedValue(zt_ns_caps_duplextypes* modes) { return m_Supported.Set(modes); }
  zt_ns_caps_duplextypes* getSupportedValue() const { return m_Supported; }
  /// The modes that it does not support (taken); null for none.
  int setNotsupportedValue(zt_ns_caps_duplextypes* modes) { return m_Notsupported.Set(modes); }
  zt_ns_caps_duplextypes* getNotsupportedValue() const { return m_Notsupported; }

 private:
  ZtChildOf<zt_ns_caps_duplextypes> m_Supported;
  ZtChildOf<zt_ns_caps_duplextypes> m_Notsupported;
};

/// The element "servcaps": what a service can do.
class zt_ns_caps_servcaps : public ZtTyped<zt_ns_caps_servcaps, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Whether the service sends or receives audio.
  int setAudioValue(zt_caps_boolean_enum audio) { return m_Audio.Set(audio); }
  zt_caps_boolean_enum getAudioValue() const { return m_Audio; }
  std::optional<bool> audio() const { return m_Audio.Stated<bool>(); }
  /// Takes the duplex modes; null for none.
  int setDuplexValue(zt_ns_caps_duplextype* duplex) { return m_Duplex.Set(duplex); }
  zt_ns_caps_duplextype* getDuplexValue() const { return m_Duplex; }
  /// Whether the service sends or receives video.
  int setVideoValue(zt_caps_boolean_enum video) { return m_Video.Set(video); }
  zt_caps_boolean_enum getVideoValue() const { return m_Video; }
  std::optional<bool> video() const { return m_Video.Stated<bool>(); }

 private:
  ZtNumber m_Audio = ZT_CAPS_ABSENT;
  ZtChildOf<zt_ns_caps_duplextype> m_Duplex;
  ZtNumber m_Video = ZT_CAPS_ABSENT;
};

#endif  // ZTXML_INCLUDE_XMLCAPS_H
