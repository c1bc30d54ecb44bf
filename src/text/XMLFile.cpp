#include "ztxml/XMLFile.h"

#include <climits>

#include "base/ZtLog.h"

namespace {

constexpr char kSource[] = "src/XMLFile";
constexpr int kFileDevice = 2;  // the descriptor's type word
// Intended: the platform's read finds 1025 in its count at every call, however much is to be read;
// platform layers expect it there.
constexpr int kCountPreset = 1025;

// How a mode opens and what it logs, under the lines that log readers know. Intended: the lines
// about opening a file say "Init()", which no operation is called, and only the writing modes log
// their success.
struct OpenMode {
  int flags;
  int errorLine;
  const char* error;
  int openedLine;
};
constexpr OpenMode kOpenModes[] = {
    {3, 152, "XMLFile::Init() - Error opening file [%d]", 0},
    {4, 179, "XMLFile::Init() - Unable to open file for write [%d] ", 175},
    {5, 206, "XMLFile::Init() - Unable to open file for Read and Write [%d] ", 202},
};

void Log(int line, const char* text, int code = 0) {
  ZtLog(kZtLogTrace, kSource, line)(text, code);
}

}  // namespace

XMLFile::XMLFile(const char* fileName, eXMLFileAccessMode mode)
    : m_pFileName(fileName ? __strdup(fileName) : nullptr),
      m_pFileData(nullptr),
      m_eAccessMode(mode),
      m_Device() {
  m_Device.type = kFileDevice;
}

// Intended: an XMLFile that is deleted leaves its file open; callers close it with CloseFile first.
XMLFile::~XMLFile() {
  __free(m_pFileName);
  __free(m_pFileData);
}

int XMLFile::OpenFile() {
  if (!m_pFileName) {
    Log(144, "XMLFile::Init() - invalid filename");
    return 0;
  }
  // Intended: OpenFile answers 1 for an unknown mode, although it opens nothing; callers find out
  // when they read or write.
  if (m_eAccessMode < XML_FILE_READ || m_eAccessMode > XML_FILE_READ_WRITE) return 1;
  const OpenMode& mode = kOpenModes[m_eAccessMode];
  const int code = ztDplIODeviceOpen(&m_Device, m_pFileName, mode.flags, 0);
  if (code != 0) {
    Log(mode.errorLine, mode.error, code);
    return 0;
  }
  if (mode.openedLine) Log(mode.openedLine, "XMLFile::Init() - Opened file ");
  return 1;
}

char* XMLFile::Read() {
  __free(m_pFileData);
  m_pFileData = nullptr;
  if (!OpenFile()) {
    Log(108, "XMLFile::Read()- File Opening failed");
    return nullptr;
  }
  if (!m_Device.pSpecificInfo) {
    Log(101, "XMLFile::Read() - Error pSpecificInfo is NULL");
    CloseFile();
    return nullptr;
  }
  const auto size = m_Device.pSpecificInfo->size;
  if (size >= 0 && size < INT_MAX) {
    m_pFileData = static_cast<char*>(__malloc(static_cast<std::size_t>(size) + 1));
  }
  if (!m_pFileData) {
    Log(94, "XMLFile::Read() - m_pFileData - Malloc cannot allocate memory");
    CloseFile();
    return nullptr;
  }
  if (!ReadAll(static_cast<unsigned>(size))) {
    Log(88, "XMLFile::Read() - UnSuccessful");
    CloseFile();
    return nullptr;
  }
  Log(84, "XMLFile::Read() - Successful");
  return m_pFileData;
}

// Reads up to `size` bytes, in as many reads as the device needs: a file may have shrunk since it
// was opened, and what it grew by is left.
bool XMLFile::ReadAll(unsigned size) {
  unsigned total = 0;
  while (total < size) {
    int count = kCountPreset;
    const unsigned room = size - total;
    if (ztDplIODeviceRead(&m_Device, m_pFileData + total, room, &count) != 0) return false;
    if (count < 0 || static_cast<unsigned>(count) > room) return false;
    if (count == 0) break;
    total += static_cast<unsigned>(count);
  }
  m_pFileData[total] = '\0';
  m_iSize = total;
  return total > 0;
}

int XMLFile::Write(const char* text) {
  if (!text) return 0;
  if (!OpenFile()) {
    Log(128, "XMLFile::Write - File Opening failed");
    return 0;
  }
  const std::size_t size = __strlen(text);
  int written = size < INT_MAX ? static_cast<int>(size) : 0;
  if (size >= INT_MAX ||
      ztDplIODeviceWrite(&m_Device, text, static_cast<unsigned>(size), &written, 1) != 0 ||
      written != static_cast<int>(size)) {
    Log(122, "XMLFile::Write - File Writing failed");
    return 0;
  }
  return 1;
}

int XMLFile::CloseFile() {
  ztDplIODeviceClose(&m_Device);
  __free(m_pFileData);
  m_pFileData = nullptr;
  return 1;
}
