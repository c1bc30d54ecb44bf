// The abstract context of a schema, which hands out its three workers.
#ifndef ZTXML_INCLUDE_XMLCONTEXT_H
#define ZTXML_INCLUDE_XMLCONTEXT_H

#include "XMLMarshaller.h"
#include "XMLObjectFactory.h"
#include "XMLUnMarshaller.h"

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
  template <class Worker>
  Worker* KeepIn(Worker*& field, Worker* worker);

  XMLMarshaller* m_pMarshaller = nullptr;
  XMLUnMarshaller* m_pUnMarshaller = nullptr;
  XMLObjectFactory* m_pBinderFactory = nullptr;
  Older* m_pOlder = nullptr;  // workers that a later one replaced: callers may still use them
};

#endif  // ZTXML_INCLUDE_XMLCONTEXT_H
