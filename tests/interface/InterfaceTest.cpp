// The C++ interface.
#include "ApiScript.h"
#include "DocumentSupport.h"
#include "Samples.h"
#include "reflect/Reflect.h"
#include "ztxml/ztHostPlatform.h"
#include "ztxml/ztxml.h"

namespace {

constexpr char kReginfo[] =
    "<reginfo xmlns='urn:ietf:params:xml:ns:reginfo' xmlns:g='urn:ietf:params:xml:ns:gruuinfo' "
    "version='0' state='full'><!-- a comment --><registration aor='sip:a' id='r' state='active'>"
    "<contact id='c' state='active' event='created' expires='0' x='y'><uri>sip:b</uri>"
    "<g:pub-gruu uri='sip:g'/><g:temp-gruu uri='sip:t' first-cseq='1'/></contact></registration>"
    "</reginfo>";

std::string Said(const ztxml::Error& error) { return error.Text(); }

// The document of which a type is the root, by the library's tables.
const ZtDocument* TableOf(const ZtElementType& type) {
  for (int id = 0; id < XML_SCHEMA_END; ++id) {
    reflect::Schema schema;
    if (!reflect::FindSchema(static_cast<eXMLSchemaID>(id), schema)) continue;
    for (const ZtRoot& root : schema.document->roots) {
      if (root.type == &type) return schema.document;
    }
  }
  return nullptr;
}

template <class T>
void ExpectRoot(const char* name) {
  const ZtDocument* table = nullptr;
  if constexpr (ztxml::RootOf<T>::kIsRoot) table = &ztxml::RootOf<T>::Table();
  EXPECT_EQ(table, TableOf(T::kType)) << name;
}

TEST(Interface, RootsAreThoseOfTheTables) {
#define EXPECT_ROOT(T) ExpectRoot<T>(#T);
  ZT_API_ELEMENTS(EXPECT_ROOT)
}

TEST(Interface, ADocumentIsReadWalkedAndUpdated) {
  auto read = ztxml::Read<zt_reginfo>(kReginfo);
  ASSERT_TRUE(read) << Said(read.error());
  EXPECT_EQ(read.error().code, ztxml::Code::kNone);
  ztxml::Document<zt_reginfo> reginfo = *std::move(read);
  std::string found;
  for (zt_registration& registration : ztxml::Each(reginfo->getRegistrationListValue())) {
    for (zt_ns_reginfo_contact& contact : ztxml::Each(registration.getContactListValue())) {
      EXPECT_EQ(contact.expires(), 0U);
      EXPECT_FALSE(contact.retryAfter());
      EXPECT_EQ(contact.event(), ZT_CONTACT_EVENT_CREATED);
      EXPECT_TRUE(ztxml::Text(contact.getCallidValue()).empty());
      for (zt_pub_gruu& gruu : ztxml::Each<zt_pub_gruu>(contact.getAnyElementValue())) {
        found += ztxml::Text(gruu.getUriValue());
        gruu.setUriValue("sip:other");
      }
    }
  }
  EXPECT_EQ(found, "sip:g");
  ASSERT_EQ(reginfo.Lost().size(), 1U);
  EXPECT_EQ(reginfo.Lost()[0].path, "/reginfo/registration[1]/contact[1]/@x");
  EXPECT_EQ(reginfo.Lost()[0].kind, ZT_LOST_ATTRIBUTE);
  EXPECT_EQ(kReginfo[reginfo.Lost()[0].column - 1], 'x');
  std::string expected = kReginfo;
  expected.replace(expected.find("sip:g"), 5, "sip:other");
  const auto updated = reginfo.Update();
  ASSERT_TRUE(updated) << Said(updated.error());
  EXPECT_SAME(*updated, expected);
}

TEST(Interface, ADocumentIsMadeAndWritten) {
  for (const ztxml::Options& options : {ztxml::Options(), ztxml::Exact()}) {
    auto made = ztxml::Create<zt_reginfo>(options);
    ASSERT_TRUE(made);
    (*made)->setStateValue(ZT_REGINFO_STATE_FULL);
    (*made)->setVersionValue(0);
    zt_registration* registration = made->Add(&zt_reginfo::addRegistration);
    ASSERT_TRUE(registration);
    registration->setIdValue("r");
    registration->setStateValue(ZT_REGISTRATION_STATE_ACTIVE);
    EXPECT_EQ(
        Said(made->Write().error()),
        "/reginfo/registration[1]/@aor: missing value: the element cannot be written without it");
    EXPECT_EQ(made->Write().error().stage, ztxml::Stage::kWriting);
    registration->setAorValue("sip:a");
    auto* contact = ztxml::Add(*registration, &zt_registration::addContact, options);
    contact->setStateValue(ZT_CONTACT_STATE_ACTIVE);
    contact->setEventValue(ZT_CONTACT_EVENT_CREATED);
    contact->setUriValue("sip:b");
    EXPECT_EQ(Said(made->Write().error()),
              "/reginfo/registration[1]/contact[1]/@id: missing value: the element cannot be "
              "written without it");
    contact->setIdValue("c");
    auto* gruu = ztxml::Add<zt_pub_gruu>(*contact, &zt_ns_reginfo_contact::addAnyElement);
    gruu->setUriValue("sip:g");
    std::string buffer;
    const auto text = made->WriteTo(buffer);
    ASSERT_TRUE(text) << Said(text.error());
    EXPECT_EQ(text->data(), buffer.data());
    EXPECT_NE(text->find("pub-gruu"), std::string_view::npos);
    EXPECT_SAME(std::string(*text), *made->Write());
    auto again = ztxml::Read<zt_reginfo>(*text, options);
    ASSERT_TRUE(again) << Said(again.error());
    EXPECT_SAME(*again->Write(), buffer);
    EXPECT_EQ(Said(made->Update().error()).substr(0, 9), "refused: ");
    // A child of another class than its list is for.
    ZtSingleElementList* list = zt_xml_common_methods::CreateElementList();
    list->Add(static_cast<XMLElement*>(ReginfoDataBinder().CreateUnknownParamElement()));
    registration->setContactListValue(list);
    EXPECT_EQ(made->Write().error().code, ztxml::Code::kRefused);
  }
}

TEST(Interface, DocumentsMoveAndGiveTheirRootAway) {
  auto one = ztxml::Read<zt_reginfo>(kReginfo);
  auto other = ztxml::Create<zt_reginfo>();
  const zt_reginfo* root = one->get();
  *other = std::move(*one);
  EXPECT_EQ(other->get(), root);
  ztxml::Document<zt_reginfo> third = std::move(*other);
  EXPECT_EQ(other->get(), nullptr);
  EXPECT_EQ(Said(other->Write().error()), "refused: there is no tree");
  EXPECT_EQ(Said(other->Update().error()), "refused: there is no tree");
  EXPECT_TRUE(other->Lost().empty());
  // What a document had before goes with its new root.
  auto fourth = ztxml::Create<zt_reginfo>();
  auto fifth = ztxml::Create<zt_reginfo>();
  *fourth = std::move(*fifth);
  EXPECT_TRUE(fourth->get() && !fifth->get());
  EXPECT_EQ(fifth->Add(&zt_reginfo::addRegistration), nullptr);
  XMLElement* released = third.Release();
  EXPECT_EQ(released, root);
  EXPECT_EQ(third.get(), nullptr);
  XMLFactory::DeleteElement(released);
}

TEST(Interface, OneOfTwoRoots) {
  using Gruu = std::variant<ztxml::Document<zt_pub_gruu>, ztxml::Document<zt_temp_gruu>>;
  for (const ztxml::Options& options : {ztxml::Options(), ztxml::Exact()}) {
    const char* text = "\n<temp-gruu uri='sip:t' first-cseq='7'/>";
    auto read = ztxml::Read<zt_pub_gruu, zt_temp_gruu>(text, options);
    ASSERT_TRUE(read);
    Gruu& gruu = *read;
    ASSERT_EQ(gruu.index(), 1U);
    EXPECT_EQ((*std::get_if<1>(&gruu))->firstCseq(), 7U);
    EXPECT_EQ(Said(ztxml::Read<zt_pub_gruu>(text, options).error()),
              "2:1: wrong root: the root element is <temp-gruu>, not <pub-gruu>");
    EXPECT_TRUE(ztxml::Read<zt_temp_gruu>(text, options));
    // The text ends where it ends: there is no NUL after it.
    const std::vector<char> bare = {'<', 't', 'e', 'm', 'p', '-', 'g',
                                    'r', 'u', 'u', '/', '>', '<'};
    EXPECT_FALSE(ztxml::Read<zt_pub_gruu>({bare.data(), bare.size()}, options));
    EXPECT_EQ((ztxml::Read<zt_pub_gruu, zt_temp_gruu>("<a/>", options).error().code),
              ztxml::Code::kWrongRoot);
  }
}

// The namespaces of a service are found by the interface, in the exact profile, too.
TEST(Interface, ServicesAloneAndInTheirContainer) {
  const std::string service =
      "<n:communication-diversion xmlns:n='http://uri.etsi.org/ngn/params/xml/simservs/xcap' "
      "active='true'/>";
  const std::string container =
      "<n:simservs xmlns:n='http://uri.etsi.org/ngn/params/xml/simservs/xcap'>"
      "<n:communication-diversion active='true'/><n:unknown/></n:simservs>";
  for (const ztxml::Options& options : {ztxml::Options(), ztxml::Exact().NotingLosses()}) {
    auto alone = ztxml::Read<zt_communication_diversion>(service, options);
    ASSERT_TRUE(alone) << Said(alone.error());
    EXPECT_EQ((*alone)->active(), true);
    const auto text = alone->Write();
    ASSERT_TRUE(text) << Said(text.error());
    auto inside = ztxml::Read<zt_Simservs>(container, options);
    ASSERT_TRUE(inside) << Said(inside.error());
    int count = 0;
    for (auto& diversion :
         ztxml::Each<zt_communication_diversion>((*inside)->getServiceListValue())) {
      count += diversion.active() == true;
    }
    EXPECT_EQ(count, 1);
    ASSERT_EQ(inside->Lost().size(), 1U);
    EXPECT_EQ(inside->Lost()[0].path, "/simservs/n:unknown");
  }
}

TEST(Interface, WhatTheExactProfileCutsIsTooLong) {
  auto made = ztxml::Create<zt_resource_lists>(ztxml::Exact());
  auto* list = made->Add(&zt_resource_lists::addList);
  for (int i = 0; i < 2000; ++i) {
    // An object of the parent's own type, and of another one.
    ztxml::Add<zt_listType>(list, &zt_listType::addAnyElement);
    ztxml::Add<zt_entryType>(*list, &zt_listType::addAnyElement)->setUriValue("sip:someone");
  }
  EXPECT_EQ(made->Write().error().code, ztxml::Code::kTooLong);
}

TEST(Interface, LossesAreFoundAgainOnceThereIsMemory) {
  auto read = ztxml::Read<zt_reginfo>(kReginfo);
  zthost::FailAllocation(1);
  EXPECT_TRUE(read->Lost().empty());
  zthost::FailAllocation(0);
  EXPECT_EQ(read->Lost().size(), 1U);
}

TEST(Interface, NothingGrowsAndNothingIsLost) {
  std::string buffer(1024, ' ');
  for (const ztxml::Options& options : {ztxml::Options(), ztxml::ReadOnly(), ztxml::Exact()}) {
    const auto once = [&] {
      auto read = ztxml::Read<zt_reginfo>(kReginfo, options);
      return read && read->WriteTo(buffer) && (!options.keepsSource || read->UpdateTo(buffer));
    };
    zthost::CountAllocations();
    ASSERT_TRUE(once());
    const long peak = zthost::GetHeapUse().peakBytes;
    for (int i = 0; i < 100; ++i) ASSERT_TRUE(once());
    EXPECT_EQ(zthost::GetHeapUse().liveBytes, 0);
    EXPECT_LT(zthost::GetHeapUse().peakBytes, peak + peak / 8);  // allocators round
  }
}

TEST(Interface, WithoutMemoryThereIsAnErrorAndNothingElse) {
  for (const ztxml::Options& options : {ztxml::Options(), ztxml::Exact()}) {
    const auto failed = [](const ztxml::Error& error) {
      EXPECT_EQ(error.code, ztxml::Code::kNoMemory) << error.Text();
      return "(null)";
    };
    ExpectWholeOrNothing([&]() -> std::string {
      auto read = ztxml::Read<zt_reginfo>(kReginfo, options);
      if (!read) return failed(read.error());
      zt_registration* registration = read->Add(&zt_reginfo::addRegistration);
      if (!registration) return "(null)";
      registration->setAorValue("sip:2");
      registration->setIdValue("2");
      registration->setStateValue(ZT_REGISTRATION_STATE_INIT);
      auto* first = EntryOf<zt_registration>((*read)->getRegistrationListValue(), 0);
      auto* contact = EntryOf<zt_ns_reginfo_contact>(first->getContactListValue(), 0);
      contact->setDisplayNameValue("new");  // an optional text, and one that is there already
      contact->setUriValue("sip:new");
      // In the exact profile a text without memory is an absent one.
      const bool isAbsent = !registration->getAorValue() || !contact->getUriValue() ||
                            !registration->getIdValue() || !contact->getDisplayNameValue();
      if (!options.keepsSource && isAbsent) return "(null)";
      auto text = options.keepsSource ? read->Update() : read->Write();
      return text ? *text : failed(text.error());
    });
    ExpectWholeOrNothing([&]() -> std::string {
      auto made = ztxml::Create<zt_imdn>(options);
      if (!made) return failed(made.error());
      // The last of a branch tells of those before it.
      auto* notification = made->Add(&zt_imdn::setDisplayNotificationValue);
      auto* status = ztxml::Add(notification, &zt_display_notification::setStatusValue, options);
      return ztxml::Add(status, &zt_status::setDisplayedValue, options) ? "made" : "(null)";
    });
  }
}

}  // namespace
