// ztxml report: captures, logs and documents as a page to be looked at.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "Colour.h"
#include "Commands.h"
#include "FileChoice.h"
#include "Follow.h"
#include "Format.h"
#include "Judge.h"
#include "Output.h"
#include "ReportPage.h"

namespace {

constexpr std::size_t kShownFacts = 6;
constexpr std::size_t kShownKinds = 4;

bool HasTime(const ReportMessage& message) { return message.items[0].origin.IsKnown(); }

// The main values of a document: those of its root, and how many objects of which name it has.
Facts SummaryOf(const std::vector<Part>& parts) {
  Facts summary;
  Facts below;  // what is deeper, which counts where the root has nothing of its own
  for (const auto& [name, value] : parts[0].facts) {
    Facts& to = name.find('/') == std::string::npos ? summary : below;
    if (to.size() < kShownFacts) to.emplace_back(name[0] == '@' ? name.substr(1) : name, value);
  }
  if (summary.empty()) summary.swap(below);
  const std::string registered = RegistrationOf(parts);
  if (!registered.empty()) summary.emplace_back("aor", registered);
  std::vector<std::pair<std::string, std::size_t>> kinds;
  std::map<std::string, std::size_t> places;
  for (std::size_t i = 1; i < parts.size(); ++i) {
    const std::string& name = parts[i].name;
    const auto [found, isNew] = places.emplace(name, kinds.size());
    if (isNew) kinds.emplace_back(name, 0);
    ++kinds[found->second].second;
  }
  for (std::size_t i = 0; i < std::min(kinds.size(), kShownKinds); ++i) {
    summary.emplace_back(kinds[i].first, "\xc3\x97 " + std::to_string(kinds[i].second));
  }
  return summary;
}

class Reporter {
 public:
  explicit Reporter(const Reading& reading) : m_Reading(reading) {}

  int ReadFile(const std::string& path) {
    m_Files.push_back({NameOfInput(path), 0, 0, {}});
    std::vector<Document> items;
    Failure failure;
    const bool opened = ReadDocuments(path, m_Reading.isStandard, items, failure, Skipping::kShown);
    std::size_t last = 0;
    for (Document& item : items) {
      if (item.kind == Document::Kind::kSkipped && m_Reading.skipping == Skipping::kRefused) {
        item.kind = Document::Kind::kRefused;
        item.fault.kind = "capture";
      }
      if (item.message.number == 0 && !item.IsDocument()) {
        m_Files.back().notes.push_back(Told(item.fault));
        continue;
      }
      const bool isSame = last && item.message.number == last;
      last = item.message.number;
      m_Files.back().messages += !isSame && last;
      m_Files.back().documents += item.IsDocument();
      if (!isSame) m_Messages.push_back({m_Files.size() - 1, {}});
      m_Messages.back().items.push_back(std::move(item));
    }
    if (opened) return kDone;
    m_Files.back().notes.push_back(Told(failure));
    return Refuse(NameOfInput(path), failure);
  }

  // In the order of time; what has none comes after what has one, in the order of the files.
  std::string Sort() {
    const auto untimed = std::stable_partition(m_Messages.begin(), m_Messages.end(), HasTime);
    std::stable_sort(m_Messages.begin(), untimed,
                     [](const ReportMessage& one, const ReportMessage& other) {
                       return one.items[0].origin.time < other.items[0].origin.time;
                     });
    if (untimed == m_Messages.begin()) return "In the order of the files.";
    if (untimed == m_Messages.end()) return "In the order of time, which is in UTC.";
    return "In the order of time, which is in UTC; what has no time comes last.";
  }

  void Write(std::ostream& to) {
    const std::string order = Sort();
    ReportPage page;
    for (ReportMessage& message : m_Messages) {
      std::vector<Examined> documents;
      for (const Document& item : message.items) {
        if (item.IsDocument()) documents.push_back(Examine(item));
      }
      page.Add(message, documents);
      message.items.clear();
      message.items.shrink_to_fit();
    }
    page.Write(m_Files, order, to);
  }

 private:
  static std::string Told(const Failure& failure) {
    return failure.at.line ? "line " + std::to_string(failure.at.line) + ": " + failure.what
                           : failure.what;
  }

  Examined Examine(const Document& document) {
    Examined examined;
    examined.document = &document;
    CheckResult& result = examined.result;
    std::vector<ztxml::Loss> losses;
    Reading reading = m_Reading;
    reading.losses = &losses;
    Tree tree;
    Failure failure;
    if (!ReadTree(document, reading, tree, failure)) {
      result.isRefused = true;
      result.faults.push_back(failure);
      examined.text = DecodedTextOf(document);
    } else {
      result.schema = tree.schema->name;
      if (!tree.isStandard) JudgeText(document, *tree.schema, result.faults, result.remark);
      for (const ztxml::Loss& loss : losses) {
        result.losses.push_back({loss, document.At(loss.line, loss.column)});
      }
      Describe(document, *tree.schema, examined);
    }
    if (result.faults.size() == 1 && !document.text.empty()) {
      examined.excerpt = Excerpt(document, result.faults[0].at, 1, "^");
    }
    return examined;
  }

  // What the standard profile has of a document that was read: its text, and what it changed.
  void Describe(const Document& document, const XMLSchemaInfo& schema, Examined& examined) {
    Reading reading = m_Reading;
    reading.schema = &schema;
    reading.isStandard = true;
    reading.keepsSource = true;
    Tree tree;
    Failure failure;
    if (!ReadTree(document, reading, tree, failure) || !Indent(tree, examined.text, nullptr)) {
      examined.text = DecodedTextOf(document);
      return;
    }
    const std::vector<Part> parts = PartsOf(tree);
    examined.summary = SummaryOf(parts);
    examined.followed = m_Follower.Take(document, parts, tree);
  }

  const Reading m_Reading;
  std::vector<ReportFile> m_Files;
  std::vector<ReportMessage> m_Messages;
  Follower m_Follower;
};

// Whether the report would take the place of what it is of.
bool IsInput(const std::string& page, const std::vector<std::string>& paths) {
  return std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
    std::error_code error;
    return path != "-" && std::filesystem::equivalent(page, FileChoiceOf(path).path, error);
  });
}

}  // namespace

int WriteReport(const std::vector<std::string>& paths, const Reading& reading,
                const std::string& page) {
  if (page != "-" && IsInput(page, paths)) {
    Complain(page, "is a file to report on, and would be overwritten");
    return kUsage;
  }
  Reporter reporter(reading);
  int status = kDone;
  for (const std::string& path : paths) status = std::max(status, reporter.ReadFile(path));
  if (page == "-") {
    reporter.Write(Out());
    return status;
  }
  std::ofstream file(page, std::ios::binary);
  if (file) reporter.Write(file);
  file.close();
  if (file) return status;
  Complain(page, "cannot be written");
  return kOutputFailed;
}
