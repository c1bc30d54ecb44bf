#include "ReportPage.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <ostream>

#include "Html.h"
#include "Page.h"
#include "Text.h"

namespace {

constexpr std::size_t kShownFirst = 12;     // of a list; the rest can be opened
constexpr std::size_t kShownValues = 12;    // of what an element holds
constexpr std::size_t kShownMatters = 200;  // and reasons
constexpr std::size_t kBatch = 50;          // messages that a browser lays out together
constexpr std::size_t kLongest = 160;       // characters of a value on a line

std::string Number(std::size_t number) { return std::to_string(number); }

// A text that is cut when it is long.
std::string Short(std::string_view text) {
  return std::string(CutShort(text, kLongest)) + (text.size() > kLongest ? "\xe2\x80\xa6" : "");
}

std::string ToString(const Time& time, const char* format) {
  const auto seconds = static_cast<std::time_t>(time.seconds);
  std::tm parts = {};
  std::array<char, 64> text = {};
  if (!gmtime_r(&seconds, &parts)) return "";
  text[std::strftime(text.data(), text.size(), format, &parts)] = '\0';
  std::string fraction = Number(static_cast<std::size_t>(time.nanoseconds / 1000000 + 1000));
  return text.data() + ('.' + fraction.substr(1));
}

// A path without the numbers and keys that differ from one document to the other.
std::string WithoutIndexes(std::string_view path) {
  std::string plain;
  std::size_t depth = 0;
  for (const char c : path) {
    if (c == '[') ++depth;
    if (!depth) plain += c;
    if (c == ']' && depth) --depth;
  }
  return plain;
}

// What is wrong, without the places that a sentence may end with.
std::string WithoutPlace(const Failure& fault) {
  const std::string what = std::string(fault.kind) + ": " + fault.what;
  return what.substr(0, what.find(" (opened at "));
}

std::string Tag(const char* tone, const std::string& text) {
  return HtmlElement("span", (std::string("tag ") + tone).c_str(), text);
}

// Adds `count` entries, by add(i), to a list of which the end is closed when it is long.
template <class AddEntry>
void AddList(std::string& html, const char* name, std::size_t count, AddEntry add) {
  const std::size_t shown = count > kShownFirst + 3 ? kShownFirst : count;
  html.append("<ul class=\"").append(name).append("\">");
  for (std::size_t i = 0; i < shown; ++i) add(i);
  html += "</ul>";
  if (shown == count) return;
  html +=
      "<details><summary>" + Number(count - shown) + " more</summary><ul class=\"" + name + "\">";
  for (std::size_t i = shown; i < count; ++i) add(i);
  html += "</ul></details>";
}

// What the filter finds a message by, and what kinds of it there are.
void AddSearch(const ReportMessage& message, const std::vector<Examined>& documents,
               const std::string& file, std::string& html) {
  std::string kinds;
  std::string find = file;
  const auto add = [&find](std::string_view text) { find.append(" ").append(text); };
  const Document& first = message.items[0];
  for (const std::string* text :
       {&first.origin.from, &first.origin.to, &first.message.startLine, &first.message.callId}) {
    add(*text);
  }
  bool isRefused = false;
  bool isLossy = false;
  bool isChanging = false;
  for (const Examined& examined : documents) {
    const CheckResult& result = examined.result;
    isRefused = isRefused || !result.faults.empty();
    isLossy = isLossy || !result.losses.empty();
    isChanging = isChanging || !examined.followed.differences.empty();
    add(result.schema);
    for (const auto& [name, value] : examined.summary) add(Short(value));
    if (!result.faults.empty())
      add(std::string(result.faults[0].kind) + ' ' + result.faults[0].what);
  }
  if (!documents.empty()) kinds += "document ";
  if (isRefused) kinds += "refused ";
  if (isLossy) kinds += "lossy ";
  if (isChanging) kinds += "changing ";
  html += " data-has=\"" + kinds + "\" data-find=\"";
  AppendHtmlAttribute(html, find);
  html += "\">";
}

void AddValue(const Difference::Value& value, bool isNew, std::string& html) {
  html += "<li>" + HtmlElement("b", "name", Short(value.name)) + ' ';
  if (value.wasThere) html += HtmlElement("del", "before", Short(value.before));
  if (value.wasThere && value.isThere) html += " \xe2\x86\x92 ";
  if (value.isThere) html += HtmlElement("span", "after", Short(value.after));
  if (!isNew && !value.wasThere) html += " <span class=\"soft\">(new)</span>";
  if (!value.isThere) html += " <span class=\"soft\">(gone)</span>";
  html += "</li>";
}

void AddFigure(std::size_t count, const char* one, const char* several, const char* tone,
               std::string& html) {
  html += std::string("<div class=\"") + (count ? tone : "") + "\"><dt>" +
          (count == 1 ? one : several) + "</dt><dd>" + Number(count) + "</dd></div>";
}

void AddCell(std::size_t count, std::string& html) {
  html +=
      std::string("<td class=\"number") + (count ? "" : " zero") + "\">" + Number(count) + "</td>";
}

void AddFileTable(const std::vector<const ReportFile*>& files, std::string& html) {
  html +=
      R"(<table><thead><tr><th scope="col">File</th><th scope="col" class="number">Messages</th><th scope="col" class="number">Documents</th></tr></thead><tbody>
)";
  for (const ReportFile* const file : files) {
    html += "<tr><td>";
    AppendHtml(html, file->name);
    if (!file->notes.empty()) html += "<ul class=\"notes\">";
    for (const std::string& note : file->notes) html += HtmlElement("li", "note", note);
    if (!file->notes.empty()) html += "</ul>";
    html += "</td>";
    AddCell(file->messages, html);
    AddCell(file->documents, html);
    html += "</tr>\n";
  }
  html += "</tbody></table>";
}

