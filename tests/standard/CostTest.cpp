// The cost of reading, writing and updating is linear in the size of the document: one eight times
// as large takes at most 24 times as long, where a quadratic cost would take 64 times.
#include <ctime>
#include <functional>

#include "StandardSupport.h"
#include "ztxml/XMLResourceList.h"

namespace {

std::string Times(std::size_t count, const std::function<std::string(const std::string&)>& each) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += each(std::to_string(i));
  return text;
}

std::string Lists(const std::string& attributes, const std::string& content) {
  return "<resource-lists xmlns='urn:ietf:params:xml:ns:resource-lists'" + attributes + "><list>" +
         content + "</list></resource-lists>";
}

zt_listType* FirstList(XMLElement& root) {
  return EntryOf<zt_listType>(static_cast<zt_resource_lists&>(root).getListListValue(), 0);
}
ZtSingleElementList* Entries(XMLElement& root) { return FirstList(root)->getAnyElementValue(); }

zt_entryType* NewEntry() {
  zt_entryType* entry = ResourceListsDataBinder().CreateEntryType();
  entry->setUriValue("sip:new");
  return entry;
}

std::vector<XMLElement*> Taken(ZtSingleElementList* list) {
  std::vector<XMLElement*> all;
  for (XMLElement& element : ZtEach<XMLElement>(list)) all.push_back(&element);
  for (XMLElement* element : all) list->Remove(element);
  return all;
}

struct Case {
  const char* name;
  std::size_t size;  // of the smaller document
  std::string (*document)(std::size_t size);
  void (*change)(XMLElement& root, std::size_t size);  // null: it is not
};

std::string Flat(std::size_t n) {
  return Lists("", Times(n, [](const std::string& i) {
                 return "\n<entry uri='sip:" + i + "&amp;'><!-- " + i + " --></entry>";
               }));
}
std::string Deep(std::size_t n) {
  return Lists("", Times(n, [](const std::string& i) { return "<list name='" + i + "'>"; }) +
                       Times(n, [](const std::string&) { return "</list>"; }));
}

const Case kCases[] = {
    {"unchanged", 2000, Flat, nullptr},
    {"reversed", 2000, Flat,
     [](XMLElement& root, std::size_t) {
       std::vector<XMLElement*> all = Taken(Entries(root));
       for (std::size_t i = all.size(); i-- > 0;) FirstList(root)->addAnyElement(all[i]);
     }},
    {"every other one removed", 2000, Flat,
     [](XMLElement& root, std::size_t) {
       const std::vector<XMLElement*> all = Taken(Entries(root));
       for (std::size_t i = 0; i < all.size(); ++i) {
         if (i % 2) {
           XMLFactory::DeleteElement(all[i]);
         } else {
           FirstList(root)->addAnyElement(all[i]);
         }
       }
     }},
    {"new ones between all", 2000, Flat,
     [](XMLElement& root, std::size_t) {
       for (XMLElement* one : Taken(Entries(root))) {
         FirstList(root)->addEntry(NewEntry());
         FirstList(root)->addAnyElement(one);
       }
     }},
    {"all replaced", 2000, Flat,
     [](XMLElement& root, std::size_t) {
       for (XMLElement* one : Taken(Entries(root))) {
         FirstList(root)->addEntry(NewEntry());
         XMLFactory::DeleteElement(one);
       }
     }},
    {"one in another, the innermost changed", 1250, Deep,
     [](XMLElement& root, std::size_t n) {
       zt_listType* list = FirstList(root);
       for (; n; --n) list = EntryOf<zt_listType>(list->getAnyElementValue(), 0);
       list->setNameValue("innermost");
       list->addEntry(NewEntry());
     }},
    {"many prefixes and attributes, as many new", 1250,
     [](std::size_t n) {
       return Lists(Times(n,
                          [](const std::string& i) {
                            return " xmlns:p" + i + "='urn:" + i + "' p" + i + ":a='1' a" + i +
                                   "='2'";
                          }),
                    "");
     },
     [](XMLElement& root, std::size_t n) {
       for (std::size_t i = 0; i < n; ++i) {
         const std::string name = (i % 2 ? "b" : "xmlns:q") + std::to_string(i);
         static_cast<zt_resource_lists&>(root).addAnyAttribute(
             zt_xml_common_methods::CreateAttribute(name.c_str(), "urn:x"));
       }
     }},
    {"elements with prefixes of their own, each with a new child", 1250,
     [](std::size_t n) {
       return Lists("", Times(n, [](const std::string& i) {
                      return "<e:entry xmlns:e='urn:ietf:params:xml:ns:resource-lists' uri='" + i +
                             "'/>";
                    }));
     },
     [](XMLElement& root, std::size_t) {
       for (zt_entryType& entry : ZtEach<zt_entryType>(Entries(root))) {
         entry.setDisplayNameValue(ResourceListsDataBinder().CreateDisplayNameType());
       }
     }},
    {"a text in many pieces", 12500,
     [](std::size_t n) {
       return Lists("", "<entry uri='u'><display-name>" + Times(n, [](const std::string&) {
                          return "a<![CDATA[b]]><!-- -->";
                        }) + "</display-name></entry>");
     },
     [](XMLElement& root, std::size_t) {
       auto* entry = EntryOf<zt_entryType>(Entries(root), 0);
       entry->getDisplayNameValue()->setValueValue("c");
     }},
};

