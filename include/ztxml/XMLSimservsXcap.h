// What the supplementary services share (3GPP TS 24.623): the base of every service and the types
// of a few conditions.
#ifndef ZTXML_INCLUDE_XMLSIMSERVSXCAP_H
#define ZTXML_INCLUDE_XMLSIMSERVSXCAP_H

#include "ztxml/ZtElement.h"

/// The base of every service: whether it is active, and what it keeps of unknown content.
class zt_ns_xcap_simservType : public ZtTyped<zt_ns_xcap_simservType, ZtExtensible<ZtObject>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "active": 1 or 0 (at first); always written.
  int setActiveValue(int active) { return m_Active.Set(active ? 1 : 0); }
  int getActiveValue() const { return m_Active.Get() ? 1 : 0; }
  std::optional<bool> active() const { return m_Active.Stated<bool>(); }

 private:
  friend struct SimservBinding;

  ZtNumber m_Active;
};

/// The condition "media": a rule holds for sessions with this media, e.g. "audio".
class zt_ns_xcap_media_type : public ZtTyped<zt_ns_xcap_media_type> {
 public:
  ZT_API static const ZtElementType kType;
  /// Raw text (copied): the caller escapes markup in it.
  int setMediaValue(const char* media) { return m_Media.Assign(media); }
  const char* getMediaValue() const { return m_Media.Get(); }

 private:
  ZtText m_Media;
};

/// A "presence-status" with an activity as its text. Documents are read with a flag in its place,
/// and no marshaller writes it: this type is for callers.
class zt_presence_status_activity_type : public ZtTyped<zt_presence_status_activity_type> {
 public:
  ZT_API static const ZtElementType kType;
  /// The activity (copied); null means absent.
  int setActivityValue(const char* activity) { return m_Activity.Assign(activity); }
  const char* getActivityValue() const { return m_Activity.Get(); }

 private:
  ZtText m_Activity;
};

/// The condition "external-list" of the OMA common policy, without its content.
class zt_external_list : public ZtTyped<zt_external_list> {
 public:
  ZT_API static const ZtElementType kType;
};

#endif  // ZTXML_INCLUDE_XMLSIMSERVSXCAP_H
