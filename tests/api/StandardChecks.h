// What must hold of the standard profile for any document, any tree and any change of it.
#ifndef ZTXML_TESTS_API_STANDARDCHECKS_H
#define ZTXML_TESTS_API_STANDARDCHECKS_H

#include "ExpatTree.h"
#include "Require.h"
#include "TreeScript.h"
#include "reflect/Reflect.h"

/// The workers of a schema in the standard profile.
class StandardWorkers {
 public:
  explicit StandardWorkers(eXMLSchemaID id, eXMLProfile profile = XML_PROFILE_STANDARD)
      : m_pContext(XMLFactory::newInstance(id)) {
    if (!m_pContext) return;
    m_pContext->UseProfile(profile);
    m_pContext->KeepSource(true);
    m_pContext->TellLosses(
        [](const ZtLoss& loss, void* /*context*/) {
          Require(loss.path[0] == '/' && loss.line && loss.column, "a loss has its place",
                  loss.path);
        },
        nullptr);
    m_pReader = m_pContext->createUnMarshaller();
    m_pWriter = m_pContext->createMarshaller();
    reflect::Schema schema;
    if (reflect::FindSchema(id, schema)) m_pDocument = schema.document;
  }
  ~StandardWorkers() { XMLFactory::deleteContext(m_pContext); }
  StandardWorkers(const StandardWorkers&) = delete;
  StandardWorkers& operator=(const StandardWorkers&) = delete;

  bool Works() const { return m_pReader && m_pWriter && m_pDocument && m_pDocument->roots.size(); }
  const ZtDocument& Document() const { return *m_pDocument; }
  XMLElement* Read(const std::string& text) {
    return m_pReader->UnMarshall(text.data(), text.size());
  }
  /// As callers of the exact profile read.
  XMLElement* UnMarshall(const std::string& text) { return m_pReader->UnMarshall(text.c_str()); }
  bool Write(XMLElement& root, std::string& text) {
    const char* written = m_pWriter->Marshall(&root);
    text = written ? written : "(null)";
    return written != nullptr;
  }
  bool Update(XMLElement& root, std::string& text) {
    std::size_t size = 0;
    const char* written = m_pWriter->Update(&root, &size);
    text = written ? std::string(written, size) : "(null)";
    return written != nullptr;
  }
  standard::Node Root(XMLElement& root) const { return standard::RootOf(*m_pDocument, root); }
  std::string Told(XMLElement& root) const { return standard::Told(*m_pDocument, root); }

 private:
  XMLContext* m_pContext;
  XMLUnMarshaller* m_pReader = nullptr;
  XMLMarshaller* m_pWriter = nullptr;
  const ZtDocument* m_pDocument = nullptr;
};

/// A tree that is freed in the end.
class OwnTree {
 public:
  explicit OwnTree(XMLElement* root) : m_pRoot(root) {}
  ~OwnTree() { XMLFactory::DeleteElement(m_pRoot); }
  OwnTree(const OwnTree&) = delete;
  OwnTree& operator=(const OwnTree&) = delete;
  explicit operator bool() const { return m_pRoot != nullptr; }
  XMLElement& operator*() const { return *m_pRoot; }

 private:
  XMLElement* m_pRoot;
};

/// Counts the lines that tell of errors while it lives.
class ErrorLines {
 public:
  ErrorLines() { zthost::SetLogSink(&Count, this, 4); }
  ~ErrorLines() { zthost::SetLogSink(nullptr); }
  ErrorLines(const ErrorLines&) = delete;
  ErrorLines& operator=(const ErrorLines&) = delete;
  int Number() const { return m_iLines; }
  const std::string& Last() const { return m_Last; }

 private:
  static void Count(const zthost::LogLine& line, void* self) {
    ++static_cast<ErrorLines*>(self)->m_iLines;
    static_cast<ErrorLines*>(self)->m_Last = line.text;
  }
  int m_iLines = 0;
  std::string m_Last;
};

/// Requires that Expat reads `text` as `told`, and that the library does.
inline void RequireReadAs(StandardWorkers& workers, const std::string& text,
                          const std::string& told, const std::string& from) {
  const ExpatTree expats(workers.Document(), text);
  const OwnTree again(workers.Read(text));
  const std::string now = again ? workers.Told(*again) : "(null)";
  Require(expats.isXml, "what is written is XML", from + "\n---\n" + text);
  if (now != told || expats.told != told) {
    Require(false, "what is written is read as the tree that it was",
            from + "\n--- written\n" + text + "\n--- tree\n" + told + "--- read\n" + now +
                "--- by Expat\n" + expats.told);
  }
}

// ---- Documents that are read --------------------------------------------------------------------

