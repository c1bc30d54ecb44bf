// Objects and documents without knowing their classes: what an object holds, field by field, and
// which schemas, element names, types, rows and enumerations there are. For programs that show,
// compare or document them all. It reads the library's own tables, so it tells what the library
// does.
//
// Two levels. On the side of the tables there are the library's own records: ZtDocument,
// ZtElementType, ZtField, ZtEnumTable; this header only tells how to find them all.
// On the side of the objects there is Field, one row of a type with what an object has in it.
#ifndef ZTXML_TOOLS_REFLECT_REFLECT_H
#define ZTXML_TOOLS_REFLECT_REFLECT_H

#include <cstddef>
#include <vector>

#include "binding/ZtBinding.h"
#include "binding/ZtDocumentTable.h"

namespace reflect {

// ---- Objects ------------------------------------------------------------------------------------

/// An object as a profile has it.
struct Node {
  /// Without a type the exact profile is meant.
  Node(const XMLElement& o,
       const ZtElementType* type = nullptr)  // NOLINT(google-explicit-constructor)
      : object(&o), standard(type) {}

  const XMLElement* object;
  const ZtElementType* standard;  ///< the standard profile's rows for it; null in the exact profile
};

/// One thing in a field. All pointers are borrowed from the object.
struct Item {
  const char* name = nullptr;  ///< of another attribute, null for the default namespace; in the
                               ///< standard profile also of an object that its row does not name
  const char* text = nullptr;  ///< a text, an enumeration's value, an attribute's value
  const XMLElement* object = nullptr;       ///< of kObject fields other than attributes
  const ZtElementType* standard = nullptr;  ///< of the object, as in Node

  Node AsNode() const { return {*object, standard}; }
};

/// One row of a type and what an object has there. Types also keep values without rows, which are
/// told as if they had one: the text of a zt_string, the services of a simservs document, the error
/// of an XCAP error, retrieved namespaces.
struct Field {
  const ZtField* row;  ///< null for a value without a row
  const char* name;    ///< of the attribute or element; null when each item has its own
  ZtPlace place;
  ZtValue value;                  ///< kObject for other attributes, too: they have names
  unsigned long long number = 0;  ///< kNumber, kNumber64; the index of kEnum
  std::vector<Item> items;        ///< in order; numbers have one without anything

  /// Whether the object has the field: an object, a list that is not empty; in the exact profile a
  /// text that is not null, a number that is not 0 (or is written even when 0), a value that the
  /// enumeration has; in the standard profile what is stated, also when that is 0.
  bool IsPresent() const { return !items.empty(); }
  /// Whether it may occur more than once.
  bool IsRepeated() const;
  /// Whether it is another attribute (a pair of name and value) and no object.
  bool HoldsAttributes() const { return place == ZtPlace::kOtherAttributes; }
};

/// Whether the field stands in the start tag.
inline bool IsAttribute(const Field& field) {
  return field.place == ZtPlace::kAttribute || field.place == ZtPlace::kOtherAttributes;
}

/// The table of the class of `object`, one of the library's.
const ZtElementType& TypeOf(const XMLElement& object);

/// The name that `object` itself has in a document: the name of a flag, or the tag or label of its
/// class. In a field with a name, the object is written under that name instead.
const char* ElementNameOf(const XMLElement& object);
/// The name of what is in `field`: of its row, or its own.
const char* NameOf(const Field& field, const Item& item);

/// The root of a tree of the document as the standard profile has it.
Node StandardRoot(const ZtDocument& document, const XMLElement& root);

/// The fields of an object, absent ones without items, in the order of its rows.
std::vector<Field> FieldsOf(const Node& node);
/// Likewise, in `fields`, whose memory is used again: for those who go through many objects.
void FillFields(const Node& node, std::vector<Field>& fields);

/// The fields of a type, in the order of its rows; all are without items.
std::vector<Field> FieldsOf(const ZtElementType& type);

/// The deepest tree that Walk goes through, unless it is told another; one that the library has
/// read in the exact profile is never deeper.
constexpr std::size_t kMostDepth = 200;

/// Told of a tree, in the order of the document that would be written.
class Visitor {
 public:
  virtual ~Visitor() = default;
  /// An object begins; it is called `name` in the document. `in` is null for the root. False: its
  /// fields are left out, and Leave follows at once.
  virtual bool Enter(const XMLElement& object, const char* name, const Field* in) = 0;
  /// A field that is present; what is in it follows when it is an object.
  virtual void Begin(const Field& field) = 0;
  /// A field that is absent from the object of the last open Enter.
  virtual void Lacks(const Field& field) { static_cast<void>(field); }
  /// The field of the last open Begin is done.
  virtual void End(const Field& field) = 0;
  /// The object of the last open Enter is done.
  virtual void Leave(const XMLElement& object) = 0;
};

/// Tells `visitor` of the tree at `root`, which is called `name`, without recursion. False when the
/// tree was cut at `most` objects within each other.
bool Walk(const Node& root, const char* name, Visitor& visitor, std::size_t most = kMostDepth);
/// Likewise; the root has its own name.
bool Walk(const Node& root, Visitor& visitor);

// ---- Tables -------------------------------------------------------------------------------------

/// A document that the library knows.
struct Schema {
  const ZtDocument* document;  ///< its record: id, name, roots, what is done with prefixes

  /// The types that its roots have.
  std::vector<const ZtElementType*> Roots() const;
  /// Every type that its objects can have, once each by class name, roots first and then in the
  /// order in which the rows lead to them.
  std::vector<const ZtElementType*> Types() const;
};

/// The record of the document that a context of the library is for.
const ZtDocument& DocumentOf(const XMLContext& context);
/// Every schema, by its number. Empty when out of memory.
std::vector<Schema> Schemas();
/// The schema `id`; false when there is none.
bool FindSchema(eXMLSchemaID id, Schema& schema);

/// The types by which objects in a row are written: that of its child, or those of other children.
std::vector<const ZtElementType*> ChildTypesOf(const ZtField& row);
/// The types of objects in all rows of a type, also those that are only read.
std::vector<const ZtElementType*> ChildTypesOf(const ZtElementType& type);

/// The table that the class of `type` is read by. Some types have other tables as well, by which
/// one document writes them differently.
const ZtElementType& ReadAs(const ZtElementType& type);

/// The table of values of an enumeration, null for other rows.
inline const ZtEnumTable* ValuesOf(const ZtField& row) {
  return row.value == ZtValue::kEnum ? row.detail.values : nullptr;
}

/// The name of a place, e.g. "attribute" or "other children".
const char* NameOf(ZtPlace place);

}  // namespace reflect

#endif  // ZTXML_TOOLS_REFLECT_REFLECT_H
