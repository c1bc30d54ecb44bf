// The strict reader, judged by Expat wherever both can read a document.
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "StrictEvents.h"
#include "TestSupport.h"
#include "text/ZtCharacters.h"

namespace {

using namespace std::string_literals;

void ExpectAlike(const std::string& document) {
  const StrictReading ours(document);
  const ExpatReading theirs(document);
  EXPECT_TRUE(AreAlike(ours, theirs.events))
      << Shortened(document) << '\n'
      << (ours.events.accepted ? "" : ZtFaultText(ours.error.fault)) << '\n'
      << Told(ours.events) << "---\n"
      << Told(theirs.events);
}

TEST(StrictReader, AcceptsWhatIsWellFormed) {
  const char* const documents[] = {
      "<a/>",
      " \t\r\n<a />\n\n",
      "<a></a >",
      "<a\n\t></a\r\n>",
      "<a\xC3\xA4-._9\xC2\xB7 \xCE\xB1=''/>",
      // The declaration, instructions, comments and document types.
      "<?xml version='1.0'?><a/>",
      "<?xml\nversion = \"1.1\"\tencoding='utf-8' standalone= 'no' ?>\n<a/>",
      "<?xml version='' standalone='yes'?><a/>",
      "<?xml-stylesheet href='?'?><?p?><a><?xm ?x? ?></a><?xmlx ?>",
      "<!----><!-- - > <a> & - - -><a/> --><a/><!--->-->",
      "<!-- - <a> & --><a><!--\r\n--><!---->x<!----></a><!-- -->",
      "<!DOCTYPE a><a/>",
      "<!-- --><!DOCTYPE x:a SYSTEM 'a>[\"' ><x:a xmlns:x='u'/>",
      "<!DOCTYPE SYSTEM\tPUBLIC \"-//A//B'C\" '<'\n><a/>",
      // Texts.
      "<a>x<b/>y<c>z</c>&lt;&gt;&amp;&quot;&apos;</a>",
      "<a>]] > ]>]]&gt; > ]</a>",
      "<a>\r\n \r \n\r\r\n&#13;&#xA;&#x0D;\n</a>",
      "<a>&#65;&#x42;&#0000000000000000000067;&#xE4;&#x20AC;&#x1F600;&#x10fffF;&#9;&#xD7FF;</a>",
      "<a>a<![CDATA[]]><![CDATA[<b>&amp;\r\r\n]]]]><![CDATA[>]]>b<!-- -->c<?p q?>d</a>",
      "<a>\x7F \xC2\x85 \xEF\xBF\xBD \xF0\x9F\x98\x80 \xF0\x9F\xBF\xBE \xEF\xBB\xBF</a>",
      // Attributes.
      "<a b='1' c=\"2\" d = '>' e\n=\n'\"'/>",
      "<a b='\t\r\n\r \n x&#9;&#10;&#13;&#32;&lt;&apos;&quot;>]]>'/>",
      "<a b='0123456789abcdef0123456789abcdef&amp;0123456789abcdef\n0123456789abcdef'/>",
      "<a ab='' aab='' ba='' bab='' a.b='' a-b='' a_b=''/>",
      // Namespaces.
      "<a xmlns='u' b=''><b xmlns=''/><c xmlns='v'/><d/></a>",
      "<p:a xmlns:p='u' p:b='1' b='2'><p:b xmlns:p='v' p:b='3'/><p:c p:b='4'/></p:a>",
      "<a p:b='' q:b='' xmlns:p='u' xmlns:q='v'><b xmlns:q='u' p:c='' q:d=''/></a>",
      "<xml:a xml:lang='de' xml:b='' xmlns:xml='http://www.w3.org/XML/1998/namespace'/>",
      "<xmlx:a xmlns:xmlx=' u&#32;\t'/>",
      "<a xmlns:x='u' x:xmlns='' xmlnsx='' xml=''/>",
      "<a xmlns='http://www.w3.org/XML/1998/namespaces' xmlns:b='http://www.w3.org/2000/xmlns'/>",
  };
  for (const char* document : documents) ExpectAlike(document);
  ExpectAlike(std::string("<?xml version='1.0'?><a>") + std::string(100, '\r') + "</a>");
}

// '^' stands where the fault is.
TEST(StrictReader, RefusesWhatIsNot) {
  using Fault = ZtXmlFault;
  const struct {
    Fault fault;
    std::vector<const char*> documents;
  } kTable[] = {
      {Fault::kNoElement, {"^", " \n^", "<!-- -->^", "<?xml version='1.0'?>^", "<!DOCTYPE a>^"}},
      {Fault::kNotClosed, {"<a>^", "<a><b></b>x^", "<a>x]]^", "<a><!-- -->^"}},
      {Fault::kWrongEndTag,
       {"<a>^</b>", "<a>^</aa>", "<aa>^</a>", "<a><b>^</a></b>", "<a>^</ a>", "<a>^</>",
        "<a xmlns:p='u' xmlns:q='u'><p:b>^</q:b></a>", "<ab>^</a b>", "<a>^</a:>"}},
      {Fault::kBadName,
       {"<^>", "<^ a/>", "<^1a/>", "<^-a/>", "<^:a/>", "<a:^/>", "<a:^:b/>", "<a:^1/>", "<a ^/ >",
        "<a ^=''/>", "<a ^1=''/>", "<a b:^=''/>", "<a b:^:c=''/>", "<a>x<^</a>"}},
      {Fault::kBadTag,
       {"<a^<b/></a>", "<a/^ >", "<a b=''^c=''/>", "<a^&amp;/>", "<a b=''^\"/>", "<a^\xC3\x97/>"}},
      {Fault::kBadEndTag, {"<a></a ^b>", "<a></a\n^/>"}},
      {Fault::kNoEquals, {"<a b^/>", "<a b ^c=''/>", "<a b^''/>", "<a b:c^:d=''/>"}},
      {Fault::kNoQuote, {"<a b=^c/>", "<a b= ^>", "<a b==''/>"}},
      {Fault::kLessThanInValue,
       {"<a b='^<'/>", "<a b='x&lt;^<'/>", "<a xmlns='0123456789abcdef^<'/>"}},
      {Fault::kAttributeTwice,
       {"<a b='' ^b=''/>", "<a b='' c='' ^b=''/>", "<a xmlns='u' ^xmlns='v'/>",
        "<a xmlns:p='u' ^xmlns:p='u'/>", "<a xml:b='' ^xml:b=''/>",
        "<a p:b='' c='' xmlns:p='u' xmlns:q='u' ^q:b=''/>",
        "<a xmlns:p='u'><b xmlns:q='u' p:c='' ^q:c=''/></a>"}},
      {Fault::kUnboundPrefix,
       {"<^p:a/>", "<a ^p:b=''/>", "<a><b xmlns:p='u'/><^p:c/></a>", "<^xmlns:a/>",
        "<a xmlns:p='u'><p:b xmlns:q='v'/><c ^q:d=''/></a>"}},
      {Fault::kReservedPrefix, {"<a ^xmlns:xmlns='u'/>", "<a ^xmlns:xml='u'/>"}},
      {Fault::kReservedNamespace,
       {"<a ^xmlns:p='http://www.w3.org/XML/1998/namespace'/>",
        "<a ^xmlns='http://www.w3.org/XML/1998/namespace'/>",
        "<a ^xmlns:p='http://www.w3.org/2000/xmlns/'/>",
        "<a ^xmlns='http://www.w3.org/2000/xmlns&#x2F;'/>"}},
      {Fault::kNoNamespace, {"<a ^xmlns:p=''/>", "<a ^xmlns:xml=''/>"}},
      {Fault::kUndefinedEntity,
       {"<a>^&b;</a>", "<a b='^&LT;'/>", "<a>^&ampx;</a>", "<a>^&nbsp;</a>"}},
      {Fault::kBadReference,
       {"<a>&^ </a>", "<a>&^;</a>", "<a>&lt^ ;</a>", "<a>&a^:b;</a>", "<a>&#^;</a>", "<a>&#x^;</a>",
        "<a>&#^X41;</a>", "<a>&#6^A;</a>", "<a>&#x41^G;</a>", "<a b='&^'/>", "<a>&#^-1;</a>"}},
      {Fault::kBadCharacterReference,
       {"<a>^&#0;</a>", "<a>^&#8;</a>", "<a>^&#x1F;</a>", "<a>^&#xD800;</a>", "<a>^&#xDFFF;</a>",
        "<a>^&#xFFFE;</a>", "<a>^&#65535;</a>", "<a>^&#x110000;</a>", "<a b='^&#x100000041;'/>",
        "<a>^&#99999999999999999999;</a>"}},
      {Fault::kSectionEndInText, {"<a>^]]></a>", "<a>]^]]></a>", "<a>0123456789abcdef^]]></a>"}},
      {Fault::kBadComment, {"<!-- --^ --><a/>", "<a><!----^-</a>", "<a><!----^-></a>"}},
      {Fault::kBadInstruction,
       {"<?^?><a/>", "<?^ p?><a/>", "<?p^:q?><a/>", "<?p?^q?><a/>", "^<?XML version='1.0'?><a/>",
        "<a>^<?xMl?></a>", "<?^1?><a/>"}},
      {Fault::kBadDeclaration,
       {"<?xml^?><a/>", "^<?xml/ version='1.0'?><a/>", "<?xml ^encoding='UTF-8'?><a/>",
        "<?xml version^?><a/>", "<?xml version='1.0'^encoding='UTF-8'?><a/>",
        "<?xml version='1^ 0'?><a/>", "<?xml version='1.0' encoding='^'?><a/>",
        "<?xml version='1.0' encoding='^8'?><a/>", "<?xml version='1.0' standalone='maybe'^?><a/>",
        "<?xml version='1.0' standalone=^yes?><a/>",
        "<?xml version='1.0' standalone='no' ^encoding='UTF-8'?><a/>",
        "<?xml version='1.0'^><a/>"}},
      {Fault::kMisplacedDeclaration,
       {" ^<?xml version='1.0'?><a/>", "<a>^<?xml version='1.0'?></a>",
        "<?xml version='1.0'?>^<?xml version='1.0'?><a/>"}},
      {Fault::kBadMarkup,
       {"^<!doctype a><a/>", "<a>^<!x></a>", "<a>^<![cdata[]]></a>", "^<![CDATA[]]><a/>", "^</a>",
        "^<!ELEMENT a><a/>", "^<!- --><a/>"}},
      {Fault::kTextBeforeRoot, {"^x<a/>", " ^&lt;<a/>", "^]<a/>", "\xEF\xBB\xBF^\xEF\xBB\xBF<a/>"}},
      {Fault::kJunkAfterRoot, {"<a/>^x", "<a/>^<b/>", "<a></a>^</a>", "<a/>^&#32;", "<a/>^>"}},
      {Fault::kBadDocumentType,
       {"<!DOCTYPE^><a/>", "<!DOCTYPEx><a/>", "<!DOCTYPE a:^:b><a/>", "<!DOCTYPE ^'a'><a/>",
        "<!DOCTYPE a ^b><a/>", "<!DOCTYPE a SYSTEM^><a/>", "<!DOCTYPE a SYSTEM^'b'><a/>",
        "<!DOCTYPE a SYSTEM ^b><a/>", "<!DOCTYPE a SYSTEM 'b' ^'c'><a/>",
        "<!DOCTYPE a PUBLIC 'b'^><a/>", "<!DOCTYPE a PUBLIC 'b'^'c'><a/>",
        "<!DOCTYPE a PUBLIC '^{' 'c'><a/>", "<!DOCTYPE a PUBLIC ' ^\t' 'c'><a/>",
        "<!DOCTYPE a PUBLIC^K 'b' 'c'><a/>"}},
      {Fault::kMisplacedDocumentType,
       {"<!DOCTYPE a>^<!DOCTYPE a><a/>", "<a>^<!DOCTYPE a></a>", "<a/>^<!DOCTYPE a>"}},
  };
  std::set<std::string> sentences;
  for (const auto& row : kTable) {
    const char* const sentence = ZtFaultText(row.fault);
    EXPECT_TRUE(sentence && sentences.insert(sentence).second) << row.documents[0];
    for (const char* marked : row.documents) {
      const std::string text = marked;
      const std::size_t at = text.find('^');
      const bool isMarked = at != std::string::npos;
      const std::string document = isMarked ? text.substr(0, at) + text.substr(at + 1) : text;
      const StrictReading ours(document);
      EXPECT_EQ(ours.error.fault, row.fault)
          << marked << '\n'
          << (ours.events.accepted ? "accepted" : ZtFaultText(ours.error.fault));
      EXPECT_TRUE(!isMarked || ours.error.at + ours.form.mark.size == at)
          << marked << ' ' << ours.error.at;
      EXPECT_FALSE(ExpatReading(document).events.accepted) << marked;
    }
  }
}

// Cut before each of its bytes, a document has no element (n), one that is open (o), or something
// that is cut short (-); what could only become a word that is not expected is told as such (!).
TEST(StrictReader, TellsWhatIsCutShort) {
  const std::string document =
      "<?xml version='1.0'?> <?p x?><!-- - --><!DOCTYPE ab SYSTEM 'c'> "
      "<ab b = '&amp;' c=\"\">x<c/>&#x41;&lt;<!-- --><![CDATA[]]><?p?>]]</ab >";
  std::string told;
  for (std::size_t size = 0; size < document.size(); ++size) {
    const std::string text = document.substr(0, size);
    const StrictReading ours(text);
    const ZtXmlFault fault = ours.error.fault;
    told += fault == ZtXmlFault::kNoElement   ? 'n'
            : fault == ZtXmlFault::kNotClosed ? 'o'
            : fault == ZtXmlFault::kCutShort  ? '-'
                                              : '!';
    EXPECT_TRUE(told.back() == '!' || ours.error.at == size) << text;
    EXPECT_FALSE(ExpatReading(text).events.accepted) << text;
  }
  EXPECT_EQ(told,
            "n------!!!!!!-------!nn------n---------n-------------!!!!!-----n"
            "n--------------------oo---o-----o---o-------o-----------o----ooo-----");
}

// What Expat takes because it reads more than this reader.
TEST(StrictReader, KnowsNoDefinitions) {
  for (const char* document :
       {"<!DOCTYPE a []><a/>", "<!DOCTYPE a SYSTEM 'b' [<!ENTITY c 'd'>]><a/>",
        "<!DOCTYPE a[<!-- ]> -->]><a/>"}) {
    EXPECT_EQ(StrictReading(document).error.fault, ZtXmlFault::kInternalSubset) << document;
    EXPECT_TRUE(ExpatReading(document).events.accepted) << document;
  }
  const char* const undefined = "<!DOCTYPE a SYSTEM 'b'><a>&c;</a>";
  EXPECT_EQ(StrictReading(undefined).error.fault, ZtXmlFault::kUndefinedEntity);
}

TEST(StrictReader, TellsWhatAFaultContradicts) {
  const struct {
    const char* document;
    std::size_t other;
  } kTable[] = {{"<a><b></b><c ></d></a>", 10},
                {"<a><b>", 3},
                {"<a b='1' c='2' b='3'/>", 3},
                {"<a><b x='", 3},
                {"<a><!-- ", 3},
                {"<a>&b;</a>", ZtXmlError::kNowhere}};
  for (const auto& row : kTable) {
    EXPECT_EQ(StrictReading(row.document).error.other, row.other) << row.document;
  }
}

TEST(StrictReader, ReadsDocumentsOfTheFieldAlike) {
  int count = 0;
  for (const char* directory : {ZTXML_DOCUMENTS_DIR, ZTXML_GOLDEN_DIR}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory)) {
      if (entry.path().extension() != ".xml") continue;
      std::ifstream file(entry.path());
      const std::string text(std::istreambuf_iterator<char>(file), {});
      SCOPED_TRACE(entry.path());
      const ExpatReading theirs(text);
      if (theirs.events.accepted) {
        ExpectAlike(text);
        ++count;
      } else {
        EXPECT_FALSE(StrictReading(text).events.accepted);
      }
    }
  }
  EXPECT_GT(count, 100);
}

