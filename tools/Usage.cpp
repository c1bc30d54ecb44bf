#include "Usage.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "Schemas.h"
#include "Suggest.h"

namespace {

std::string UnknownSchema(const std::string& name, bool takesRoots) {
  return "unknown schema '" + name + "'" + DidYouMean(name, NamesOfSchemas(takesRoots)) +
         " (see: ztxml schemas)";
}

std::string NoSuchOption(const CLI::App& app, const std::string& option) {
  std::vector<std::string> names;
  const auto add = [&](const CLI::App& of) {
    for (const CLI::Option* known : of.get_options()) {
      for (const std::string& name : known->get_lnames()) names.push_back("--" + name);
    }
  };
  add(app);
  for (const CLI::App* command : app.get_subcommands()) add(*command);
  const std::string name = option.substr(0, option.find('='));
  return "no such option: " + name + DidYouMean(name, names);
}

}  // namespace

std::string CheckSchema(const std::string& nameOrId) {
  return FindSchema(nameOrId) ? "" : UnknownSchema(nameOrId, false);
}
std::string CheckSchemaOrRoot(const std::string& name) {
  return FindSchema(name) || FindSchemaOfRoot(name) ? "" : UnknownSchema(name, true);
}

std::string CheckColor(const std::string& when) {
  const std::vector<std::string> known = {"auto", "always", "never"};
  if (std::find(known.begin(), known.end(), when) != known.end()) return "";
  return "'" + when + "' is none of auto, always and never" + DidYouMean(when, known);
}

std::vector<std::string> NamesOfCommands(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(command->get_name());
  }
  return names;
}
std::string NoSuchCommand(const CLI::App& app, const std::string& name) {
  return "no such command: " + name + DidYouMean(name, NamesOfCommands(app));
}

std::string FailureMessage(const CLI::App* app, const CLI::Error& error) {
  // Without this a misspelt command would only be reported as a missing one, and a misspelt option
  // as one more word.
  const std::vector<std::string> rest = app->remaining(true);
  const auto option = std::find_if(rest.begin(), rest.end(), [](const std::string& word) {
    return word.size() > 1 && word[0] == '-';
  });
  std::string what = error.what();
  if (option != rest.end()) {
    what = NoSuchOption(*app, *option);
  } else if (app->get_subcommands().empty() && !rest.empty()) {
    what = NoSuchCommand(*app, rest[0]);
  }
  return "ztxml: " + what + "\nTry: ztxml --help\n";
}
