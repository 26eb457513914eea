// Window tests run on the offscreen platform, each test program in one application.
#include <gtest/gtest.h>

#include "windows/screen.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // the build lists the tests, where no platform need be there
  const QTemporaryDir folder;
  moistair::windowtest::useScreen(folder);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
