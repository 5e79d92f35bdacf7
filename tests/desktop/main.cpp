// The desktop's tests need one application around all of them, and no screen.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // The sizes and looks that tests expect are those of a plain desktop, whatever the one here is set to.
  for (const char* name : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI", "QT_USE_PHYSICAL_DPI",
                           "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME"}) {
    qunsetenv(name);
  }
  ::testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
