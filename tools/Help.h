// What the help of commands says after their options.
#ifndef ZTXML_TOOLS_HELP_H
#define ZTXML_TOOLS_HELP_H

inline constexpr int kMostDocuments = 1000000;  // that --nth counts to
inline constexpr int kMostContext = 1000;

inline constexpr char kBodyFooter[] =
    R"(Prints what a captured message has as XML bodies, byte for byte and one right after another;
nothing of it is judged. A file that is a document is printed as it is. (On a terminal control
characters are escaped.)

Exit status: 0 printed; 1 the message cannot be read, or has no Nth document.

Examples:
  ztxml body notify.txt > notify.xml
  ztxml body --nth 2 multipart.txt | ztxml show -)";

inline constexpr char kFormatFooter[] =
    R"(Prints documents, which the standard profile has to read, with each element on a line, indented by
depth. Nothing else is changed: tags stay as they are written, and so do comments, unknown elements
and the encoding. An element with a text keeps all that is in it as it stands, and so does one with
xml:space="preserve". A comment after something on a line stays there.

Exit status: 0 printed; 1 a document cannot be read.

Examples:
  ztxml format notify.xml
  ztxml new simservs | ztxml format -)";

inline constexpr char kNewFooter[] =
    R"(Prints a document in which everything that the schema has is stated once, with made up values, to
keep, change or take from. Of things of which one excludes another it has the first. SCHEMA may be a
root element, where a schema has several.

Examples:
  ztxml new presence
  ztxml new temp-gruu)";

inline constexpr char kReportFooter[] =
    R"(Writes a page for a browser: a summary, and every message in the order of time, or of the files
where nothing tells the time, with its documents. Of each it has the schema, the main values, why it is
refused or faulty, what is lost, as "check --lost" has it, and its text. The page needs nothing from
elsewhere; nothing that is in a document becomes a part of it but as text.

What a notification of a registration, a conference or a resource list changed is told as by "merge",
for each subscription, which its Call-ID tells apart. Presence, and what is put at a URL, is compared
with the document before it.

Exit status: 0 written, whatever the documents are; 1 a file cannot be read, which the page tells, too;
2 the page would take the place of a file that it is of; 4 the page cannot be written.

Examples:
  ztxml report --html call.html call.pcap
  ztxml report --html - -r captures > captures.html)";

inline constexpr char kHelpFooter[] = R"(Examples:
  ztxml help
  ztxml help check)";

#endif  // ZTXML_TOOLS_HELP_H