// A character at every edge of the classes, and one of some beside them.
TEST(StrictReader, KnowsTheCharactersOfNames) {
  const auto document = [](const char* before, std::uint32_t c) {
    char bytes[4];
    return std::string("<") + before + std::string(bytes, ZtPutUtf8(bytes, c)) + "/>";
  };
  for (const char* before : {"", "a"}) {
    bool last = false;
    for (std::uint32_t c = 0x80; c < 0x10800; ++c) {
      if (!ZtIsXmlCharacter(c)) continue;
      const bool takes = *before ? ZtContinuesName(c) : ZtBeginsName(c);
      if (takes != last || c % 31 == 0) {
        EXPECT_EQ(ExpatReading(document(before, c)).events.accepted, takes) << std::hex << c;
        EXPECT_EQ(StrictReading(document(before, c)).events.accepted, takes) << std::hex << c;
        if (c > 0x80 && ZtIsXmlCharacter(c - 1)) {
          EXPECT_EQ(ExpatReading(document(before, c - 1)).events.accepted, last) << std::hex << c;
        }
      }
      last = takes;
    }
  }
}

// ---- What only this reader tells --------------------------------------------------------------

struct Reading {
  explicit Reading(std::string document, const std::vector<ZtPiece>& known = KnownSpaces())
      : source(document),
        text(std::move(document)),
        reader(known.data(), static_cast<unsigned>(known.size())) {
    reader.Begin(text.data(), text.size());
  }
  // The tokens' sources, kinds and depths.
  std::string Tokens() {
    std::string told;
    for (ZtToken token = reader.Next(); token < ZtToken::kDone; token = reader.Next()) {
      const char* const kinds[] = {"<", ">", reader.IsCData() ? "c" : "t"};
      told += kinds[static_cast<int>(token)] + std::to_string(reader.Depth()) +
              source.substr(reader.From(), reader.To() - reader.From());
      if (token == ZtToken::kText) told += "=" + Words(reader.Text());
      if (token == ZtToken::kStart && reader.IsEmpty()) told += "(empty)";
      told += '\n';
    }
    return told + std::to_string(reader.From());
  }

