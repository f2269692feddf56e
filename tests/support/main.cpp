#include <gtest/gtest.h>

#include <cstdlib>

#include "toolkit/forms.h"

/// Every test has the toolkit at hand, on a screen that nobody sees.
int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  testing::InitGoogleTest(&argc, argv);
  const toolkit::Application application(argc, argv);
  return RUN_ALL_TESTS();
}
