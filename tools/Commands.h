// The commands. Each returns the exit status, after a message when it is not kDone.
#ifndef ZTXML_TOOLS_COMMANDS_H
#define ZTXML_TOOLS_COMMANDS_H

#include <string>
#include <vector>

#include "DiffPrint.h"
#include "Document.h"
#include "Log.h"
#include "Read.h"

/// As a table, or each as a line of JSON.
int PrintSchemas(bool json);
int PrintEvents(const Document& document, bool json);
int PrintNamespaces(const Document& document);
/// Reads and writes the document, and judges both texts; what the standard profile reads has been
/// judged.
int RoundTrip(const Document& document, const Reading& reading, Log& log);
/// Prints the tree of objects.
int Show(const Document& document, const Reading& reading);
/// Prints the tree of one object, which is called `name`.
int ShowObject(const Document& document, const reflect::Node& object, const char* name);
/// Prints the tree as one line of JSON, also for a document that cannot be read.
int ShowJson(const Document& document, const Reading& reading);

/// What is checked, and how it is told.
struct Checks {
  bool losses = false;  ///< what the types do not keep
  bool strict = false;  ///< what is required, and values; asks for the standard profile
  bool quiet = false;   ///< only what is not ok has a line
  bool json = false;    ///< each document is a line of JSON, and there is no summary
  std::string junit;    ///< the file that gets a report in JUnit's format; "" for none
};
/// Reads and judges every document of the files: a line for each, and one for each fault; and a
/// summary. kOutputFailed when the report cannot be written.
int Check(const std::vector<std::string>& paths, const Reading& reading, const Checks& checks);

/// Compares two documents as trees of objects. 0: equal, 1: different, 2: one cannot be read.
int Diff(const std::string& oldPath, const std::string& newPath, const Reading& reading,
         const DiffForm& form);

/// Prints what is at `path` in the document of `file`, read in the standard profile. kCannotRead
/// when nothing is there, kUsage when nothing can be.
int Get(const std::string& file, const std::string& path, const Reading& reading);

/// Something to be done to a document.
struct Change {
  enum class Kind { kSet, kRemove };

  Kind kind = Kind::kSet;
  std::string path;
  std::string value;
  bool hasValue = false;
};
/// Prints the document of the file `path` with the changes, made in their order; or with `inPlace`
/// puts it in the place of the file, which must have nothing else. kCannotRead when what is to be
/// removed is not there, kUsage for a change that cannot be, kOutputFailed for a file.
int Edit(const std::string& path, const std::vector<Change>& changes, const Reading& reading,
         bool inPlace);

/// What "merge" prints: the state that results, or what became of each notification.
struct Merging {
  bool events = false;
  bool json = false;
};
/// Merges the notifications of the files in their order, by the schema of the first. kCannotRead
/// when one cannot be read or others are missing, kUsage for documents that do not come in parts.
int Merge(const std::vector<std::string>& paths, const Reading& reading, Merging prints);

/// Writes a page in HTML about the messages and documents of the files to the file `page`, "-" for
/// standard output. kCannotRead when a file cannot be read, which the page tells, too.
int WriteReport(const std::vector<std::string>& paths, const Reading& reading,
                const std::string& page);

/// Prints the documents of the file `path`, or with `nth` not 0 that one, byte for byte.
int PrintBody(const std::string& path, std::size_t nth);
/// Prints the document, which the standard profile reads, indented.
int Format(const Document& document, const Reading& reading);
/// Prints an example of a document of the schema that has the name, the number or the root element.
int PrintNew(const std::string& schemaOrRoot);

#endif  // ZTXML_TOOLS_COMMANDS_H
