// Values by name: whether an object states one, and taking one away. Getters tell 0 for a number
// that is 0 and for one that is absent; these tell the two apart, as do the types' optional
// accessors (ZtScalar::Stated).
#ifndef ZTXML_INCLUDE_ZTVALUES_H
#define ZTXML_INCLUDE_ZTVALUES_H

#include "ztxml/XMLElement.h"

/// Whether `element`, an object of the library, states a value: it was set, or the document that
/// the object was read from has it. `name` is "@expires" for an attribute, "user-count" for a child
/// element of which the text is kept, "" for the element's own text. 1; 0 when it does not, so that
/// the getter tells the schema's default (in the standard profile) or none; -1 when the type has no
/// such value, or an argument is null.
ZT_API int ZtIsStated(const XMLElement* element, const char* name);

/// Takes a value away: it is not written any more, and removed where the document is updated.
/// Returns 1, or 0 when the type has no such value.
ZT_API int ZtClearValue(XMLElement* element, const char* name);

#endif  // ZTXML_INCLUDE_ZTVALUES_H
