// Golden answers: what every public class says of itself and does with what it is offered, what the
// factories make, and what the marshallers' steps and the workers log.
#include <cctype>
#include <functional>
#include <utility>

#include "ApiScript.h"
#include "Golden.h"

namespace {

constexpr char kSource[] = "tests/Golden";

std::string Listed(const Lines& lines, const char* between = ", ") {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : between) + line;
  return text;
}

// ---- Offering -----------------------------------------------------------------------------------

struct ApiClass {
  const char* name;
  std::string header;
  XMLElement* (*make)();
};
template <class C>
XMLElement* Make() {
  return ZtCreate<C>(kSource);
}
#define ZT_CLASS(C, header) {#C, header, &Make<C>},
const ApiClass kClasses[] = {ZT_API_HEADERS(ZT_CLASS)};
#undef ZT_CLASS

// What is offered as a child: an object of each class, and one without a class.
const std::vector<ApiClass>& Children() {
  static const std::vector<ApiClass> kChildren = [] {
    std::vector<ApiClass> all(std::begin(kClasses), std::end(kClasses));
    all.push_back({"(one that has no class name)", "", &Make<Nameless>});
    return all;
  }();
  return kChildren;
}

// Under which name and with which text something is offered.
struct Offer {
  bool attribute;
  const char* name;  // without a slash
  bool atEnd = false;
  const char* text = nullptr;
  XMLElement* (*child)() = nullptr;
  bool pair = false;
};

bool IsAlive(const void* object) {
  for (const zthost::MemoryEntry& entry : zthost::GetMemoryReport().live) {
    if (entry.pointer == object) return true;
  }
  return false;
}

// What a new object of a class answers to a series of offers: the result of the last one, whether
// its object was taken, the log, and what has changed since the beginning.
struct Answer {
  int result = 0;
  std::string taken;
  Lines log;
  Lines changes;
};
Answer Ask(const ApiClass& of, const std::vector<Offer>& offers) {
  Answer answer;
  Tree<XMLElement> self(of.make());
  const Lines before = FieldsOf(*self);
  std::vector<XMLElement*> children;
  std::vector<XMLAttribute*> pairs;
  for (const Offer& offer : offers) {
    std::string name = (offer.atEnd ? "/" : "") + std::string(offer.name ? offer.name : "");
    std::string text = offer.text ? offer.text : "";
    char* given = offer.name ? name.data() : nullptr;
    const LogCapture log;
    if (offer.attribute) {
      if (offer.pair) {
        pairs.push_back(zt_xml_common_methods::CreateAttribute(name.c_str(), text.c_str()));
      }
      answer.result = self->ProcessUnMarshallAttribute(given, offer.text ? text.data() : nullptr,
                                                       offer.pair ? pairs.back() : nullptr);
    } else {
      if (offer.child) children.push_back(offer.child());
      answer.result = self->ProcessUnMarshall(given, offer.text ? text.data() : nullptr,
                                              offer.child ? children.back() : nullptr);
    }
    answer.log = Told(log);
  }
  answer.changes = Changes(before, FieldsOf(*self));
  self.reset();
  for (XMLElement* child : children) {
    answer.taken = IsAlive(child) ? ", not taken" : ", taken";
    if (IsAlive(child)) XMLFactory::DeleteElement(child);
  }
  for (XMLAttribute* pair : pairs) {
    answer.taken = IsAlive(pair) ? ", not taken" : ", taken";
    if (IsAlive(pair)) ZtRelease(pair);
  }
  return answer;
}

std::string Summary(const Answer& answer) {
  std::string text = std::to_string(answer.result) + answer.taken;
  if (!answer.changes.empty()) text += "; then " + Listed(answer.changes);
  if (!answer.log.empty()) text += "; logs " + Listed(answer.log, " | ");
  return text;
}

// ---- Which words a name takes -------------------------------------------------------------------

const Lines& OddWords() {
  static const Lines kWords = {"",      "0",          "1",          "5",
                               "180",   "181",        "-1",         "true",
                               "Full",  "true-ish",   " 7 x",       "a b",
                               "a  b ", "4294967295", "4294967296", "99999999999999999999"};
  return kWords;
}

