// How the objects of a list that an element has taken get their owner and lose it.
#ifndef ZTXML_SRC_BASE_ZTLISTITEMS_H
#define ZTXML_SRC_BASE_ZTLISTITEMS_H

struct ZtListItems {
  bool (*take)(void* data);  // false for what has an owner already
  void (*drop)(void* data);
};

#endif  // ZTXML_SRC_BASE_ZTLISTITEMS_H
