// The C++ interface: documents as values that own what they hold, results that say why they failed.
//
//     auto read = ztxml::Read<zt_reginfo>(body);
//     if (!read) return Log(read.error().Text());
//     for (zt_registration& registration : ztxml::Each((*read)->getRegistrationListValue())) ...
//
// Header only; it needs neither exceptions nor run-time type information and throws nothing itself
// (a std::string may, where exceptions are on and memory is short). ztxml/reginfo.h and its like
// bring it for one document, ztxml/ztxml.h for all.
#ifndef ZTXML_INCLUDE_DOCUMENT_H
#define ZTXML_INCLUDE_DOCUMENT_H

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "ztxml/XMLFactory.h"
#include "ztxml/ZtCalls.h"
#include "ztxml/ZtListOf.h"
#include "ztxml/ZtMembers.h"

/// The C++ interface.
namespace ztxml {

// ---- Results ------------------------------------------------------------------------------------

/// A T, or why there is none.
template <class T>
class [[nodiscard]] Result {
 public:
  /// What functions return as their result.
  Result(T value) : m_Value(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Result(const Error& error) : m_Value(error) {}  // NOLINT(google-explicit-constructor)

  /// Whether there is a T. Only then may it be asked for.
  explicit operator bool() const { return std::get_if<T>(&m_Value) != nullptr; }
  T& operator*() & { return *std::get_if<T>(&m_Value); }
  const T& operator*() const& { return *std::get_if<T>(&m_Value); }
  T operator*() && { return std::move(*std::get_if<T>(&m_Value)); }
  T* operator->() { return std::get_if<T>(&m_Value); }
  const T* operator->() const { return std::get_if<T>(&m_Value); }
  /// Why there is none; where there is one an error without a code.
  const Error& error() const {
    static const Error none;
    const Error* const error = std::get_if<Error>(&m_Value);
    return error ? *error : none;
  }

 private:
  std::variant<T, Error> m_Value;
};

// ---- Options ------------------------------------------------------------------------------------

/// How a document is read or made. The default is the standard profile, with the source kept.
struct Options {
  /// How texts are read and written.
  eXMLProfile profile = XML_PROFILE_STANDARD;
  /// Whether the document can be updated, and tells afterwards what its types do not keep. It costs
  /// the size of the text and 48 to 96 bytes for each element with an object. Not in the exact
  /// profile.
  bool keepsSource = true;
  /// Whether what the types do not keep is noted while reading, where the source is not kept.
  bool notesLosses = false;
  /// The bytes that a text which is written may have at most.
  std::size_t mostText = ZtSettings::kMostText;