// Odd words, all words of the golden documents, and these words with something appended.
const Lines& AllWords() {
  static const Lines kWords = [] {
    std::set<std::string> words;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(ZTXML_GOLDEN_DIR) / "documents")) {
      const std::string name = entry.path().filename();
      if (entry.path().extension() != ".xml" || name.find("unknown") == 0) continue;
      const std::string text = ReadFile(entry.path());
      for (std::size_t at = 0, end; at < text.size(); at = end) {
        const auto stands = [](char c) { return std::strchr("\"<>", c) != nullptr; };
        for (end = at + 1; end < text.size() && !stands(text[end]);) ++end;
        if (text[at] == '<') continue;
        const std::string word = text.substr(at + 1, end - at - 1);
        const bool plain = std::all_of(word.begin(), word.end(), [](char c) {
          return std::isalpha(static_cast<unsigned char>(c)) || c == '-';
        });
        if (plain && !word.empty()) words.insert(word);
      }
    }
    Lines all = OddWords();
    for (const std::string& word : words) {
      for (const std::string& variant : {word, word + "-ish"}) {
        if (std::find(all.begin(), all.end(), variant) == all.end()) all.push_back(variant);
      }
    }
    return all;
  }();
  return kWords;
}

// What becomes of words: outcomes in order, each with the words that have it.
using Outcomes = std::vector<std::pair<std::string, Lines>>;
void AddTo(Outcomes& outcomes, const std::string& outcome, const std::string& member) {
  for (auto& [known, members] : outcomes) {
    if (known == outcome) return members.push_back(member);
  }
  outcomes.push_back({outcome, {member}});
}

// The outcomes, one line each; the outcome with most members comes last.
std::string TellOutcomes(const std::string& indent, Outcomes outcomes, const char* members) {
  std::size_t most = 0;
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    if (outcomes[i].second.size() > outcomes[most].second.size()) most = i;
  }
  std::string text;
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    if (i != most) text += indent + Listed(outcomes[i].second) + ": " + outcomes[i].first + '\n';
  }
  return text + indent + (outcomes.size() == 1 ? "all " : "all other ") + members + ": " +
         outcomes[most].first + '\n';
}

std::string TellWords(const ApiClass& of, Offer offer) {
  const auto asked = [&](const Lines& words) {
    Offer first = offer;
    first.text = nullptr;
    for (const std::string& word : words) {
      offer.text = word.c_str();
      if (!first.text && !Ask(of, {offer}).changes.empty()) first.text = offer.text;
    }
    Outcomes outcomes;
    for (const std::string& word : words) {
      const auto told = [&](const Answer& answer) {
        return Replaced(Summary(answer), Quoted(word), "(the text)");
      };
      offer.text = word.c_str();
      const Answer alone = Ask(of, {offer});
      std::string outcome = told(alone);
      if (first.text) {
        const std::string before = Quoted(first.text);
        const std::string after = Replaced(told(Ask(of, {first, offer})), before, "(a first)");
        if (after != Replaced(outcome, before, "(a first)") && word != first.text) {
          outcome += "; after a first value " + after;
        }
      }
      AddTo(outcomes, outcome, Quoted(word));
    }
    return outcomes;
  };
  const auto keepsText = [](const Outcomes& outcomes) {
    return outcomes.size() == 1 && outcomes[0].first.find("(the text)") != std::string::npos;
  };
  Outcomes outcomes = asked(OddWords());
  if (!keepsText(outcomes)) outcomes = asked(AllWords());
  const Offer none = {offer.attribute, offer.name, offer.atEnd};
  offer.text = "5";
  std::string null = Summary(Ask(of, {none}));
  if (outcomes.size() == 1 && null == outcomes[0].first) return ' ' + null + '\n';
  null = "      null: " + null + "; after \"5\" " + Summary(Ask(of, {offer, none})) + '\n';
  if (outcomes.size() > 1 || keepsText(outcomes)) {
    return '\n' + TellOutcomes("      ", outcomes, "texts") + null;
  }
  return ' ' + outcomes[0].first + '\n' + null;
}

