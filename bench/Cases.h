// What is measured: each case is one thing done with one document by one of those compared.
#ifndef ZTXML_BENCH_CASES_H
#define ZTXML_BENCH_CASES_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

struct Case {
  std::string name;           // work/document/size in KB/who, e.g. "read/registration/8.5/exact"
  std::size_t bytes;          // of the document, or of the text that is written
  std::function<bool()> run;  // false: it failed
  bool timed = true;          // else only its instructions are counted
};

/// All cases, after a check that each does its work and that those compared keep equal contents.
/// Works once, and says on standard error what is wrong when it exits.
std::vector<Case> MakeCases();

}  // namespace bench

#endif  // ZTXML_BENCH_CASES_H
