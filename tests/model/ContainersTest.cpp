#include <gtest/gtest.h>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "TestSupport.h"
#include "base/ZtMemory.h"
#include "ztxml/XMLCommonDef.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/XMLList.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"
#include "ztxml/XMLStack.h"
#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtHolders.h"

namespace {

using Lines = std::vector<std::string>;
const std::string kEmpty =
    "ZtSingleElementList::GetKeyAtIndex: Head itself is null and No item is there to be removed";

// "level text" of each line since the last call, with ":line" where the line matters.
Lines Logged(LogCapture& log, const std::set<int>& known = {}) {
  Lines lines;
  for (const CapturedLine& line : log.Lines()) {
    EXPECT_EQ(line.module, 6070);
    const std::string number = known.count(line.line) ? ':' + std::to_string(line.line) : "";
    lines.push_back(std::to_string(line.level) + number + ' ' + line.text);
  }
  log.Clear();
  return lines;
}

std::size_t Live() { return zthost::GetMemoryReport().live.size(); }

TEST(XmlList, AddsRemovesAndLogs) {
  char a = 0, b = 0, c = 0;
  LogCapture log;
  const std::string life = " <XML Module>: ZtSingleElementList::ZtSingleElementList";
  const std::string remove = " <XML Module> ZtSingleElementList::Remove: ";
  {
    ZtSingleElementList list;
    EXPECT_FALSE(list.GetKeyAtIndex(0) || list.GetPtrToListHead() || list.GetPtrToListEnd());
    EXPECT_EQ(list.Remove(&a), 0);
    EXPECT_SAME(Logged(log, {35, 238, 265}),
                (Lines{"3:35" + life, "4 " + kEmpty, "4:238 " + kEmpty, "4:265 " + kEmpty,
                       "3 <XML Module>: ZtSingleElementList::Remove",
                       "4" + remove + "Head itself is null"}));
    zthost::FailAllocation(1);
    EXPECT_EQ(list.Add(&a), 0);
    EXPECT_EQ(Logged(log).back(), "4 <XML Module>: ZtSingleElementList:Add m_pHead Buffer is NULL");
    for (void* data : {&a, &b, &a}) EXPECT_EQ(list.Add(data), 1);
    EXPECT_EQ(Logged(log).back(), "3 <XML Module>: m_iListCount: 3");
    EXPECT_TRUE(list.GetKeyAtIndex(1) == &b && !list.GetKeyAtIndex(3) && !list.GetPtrToListEnd());
    EXPECT_SAME(Logged(log), Lines{});
    EXPECT_EQ(list.GetKeyAtIndex(4), nullptr);
    EXPECT_SAME(Logged(log), Lines{"4 ZtSingleElementList::GetKeyAtIndex: Invalid index"});
    EXPECT_EQ(list.Remove(&a), 1);
    EXPECT_TRUE(list.GetKeyAtIndex(0) == &b && list.GetKeyAtIndex(1) == &a);
    // Adding works after the last entry was removed, and in a list that became empty.
    EXPECT_TRUE(list.Remove(&a) && list.Add(&c) && list.Remove(&b) && list.Remove(&c));
    EXPECT_TRUE(list.Add(nullptr) && list.Add(&c) && !list.Remove(nullptr));
    EXPECT_EQ(Logged(log).back(), "4" + remove + "Entry not found in the list");
    zthost::FailAllocation(1);
    EXPECT_EQ(list.Add(&a), 0);
    EXPECT_EQ(Logged(log)[1], "4 <XML Module>: ZtSingleElementList:Add pTravNode Buffer is NULL");
    EXPECT_TRUE(!list.GetKeyAtIndex(0) && list.GetKeyAtIndex(1) == &c && list.GetCount() == 2);
  }
  EXPECT_SAME(Logged(log, {56}), Lines{"3:56" + life});
}

TEST(XmlList, CountWrapsButNothingIsLost) {
  auto* list = ZtCreate<ZtSingleElementList>("test");
  for (int i = 0; i < 65536; ++i) list->Add(ZtCreate<zt_string>("test"));
  EXPECT_EQ(list->GetCount(), 0);
  EXPECT_TRUE(list->GetKeyAtIndex(0) && !list->GetKeyAtIndex(1));
  for (int i = 0; i < 4464; ++i) list->Add(nullptr);
  int nodes = 0;
  for (ZtListNode* node = list->GetPtrToListHead(); node; node = node->next) ++nodes;
  EXPECT_TRUE(nodes == 70000 && list->GetCount() == 4464);
  zt_xml_common_methods::DeleteElementList(list);
  EXPECT_EQ(Live(), 0u);
  LogCapture log;
  zt_xml_common_methods::DeleteElementList(nullptr);
  EXPECT_SAME(Logged(log, {238}), Lines{"4:238 " + kEmpty});
}

// ZtEach: entries of other classes, null entries and null lists do no harm, an empty list logs no
// line, and the loop may delete the entry that it is at.
TEST(XmlList, IsWalkedByItsType) {
  LogCapture log;
  SchemaNamespaceRetrievalDataBinder factory;
  auto* root = static_cast<zt_schema_namespace_retrieval*>(factory.CreateRootElement());
  ZtSingleElementList* words = zt_xml_common_methods::CreateElementList();
  log.Clear();
  for (zt_string& word : ZtEach<zt_string>(words)) ADD_FAILURE() << word.getValue();
  for (zt_AttributeValuePair& pair : ZtEach(root->getNameSpaceInfo())) ADD_FAILURE() << &pair;
  EXPECT_SAME(Logged(log),
              Lines{"3 <XML Module>: zt_schema_namespace_retrieval::getNameSpaceInfo"});

  XMLElement* flag = ZtCreate<zt_empty_element_type>("test");
  for (const char* text : {"a", "b", "c"}) {
    EXPECT_TRUE(words->Add(nullptr) && words->Add(zt_xml_common_methods::CreateString(text)));
  }
  words->Add(flag);
  std::string seen;
  for (zt_string& word : ZtEach<zt_string>(words)) {
    seen += word.getValue();
    if (seen == "a") continue;
    words->Remove(&word);
    XMLFactory::DeleteElement(&word);
  }
  EXPECT_EQ(seen, "abc");
  EXPECT_TRUE(words->GetCount() == 5 && ZtEach<XMLElement>(words).begin()->ClassName());
  zt_xml_common_methods::DeleteElementList(words);

  ZtSingleElementList* pairs = zt_xml_common_methods::CreateElementList();
  XMLAttribute* pair = zt_xml_common_methods::CreateAttribute("cp", "urn:x");
  EXPECT_TRUE(pairs->Add(nullptr) && pairs->Add(pair) && root->setNameSpaceInfo(pairs));
  for (const auto& declared : ZtEach(root->getNameSpaceInfo())) seen += declared.getName();
  EXPECT_EQ(seen, "abccp");
  XMLFactory::DeleteElement(root);
  EXPECT_EQ(Live(), 0u);
}

TEST(XmlStack, DropsWhatIsTooMuch) {
  LogCapture log;
  XmlCodeGenStack stack;
  char entries[101] = {};
  for (int round = 0; round < 2; ++round) {
    EXPECT_TRUE(stack.empty() && stack.size() == -1 && !stack.top());
    stack.pop();
    for (char& entry : entries) stack.push(&entry);
    EXPECT_SAME(Logged(log, {15, 29, 41}), (Lines{"2:41 stack is empty\n", "2:29 stack underflow\n",
                                                  "2:15 stack overflow\n"}));
    for (int i = 99; i >= 0; --i, stack.pop()) {
      ASSERT_TRUE(stack.size() == i && stack.top() == &entries[i] && !stack.empty()) << i;
    }
  }
}

using Names = zt_xml_common_array_definition;

// What the rows say is in the golden files.
TEST(XmlNames, EveryRowEnds) {
  EXPECT_STREQ(Names::getStringName(static_cast<e_XmlStrRef>(0)), "ZT_NULL");
  EXPECT_STREQ(Names::getStringName(static_cast<e_XmlStrRef>(266)),
               "urn:ietf:params:xml:ns:gruuinfo");
  ASSERT_EQ(sizeof(Names::arrXmlStrRef), 267u * 100u);
  for (const auto& row : Names::arrXmlStrRef) {
    ASSERT_TRUE(row[0] != '\0' && row[99] == '\0') << std::string(row, 80);
  }
}

TEST(XmlNames, OneInstanceIsShared) {
  Names* instance = Names::CreateArrayInstance();
  EXPECT_EQ(Names::CreateArrayInstance(), instance);
  ASSERT_EQ(Live(), 1u);
  const zthost::MemoryEntry entry = zthost::GetMemoryReport().live[0];
  EXPECT_EQ(entry.sourceFile, "src/XMLCommonDef");
  EXPECT_TRUE(entry.tag == 14 && entry.line == 304 && entry.size == 1);
  for (int i = 0; i < 2; ++i) Names::ReleaseArrayInstance();
  zthost::FailAllocation(1);
  EXPECT_EQ(Names::CreateArrayInstance(), nullptr);
  std::vector<std::thread> threads(4);
  for (std::thread& thread : threads) {
    thread = std::thread([] {
      int missing = 0;
      for (int i = 0; i < 20000; ++i, Names::ReleaseArrayInstance()) {
        missing += Names::CreateArrayInstance() == nullptr;
      }
      EXPECT_EQ(missing, 0);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(XmlValues, CopyTheirTexts) {
  zt_string text;
  zt_empty_element_type empty;
  zt_AttributeValuePair pair;
  EXPECT_EQ(std::string(pair.BaseClassName()) + ' ' + pair.ElementName(),
            "XMLAttribute AttributeValuePair");
  char name[] = "name";
  EXPECT_TRUE(text.ProcessUnMarshall(name, name, &empty) && pair.ReservedHook() == 0);
  EXPECT_TRUE(text.setValue(name) && pair.setName(name) && pair.setValue(name));
  name[0] = 'g';
  EXPECT_TRUE(text.setValue(text.getValue()));  // its own text is copied before it goes
  EXPECT_TRUE(pair.setName(nullptr) && pair.setValue(nullptr));
  EXPECT_EQ(std::string(text.getValue()) + pair.getName() + pair.getValue(), "namenamename");
  zthost::FailAllocation(1);
  EXPECT_TRUE(text.setValue(name) && !text.getValue());
  for (const char* value :
       {static_cast<const char*>(nullptr), "", "x", static_cast<const char*>(nullptr)}) {
    EXPECT_TRUE(empty.setValue(value) && empty.getPresentValue() == (value ? 1 : 0));
    EXPECT_STREQ(empty.getValue(), value);
  }
}

TEST(XmlHolders, OwnWhatTheyHold) {
  ZtChild child;
  XMLElement* first = ZtCreate<zt_string>("test");
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(child.Set(first) && child.Get() == first && Live() == 1);
  EXPECT_TRUE(child.Set(ZtCreate<zt_empty_element_type>("test")) && Live() == 1);
  EXPECT_TRUE(child.Set(nullptr) && Live() == 0);
  EXPECT_TRUE(child.Set(ZtCreate<zt_string>("test")));

  ZtAttributeList list;
  EXPECT_FALSE(list.Add(nullptr) || list.Get() || list.Head());
  auto* pair = ZtCreate<zt_AttributeValuePair>("test");
  for (const long failing : {1, 2}) {  // the list, its node
    zthost::FailAllocation(failing);
    EXPECT_FALSE(list.Add(pair) || list.Head());
  }
  EXPECT_TRUE(list.Add(pair) && list.Head()->data == static_cast<XMLAttribute*>(pair));
  EXPECT_TRUE(list.Set(list.Get()) && Live() == 3);
  auto* other = ZtCreate<ZtSingleElementList>("test");
  EXPECT_TRUE(list.Set(other) && list.Get() == other && Live() == 2);
  EXPECT_TRUE(list.Add(ZtCreate<zt_AttributeValuePair>("test")));
}

}  // namespace
