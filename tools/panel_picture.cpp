// Draws the panel in a named state, or a sheet of samples, to a PNG, without a screen:
//   panel_picture NAME PERCENT FILE.png
// NAME is one of those that the program lists when called without arguments.
#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "tools/pictures/sample_picture.h"

namespace {

int show_usage() {
  std::fprintf(stderr, "usage: panel_picture NAME PERCENT FILE.png\nnames:");
  for (const std::string_view name : tandem::picture_names()) {
    std::fprintf(stderr, " %.*s", static_cast<int>(name.size()), name.data());
  }
  std::fprintf(stderr, "\n");
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  if (argc != 4) return show_usage();
  const double scale = std::atof(argv[2]) / 100;
  if (scale < .5 || scale > 8) return show_usage();
  const QImage picture = tandem::sample_picture(argv[1], scale);
  if (picture.isNull()) return show_usage();
  if (picture.save(QString::fromLocal8Bit(argv[3]))) return 0;
  std::fprintf(stderr, "cannot write %s\n", argv[3]);
  return 1;
}
