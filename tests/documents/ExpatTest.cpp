// The parser compared with another one: they agree on what both support, and the other accepts what
// the library writes.
#include <expat.h>
#include <gtest/gtest.h>
#include <random>

#include "Samples.h"
#include "WellFormed.h"

namespace {

// What either parser tells of a document, in words; texts count from the last tag or comment.
struct Events {
  void Start(const std::string& name) { lines.push_back("start " + name); }
  void Attribute(const std::string& name, const std::string& value) {
    lines.push_back("attribute " + name + "=\"" + value + '"');
  }
  void End(const std::string& name, const std::string& text) {
    lines.push_back("end " + name + " \"" + text + '"');
  }

  std::vector<std::string> lines;
};

class Ours : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessElement(char* name, char* value) override {
    value ? events.End(name, value) : events.Start(name);
    return 0;
  }
  int ProcessAttribute(char*, char* name, char* value) override {
    if (*name) events.Attribute(name, value);
    return 0;
  }
  int ProcessElementOpened(char*) override { return 0; }
  void* GetSessionData() override { return nullptr; }

  Events events;
};

class Theirs {
 public:
  // False when the document is refused.
  bool Read(const std::string& text) {
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser, OnText);
    XML_SetCommentHandler(parser, OnComment);
    const bool read = XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1) != 0;
    XML_ParserFree(parser);
    return read;
  }

  Events events;

 private:
  static void OnStart(void* self, const char* name, const char** attributes) {
    auto& me = *static_cast<Theirs*>(self);
    me.events.Start(name);
    for (; *attributes; attributes += 2) me.events.Attribute(attributes[0], attributes[1]);
    me.text_.clear();
  }
  static void OnEnd(void* self, const char* name) {
    auto& me = *static_cast<Theirs*>(self);
    me.events.End(std::string("/") + name, me.text_);
    me.text_.clear();
  }
  static void OnText(void* self, const char* text, int size) {
    static_cast<Theirs*>(self)->text_.append(text, static_cast<std::size_t>(size));
  }
  static void OnComment(void* self, const char*) { static_cast<Theirs*>(self)->text_.clear(); }

  std::string text_;
};

// Makes documents of what both support: no entities in texts, no '>' or line ends in values.
class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  std::string Document() {
    std::string text = Below(2) ? "<?xml version='1.0' encoding='UTF-8'?>\n" : "";
    if (Below(3) == 0) text += "<!-- before -->";
    Element(text, 0);
    return text + "\n";
  }

 private:
  unsigned Below(unsigned bound) { return static_cast<unsigned>(random_()) % bound; }
  std::string Name() {
    std::string name;
    for (unsigned i = 0; i <= Below(4); ++i) name += static_cast<char>('a' + Below(26));
    return Below(4) ? name : "p:" + name;
  }
  std::string Text(const char* pieces[], unsigned count) {
    std::string text;
    for (unsigned i = Below(5); i; --i) text += pieces[Below(count)];
    return text;
  }
  void Element(std::string& text, int depth) {
    static const char* kValues[] = {"v",      " ",      "&lt;", "&gt;",     "&amp;",
                                    "&quot;", "&apos;", "=",    "\xC3\xA4", "/"};
    static const char* kTexts[] = {"t", " ", "\n", "'", "\"", "=", "/", "\xE2\x82\xAC"};
    const std::string name = Name();
    text += "<" + name;
    for (unsigned i = Below(4); i; --i) {
      const char quote = Below(2) ? '"' : '\'';
      text += std::string(1, Below(3) ? ' ' : '\n') + Name() + std::to_string(i) + "=" + quote +
              Text(kValues, 10) + quote;
    }
    if (Below(4) == 0) {
      text += "/>";
      return;
    }
    text += ">";
    for (unsigned i = depth < 5 ? Below(4) : 0; i; --i) {
      text += Text(kTexts, 8);
      if (Below(4) == 0) text += "<!-- comment - = ' -->";
      Element(text, depth + 1);
    }
    text += Text(kTexts, 8) + "</" + name + ">";
  }

  std::mt19937 random_;
};

TEST(Expat, UnderstandsGeneratedDocumentsAlike) {
  for (unsigned seed = 0; seed < 3000; ++seed) {
    SCOPED_TRACE(seed);
    const std::string text = Generator(seed).Document();
    Ours ours;
    Theirs theirs;
    ASSERT_TRUE(theirs.Read(text)) << Shortened(text);
    ASSERT_EQ(Parse(text, &ours), ZT_XML_SUCCESS) << Shortened(text);
    ASSERT_SAME(ours.events.lines, theirs.events.lines);
  }
}

TEST(Expat, AcceptsWhatTheLibraryWrites) {
  for (const Sample& sample : Samples()) {
    if (!XMLFactory::getSchemaInfo(sample.id)->writes) continue;
    // The name of its root begins with a digit, which XML does not allow.
    if (sample.id == XML_SCHEMA_CALL_WAITING_INDICATION) continue;
    BoundSchema schema(sample.id, sample.text);
    EXPECT_TRUE(ExpatAccepts(sample.text)) << sample.name;
    const std::string written = schema.RoundTrip(sample.text);
    EXPECT_TRUE(ExpatAccepts(written)) << sample.name << '\n' << Shortened(written);
  }
}

}  // namespace