  /// These options, with losses noted.
  Options NotingLosses() const {
    Options options = *this;
    options.notesLosses = true;
    return options;
  }
};
/// For documents that are only read, such as notifications: the source is not kept.
inline Options ReadOnly() {
  Options options;
  options.keepsSource = false;
  return options;
}
/// The exact profile, for peers that compare bytes: with all that they know of it, also texts that
/// are not well formed. Documents are not updated, but written anew.
inline Options Exact() {
  Options options = ReadOnly();
  options.profile = XML_PROFILE_EXACT;
  return options;
}

// ---- What values are ----------------------------------------------------------------------------

/// What a getter gives as a text; empty for null, which is absent.
inline std::string_view Text(const char* text) {
  return text ? std::string_view(text) : std::string_view();
}

/// The entries of a list, as references; null has none. A loop may remove and delete the entry that
/// it is at, but no other.
template <class T>
ZtEntries<T> Each(ZtListOf<T>* list) {
  return ZtEntries<T>(list);
}
/// Of a list of several types, those entries that are a T.
template <class T>
ZtEntries<T> Each(ZtSingleElementList* list) {
  return ZtEntries<T>(list);
}
/// `element` as a T; null when it is null or of another class.
template <class T>
T* As(XMLElement* element) {
  return ZtAs<T>(element);
}

/// Something in a document that its types do not keep.
struct Loss {
  eZtLoss kind;        ///< what kind of thing
  std::string path;    ///< e.g. "/reginfo/registration[1]/@q"
  std::size_t line;    ///< where it begins, from 1 on
  std::size_t column;  ///< in characters, from 1 on
};

/// What kind of document has T as its root: RootOf<T>::Table() is how the library reads and writes
/// it. The headers of the documents tell it for their types; others are no roots.
template <class T>
struct RootOf {
  using In = void;                        ///< equal for the roots of one document
  static constexpr bool kIsRoot = false;  ///< whether T is a root
  static const ZtDocument& Table();       ///< there is none
};
/// The same for each root of a document, by the document's context.
template <class Context>
struct RootIn {
  using In = Context;                    ///< equal for the roots of one document
  static constexpr bool kIsRoot = true;  ///< whether T is a root
  /// The document's record.
  static const ZtDocument& Table() { return Context::kDocument; }
};

// ---- Making objects -----------------------------------------------------------------------------

namespace detail {

template <class Child>
Child* Make(bool withDefaults) {
  return static_cast<Child*>(ZtMakeObject(Child::kType, withDefaults));
}
/// Gives `child` to its parent by `give`; null, with the child deleted, when it is not taken.
template <class Child, class Give>
Child* Hand(Child* child, Give give) {
  if (!child || give(child)) return child;
  XMLFactory::DeleteElement(child);
  return nullptr;
}

template <class T>
bool Give(ZtChildMember<T>& to, T* child) {
  return to.Set(child);
}
template <class T>
bool Give(ZtListMember<T>& to, T* child) {
  return to.Add(child);
}

}  // namespace detail

/// Makes a child of `parent` and gives it to it: ztxml::Add(registration,
/// &zt_registration::addContact), or by the setter of a single child. The child is the parent's.
/// Null without memory.
template <class Parent, class Owner, class Child, class = decltype(Child::kType)>
Child* Add(Parent& parent, int (Owner::*give)(Child*), const Options& options = Options()) {
  return detail::Hand(detail::Make<Child>(options.profile == XML_PROFILE_STANDARD),
                      [&](Child* child) { return (parent.*give)(child); });
}
/// Makes a T for a parent that keeps children of several types:
/// ztxml::Add<zt_pub_gruu>(contact, &zt_ns_reginfo_contact::addAnyElement).
template <class T, class Parent, class Owner, class Base>
T* Add(Parent& parent, int (Owner::*give)(Base*), const Options& options = Options()) {
  return detail::Hand(detail::Make<T>(options.profile == XML_PROFILE_STANDARD),
                      [&](T* child) { return (parent.*give)(child); });
}
/// By a public member: ztxml::Add(*info, &zt_dialog_info::dialogs).
template <class Parent, class Owner, class Member, class Child = typename Member::Entry>
Child* Add(Parent& parent, Member Owner::*member, const Options& options = Options()) {
  return detail::Hand(detail::Make<Child>(options.profile == XML_PROFILE_STANDARD),
                      [&](Child* child) { return detail::Give(parent.*member, child); });
}
/// By a public list of several types: ztxml::Add<zt_dialog_joined>(*dialog, &zt_dialog::causes).
template <class T, class Parent, class Owner>
T* Add(Parent& parent, ZtListMember<XMLElement> Owner::*list, const Options& options = Options()) {
  return detail::Hand(detail::Make<T>(options.profile == XML_PROFILE_STANDARD),
                      [&](T* child) { return (parent.*list).Add(child); });
}
/// As above, of a parent that Add made: null for null, so that the last child of a branch tells
/// whether there was memory for all of it.
template <class Parent, class Owner, class Child, class = decltype(Child::kType)>
Child* Add(Parent* parent, int (Owner::*give)(Child*), const Options& options = Options()) {
  return parent ? ztxml::Add(*parent, give, options) : nullptr;
}
/// Likewise, by a public member.
template <class Parent, class Owner, class Member, class Child = typename Member::Entry>
Child* Add(Parent* parent, Member Owner::*member, const Options& options = Options()) {
  return parent ? ztxml::Add(*parent, member, options) : nullptr;
}
/// Likewise, for a parent that keeps children of several types.
template <class T, class Parent, class Owner, class Base>
T* Add(Parent* parent, int (Owner::*give)(Base*), const Options& options = Options()) {
  return parent ? ztxml::Add<T>(*parent, give, options) : nullptr;
}

// ---- Documents ----------------------------------------------------------------------------------

namespace detail {

/// What a document has whatever its type is.
class Tree {
 public:
  Tree(const ZtDocument& table, const Options& options) : m_pTable(&table), m_Options(options) {}
  Tree(Tree&& other) noexcept : m_pTable(other.m_pTable) { Swap(other); }
  Tree& operator=(Tree&& other) noexcept {
    Tree taken(std::move(other));
    Swap(taken);
    return *this;
  }
  ~Tree() {
    XMLFactory::DeleteElement(m_pRoot);
    XMLFactory::DeleteElement(m_pNamespaces);
  }
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;

