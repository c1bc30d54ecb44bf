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

constexpr char kFooter[] =
    R"(Files are documents, also several in a row, or messages as captured: SIP or HTTP with headers and
a body, one after another, perhaps with lines of a log between them, or a MIME entity. Of a message
every XML body is taken, also in multipart and CPIM bodies, and in base64, quoted-printable, gzip,
deflate or chunks. Its Content-Type tells the schema; without one, or in a document, the root
element does. Each of several documents of a file is called by its number, FILE#3, and every command
takes it so, too. (A file that is itself called FILE#3 comes first.)

A message without an XML body is skipped; so are lines that belong to no message. "check" has a line
for what is skipped, otherwise standard error tells. --require-document refuses such messages. Other
files are refused, and called what they are: a gzip file, JSON. Of a body that was decoded, line and
column are its own. With -r the files in directories are taken.

Captures of packets (pcap, pcapng) are files, too: every message of SIP and HTTP that they carry is
read and called FILE#N in the order of time. Standard error tells what is encrypted or missing.

What is refused is told as FILE:LINE:COLUMN: KIND: REASON. Columns count characters. What cannot be
written has its path in place of line and column. Kinds: file, capture (headers and bodies); of the
library: malformed, incomplete, encoding, wrong root, refused (not read in this profile), missing
value, too long, no memory; of documents that it reads although XML forbids them: well-formedness,
namespaces, not supported.

The library has two profiles. In the exact one it reads and writes as its peers know it. In the
standard one (--standard; get, edit, merge, format always) it does so as XML, its namespaces and the
schemas have it: also UTF-16, ISO-8859-1, CDATA sections.

Examples:
  ztxml schemas
  ztxml show notify.xml
  ztxml check *.xml
  ztxml diff old.xml new.xml
  ztxml get notify.xml '/reginfo/registration[1]/@state'
  ztxml edit --set /simservs/communication-waiting/@active=false simservs.xml
  ztxml merge full.xml partial.xml
  ztxml body capture.txt --nth 2 | ztxml format -
  ztxml report --html call.html call.pcap
  ztxml new reginfo > notify.xml
  ztxml help COMMAND

Of several files, and of the documents of a large one, as many are read at a time as there are
processors, or --jobs; what is printed does not depend on it. On a terminal standard error tells
after a second how far the work is.

On a terminal there are colours, unless NO_COLOR is set, and the line of a document that is refused
has a caret under the place. --color and --context ask for them elsewhere.

Log levels, on standard error: 1 everything; 2 trace lines and most failures; 3 state changes;
4 errors.

Exit status: 0 done; 1 a document cannot be read, "check" finds it not ok, what "get" or "edit" is
asked for is not there, or "merge" lacks a notification; 2 wrong usage; 3 it cannot be written, or
not as XML; 4 the output cannot be written: the disk is full, the pipe closed; 5 an internal error,
or no memory. Of several files the highest counts. diff: 0 equal; 1 different; 2 wrong usage, or one
cannot be read.)";

constexpr char kEventsFooter[] = R"(Lines:
  start NAME
  attribute ELEMENT NAME="VALUE"
  opened NAME             all attributes of the start tag have been reported
  end /NAME "TEXT"        with the text since the last tag or comment, entities as they stand
Control characters, quotes and backslashes are escaped: \n, \t, \", \\; so are these and bytes that
are not UTF-8: \xNN. Each of several documents has a line "# FILE" before it.

With --json each callback is one line: "file", "event", "element", "name" and "value" of an
attribute, "text".

Example:
  ztxml events notify.xml)";

constexpr char kNamespacesFooter[] =
    R"(Lines: PREFIX<tab>URI in document order, with (default) for the default namespace. Each of several
documents has a line "# FILE" before it.

Example:
  ztxml namespaces notify.xml)";

constexpr char kRoundTripFooter[] =
    R"(Each of several documents is followed by a line break. What is written to a terminal has its control
characters escaped.