/// Requires that `document` is read exactly when Expat reads it and it has a root of the schema,
/// and as Expat tells it.
inline void CheckRead(eXMLSchemaID id, const std::string& document) {
  StandardWorkers workers(id);
  if (!workers.Works()) return;
  const ExpatTree expats(workers.Document(), document);
  ErrorLines lines;
  const OwnTree tree(workers.Read(document));
  if (tree) {
    Require(expats.isXml && !expats.told.empty(), "only what Expat reads is read", document);
    const std::string told = workers.Told(*tree);
    Require(told == expats.told, "a document is read as Expat tells it",
            document + "\n--- read\n" + told + "--- by Expat\n" + expats.told);
    return;
  }
  Require(lines.Number() > 0, "a refusal has a line", document);
  if (!expats.isXml || expats.told.empty()) return;
  // Documents with a type of their own are refused by design, and Expat is lenient with halves of
  // characters in UTF-16 and with three letters in names.
  const bool mayBeRefused = document.find('\0') != std::string::npos ||
                            document.find_first_of("\xAA\xB5\xBA") != std::string::npos ||
                            document.find("<!DOCTYPE") != std::string::npos;
  Require(mayBeRefused, "what Expat reads is read", document);
}

/// Has allocation `failing` fail, alone or with all after it: `write` writes the whole or nothing.
template <class Write>
void RequireWholeOrNothing(unsigned failing, const std::string& whole, const Write& write) {
  if (!failing) return;
  zthost::FailAllocation(failing / 2 + 1, failing % 2 != 0);
  std::string text;
  const bool done = write(text);
  const bool failed = zthost::AllocationCount() > static_cast<long>(failing / 2);
  zthost::FailAllocation(0);
  if (done || !failed) Require(text == whole, "without memory whole or nothing", text);
}

// ---- Trees that callers build -------------------------------------------------------------------

inline void CheckBuilt(eXMLSchemaID id, Choices& choices, unsigned failing) {
  StandardWorkers workers(id);
  if (!workers.Works()) return;
  const auto& roots = workers.Document().roots;
  const ZtRoot& root = roots.begin()[choices.Below(roots.size())];
  const OwnTree tree(root.type->Create({standard::kSource, nullptr}));
  standard::Maker(choices).Fill(workers.Root(*tree), 0);
  // The root of one document has a name that XML does not have.
  const bool sound = ZtIsQualifiedName(root.name.Piece()) && standard::IsSound(workers.Root(*tree));
  const std::string told = workers.Told(*tree);
  ErrorLines lines;
  std::string text;
  const bool written = workers.Write(*tree, text);
  Require(written || lines.Number(), "a refusal has a line", told);
  Require(written || !sound, "a sound tree is written", lines.Last() + "\n" + told);
  if (written) RequireReadAs(workers, text, told, told);
  RequireWholeOrNothing(failing, text,
                        [&](std::string& again) { return workers.Write(*tree, again); });
  Require(workers.Told(*tree) == told, "writing changes nothing");
}

// ---- Documents that are updated -----------------------------------------------------------------

/// Puts comments, instructions and unknown elements between the tokens of a document's content.
inline std::string Marked(const std::string& document, Choices& choices) {
  std::string work = document;
  ZtXmlReader reader(kZtSpaceUris, kZtKnownSpaces);
  reader.Begin(work.data(), work.size());
  std::string marked;
  std::size_t copied = 0;
  int mark = 0;
  for (ZtToken token = reader.Next(); token != ZtToken::kDone; token = reader.Next()) {
    if (token == ZtToken::kFailed) return document;
    const bool inside = token == ZtToken::kEnd ? reader.Depth() > 1 : true;
    const bool empty = token == ZtToken::kStart && reader.IsEmpty();
    const std::size_t to = reader.To();
    if (to < copied || !inside || empty || !choices.OneIn(6)) continue;
    marked += document.substr(copied, to - copied);
    copied = to;
    const std::string number = std::to_string(++mark);
    switch (choices.Below(3)) {
      case 0:
        marked += "<!--mark" + number + "-->";
        break;
      case 1:
        marked += "<?mark" + number + " a?>";
        break;
      default:
        marked += "<mark" + number + " xmlns=\"urn:mark\">a<list/></mark" + number + ">";
    }
  }
  return marked + document.substr(copied);
}

/// What a document was before its tree was changed, and what of it must be there afterwards.
class Kept {
 public:
  Kept(const StandardWorkers& workers, XMLElement& root) : m_Source(*ZtOwnership::SourceOf(root)) {
    m_Text = standard::Copied(m_Source.Text());
    for (std::uint32_t i = 0; i < m_Source.parts.Size(); ++i) {
      const ZtSourceText::Part& part = m_Source.parts[i];
      if (part.row && part.row->place == ZtPlace::kOtherAttributes) continue;
      m_Parts[part.object] = i;
    }
    standard::ForEach(workers.Root(root),
                      [&](const standard::Node& node) { m_Before[node.object] = StateOf(node); });
    // The strings, too.
    standard::ForEach(workers.Root(root), [&](const standard::Node& node) {
      for (const ZtField& row : *node.type) {
        if (row.place != ZtPlace::kTextElements) continue;
        for (XMLElement* item : standard::ItemsOf(node, row)) {
          m_Texts[item] = TextOf(item);
        }
      }
    });
    FindMarks();
  }