  bool Read(std::string_view text, const ZtElementType* type, Error& error) {
    ZtSettings settings = Settings();
    if (m_Options.notesLosses) {
      settings.lost = &Note;
      settings.lostContext = &m_Lost;
      m_bLossesKnown = true;
    }
    m_pRoot =
        ZtReadDocument(*m_pTable, type, settings, text.data(), text.size(), m_pNamespaces, error);
    return m_pRoot != nullptr;
  }
  bool Make(const ZtElementType& type, Error& error) {
    m_pRoot = ZtMakeObject(type, m_Options.profile == XML_PROFILE_STANDARD, &error);
    return m_pRoot != nullptr;
  }
  XMLElement* Root() const { return m_pRoot; }
  XMLElement* Release() { return std::exchange(m_pRoot, nullptr); }
  const Options& HowMade() const { return m_Options; }

  bool Write(std::string& to, Error& error) const {
    std::size_t size = 0;
    char* const text = ZtWriteDocument(*m_pTable, Settings(), m_pRoot, m_pNamespaces, size, error);
    return Keep(text, size, to, error);
  }
  bool Update(std::string& to, Error& error) const {
    std::size_t size = 0;
    char* const text = ZtUpdateDocument(*m_pTable, Settings(), m_pRoot, size, error);
    return Keep(text, size, to, error);
  }
  const std::vector<Loss>& Lost() const {
    if (!m_bLossesKnown && m_pRoot) {
      m_bLossesKnown = ZtFindLosses(*m_pRoot, &Note, &m_Lost);
      if (!m_bLossesKnown) m_Lost.clear();
    }
    return m_Lost;
  }

 private:
  void Swap(Tree& other) noexcept {
    std::swap(m_pTable, other.m_pTable);
    std::swap(m_pRoot, other.m_pRoot);
    std::swap(m_pNamespaces, other.m_pNamespaces);
    std::swap(m_Options, other.m_Options);
    m_Lost.swap(other.m_Lost);
    std::swap(m_bLossesKnown, other.m_bLossesKnown);
  }
  ZtSettings Settings() const {
    ZtSettings settings;
    settings.profile = m_Options.profile;
    settings.keepsSource = m_Options.keepsSource;
    settings.mostText = m_Options.mostText;
    return settings;
  }
  static bool Keep(char* text, std::size_t size, std::string& to, const Error& error) {
    const bool isWhole = text && error.code == Code::kNone;
    if (isWhole) to.assign(text, size);
    ZtFreeText(text);
    return isWhole;
  }
  static void Note(const ZtLoss& loss, void* list) {
    static_cast<std::vector<Loss>*>(list)->push_back(
        {loss.kind, loss.path, loss.line, loss.column});
  }

  const ZtDocument* m_pTable = nullptr;
  XMLElement* m_pRoot = nullptr;
  XMLElement* m_pNamespaces = nullptr;
  Options m_Options;
  mutable std::vector<Loss> m_Lost;
  mutable bool m_bLossesKnown = false;
};

}  // namespace detail

/// A document with the root T, which it owns with everything below it. It can be moved; one that
/// was moved from has no root. To be used by one thread at a time.
template <class T>
class Document {
 public:
  /// The root, which has to be there.
  T& operator*() & { return *get(); }
  const T& operator*() const& { return *get(); }
  T* operator->() & { return get(); }
  const T* operator->() const& { return get(); }
  /// What it hands out would not live on.
  const T& operator*() const&& = delete;
  const T* operator->() const&& = delete;
  /// The root; null after Release, or after the document was moved.
  T* get() { return static_cast<T*>(m_Tree.Root()); }
  const T* get() const { return static_cast<const T*>(m_Tree.Root()); }
  /// Hands the root out, for XMLFactory::DeleteElement.
  T* Release() { return static_cast<T*>(m_Tree.Release()); }