constexpr char kFilter[] =
    R"(<form class="filter" id="filter" role="search" hidden="hidden">
<div class="wide"><label for="filter-words">Filter by words</label><input type="search" id="filter-words" autocomplete="off" placeholder="Schema, entity, address, Call-ID &#8230;"/></div>
<div><label for="filter-kind">Show</label><select id="filter-kind">
<option value="">all messages</option>
<option value="document">with a document</option>
<option value="refused">refused or faulty</option>
<option value="lossy">with losses</option>
<option value="changing">with changes</option>
</select></div>
<output id="filter-count" for="filter-words filter-kind" aria-live="polite"></output>
</form>
)";

}  // namespace

// ---- Messages -----------------------------------------------------------------------------------

void ReportPage::Add(const ReportMessage& message, const std::vector<Examined>& documents) {
  if (m_iMessages % kBatch == 0) {
    m_Html += std::string(m_iMessages ? "</div>\n" : "") + "<div class=\"batch\">\n";
  }
  const std::string id = Number(++m_iMessages);
  const bool isBare = documents.empty();
  m_Html +=
      "<article class=\"message" + std::string(isBare ? " bare" : "") + "\" id=\"m" + id + '"';
  AddSearch(message, documents, message.items[0].name, m_Html);
  AddHead(message, isBare);
  AddNotes(message);
  for (const Examined& examined : documents) {
    Register(examined);
    AddDocument(examined, documents.size() > 1);
  }
  m_Html += "</article>\n";
}

void ReportPage::AddHead(const ReportMessage& message, bool isBare) {
  const Document& first = message.items[0];
  const std::string id = Number(m_iMessages);
  const bool hasStart = !first.message.startLine.empty();
  m_Html += "<div class=\"title\"><a href=\"#m" + id + "\" aria-label=\"Link to message " + id +
            "\">" + id + "</a>" +
            HtmlElement("h3", "start", hasStart ? Short(first.message.startLine) : first.name) +
            "</div><p class=\"meta\">";
  if (first.origin.IsKnown()) {
    const Time& time = first.origin.time;
    m_Html += "<time datetime=\"" + ToString(time, "%Y-%m-%dT%H:%M:%S") + "Z\">" +
              ToString(time, "%Y-%m-%d %H:%M:%S") + "</time>" +
              HtmlElement("span", "route", first.origin.from + " \xe2\x86\x92 " + first.origin.to);
  }
  if (hasStart) m_Html += HtmlElement("span", "file", first.name);
  if (!first.message.callId.empty() && !isBare) {
    m_Html += HtmlElement("span", "call", "Call-ID " + Short(first.message.callId));
  }
  m_Html += "</p>";
}

void ReportPage::AddNotes(const ReportMessage& message) {
  for (const Document& item : message.items) {
    if (item.IsDocument()) continue;
    m_iSkipped += item.kind == Document::Kind::kSkipped;
    ++m_Skipped[item.fault.what];
    m_Html += HtmlElement("p", "soft", item.fault.what);
  }
}

