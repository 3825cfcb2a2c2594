// main() of the `unit` test binaries: no display, no wx application object.
#include <gtest/gtest.h>

#include "harness/WxAssertToGTest.h"

int main(int argc, char ** argv) {
  testing::InitGoogleTest(&argc, argv);
  InstallWxAssertHandler();
  return RUN_ALL_TESTS();
}
