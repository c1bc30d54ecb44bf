// Helpers of both mappings for pugixml and for numbers.
#ifndef ZTXML_BENCH_PUGISUPPORT_H
#define ZTXML_BENCH_PUGISUPPORT_H

#include <charconv>
#include <cstring>
#include <string_view>

#include "PugiMapping.h"

namespace mapping {

/// What a document needs, and no more: neither sections nor line ends are converted.
constexpr unsigned kParse = pugi::parse_minimal | pugi::parse_escapes;

/// A name without its prefix.
inline std::string_view Local(const char* name) {
  const char* start = name;
  for (; *name != '\0'; ++name) {
    if (*name == ':') start = name + 1;
  }
  return {start, static_cast<std::size_t>(name - start)};
}

template <class Number>
void Parse(const char* text, Number* out) {
  std::from_chars(text, text + std::strlen(text), *out);
}

template <class Enum, std::size_t kCount>
Enum Find(const std::string_view (&names)[kCount], const char* text) {
  const std::string_view wanted = text;
  std::size_t i = 0;
  while (i < kCount && names[i] != wanted) ++i;
  return static_cast<Enum>(i);  // without a match the value after the last name: absent
}

/// The children of `node` in order with their local names.
template <class Visit>
void EachChild(pugi::xml_node node, Visit visit) {
  for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
    visit(Local(child.name()), child);
  }
}

/// The attributes of `node` in order with their local names.
template <class Visit>
void EachAttribute(pugi::xml_node node, Visit visit) {
  for (pugi::xml_attribute at = node.first_attribute(); at; at = at.next_attribute()) {
    visit(Local(at.name()), at);
  }
}

/// The number of child elements, to reserve room, so that what is read need not be moved.
inline std::size_t ChildCount(pugi::xml_node node) {
  std::size_t count = 0;
  for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) ++count;
  return count;
}

// ---- Writing ------------------------------------------------------------------------------------

inline void Put(pugi::xml_node node, const char* name, const char* value) {
  node.append_attribute(name).set_value(value);
}
inline void Put(pugi::xml_node node, const char* name, const Text& value) {
  if (value) Put(node, name, value->c_str());
}
inline void Put(pugi::xml_node node, const char* name, std::uint64_t value) {
  char buffer[24];
  *std::to_chars(buffer, buffer + sizeof buffer - 1, value).ptr = '\0';
  Put(node, name, static_cast<const char*>(buffer));
}
/// A number that is absent when it is 0.
inline void PutNumber(pugi::xml_node node, const char* name, std::uint64_t value) {
  if (value != 0) Put(node, name, value);
}
template <class Enum, std::size_t kCount>
void Put(pugi::xml_node node, const char* name, const std::string_view (&names)[kCount],
         Enum value) {
  const auto i = static_cast<std::size_t>(value);
  if (i < kCount) Put(node, name, names[i].data());
}

inline void PutElement(pugi::xml_node node, const char* name, const char* text) {
  node.append_child(name).append_child(pugi::node_pcdata).set_value(text);
}
inline void PutElement(pugi::xml_node node, const char* name, const Text& text) {
  if (text) PutElement(node, name, text->c_str());
}
template <class Enum, std::size_t kCount>
void PutElement(pugi::xml_node node, const char* name, const std::string_view (&names)[kCount],
                Enum value) {
  const auto i = static_cast<std::size_t>(value);
  if (i < kCount) PutElement(node, name, names[i].data());
}

inline void Declare(pugi::xml_document* out) {
  pugi::xml_node declaration = out->append_child(pugi::node_declaration);
  Put(declaration, "version", "1.0");
  Put(declaration, "encoding", "UTF-8");
}

}  // namespace mapping

#endif  // ZTXML_BENCH_PUGISUPPORT_H