Both texts are judged as by "check". A faulty document that the library reads is reported and
still written; a faulty output, called FILE (output), gives the exit status 3. With --standard a
faulty document is refused, and the message tells what cannot be written.

Examples:
  ztxml roundtrip notify.xml
  ztxml roundtrip --schema reginfo notify.xml
  ztxml roundtrip --schema 26 - < notify.xml)";

constexpr char kShowFooter[] = R"(Lines, indented by depth:
  ELEMENT : TYPE          an object
  @NAME = VALUE           an attribute
  NAME = VALUE            a child element of which the text is kept
  (text) = VALUE          the element's own text; (words) for each word of it
Texts are in quotes and escaped as by "events", enumerations and numbers are not. What is absent is
not shown: without --standard a number that is 0, too, and of most booleans every text but "true" is
false; with it, whatever is stated is shown. Each of several documents has a line "# FILE" before it.

With --json each document is one line,
  {"file":NAME,"schema":NAME,"document":OBJECT}
  {"file":NAME,"error":{"kind":KIND,"message":TEXT,"line":N,"column":N,"path":PATH}}
where what there is none of is left out. Each object has "#element", "#type" and its fields: "@NAME"
for attributes, "NAME" for child elements, "#text", "#words", "#attributes" (other attributes: a list
of name and value; the name of a default namespace is null) and "#children" (other child elements).
What may be repeated is a list. Each byte of a text that is not UTF-8 becomes U+FFFD.

Examples:
  ztxml show notify.xml
  ztxml show --json notify.xml | jq '.document.registration[]["@aor"]')";

constexpr char kCheckFooter[] =
    R"(Lines: "FILE: ok, SCHEMA" or the reason, then a summary that counts what is ok, refused by the
library, or faulty: read by the library although it is not well-formed XML with bound prefixes. With
--standard there is nothing of that kind.

With --lost what the types do not keep of a document has a line each,
  FILE:LINE:COLUMN: PATH: WHAT
where PATH is as "diff" prints it and WHAT is "element not kept", or attribute, text, value. Such a
document is not ok; the summary counts it as one with losses. Of a document that is not well-formed
XML with bound prefixes none are told.

With --strict documents are read in the standard profile, and faulty is also one that lacks what its
schema, or this library, requires (kind "required": of an element whose start the line tells), or
that has a number, a boolean or an enumeration with a value that is none of its type (kind "value").

With --json each document is one line, with its status ok, refused, faulty or lossy, and what is
wrong as an "error", a list of "faults" or one of "losses"; there is no summary. --junit writes a
report with a test case for each document, besides what is printed.

Exit status: 0 all are ok; 1 some are not; 4 the report cannot be written.

