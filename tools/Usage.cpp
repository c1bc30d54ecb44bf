#include "Usage.h"

#include <algorithm>

#include "Schemas.h"
#include "Suggest.h"

namespace {

std::string UnknownSchema(const std::string& name, bool takesRoots) {
  return "unknown schema '" + name + "'" + DidYouMean(name, NamesOfSchemas(takesRoots)) +
         " (see: ztxml schemas)";
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

std::string NoSuchCommand(const std::string& name, const std::vector<std::string>& known) {
  return "no such command: " + name + DidYouMean(name, known);
}
std::string NoSuchOption(const std::string& option, const std::vector<std::string>& known) {
  const std::string name = option.substr(0, option.find('='));
  return "no such option: " + name + DidYouMean(name, known);
}
