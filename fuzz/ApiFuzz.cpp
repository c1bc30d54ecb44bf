// Trees as callers build them; the bytes are the script.
#include "ApiScript.h"
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Balanced balanced;
  const std::string broken = ApiScript(data, size).Run();
  Require(broken.empty(), "callers' trees are written alike", broken);
  return 0;
}
