// Window tests run on the offscreen platform, each test program in one application.
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>
#include <string_view>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // the build lists the tests, where no platform need be there
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  setenv("QT_STYLE_OVERRIDE", "Fusion", 1);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
