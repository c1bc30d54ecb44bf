// The bases of the schema types: everything that a type's table of fields can answer for it.
#ifndef ZTXML_INCLUDE_ZTELEMENT_H
#define ZTXML_INCLUDE_ZTELEMENT_H

#include "XMLElement.h"
#include "ZtHolders.h"

/// How the library reads and writes one type; opaque to callers.
struct ZtElementType;

/// An element whose type is bound by a table.
class ZT_API ZtElement : public XMLElement {
 public:
  const char* ClassName() const override;
  const char* BaseClassName() const override;
  const char* ElementName() const override;
  int ReservedHook() override;
  int ProcessUnMarshall(char* name, char* value, XMLElement* child) final;
  int ProcessUnMarshallAttribute(char* name, char* value, XMLAttribute* attribute) final;

 private:
  virtual const ZtElementType& Type() const = 0;
};

/// The same for types that derive from XMLObject.
class ZT_API ZtObject : public XMLObject {
 public:
  const char* ClassName() const override;
  const char* BaseClassName() const override;
  const char* ElementName() const override;
  int ReservedHook() override;
  int ProcessUnMarshall(char* name, char* value, XMLElement* child) final;
  int ProcessUnMarshallAttribute(char* name, char* value, XMLAttribute* attribute) final;
  int IsRootElement() const override;

 private:
  virtual const ZtElementType& Type() const = 0;
};

#endif  // ZTXML_INCLUDE_ZTELEMENT_H