// ---- Classes ------------------------------------------------------------------------------------

Lines Names() {
  Lines names;
  for (int id = 0; id < XML_STR_ZT_COUNT; ++id) {
    names.push_back(zt_xml_common_array_definition::getStringName(static_cast<e_XmlStrRef>(id)));
  }
#define ZT_NAME(id, text) names.push_back(text);
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
  std::set<std::string> seen = {""};
  names.erase(std::remove_if(names.begin(), names.end(),
                             [&](const std::string& name) { return !seen.insert(name).second; }),
              names.end());
  return names;
}

constexpr char kUnknown[] = "of-no-document";

// The ways of offering something that are tried for each name, in pairs that belong together.
struct Way {
  const char* label;
  Offer offer;
};
std::vector<Way> WaysOf(const char* name) {
  const auto foreign = &Make<zt_string>;
  return {{"start, no object", {false, name, false, "some text"}},
          {"start, an object", {false, name, false, "some text", foreign}},
          {"end, no object", {false, name, true, "some text"}},
          {"end, an object", {false, name, true, "some text", foreign}},
          {"attribute, a text", {true, name, false, "some text"}},
          {"attribute, a pair", {true, name, false, "some text", nullptr, true}}};
}

std::string TellName(const ApiClass& of, const std::string& name, const Lines& toUnknown) {
  std::string text;
  const std::vector<Way> ways = WaysOf(name.c_str());
  Lines answers, unknown;
  for (const Way& way : ways) answers.push_back(Summary(Ask(of, {way.offer})));
  for (const std::string& answer : toUnknown) unknown.push_back(Replaced(answer, kUnknown, name));
  const std::vector<reflect::Field> fields = reflect::FieldsOf(*Tree<XMLElement>(of.make()));
  const bool holdsObjects = std::any_of(fields.begin(), fields.end(), [&](const auto& field) {
    return field.name && field.name == name && field.value == ZtValue::kObject;
  });
  if (answers == unknown && !holdsObjects) return text;
  const std::string ownLines = Tree<XMLElement>(of.make())->ClassName() + std::string("::");
  for (std::size_t i = 0; i < ways.size(); ++i) {
    const Way& way = ways[i];
    const std::size_t pair = i / 2 * 2;
    const bool known = answers[pair] != unknown[pair] || answers[pair + 1] != unknown[pair + 1];
    if (!known && (!way.offer.child || !holdsObjects)) continue;
    std::string told = ' ' + answers[i] + '\n';
    if (way.offer.child) {
      Outcomes outcomes;
      for (const ApiClass& child : Children()) {
        Offer offer = way.offer;
        offer.child = child.make;
        const char* ownName = Tree<XMLElement>(child.make())->ClassName();
        const std::string className = ownName ? ownName : child.name;
        std::string answer = Replaced(Summary(Ask(of, {offer})), ownLines, "(own lines)");
        answer = Replaced(answer, className, "(its class)");
        AddTo(outcomes, Replaced(answer, "(own lines)", ownLines), child.name);
      }
      if (!known && outcomes.size() == 1) continue;
      if (outcomes.size() > 1) told = '\n' + TellOutcomes("      ", outcomes, "classes");
    } else if (!way.offer.pair) {
      told = TellWords(of, way.offer);
    }
    text += "    " + std::string(way.label) + ':' + told;
  }
  return text.empty() ? text : "  " + name + '\n' + text;
}