  /// Requires what was not changed to stand in `text`, in UTF-8, as it stood.
  void RequireIn(const StandardWorkers& workers, XMLElement& root, const std::string& text) {
    m_pNow = &text;
    m_Kept.clear();
    m_Touched.clear();
    Visit(workers.Root(root), ZtSourceText::kNone, nullptr);
    for (const Mark& mark : m_Marks) {
      if (!m_Kept.count(mark.part)) continue;
      if (mark.inLeaf && m_Touched.count(mark.part)) continue;
      const std::size_t at = text.find(mark.text);
      Require(at != std::string::npos && text.find(mark.text, at + 1) == std::string::npos,
              "what the types do not know stays", mark.text + "\n" + m_Text + "\n--- now\n" + text);
    }
  }

 private:
  struct State {
    std::vector<std::string> values;
    std::vector<const void*> children;
    bool operator==(const State& other) const {
      return values == other.values && children == other.children;
    }
  };
  struct Mark {
    std::string text;
    std::uint32_t part;
    bool inLeaf;
  };

  static std::string TextOf(XMLElement* item) {
    const zt_string* text = zt_string::From(item);
    return text && text->getValue() ? std::string("=") + text->getValue() : "";
  }
  static State StateOf(const standard::Node& node) {
    State state = {standard::ValuesOf(node), {}};
    if (node.type->extras->flag) {
      const char* name = static_cast<zt_empty_element_type*>(node.object)->getValue();
      state.values.push_back(name ? name : "");
    }
    // As they are held: what is read trimmed may be written otherwise.
    for (const ZtField& row : *node.type) {
      if (!standard::IsScalar(row)) continue;
      state.values.push_back(standard::Copied(ZtHeld(*node.object, row).text));
    }
    if (node.type->rows.keepsAttributes) {
      for (auto* pair : standard::PairsOf(node, ZtOthersOf(*node.type))) {
        state.values.push_back(pair->getName() ? pair->getName() : "");
      }
    }
    for (const ZtField& row : *node.type) {
      if (row.place == ZtPlace::kOwnWords) continue;
      for (XMLElement* item : standard::ItemsOf(node, row)) {
        if (standard::HoldsTexts(row) || ZtStandardWriter::IsThere(*item)) {
          state.children.push_back(item);
        }
      }
    }
    return state;
  }

  void FindMarks() {
    struct Range {
      std::size_t from, to;
    };
    std::vector<Range> elements;
    std::vector<std::size_t> open;
    std::string work = m_Text;
    ZtXmlReader reader(kZtSpaceUris, kZtKnownSpaces);
    reader.Begin(work.data(), work.size());
    for (ZtToken token = reader.Next(); token != ZtToken::kDone; token = reader.Next()) {
      if (token == ZtToken::kFailed) return;
      if (token == ZtToken::kStart) {
        open.push_back(elements.size());
        elements.push_back({reader.From(), 0});
      } else if (token == ZtToken::kEnd) {
        elements[open.back()].to = reader.To();
        open.pop_back();
      }
    }
    for (const std::string begin : {"<!--mark", "<?mark", "<mark"}) {
      for (std::size_t at = m_Text.find(begin); at != std::string::npos;
           at = m_Text.find(begin, at + 1)) {
        std::size_t innermost = 0;
        for (const Range& element : elements) {
          if (element.from < at && at < element.to) innermost = element.from;
        }
        std::uint32_t part = 0;
        for (std::uint32_t i = 0; i < m_Source.parts.Size(); ++i) {
          const ZtSourceText::Part& p = m_Source.parts[i];
          const bool isPair = p.row && p.row->place == ZtPlace::kOtherAttributes;
          if (!isPair && p.from < at && at < p.to && p.from >= m_Source.parts[part].from) part = i;
        }
        const std::string mark = m_Text.substr(at, m_Text.find('>', at) - at);
        // A document may have had the text of a mark before.
        if (m_Text.find(mark) != at || m_Text.find(mark, at + 1) != std::string::npos) continue;
        m_Marks.push_back({mark, part, m_Source.parts[part].from != innermost});
      }
    }
  }

