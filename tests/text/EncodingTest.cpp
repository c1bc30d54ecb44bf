// The encodings of documents, judged by Expat.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "StrictEvents.h"
#include "TestSupport.h"

namespace {

using namespace std::string_literals;

std::string Little(const std::u16string& text) { return Wide(text, false); }
std::string Big(const std::u16string& text) { return Wide(text, true); }

std::string Declared(const std::string& name) {
  return "<?xml version='1.0' encoding='" + name + "'?>";
}
std::u16string DeclaredWide(const std::u16string& name) {
  return u"<?xml version='1.0' encoding='" + name + u"'?>";
}

const std::string kMark = "\xEF\xBB\xBF";

TEST(Encodings, AreFoundAndDecoded) {
  const struct {
    std::string document;
    ZtEncoding encoding;
    std::size_t mark;
    std::string utf8;  // of the document; empty for what stands in it
  } kTable[] = {
      {"<a/>", ZtEncoding::kUtf8, 0, ""},
      {kMark + "<a>\xC3\xA4</a>", ZtEncoding::kUtf8, 3, "<a>\xC3\xA4</a>"},
      {Declared("utf-8") + "<a>\xF0\x9F\x98\x80</a>", ZtEncoding::kUtf8, 0, ""},
      {Declared("us-Ascii") + "<a/>", ZtEncoding::kAscii, 0, ""},
      {Declared("iso-8859-1") + "<a>\xE4\x80\xFF\x41</a>", ZtEncoding::kLatin1, 0,
       Declared("iso-8859-1") + "<a>\xC3\xA4\xC2\x80\xC3\xBF\x41</a>"},
      {kMark + Declared("ISO-8859-1") + "<a>\xE4</a>", ZtEncoding::kLatin1, 3,
       Declared("ISO-8859-1") + "<a>\xC3\xA4</a>"},
      {Little(u"<a b='\u00E4\u20AC\U0001F600'/>"), ZtEncoding::kUtf16Le, 0,
       "<a b='\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80'/>"},
      {Big(u" <a/>"), ZtEncoding::kUtf16Be, 0, " <a/>"},
      {Little(u"\uFEFF" + DeclaredWide(u"UTF-16") + u"<a/>"), ZtEncoding::kUtf16Le, 2,
       Declared("UTF-16") + "<a/>"},
      {Big(u"\uFEFF" + DeclaredWide(u"utf-16be") + u"<a>\uFEFF</a>"), ZtEncoding::kUtf16Be, 2,
       Declared("utf-16be") + "<a>" + kMark + "</a>"},
      {Little(DeclaredWide(u"UTF-16") + u"<a/>"), ZtEncoding::kUtf16Le, 0,
       Declared("UTF-16") + "<a/>"},
  };
  for (const auto& row : kTable) {
    const StrictReading ours(row.document);
    SCOPED_TRACE(row.document);
    EXPECT_EQ(ours.encodingFault, ZtEncodingFault::kNone);
    EXPECT_EQ(ours.form.encoding, row.encoding);
    EXPECT_EQ(ours.form.mark.size, row.mark);
    EXPECT_SAME(ours.text, row.utf8.empty() ? row.document : row.utf8);
    EXPECT_TRUE(AreAlike(ours, ExpatReading(row.document).events));
    // What was decoded is encoded again.
    std::string back(ZtEncodedSize({ours.text.data(), ours.text.size()}, row.encoding), '?');
    const char* const end =
        ZtEncode({ours.text.data(), ours.text.size()}, row.encoding, back.data());
    EXPECT_EQ(end, back.data() + back.size());
    EXPECT_SAME(Words(ours.form.mark) + back, row.document);
  }
}

TEST(Encodings, AreRefusedWithTheirPlace) {
  using Fault = ZtEncodingFault;
  const std::string latin = Declared("ISO-8859-1");
  const std::string ascii = Declared("US-ASCII");
  constexpr std::size_t kName = 30;  // where the name stands in a declaration
  const struct {
    std::string document;
    Fault fault;
    std::size_t at;
  } kTable[] = {
      {Declared("windows-1252") + "<a/>", Fault::kUnknown, kName},
      {Declared("ASCII") + "<a/>", Fault::kUnknown, kName},
      {Declared("UTF-1") + "<a/>", Fault::kUnknown, kName},
      {Declared("UTF-88") + "<a/>", Fault::kUnknown, kName},
      {Little(DeclaredWide(u"latin1") + u"<a/>"), Fault::kUnknown, kName},
      {Declared("UTF-16") + "<a/>", Fault::kContradicted, kName},
      {Declared("utf-16LE") + "<a/>", Fault::kContradicted, kName},
      {Little(DeclaredWide(u"UTF-8") + u"<a/>"), Fault::kContradicted, kName},
      {Little(DeclaredWide(u"UTF-16BE") + u"<a/>"), Fault::kContradicted, kName},
      {Big(u"\uFEFF" + DeclaredWide(u"US-ASCII") + u"<a/>"), Fault::kContradicted, kName},
      {ascii + "<a>\xC3\xA4</a>", Fault::kBadBytes, ascii.size() + 3},
      {latin + "<a>\xE4\x01</a>", Fault::kBadCharacter, latin.size() + 5},
      {"<a>\x1F</a>", Fault::kBadCharacter, 3},
      {"<a>\0</a>"s, Fault::kBadCharacter, 3},
      {"<a/>\0"s, Fault::kBadCharacter, 4},
      {"<a><!-- \xEF\xBF\xBE --></a>", Fault::kBadCharacter, 8},
      {Big(u"<a>\uFFFF</a>"), Fault::kBadCharacter, 3},
      {Little(u"<a>\u20AC\0</a>"s), Fault::kBadCharacter, 6},
      {Little(u"<a>\xDC00</a>"), Fault::kBadBytes, 3},
      {Little(u"<a/>") + "\n", Fault::kCutShort, 4},
      {"\xFF\xFE<", Fault::kCutShort, 0},
  };
  for (const auto& row : kTable) {
    const StrictReading ours(row.document);
    EXPECT_EQ(ours.encodingFault, row.fault) << row.document;
    EXPECT_NE(ZtFaultText(ours.encodingFault), nullptr);
    EXPECT_EQ(ours.faultAt, row.at) << row.document;
    EXPECT_FALSE(ExpatReading(row.document).events.accepted) << row.document;
  }
  // The first half of a character without the second one, which Expat lets pass.
  for (const auto* text : {u"<a>\xD800</a>", u"<a>\xD800\xD800\xDC00</a>", u"<a>\xD83D"}) {
    EXPECT_EQ(StrictReading(Big(text)).encodingFault, ZtEncodingFault::kBadBytes);
  }
}

// A name is one in every encoding, or in none: Expat takes three letters for such in all but UTF-8.
TEST(Encodings, DoNotChangeWhatNamesAre) {
  for (const char16_t letter : u"\u00AA\u00B5\u00BA"s) {
    const std::string narrow = std::string(1, static_cast<char>(letter)) + "/>";
    const std::string documents[] = {"<\xC2" + narrow, Declared("ISO-8859-1") + "<" + narrow,
                                     Little(u"<"s + letter + u"/>")};
    for (const std::string& document : documents) {
      EXPECT_EQ(StrictReading(document).error.fault, ZtXmlFault::kBadName) << document;
      EXPECT_EQ(ExpatReading(document).events.accepted, document != documents[0]) << document;
    }
  }
}

// At every distance from the ends of the blocks in which plain text is checked.
TEST(Encodings, AreCheckedByteByByte) {
  const char* const good[] = {"\t", "\n", "\r", "\x7F",
                              // The first and the last of two, three and four bytes.
                              "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                              "\xEE\x80\x80", "\xEF\xBF\xBD", "\xF0\x90\x80\x80",
                              "\xF4\x8F\xBF\xBF"};
  const char* const bad[] = {"\x01", "\x0B", "\x0E", "\xFE", "\xFF",
                             // No characters of XML.
                             "\xED\xA0\x80", "\xED\xBF\xBF", "\xEF\xBF\xBE", "\xEF\xBF\xBF",
                             "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
                             // Longer than need be.
                             "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF",
                             // Without their beginning or their end.
                             "\x80", "\xBF", "\xC2", "\xC2\xC2\x80", "\xE2\x82", "\xE2\x28\xA1",
                             "\xF0\x9F\x98"};
  for (std::size_t before = 0; before < 40; ++before) {
    const std::string head = "<a>" + std::string(before, 'x');
    for (const std::size_t after : {std::size_t{0}, 40 - before}) {
      const std::string tail = std::string(after, 'y') + "</a>";
      for (const char* bytes : good) {
        EXPECT_TRUE(StrictReading(head + bytes + tail).events.accepted)
            << testing::PrintToString(bytes);
      }
      for (const char* bytes : bad) {
        const StrictReading ours(head + bytes + tail);
        EXPECT_NE(ours.encodingFault, ZtEncodingFault::kNone) << testing::PrintToString(bytes);
        EXPECT_EQ(ours.faultAt, head.size()) << testing::PrintToString(bytes);
      }
    }
    for (const char* bytes : good) EXPECT_TRUE(ExpatReading(head + bytes + "</a>").events.accepted);
    for (const char* bytes : bad) EXPECT_FALSE(ExpatReading(head + bytes + "</a>").events.accepted);
  }
}

TEST(Encodings, ReferToWhatTheyLack) {
  const std::string text =
      "a\x7F\xC2\x80\xC3\xBF\xC4\x80\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF";
  const struct {
    ZtEncoding encoding;
    std::string bytes;
  } kTable[] = {
      {ZtEncoding::kUtf8, text},
      {ZtEncoding::kAscii, "a\x7F&#x80;&#xFF;&#x100;&#x20AC;&#x1F600;&#x10FFFF;"},
      {ZtEncoding::kLatin1, "a\x7F\x80\xFF&#x100;&#x20AC;&#x1F600;&#x10FFFF;"},
      {ZtEncoding::kUtf16Le, Little(u"a\x7F\x80\xFF\u0100\u20AC\U0001F600\U0010FFFF")},
      {ZtEncoding::kUtf16Be, Big(u"a\x7F\x80\xFF\u0100\u20AC\U0001F600\U0010FFFF")},
  };
  for (const auto& row : kTable) {
    std::string bytes(ZtEncodedSize({text.data(), text.size()}, row.encoding), '?');
    EXPECT_EQ(ZtEncode({text.data(), text.size()}, row.encoding, bytes.data()),
              bytes.data() + bytes.size());
    EXPECT_SAME(bytes, row.bytes);
  }
}

TEST(Encodings, TellPlacesInAnyOrder) {
  const std::u16string wide = u"<a>\r\n\u00E4\u20AC\U0001F600<b/>\r<c/>\n\n\r<d/></a>";
  const std::string narrow = "<a>\r\n\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80<b/>\r<c/>\n\n\r<d/></a>";
  const struct {
    std::size_t offset;
    std::size_t line;
    std::size_t column;
  } kTable[] = {{0, 1, 1}, {3, 1, 4},  {5, 2, 1},    {14, 2, 4}, {19, 3, 1},  {26, 6, 1},
                {5, 2, 1}, {30, 6, 5}, {1000, 6, 9}, {2, 1, 3},  {1000, 6, 9}};
  for (const std::string& document :
       {narrow, kMark + narrow, Little(wide), Big(u"\uFEFF" + wide)}) {
    const StrictReading reading(document);
    ZtPlaceFinder finder({document.data(), document.size()}, reading.form);
    for (const auto& row : kTable) {
      const ZtTextPlace place = finder.Find(row.offset);
      EXPECT_EQ(PlaceWords(place.line, place.column), PlaceWords(row.line, row.column));
    }
  }
}

}  // namespace
