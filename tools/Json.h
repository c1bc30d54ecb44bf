// Objects and lists of JSON, put together member by member.
#ifndef ZTXML_TOOLS_JSON_H
#define ZTXML_TOOLS_JSON_H

#include <string>
#include <string_view>
#include <vector>

#include "Document.h"

class JsonObject {
 public:
  JsonObject& Text(std::string_view name, std::string_view value);
  JsonObject& Number(std::string_view name, unsigned long long value);
  JsonObject& Flag(std::string_view name, bool value);
  /// `json` is a value in JSON.
  JsonObject& Value(std::string_view name, const std::string& json);

  /// The whole of it, "{...}".
  std::string Done() const { return '{' + m_Members + '}'; }

 private:
  std::string m_Members;
};

/// A list of values in JSON.
std::string JsonList(const std::vector<std::string>& values);
/// What a failure tells; what there is none of is left out.
std::string JsonOf(const Failure& failure);
/// Prints the line for a document that cannot be read.
void PrintJson(const std::string& name, const Failure& failure);

#endif  // ZTXML_TOOLS_JSON_H
