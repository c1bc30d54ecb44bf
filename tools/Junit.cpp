#include "Junit.h"

#include <fstream>

#include "Text.h"

namespace {

// `plain`, which Escape gave, as a text or an attribute value of XML: nothing is left in it that
// XML does not allow but two characters.
std::string EscapeXml(const std::string& plain) {
  std::string escaped;
  for (std::size_t i = 0; i < plain.size(); ++i) {
    switch (plain[i]) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        if (plain.compare(i, 3, "\xef\xbf\xbe") == 0 || plain.compare(i, 3, "\xef\xbf\xbf") == 0) {
          escaped += "\xef\xbf\xbd";
          i += 2;
        } else {
          escaped += plain[i];
        }
    }
  }
  return escaped;
}

std::string Attribute(const char* name, const std::string& value) {
  return std::string(1, ' ') + name + "=\"" + EscapeXml(value) + '"';
}

}  // namespace

const char* KeyOf(eZtLoss kind) {
  switch (kind) {
    case ZT_LOST_ELEMENT:
      return "element";
    case ZT_LOST_ATTRIBUTE:
      return "attribute";
    case ZT_LOST_TEXT:
      return "text";
    case ZT_LOST_VALUE:
      return "value";
  }
  return "";
}

std::string NameOf(eZtLoss kind) {
  const char* const why = kind == ZT_LOST_VALUE ? ": it is none of its type" : "";
  return std::string(KeyOf(kind)) + " not kept" + why;
}

void JunitReport::Add(const CheckResult& result) {
  ++m_iTests;
  const std::string schema = result.schema.empty() ? "unread" : result.schema;
  m_Cases +=
      "  <testcase" + Attribute("name", Escape(result.name)) + Attribute("classname", schema);
  if (result.IsOk()) {
    m_Cases += "/>\n";
    return;
  }
  ++m_iFailures;
  std::string lines;
  std::string first;  // stands for them all
  const auto add = [&](const std::string& line) {
    if (first.empty()) first = line;
    lines += EscapeXml(line) + '\n';
  };
  for (const Failure& fault : result.faults) add(Describe(result.name, fault));
  for (const CheckResult::Lost& lost : result.losses) {
    add(Escape(result.name) + ':' + ToString(lost.at) + ": " + Escape(lost.loss.path) + ": " +
        NameOf(lost.loss.kind));
  }
  const std::string kind = result.faults.empty() ? "loss" : result.faults[0].kind;
  m_Cases += ">\n    <failure" + Attribute("type", kind) + Attribute("message", first) + '>' +
             lines + "</failure>\n  </testcase>\n";
}

void JunitReport::Add(const JunitReport& other) {
  m_Cases += other.m_Cases;
  m_iTests += other.m_iTests;
  m_iFailures += other.m_iFailures;
}

bool JunitReport::Write(const std::string& path) const {
  std::ofstream file(path, std::ios::binary);
  file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n<testsuite"
       << Attribute("name", "ztxml check") << Attribute("tests", std::to_string(m_iTests))
       << Attribute("failures", std::to_string(m_iFailures)) << Attribute("errors", "0") << ">\n"
       << m_Cases << "</testsuite>\n</testsuites>\n";
  file.close();
  return !file.fail();
}