void ReportPage::Register(const Examined& examined) {
  const CheckResult& result = examined.result;
  Counts& counts = m_Schemas[result.schema.empty() ? "(not read)" : result.schema];
  const bool isFaulty = !result.isRefused && !result.faults.empty();
  ++m_iDocuments;
  ++counts.all;
  counts.ok += result.IsOk();
  counts.refused += result.isRefused;
  counts.faulty += isFaulty;
  counts.lossy += !result.losses.empty();
  m_iChanging += !examined.followed.differences.empty();
  for (const Failure& fault : result.faults) {
    AddMatter(result.isRefused ? "refused" : "faulty", "bad", WithoutPlace(fault));
  }
  for (const CheckResult::Lost& lost : result.losses) {
    AddMatter("lost", "warn", WithoutIndexes(lost.loss.path) + ": " + NameOf(lost.loss.kind));
  }
  if (examined.followed.isMissed) {
    AddMatter("state", "warn", result.schema + ": " + examined.followed.what);
  }
}

void ReportPage::AddMatter(const char* tag, const char* tone, const std::string& what) {
  const auto [found, isNew] = m_MatterAt.emplace(tag + what, m_Matters.size());
  if (isNew) m_Matters.push_back({tag, tone, what, 0, m_iMessages});
  ++m_Matters[found->second].times;
}

void ReportPage::AddDocument(const Examined& examined, bool isOneOfSeveral) {
  const CheckResult& result = examined.result;
  m_Html += "<section class=\"document\"><h4>";
  AppendHtml(m_Html, result.schema.empty() ? "Document" : result.schema);
  if (isOneOfSeveral) m_Html += ' ' + HtmlElement("span", "soft name", examined.document->name);
  if (result.isRefused) m_Html += Tag("bad", "refused");
  if (!result.isRefused && !result.faults.empty()) m_Html += Tag("bad", "faulty");
  if (!result.losses.empty()) {
    m_Html += Tag("warn", Count(result.losses.size(), "loss", "losses"));
  }
  if (result.IsOk()) m_Html += Tag("good", "ok");
  const Followed& followed = examined.followed;
  if (!followed.what.empty() && followed.what != "compared") {
    m_Html += Tag(followed.isMissed ? "warn" : "note", followed.what);
  }
  if (followed.what == "compared" && followed.differences.empty())
    m_Html += Tag("note", "unchanged");
  m_Html += "</h4>";
  if (!result.remark.empty()) m_Html += HtmlElement("p", "soft", result.remark);
  if (!examined.summary.empty()) {
    m_Html += "<dl class=\"facts\">";
    for (const auto& [name, value] : examined.summary) {
      m_Html += "<div>" + HtmlElement("dt", "name", Short(name)) + ' ' +
                HtmlElement("dd", "value", Short(value)) + "</div>";
    }
    m_Html += "</dl>";
  }
  AddFindings(examined);
  AddLosses(result.losses);
  AddDifferences(followed.differences);
  const std::string& text = examined.text;
  if (!text.empty()) {
    m_Html += "<details><summary>Document, " + Count(text.size(), "byte", "bytes") +
              "</summary><pre class=\"text\">";
    AppendHtmlLines(m_Html, text);
    m_Html += "</pre></details>";
  }
  m_Html += "</section>";
}

void ReportPage::AddFindings(const Examined& examined) {
  const std::vector<Failure>& faults = examined.result.faults;
  if (faults.empty()) return;
  m_Html += "<div class=\"findings bad\"><p>";
  m_Html += examined.result.isRefused ? "Refused" : "Read, but faulty";
  m_Html += "</p>";
  AddList(m_Html, "faults", faults.size(), [&](std::size_t i) {
    const Failure& fault = faults[i];
    m_Html += "<li>";
    if (fault.at.line) {
      m_Html += "<span class=\"soft\">line " + Number(fault.at.line) + ", column " +
                Number(fault.at.column) + ":</span> ";
    }
    AppendHtml(m_Html, std::string(fault.kind) + ": " + fault.what);
    m_Html += "</li>";
  });
  if (!examined.excerpt.empty()) {
    m_Html +=
        "<pre class=\"excerpt\" tabindex=\"0\" role=\"region\" aria-label=\"The line with the "
        "fault\">";
    AppendHtmlLines(m_Html, examined.excerpt);
    m_Html += "</pre>";
  }
  m_Html += "</div>";
}