  const std::string source;
  std::string text;
  ZtXmlReader reader;
};

TEST(StrictReader, TellsWhereTokensAreInTheSource) {
  Reading reading(
      "<?p?><a b = 'c'>x&lt;y<!-- z -->\r\n<b\n/><![CDATA[<]]&]]>]<c></c ><![CDATA[]]></a>\n");
  EXPECT_SAME(
      reading.Tokens(),
      "<1<a b = 'c'>\nt1x&lt;y=x<y\nt1\r\n=\n\n<2<b\n/>(empty)\n>2\nc1<![CDATA[<]]&]]>=<]]&\n"
      "t1]=]\n<2<c>\n>2</c >\nc1<![CDATA[]]>=\n>1</a>\n" +
          std::to_string(reading.source.size()));
  EXPECT_EQ(reading.reader.Next(), ZtToken::kDone);

  Reading values("<a xmlns:p='u' b='1&lt;\n2' p:c = \"&#65;\"/>");
  ASSERT_EQ(values.reader.Next(), ZtToken::kStart);
  ASSERT_EQ(values.reader.AttributeCount(), 2U);
  std::string told;
  for (const ZtXmlAttribute* a = values.reader.Attributes(); a != values.reader.Attributes() + 2;
       ++a) {
    EXPECT_EQ(a->value.text[a->value.size], '\0');
    told += values.source.substr(a->from, a->valueTo - a->from) + "|" +
            values.source.substr(a->valueFrom, a->valueTo - a->valueFrom) + "|" + Words(a->value) +
            "|" + std::to_string(a->name.space) + "\n";
  }
  EXPECT_SAME(told, "b='1&lt;\n2|1&lt;\n2|1< 2|0\np:c = \"&#65;|&#65;|A|2\n");
}

