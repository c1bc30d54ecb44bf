// Says why a document was not read, written or updated. It is asked after a failure, looks at the
// text again and allocates nothing.
#ifndef ZTXML_SRC_DRIVERS_ZTEXPLAIN_H
#define ZTXML_SRC_DRIVERS_ZTEXPLAIN_H

#include "binding/ZtDocumentTable.h"
#include "text/ZtEncoding.h"
#include "text/ZtXmlReader.h"
#include "ztxml/error.h"

// The document in which something was not read.
struct ZtFailedText {
  const ZtDocument& document;
  ZtPiece original;  // as it came
  ZtTextForm form;
  // In UTF-8, with a NUL after it unless only the root is wrong; null when the bytes could not be
  // decoded.
  ZtPiece text = nullptr;
  bool isStandard = true;
  const ZtElementType* type = nullptr;  // that of the root which is wanted; null: any
};

// The name of an encoding in the declaration, where it stands in single bytes.
ZtPiece ZtEncodingNameAt(const ZtFailedText& failed, std::size_t at);

// Of the standard profile.
void ZtExplainEncoding(ztxml::Error& error, const ZtFailedText& failed, ZtEncodingFault fault,
                       std::size_t at);
void ZtExplainXml(ztxml::Error& error, const ZtFailedText& failed, const ZtXmlError& fault);
// Of the exact profile: the parser stopped at `at`, the text has a NUL there, or the decoder
// refused a start tag whose name is there.
void ZtExplainParser(ztxml::Error& error, const ZtFailedText& failed, std::size_t at);
void ZtExplainNul(ztxml::Error& error, const ZtFailedText& failed, std::size_t at);
// What stands after the root element cannot be read.
void ZtExplainRest(ztxml::Error& error, const ZtFailedText& failed);
void ZtExplainSlash(ztxml::Error& error, const ZtFailedText& failed, std::size_t at);
// Of both.
// `uri` is the namespace of the root element, empty when it is none or not known.
void ZtExplainRoot(ztxml::Error& error, const ZtFailedText& failed, ZtPiece uri = nullptr);
// What has no place in a text. `path` may be empty, and begins with '/' where it is one.
void ZtExplain(ztxml::Error& error, ztxml::Code code, ztxml::Stage stage, const char* sentence,
               const char* path = "");
void ZtExplainMissing(ztxml::Error& error, ztxml::Stage stage, const char* path);
void ZtExplainNoMemory(ztxml::Error& error, ztxml::Stage stage);

#endif  // ZTXML_SRC_DRIVERS_ZTEXPLAIN_H
