// ztxml merge: the state that results from notifications.
#include "Merge.h"

#include <algorithm>
#include <climits>
#include <optional>
#include <string>
#include <vector>

#include "Colour.h"
#include "Commands.h"
#include "Json.h"
#include "Output.h"
#include "Read.h"
#include "Schemas.h"
#include "Text.h"
#include "Tree.h"
#include "ztxml/state.h"

namespace {

class Merger {
 public:
  Merger(const Reading& reading, Merging prints) : m_Reading(reading), m_Prints(prints) {}

  /// The exit status so far. After kUsage there is no more to be done.
  int MergeFile(const std::string& path) {
    std::vector<Document> documents;
    Failure failure;
    const bool opened = ReadDocuments(path, true, documents, failure, m_Reading.skipping);
    if (documents.size() > 1) LeaveOutOthers(documents);
    for (const Document& document : documents) {
      m_Status = std::max(m_Status, MergeDocument(document));
      if (m_Status == kUsage) return m_Status;
    }
    if (opened) return m_Status;
    if (m_Prints.json) PrintJson(NameOfInput(path), failure);
    return m_Status = std::max(m_Status, Refuse(NameOfInput(path), failure));
  }
  int PrintState() {
    if (!m_State || !m_State->Root()) return m_Status;
    if (m_Prints.json) return PrintJsonState();
    ZtSettings settings;
    settings.profile = XML_PROFILE_STANDARD;
    settings.mostText = INT_MAX;
    ztxml::Error error;
    std::size_t size = 0;
    char* const text = ZtWriteDocument(*m_pTable, settings, m_State->Root(), nullptr, size, error);
    if (!text) {
      Complain("(result)", Escape(error.Text()));
      return kCannotWrite;
    }
    PrintText({text, size});
    ZtFreeText(text);
    return m_Status;
  }

 private:
  int PrintJsonState() const {
    XMLElement& root = *m_State->Root();
    std::string json;
    if (!AppendJson(reflect::StandardRoot(*m_pTable, root), reflect::ElementNameOf(root), json)) {
      return Refuse("(result)", {"tree", "cut at 200 objects within each other"});
    }
    JsonObject line;
    line.Text("schema", m_Reading.schema->name).Value("document", json);
    Out() << line.Done() << '\n';
    return m_Status;
  }

  // The message of a resource list has the states of the resources beside the list, a capture what
  // else was sent.
  void LeaveOutOthers(std::vector<Document>& documents) const {
    const XMLSchemaInfo* merged = m_Reading.schema;
    for (const Document& document : documents) {
      const XMLSchemaInfo* const schema = FindSchemaOfType(document.contentType, "");
      if (!merged && schema && TableOfParts(*schema)) merged = schema;
    }
    const auto isOther = [&](const Document& document) {
      if (document.kind == Document::Kind::kRefused || document.contentType.empty()) return false;
      return FindSchemaOfType(document.contentType, "") != merged;
    };
    if (!merged || std::all_of(documents.begin(), documents.end(), isOther)) return;
    const auto isTold = [&](const Document& document) {
      if (!isOther(document)) return false;
      Complain(document.name, "skipped: of the type " + QuoteShort(document.contentType));
      return true;
    };
    documents.erase(std::remove_if(documents.begin(), documents.end(), isTold), documents.end());
  }

  int MergeDocument(const Document& document) {
    Tree tree;
    Failure failure;
    if (!ReadTree(document, m_Reading, tree, failure)) {
      if (m_Prints.json) PrintJson(document.name, failure);
      return Refuse(document, failure);
    }
    if (!m_State) {
      m_pTable = TableOfParts(*tree.schema);
      if (!m_pTable) {
        Complain(document.name, std::string("documents of the schema ") + tree.schema->name +
                                    " cannot be merged, only those of Reginfo, ConferenceInfo and "
                                    "List");
        return kUsage;
      }
      m_Reading.schema = tree.schema;
      m_State.emplace(*m_pTable);
    }
    ztxml::Merged merged;
    ztxml::Error error;
    if (!m_State->Take(tree.root.release(), merged, error)) {
      Complain(document.name, Escape(error.Text()));
      return kCannotRead;
    }
    Tell(document, merged);
    return merged.outcome == ztxml::Merged::Outcome::kRefresh ? kCannotRead : kDone;
  }

  void Tell(const Document& document, const ztxml::Merged& merged) const {
    const std::string what = DescribeOutcome(merged);
    if (!m_Prints.events) {
      if (merged.outcome != ztxml::Merged::Outcome::kApplied) Complain(document.name, what);
      return;
    }
    if (m_Prints.json) return TellJson(document, merged);
    Out() << Escape(document.name) << ": " << what << '\n';
    for (unsigned i = 0; i < m_State->ChangeCount(); ++i) {
      const ztxml::Change change = m_State->ChangeAt(i);
      Out() << "  " << NameOf(change.kind) << ' ' << Escape(change.path) << '\n';
    }
  }
  void TellJson(const Document& document, const ztxml::Merged& merged) const {
    JsonObject line;
    line.Text("file", document.name).Flag("applied", merged.isApplied);
    if (merged.outcome != ztxml::Merged::Outcome::kApplied) {
      line.Flag("refresh", merged.outcome == ztxml::Merged::Outcome::kRefresh)
          .Text("reason", ztxml::NameOf(merged.reason));
    }
    std::vector<std::string> changes;
    for (unsigned i = 0; i < m_State->ChangeCount(); ++i) {
      const ztxml::Change change = m_State->ChangeAt(i);
      JsonObject entry;
      entry.Text("change", NameOf(change.kind)).Text("path", change.path);
      changes.push_back(entry.Done());
    }
    line.Value("changes", JsonList(changes));
    Out() << line.Done() << '\n';
  }

  Reading m_Reading;  // by the schema of the first notification
  const Merging m_Prints;
  const ZtDocument* m_pTable = nullptr;
  std::optional<ZtState> m_State;
  int m_Status = kDone;
};

}  // namespace

const ZtDocument* TableOfParts(const XMLSchemaInfo& schema) {
  switch (schema.id) {
    case XML_SCHEMA_REGINFO:
      return &ztxml::RootOf<zt_reginfo>::Table();
    case XML_SCHEMA_CONFERENCE_INFO:
      return &ztxml::RootOf<zt_conference_type>::Table();
    case XML_SCHEMA_LIST:
      return &ztxml::RootOf<zt_list>::Table();
    default:
      return nullptr;
  }
}

const char* NameOf(ztxml::Change::Kind kind) {
  switch (kind) {
    case ztxml::Change::Kind::kAdded:
      return "added";
    case ztxml::Change::Kind::kChanged:
      return "changed";
    case ztxml::Change::Kind::kRemoved:
      return "removed";
  }
  return "";
}

std::string DescribeOutcome(const ztxml::Merged& merged) {
  std::string what = merged.isApplied ? "applied" : "";
  if (merged.outcome == ztxml::Merged::Outcome::kApplied) return what;
  const bool isIgnored = merged.outcome == ztxml::Merged::Outcome::kIgnored;
  if (!what.empty()) what += "; ";
  return what + (isIgnored ? "ignored: " : "refresh: ") + ztxml::NameOf(merged.reason);
}

int Merge(const std::vector<std::string>& paths, const Reading& reading, Merging prints) {
  Merger merger(reading, prints);
  int status = kDone;
  for (const std::string& path : paths) {
    status = merger.MergeFile(path);
    if (status == kUsage) return status;
  }
  return prints.events ? status : merger.PrintState();
}
