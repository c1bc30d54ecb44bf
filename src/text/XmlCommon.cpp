#include "ztxml/XmlCommon.h"

#include "base/ZtMemory.h"

namespace {
constexpr char kSource[] = "src/XmlCommon";
constexpr char kWhiteSpace[] = " \t\r\n";
}  // namespace

void FreeElement(void* p) {
  if (p) __free(p);
}

BuddyLinkList* BuddyLinkList::Append(void* newData) {
  auto* node = new BuddyLinkList;
  if (!node) return nullptr;
  ZtRecord(kZtTagStackNode, kSource, __LINE__, node, sizeof(BuddyLinkList));
  node->data = newData;
  node->next = next;
  next = node;
  return node;
}

BuddyLinkList* BuddyLinkList::SeekEnd() {
  BuddyLinkList* node = this;
  while (node->next) node = node->next;
  return node;
}

BuddyLinkList* BuddyLinkList::RemoveLast() {
  if (!next) return nullptr;
  BuddyLinkList* before = this;
  while (before->next->next) before = before->next;
  BuddyLinkList* last = before->next;
  before->next = nullptr;
  return last;
}

void BuddyLinkList::FreeList(void (*release)(void*)) {
  BuddyLinkList* node = next;
  next = nullptr;
  while (node) {
    BuddyLinkList* following = node->next;
    if (release) release(node->data);
    Release(node);
    node = following;
  }
}

void BuddyLinkList::Release(BuddyLinkList* node) {
  if (!node) return;
  ZtWithdraw(kZtTagStackNode, node);
  delete node;
}

char* XmlCommon::LocateBeginElement(char* text) { return text ? __strchr(text, '<') : nullptr; }

char* XmlCommon::LocateEndElement(char* text) { return text ? __strchr(text, '>') : nullptr; }

char* XmlCommon::SkipSpaces(char* text) {
  return text ? text + std::strspn(text, kWhiteSpace) : nullptr;
}

char* XmlCommon::TrimSpaces(char* text) { return SkipSpaces(text); }

void XmlCommon::TrimRightSingle(char* text) {
  if (!text || !*text) return;
  char* last = text + __strlen(text) - 1;
  if (*last == ' ') *last = '\0';
}

char* XmlCommon::RemoveQuotes(char* text) {
  if (!text) return nullptr;
  if (*text == '"') ++text;
  if (*text) {
    char* last = text + __strlen(text) - 1;
    if (*last == '"') *last = '\0';
  }
  return text;
}

bool XmlCommon::IsEmailFormat(const char* text) {
  return text && !__strstr(text, "aor=") && __strchr(text, '@');
}
