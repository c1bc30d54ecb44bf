// Is-composing indications (RFC 3994): whether somebody is writing a message.
#ifndef ZTXML_INCLUDE_XMLISCOMPOSING_H
#define ZTXML_INCLUDE_XMLISCOMPOSING_H

#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The root element "isComposing". Texts are copied and raw: the caller escapes markup in them;
/// null means absent.
class zt_isComposing : public ZtTyped<zt_isComposing, ZtKeepsElements<ZtObject>> {
 public:
  ZT_API static const ZtElementType kType;
  /// "active" or "idle"; any text is taken. The element cannot be written without it.
  int setStateValue(const char* state) { return m_State.Assign(state); }
  const char* getStateValue() const { return m_State.Get(); }
  /// When the sender was last active, an RFC 3339 date and time.
  int setLastactiveValue(const char* time) { return m_Lastactive.Assign(time); }
  const char* getLastactiveValue() const { return m_Lastactive.Get(); }
  /// The media type of what is being composed.
  int setContenttypeValue(const char* type) { return m_Contenttype.Assign(type); }
  const char* getContenttypeValue() const { return m_Contenttype.Get(); }
  /// Seconds until the indication is to be sent again; 0 means absent.
  int setRefreshValue(unsigned int seconds) { return m_Refresh.Set(seconds); }
  unsigned int getRefreshValue() const { return m_Refresh; }
  std::optional<std::uint32_t> refresh() const { return m_Refresh.Stated<std::uint32_t>(); }

 private:
  ZtText m_State;
  ZtText m_Lastactive;
  ZtText m_Contenttype;
  ZtNumber m_Refresh;
};

/// The context of is-composing indications, XML_SCHEMA_IS_COMPOSING.
class IsComposingContext : public ZtDescribedBy<IsComposingContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty objects; each is the caller's. Null when out of memory.
class IsComposingDataBinder : public ZtDescribedBy<IsComposingContext, ZtFactory> {
 public:
};

/// Writes a zt_isComposing. Its Add functions write one element each and return 1, or 0 on failure;
/// they work only while Marshall runs.
class ZT_API IsComposingMarshaller : public ZtDescribedBy<IsComposingContext, ZtMarshaller> {
 public:
  int AddIsComposingElementToXml(zt_isComposing* indication) { return Write(indication); }
  /// Each returns 0 and writes nothing for a null text or 0 seconds.
  int AddStateElementToXml(char* state) { return WriteText<zt_isComposing>(XML_STR_STATE, state); }
  int AddLastactiveElementToXml(char* time) {
    return WriteText<zt_isComposing>(XML_STR_LASTACTIVE, time);
  }
  int AddContenttypeElementToXml(char* type) {
    return WriteText<zt_isComposing>(XML_STR_CONTENTTYPE, type);
  }
  int AddRefreshElementToXml(unsigned int seconds);
};

/// Reads an "isComposing" document. Names with a prefix are unknown.
class XMLIsComposingDecoder : public ZtDecoderOf<IsComposingContext> {};
/// Reads a zt_isComposing.
class IsComposingUnMarshaller : public ZtDescribedBy<IsComposingContext, ZtUnMarshaller> {};
/// A self-check for developers: writes a sample indication, which the log shows, and frees it.
ZT_API void TestIsComposingMarshall();

#endif  // ZTXML_INCLUDE_XMLISCOMPOSING_H
