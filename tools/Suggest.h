// What was probably meant by a word that is misspelt.
#ifndef ZTXML_TOOLS_SUGGEST_H
#define ZTXML_TOOLS_SUGGEST_H

#include <string>
#include <vector>

/// " (did you mean X?)" with the one of `known` that is nearest to `word`; "" when none is near.
std::string DidYouMean(const std::string& word, const std::vector<std::string>& known);

#endif  // ZTXML_TOOLS_SUGGEST_H