std::string TellClass(const ApiClass& of, const Lines& names) {
  const Tree<XMLElement> fresh(of.make());
  std::string text = std::string("== ") + of.name + " ==\nclass name \"" + fresh->ClassName() +
                     "\", base \"" + fresh->BaseClassName() + "\", element name \"" +
                     fresh->ElementName() + "\", reserved hook " +
                     std::to_string(fresh->ReservedHook());
  if (std::string(fresh->BaseClassName()) == "XMLObject") {
    const auto* object = static_cast<XMLObject*>(fresh.get());
    text += ", root " + std::to_string(object->IsRootElement());
  }
  text += "\nfields of a new object:\n" + Joined(FieldsOf(*fresh), "  ");
  text += "offered without a name:\n";
  text += "  start, no object: " + Summary(Ask(of, {{false, nullptr}})) + '\n';
  text += "  start, an object: " + Summary(Ask(of, {WaysOf(nullptr)[1].offer})) + '\n';
  text += "  attribute, a text: " + Summary(Ask(of, {{true, nullptr}})) + '\n';
  text += "  attribute, a pair: " + Summary(Ask(of, {WaysOf(nullptr)[5].offer})) + '\n';
  text += "offered under an unknown name:\n";
  Lines unknown;
  for (const Way& way : WaysOf(kUnknown)) {
    unknown.push_back(Summary(Ask(of, {way.offer})));
    text += "  " + std::string(way.label) + ": " + unknown.back() + '\n';
  }
  text += "offered under other names, where the answer is another one:\n";
  for (const std::string& name : names) text += TellName(of, name, unknown);
  return text + '\n';
}

TEST(GoldenApi, Classes) {
  GoldenFolder golden("classes");
  std::map<std::string, std::string> files;
  const Lines names = Names();
  for (const ApiClass& of : kClasses) files[of.header] += TellClass(of, names);
  for (const auto& [header, text] : files) {
    golden.Expect(header.substr(0, header.find('.')) + ".txt", text);
  }
}

// ---- Factories, steps, workers ------------------------------------------------------------------

// What a call makes or returns and logs.
std::string TellCall(const std::string& name, const std::function<std::string()>& call) {
  const LogCapture log;
  const std::string told = call();
  return name + ": " + told + '\n' + Joined(Told(log), "  ");
}

std::string TellMade(const std::string& name, const std::function<XMLElement*()>& make) {
  return TellCall(name, [&]() -> std::string {
    const Tree<XMLElement> made(make());
    if (!made) return "null";
    if (!ZtIsA(*made, zt_empty_element_type::kType)) return made->ClassName();
    const auto& flag = static_cast<const zt_empty_element_type&>(*made);
    const char* value = flag.getValue();
    return made->ClassName() + (", present " + std::to_string(flag.getPresentValue())) +
           (value ? ", value " + Quoted(value) : "");
  });
}

std::string TellFactories() {
  std::string text;
  for (const ApiTables::Factory& factory : kApiFactories) {
    text += TellMade(factory.name, factory.make);
  }
  text += TellCall("XcapErrorDataBinder::CreateList", [] {
    ZtSingleElementList* list = XcapErrorDataBinder().CreateList();
    const std::string count = std::to_string(list->GetCount()) + " entries";
    ZtRelease(list);
    return count;
  });
  // Factories that have to be told which root to make.
  CommunicationBarringDataBinder barring;
  for (const int kind : {-1, 0, 2, 3, 1}) {
    text += TellMade("CommunicationBarringDataBinder of kind " + std::to_string(kind), [&] {
      if (kind >= 0) barring.setCBType(static_cast<XML_COMMUNICATION_BARRING_TYPE>(kind));
      return barring.CreateRootElement();
    });
  }
  GruuDataBinder gruu;
  for (const char* type : {"(fresh)", "temp-gruu", "pub", "t", "", "pub-gruu-x", "x", "(null)"}) {
    text += TellMade("GruuDataBinder of type " + std::string(type), [&] {
      const std::string chosen = type;
      if (chosen != "(fresh)") gruu.setGruuType(chosen == "(null)" ? nullptr : type);
      return gruu.CreateRootElement();
    });
  }
  return text;
}

// Runs a step where it can write: at the start of a document.
template <class Worker>
class StepRunner : public Worker {
 public:
  // The step's result, its lines and what it writes.
  std::string Tell(const std::function<int(Worker&)>& step) {
    Schema schema(this->Document().info.id);
    Tree<XMLElement> root(schema.context()->createBinderFactory()->CreateRootElement());
    if (!this->Marshall(root.get())) {  // the document must not be empty
      root =
          schema.template Read<XMLElement>(ReadFile(*FullDocuments(this->Document().info).begin()));
    }
    const std::string plain = Text(this->Marshall(root.get()));
    m_Step = step;
    const std::string whole = Text(this->Marshall(root.get()));
    if (whole.size() < plain.size()) return "(no document)\n";
    const std::size_t declaration = plain.find("?>");
    const std::size_t start = declaration == std::string::npos ? 0 : declaration + 2;
    const std::string written = whole.substr(start, whole.size() - plain.size());
    return m_Told + (written.empty() ? "" : "    writes " + Quoted(written) + '\n');
  }

