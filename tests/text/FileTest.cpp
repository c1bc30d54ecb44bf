#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "TestSupport.h"
#include "ztxml/XMLFile.h"

namespace {

using Lines = std::vector<std::string>;

class XmlFiles : public testing::Test {
 protected:
  void SetUp() override { ASSERT_NE(mkdtemp(directory_.data()), nullptr); }
  void TearDown() override { std::filesystem::remove_all(directory_); }
  std::string Path(const std::string& name) const { return directory_ + '/' + name; }
  // "line text" of each line since the last call.
  Lines Logged() {
    Lines lines;
    for (const CapturedLine& line : log_.Lines()) {
      EXPECT_TRUE(line.file == "src/XMLFile" && line.module == 6070 && line.level == 2);
      lines.push_back(std::to_string(line.line) + ' ' + line.text);
    }
    log_.Clear();
    return lines;
  }

  std::string directory_ = testing::TempDir() + "ztxmlXXXXXX";
  LogCapture log_;
  const std::string noName_ = "144 XMLFile::Init() - invalid filename";
  const std::string notOpen_ = "108 XMLFile::Read()- File Opening failed";
  const std::string noMemory_ = "94 XMLFile::Read() - m_pFileData - Malloc cannot allocate memory";
  const std::string read_ = "84 XMLFile::Read() - Successful";
  const std::string notRead_ = "88 XMLFile::Read() - UnSuccessful";
};

// The lowest free descriptor, which changes when a file is left open.
int FreeDescriptor() {
  const int descriptor = open("/dev/null", O_RDONLY);
  return close(descriptor) == 0 ? descriptor : -1;
}

TEST_F(XmlFiles, ReadsWholeFilesAgainAndAgain) {
  const int descriptor = FreeDescriptor();
  XMLFile file(Path("file").c_str(), XML_FILE_READ);
  EXPECT_EQ(file.CloseFile(), 1);
  for (const std::string& text : {std::string("<a>\0</a>", 8), std::string(100000, 'x')}) {
    std::ofstream(Path("file")) << text;
    const char* data = file.Read();
    ASSERT_NE(data, nullptr);
    EXPECT_SAME(std::string(data, text.size() + 1), text + '\0');
    EXPECT_SAME(Logged(), Lines{read_});
  }
  EXPECT_EQ(FreeDescriptor(), descriptor + 1);  // the second opening has closed the first
  zthost::FailAllocation(1);
  EXPECT_EQ(file.Read(), nullptr);
  EXPECT_SAME(Logged(), Lines{noMemory_});
  EXPECT_EQ(FreeDescriptor(), descriptor);
  EXPECT_NE(file.Read(), nullptr);
  std::filesystem::remove(Path("file"));
  EXPECT_EQ(file.Read(), nullptr);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(file.CloseFile(), 1);
  EXPECT_EQ(FreeDescriptor(), descriptor);
}

// Like a file that shrinks while it is read: Linux claims the size of a page for this one.
TEST_F(XmlFiles, ReadsWhatAFileHasOfItsSize) {
  const char kPath[] = "/sys/devices/system/cpu/online";
  if (!std::filesystem::exists(kPath)) GTEST_SKIP();
  XMLFile file(kPath, XML_FILE_READ);
  const char* data = file.Read();
  ASSERT_NE(data, nullptr);
  EXPECT_NE(*data, '\0');
  EXPECT_SAME(Logged(), Lines{read_});
}

TEST_F(XmlFiles, RefusesToReadWhatIsNoDocument) {
  ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0600), 0);
  for (const char* name : {"empty", "huge"}) std::ofstream(Path(name)).close();
  std::filesystem::resize_file(Path("huge"), std::uintmax_t{INT_MAX} + 1);
  const int descriptor = FreeDescriptor();
  const std::string init = " XMLFile::Init() - ", error = "152" + init + "Error opening file [";
  const struct {
    const char* name;
    int mode;
    Lines lines;
  } cases[] = {
      {"none", 0, {error + "2]", notOpen_}},
      {"", 0, {error + "21]", notOpen_}},
      {"fifo", 0, {error + "95]", notOpen_}},
      {"empty", 0, {notRead_}},
      {"huge", 0, {noMemory_}},
      {"empty", 7, {"101 XMLFile::Read() - Error pSpecificInfo is NULL"}},
      {"none/x", 1, {"179" + init + "Unable to open file for write [2] ", notOpen_}},
      {"none/x", 2, {"206" + init + "Unable to open file for Read and Write [2] ", notOpen_}},
      {"empty", 2, {"202" + init + "Opened file ", notRead_}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    XMLFile file(Path(c.name).c_str(), static_cast<eXMLFileAccessMode>(c.mode));
    EXPECT_EQ(file.Read(), nullptr);
    EXPECT_SAME(Logged(), c.lines);
    EXPECT_EQ(FreeDescriptor(), descriptor) << "closed by itself";
  }
  zthost::FailAllocation(1);
  XMLFile nameless(nullptr, XML_FILE_READ), unnamed(Path("empty").c_str(), XML_FILE_WRITE);
  EXPECT_EQ(nameless.Read(), nullptr);
  EXPECT_SAME(Logged(), (Lines{noName_, notOpen_}));
  EXPECT_EQ(unnamed.Write("x"), 0);
  EXPECT_SAME(Logged(), (Lines{noName_, "128 XMLFile::Write - File Opening failed"}));
  EXPECT_EQ(XMLFile(Path("none").c_str(), static_cast<eXMLFileAccessMode>(7)).OpenFile(), 1);
}

TEST_F(XmlFiles, WritesByItsMode) {
  const std::string opened = " XMLFile::Init() - Opened file ";
  XMLFile write(Path("file").c_str(), XML_FILE_WRITE);
  XMLFile update(Path("file").c_str(), XML_FILE_READ_WRITE);
  XMLFile read(Path("file").c_str(), XML_FILE_READ);
  EXPECT_EQ(write.Write(nullptr), 0);
  EXPECT_EQ(read.Write("x"), 0);
  Logged();
  for (const char* text : {"long text", "abcdef"}) EXPECT_EQ(write.Write(text), 1);
  EXPECT_SAME(Logged(), (Lines{"175" + opened, "175" + opened}));
  EXPECT_STREQ(read.Read(), "abcdef");
  EXPECT_EQ(update.Write("xy"), 1);
  EXPECT_STREQ(update.Read(), "xycdef");
  EXPECT_SAME(Logged(), (Lines{read_, "202" + opened, "202" + opened, read_}));
  EXPECT_EQ(read.Write("z"), 0);
  EXPECT_SAME(Logged(), Lines{"122 XMLFile::Write - File Writing failed"});
  EXPECT_STREQ(read.Read(), "xycdef");
  EXPECT_EQ(write.Write(""), 1);
  EXPECT_EQ(read.Read(), nullptr);
  for (XMLFile* file : {&write, &update, &read}) file->CloseFile();
}

}  // namespace
