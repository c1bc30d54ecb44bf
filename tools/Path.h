// Paths to what a tree of the standard profile holds, as "ztxml diff" prints them:
// "/reginfo/registration[1]/contact[2]/@expires".
#ifndef ZTXML_TOOLS_PATH_H
#define ZTXML_TOOLS_PATH_H

#include <cstddef>
#include <string>
#include <vector>

#include "binding/ZtStandard.h"
#include "reflect/Reflect.h"

/// One step of a path.
struct Step {
  enum class Kind { kElement, kAttribute, kText, kWords };

  Kind kind = Kind::kElement;
  std::string name;       ///< "" for texts and words
  std::size_t index = 0;  ///< from 1; 0 when none is given
  std::string path;       ///< up to and with this step
};

/// What a path names. The pointers are the tree's.
struct Target {
  XMLElement* parent = nullptr;           ///< null for the root
  const ZtElementType* type = nullptr;    ///< the parent's rows
  const ZtField* row = nullptr;           ///< of the parent; null for the root
  XMLElement* object = nullptr;           ///< the element, or the text in a list; null when absent
  zt_AttributeValuePair* pair = nullptr;  ///< another attribute
  const ZtElementType* own = nullptr;     ///< the rows of the element; null for what is a text
  ZtNameId name = XML_STR_ZT_NULL;        ///< of an element
  const char* cannotMake = nullptr;       ///< why what is absent cannot be made; null when it can

  /// Whether the document has it.
  bool IsThere() const;
  /// Whether it is a text, a number or an enumeration that the parent has itself.
  bool IsScalar() const;
};

enum class Finding {
  kFound,   ///< the target tells whether it is there
  kAbsent,  ///< an element on the way is not there
  kWrong    ///< there can be no such thing, or it is not told which of several is meant
};

/// Finds what paths name in one tree.
class PathFinder {
 public:
  /// With `makes` elements on the way that are absent are made.
  PathFinder(const ZtDocument& document, XMLElement& root, bool makes)
      : m_Root(root),
        m_RootType(*reflect::StandardRoot(document, root).standard),
        m_bMakes(makes) {}

  Finding Find(const std::string& path, Target& target);
  /// Why the last path was wrong, or what is absent.
  const std::string& Why() const { return m_Why; }

 private:
  Finding Wrong(const std::string& why);
  Finding Take(const Step& step, Target& target);
  Finding Named(const Step& step, Target& target);
  Finding Attribute(const Step& step, Target& target);
  Finding Own(const Step& step, Target& target);
  Finding Entry(const Step& step, Target& target);
  Finding Enter(const Step& step, Target& target);

  XMLElement& m_Root;
  const ZtElementType& m_RootType;
  bool m_bMakes;
  std::string m_Why;
};

/// The text of its own that an element has, present or not; without a row when it can have none.
Target OwnTextOf(const Target& element);
/// Makes the element that a target names and that is absent; false when it cannot be made.
bool MakeElement(Target& target);
/// Adds a text to the list that a target names.
bool AddText(const Target& target, const std::string& text);

#endif  // ZTXML_TOOLS_PATH_H