 private:
  static std::string Text(const char* text) { return text ? text : ""; }
  bool UseNamespaces(const ZtNamespaceBindings*&) override {
    if (!m_Step) return true;
    const auto step = std::exchange(m_Step, nullptr);
    const LogCapture log;
    const int result = step(*this);
    m_Told = std::to_string(result) + '\n' + Joined(Told(log), "    ");
    return true;
  }

  std::function<int(Worker&)> m_Step;
  std::string m_Told;
};

// What a step of a marshaller makes of null and of an empty object. There are hundreds of steps:
// what they have in common is not compiled for each.
template <class Worker>
std::string TellStep(int (*run)(Worker&, XMLElement*), XMLElement* (*makeEmpty)(),
                     const std::string& name) {
  const Tree<XMLElement> empty(makeEmpty());
  std::string text = name + '\n';
  for (XMLElement* element : {static_cast<XMLElement*>(nullptr), empty.get()}) {
    text += std::string(element ? "  an empty object: " : "  null: ") +
            StepRunner<Worker>().Tell([&](Worker& worker) { return run(worker, element); });
  }
  return text;
}
template <class Worker, auto kMethod>
struct StepOf;
template <class Worker, class Base, class Element, int (Base::*kMethod)(Element*)>
struct StepOf<Worker, kMethod> {
  static int Run(Worker& worker, XMLElement* element) {
    return (worker.*kMethod)(static_cast<Element*>(element));
  }
  static std::string Tell(const std::string& name) {
    return TellStep<Worker>(&Run, &Make<Element>, name);
  }
};
struct Step {
  const char* name;
  std::string (*tell)(const std::string& name);
};
template <class M, auto kMethod>
constexpr Step StepNamed(const char* name) {
  if constexpr (std::is_abstract_v<M>) {  // the base of two services
    return {name, [](const std::string& of) {
              return StepOf<Communication_diversionMarshaller, kMethod>::Tell(of) +
                     StepOf<Communication_barringMarshaller, kMethod>::Tell(of + " of barring");
            }};
  } else {
    return {name, &StepOf<M, kMethod>::Tell};
  }
}
#define ZT_STEP(M, method) StepNamed<M, &M::method>(#M "::" #method),
constexpr Step kSteps[] = {ZT_API_STEPS(ZT_STEP)};
#undef ZT_STEP

