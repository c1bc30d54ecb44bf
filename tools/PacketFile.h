// The documents in a capture of packets.
#ifndef ZTXML_TOOLS_PACKETFILE_H
#define ZTXML_TOOLS_PACKETFILE_H

#include <vector>

#include "Document.h"

/// Adds what ReadCapture finds in the messages that the packets of `file` carry, each named after
/// the file and the number of its message in the order of time. What of the packets cannot be read
/// is told on standard error, and how many messages have no document. These are added, too, if they
/// are to be refused or shown, and in the latter case what is told otherwise. False with the
/// failure when the file cannot be read to its end or there is nothing to add; what was added is
/// kept.
bool ReadPacketFile(const Document& file, Skipping skipping, std::vector<Document>& documents,
                    Failure& failure);

#endif  // ZTXML_TOOLS_PACKETFILE_H
