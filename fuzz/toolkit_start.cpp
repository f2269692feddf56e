#include <cstdlib>

#include "support.h"
#include "toolkit/forms.h"

/// For fuzzers of the toolkit's readers, which need it started.
// NOLINTNEXTLINE(readability-non-const-parameter): the fuzzer's own declaration
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  // Never destroyed: the fuzzer ends by exit, when what the toolkit's windows stand on is gone.
  static const auto* const application = new toolkit::Application(*argc, *argv);
  fuzz::Require(application != nullptr);
  return 0;
}