TEST(StrictReader, FindsPrefixesInScope) {
  Reading reading(
      "<a xmlns='u' xmlns:p='f'><b xmlns:p='u' xmlns:q='u'><c xmlns='' xmlns:q='g' xmlns:r='f'/>"
      "<d xmlns:p='g'/></b></a>");
  // At each tag: the namespace of 'p', then the prefixes of 'u' ('-' the default one, '!' none),
  // with the default one and without, then of 'f'.
  const auto prefix = [&](const char* uri, bool orDefault) -> std::string {
    ZtPiece found = nullptr;
    for (ZtSpace space = 1; space < 10; ++space) {
      if (Words(reading.reader.Scope().Uri(space)) != uri) continue;
      if (!reading.reader.Scope().PrefixOf(space, orDefault, found)) continue;
      return found.text ? Words(found) : "-";
    }
    return "!";
  };
  std::string told;
  while (reading.reader.Next() < ZtToken::kDone) {
    const ZtNamespaceScope& scope = reading.reader.Scope();
    told += (reading.reader.Token() == ZtToken::kStart ? '<' : '>') +
            Words(reading.reader.Name().local) + ' ' + Words(scope.Uri(scope.SpaceOf("p"))) + ' ' +
            prefix("u", true) + prefix("u", false) + prefix("f", false) + '\n';
  }
  EXPECT_SAME(told,
              "<a f -!p\n<b u qq!\n<c u ppr\n>c u ppr\n<d g qq!\n>d g qq!\n>b u qq!\n>a f -!p\n");
  EXPECT_EQ(reading.reader.Scope().SpaceOf("p"), kZtNone);
  EXPECT_EQ(reading.reader.Scope().SpaceOf("xml"), 3U);
}

