// The command line tool: shows documents as the library reads them.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

#include "Colour.h"
#include "Commands.h"
#include "Document.h"
#include "Help.h"
#include "Jobs.h"
#include "Json.h"
#include "Log.h"
#include "Output.h"
#include "Progress.h"
#include "Schemas.h"
#include "Text.h"
#include "Usage.h"

namespace {

// Whether what reads the output has gone.
volatile std::sig_atomic_t s_isPipeClosed = 0;
void NotePipe(int /*signal*/) { s_isPipeClosed = 1; }

std::vector<std::string> NamesOfCommands(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(command->get_name());
  }
  return names;
}

// The long ones: of the program, and of the command that was given.
std::vector<std::string> NamesOfOptions(const CLI::App& app) {
  std::vector<std::string> names;
  const auto add = [&](const CLI::App& of) {
    for (const CLI::Option* known : of.get_options()) {
      for (const std::string& name : known->get_lnames()) names.push_back("--" + name);
    }
  };
  add(app);
  for (const CLI::App* command : app.get_subcommands()) add(*command);
  return names;
}

// What to print of a command line that cannot be parsed.
std::string FailureMessage(const CLI::App* app, const CLI::Error& error) {
  // Without this a misspelt command would only be reported as a missing one, and a misspelt option
  // as one more word.
  const std::vector<std::string> rest = app->remaining(true);
  const auto option = std::find_if(rest.begin(), rest.end(), [](const std::string& word) {
    return word.size() > 1 && word[0] == '-';
  });
  std::string what = error.what();
  if (option != rest.end()) {
    what = NoSuchOption(*option, NamesOfOptions(*app));
  } else if (app->get_subcommands().empty() && !rest.empty()) {
    what = NoSuchCommand(rest[0], NamesOfCommands(*app));
  }
  return "ztxml: " + what + "\nTry: ztxml --help\n";
}

class CommandLine {
 public:
  CommandLine() {
    m_App.set_version_flag("--version", "ztxml " ZTXML_VERSION, "Print the version and exit");
    m_App.add_option("--log", m_LogLevel, "Print the library's log lines from this level up")
        ->option_text("LEVEL")
        ->check(CLI::Range(1, 4));
    AddStyle();
    m_App.footer(kFooter);
    m_App.failure_message(FailureMessage);
    m_App.require_subcommand(1);
    m_App.fallthrough();  // --log may follow the command

    m_pShow = AddCommand("show", "Print the objects that documents are read as", kShowFooter);
    AddFiles(m_pShow);
    AddJobs(m_pShow);
    AddSchema(m_pShow);
    AddStandard(m_pShow);
    AddJson(m_pShow, "Print JSON, one line for each document");
    m_pCheck =
        AddCommand("check", "Tell which of many documents are refused or faulty", kCheckFooter);
    AddFiles(m_pCheck);
    AddJobs(m_pCheck);
    AddSchema(m_pCheck);
    AddStandard(m_pCheck);
    AddJson(m_pCheck, "Print JSON, one line for each document, and no summary");
    m_pCheck->add_option("--junit", m_Checks.junit, "Write a report in JUnit's format as well")
        ->option_text("FILE");
    m_pCheck->add_flag("-q,--quiet", m_Checks.quiet, "Print only what is not ok");
    m_pCheck->add_flag("--lost", m_Checks.losses, "Also tell what the types do not keep");
    m_pCheck->add_flag(
        "--strict", m_Checks.strict,
        "In the standard profile, also tell what is required and missing, and values "
        "that are none of their type");
    m_pDiff = AddCommand("diff", "Compare two documents", kDiffFooter);
    m_pDiff->add_option("OLD", m_OldPath, "The first document; - is standard input")
        ->option_text(" ")
        ->required();
    m_pDiff->add_option("NEW", m_NewPath, "The second one")->option_text(" ")->required();
    AddSchema(m_pDiff);
    AddStandard(m_pDiff);
    AddJson(m_pDiff, "Print JSON, one line for each difference");
    CLI::Option* const columns =
        m_pDiff->add_flag("-y,--side-by-side", m_bSideBySide, "Print the documents in two columns");
    columns->excludes("--json");
    m_pDiff->add_option("--width", m_Width, "The width of both columns, else that of the terminal")
        ->option_text("N")
        ->needs(columns)
        ->check(CLI::Range(kLeastWidth, kMostWidth));
    AddGetAndEdit();
    m_pRoundTrip = AddCommand("roundtrip", "Read documents and write them again to standard output",
                              kRoundTripFooter);
    AddFiles(m_pRoundTrip);
    AddJobs(m_pRoundTrip);
    AddSchema(m_pRoundTrip);
    AddStandard(m_pRoundTrip);
    m_pMerge = AddCommand("merge", "Print the state that results from notifications", kMergeFooter);
    AddFiles(m_pMerge);
    AddSchema(m_pMerge);
    AddJson(m_pMerge, "Print the state as JSON, or with --events what became of each");
    m_pMerge->add_flag("--events", m_bEvents, "Print what became of each, and what it changed");
    m_pEvents = AddCommand("events", "Print the parser's callbacks, one a line", kEventsFooter);
    AddFiles(m_pEvents);
    AddJobs(m_pEvents);
    AddJson(m_pEvents, "Print JSON, one line for each callback");
    m_pNamespaces = AddCommand("namespaces", "Print the namespace declarations", kNamespacesFooter);
    AddFiles(m_pNamespaces);
    AddJobs(m_pNamespaces);
    m_pSchemas = AddCommand("schemas", "List the schemas that the library knows", kSchemasFooter);
    AddJson(m_pSchemas, "Print JSON, one line for each schema");
    AddOwn();
  }

