// The cost of reading, writing and updating is linear in the size of the document: one eight times
// as large takes at most 24 times as long, where a quadratic cost would take 64 times.
#include <ctime>
#include <functional>

#include "DocumentSupport.h"
#include "ztxml/conference_info.h"
#include "ztxml/resource_lists.h"

namespace {

std::string Lists(const std::string& content, const std::string& attributes = "") {
  return "<resource-lists xmlns='urn:ietf:params:xml:ns:resource-lists'><list" + attributes + ">" +
         content + "</list></resource-lists>";
}

zt_listType& FirstList(zt_resource_lists& root) { return *EntryOf(root.getListListValue()); }

void AddNew(zt_listType& list) { ztxml::Add(list, &zt_listType::addEntry)->setUriValue("sip:new"); }

// The entries of the list, which are taken out of it.
std::vector<XMLElement*> Taken(zt_listType& list) {
  std::vector<XMLElement*> all;
  for (XMLElement& element : ztxml::Each(list.getAnyElementValue())) {
    all.push_back(&element);
    list.getAnyElementValue()->Remove(&element);
  }
  return all;
}

struct Case {
  const char* name;
  std::size_t size;  // of the smaller document
  std::string (*document)(std::size_t size);
  void (*change)(zt_listType& list, std::size_t size);  // null: it is not
};

std::string Flat(std::size_t n) {
  return Lists(Repeated(n, [](const std::string& i) {
    return "\n<entry uri='sip:" + i + "&amp;'><!-- " + i + " --></entry>";
  }));
}
std::string Deep(std::size_t n) {
  return Lists(Repeated(n, [](const std::string& i) { return "<list name='" + i + "'>"; }) +
               Repeated(n, [](const std::string&) { return "</list>"; }));
}

const Case kCases[] = {
    {"unchanged", 2000, Flat, nullptr},
    {"reversed", 2000, Flat,
     [](zt_listType& list, std::size_t) {
       const std::vector<XMLElement*> all = Taken(list);
       for (std::size_t i = all.size(); i-- > 0;) list.addAnyElement(all[i]);
     }},
    {"every other one replaced by two new ones", 2000, Flat,
     [](zt_listType& list, std::size_t) {
       bool stays = false;
       for (XMLElement* one : Taken(list)) {
         stays = !stays;
         if (stays) {
           list.addAnyElement(one);
           continue;
         }
         XMLFactory::DeleteElement(one);
         for (int i = 0; i < 2; ++i) AddNew(list);
       }
     }},
    {"one in another, the innermost changed", 1250, Deep,
     [](zt_listType& list, std::size_t n) {
       zt_listType* inner = &list;
       for (; n; --n) inner = EntryOf<zt_listType>(inner->getAnyElementValue());
       inner->setNameValue("innermost");
       AddNew(*inner);
     }},
    {"many prefixes and attributes, as many new", 1250,
     [](std::size_t n) {
       return Lists("", Repeated(n, [](const std::string& i) {
                      return " xmlns:p" + i + "='urn:" + i + "' p" + i + ":a='1' a" + i + "='2'";
                    }));
     },
     [](zt_listType& list, std::size_t n) {
       for (std::size_t i = 0; i < n; ++i) {
         const std::string name = (i % 2 ? "b" : "xmlns:q") + std::to_string(i);
         list.addAnyAttribute(zt_xml_common_methods::CreateAttribute(name.c_str(), "urn:x"));
       }
     }},
    {"elements with prefixes of their own, each with a new child", 1250,
     [](std::size_t n) {
       return Lists(Repeated(n, [](const std::string& i) {
         return "<e:entry xmlns:e='urn:ietf:params:xml:ns:resource-lists' uri='" + i + "'/>";
       }));
     },
     [](zt_listType& list, std::size_t) {
       for (auto& entry : ztxml::Each<zt_entryType>(list.getAnyElementValue())) {
         ztxml::Add(entry, &zt_entryType::setDisplayNameValue);
       }
     }},
    {"a text in many pieces", 12500,
     [](std::size_t n) {
       return Lists("<entry uri='u'><display-name>" +
                    Repeated(n, [](const std::string&) { return "a<![CDATA[b]]><!-- -->"; }) +
                    "</display-name></entry>");
     },
     [](zt_listType& list, std::size_t) {
       auto* entry = EntryOf<zt_entryType>(list.getAnyElementValue());
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

void ExpectLinear(const char* name, std::size_t size,
                  const std::function<void(const std::string& text, std::size_t size)>& run,
                  const std::function<std::string(std::size_t)>& document) {
  const auto cost = [&](std::size_t n) {
    const std::string text = document(n);
    return SecondsOf([&] { run(text, n); });
  };
  double small = 0;
  double large = 0;
  // A machine that does other work may slow one of the two down; it does not do so each time.
  for (int attempt = 0; attempt < 4 && large >= 24 * small; ++attempt) {
    small = cost(size);
    large = cost(8 * size);
  }
  EXPECT_LT(large, 24 * small) << name << ": " << small << " s, " << large << " s";
}

TEST(StandardCost, IsLinear) {
  zthost::EnableMemoryLog(false);
  for (const Case& c : kCases) {
    const auto run = [&](const std::string& text, std::size_t size) {
      auto read = ztxml::Read<zt_resource_lists>(text);
      ASSERT_TRUE(read) << c.name;
      if (c.change) c.change(FirstList(**read), size);
      const auto updated = read->Update();
      ASSERT_TRUE(updated) << c.name;
      EXPECT_EQ(*updated == text, c.change == nullptr) << c.name;
      EXPECT_TRUE(read->Write()) << c.name;
    };
    ExpectLinear(c.name, c.size, run, c.document);
  }
}

TEST(StandardCost, OfLossesIsLinear) {
  const auto document = [](std::size_t size) {
    return "<conference-info xmlns='urn:ietf:params:xml:ns:conference-info'><users>" +
           Repeated(size,
                    [](const std::string&) {
                      return "<user><endpoint><status a='1'>none<x/></status></endpoint></user>";
                    }) +
           "</users></conference-info>";
  };
  const auto run = [](const std::string& text, std::size_t size) {
    auto read = ztxml::Read<zt_conference_type>(text, ztxml::ReadOnly().NotingLosses());
    EXPECT_TRUE(read && read->Lost().size() == 3 * size);
  };
  ExpectLinear("losses", 500, run, document);
}

}  // namespace
