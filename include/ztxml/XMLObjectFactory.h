// The abstract object factory of a schema.
#ifndef ZTXML_INCLUDE_XMLOBJECTFACTORY_H
#define ZTXML_INCLUDE_XMLOBJECTFACTORY_H

#include "ztxml/XMLElement.h"

/// Makes empty schema objects. Owned by its context. What it makes is the caller's until a parent
/// takes it, and is freed with XMLFactory::DeleteElement.
class ZT_API XMLObjectFactory : public ZtNonCopyable {
 public:
  virtual ~XMLObjectFactory() = default;
  /// A new, empty root, or null.
  virtual XMLObject* CreateRootElement() = 0;
};

#endif  // ZTXML_INCLUDE_XMLOBJECTFACTORY_H
