// What painting costs: microseconds of CPU for one picture of each display, moving, and for the whole panel.
// Usage: paint_bench [--only NAME] [pictures, default 2000]
// With --only one line is measured, for a profiler: bench/paint_instructions counts the instructions of every line.
#include <QApplication>
#include <QImage>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "paint/controls/song_list.h"
#include "paint/displays/level_bar.h"
#include "paint/displays/needle_meter.h"
#include "paint/displays/oscilloscope.h"
#include "paint/displays/spectrum.h"
#include "paint/displays/spectrum_backdrop.h"
#include "paint/panel/panel_background.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/panels.h"
#include "paint/text/led_label.h"
#include "tools/pictures/panel_scene.h"
#include "tools/pictures/sample_signals.h"

namespace tandem {
namespace {

constexpr int kPictures = 16;  // different ones, shown in turn
constexpr int kWarmUp = 400;
constexpr std::array<std::pair<AnalyserKind, const char*>, 6> kKinds = {{{AnalyserKind::Points, "points"},
                                                                         {AnalyserKind::Lines, "lines"},
                                                                         {AnalyserKind::VLines, "stems"},
                                                                         {AnalyserKind::Bar, "bars"},
                                                                         {AnalyserKind::Picks, "picks"},
                                                                         {AnalyserKind::Roll, "roll"}}};

double cpu_microseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

struct Bench {
  std::string only;
  int pictures = 2000;
};

[[gnu::noinline]] void measured_pictures(const std::function<void(int)>& draw, int pictures) {
  for (int i = 0; i < pictures; ++i) draw(i);
}

void measure(const Bench& bench, const std::string& what, int percent, int share,
             const std::function<void(int)>& draw) {
  const std::string name = what + " " + std::to_string(percent);
  if (!bench.only.empty() && bench.only != name) return;
  for (int i = 0; i < kWarmUp / share; ++i) draw(i);  // caches fill, buffers grow
  const int pictures = std::max(1, bench.pictures / share);
  const double before = cpu_microseconds();
  measured_pictures(draw, pictures);
  const double cost = (cpu_microseconds() - before) / pictures;
  std::printf("%-24s %9.1f us a picture  %7.3f %% of a core at 60 a second, %d pictures\n", name.c_str(), cost,
              cost * 60e-4, pictures);
  std::fflush(stdout);
}

QRectF display_area() { return control_box("MMSpectrum1").box(); }
QRectF display_well() { return control_box("Display well").box(); }

int rows_at(int percent) { return spectrum_grid(64, percent / 100.).rows; }

void measure_spectrum(const Bench& bench, AnalyserKind kind, bool solid, const char* name, int percent) {
  std::vector<std::vector<float>> heights;
  std::vector<float> ring;
  for (int i = 0; i < kPictures; ++i) {
    heights.push_back(sample_spectrum(33, static_cast<std::uint32_t>(i) + 1, 1));
    const std::vector<float> rows = sample_spectrum(rows_at(percent), static_cast<std::uint32_t>(i) + 1, 1);
    ring.insert(ring.end(), rows.begin(), rows.end());
  }
  SpectrumStyle style;
  style.kind = kind;
  style.solid = solid;
  style.grid = spectrum_grid(64, percent / 100.);
  const SpectrumBackdrop face(style, display_area(), display_well());
  QImage image(face.size(), QImage::Format_RGB32);
  SpectrumTrace standing;
  std::uint64_t written = kPictures;
  measure(bench, std::string("spectrum ") + name, percent, 1, [&](int i) {
    SpectrumPicture picture;
    picture.left = heights[static_cast<std::size_t>(i) % kPictures];
    picture.right = heights[static_cast<std::size_t>(i + 3) % kPictures];
    picture.roll = {ring, ring, kPictures, rows_at(percent), ++written};
    update_spectrum(image, {0, 0}, face, picture, standing);
  });
}

void measure_needles(const Bench& bench, int percent) {
  NeedleBackdrop left(percent / 100., left_meter_box(), display_well(), false);
  NeedleBackdrop right(percent / 100., right_meter_box(), display_well(), true);
  QImage image(left.size().width() * 2, left.size().height(), QImage::Format_RGB32);
  std::array<QRect, 2> standing;
  measure(bench, "needles", percent, 1, [&](int i) {
    const double db = -8 + 8 * std::sin(i * .3);
    left.draw(image, {0, 0}, db, standing[0]);
    right.draw(image, {left.size().width(), 0}, db + 1, standing[1]);
  });
}

void measure_scope(const Bench& bench, int percent) {
  ScopeBackdrop face(percent / 100., display_area(), display_well());
  QImage image(face.size(), QImage::Format_RGB32);
  std::vector<std::vector<float>> traces;
  for (int i = 0; i < kPictures; ++i) traces.push_back(sample_trace(i * .4, 1, static_cast<std::uint32_t>(i) + 1));
  measure(bench, "oscilloscope", percent, 1, [&](int i) {
    const auto at = static_cast<std::size_t>(i);
    face.draw(image, {0, 0}, {traces[at % kPictures], traces[(at + 5) % kPictures]});
  });
}

void measure_painted(const Bench& bench, const std::string& name, int percent, int share,
                     const std::function<void(QPainter&, int)>& paint) {
  const double scale = percent / 100.;
  const QSize size = window_size(WindowSize::Board) * scale;
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::black);
  measure(bench, name, percent, share, [&](int i) {
    QPainter painter(&image);
    set_up(painter, scale);
    paint(painter, i);
  });
}

/// The view of a list of 200 songs with names and folders too long for their lines.
SongListState long_names(int top, int selected) {
  constexpr int kSongs = 200;
  SongListState look;
  look.top = std::clamp(top, 0, kSongs - kListRows);
  look.count = kSongs;
  look.selected = selected;
  for (int i = look.top; i < look.top + kListRows; ++i) {
    const QString number = QStringLiteral("%1").arg(i + 1, 2, 10, QChar(u'0'));
    const QString folders = QStringLiteral("/home/ana/Music/Glass Garden/Evenings at the lake (live)/Disc 2/");
    const QString name = QStringLiteral("Winter Sun, as it was played before the doors were closed, part ");
    look.rows +=
        number + QStringLiteral(" - ") + folders + (i % 2 == 0 ? name : QString()) + number + QStringLiteral(".mp3");
  }
  return look;
}

void measure_list(const Bench& bench, int percent) {
  const auto measure_looks = [&](const char* name, int looks, const std::function<SongListState(int)>& look_at) {
    std::vector<SongListState> all;
    for (int i = 0; i < looks; ++i) all.push_back(look_at(i));
    measure_painted(bench, name, percent, 10, [&](QPainter& painter, int i) {
      paint_song_list(painter, control_box("PlayList").box(), all[static_cast<std::size_t>(i) % all.size()]);
    });
  };
  measure_looks("song list, long names", 1, [](int) { return long_names(0, 3); });
  measure_looks("song list, one turn", 63, [](int i) { return long_names(3 * i, 3); });
  measure_looks("song list, selection", kListRows, [](int i) { return long_names(95, 95 + i); });
}

void measure_all(const Bench& bench, int percent) {
  for (const auto& [kind, name] : kKinds) measure_spectrum(bench, kind, false, name, percent);
  measure_spectrum(bench, AnalyserKind::Bar, true, "solid bars", percent);
  measure_needles(bench, percent);
  measure_scope(bench, percent);
  measure_painted(bench, "level bar", percent, 1, [](QPainter& painter, int i) {
    paint_level_bar(painter, control_box("MMLevelX1").box(), {i % kLevelRows, (i + 4) % kLevelRows});
  });
  PanelScene scene("board-open", percent / 100.0);
  measure_painted(bench, "title, one step", percent, 4, [&](QPainter& painter, int i) {
    LedLabelState look{QStringLiteral("HARBOUR.MP3"), 15, 2, palette::kWhite, palette::kWhiteDots, {}};
    look.scroll = i % 90;
    paint_led_label(painter, control_box("SongLabel").box().topLeft(), look);
  });
  measure_painted(bench, "the glass over a title", percent, 4, [&](QPainter& painter, int) {
    painter.setClipRect(control_box("SongLabel").box().adjusted(-5, -5, 5, 5));
    paint_glass_shine(painter, control_box("MMPanelX1(1)").box());
  });
  measure_list(bench, percent);
  measure_painted(bench, "background, board open", percent, 40, [](QPainter& painter, int) {
    paint_background(painter, {WindowSize::Board, false});
  });
  measure_painted(bench, "whole panel, board open", percent, 40,
                  [&](QPainter&, int) { static_cast<void>(scene.picture()); });
}

}  // namespace
}  // namespace tandem

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  tandem::Bench bench;
  for (int i = 1; i < argc; ++i) {
    if (std::string_view(argv[i]) == "--only" && i + 1 < argc) {
      bench.only = argv[++i];
    } else {
      bench.pictures = std::max(1, std::atoi(argv[i]));
    }
  }
  for (const int percent : {100, 200}) tandem::measure_all(bench, percent);
}
