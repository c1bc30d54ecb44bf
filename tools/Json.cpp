#include "Json.h"

#include "Output.h"
#include "Text.h"

JsonObject& JsonObject::Value(std::string_view name, const std::string& json) {
  if (!m_Members.empty()) m_Members += ',';
  m_Members += JsonQuote(name) + ':' + json;
  return *this;
}

JsonObject& JsonObject::Text(std::string_view name, std::string_view value) {
  return Value(name, JsonQuote(value));
}

JsonObject& JsonObject::Number(std::string_view name, unsigned long long value) {
  return Value(name, std::to_string(value));
}

JsonObject& JsonObject::Flag(std::string_view name, bool value) {
  return Value(name, value ? "true" : "false");
}

std::string JsonList(const std::vector<std::string>& values) {
  std::string list = "[";
  for (const std::string& value : values) {
    if (list.size() > 1) list += ',';
    list += value;
  }
  return list + ']';
}

std::string JsonOf(const Failure& failure) {
  JsonObject error;
  error.Text("kind", failure.kind).Text("message", failure.what);
  if (failure.at.line) error.Number("line", failure.at.line).Number("column", failure.at.column);
  if (!failure.path.empty()) error.Text("path", failure.path);
  return error.Done();
}

void PrintJson(const std::string& name, const Failure& failure) {
  Out() << JsonObject().Text("file", name).Value("error", JsonOf(failure)).Done() << '\n';
}