// ---- Many of everything -------------------------------------------------------------------------

// With a cost that grows with the square of the size, each of these would take minutes.
TEST(StrictReader, TakesManyOfEverything) {
  constexpr int kMany = 40000;
  const auto many = [](const auto& part) { return Repeated(kMany, part); };
  const std::string prefixes = many([](auto i) { return " xmlns:p" + i + "='u" + i + "'"; });
  const std::string sameSpace = many([](auto i) { return " xmlns:p" + i + "='u'"; });
  const std::string uses = many([](auto i) { return "<p" + i + ":b p" + i + ":c=''/>"; });
  const std::string attributes = many([](auto i) { return " b" + i + "=''"; });
  const std::string opened = many([](auto i) { return "<a xmlns:p='" + i + "'>"; });
  const std::string closed = many([](auto) { return "</a>"; });
  const struct {
    const char* what;
    std::string document;
    bool accepted;
  } kTable[] = {
      {"prefixes", "<a" + prefixes + ">" + uses + "</a>", true},
      {"prefixes of one namespace", "<a" + sameSpace + ">" + uses + "</a>", true},
      {"attributes", "<a" + attributes + "/>", true},
      {"one of many twice", "<a" + attributes + " b7=''/>", false},
      {"a prefix of many twice", "<a" + prefixes + " xmlns:p7=''/>", false},
      {"depth", opened + closed, true},
      {"texts", "<a>" + many([](auto) { return "x<!---->"s; }) + "</a>", true},
      {"references", "<a>" + many([](auto) { return "x&lt;"s; }) + "</a>", true},
      {"brackets", "<a>" + std::string(kMany, ']') + "</a>", true},
      {"unclosed tags", many([](auto) { return "<a"s; }), false},
      {"unclosed", many([](auto) { return "<a>"s; }), false},
  };
  for (const auto& row : kTable) {
    const StrictReading ours(row.document);
    EXPECT_EQ(ours.events.accepted, row.accepted) << row.what;
    if (row.accepted) ExpectAlike(row.document);
  }
  // All prefixes but one are shadowed: asking again and again must not pass over them each time.
  Reading reading("<a" + sameSpace + "><b" + prefixes + ">" + uses + "</b></a>");
  int found = 0;
  for (ZtToken token = reading.reader.Next(); token < ZtToken::kDone;
       token = reading.reader.Next()) {
    ZtPiece prefix = nullptr;
    found += reading.reader.Scope().PrefixOf(2, true, prefix);
  }
  EXPECT_EQ(reading.reader.Token(), ZtToken::kDone);
  EXPECT_EQ(found, 2);  // the tags of the root
}

