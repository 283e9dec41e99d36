#include "app/error_report.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <memory>

namespace tandem {

bool has_display() { return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"); }

void report_error(const std::string& text) {
  std::fprintf(stderr, "tandem: %s\n", text.c_str());
  if (!has_display()) return;
  int count = 1;
  char name[] = "tandem";
  char* arguments[] = {name, nullptr};
  const auto application = qApp == nullptr ? std::make_unique<QApplication>(count, arguments) : nullptr;
  QMessageBox::critical(nullptr, "Tandem", QString::fromStdString(text));
}

}  // namespace tandem
