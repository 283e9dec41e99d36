// Widgets need an application object; one for the whole test program, without a screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdio>
#include <memory>

#include "widgets/accessibility/panel_accessible.h"

namespace {

// What the platform without a screen cannot do is not worth a line for every window.
void print_message(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (!text.startsWith("This plugin does not support")) std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

class ApplicationEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    qInstallMessageHandler(print_message);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QApplication>(count_, arguments_);
    tandem::install_accessibility();
  }
  void TearDown() override { application_.reset(); }

 private:
  int count_ = 1;
  char name_[13] = "widgets_test";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const auto* const kEnvironment = ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

}  // namespace