  int Run(int argc, const char* const* argv) {
    if (argc < 2) return PrintHelp();
    try {
      m_App.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return m_App.exit(error) == 0 ? kDone : kUsage;
    }
    return RunCommand();
  }

 private:
  CLI::App* AddCommand(const char* name, const char* description, const char* footer) {
    CLI::App* command = m_App.add_subcommand(name, description);
    command->footer(footer);
    return command;
  }
  void AddFiles(CLI::App* command) {
    command->add_option("FILE", m_Paths, "The documents; - is standard input")
        ->option_text("...")
        ->required();
    command->add_flag("-r,--recursive", m_bRecursive, "Take the files in directories, sorted");
    command->add_flag("--require-document", m_bRequiresDocument,
                      "Refuse messages without a document, which are skipped else");
  }
  void AddJobs(CLI::App* command) {
    command->add_option("-j,--jobs", m_Jobs, "Threads at work (as many as there are processors)")
        ->option_text("N")
        ->check(CLI::Range(1, kMostJobs));
  }
  void AddSchema(CLI::App* command) {
    command->add_option("--schema", m_Schema, "A schema of ztxml schemas, for every document")
        ->option_text("NAME|ID")
        ->check(CheckSchema);
  }

  void AddStandard(CLI::App* command) {
    command->add_flag("--standard", m_bStandard, "Read, and write, in the standard profile");
  }
  void AddGetAndEdit() {
    m_pGet = AddCommand("get", "Print one value of a document", kGetFooter);
    AddFile(m_pGet);
    m_pGet->add_option("PATH", m_Path, "Where it is, as diff prints it")
        ->option_text(" ")
        ->required();
    AddSchema(m_pGet);
    m_pEdit = AddCommand("edit", "Change values of a document in place", kEditFooter);
    m_pSet = AddChange("--set", "PATH=VALUE", m_Sets, "Set a value, or make an element");
    m_pRemove = AddChange("--remove", "PATH", m_Removes, "Remove a value or an element");
    m_pEdit->add_flag("-i,--in-place", m_bInPlace, "Put the result in the place of the file");
    AddFile(m_pEdit);
    AddSchema(m_pEdit);
  }
  void AddJson(CLI::App* command, const char* what) { command->add_flag("--json", m_bJson, what); }
  void AddStyle() {
    m_App.add_option("--color", m_Color, "Colours: auto (on a terminal), always or never")
        ->option_text("WHEN")
        ->check(CheckColor);
    m_App
        .add_option("--context", m_Context,
                    "Lines before one that is refused; of diff what is equal around a difference")
        ->option_text("N")
        ->check(CLI::Range(0, kMostContext));
  }
  DiffForm FormOfDiff() const {
    return {m_bJson, m_bSideBySide, static_cast<std::size_t>(m_Width)};
  }
  Style StyleOf() const {
    Style style;
    if (m_Color == "always") style.colours = ColourUse::kAlways;
    if (m_Color == "never") style.colours = ColourUse::kNever;
    if (m_Context >= 0) style.context = static_cast<std::size_t>(m_Context);
    return style;
  }
  void AddOwn() {
    m_pBody = AddCommand("body", "Print the documents of a message as they are", kBodyFooter);
    AddFile(m_pBody);
    m_pBody->add_option("--nth", m_Nth, "Print only the Nth document")
        ->option_text("N")
        ->check(CLI::Range(1, kMostDocuments));
    m_pFormat = AddCommand("format", "Print documents indented", kFormatFooter);
    AddFiles(m_pFormat);
    AddJobs(m_pFormat);
    AddSchema(m_pFormat);
    m_pNew = AddCommand("new", "Print an example of a document to start from", kNewFooter);
    m_pNew->add_option("SCHEMA", m_Schema, "A schema of ztxml schemas, or one of its root elements")
        ->option_text(" ")
        ->required()
        ->check(CheckSchemaOrRoot);
    m_pReport = AddCommand("report", "Write a page about captures and documents", kReportFooter);
    AddFiles(m_pReport);
    AddSchema(m_pReport);
    AddStandard(m_pReport);
    m_pReport->add_option("--html", m_Page, "The page to be written; - is standard output")
        ->option_text("FILE")
        ->required();
    m_pHelp = AddCommand("help", "Print what a command does", kHelpFooter);
    m_pHelp->add_option("COMMAND", m_HelpFor, "The command; without one, what they all are")
        ->option_text(" ");
  }
  // As --help prints it. The parser gives only help of what was parsed, which is "help" here.
  int PrintHelp() const {
    std::vector<const char*> words = {"ztxml"};
    if (!m_HelpFor.empty()) {
      const std::vector<std::string> names = NamesOfCommands(m_App);
      if (std::find(names.begin(), names.end(), m_HelpFor) == names.end()) {
        std::cerr << "ztxml: " << NoSuchCommand(m_HelpFor, names) << '\n';
        return kUsage;
      }
      words.push_back(m_HelpFor.c_str());
    }
    words.push_back("--help");
    return CommandLine().Run(static_cast<int>(words.size()), words.data());
  }
  CLI::Option* AddChange(const char* name, const char* form, std::vector<std::string>& values,
                         const char* description) {
    return m_pEdit->add_option(name, values, description)
        ->option_text(form)
        ->type_size(1)
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  }
  void AddFile(CLI::App* command) {
    command->add_option("FILE", m_File, "The document; - is standard input")
        ->option_text(" ")
        ->required();
  }

