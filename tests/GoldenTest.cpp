// Golden documents: what each document below tests/golden/documents and examples/documents is read
// as and written as, and what becomes of a full one that lacks something.
#include <algorithm>
#include <cstring>

#include "Golden.h"
#include "Objects.h"
#include "Samples.h"

namespace {

// What callers see of reading a document and writing it again.
struct Outcome {
  Lines tree, records, readLog, written, writeLog;
  bool read = false, wrote = false, again = false;
};

std::map<std::string, int> RecordsByFile() {
  std::map<std::string, int> records;
  for (const auto& entry : zthost::GetMemoryReport().live) ++records[entry.sourceFile];
  return records;
}

// The values and objects of every tree that was read, by class.
using Seen = std::set<std::string>;
std::string SeenValue(const XMLElement& object, const reflect::Field& field, unsigned value) {
  return object.ClassName() + (" " + NameOf(field)) +
         (field.value == ZtValue::kEnum ? " " + std::to_string(value) : "");
}

void Note(const XMLElement& root, Seen& seen) {
  for (const XMLElement* object : ObjectsOf(root)) {
    for (const reflect::Field& field : reflect::FieldsOf(*object)) {
      if (!field.IsPresent()) continue;
      seen.insert(SeenValue(*object, field, static_cast<unsigned>(field.number)));
    }
  }
}

Outcome OutcomeOf(eXMLSchemaID id, const std::string& text, Seen* seen = nullptr) {
  Outcome outcome;
  // As callers do, sets the namespaces of a document that declares any.
  BoundSchema schema(id, text.find("xmlns") != std::string::npos ? text : "");
  const std::map<std::string, int> before = RecordsByFile();
  LogCapture log;
  const auto root = schema.Read<XMLElement>(text);
  outcome.readLog = Told(log, text);
  outcome.read = root != nullptr;
  if (!root) return outcome;
  for (const auto& [file, count] : RecordsByFile()) {
    const auto old = before.find(file);
    const int added = count - (old == before.end() ? 0 : old->second);
    if (added) outcome.records.push_back(file + ' ' + std::to_string(added));
  }
  outcome.tree = TreeTeller::Tell(*root);
  if (seen) Note(*root, *seen);
  log.Clear();
  const std::string written = schema.Write(root.get());
  outcome.writeLog = Told(log, text, written);
  outcome.wrote = written != "(null)";
  outcome.written = LinesOf(written);
  outcome.again = outcome.wrote && schema.RoundTrip(written) == written;
  return outcome;
}

// The whole outcome as a golden file.
std::string Whole(const Outcome& outcome) {
  std::string text = "== tree ==\n" + (outcome.read ? Joined(outcome.tree) : "(null)\n");
  text += "== log of reading ==\n" + Joined(outcome.readLog);
  if (!outcome.read) return text;
  text += "== objects recorded, by file ==\n" + Joined(outcome.records);
  text += "== written ==\n" + Joined(outcome.written);
  text += "== log of writing ==\n" + Joined(outcome.writeLog);
  return text + "== read and written again the same ==\n" +
         (outcome.again   ? "yes\n"
          : outcome.wrote ? "no\n"
                          : "(not written)\n");
}

// Documents with a comment before each, divided by empty lines; what becomes of each of them.
std::string Cases(eXMLSchemaID id, const std::string& cases, Seen* seen) {
  std::string text;
  for (std::size_t at = 0, end; at < cases.size(); at = end + 2) {
    end = std::min(cases.find("\n\n", at), cases.size());
    std::string comment;
    std::size_t document = at;
    for (; cases[document] == '#'; document = cases.find('\n', document) + 1) {
      comment += cases.substr(document, cases.find('\n', document) + 1 - document);
    }
    const std::string whole = cases.substr(document, end - document);
    text += comment + whole + (whole.back() == '\n' ? "" : "\n") +
            Whole(OutcomeOf(id, whole, seen)) + '\n';
  }
  return text;
}

// ---- What a document lacks ----------------------------------------------------------------------

// An element or attribute of a text: its path of names, and its place, which includes the blank
// before it.
struct Part {
  std::string path;
  std::size_t begin;
  std::size_t end;
};

// The first part with each path, except the root. The text is well formed and has no comments.
std::vector<Part> PartsOf(const std::string& text, std::set<std::string>& paths) {
  std::vector<Part> parts, open;
  const auto add = [&](const Part& part) {
    if (paths.insert(part.path).second) parts.push_back(part);
  };
  std::size_t at = text.find("?>");
  at = text.find('<', at == std::string::npos ? 0 : at);
  for (; at != std::string::npos; at = text.find('<', at)) {
    std::size_t end = text.find('>', at) + 1;
    if (text[at + 1] != '/') {
      std::size_t name = text.find_first_of(" />\n", at);
      const std::size_t blank = text.find_last_not_of(" \n", at - 1) + 1;
      open.push_back(
          {(open.empty() ? "" : open.back().path) + '/' + text.substr(at + 1, name - at - 1), blank,
           0});
      while ((name = text.find_first_not_of(" \n", at = name)) && text[name] != '/' &&
             text[name] != '>') {
        const std::size_t equals = text.find('=', name);
        const std::string path = open.back().path + "/@" + text.substr(name, equals - name);
        name = text.find(text[equals + 1], equals + 2) + 1;
        add({path, at, name});
      }
      end = text.find('>', name) + 1;
    }
    if (text[at + 1] == '/' || text[end - 2] == '/') {
      open.back().end = end;
      if (open.size() > 1) add(open.back());
      open.pop_back();
    }
    at = end;
  }
  return parts;
}

// How the outcome of a document that lacks something differs from that of the full one.
std::string Against(const Outcome& full, const Outcome& lacking) {
  std::string text = Short("  log of reading ", Difference(full.readLog, lacking.readLog), 0);
  if (!lacking.read) return text + "  not read\n";
  const bool told = lacking.wrote && lacking.written != full.written;
  if (told) text += Short("  ", Difference(full.written, lacking.written), 2);
  if (!told) text += Short("  tree ", Difference(full.tree, lacking.tree), 2);
  if (!lacking.wrote && full.wrote) text += "  not written\n";
  if (lacking.wrote && !told) text += "  written as the full document\n";
  return text + Short("  log of writing ", Difference(full.writeLog, lacking.writeLog), 0);
}

// ---- Tests --------------------------------------------------------------------------------------

// Checks that the documents of a schema have everything that its types can hold.
void ExpectEverything(eXMLSchemaID id, const Seen& seen) {
  reflect::Schema schema;
  ASSERT_TRUE(reflect::FindSchema(id, schema));
  std::string missing;
  for (const ZtElementType* type : schema.Types()) {
    const Tree<XMLElement> object(type->Create("tests/Golden"));
    for (const reflect::Field& field : reflect::FieldsOf(*object)) {
      if (!field.name) continue;  // most fields without a name cannot be read
      const ZtEnumTable* values = field.row ? reflect::ValuesOf(*field.row) : nullptr;
      for (unsigned i = 0; i < (values ? values->count : 1U); ++i) {
        const std::string value = SeenValue(*object, field, i);
        if (!seen.count(value)) missing += value + '\n';
      }
    }
  }
  EXPECT_EQ(missing, "") << "No document below tests/golden/documents/"
                         << schema.document->info.name
                         << " has a value for these fields, or this value of an enumeration.";
}

TEST(Golden, Documents) {
  GoldenFolder golden("documents");
  std::set<std::filesystem::path> folders;
  for (int i = 0; i < XML_SCHEMA_END; ++i) {
    const auto id = static_cast<eXMLSchemaID>(i);
    const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(id);
    if (!info) continue;
    const std::filesystem::path folder = golden.Path() / info->name;
    folders.insert(folder);
    std::set<std::filesystem::path> inputs;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
      if (entry.path().extension() == ".xml") inputs.insert(entry.path());
    }
    EXPECT_TRUE(inputs.count(folder / "full.xml"))
        << folder << "/full.xml: a document with everything in it is written by hand";
    Seen seen;
    std::set<std::string> paths;
    std::string variants;
    for (const std::filesystem::path& input : inputs) {
      const std::string text = ReadFile(input), stem = input.stem();
      const Outcome outcome = OutcomeOf(id, text, &seen);
      golden.Expect(info->name + ("/" + stem) + ".txt", Whole(outcome));
      if (stem.find("full") != 0) continue;
      for (const Part& part : PartsOf(text, paths)) {
        const std::string lacking = text.substr(0, part.begin) + text.substr(part.end);
        variants +=
            stem + " without " + part.path + '\n' + Against(outcome, OutcomeOf(id, lacking));
      }
    }
    golden.Expect(info->name + std::string("/variants.txt"), variants);
    const std::string cases = ReadFile(folder / "cases.in");
    if (!cases.empty())
      golden.Expect(info->name + std::string("/cases.txt"), Cases(id, cases, &seen));
    ExpectEverything(id, seen);
  }
  for (const auto& entry : std::filesystem::directory_iterator(golden.Path())) {
    EXPECT_TRUE(folders.count(entry.path())) << entry.path() << " is of no schema";
  }
}

TEST(Golden, Samples) {
  GoldenFolder golden("samples");
  for (const Sample& sample : Samples()) {
    const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(sample.id);
    if (!info->roots[0]) continue;  // reads anything
    golden.Expect(sample.name + '-' + info->name + ".txt",
                  Whole(OutcomeOf(sample.id, sample.text)));
  }
}

}  // namespace
