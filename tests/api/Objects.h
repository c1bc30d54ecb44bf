// The objects of a tree, in the order of the document that would be written.
#ifndef ZTXML_TESTS_API_OBJECTS_H
#define ZTXML_TESTS_API_OBJECTS_H

#include <vector>

#include "reflect/Reflect.h"

inline std::vector<XMLElement*> ObjectsOf(const XMLElement& root) {
  struct Collector : reflect::Visitor {
    bool Enter(const XMLElement& object, const char* /*name*/, const reflect::Field*) override {
      objects.push_back(const_cast<XMLElement*>(&object));
      return true;
    }
    void Begin(const reflect::Field& /*field*/) override {}
    void End(const reflect::Field& /*field*/) override {}
    void Leave(const XMLElement& /*object*/) override {}
    std::vector<XMLElement*> objects;
  };
  Collector collector;
  reflect::Walk(root, collector);
  return collector.objects;
}

#endif  // ZTXML_TESTS_API_OBJECTS_H
