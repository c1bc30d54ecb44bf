// What must hold of the standard profile for any document, any tree and any change of it.
#ifndef ZTXML_TESTS_API_STANDARDCHECKS_H
#define ZTXML_TESTS_API_STANDARDCHECKS_H

#include <optional>

#include "ExpatTree.h"
#include "Require.h"
#include "TreeScript.h"
#include "reflect/Reflect.h"
#include "ztxml/document.h"

/// A document of any kind, as ztxml::Document is of one that is known.
class AnyDocument {
 public:
  explicit AnyDocument(const ZtDocument& table, const ztxml::Options& options = {})
      : m_Table(table), m_Tree(table, options.NotingLosses()) {}

  bool Read(const std::string& text) {
    const bool read = m_Tree.Read(text, nullptr, error = ztxml::Error());
    for (const ztxml::Loss& loss : m_Tree.Lost()) {
      Require(loss.path[0] == '/' && loss.line && loss.column, "a loss has its place", loss.path);
    }
    return Done(read);
  }
  bool Make(const ZtElementType& type) { return Done(m_Tree.Make(type, error = ztxml::Error())); }
  /// "(null)" in `text` when it is not done.
  bool Write(std::string& text) {
    text = "(null)";
    return Done(m_Tree.Write(text, error = ztxml::Error()));
  }
  bool Update(std::string& text) {
    text = "(null)";
    return Done(m_Tree.Update(text, error = ztxml::Error()));
  }
  standard::Node Root() const { return standard::RootOf(m_Table, *m_Tree.Root()); }
  std::string Told() const { return standard::Told(m_Table, *m_Tree.Root()); }

  ztxml::Error error;

 private:
  bool Done(bool done) const {
    Require(done == (error.code == ztxml::Code::kNone), "only a refusal has a reason",
            error.Text());
    return done;
  }

  const ZtDocument& m_Table;
  ztxml::detail::Tree m_Tree;
};

/// The table of a schema that documents are read and written with; else null.
inline const ZtDocument* TableOf(eXMLSchemaID id) {
  reflect::Schema schema;
  const bool found = reflect::FindSchema(id, schema) && schema.document->roots.size();
  return found ? schema.document : nullptr;
}

/// Requires that Expat reads `text` as `told`, and that the library does.
inline void RequireReadAs(const ZtDocument& table, const std::string& text, const std::string& told,
                          const std::string& from) {
  const ExpatTree expats(table, text);
  AnyDocument again(table);
  const std::string now = again.Read(text) ? again.Told() : "(null)";
  Require(expats.isXml, "what is written is XML", from + "\n---\n" + text);
  Require(now == told && expats.told == told, "what is written is read as the tree that it was",
          from + "\n--- written\n" + text + "\n--- tree\n" + told + "--- read\n" + now +
              "--- by Expat\n" + expats.told);
}

// ---- Documents that are read --------------------------------------------------------------------

/// Requires that `text` is read exactly when Expat reads it and it has a root of the schema, and as
/// Expat tells it.
inline void CheckRead(eXMLSchemaID id, const std::string& text) {
  const ZtDocument* const table = TableOf(id);
  if (!table) return;
  const ExpatTree expats(*table, text);
  const bool expatReads = expats.isXml && !expats.told.empty();
  AnyDocument document(*table);
  if (document.Read(text)) {
    Require(expatReads, "only what Expat reads is read", text);
    const std::string told = document.Told();
    Require(told == expats.told, "a document is read as Expat tells it",
            text + "\n--- read\n" + told + "--- by Expat\n" + expats.told);
    return;
  }
  // Documents with a type of their own are refused by design, and Expat is lenient with halves of
  // characters in UTF-16 and with three letters in names.
  const bool mayBeRefused = text.find('\0') != std::string::npos ||
                            text.find_first_of("\xAA\xB5\xBA") != std::string::npos ||
                            text.find("<!DOCTYPE") != std::string::npos;
  Require(!expatReads || mayBeRefused, "what Expat reads is read", text);
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
  const ZtDocument* const table = TableOf(id);
  if (!table) return;
  const ZtRoot& root = table->roots.begin()[choices.Below(table->roots.size())];
  AnyDocument document(*table);
  document.Make(*root.type);
  standard::Maker(choices).Fill(document.Root(), 0);
  // The root of one document has a name that XML does not have.
  const bool sound = ZtIsQualifiedName(root.name.Piece()) && standard::IsSound(document.Root());
  const std::string told = document.Told();
  std::string text;
  const bool written = document.Write(text);
  Require(written || !sound, "a sound tree is written", document.error.Text() + ('\n' + told));
  if (written) RequireReadAs(*table, text, told, told);
  RequireWholeOrNothing(failing, text, [&](std::string& again) { return document.Write(again); });
  Require(document.Told() == told, "writing changes nothing");
}

// ---- Documents that are updated -----------------------------------------------------------------

/// Puts comments, instructions and unknown elements between the tokens of a document's content. The
/// strict reader takes nothing but UTF-8 that is known to be right.
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

/// What must stand in a document after a row of one of its objects has changed: all that is outside
/// of the object's element; in it the children that stay, and what the types do not know.
class Unchanged {
 public:
  Unchanged(const std::string& text, const standard::Node& root, const standard::Node& node,
            const ZtField* row)
      : m_Text(text), m_Node(node), m_Source(*ZtOwnership::SourceOf(*root.object)) {
    const std::uint32_t part = PartOf(node.object);
    const bool isFlag = node.type->extras->flag;
    m_Element = m_Source.parts[isFlag ? m_Source.parts[part].parent : part];
    if (isFlag) return;
    for (XMLElement* child : ChildrenOf(node)) m_Children.insert(child);
    // With a text, what stands in it may go.
    const bool isText = !row || standard::HoldsTexts(*row) ||
                        (standard::IsScalar(*row) && row->place != ZtPlace::kAttribute);
    if (!isText) FindMarks();
  }

