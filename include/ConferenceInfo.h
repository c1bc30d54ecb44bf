// The schema decoder of conference information.
#ifndef ZTXML_INCLUDE_CONFERENCEINFO_H
#define ZTXML_INCLUDE_CONFERENCEINFO_H

#include "ZtSchemaDecoder.h"

/// Reads a "conference-info" document, with any prefixes.
class ZT_API XMLConferenceInfoDecoder : public ZtSchemaDecoder {
 public:
  XMLConferenceInfoDecoder();
};

#endif  // ZTXML_INCLUDE_CONFERENCEINFO_H