  // Whether the input is typed at a terminal, where progress would come in between.
  bool IsTyped() const {
    const bool isRead = m_File == "-" || std::count(m_Paths.begin(), m_Paths.end(), "-");
    return isRead && isatty(STDIN_FILENO);
  }
  int RunCommand() const {
    SetStyle(StyleOf());
    SetJobs(static_cast<std::size_t>(m_Jobs));
    if (m_Checks.quiet || IsTyped()) Progress::Get().Hide();
    if (m_pSchemas->parsed()) return PrintSchemas(m_bJson);
    if (m_pHelp->parsed()) return PrintHelp();
    Log log(m_LogLevel);
    if (m_pBody->parsed()) {
      return ForOne([&] { return PrintBody(m_File, static_cast<std::size_t>(m_Nth)); });
    }
    if (m_pNew->parsed()) return PrintNew(m_Schema);
    Reading reading;
    reading.schema = m_Schema.empty() ? nullptr : FindSchema(m_Schema);
    reading.isStandard = m_bStandard || m_Checks.strict || m_pGet->parsed() || m_pEdit->parsed() ||
                         m_pMerge->parsed() || m_pFormat->parsed();
    if (m_bRequiresDocument) reading.skipping = Skipping::kRefused;
    const std::vector<std::string> paths = m_bRecursive ? FilesIn(m_Paths) : m_Paths;
    if (m_pCheck->parsed()) {
      Checks checks = m_Checks;
      checks.json = m_bJson;
      return Check(paths, reading, checks);
    }
    if (m_pDiff->parsed()) {
      return ForOne([&] { return Diff(m_OldPath, m_NewPath, reading, FormOfDiff()); });
    }
    if (m_pGet->parsed()) return ForOne([&] { return Get(m_File, m_Path, reading); });
    if (m_pMerge->parsed()) {
      return ForOne([&] { return Merge(paths, reading, {m_bEvents, m_bJson}); });
    }
    if (m_pReport->parsed()) {
      return ForOne([&] { return WriteReport(paths, reading, m_Page); });
    }
    if (m_pEdit->parsed())
      return ForOne([&] { return Edit(m_File, Changes(), reading, m_bInPlace); });
    return ForFiles(
        paths, [&](std::size_t i) { return RunFile(paths[i], paths.size() > 1, reading, log); });
  }

