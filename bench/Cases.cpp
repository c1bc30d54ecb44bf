#include "Cases.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "Documents.h"
#include "NullSchema.h"
#include "Peers.h"
#include "PugiMapping.h"
#include "ztxml/conference_info.h"
#include "ztxml/imdn.h"
#include "ztxml/presence.h"
#include "ztxml/reginfo.h"
#include "ztxml/resource_lists.h"
#include "ztxml/simservs.h"
#include "ztxml/ztHostPlatform.h"
#include "ztxml/ztXMLDocGenerator.h"

namespace bench {

namespace {

struct TreeDeleter {
  void operator()(XMLElement* root) const { XMLFactory::DeleteElement(root); }
};
using Tree = std::unique_ptr<XMLElement, TreeDeleter>;

// ---- The library in the exact profile -----------------------------------------------------------

bool EventsByLibrary(const std::string& text) {
  NullSchema schema;
  XmlDecoder parser;
  parser.SetSchema(&schema);
  // The parser does not change what it is given.
  return parser.Decode(const_cast<char*>(text.data()), static_cast<int>(text.size())) ==
         ZT_XML_SUCCESS;
}

// A schema's context with its workers and the namespaces of a document, as a client keeps them.
class Exact {
 public:
  Exact(Kind kind, const std::string& text)
      : namespaces_context_(XMLFactory::newInstance(XML_SCHEMA_NAMESPACE_RETRIEVAL)),
        namespaces_(namespaces_context_->createUnMarshaller()->UnMarshall(text.c_str())),
        context_(XMLFactory::newInstance(SchemaOf(kind))) {
    context_->SetNamespaceBinder(static_cast<XMLObject*>(namespaces_.get()));
    reader_ = context_->createUnMarshaller();
    writer_ = context_->createMarshaller();
  }
  ~Exact() {
    XMLFactory::deleteContext(context_);
    XMLFactory::deleteContext(namespaces_context_);
  }
  Exact(const Exact&) = delete;
  Exact& operator=(const Exact&) = delete;

  Tree Read(const std::string& text) { return Tree(reader_->UnMarshall(text.c_str())); }
  const char* Write(const Tree& tree) { return tree ? writer_->Marshall(tree.get()) : nullptr; }

 private:
  XMLContext* namespaces_context_;
  Tree namespaces_;
  XMLContext* context_;
  XMLUnMarshaller* reader_ = nullptr;
  XMLMarshaller* writer_ = nullptr;
};

// ---- The types ----------------------------------------------------------------------------------

// What each kind's root is, in the library and in the mapping by hand, and a change to it.
struct NoMapping {};

struct Registration {
  using Root = zt_reginfo;
  using Mapped = mapping::Reginfo;
  static void Change(Root& root) { root.setVersionValue(9); }
};
struct Conference {
  using Root = zt_conference_type;
  using Mapped = mapping::Conference;
  static void Change(Root& root) { root.setVersionValue(9); }
};
struct Presence {
  using Root = zt_presence;
  using Mapped = NoMapping;
  static void Change(Root& root) { root.setEntityValue("sip:bea@ims.example.com"); }
};
struct ResourceLists {
  using Root = zt_resource_lists;
  using Mapped = NoMapping;
  static void Change(Root& root) {
    for (zt_listType& list : ztxml::Each(root.getListListValue())) {
      list.setNameValue("friends");
      return;  // the first one
    }
  }
};
struct Services {
  using Root = zt_Simservs;
  using Mapped = NoMapping;
  static void Change(Root& root) {
    for (auto& service : ztxml::Each<zt_communication_waiting>(root.getServiceListValue())) {
      service.setActiveValue(0);
    }
  }
};
struct Disposition {
  using Root = zt_imdn;
  using Mapped = NoMapping;
  static void Change(Root& root) { root.setMessageIdValue("b2e0"); }
};

// ---- The cases of a document --------------------------------------------------------------------

// The sizes that documents are made in.
struct Size {
  const char* name;  // KB
  std::size_t bytes;
};
using Sizes = std::initializer_list<Size>;

class Cases {
 public:
  /// The least document, and some that are larger.
  template <class Type>
  void AddSizes(Kind kind, Sizes larger) {
    Add<Type>(LeastDocument(kind));
    for (const Size& size : larger) Add<Type>(MakeDocument(kind, size.bytes, size.name));
  }

