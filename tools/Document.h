// What the commands share: exit status, messages, the document they work on and what is read of it.
#ifndef ZTXML_TOOLS_DOCUMENT_H
#define ZTXML_TOOLS_DOCUMENT_H

#include <memory>
#include <string>

#include "XMLFactory.h"
#include "XmlDecoder.h"

enum ExitStatus : int {
  kDone = 0,
  kCannotRead = 1,  ///< the document was refused, by the stage that the message names
  kUsage = 2,
  kCannotWrite = 3
};

/// A whole document and what messages call it.
struct Document {
  std::string name;
  std::string text;  ///< without NUL bytes: one ends the document
};

struct ContextDeleter {
  void operator()(XMLContext* context) const { XMLFactory::deleteContext(context); }
};
struct ElementDeleter {
  void operator()(XMLElement* element) const { XMLFactory::DeleteElement(element); }
};
using ContextPtr = std::unique_ptr<XMLContext, ContextDeleter>;
using ElementPtr = std::unique_ptr<XMLElement, ElementDeleter>;

/// Prints "ztxml: name: message" on standard error, behind what standard output has so far.
void Complain(const std::string& name, const std::string& message);

/// `text` on one line: control characters and backslashes as \n, \t, \\ or \xNN.
std::string Escape(const char* text);
/// The same in double quotes, with those inside as \".
std::string Quote(const char* text);

/// Reads the file `path`, or standard input for "-". False after a message.
bool ReadDocument(const std::string& path, Document& document);

/// Whether the parser takes `text` as a whole document.
bool IsWellFormed(const std::string& text);

/// Runs the parser over the document; a null `receiver` has it only checked. False after a message.
bool Parse(const Document& document, XmlDecoderSchema* receiver);

/// The tree that the schema of `context` reads from the document, or null.
ElementPtr ReadTree(XMLContext& context, const Document& document);

/// A receiver that ignores every callback.
class Receiver : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessAttribute(char* /*element*/, char* /*name*/, char* /*value*/) override { return 0; }
  int ProcessElement(char* /*name*/, char* /*value*/) override { return 0; }
  int ProcessElementOpened(char* /*name*/) override { return 0; }
  void* GetSessionData() override { return nullptr; }
};

#endif  // ZTXML_TOOLS_DOCUMENT_H