  // Whether nothing in the element was changed; the largest such elements must be in the text.
  bool Visit(const standard::Node& node, std::uint32_t parent, const ZtField* row) {
    const auto found = m_Parts.find(node.object);
    const std::uint32_t part = found == m_Parts.end() ? ZtSourceText::kNone : found->second;
    const ZtSourceText::Part* source =
        part == ZtSourceText::kNone ? nullptr : &m_Source.parts[part];
    if (!source || source->parent != parent || source->row != row) return false;
    const State& before = m_Before[node.object];
    const State now = StateOf(node);
    if (node.type->extras->flag && !(before == now)) return false;
    m_Kept.insert(part);
    bool same = before == now;
    if (!same) m_Touched.insert(part);
    std::vector<std::uint32_t> whole;
    for (const ZtField& childRow : *node.type) {
      if (childRow.place == ZtPlace::kOwnWords) continue;
      for (XMLElement* item : standard::ItemsOf(node, childRow)) {
        if (standard::HoldsTexts(childRow)) {
          const auto at = m_Parts.find(item);
          if (at == m_Parts.end()) continue;
          const ZtSourceText::Part& text = m_Source.parts[at->second];
          const bool stays = text.parent == part && text.row == &childRow;
          if (!stays) continue;
          if (!TextOf(item).empty()) m_Kept.insert(at->second);
          const bool alike = m_Texts[item] == TextOf(item);
          same = same && alike;
          if (alike) {
            whole.push_back(at->second);
          } else {
            m_Touched.insert(at->second);
          }
          continue;
        }
        if (!ZtStandardWriter::IsThere(*item)) continue;
        const standard::Node child = standard::NodeOf(node, childRow, item);
        if (!child.type) continue;
        if (Visit(child, part, &childRow)) {
          whole.push_back(m_Parts[item]);
        } else {
          same = false;
        }
      }
    }
    if (same && row) return true;
    if (same) whole = {part};
    for (const std::uint32_t element : whole) {
      const ZtSourceText::Part& p = m_Source.parts[element];
      const std::string bytes = m_Text.substr(p.from, p.to - p.from);
      if (m_pNow->find(bytes) == std::string::npos) {
        Require(false, "what was not changed stays as it was",
                bytes + "\n--- was\n" + m_Text + "\n--- now\n" + *m_pNow);
      }
    }
    return same;
  }

  const ZtSourceText& m_Source;
  std::string m_Text;
  std::map<const void*, std::uint32_t> m_Parts;
  std::map<const void*, State> m_Before;
  std::map<const void*, std::string> m_Texts;
  std::vector<Mark> m_Marks;
  const std::string* m_pNow = nullptr;
  std::set<std::uint32_t> m_Kept;
  std::set<std::uint32_t> m_Touched;
};

/// Whether `document` was read.
inline bool CheckUpdate(eXMLSchemaID id, const std::string& plain, Choices& choices,
                        unsigned failing) {
  StandardWorkers workers(id);
  if (!workers.Works()) return false;
  {
    const OwnTree first(workers.Read(plain));
    if (!first) return false;
    std::string same;
    Require(workers.Update(*first, same) && same == plain, "unchanged, a document stays",
            plain + "\n---\n" + same);
  }
  const std::string document = Marked(plain, choices);
  StandardWorkers exact(id, XML_PROFILE_EXACT);
  XMLElement* const exacts = choices.OneIn(3) ? exact.UnMarshall(plain) : nullptr;
  const OwnTree other(exacts ? exacts : workers.Read(plain));
  const OwnTree tree(workers.Read(document));
  Require(static_cast<bool>(tree), "a document with unknown things in it is read", document);
  std::string text;
  Require(workers.Update(*tree, text) && text == document, "unchanged, a document stays",
          document + "\n---\n" + text);
  const ZtEncoding encoding = ZtOwnership::SourceOf(*tree)->form.encoding;
  for (int rounds = 0; rounds < 2; ++rounds) {
    Kept kept(workers, *tree);
    standard::Changer changer(choices, workers.Root(*tree), workers.Root(*other));
    for (unsigned i = 1 + choices.Below(6); i; --i) changer.Change();
    const bool sound = standard::IsSound(workers.Root(*tree));
    const std::string told = workers.Told(*tree);
    ErrorLines lines;
    const bool written = workers.Update(*tree, text);
    Require(written || lines.Number(), "a refusal has a line", told);
    Require(written || !sound, "a sound tree is written",
            lines.Last() + "\n" + document + "\n---\n" + told);
    if (written) {
      RequireReadAs(workers, text, told, document);
      if (encoding == ZtEncoding::kUtf8 && rounds == 0) kept.RequireIn(workers, *tree, text);
    }
    RequireWholeOrNothing(failing, text,
                          [&](std::string& again) { return workers.Update(*tree, again); });
    Require(workers.Told(*tree) == told, "updating changes nothing in the tree");
  }
  return true;
}

#endif  // ZTXML_TESTS_API_STANDARDCHECKS_H
