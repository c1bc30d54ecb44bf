// One schema's workers, for tests and fuzz targets that read and write documents.
#ifndef ZTXML_TESTS_API_WORKERS_H
#define ZTXML_TESTS_API_WORKERS_H

#include <memory>
#include <string>

#include "ztxml/XMLFactory.h"

struct TreeDeleter {
  void operator()(XMLElement* element) const { XMLFactory::DeleteElement(element); }
};
template <class T>
using Tree = std::unique_ptr<T, TreeDeleter>;

/// The workers of one schema; texts of null documents come back as "(null)".
class Schema {
 public:
  explicit Schema(eXMLSchemaID id, eXMLProfile profile = XML_PROFILE_EXACT)
      : context_(XMLFactory::newInstance(id)) {
    context_->UseProfile(profile);
    reader_ = context_->createUnMarshaller();
    writer_ = context_->createMarshaller();
  }
  ~Schema() { XMLFactory::deleteContext(context_); }
  Schema(const Schema&) = delete;
  Schema& operator=(const Schema&) = delete;

  template <class T>
  Tree<T> Read(const std::string& text) {
    return Tree<T>(static_cast<T*>(reader_->UnMarshall(text.c_str())));
  }
  std::string Write(XMLElement* root) {
    const char* text = writer_ ? writer_->Marshall(root) : nullptr;
    return text ? text : "(null)";
  }
  std::string Update(XMLElement* root) {
    const char* text = writer_->Update(root, nullptr);
    return text ? text : "(null)";
  }
  std::string RoundTrip(const std::string& text) { return Write(Read<XMLElement>(text).get()); }

  XMLContext* context() { return context_; }
  XMLMarshaller* writer() { return writer_; }

 private:
  XMLContext* context_;
  XMLUnMarshaller* reader_;
  XMLMarshaller* writer_;
};

/// A schema with the namespaces that `text` declares; without any when that cannot be read.
class BoundSchema : public Schema {
 public:
  BoundSchema(eXMLSchemaID id, const std::string& text)
      : Schema(id), namespaces_(Schema(XML_SCHEMA_NAMESPACE_RETRIEVAL).Read<XMLObject>(text)) {
    context()->SetNamespaceBinder(namespaces_.get());
  }

 private:
  Tree<XMLObject> namespaces_;
};

#endif  // ZTXML_TESTS_API_WORKERS_H
