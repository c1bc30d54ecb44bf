// What the help of commands says after their options.
#ifndef ZTXML_TOOLS_HELP_H
#define ZTXML_TOOLS_HELP_H

inline constexpr int kMostDocuments = 1000000;  // that --nth counts to
inline constexpr int kMostContext = 1000;

inline constexpr char kFooter[] =
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

inline constexpr char kEventsFooter[] = R"(Lines:
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

inline constexpr char kNamespacesFooter[] =
    R"(Lines: PREFIX<tab>URI in document order, with (default) for the default namespace. Each of several
documents has a line "# FILE" before it.

Example:
  ztxml namespaces notify.xml)";

inline constexpr char kRoundTripFooter[] =
    R"(Each of several documents is followed by a line break. What is written to a terminal has its control
characters escaped.

Both texts are judged as by "check". A faulty document that the library reads is reported and
still written; a faulty output, called FILE (output), gives the exit status 3. With --standard a
faulty document is refused, and the message tells what cannot be written.

Examples:
  ztxml roundtrip notify.xml
  ztxml roundtrip --schema reginfo notify.xml
  ztxml roundtrip --schema 26 - < notify.xml)";

inline constexpr char kShowFooter[] = R"(Lines, indented by depth:
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

inline constexpr char kCheckFooter[] =
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

inline constexpr char kDiffFooter[] =
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

inline constexpr char kGetFooter[] =
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

inline constexpr char kEditFooter[] =
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

inline constexpr char kMergeFooter[] =
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

inline constexpr char kSchemasFooter[] = R"(The other commands take a NAME or an ID as --schema.

Example:
  ztxml schemas)";

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
