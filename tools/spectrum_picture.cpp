// Draws the spectrum as the window does, with music, without a screen:
//   spectrum_picture sheet SONG.wav SECOND FILE.png        every setting of the board and every kind of drawing
//   spectrum_picture first|default SONG.wav SECOND FILE.png   a film of the state at the first start, or of "Default":
//                                                             48 pictures at 60 a second, to be read like a page
// SONG: 16 bits, stereo, 44.1 kHz; SECOND: where the picture is taken.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/piece_of_music.h"
#include "displays/spectrum/spectrum_analyser.h"
#include "paint/text/caption.h"
#include "widgets/display_area/spectrum_view.h"

namespace {

using namespace tandem;
using enum SpectrumSetting;

using Settings = std::vector<std::pair<SpectrumSetting, int>>;

struct Sample {
  QString name;
  Settings settings;
};

constexpr std::size_t kPerPicture = 735;
constexpr double kBefore = 8.0;  // seconds of music before a picture is taken: marks and levels have settled
constexpr int kColumns = 4;
constexpr QSize kCell{kSpectrumWidth + 10, kSpectrumHeight + 22};
constexpr int kFilmPictures = 48;

const Settings kFirstStart{{Window, 1}, {Gain, 1},      {LogAmp, 0},     {SolidBars, 1}, {DrawInactive, 0},
                           {Decay, 7},  {PeakCount, 3}, {PeakDelay, 25}, {PeakSpeed, 1}, {ReferenceFrequency, 500}};
const Settings kDefault{{Window, 1}, {Gain, 1}};

// The spectrum in a state of the board that hears a piece of music.
class Show {
 public:
  Show(const Settings& state, const Settings& change, std::span<const SoundFrame> music)
      : view_(analyser_), music_(music) {
    analyser_.put_Enabled(true);
    analyser_.put_Visible(true);
    for (const auto& [setting, value] : state) analyser_.put(setting, value);
    for (const auto& [setting, value] : change) analyser_.put(setting, value);
  }

  void hear(double seconds) {
    for (double passed = 0.0; passed < seconds - 1e-6; passed += 1.0 / 60.0) next();
  }

  void draw(QPainter& painter, const QPoint& at) {
    view_.update(1.0);
    painter.save();
    painter.translate(QPointF(at) - view_.area().topLeft());
    view_.draw(painter);
    painter.restore();
  }

 private:
  void next() {
    const std::size_t begin = std::min(heard_, music_.size());
    analyser_.feed(music_.subspan(begin, std::min(kPerPicture, music_.size() - begin)));
    analyser_.advance(1.0 / 60.0);
    heard_ += kPerPicture;
    view_.update(1.0);
  }

  SpectrumAnalyser analyser_;
  SpectrumView view_;
  std::span<const SoundFrame> music_;
  std::size_t heard_ = 0;
};

void add(std::vector<Sample>& all, const char* name, SpectrumSetting setting, std::initializer_list<int> values,
         const Settings& with = {}) {
  for (const int value : values) {
    Sample sample{QStringLiteral("%1 %2").arg(name).arg(value), with};
    sample.settings.emplace_back(setting, value);
    all.push_back(std::move(sample));
  }
}

void add_kinds(std::vector<Sample>& all) {
  constexpr const char* kNames[] = {"Points", "Lines", "V.Lines", "Bar", "Picks", "Roll"};
  for (int kind = 0; kind < kAnalyserKinds; ++kind) {
    all.push_back({QStringLiteral("Type %1, L.e.d. on").arg(kNames[kind]), {{Kind, kind}}});
    all.push_back({QStringLiteral("Type %1, L.e.d. off").arg(kNames[kind]), {{Kind, kind}, {SolidBars, 1}}});
  }
}

std::vector<Sample> samples() {
  std::vector<Sample> all;
  add_kinds(all);
  add(all, "Grid", DrawGrid, {0, 1});
  add(all, "Inactive", DrawInactive, {0, 1});
  add(all, "Log/Lin", LogAmp, {0, 1});
  add(all, "Pick", DrawPeaks, {0, 1});
  add(all, "Window (X Scale 6)", Window, {0, 1, 2, 3, 4, 5, 6}, {{HorizontalScale, 6}, {ReferenceFrequency, 400}});
  add(all, "FFT length 4096, Window", Window, {0}, {{FFTLength, 4096}});
  add(all, "Decay", DecayMode, {0, 1, 2, 3});
  add(all, "Gain", Gain, {0, 1, 2, 3});
  add(all, "Ref. Freq (Gain 3)", ReferenceFrequency, {100, 500, 2000, 10000}, {{Gain, 3}});
  add(all, "FFT length", FFTLength, {8, 32, 64, 512});
  add(all, "Y Scale", VerticalScale, {1, 20, 60, 200});
  add(all, "X Scale", HorizontalScale, {1, 2, 5, 16});
  add(all, "Veloc. (bars)", Decay, {1, 4, 8, 16});
  add(all, "Picks", PeakCount, {0, 1, 3, 5}, {{DrawPeaks, 1}});
  add(all, "Delay", PeakDelay, {0, 10, 25, 50}, {{DrawPeaks, 1}});
  add(all, "Veloc. (marks)", PeakSpeed, {0, 10, 25, 50}, {{DrawPeaks, 1}});
  return all;
}

QImage page(int cells) {
  QImage image(kColumns * kCell.width() + 10, (cells + kColumns - 1) / kColumns * kCell.height() + 8,
               QImage::Format_RGB32);
  image.fill(QColor(0x2C3035));
  return image;
}

QPoint cell(int index) { return {10 + index % kColumns * kCell.width(), 18 + index / kColumns * kCell.height()}; }

QImage sheet(std::span<const SoundFrame> music) {
  const std::vector<Sample> all = samples();
  QImage image = page(static_cast<int>(all.size()));
  QPainter painter(&image);
  for (int i = 0; i < static_cast<int>(all.size()); ++i) {
    Show show(kDefault, all[static_cast<std::size_t>(i)].settings, music);
    show.hear(kBefore);
    draw_caption(painter, cell(i) - QPoint(0, 5), all[static_cast<std::size_t>(i)].name, {.bold = true});
    show.draw(painter, cell(i));
  }
  return image;
}

QImage film(const Settings& state, std::span<const SoundFrame> music) {
  QImage image = page(kFilmPictures);
  QPainter painter(&image);
  Show show(state, {}, music);
  show.hear(kBefore);
  for (int i = 0; i < kFilmPictures; ++i) {
    show.draw(painter, cell(i));
    draw_caption(painter, cell(i) - QPoint(0, 5), QStringLiteral("%1 ms").arg(i * 50 / 3));
    show.hear(1.0 / 60.0);
  }
  return image;
}

QImage drawn(std::string_view what, std::span<const SoundFrame> music) {
  if (what == "sheet") return sheet(music);
  if (what == "first") return film(kFirstStart, music);
  if (what == "default") return film(kDefault, music);
  return {};
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  if (argc != 5) {
    std::fprintf(stderr, "usage: spectrum_picture sheet|first|default SONG.wav SECOND FILE.png\n");
    return 2;
  }
  const double second = std::atof(argv[3]);
  const std::vector<SoundFrame> music = piece_of_music(argv[2], std::max(0.0, second - kBefore), kBefore + 2.0);
  const QImage image = drawn(argv[1], music);
  if (!music.empty() && !image.isNull() && image.save(QString::fromLocal8Bit(argv[4]))) return 0;
  std::fprintf(stderr, "nothing drawn: is there music in %s?\n", argv[2]);
  return 1;
}
