// Draws the panel in named states, or sheets of samples, to PNG files, without a screen:
//   panel_picture PERCENT FOLDER [NAME...]
// Each picture is FOLDER/NAME-PERCENT.png. Without names it draws all, which the program lists when called without
// arguments.
#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "tools/pictures/sample_picture.h"

namespace {

int show_usage() {
  std::fprintf(stderr, "usage: panel_picture PERCENT FOLDER [NAME...]\nnames:");
  for (const std::string_view name : tandem::picture_names()) {
    std::fprintf(stderr, " %.*s", static_cast<int>(name.size()), name.data());
  }
  std::fprintf(stderr, "\n");
  return 2;
}

bool draw(std::string_view name, const char* percent, const char* folder) {
  const QImage picture = tandem::sample_picture(name, std::atof(percent) / 100);
  const QString file = QStringLiteral("%1/%2-%3.png")
                           .arg(QString::fromLocal8Bit(folder),
                                QString::fromUtf8(name.data(), static_cast<int>(name.size())), QLatin1String(percent));
  if (!picture.isNull() && picture.save(file)) return true;
  std::fprintf(stderr, picture.isNull() ? "there is no %s\n" : "cannot write %s\n", qPrintable(file));
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  if (argc < 3 || std::atof(argv[1]) < 50 || std::atof(argv[1]) > 800) return show_usage();
  std::vector<std::string_view> names(argv + 3, argv + argc);
  if (names.empty()) names = tandem::picture_names();
  bool all = true;
  for (const std::string_view name : names) all = draw(name, argv[1], argv[2]) && all;
  return all ? 0 : 1;
}
