// The command line tool: looks at documents as the library does.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "Commands.h"
#include "Document.h"
#include "Log.h"

namespace {

constexpr char kFooter[] = R"(Examples:
  ztxml schemas
  ztxml events notify.xml
  ztxml roundtrip --log 1 notify.xml
  ztxml namespaces - < notify.xml

Log levels, on standard error: 1 everything; 2 trace lines and most failures; 3 state changes;
4 errors.

Exit status: 0 done; 1 the document cannot be read; 2 wrong usage; 3 it cannot be written.)";

constexpr char kEventsFooter[] = R"(Lines:
  start NAME
  attribute ELEMENT NAME="VALUE"
  opened NAME             all attributes of the start tag have been reported
  end /NAME "TEXT"        with the text since the last tag or comment, entities as they stand
Control characters, quotes and backslashes are escaped: \n, \t, \", \\, \xNN.

Example:
  ztxml events notify.xml)";

constexpr char kNamespacesFooter[] =
    R"(Lines: PREFIX<tab>URI in document order, with (default) for the default namespace.

Example:
  ztxml namespaces notify.xml)";

constexpr char kRoundTripFooter[] = R"(Examples:
  ztxml roundtrip notify.xml
  ztxml roundtrip --schema reginfo notify.xml
  ztxml roundtrip --schema 26 - < notify.xml)";

std::string CheckSchema(const std::string& nameOrId) {
  return FindSchema(nameOrId) ? "" : "unknown schema '" + nameOrId + "' (see: ztxml schemas)";
}

std::string FailureMessage(const CLI::App* /*app*/, const CLI::Error& error) {
  return std::string("ztxml: ") + error.what() + "\nTry: ztxml --help\n";
}

class CommandLine {
 public:
  CommandLine() {
    m_App.set_version_flag("--version", "ztxml " ZTXML_VERSION, "Print the version and exit");
    m_App.add_option("--log", m_LogLevel, "Print the library's log lines from this level up")
        ->option_text("LEVEL")
        ->check(CLI::Range(1, 4));
    m_App.footer(kFooter);
    m_App.failure_message(FailureMessage);
    m_App.require_subcommand(1);
    m_App.fallthrough();  // --log may follow the command

    m_pSchemas = m_App.add_subcommand("schemas", "List the schemas that the library knows");
    m_pEvents =
        AddDocumentCommand("events", "Print the parser's callbacks, one a line", kEventsFooter);
    m_pNamespaces = AddDocumentCommand("namespaces", "Print a document's namespace declarations",
                                       kNamespacesFooter);
    m_pRoundTrip = AddDocumentCommand(
        "roundtrip", "Read a document and write it again to standard output", kRoundTripFooter);
    m_pRoundTrip
        ->add_option("--schema", m_Schema,
                     "A schema of ztxml schemas; by default the root element decides")
        ->option_text("NAME|ID")
        ->check(CheckSchema);
  }

  int Run(int argc, const char* const* argv) {
    try {
      m_App.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return m_App.exit(error) == 0 ? kDone : kUsage;
    }
    return RunCommand();
  }

 private:
  CLI::App* AddDocumentCommand(const char* name, const char* description, const char* footer) {
    CLI::App* command = m_App.add_subcommand(name, description);
    command->add_option("FILE", m_Path, "The document; - is standard input")
        ->option_text(" ")
        ->required();
    command->footer(footer);
    return command;
  }

  int RunCommand() const {
    if (m_pSchemas->parsed()) return PrintSchemas();
    const Log log(m_LogLevel);
    Document document;
    if (!ReadDocument(m_Path, document)) return kCannotRead;
    if (m_pEvents->parsed()) return PrintEvents(document);
    if (m_pNamespaces->parsed()) return PrintNamespaces(document);
    return RoundTrip(document, m_Schema.empty() ? nullptr : FindSchema(m_Schema), log);
  }

  CLI::App m_App{"Shows how ztxml reads and writes the XML bodies of an IMS client.", "ztxml"};
  CLI::App* m_pSchemas = nullptr;
  CLI::App* m_pEvents = nullptr;
  CLI::App* m_pNamespaces = nullptr;
  CLI::App* m_pRoundTrip = nullptr;
  int m_LogLevel = 0;
  std::string m_Path;
  std::string m_Schema;
};

}  // namespace

int main(int argc, char** argv) {
  try {
    const int status = CommandLine().Run(argc, argv);
    if (std::cout.flush()) return status;
    Complain("(standard output)", "cannot be written");
  } catch (const std::exception& error) {
    Complain("internal error", error.what());
  }
  return kCannotWrite;
}