  void RequireIn(const std::string& now) const {
    const std::string before = m_Text.substr(0, m_Element.from);
    const std::string after = m_Text.substr(m_Element.to);
    const bool outside = now.size() >= before.size() + after.size() &&
                         now.compare(0, before.size(), before) == 0 &&
                         now.compare(now.size() - after.size(), after.size(), after) == 0;
    Require(outside, "what is outside of the change stays", m_Text + "\n--- now\n" + now);
    std::vector<std::string> kept = m_Marks;
    for (XMLElement* child : m_Children.empty() ? std::vector<XMLElement*>() : ChildrenOf(m_Node)) {
      const std::uint32_t part = m_Children.count(child) ? PartOf(child) : ZtSourceText::kNone;
      if (part != ZtSourceText::kNone) kept.push_back(BytesOf(m_Source.parts[part]));
    }
    for (const std::string& bytes : kept) {
      Require(now.find(bytes) != std::string::npos, "what was not changed stays as it was",
              bytes + "\n--- was\n" + m_Text + "\n--- now\n" + now);
    }
  }

 private:
  using Part = ZtSourceText::Part;

  std::string BytesOf(const Part& part) const {
    return m_Text.substr(part.from, part.to - part.from);
  }
  std::uint32_t PartOf(const XMLElement* object) const {
    for (std::uint32_t i = 0; i < m_Source.parts.Size(); ++i) {
      const Part& part = m_Source.parts[i];
      const bool isPair = part.row && part.row->place == ZtPlace::kOtherAttributes;
      if (!isPair && part.object == object) return i;
    }
    return ZtSourceText::kNone;
  }
  static std::vector<XMLElement*> ChildrenOf(const standard::Node& node) {
    std::vector<XMLElement*> children;
    for (const ZtField& row : *node.type) {
      for (XMLElement* child : standard::ItemsOf(node, row)) {
        if (!standard::HoldsTexts(row)) children.push_back(child);
      }
    }
    return children;
  }
  // The marks in the element that are not in one of its children.
  void FindMarks() {
    std::string inside = BytesOf(m_Element);
    for (const XMLElement* child : m_Children) {
      const std::uint32_t part = PartOf(child);
      if (part == ZtSourceText::kNone) continue;
      const Part& range = m_Source.parts[part];
      inside.replace(range.from - m_Element.from, range.to - range.from, range.to - range.from,
                     ' ');
    }
    for (const std::string begin : {"<!--mark", "<?mark", "<mark"}) {
      for (std::size_t at = inside.find(begin); at != std::string::npos;
           at = inside.find(begin, at + 1)) {
        m_Marks.push_back(inside.substr(at, inside.find('>', at) - at));
      }
    }
  }

  const std::string& m_Text;
  const standard::Node m_Node;
  const ZtSourceText& m_Source;
  Part m_Element = {};
  std::set<XMLElement*> m_Children;
  std::vector<std::string> m_Marks;
};

/// Whether `plain` was read.
inline bool CheckUpdate(eXMLSchemaID id, const std::string& plain, Choices& choices,
                        unsigned failing) {
  const ZtDocument* const table = TableOf(id);
  if (!table) return false;
  AnyDocument exact(*table, ztxml::Exact());
  AnyDocument standard(*table);
  AnyDocument document(*table);
  std::string text;
  if (!standard.Read(plain)) return false;
  const ZtTextForm& form = ZtOwnership::SourceOf(*standard.Root().object)->form;
  const bool isUtf8 = form.encoding == ZtEncoding::kUtf8;
  const std::string marked = isUtf8 ? Marked(plain, choices) : plain;
  Require(standard.Update(text) && text == plain, "unchanged, a document stays",
          plain + "\n---\n" + text);
  const bool fromExact = choices.OneIn(3) && exact.Read(plain);
  Require(document.Read(marked), "a document with unknown things in it is read", marked);
  Require(document.Update(text) && text == marked, "unchanged, a document stays",
          marked + "\n---\n" + text);
  const bool isPlain = isUtf8 && !form.mark.size;
  standard::Changer changer(choices, document.Root(), (fromExact ? exact : standard).Root());
  for (int round = 0; round < 2; ++round) {
    // First there is one change, of which it is known what it leaves alone, then there are more.
    std::optional<Unchanged> unchanged;
    changer.Choose();
    if (round == 0 && isPlain) {
      unchanged.emplace(marked, document.Root(), changer.Chosen(), changer.Row());
    }
    if (!changer.Change()) unchanged.reset();
    for (unsigned i = round ? choices.Below(6) : 0; i; --i) {
      changer.Choose();
      changer.Change();
    }
    const bool sound = standard::IsSound(document.Root());
    const std::string told = document.Told();
    const bool written = document.Update(text);
    Require(written || !sound, "a sound tree is written",
            document.error.Text() + ('\n' + marked + "\n---\n" + told));
    if (written) {
      RequireReadAs(*table, text, told, marked);
      if (unchanged) unchanged->RequireIn(text);
    }
    RequireWholeOrNothing(failing, text,
                          [&](std::string& again) { return document.Update(again); });
    Require(document.Told() == told, "updating changes nothing in the tree");
  }
  return true;
}

#endif  // ZTXML_TESTS_API_STANDARDCHECKS_H