void ReportPage::AddLosses(const std::vector<CheckResult::Lost>& losses) {
  if (losses.empty()) return;
  m_Html += "<div class=\"findings warn\"><p>Not kept by the library</p>";
  AddList(m_Html, "losses", losses.size(), [&](std::size_t i) {
    const CheckResult::Lost& lost = losses[i];
    m_Html += "<li>" + HtmlElement("code", "path", lost.loss.path) + ' ';
    AppendHtml(m_Html, NameOf(lost.loss.kind));
    m_Html += " <span class=\"soft\">line " + Number(lost.at.line) + "</span></li>";
  });
  m_Html += "</div>";
}

void ReportPage::AddDifferences(const std::vector<Difference>& differences) {
  if (differences.empty()) return;
  m_Html += "<div class=\"findings\"><p>What it changed</p>";
  AddList(m_Html, "changes", differences.size(),
          [&](std::size_t i) { AddDifference(differences[i]); });
  m_Html += "</div>";
}

void ReportPage::AddDifference(const Difference& difference) {
  const std::string kind = difference.kind;
  const bool isNew = kind == "added";
  const char* const sign = isNew ? "+ " : kind == "removed" ? "\xe2\x88\x92 " : "~ ";
  m_Html += "<li>" + HtmlElement("span", ("change " + kind).c_str(), sign + kind) +
            HtmlElement("code", "path", difference.path);
  const std::size_t shown = std::min(difference.values.size(), kShownValues);
  const bool hasList = shown || !difference.parts.empty();
  if (hasList) m_Html += "<ul class=\"values\">";
  for (std::size_t i = 0; i < shown; ++i) AddValue(difference.values[i], isNew, m_Html);
  const std::size_t more = difference.values.size() - shown;
  if (more) m_Html += "<li class=\"soft\">and " + Number(more) + " more</li>";
  for (const auto& [name, count] : difference.parts) {
    m_Html += "<li>" + HtmlElement("b", "name", name) + " \xc3\x97 " + Number(count) + "</li>";
  }
  if (hasList) m_Html += "</ul>";
  m_Html += "</li>";
}

// ---- Summary ------------------------------------------------------------------------------------

void ReportPage::AddFigures(const std::vector<ReportFile>& files, std::string& html) const {
  Counts all;
  for (const auto& [name, counts] : m_Schemas) {
    all.ok += counts.ok;
    all.refused += counts.refused;
    all.faulty += counts.faulty;
    all.lossy += counts.lossy;
  }
  std::size_t messages = 0;
  for (const ReportFile& file : files) messages += file.messages;
  html += "<dl class=\"figures\">";
  AddFigure(files.size(), "file", "files", "", html);
  AddFigure(messages, "message", "messages", "", html);
  AddFigure(m_iDocuments, "document", "documents", "", html);
  AddFigure(all.ok, "ok", "ok", "", html);
  AddFigure(all.refused, "refused", "refused", "bad", html);
  AddFigure(all.faulty, "faulty", "faulty", "bad", html);
  AddFigure(all.lossy, "with losses", "with losses", "warn", html);
  AddFigure(m_iChanging, "with changes", "with changes", "", html);
  AddFigure(m_iSkipped, "message without one", "messages without one", "", html);
  html += "</dl>\n";
}

void ReportPage::AddMatters(std::string& html) const {
  if (m_Matters.empty()) return;
  std::vector<const Matter*> sorted;
  for (const Matter& matter : m_Matters) sorted.push_back(&matter);
  std::stable_sort(sorted.begin(), sorted.end(), [](const Matter* one, const Matter* other) {
    const bool isBad = StartsWith(one->tone, "bad");
    const bool isOtherBad = StartsWith(other->tone, "bad");
    return isBad != isOtherBad ? isBad : one->times > other->times;
  });
  html += "<h2>What needs a look</h2>\n";
  AddList(html, "matters", std::min(sorted.size(), kShownMatters), [&](std::size_t i) {
    const Matter& matter = *sorted[i];
    const std::string first = Number(matter.first);
    html += "<li><span>" + Tag(matter.tone, matter.tag) + "</span>" +
            HtmlElement("span", "what", matter.what) + "<span class=\"times\">" +
            (matter.times == 1 ? "" : Number(matter.times) + " times, first ") + "in <a href=\"#m" +
            first + "\">message " + first + "</a></span></li>\n";
  });
  if (sorted.size() <= kShownMatters) return;
  html += "<p class=\"soft\">and " + Number(sorted.size() - kShownMatters) +
          " more, which stand with their documents</p>\n";
}

