// Invariants that end the program when they are broken.
#ifndef ZTXML_TESTS_API_REQUIRE_H
#define ZTXML_TESTS_API_REQUIRE_H

#include <cstdio>
#include <cstdlib>
#include <string>

/// Ends the process with the invariant's text when it does not hold.
inline void Require(bool holds, const char* invariant, const std::string& found = "") {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n%s\n", invariant, found.c_str());
  std::abort();
}

#endif  // ZTXML_TESTS_API_REQUIRE_H