  /// The document as a text, or why it cannot be written.
  Result<std::string> Write() const { return Whole(&detail::Tree::Write); }
  /// Writes it into `buffer`, whose room is used again, and gives what it then holds.
  Result<std::string_view> WriteTo(std::string& buffer) const {
    return Into(buffer, &detail::Tree::Write);
  }
  /// The document that was read, with what has changed since and all else as it stood: comments,
  /// white space, what the types do not know. In its own encoding.
  Result<std::string> Update() const { return Whole(&detail::Tree::Update); }
  Result<std::string_view> UpdateTo(std::string& buffer) const {
    return Into(buffer, &detail::Tree::Update);
  }
  /// What the types do not keep of the text that was read, in its order. Known where the source was
  /// kept or the options asked for it; else empty.
  const std::vector<Loss>& Lost() const { return m_Tree.Lost(); }

  /// Makes a child of the root and gives it to it; null without memory, or a root. See ztxml::Add.
  template <class Owner, class Child>
  Child* Add(int (Owner::*give)(Child*)) {
    return ztxml::Add(get(), give, m_Tree.HowMade());
  }
  template <class Child, class Owner, class Base>
  Child* Add(int (Owner::*give)(Base*)) {
    return ztxml::Add<Child>(get(), give, m_Tree.HowMade());
  }
  template <class Owner, class Member, class Child = typename Member::Entry>
  Child* Add(Member Owner::*member) {
    return ztxml::Add(get(), member, m_Tree.HowMade());
  }

  /// Read and Create make documents by this.
  explicit Document(detail::Tree tree) : m_Tree(std::move(tree)) {}

 private:
  using Operation = bool (detail::Tree::*)(std::string&, Error&) const;

  Result<std::string> Whole(Operation write) const {
    Error error;
    std::string text;
    if (!(m_Tree.*write)(text, error)) return error;
    return text;
  }
  Result<std::string_view> Into(std::string& buffer, Operation write) const {
    Error error;
    if (!(m_Tree.*write)(buffer, error)) return error;
    return std::string_view(buffer);
  }

  detail::Tree m_Tree;
};

namespace detail {

/// The document of that type among several which the root of `tree` is.
template <class Documents, class T, class... More>
Documents Choose(Tree tree) {
  if constexpr (sizeof...(More) == 0) {
    return Documents(std::in_place_type<Document<T>>, std::move(tree));
  } else {
    if (!ZtIsA(*tree.Root(), T::kType)) return Choose<Documents, More...>(std::move(tree));
    return Documents(std::in_place_type<Document<T>>, std::move(tree));
  }
}

}  // namespace detail

/// Reads a document with the root T; `text` need not live on.
template <class T>
Result<Document<T>> Read(std::string_view text, const Options& options = Options()) {
  static_assert(RootOf<T>::kIsRoot, "T is not the root of a document, or its header is missing");
  Error error;
  detail::Tree tree(RootOf<T>::Table(), options);
  if (!tree.Read(text, &T::kType, error)) return error;
  return Document<T>(std::move(tree));
}

/// Reads a document that has one of several roots: a std::variant of their documents.
template <class T, class Other, class... More>
Result<std::variant<Document<T>, Document<Other>, Document<More>...>> Read(
    std::string_view text, const Options& options = Options()) {
  using Documents = std::variant<Document<T>, Document<Other>, Document<More>...>;
  static_assert(RootOf<T>::kIsRoot, "T is not the root of a document, or its header is missing");
  static_assert(!std::is_same_v<T, Other> && (!std::is_same_v<T, More> && ...) &&
                    (!std::is_same_v<Other, More> && ...),
                "the roots are to be different ones");
  static_assert(std::is_same_v<typename RootOf<T>::In, typename RootOf<Other>::In> &&
                    (std::is_same_v<typename RootOf<T>::In, typename RootOf<More>::In> && ...),
                "these types are not roots of one kind of document");
  Error error;
  detail::Tree tree(RootOf<T>::Table(), options);
  if (!tree.Read(text, nullptr, error)) return error;
  return detail::Choose<Documents, T, Other, More...>(std::move(tree));
}

/// An empty document with the root T.
template <class T>
Result<Document<T>> Create(const Options& options = Options()) {
  static_assert(RootOf<T>::kIsRoot, "T is not the root of a document, or its header is missing");
  Error error;
  detail::Tree tree(RootOf<T>::Table(), options);
  if (!tree.Make(T::kType, error)) return error;
  return Document<T>(std::move(tree));
}

}  // namespace ztxml

#endif  // ZTXML_INCLUDE_DOCUMENT_H
