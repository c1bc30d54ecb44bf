// A schema in the standard profile, for tests that read, change and update documents.
#ifndef ZTXML_TESTS_STANDARD_STANDARDSUPPORT_H
#define ZTXML_TESTS_STANDARD_STANDARDSUPPORT_H

#include <string>

#include "DocumentSupport.h"

class StandardSchema {
 public:
  explicit StandardSchema(eXMLSchemaID id, bool keepsSource = true)
      : m_pContext(XMLFactory::newInstance(id)) {
    m_pContext->UseProfile(XML_PROFILE_STANDARD);
    m_pContext->KeepSource(keepsSource);
  }
  ~StandardSchema() { XMLFactory::deleteContext(m_pContext); }
  StandardSchema(const StandardSchema&) = delete;
  StandardSchema& operator=(const StandardSchema&) = delete;

  XMLContext& Context() { return *m_pContext; }
  template <class T>
  Tree<T> Read(const std::string& text) {
    if (!m_pContext->unMarshaller()) m_pContext->createUnMarshaller();
    return Tree<T>(
        static_cast<T*>(m_pContext->unMarshaller()->UnMarshall(text.data(), text.size())));
  }
  std::string Write(XMLElement* root) {
    const char* text = Writer()->Marshall(root);
    return text ? text : "(null)";
  }
  std::string Update(XMLElement* root) {
    std::size_t size = 0;
    const char* text = Writer()->Update(root, &size);
    return text ? std::string(text, size) : "(null)";
  }

 private:
  XMLMarshaller* Writer() {
    return m_pContext->marshaller() ? m_pContext->marshaller() : m_pContext->createMarshaller();
  }

  XMLContext* m_pContext;
};

/// `text` with `from`, which it has once, replaced.
inline std::string With(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  if (at != std::string::npos) text.replace(at, from.size(), to);
  EXPECT_TRUE(from.empty() || text.find(from, at + to.size()) == std::string::npos) << from;
  return text;
}

#endif  // ZTXML_TESTS_STANDARD_STANDARDSUPPORT_H