  // In the order of the command line.
  std::vector<Change> Changes() const {
    std::vector<Change> changes;
    std::size_t sets = 0;
    std::size_t removes = 0;
    for (const CLI::Option* option : m_pEdit->parse_order()) {
      Change change;
      if (option == m_pRemove) {
        change.kind = Change::Kind::kRemove;
        change.path = m_Removes[removes++];
      } else if (option == m_pSet) {
        const std::string& text = m_Sets[sets++];
        const std::size_t equals = text.find('=');
        change.path = text.substr(0, equals);
        change.hasValue = equals != std::string::npos;
        if (change.hasValue) change.value = text.substr(equals + 1);
      } else {
        continue;
      }
      changes.push_back(change);
    }
    return changes;
  }

  int RunFile(const std::string& path, bool isOneOfSeveral, const Reading& reading,
              Log& log) const {
    std::vector<Document> documents;
    Failure failure;
    const bool opened =
        ReadDocuments(path, reading.isStandard, documents, failure, reading.skipping);
    const bool several = isOneOfSeveral || documents.size() > 1;
    const bool written = m_pRoundTrip->parsed() || m_pFormat->parsed();
    const int status = ForDocuments(documents, [&](std::size_t i) {
      const Document& document = documents[i];
      if (several && !m_bJson && !written) Out() << "# " << Escape(document.name) << '\n';
      const int own = RunDocument(document, reading, log);
      if (several && m_pRoundTrip->parsed() && own == kDone) Out() << '\n';
      return own;
    });
    if (opened) return status;
    if (m_bJson) PrintJson(NameOfInput(path), failure);
    return std::max<int>(status, Refuse(NameOfInput(path), failure));
  }

  int RunDocument(const Document& document, const Reading& reading, Log& log) const {
    if (m_pEvents->parsed()) return PrintEvents(document, m_bJson);
    if (m_pNamespaces->parsed()) return PrintNamespaces(document);
    if (m_pRoundTrip->parsed()) return RoundTrip(document, reading, log);
    if (m_pFormat->parsed()) return Format(document, reading);
    return m_bJson ? ShowJson(document, reading) : Show(document, reading);
  }

  CLI::App m_App{"Shows how ztxml reads and writes the XML bodies of an IMS client.", "ztxml"};
  CLI::App* m_pShow = nullptr;
  CLI::App* m_pCheck = nullptr;
  CLI::App* m_pDiff = nullptr;
  CLI::App* m_pGet = nullptr;
  CLI::App* m_pEdit = nullptr;
  CLI::Option* m_pSet = nullptr;
  CLI::Option* m_pRemove = nullptr;
  CLI::App* m_pRoundTrip = nullptr;
  CLI::App* m_pMerge = nullptr;
  CLI::App* m_pEvents = nullptr;
  CLI::App* m_pNamespaces = nullptr;
  CLI::App* m_pSchemas = nullptr;
  CLI::App* m_pBody = nullptr;
  CLI::App* m_pFormat = nullptr;
  CLI::App* m_pNew = nullptr;
  CLI::App* m_pReport = nullptr;
  CLI::App* m_pHelp = nullptr;
  int m_LogLevel = 0;
  int m_Jobs = 0;  // as many as there are processors
  bool m_bJson = false;
  bool m_bStandard = false;
  bool m_bEvents = false;
  bool m_bRecursive = false;
  bool m_bRequiresDocument = false;
  Checks m_Checks;
  std::vector<std::string> m_Paths;
  std::string m_File;
  std::string m_Path;
  std::vector<std::string> m_Sets;
  std::vector<std::string> m_Removes;
  bool m_bInPlace = false;
  bool m_bSideBySide = false;
  int m_Width = 0;  // none given
  std::string m_OldPath;
  std::string m_NewPath;
  std::string m_Schema;
  int m_Nth = 0;
  std::string m_Page;
  std::string m_HelpFor;
  std::string m_Color = "auto";
  int m_Context = -1;  // none given
};

}  // namespace

int main(int argc, char** argv) {
  // A status tells of a closed pipe, as of a full disk, rather than a signal.
  if (std::signal(SIGPIPE, NotePipe) == SIG_ERR) return kInternal;
  try {
    const int status = CommandLine().Run(argc, argv);
    if (std::cout.flush()) return status;
    // Who has closed the pipe has seen enough.
    if (!s_isPipeClosed) Complain("(standard output)", "cannot be written");
    return kOutputFailed;
  } catch (const std::exception& error) {
    Complain("internal error", error.what());
  }
  return kInternal;
}
