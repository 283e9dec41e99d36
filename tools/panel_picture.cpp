// Draws the panel in a named state to a PNG, without a screen:
//   panel_picture STATE PERCENT FILE.png
// STATE is one of those that the program lists when called without arguments.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "paint/ink.h"
#include "paint/panel_specimens.h"

namespace {

int show_usage() {
  std::fprintf(stderr, "usage: panel_picture STATE PERCENT FILE.png\nstates:");
  for (const std::string_view name : tandem::specimen_names()) {
    std::fprintf(stderr, " %.*s", static_cast<int>(name.size()), name.data());
  }
  std::fprintf(stderr, "\n");
  return 2;
}

QImage picture_of(const tandem::PanelLook& look, double scale) {
  const QSize size = tandem::window_size(look.window.size);
  QImage image(static_cast<int>(std::lround(size.width() * scale)),
               static_cast<int>(std::lround(size.height() * scale)), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  tandem::set_up(painter, scale);
  tandem::paint_panel(painter, look);
  return image;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  if (argc != 4) return show_usage();
  const auto specimen = tandem::make_specimen(argv[1]);
  const double scale = std::atof(argv[2]) / 100;
  if (!specimen || scale < .5 || scale > 8) return show_usage();
  if (picture_of(specimen->look, scale).save(QString::fromLocal8Bit(argv[3]))) return 0;
  std::fprintf(stderr, "cannot write %s\n", argv[3]);
  return 1;
}
