// Which accessors of the public headers belong to which row of a type's table.
#ifndef ZTXML_DOCS_GENERATOR_ACCESSORS_H
#define ZTXML_DOCS_GENERATOR_ACCESSORS_H

#include <string>
#include <vector>

#include "reflect/Reflect.h"

namespace docs {

/// The accessors of one row.
struct Accessors {
  std::vector<std::string> names;  ///< as they are written in a page: getX, x, setX, addY
  std::string getter;              ///< the first of them: a getter, or a public member
  std::string optional;            ///< tells whether the value is stated; may be the getter
  std::string given;               ///< what the getter gives
};

/// The accessors of each of FieldsOf(type), in that order. A setter belongs to the row whose member
/// it changes.
std::vector<Accessors> AccessorsOf(const ZtElementType& type);

/// A root as the C++ interface has it.
struct Root {
  std::string type;    ///< e.g. "zt_reginfo"
  std::string header;  ///< e.g. "ztxml/reginfo.h"
};

/// The name of the type's class in C++, which is mostly its ClassName().
std::string CppNameOf(const ZtElementType& type);
/// The header that declares a class, "" when there is none.
std::string HeaderOf(const std::string& className);
/// The enumerator of an enumeration's value, "" when there is none.
std::string EnumeratorOf(const std::string& enumeration, unsigned value);
/// The factories that make objects of the type, as Class::Method.
std::vector<std::string> FactoriesOf(const ZtElementType& type);
/// The roots of a context's document, none when it is not in the C++ interface.
std::vector<Root> RootsOf(const std::string& context);
/// The class of which CreateRootElement makes an object of the type, "" when there is none.
std::string RootFactoryOf(const ZtElementType& type);

}  // namespace docs

#endif  // ZTXML_DOCS_GENERATOR_ACCESSORS_H
