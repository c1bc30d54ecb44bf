// What of a document's elements notifications tell, as data.
#ifndef ZTXML_SRC_BINDING_ZTTELLING_H
#define ZTXML_SRC_BINDING_ZTTELLING_H

#include "binding/ZtNames.h"

// How notifications tell the state of an element, so that what they tell can be merged: RFC 3680,
// RFC 4575 and RFC 4662.
struct ZtTelling {
  ZtNameId key = XML_STR_ZT_NULL;      // of its row: tells it from its siblings
  ZtNameId state = XML_STR_ZT_NULL;    // of its attribute: tells how much of it is told
  ZtNameId version = XML_STR_ZT_NULL;  // of a root's attribute
  bool joins = false;    // without such an attribute, what is told of it joins what is known
  bool bridges = false;  // of a root: a part is taken although others before it were missed

  constexpr ZtTelling Versions(ZtNameId attribute, bool takesLater) const {
    return {key, state, attribute, joins, takesLater};
  }
};
constexpr ZtTelling ZtKeyed(ZtNameId key, ZtNameId state = XML_STR_ZT_NULL) { return {key, state}; }
constexpr ZtTelling ZtJoined(ZtNameId key) { return {key, XML_STR_ZT_NULL, XML_STR_ZT_NULL, true}; }

#endif  // ZTXML_SRC_BINDING_ZTTELLING_H
