#include <gtest/gtest.h>

#include <cstdlib>

#include "toolkit/forms.h"

/// Every test of windows has the toolkit running, on a screen that nobody sees or hears.
int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  setenv("CANBERRA_DRIVER", "null", 0);
  testing::InitGoogleTest(&argc, argv);
  const toolkit::Application application(argc, argv);
  return RUN_ALL_TESTS();
}
