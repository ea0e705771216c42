// The test program of the window front end: one QApplication for every test,
// on the offscreen platform unless the caller chose another (to watch the
// windows on a desktop, run with QT_QPA_PLATFORM=xcb).
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