  /// What a byte costs and what does not depend on the size: documents of whole groups of contacts.
  void AddSteps() {
    timed_ = false;
    for (const Size& size :
         Sizes{{"4 contacts", 1000}, {"8 contacts", 2000}, {"12 contacts", 3500}}) {
      Add<Registration>(MakeDocument(Kind::kRegistration, size.bytes, size.name, 4));
    }
    timed_ = true;
  }

  /// Reading and writing with the logs of the host platform.
  void AddLogs() {
    Start(MakeDocument(Kind::kRegistration, 8500, "8.5"));
    const auto exact = std::make_shared<Exact>(document_->kind, Text());
    const auto both = [exact, document = document_] {
      return exact->Write(exact->Read(document->text)) != nullptr;
    };
    Push("both", "exact", Text().size(), both);
    Push("both", "exact, log", Text().size(), [both] {
      zthost::SetLogSink(
          [](const zthost::LogLine& line, void*) { benchmark::DoNotOptimize(line.text); });
      const bool isDone = both();
      zthost::SetLogSink(nullptr);
      return isDone;
    });
    Push("both", "exact, memory log", Text().size(), [both] {
      zthost::EnableMemoryLog(true);
      const bool isDone = both();
      zthost::EnableMemoryLog(false);
      zthost::ResetMemoryLog();
      return isDone;
    });
  }

  std::vector<Case> Take() { return std::move(cases_); }

 private:
  void Start(Document document) {
    document_ = std::make_shared<Document>(std::move(document));
    name_ = std::string(NameOf(document_->kind)) + "/" + document_->size;
  }
  const std::string& Text() const { return document_->text; }

  void Push(const char* work, const char* who, std::size_t bytes, std::function<bool()> run) {
    cases_.push_back({std::string(work) + "/" + name_ + "/" + who, bytes, std::move(run), timed_});
  }
  // Of a text that was written.
  void Push(const char* work, const char* who, const std::string& written,
            std::function<bool()> run) {
    Push(work, who, written.size(), std::move(run));
  }
  void Expect(bool isTrue, const char* what) const {
    if (isTrue) return;
    std::fprintf(stderr, "bench: %s: not so: %s\n", name_.c_str(), what);
    std::exit(2);
  }

  template <class Type>
  void Add(Document document) {
    Start(std::move(document));
    const auto shared = document_;  // the cases keep it
    Push("events", "exact", Text().size(), [shared] { return EventsByLibrary(shared->text); });
    Push("events", "pugixml's tree", Text().size(),
         [shared] { return TreeByPugixml(shared->text); });
    Push("events", "Expat", Text().size(), [shared] { return EventsByExpat(shared->text); });
    Push("events", "libxml2", Text().size(), [shared] { return EventsByLibxml2(shared->text); });

    const auto exact = std::make_shared<Exact>(shared->kind, Text());
    Push("read", "exact", Text().size(), [exact, shared] { return !!exact->Read(shared->text); });
    if (Text().size() < ZtXMLDocGenerator::kBufferSize) {
      const auto tree = std::make_shared<Tree>(exact->Read(Text()));
      const std::string text = Again(*exact, Text());
      Expect(Again(*exact, text) == text, "the exact profile reads what it writes");
      Expect(text.size() > Text().size() / 2, "the exact profile keeps what is not white space");
      Push("write", "exact", text, [exact, tree] { return exact->Write(*tree) != nullptr; });
    }
    AddStandard<Type>();
    if constexpr (!std::is_same_v<typename Type::Mapped, NoMapping>) {
      AddMapped<typename Type::Mapped>(exact.get());
    }
  }

