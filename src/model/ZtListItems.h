// How objects get their owner, and lose it, as they enter and leave a list that an element owns.
#ifndef ZTXML_SRC_BASE_ZTLISTITEMS_H
#define ZTXML_SRC_BASE_ZTLISTITEMS_H

struct ZtListItems {
  bool (*take)(void* data);  // false for an object that has an owner
  void (*drop)(void* data);
};

#endif  // ZTXML_SRC_BASE_ZTLISTITEMS_H
