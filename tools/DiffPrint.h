// How "diff" prints what it finds.
#ifndef ZTXML_TOOLS_DIFFPRINT_H
#define ZTXML_TOOLS_DIFFPRINT_H

#include <cstddef>
#include <memory>
#include <string>

#include "reflect/Reflect.h"

/// The least and the most columns of a side by side output.
constexpr int kLeastWidth = 60;
constexpr int kMostWidth = 10000;

/// The form of the output.
struct DiffForm {
  bool json = false;        ///< a line of JSON for each difference
  bool sideBySide = false;  ///< the documents in two columns
  std::size_t width = 0;    ///< of both columns together; 0: that of the terminal
};

/// Something in one of the documents.
struct DiffItem {
  const reflect::Field& field;
  const reflect::Item& item;
  const std::string& name;  ///< in its path, with its place among its like
};

/// Told of the differences, and of what is equal around them. `path` is that of the element that
/// they are in.
class DiffPrinter {
 public:
  virtual ~DiffPrinter() = default;

  /// Whether what is equal is to be told.
  virtual bool WantsSame() const { return false; }
  /// An object is gone into, of which something is different; and left.
  virtual void Enter() {}
  virtual void Leave() {}

  virtual void Same(const std::string& path, const DiffItem& before, const DiffItem& after) {
    static_cast<void>(path), static_cast<void>(before), static_cast<void>(after);
  }
  /// Something that only the first ('-') or the second ('+') document has.
  virtual void Only(char sign, const std::string& path, const DiffItem& item) = 0;
  /// Different values, or roots of different types.
  virtual void Changed(const std::string& path, const DiffItem& before, const DiffItem& after) = 0;
};

std::unique_ptr<DiffPrinter> MakeDiffPrinter(const DiffForm& form);

/// What tells an object from its neighbours: the attribute that says so first of id, entity, uri,
/// aor, name ...; "" without one.
std::string KeyOf(const reflect::Node& object);

/// The name of an item in a path, without its place among its like: "@id", "contact", "(text)".
std::string NameIn(const reflect::Field& field, const reflect::Item& item);

#endif  // ZTXML_TOOLS_DIFFPRINT_H