  // What is written of what is read of `text`.
  std::string Again(Exact& exact, const std::string& text) const {
    const char* const written = exact.Write(exact.Read(text));
    Expect(written != nullptr, "the exact profile reads and writes it");
    return written;
  }

  template <class Type>
  void AddStandard() {
    using Root = typename Type::Root;
    const auto shared = document_;
    Push("read", "standard", Text().size(), [shared] {
      const auto read = ztxml::Read<Root>(shared->text);
      return static_cast<bool>(read);
    });
    auto read = ztxml::Read<Root>(Text());
    Expect(read && read->Lost().empty(), "the standard profile reads all of it");
    const auto unchanged = read->Update();
    Expect(unchanged && *unchanged == Text(), "an update without a change is the document");
    const auto written = read->Write();
    Expect(static_cast<bool>(written), "the standard profile writes it");
    Type::Change(**read);
    const auto updated = read->Update();
    Expect(updated && *updated != Text(), "an update has the change");

    const auto document = std::make_shared<ztxml::Document<Root>>(std::move(*read));
    const auto buffer = std::make_shared<std::string>();
    Push("write", "standard", *written,
         [document, buffer] { return static_cast<bool>(document->WriteTo(*buffer)); });
    Push("update", "standard", *updated,
         [document, buffer] { return static_cast<bool>(document->UpdateTo(*buffer)); });
  }

  template <class Mapped>
  static const std::string& WriteMapped(const Mapped& root) {
    pugi::xml_document document;
    mapping::Build(root, &document);
    return WriteByPugixml(document);
  }
  template <class Mapped>
  std::string AgainMapped(const std::string& text) const {
    std::string buffer;
    Mapped root;
    Expect(mapping::Read(text, &buffer, &root), "the mapping reads it");
    return WriteMapped(root);
  }

  template <class Mapped>
  void AddMapped(Exact* exact) {
    const auto shared = document_;
    const auto buffer = std::make_shared<std::string>();
    Push("read", "pugixml + mapping", Text().size(), [shared, buffer] {
      Mapped root;
      return mapping::Read(shared->text, buffer.get(), &root);
    });
    const auto root = std::make_shared<Mapped>();
    mapping::Read(Text(), buffer.get(), root.get());
    const std::string text = AgainMapped<Mapped>(Text());
    if (text.size() < ZtXMLDocGenerator::kBufferSize) {
      // What one writes holds for the other all that the document holds.
      const std::string ours = Again(*exact, Text());
      Expect(Again(*exact, text) == ours, "the mapping keeps what the library keeps");
      Expect(AgainMapped<Mapped>(ours) == text, "the library keeps what the mapping keeps");
    }
    Push("write", "pugixml + mapping", text, [root] { return !WriteMapped(*root).empty(); });
  }

  std::vector<Case> cases_;
  std::shared_ptr<const Document> document_;
  std::string name_;
  bool timed_ = true;
};

}  // namespace

std::vector<Case> MakeCases() {
  PreparePeers();
  const Sizes sizes = {{"1", 1000}, {"4", 4000}, {"8.5", 8500}, {"850", 850000}};
  Cases cases;
  cases.AddSizes<Registration>(Kind::kRegistration, sizes);
  cases.AddSizes<Conference>(Kind::kConference, sizes);
  cases.AddSizes<Presence>(Kind::kPresence, sizes);
  cases.AddSizes<ResourceLists>(Kind::kResourceLists, sizes);
  cases.AddSizes<Services>(Kind::kServices, {{"0.9", 900}, {"4", 4000}, {"8.5", 8500}});
  cases.AddSizes<Disposition>(Kind::kDisposition, {});
  cases.AddSteps();
  cases.AddLogs();
  return cases.Take();
}

}  // namespace bench
