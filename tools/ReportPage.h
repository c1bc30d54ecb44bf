// The page that "ztxml report" writes, put together from above to below.
#ifndef ZTXML_TOOLS_REPORTPAGE_H
#define ZTXML_TOOLS_REPORTPAGE_H

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include "Document.h"
#include "Follow.h"
#include "Junit.h"

/// A document and all that is known of it.
struct Examined {
  const Document* document = nullptr;
  CheckResult result;
  std::string excerpt;  ///< of the text, where a fault is
  std::string text;     ///< indented, if it could be read
  Facts summary;
  Followed followed;
};

/// A message with all that was found in it; or one thing that is in no message.
struct ReportMessage {
  std::size_t file = 0;
  std::vector<Document> items;
};

struct ReportFile {
  std::string name;
  std::size_t messages = 0;
  std::size_t documents = 0;
  std::vector<std::string> notes;
};

class ReportPage {
 public:
  /// Messages are numbered in the order in which they are added.
  void Add(const ReportMessage& message, const std::vector<Examined>& documents);
  /// Writes it all. `order` tells which order the messages are in.
  void Write(const std::vector<ReportFile>& files, const std::string& order,
             std::ostream& to) const;

 private:
  struct Counts {
    std::size_t all = 0;
    std::size_t ok = 0;
    std::size_t refused = 0;
    std::size_t faulty = 0;
    std::size_t lossy = 0;
  };
  // What is wrong, as often as it occurs.
  struct Matter {
    const char* tag;
    const char* tone;
    std::string what;
    std::size_t times;
    std::size_t first;  // of the messages
  };

  void Register(const Examined& examined);
  void AddMatter(const char* tag, const char* tone, const std::string& what);
  void AddHead(const ReportMessage& message, bool isBare);
  void AddDocument(const Examined& examined, bool isOneOfSeveral);
  void AddFindings(const Examined& examined);
  void AddLosses(const std::vector<CheckResult::Lost>& losses);
  void AddDifferences(const std::vector<Difference>& differences);
  void AddDifference(const Difference& difference);
  void AddNotes(const ReportMessage& message);
  void AddFigures(const std::vector<ReportFile>& files, std::string& html) const;
  void AddMatters(std::string& html) const;
  void AddSchemas(std::string& html) const;
  void AddSkipped(std::string& html) const;
  static void AddFiles(const std::vector<ReportFile>& files, std::string& html);

  std::string m_Html;  // of the messages
  std::size_t m_iMessages = 0;
  std::size_t m_iDocuments = 0;
  std::size_t m_iSkipped = 0;
  std::map<std::string, std::size_t> m_Skipped;  // how often for which reason
  std::size_t m_iChanging = 0;                   // documents that changed something
  std::map<std::string, Counts> m_Schemas;
  std::vector<Matter> m_Matters;
  std::map<std::string, std::size_t> m_MatterAt;
};

#endif  // ZTXML_TOOLS_REPORTPAGE_H