// The shortest of three runs, in seconds of this thread.
double SecondsOf(const std::function<void()>& run) {
  double least = 0;
  for (int i = 0; i < 3; ++i) {
    timespec begin = {};
    timespec end = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &begin);
    run();
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &end);
    const double seconds = static_cast<double>(end.tv_sec - begin.tv_sec) +
                           1e-9 * static_cast<double>(end.tv_nsec - begin.tv_nsec);
    if (i == 0 || seconds < least) least = seconds;
  }
  return least;
}

double CostOf(const Case& c, std::size_t size) {
  const std::string text = c.document(size);
  return SecondsOf([&] {
    StandardSchema schema(XML_SCHEMA_RESOURCE_LISTS);
    const auto root = schema.Read<XMLElement>(text);
    EXPECT_TRUE(root) << c.name;
    if (!root) return;
    if (c.change) c.change(*root, size);
    const std::string updated = schema.Update(root.get());
    EXPECT_EQ(updated == text, c.change == nullptr) << c.name;
    EXPECT_NE(updated, "(null)") << c.name;
    EXPECT_NE(schema.Write(root.get()), "(null)") << c.name;
  });
}

TEST(StandardCost, IsLinear) {
  zthost::EnableMemoryLog(false);
  for (const Case& c : kCases) {
    double small = 0;
    double large = 0;
    // A machine that does other work may slow one of the two down; it does not do so each time.
    for (int attempt = 0; attempt < 4 && large >= 24 * small; ++attempt) {
      small = CostOf(c, c.size);
      large = CostOf(c, 8 * c.size);
    }
    EXPECT_LT(large, 24 * small) << c.name << ": " << small << " s, " << large << " s";
  }
}

TEST(StandardCost, OfLossesIsLinear) {
  const auto cost = [](std::size_t size) {
    const std::string text =
        "<conference-info xmlns='urn:ietf:params:xml:ns:conference-info'><users>" +
        Times(size,
              [](const std::string&) {
                return "<user><endpoint><status a='1'>none<x/></status></endpoint></user>";
              }) +
        "</users></conference-info>";
    return SecondsOf([&] {
      StandardSchema schema(XML_SCHEMA_CONFERENCE_INFO);
      std::size_t losses = 0;
      schema.Context().TellLosses(
          [](const ZtLoss& /*loss*/, void* count) { ++*static_cast<std::size_t*>(count); },
          &losses);
      EXPECT_TRUE(schema.Read<XMLElement>(text));
      EXPECT_EQ(losses, 3 * size);
    });
  };
  double small = 0;
  double large = 0;
  for (int attempt = 0; attempt < 4 && large >= 24 * small; ++attempt) {
    small = cost(500);
    large = cost(4000);
  }
  EXPECT_LT(large, 24 * small) << small << " s, " << large << " s";
}

}  // namespace
