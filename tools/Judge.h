// Whether a text that the library reads in the exact profile, or writes, is well formed and binds
// its namespaces, judged by another parser. The library's own is laxer in some things.
#ifndef ZTXML_TOOLS_JUDGE_H
#define ZTXML_TOOLS_JUDGE_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "Document.h"
#include "ztxml/XMLFactory.h"

/// Something wrong and the byte where it is.
struct Fault {
  std::string what;  ///< "" for none
  std::size_t at = 0;

  explicit operator bool() const { return !what.empty(); }
};

/// What the other parser says. Nothing is known of the text after `malformed` or after a document
/// type, which is not read: it could load or multiply anything.
struct Verdict {
  Fault malformed;          ///< the first breach of XML 1.0
  bool rawInValue = false;  ///< `malformed` is a "<" or "&" in an attribute value
  Fault unbound;            ///< the first breach of Namespaces in XML, where nothing is malformed
  Fault unsupported;        ///< the first thing that XML allows and the library takes for another
  std::string oddRoot;      ///< the root's name, if XML allows it to no element but a schema has it
};

/// The prefixes that are bound around a text, with their namespaces.
using Scope = std::vector<std::pair<std::string, std::string>>;

/// Judges a whole document, or what is to stand where `scope` is bound. A schema's own root name is
/// taken for a name even if it begins with a digit.
Verdict Judge(const Document& document, const Scope& scope = {});

/// Whether there is nothing to say of a document that the library reads. True only where Judge says
/// so, too, which costs many times as much; false tells nothing.
bool IsSurelySound(const Document& document);

/// The prefixes that a document of `schema` may have from the one around it: the services of a
/// simservs document are read and written without declarations, too.
Scope ScopeAround(const XMLSchemaInfo& schema);

/// Tells in `failure` what is wrong with a document that the library reads or wrote. False for
/// nothing.
bool FindFault(const Document& document, const Verdict& verdict, Failure& failure);

/// Adds what XML forbids in a document that the exact profile reads as one of `schema`; of a sound
/// one `remark` tells what is odd, "" for nothing.
void JudgeText(const Document& document, const XMLSchemaInfo& schema, std::vector<Failure>& faults,
               std::string& remark);

/// What to say of `Verdict::oddRoot`.
std::string OddRoot(const std::string& name);

#endif  // ZTXML_TOOLS_JUDGE_H
