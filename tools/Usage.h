// What is said of a wrong command line: with what was probably meant.
#ifndef ZTXML_TOOLS_USAGE_H
#define ZTXML_TOOLS_USAGE_H

#include <string>
#include <vector>

/// Why a value is none of its option's, "" for nothing.
std::string CheckSchema(const std::string& nameOrId);
std::string CheckSchemaOrRoot(const std::string& name);
std::string CheckColor(const std::string& when);

/// That there is no such command, or option, with which of those that are known was probably meant.
std::string NoSuchCommand(const std::string& name, const std::vector<std::string>& known);
std::string NoSuchOption(const std::string& option, const std::vector<std::string>& known);

#endif  // ZTXML_TOOLS_USAGE_H
