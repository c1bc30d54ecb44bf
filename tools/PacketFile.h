// The documents in a capture of packets.
#ifndef ZTXML_TOOLS_PACKETFILE_H
#define ZTXML_TOOLS_PACKETFILE_H

#include <vector>

#include "Document.h"

/// Adds the XML bodies of the messages that the packets of `file` carry, each named after the file
/// and the number of its message in the order of time. What of the packets cannot be read is told
/// on standard error. With `allBytes` NUL bytes do not end a document. False with the failure when
/// the file, or a message, cannot be read, or there is no XML body at all; what was added is kept.
bool ReadPacketFile(const Document& file, bool allBytes, std::vector<Document>& documents,
                    Failure& failure);

#endif  // ZTXML_TOOLS_PACKETFILE_H
