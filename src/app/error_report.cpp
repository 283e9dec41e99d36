#include "app/error_report.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <memory>

#include "app/display_guard.h"

namespace tandem {

namespace {

std::unique_ptr<QApplication> made_quietly(int& count, char** arguments) {
  const DisplayGuard guard(DisplayGuard::Report::Nothing);
  return std::make_unique<QApplication>(count, arguments);
}

}  // namespace

bool has_display() { return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"); }

void print_error(const std::string& text) { std::fprintf(stderr, "tandem: %s\n", text.c_str()); }

void report_error(const std::string& text) {
  print_error(text);
  if (!has_display()) return;
  int count = 1;
  char name[] = "tandem";
  char* arguments[] = {name, nullptr};
  const auto application = qApp == nullptr ? made_quietly(count, arguments) : nullptr;
  QMessageBox::critical(nullptr, "Tandem", QString::fromStdString(text));
}

}  // namespace tandem
