#include "ztxml/ZtValues.h"

#include "binding/ZtStandard.h"

struct ZtTypeAccess {
  template <class Base>
  static const ZtElementType& Of(const XMLElement& element) {
    return static_cast<const ZtBound<Base>&>(element).Type();
  }
};

namespace {

// The library's objects say which of the two bases they have.
const ZtElementType& TypeOf(const XMLElement& element) {
  const char* base = element.BaseClassName();
  const bool isObject = base && __strcmp(base, "XMLObject") == 0;
  const ZtElementType& type =
      isObject ? ZtTypeAccess::Of<XMLObject>(element) : ZtTypeAccess::Of<XMLElement>(element);
  return ZtStandardOf(type);
}

// The row of a scalar value, null when there is none of this name.
const ZtField* FindValue(const ZtElementType& type, const char* name) {
  const bool isAttribute = *name == '@';
  const ZtNameId id = ZtNameId::Of(isAttribute ? name + 1 : name);
  for (const ZtField& row : type) {
    const bool fits = isAttribute ? row.place == ZtPlace::kAttribute && row.name == id
                      : *name     ? row.place == ZtPlace::kTextElement && row.name == id
                                  : row.place == ZtPlace::kOwnText;
    if (fits) return &row;
  }
  return nullptr;
}

}  // namespace

int ZtIsStated(const XMLElement* element, const char* name) {
  const ZtField* row = element && name ? FindValue(TypeOf(*element), name) : nullptr;
  if (!row) return -1;
  return ZtHeld(*element, *row).stated ? 1 : 0;
}

int ZtClearValue(XMLElement* element, const char* name) {
  const ZtField* row = element && name ? FindValue(TypeOf(*element), name) : nullptr;
  if (!row) return 0;
  ZtClear(*element, *row);
  return 1;
}
