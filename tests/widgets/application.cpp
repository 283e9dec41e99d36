// Widgets need an application object; one for the whole test program, without a screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryFile>
#include <cstdio>
#include <memory>

#include "widgets/accessibility/panel_accessible.h"

namespace {

// What the platform without a screen cannot do is not worth a line for every window.
void print_message(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (!text.startsWith("This plugin does not support")) std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

// Screens side by side. The first one is so small that the window's scale is 100 %; the third one is of scale 2, the
// fourth of 1.5. Qt has them in the order of their names.
constexpr const char* kScreenList = R"({"screens": [
  {"name": "first", "x": 0, "y": 0, "width": 800, "height": 800, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
  {"name": "second", "x": 800, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
  {"name": "third", "x": 2080, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 2},
  {"name": "uneven", "x": 3360, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1.5}
]})";

class ApplicationEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    qInstallMessageHandler(print_message);
    screens_.open();
    screens_.write(kScreenList);
    screens_.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens_.fileName().toUtf8());
    application_ = std::make_unique<QApplication>(count_, arguments_);
    tandem::install_accessibility();
  }
  void TearDown() override { application_.reset(); }

 private:
  QTemporaryFile screens_;
  int count_ = 1;
  char name_[13] = "widgets_test";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const auto* const kEnvironment = ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

}  // namespace
