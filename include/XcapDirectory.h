// The schema decoder of XCAP directories.
#ifndef ZTXML_INCLUDE_XCAPDIRECTORY_H
#define ZTXML_INCLUDE_XCAPDIRECTORY_H

#include "ZtSchemaDecoder.h"

/// Reads an "xcap-directory" document. Names are taken without their prefixes.
class ZT_API XMLXcapDirectoryDecoder : public ZtSchemaDecoder {
 public:
  XMLXcapDirectoryDecoder();
};

#endif  // ZTXML_INCLUDE_XCAPDIRECTORY_H