std::string TellSteps() {
  std::string text;
  for (const Step& step : kSteps) text += step.tell(step.name);
  // Steps that take something else.
  char given[] = "given";
  zt_uris_type uris;
  zt_conference_type nameless, sidebar;
  sidebar.setEntityValue("e");
  zt_status withoutValue;
  withoutValue.addAnyAttribute(zt_xml_common_methods::CreateAttribute("n", nullptr));
#define ZT_CALL(M, ...)                            \
  text += std::string(#M "::" #__VA_ARGS__ ": ") + \
          StepRunner<M>().Tell([&](M& worker) { return worker.__VA_ARGS__; });
  ZT_CALL(BootstrappingInfoMarshaller, AddBtidElementToXml(nullptr))
  ZT_CALL(BootstrappingInfoMarshaller, AddBtidElementToXml(given))
  ZT_CALL(BootstrappingInfoMarshaller, AddLifetimeElementToXml(nullptr))
  ZT_CALL(BootstrappingInfoMarshaller, AddLifetimeElementToXml(given))
  ZT_CALL(Conference_infoMarshall, AddConferenceInfoElementToXml(nullptr, XML_STR_ENTRY))
  ZT_CALL(Conference_infoMarshall, AddConferenceInfoElementToXml(&nameless, XML_STR_ENTRY))
  ZT_CALL(Conference_infoMarshall, AddConferenceInfoElementToXml(&sidebar, XML_STR_ENTRY))
  ZT_CALL(Conference_infoMarshall, AddConferenceInfoElementToXml(&sidebar, XML_STR_CONFERENCE_INFO))
  ZT_CALL(Conference_infoMarshall, AddUrisTypeElementToXml(nullptr, XML_STR_CONF_URIS))
  ZT_CALL(Conference_infoMarshall, AddUrisTypeElementToXml(&uris, XML_STR_CONF_URIS))
  ZT_CALL(IMDNMarshaller, AddNotificationXML(XML_STR_DISPLAY_NOTIFICATION, XML_STR_ERROR, nullptr))
  ZT_CALL(IMDNMarshaller,
          AddNotificationXML(XML_STR_DELIVERY_NOTIFICATION, XML_STR_DELIVERED, nullptr))
  // Beside the first and the last of what it takes.
  ZT_CALL(IMDNMarshaller, AddNotificationXML(XML_STR_DELIVERY_NOTIFICATION,
                                             XML_STR_PROESSING_NOTIFICATION, nullptr))
  ZT_CALL(IMDNMarshaller,
          AddNotificationXML(XML_STR_DELIVERY_NOTIFICATION, XML_STR_PRESENCE, nullptr))
  ZT_CALL(IMDNMarshaller,
          AddNotificationXML(XML_STR_ORIGINAL_RECIPIENT_URI, XML_STR_ERROR, nullptr))
  ZT_CALL(IMDNMarshaller, AddNotificationXML(XML_STR_DELIVERED, XML_STR_ERROR, nullptr))
  ZT_CALL(IMDNMarshaller, AddNotificationXML(XML_STR_PROESSING_NOTIFICATION, XML_STR_ERROR,
                                             withoutValue.getAnyAttributeValue()))
  ZT_CALL(IsComposingMarshaller, AddStateElementToXml(nullptr))
  ZT_CALL(IsComposingMarshaller, AddStateElementToXml(given))
  ZT_CALL(IsComposingMarshaller, AddLastactiveElementToXml(nullptr))
  ZT_CALL(IsComposingMarshaller, AddLastactiveElementToXml(given))
  ZT_CALL(IsComposingMarshaller, AddContenttypeElementToXml(nullptr))
  ZT_CALL(IsComposingMarshaller, AddContenttypeElementToXml(given))
  ZT_CALL(IsComposingMarshaller, AddRefreshElementToXml(0))
  ZT_CALL(IsComposingMarshaller, AddRefreshElementToXml(1))
#undef ZT_CALL
  return text;
}

// What a schema's decoder says when there is no memory for a name.
std::string TellNoName(eXMLSchemaID id, bool attribute) {
  reflect::Schema schema;
  if (!reflect::FindSchema(id, schema)) return "(no schema)";
  char tag[] = "p:a", name[] = "b", value[] = "c";
  ZtSchemaDecoder* decoder = schema.document->NewDecoder().Create(kSource, *schema.document);
  zthost::FailAllocation(1);
  const int result = attribute ? decoder->ProcessAttribute(tag, name, value)
                               : decoder->ProcessElement(tag, nullptr);
  zthost::FailAllocation(0);
  const bool failed = decoder->Failed();
  XMLFactory::DeleteElement(static_cast<XMLObject*>(decoder->GetSessionData()));
  ZtRelease(decoder);
  return std::to_string(result) + (failed ? ", failed" : "");
}

// What the factory says of a document, and by which names its workers are known in the log.
std::string TellWorkers(const XMLSchemaInfo& info) {
  const std::filesystem::path path = *FullDocuments(info).begin();
  const std::string document = ReadFile(path);
  std::string text = std::string("== ") + info.name + " ==\nschema " + std::to_string(info.id);
  for (const char* root : info.roots) text += root ? std::string(", root ") + root : "";
  text += std::string(", namespace ") + (info.nameSpace ? info.nameSpace : "(none)") +
          (info.writes ? ", is written\n" : ", is not written\n");
  BoundSchema schema(info.id, document);
  XMLUnMarshaller* reader = schema.context()->createUnMarshaller();
  const auto told = [&](const std::function<void()>& run) {
    const LogCapture log;
    run();
    return Told(log, document);
  };
  const auto tell = [&](const char* what, const std::function<void()>& run) {
    text += std::string(what) + ":\n" + Joined(told(run), "  ");
  };
  tell("a null text", [&] { reader->UnMarshall(static_cast<const char*>(nullptr)); });
  tell("a null file", [&] { reader->UnMarshall(static_cast<XMLFile*>(nullptr)); });
  const Lines ofText = told([&] { schema.Read<XMLElement>(document); });
  const Lines ofFile = told([&] {
    XMLFile file(path.c_str(), XML_FILE_READ);
    const Tree<XMLElement> root(reader->UnMarshall(&file));
    file.CloseFile();
  });
  text += "a file instead of its text:\n" + Joined(Difference(ofText, ofFile), "  ");
  tell("a text that is no document", [&] { schema.Read<XMLElement>("<a/>"); });
  tell("no memory to copy the text", [&] {
    zthost::FailAllocation(1);
    reader->UnMarshall(document.c_str());
    zthost::FailAllocation(0);
  });
  for (const bool attribute : {false, true}) {
    text += TellCall(attribute ? "no memory for an attribute's element" : "no memory for a name",
                     [&] { return TellNoName(info.id, attribute); });
  }
  if (!schema.writer()) return text + "no marshaller\n";
  tell("null to be written", [&] { schema.Write(nullptr); });
  zt_string foreign;
  tell("a foreign object to be written", [&] { schema.Write(&foreign); });
  Nameless nameless;
  tell("an object without a class name to be written", [&] { schema.Write(&nameless); });
  const auto root = schema.Read<XMLElement>(document);
  schema.Write(root.get());
  const LogCapture log;
  const std::string written = schema.Write(root.get());
  Lines lines = Told(log, document, written);
  lines.resize(std::min<std::size_t>(lines.size(), 2));
  return text + "what is written a second time begins with:\n" + Joined(lines, "  ");
}

// What the checks of themselves log that some documents have; without memory they do no harm.
std::string TellSelfChecks() {
  std::string text = "== checks of themselves ==\n";
  for (void (*check)() :
       {TestConference_infoMarshall, TestIsComposingMarshall, TestResource_listsMarshall}) {
    LogCapture log(2);
    check();
    text += Joined(log.Texts());
    for (long n = 1, reached = 1; reached; ++n) {
      zthost::FailAllocation(n);
      check();
      reached = zthost::AllocationCount() >= n;
      zthost::FailAllocation(0);
    }
  }
  return text;
}

// What is logged only without memory, while a document is read and written. Sorted, because the
// order of the lines is that of the allocations.
std::string TellWithoutMemory(const XMLSchemaInfo& info) {
  std::set<std::string> known, without;
  for (const std::filesystem::path& path : FullDocuments(info)) {
    const std::string document = ReadFile(path);
    Schema schema(info.id);
    schema.RoundTrip(document);  // the first run logs more
    for (long n = 0, reached = 1; reached; ++n) {
      zthost::FailAllocation(n);
      const LogCapture log;
      schema.RoundTrip(document);
      reached = n == 0 || zthost::AllocationCount() >= n;
      zthost::FailAllocation(0);
      for (const std::string& line : Told(log, document)) {
        if (!known.count(line)) (n == 0 ? known : without).insert(line);
      }
    }
  }
  return std::string("== ") + info.name + " ==\n" + Joined({without.begin(), without.end()});
}

TEST(GoldenApi, Workers) {
  GoldenFolder golden("workers");
  golden.Expect("factories.txt", TellFactories());
  golden.Expect("steps.txt", TellSteps());
  std::string workers, withoutMemory;
  for (int id = 0; id < XML_SCHEMA_END; ++id) {
    const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id));
    if (!info) continue;
    workers += TellWorkers(*info);
    withoutMemory += TellWithoutMemory(*info);
  }
  golden.Expect("workers.txt", workers + TellSelfChecks());
  golden.Expect("without-memory.txt", withoutMemory);
}

}  // namespace
