// The commands. Each returns the exit status, after a message when it is not kDone.
#ifndef ZTXML_TOOLS_COMMANDS_H
#define ZTXML_TOOLS_COMMANDS_H

#include <string>
#include <vector>

#include "Document.h"
#include "Log.h"
#include "XMLFactory.h"

// A null `schema` is chosen by the document's content type or root element.

int PrintSchemas();
int PrintEvents(const Document& document);
int PrintNamespaces(const Document& document);
/// Reads and writes the document, and judges both texts.
int RoundTrip(const Document& document, const XMLSchemaInfo* schema, Log& log);
/// Prints the tree of objects.
int Show(const Document& document, const XMLSchemaInfo* schema);
/// Prints the tree as one line of JSON, also for a document that cannot be read.
int ShowJson(const Document& document, const XMLSchemaInfo* schema);
/// Prints the line of JSON for a file that gave no document.
void PrintJson(const std::string& name, const Failure& failure);
/// Reads and judges every document of the files: a line for each, unless `quiet` only for those
/// that are refused or faulty, and a summary.
int Check(const std::vector<std::string>& paths, const XMLSchemaInfo* schema, bool quiet);
/// Compares two documents as trees of objects. 0: equal, 1: different, 2: one cannot be read.
int Diff(const std::string& oldPath, const std::string& newPath, const XMLSchemaInfo* schema);

#endif  // ZTXML_TOOLS_COMMANDS_H
