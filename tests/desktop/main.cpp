#include <gtest/gtest.h>

#include <QApplication>
#include <fstream>

#include "desktop/temporary_directory.h"

namespace {

// Two monitors side by side. The plugin sorts them by name and makes the first one the primary one.
constexpr char kMonitors[] = R"({"screens": [
  {"name": "1", "x": 0, "y": 0, "width": 800, "height": 600},
  {"name": "2", "x": 800, "y": 0, "width": 640, "height": 480}]})";

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const quorvale::TemporaryDirectory directory;
  const std::string monitors = directory.Path() + "/monitors.json";
  std::ofstream(monitors) << kMonitors;
  qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString("offscreen:configfile=" + monitors));
  // Claims of titles are this test's own.
  qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(directory.Path()));
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
