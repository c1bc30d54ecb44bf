// Has a communication diversion (3GPP TS 24.604), as an XCAP server sent it, forward to another
// target and prints the body of the PUT. All else in the document stays as it stood.
//
// Usage: switch_diversion TARGET_URI < FILE
#include <iostream>
#include <iterator>

#include <ztxml/communication_diversion.h>

int Fail(const char* why) {
  std::cerr << why << '\n';
  return 1;
}

int main(int argc, char** argv) {
  if (argc != 2) return Fail("usage: switch_diversion TARGET_URI < FILE");
  const std::string got(std::istreambuf_iterator<char>(std::cin), {});
  auto diversion = ztxml::Read<zt_communication_diversion>(got);
  if (!diversion) return Fail(diversion.error().Text());
  const auto* rules = (*diversion)->getRuleSetValue();
  for (auto& rule : ztxml::Each(rules ? rules->getRulesValue() : nullptr)) {
    const auto* actions = rule.getActionsValue();
    auto* elements = actions ? actions->getElementsValue() : nullptr;
    for (auto& forward : ztxml::Each<zt_ns_xcap_forward_to_type>(elements)) {
      forward.setTargetValue(argv[1]);
    }
  }
  const auto put = diversion->Update();
  if (!put || *put == got) return Fail(put ? "nothing to change" : put.error().Text());
  std::cout << *put;
}