void ReportPage::AddSchemas(std::string& html) const {
  if (m_Schemas.empty()) return;
  html += R"(<section class="panel"><h2>Documents by schema</h2>
<table><thead><tr><th scope="col">Schema</th><th scope="col" class="number">All</th><th scope="col" class="number">OK</th><th scope="col" class="number">Refused</th><th scope="col" class="number">Faulty</th><th scope="col" class="number">Lossy</th></tr></thead><tbody>
)";
  for (const auto& [name, counts] : m_Schemas) {
    html += "<tr><th scope=\"row\">";
    AppendHtml(html, name);
    html += "</th>";
    for (const std::size_t count :
         {counts.all, counts.ok, counts.refused, counts.faulty, counts.lossy}) {
      AddCell(count, html);
    }
    html += "</tr>\n";
  }
  html += "</tbody></table></section>\n";
}

void ReportPage::AddSkipped(std::string& html) const {
  if (m_Skipped.empty()) return;
  html += R"(<section class="panel"><h2>Skipped</h2>
<table><thead><tr><th scope="col">Why</th><th scope="col" class="number">Times</th></tr></thead><tbody>
)";
  std::vector<std::pair<std::size_t, const std::string*>> sorted;
  for (const auto& [why, times] : m_Skipped) sorted.emplace_back(times, &why);
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const auto& one, const auto& other) { return one.first > other.first; });
  for (std::size_t i = 0; i < std::min(sorted.size(), kShownMatters); ++i) {
    html += "<tr><td>";
    AppendHtml(html, *sorted[i].second);
    html += "</td>";
    AddCell(sorted[i].first, html);
    html += "</tr>\n";
  }
  html += "</tbody></table>";
  if (sorted.size() > kShownMatters) {
    html += "<p class=\"soft\">and " + Number(sorted.size() - kShownMatters) + " other reasons</p>";
  }
  html += "</section>\n";
}

void ReportPage::AddFiles(const std::vector<ReportFile>& files, std::string& html) {
  std::vector<const ReportFile*> shown;
  std::vector<const ReportFile*> others;  // of many, without anything to be said of them
  for (const ReportFile& file : files) {
    const bool isShown = !file.notes.empty() || shown.size() < kShownFirst;
    (isShown ? shown : others).push_back(&file);
  }
  html += "<section class=\"panel\"><h2>Files</h2>\n";
  AddFileTable(shown, html);
  if (!others.empty()) {
    html += "<details><summary>" + Number(others.size()) + " more</summary>";
    AddFileTable(others, html);
    html += "</details>";
  }
  html += "</section>\n";
}

void ReportPage::Write(const std::vector<ReportFile>& files, const std::string& order,
                       std::ostream& to) const {
  std::string title = files.size() == 1 ? files[0].name : Count(files.size(), "file", "files");
  std::string html =
      "<!DOCTYPE html>\n<html lang=\"en\" xmlns=\"http://www.w3.org/1999/xhtml\">\n"
      "<head>\n<meta charset=\"utf-8\"/>\n"
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
      "style-src 'sha256-";
  html += std::string(kPageStyleHash) + "'; script-src 'sha256-" + kPageScriptHash +
          "'; base-uri 'none'; form-action 'none'\"/>\n"
          "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
          "<title>Report of ";
  AppendHtmlAttribute(html, title);
  html += std::string("</title>\n<style>") + kPageStyle +
          "</style>\n</head>\n<body>\n<header><h1>Report of ";
  AppendHtml(html, title);
  html +=
      "</h1><p><a href=\"#messages\">To the "
      "messages</a></p></header>\n<main>\n<section><h2>Summary</h2>\n";
  AddFigures(files, html);
  html += "</section>\n<section>";
  AddMatters(html);
  html += "</section>\n<div class=\"tables\">\n";
  AddSchemas(html);
  AddFiles(files, html);
  AddSkipped(html);
  html +=
      "</div>\n<section><h2 id=\"messages\">Messages</h2>\n<p class=\"soft\">" + order + "</p>\n";
  to << html << kFilter << m_Html << (m_iMessages ? "</div>\n" : "")
     << "<p class=\"none\" id=\"filter-none\" hidden=\"hidden\">No message fits the filter."
     << "</p>\n</section>\n<footer>ztxml " ZTXML_VERSION "</footer>\n</main>\n<script>"
     << kPageScript << "</script>\n</body>\n</html>\n";
}
