// What is said of a wrong command line: with what was probably meant.
#ifndef ZTXML_TOOLS_USAGE_H
#define ZTXML_TOOLS_USAGE_H

#include <string>
#include <vector>

namespace CLI {
class App;
class Error;
}  // namespace CLI

/// Why a value is none of its option's, "" for nothing.
std::string CheckSchema(const std::string& nameOrId);
std::string CheckSchemaOrRoot(const std::string& name);
std::string CheckColor(const std::string& when);

std::vector<std::string> NamesOfCommands(const CLI::App& app);
std::string NoSuchCommand(const CLI::App& app, const std::string& name);
/// What to print of a command line that cannot be parsed.
std::string FailureMessage(const CLI::App* app, const CLI::Error& error);

#endif  // ZTXML_TOOLS_USAGE_H
