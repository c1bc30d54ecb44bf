// What "check" finds, and a report of it for continuous integration.
#ifndef ZTXML_TOOLS_JUNIT_H
#define ZTXML_TOOLS_JUNIT_H

#include <string>
#include <vector>

#include "Document.h"
#include "ztxml/document.h"

/// What there is to say of a document, or of a file without one.
struct CheckResult {
  struct Lost {
    ztxml::Loss loss;
    Position at;  ///< in the file
  };

  std::string name;
  std::string schema;           ///< "" when it was not read
  std::string remark;           ///< of one that is ok, "" for none
  bool isRefused = false;       ///< by `faults`, of which there is one then
  std::vector<Failure> faults;  ///< in the order of the document
  std::vector<Lost> losses;     ///< if they were asked for

  bool IsOk() const { return faults.empty() && losses.empty(); }
};

/// A loss as programs know it, and what "check" says of it to people.
const char* KeyOf(eZtLoss kind);
std::string NameOf(eZtLoss kind);

/// A report in the format of JUnit, with a test case for each result.
class JunitReport {
 public:
  void Add(const CheckResult& result);
  /// Adds the results of another one after its own.
  void Add(const JunitReport& other);
  /// Writes the file; false when that fails.
  bool Write(const std::string& path) const;

 private:
  std::string m_Cases;
  std::size_t m_iTests = 0;
  std::size_t m_iFailures = 0;
};

#endif  // ZTXML_TOOLS_JUNIT_H
