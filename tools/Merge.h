// Documents that come in parts, notifications, as "ztxml merge" takes them.
#ifndef ZTXML_TOOLS_MERGE_H
#define ZTXML_TOOLS_MERGE_H

#include <string>

#include "binding/ZtDocumentTable.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/ZtState.h"

/// The record of a schema whose documents come in parts; null for others.
const ZtDocument* TableOfParts(const XMLSchemaInfo& schema);
/// "added", "changed" or "removed".
const char* NameOf(ztxml::Change::Kind kind);
/// What became of a notification: "applied", "ignored: REASON", "refresh: REASON", or the first and
/// the last with a semicolon.
std::string DescribeOutcome(const ztxml::Merged& merged);

#endif  // ZTXML_TOOLS_MERGE_H
