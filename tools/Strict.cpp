#include "Strict.h"

#include <algorithm>
#include <set>
#include <string>
#include <unordered_map>

#include "Text.h"
#include "binding/ZtPath.h"
#include "binding/ZtSourceText.h"
#include "binding/ZtStandard.h"
#include "model/ZtOwnership.h"

namespace {

class Finder : public reflect::Visitor {
 public:
  Finder(const Document& document, const ZtSourceText& source,
         const std::vector<ztxml::Loss>& losses, std::vector<Failure>& faults)
      : m_Document(document),
        m_Places({document.text.data(), document.text.size()}, source.form),
        m_Faults(faults) {
    for (const ZtSourceText::Part& part : source.parts) m_Starts.emplace(part.object, part.from);
    for (const ztxml::Loss& loss : losses) {
      if (loss.kind == ZT_LOST_VALUE) m_Lost.insert(loss.path);
    }
  }

  bool Enter(const XMLElement& object, const char* name, const reflect::Field* in) override {
    const bool isRepeated = in && in->row && !ZtIsSingle(*in->row);
    const std::size_t index = isRepeated ? ++m_Open.back().counts[name] : 0;
    const auto start = m_Starts.find(&object);
    const std::size_t from = start == m_Starts.end() ? 0 : start->second;
    m_Open.push_back({m_Path.Push("/", name, index), from, {}});
    return true;
  }
  void Begin(const reflect::Field& /*field*/) override {}
  void End(const reflect::Field& /*field*/) override {}
  void Lacks(const reflect::Field& field) override {
    if (!field.row || !ZtIsRequired(*field.row)) return;
    const bool isOwn = field.row->IsOwnText();
    const bool isAttribute = reflect::IsAttribute(field);
    const char* const sign = isOwn ? "/(text)" : isAttribute ? "/@" : "/";
    const char* const name = isOwn || !field.name ? "" : field.name;
    // Of a text of its own it is the element that has the wrong value.
    const std::string element = m_Path.Text();
    const std::size_t size = m_Path.Push(sign, name);
    if (!m_Lost.count(isOwn ? element : m_Path.Text())) {
      const ZtTextPlace place = m_Places.Find(m_Open.back().from);
      m_Faults.push_back({"required", Escape(m_Path.Text()) + " is missing",
                          m_Document.At(place.line, place.column)});
    }
    m_Path.Pop(size);
  }
  void Leave(const XMLElement& /*object*/) override {
    m_Path.Pop(m_Open.back().path);
    m_Open.pop_back();
  }

 private:
  struct Element {
    std::size_t path;  // its size without this element
    std::size_t from;
    std::unordered_map<std::string, std::size_t> counts;  // of its children by their names
  };

  const Document& m_Document;
  ZtPlaceFinder m_Places;
  std::vector<Failure>& m_Faults;
  std::unordered_map<const void*, std::size_t> m_Starts;
  std::set<std::string> m_Lost;
  std::vector<Element> m_Open;
  ZtPath m_Path;
};

}  // namespace

void FindMissing(const Document& document, const Tree& tree, const std::vector<ztxml::Loss>& losses,
                 std::vector<Failure>& faults) {
  const ZtSourceText* source = ZtOwnership::SourceOf(*tree.root);
  if (!source) return;
  Finder finder(document, *source, losses, faults);
  const reflect::Node root = tree.Root();
  reflect::Walk(root, reflect::ElementNameOf(*root.object), finder, SIZE_MAX);
}