// Everything beyond what lies in the reader itself.
std::string LargeDocument() {
  const auto declared = Repeated(20, [](auto i) { return " xmlns:p" + i + "='u" + i + "'"; });
  return "<a" + declared + Repeated(40, [](auto i) { return " b" + i + "=''"; }) + ">" +
         Repeated(40, [](auto) { return "<b>"s; }) + Repeated(40, [](auto) { return "</b>"s; }) +
         "</a>";
}

TEST(StrictReader, ToleratesFailingAllocations) {
  const std::string document = LargeDocument();
  ExpectWholeOrNothing([&] {
    const StrictReading reading(document);
    return reading.error.fault == ZtXmlFault::kOutOfMemory ? "(null)" : Told(reading.events);
  });
}

TEST(StrictReader, AllocatesNothingForDocumentsOfTheField) {
  for (const auto& entry : std::filesystem::directory_iterator(ZTXML_DOCUMENTS_DIR)) {
    std::ifstream file(entry.path());
    const std::string text(std::istreambuf_iterator<char>(file), {});
    zthost::CountAllocations();
    const StrictReading reading(text);
    EXPECT_EQ(zthost::AllocationCount(), 0) << entry.path();
  }
  zthost::CountAllocations();
  const StrictReading reading(LargeDocument());
  EXPECT_TRUE(reading.events.accepted);
  EXPECT_GT(zthost::AllocationCount(), 4);
  zthost::FailAllocation(0);
}

}  // namespace