Examples:
  ztxml check *.xml
  ztxml check --lost --strict notify.xml
  ztxml check -j 4 -r captures
  ztxml check --quiet capture/*.txt || echo some are not ok)";

constexpr char kDiffFooter[] =
    R"(Compares what the library keeps of the documents: white space between elements, the order of
attributes and what it skips do not count. Lines:
  - PATH ...              only in the first document
  + PATH ...              only in the second
  ~ PATH: OLD -> NEW      different
Entries of lists belong together when they are equal, else by their id (or entity, uri, aor, name),
else by their place. Entries that changed places are in one "-" and one "+" line. After the line of
an element that one of them has come lines of what it holds, indented.

With --context N up to N equal values and elements before and after each difference are shown, after
two blanks.

With --side-by-side, which is never the default, the documents are in two columns with the sign
between them, and before them is a line with the path of the element that they are in. What is too
long is cut, which "..." tells. The columns are as wide as the terminal, or as --width N; elsewhere
130 characters together.

With --json each difference is one line with "change" (added, removed, changed), "path",
"old" and "new".

Exit status: 0 equal; 1 different; 2 wrong usage, or a document cannot be read.

Examples:
  ztxml diff old.xml new.xml
  ztxml diff -y --context 2 old.xml new.xml
  ztxml diff log.txt#2 log.txt#3)";

constexpr char kGetFooter[] =
    R"(The document is read in the standard profile. PATH is as "diff" prints it: element names, with
[n] for the n-th of that name in a list; @NAME for an attribute; (text) for an element's own text,
and (words)[n] for a word of it. An index may be left out where there is only one.

A value is printed as it is meant, and a line break. An element has the value that is its own text;
one that has no such text is printed as by "show". Of a captured message it is the XML body that is
read; of several documents FILE#3 names the third.

Exit status: 0 printed; 1 the document cannot be read, or nothing is there; 2 there can be no such
thing, and the message tells which step is wrong.

Examples:
  ztxml get notify.xml '/reginfo/registration[1]/contact[2]/@expires'
  ztxml get notify.xml /reginfo/registration
  ztxml get call.pcap#2 /isComposing/state)";

constexpr char kEditFooter[] =
    R"(Writes the document to standard output with what was asked for changed, and nothing else: in its
encoding, with its comments, white space and all that the library does not know. Without --set and
--remove it is the very bytes that came in. (On a terminal control characters are escaped.) Of a
captured message it is the XML body that is changed and written, without the headers, whose
Content-Length would be another; of several documents FILE#3 names the third, which is written
alone. With --in-place the result takes the place of the file instead, which has to be one document
and nothing else.

--set and --remove apply in their order. PATH is as for "get".
  --set PATH=VALUE   the value of an attribute or of an element, or a word. What is not there is
                     made, with the elements on the way; one more than there are, [n+1], is put at
                     the end of its list. An empty VALUE is an empty text.
  --set PATH         makes an element, such as a flag, without a value
  --remove PATH      removes an element with all that is in it, an attribute, a value
Attributes of unknown names can be set and removed where they are kept, but not made.

Exit status: 0 written; 1 the document cannot be read, or what is to be removed is not there; 2 PATH
can name nothing there, or VALUE is none of its type, or --in-place cannot be; 3 the result cannot
be written; 4 nor can the file.

Examples:
  ztxml edit -i --set /simservs/communication-waiting/@active=false simservs.xml
  ztxml edit --set /simservs/communication-diversion/NoReplyTimer=20 simservs.xml
  ztxml edit --remove '/resource-lists/list[1]/entry[2]' lists.xml > new.xml)";

constexpr char kMergeFooter[] =
    R"(Merges notifications of registrations (RFC 3680), of conferences (RFC 4575) or of resource lists
(RFC 4662), in the order given, and writes the full document that results to standard output. The
first one tells which of the three it is. They are read in the standard profile; of a message with
several bodies only such notifications are taken.

A notification that is old, repeated or of another resource is ignored, which standard error tells.
Where a new full one is needed, standard error tells why, and the exit status is 1; what is written
is what is known without it.

With --events, lines instead of the document and of what standard error tells:
  FILE: applied           it is part of the state now
  FILE: ignored: REASON
  FILE: refresh: REASON   a new full one is needed; "applied; refresh:" when it was taken all the same
and for each change, indented, "added PATH", "changed PATH" or "removed PATH". A PATH has the key of
what occurs several times: /reginfo/registration[r1]/contact[c1].

With --json the state is one line, as by "show --json", without "file"; with --events, too, each
notification is: "file", "applied", "refresh", "reason", and "changes" of "change" and "path".

Exit status: 0 done; 1 a notification cannot be read, or a new full one is needed; 2 documents of
that kind cannot be merged; 3 the result cannot be written.

Examples:
  ztxml merge full.txt partial-*.txt > state.xml
  ztxml merge --events full.txt partial-*.txt)";

constexpr char kSchemasFooter[] = R"(The other commands take a NAME or an ID as --schema.

Example:
  ztxml schemas)";

// Whether what reads the output has gone.
volatile std::sig_atomic_t s_isPipeClosed = 0;
void NotePipe(int /*signal*/) { s_isPipeClosed = 1; }

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
        std::cerr << "ztxml: " << NoSuchCommand(m_App, m_HelpFor) << '\n';
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
