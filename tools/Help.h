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

inline constexpr char kHelpFooter[] = R"(Examples:
  ztxml help
  ztxml help check)";

#endif  // ZTXML_TOOLS_HELP_H
