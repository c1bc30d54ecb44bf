// ztxml roundtrip: reads a document and writes it again.
#include <algorithm>
#include <string>

#include "Colour.h"
#include "Commands.h"
#include "Judge.h"
#include "Output.h"
#include "Read.h"
#include "Text.h"
#include "ztxml/ztXMLDocGenerator.h"

namespace {

// The prefixes that the output may use without declaring them. Those that the document itself
// declares are none: their declarations have to be written, too.
Scope ScopeOfOutput(const Tree& tree) {
  Scope scope = ScopeAround(*tree.schema);
  for (const Declaration& declared : DeclarationsIn(tree.namespaces.get())) {
    const auto same = [&](const auto& binding) { return binding.second == declared.uri; };
    scope.erase(std::remove_if(scope.begin(), scope.end(), same), scope.end());
  }
  return scope;
}

int Write(const Tree& tree, const Document& document, bool inputSound, Log& log) {
  log.Forget();
  std::string text;
  Failure failure;
  if (!tree.Write(text, failure)) return Refuse(document.name, failure, kCannotWrite);
  PrintText(text);
  if (log.DocumentCut()) {
    Complain(document.name,
             "output cut at " + std::to_string(ZtXMLDocGenerator::kBufferSize - 1) + " characters");
    return kCannotWrite;
  }
  const Document output = {document.name + " (output)", text, ""};
  const Verdict verdict = Judge(output, tree.isStandard ? Scope() : ScopeOfOutput(tree));
  if (!verdict.oddRoot.empty()) Complain(output.name, OddRoot(verdict.oddRoot));
  Failure fault;
  if (!FindFault(output, verdict, fault)) return kDone;
  // Some writers go on after an element that lacks something required.
  if (verdict.rawInValue && inputSound) {
    fault.what += "; references in attribute values are resolved when they are read";
  } else if (verdict.malformed && !verdict.rawInValue && !log.FirstError().empty()) {
    fault.what += "; something required is missing: " + Quote(log.FirstError());
  } else if (verdict.unbound && inputSound) {
    fault.what += "; its declaration is not kept";
  }
  return Refuse(output.name, fault, kCannotWrite);
}

}  // namespace

int RoundTrip(const Document& document, const Reading& reading, Log& log) {
  Tree tree;
  Failure failure;
  if (!ReadTree(document, reading, tree, failure)) return Refuse(document, failure);
  // What the standard profile reads has no fault.
  const bool isSound = tree.isStandard || IsSurelySound(document);
  const Verdict verdict = isSound ? Verdict() : Judge(document, ScopeAround(*tree.schema));
  if (FindFault(document, verdict, failure)) Report(document.name, failure);
  if (!tree.schema->writes) {
    Complain(document.name,
             std::string("cannot be written: the schema ") + tree.schema->name + " is only read");
    return kCannotWrite;
  }
  return Write(tree, document, !verdict.malformed && !verdict.unbound, log);
}
