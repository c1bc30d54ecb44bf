// What the fuzz targets share: how an invariant is asserted, and a check that nothing leaks.
#ifndef ZTXML_FUZZ_FUZZSUPPORT_H
#define ZTXML_FUZZ_FUZZSUPPORT_H

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "XMLFactory.h"
#include "ztHostPlatform.h"

/// Ends the process with the invariant's text when it does not hold.
inline void Require(bool holds, const char* invariant, const std::string& found = "") {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n%s\n", invariant, found.c_str());
  std::abort();
}

/// The memory log is balanced when it ends.
class Balanced {
 public:
  Balanced() {
    zthost::EnableMemoryLog(true);
    zthost::ResetMemoryLog();
  }
  ~Balanced() {
    zthost::FailAllocation(0);
    const zthost::MemoryReport report = zthost::GetMemoryReport();
    Require(report.live.empty(), "every entry of the memory log is removed",
            report.live.empty() ? "" : report.live.front().sourceFile);
    Require(report.doubleAdds.empty() && report.badRemoves.empty(),
            "every entry is added and removed once");
  }
  Balanced(const Balanced&) = delete;
  Balanced& operator=(const Balanced&) = delete;
};

/// A schema's workers with the namespaces of one text.
class Workers {
 public:
  Workers(eXMLSchemaID id, const std::string& text, bool bound) {
    if (bound) {
      m_pRetrieval = XMLFactory::newInstance(XML_SCHEMA_NAMESPACE_RETRIEVAL);
      XMLUnMarshaller* reader = m_pRetrieval ? m_pRetrieval->createUnMarshaller() : nullptr;
      m_pNamespaces = static_cast<XMLObject*>(reader ? reader->UnMarshall(text.c_str()) : nullptr);
    }
    m_pContext = XMLFactory::newInstance(id);
    if (m_pContext && m_pNamespaces) m_pContext->SetNamespaceBinder(m_pNamespaces);
  }
  ~Workers() {
    XMLFactory::deleteContext(m_pContext);
    XMLFactory::DeleteElement(m_pNamespaces);
    XMLFactory::deleteContext(m_pRetrieval);
  }
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  /// `text` read and written again, "(null)" when either fails.
  std::string RoundTrip(const std::string& text) {
    XMLUnMarshaller* reader = m_pContext ? m_pContext->createUnMarshaller() : nullptr;
    XMLElement* root = reader ? reader->UnMarshall(text.c_str()) : nullptr;
    XMLMarshaller* writer = m_pContext ? m_pContext->createMarshaller() : nullptr;
    const char* written = writer && root ? writer->Marshall(root) : nullptr;
    const std::string result = written ? written : "(null)";
    XMLFactory::DeleteElement(root);
    return result;
  }

 private:
  XMLContext* m_pRetrieval = nullptr;
  XMLObject* m_pNamespaces = nullptr;
  XMLContext* m_pContext = nullptr;
};

inline std::string RoundTrip(eXMLSchemaID id, const std::string& text, bool bound) {
  return Workers(id, text, bound).RoundTrip(text);
}

#endif  // ZTXML_FUZZ_FUZZSUPPORT_H
