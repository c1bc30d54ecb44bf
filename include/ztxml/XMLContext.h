// The abstract context of a schema, which hands out its three workers.
#ifndef ZTXML_INCLUDE_XMLCONTEXT_H
#define ZTXML_INCLUDE_XMLCONTEXT_H

#include "ztxml/XMLMarshaller.h"
#include "ztxml/XMLObjectFactory.h"
#include "ztxml/XMLUnMarshaller.h"
#include "ztxml/ZtLoss.h"

/// How documents are read and written.
enum eXMLProfile {
  XML_PROFILE_EXACT,    ///< byte for byte as peers know the library (the default)
  XML_PROFILE_STANDARD  ///< as XML, its namespaces and the schemas have it, without losses
};

/// What is asked of a context; see the operations of XMLContext.
struct ZtSettings : ZtHeapObject {
  /// The bytes that a text may have at first.
  static constexpr std::size_t kMostText = std::size_t{16} * 1024 * 1024;

  /// By UseProfile, KeepSource, LimitText and TellLosses, in this order.
  eXMLProfile profile = XML_PROFILE_EXACT;
  bool keepsSource = false;
  std::size_t mostText = kMostText;
  ZtLossHandler lost = nullptr;
  void* lostContext = nullptr;
};

/// Made by XMLFactory::newInstance, freed with XMLFactory::deleteContext together with every worker
/// that it made.
class ZT_API XMLContext : public ZtNonCopyable {
 public:
  virtual ~XMLContext();
  /// Each call makes a new worker (earlier ones stay valid); null when there is none for the schema
  /// or no memory.
  virtual XMLMarshaller* createMarshaller() = 0;
  virtual XMLUnMarshaller* createUnMarshaller() = 0;
  virtual XMLObjectFactory* createBinderFactory() = 0;
  /// Sets the namespaces of a document, as the schema namespace retrieval collected them (borrowed
  /// until the context goes or another is set). Returns 1, or 0 when the schema uses none.
  virtual int SetNamespaceBinder(XMLObject* binder);
  /// Chooses the profile of the workers and of the objects that factories make. Returns 1; 0, and
  /// changes nothing, after the first worker was made or without memory.
  int UseProfile(eXMLProfile profile);
  eXMLProfile profile() const { return settings().profile; }
  /// Whether trees that are read in the standard profile remember what they were read from, so that
  /// a marshaller can Update it (at first not). It costs the size of the text and 48 to 96 bytes
  /// for each element with an object. Returns 1; 0 without memory, as the next two.
  int KeepSource(bool keep);
  /// The bytes that a text of the standard profile may have at most; at first 16 MiB.
  int LimitText(std::size_t bytes);
  /// Has `handler` (null for none, as at first) told what the types do not keep of each document
  /// that is read, in both profiles. `context` is handed to it.
  int TellLosses(ZtLossHandler handler, void* context);
  const ZtSettings& settings() const;
  /// The latest worker of each kind, null before the first.
  XMLMarshaller* marshaller() const { return m_pMarshaller; }
  XMLUnMarshaller* unMarshaller() const { return m_pUnMarshaller; }
  XMLObjectFactory* binderFactory() const { return m_pBinderFactory; }

 protected:
  XMLContext() = default;
  /// Takes a worker that was made and recorded, makes it the latest and returns it.
  XMLMarshaller* Keep(XMLMarshaller* worker);
  XMLUnMarshaller* Keep(XMLUnMarshaller* worker);
  XMLObjectFactory* Keep(XMLObjectFactory* worker);

 private:
  struct Older;
  ZT_LOCAL ZtSettings* Settings();
  template <class Worker>
  Worker* KeepIn(Worker*& field, Worker* worker);

  XMLMarshaller* m_pMarshaller = nullptr;
  XMLUnMarshaller* m_pUnMarshaller = nullptr;
  XMLObjectFactory* m_pBinderFactory = nullptr;
  Older* m_pOlder = nullptr;  // workers that a later one replaced: callers may still use them
  ZtSettings* m_pSettings = nullptr;  // null as long as nothing was asked for
};

#endif  // ZTXML_INCLUDE_XMLCONTEXT_H
