// Texts are painted in their full colour, and stand out from their ground.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "contrast.h"
#include "controls/panel_groups.h"
#include "paint/controls/head_strip.h"
#include "paint/controls/key.h"
#include "paint/controls/song_list.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"
#include "sketch.h"
#include "tools/pictures/panel_scene.h"

namespace tandem {
namespace {

using namespace Qt::StringLiterals;

constexpr double kContrastScale = 2;  // the strokes of the smallest letters are wider than a pixel here
constexpr int kShine = 12;            // levels that the light of the glass may add to an ink

/// The colours of a box from the darkest to the lightest.
std::vector<QRgb> by_light(const QImage& picture, const QRectF& box) {
  const QRect pixels = QRectF(box.topLeft() * kContrastScale, box.size() * kContrastScale).toAlignedRect();
  std::vector<QRgb> colours;
  for (int y = pixels.top(); y <= pixels.bottom(); ++y)
    for (int x = pixels.left(); x <= pixels.right(); ++x) colours.push_back(picture.pixel(x, y));
  std::sort(colours.begin(), colours.end(), [](QRgb a, QRgb b) { return luminance(a) < luminance(b); });
  return colours;
}

/// What a text stands on: letters cover less than half of the box.
QRgb ground_of(const QImage& picture, const QRectF& box) {
  const std::vector<QRgb> colours = by_light(picture, box);
  return colours[(colours.size() - 1) / 2];
}

QRgb lightest_of(const QImage& picture, const QRectF& box) { return by_light(picture, box).back(); }

int difference(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

void expect_contrast(const QImage& picture, const QRectF& box, QRgb colour, double least, const std::string& what) {
  EXPECT_GE(contrast(colour, ground_of(picture, box)), least - kContrastRounding) << what;
}

/// The lightest that is painted is the text in its full colour.
void expect_ink(const QImage& picture, const QRectF& box, QRgb ink, const std::string& what) {
  const QRgb lightest = lightest_of(picture, box);
  EXPECT_LE(difference(lightest, ink), kShine) << what << ": " << QColor(lightest).name().toStdString();
}

void expect_text(const QImage& picture, const QRectF& box, QRgb ink, double least, const std::string& what) {
  expect_contrast(picture, box, ink, least, what);
  expect_ink(picture, box, ink, what);
}

std::int32_t chosen_position(const PanelControls& c, std::string_view control) {
  if (control == "MMSwitchX1") return c.MMSwitchX1.value();
  if (control == "BufferSwitch") return c.BufferSwitch.value();
  if (control == "Bypass") return c.Bypass.value();
  return (c.*kBoardSwitches.at(static_cast<std::size_t>(control.back() - '1'))).value();
}

TEST(PaintedContrast, OfPositionCaptionsIsKept) {
  PanelScene scene("board-open", kContrastScale);
  const QImage picture = scene.picture();
  for (const PositionCaption& caption : position_captions()) {
    const bool faceplate = control_box(caption.control).group == ControlGroup::Mix;
    const bool chosen = chosen_position(scene.controls(), caption.control) == caption.position;
    const std::string what = std::string(caption.control) + " " + std::string(caption.caption);
    expect_contrast(picture, caption.box(), palette::kLegendUnchosen, faceplate ? 5.9 : 7.1, what);
    expect_contrast(picture, caption.box(), palette::kWhite, faceplate ? 8.7 : 10.5, what + ", chosen");
    expect_ink(picture, caption.box(), chosen ? palette::kWhite : palette::kLegendUnchosen, what);
  }
}

// A lamp's caption is white while it is lit.
QRgb caption_ink(const PanelControls& c, std::string_view name) {
  for (std::size_t i = 0; i < kLeadTimes.size(); ++i)
    if (name == control_box("Label3", static_cast<int>(i) + 1).name)
      return (c.*kLeadTimes[i].lamp).LEDColor == kLeadLit ? palette::kWhite : palette::kLegendUnchosen;
  for (std::size_t i = 0; i < kOptionLamps.size(); ++i)
    if (name == control_box("Label5", static_cast<int>(i)).name)
      return (c.*kOptionLamps[i]).LEDColor == clLime ? palette::kWhite : palette::kLegend;
  if (name == "Label5(5)") return c.MMLEDX6.LEDColor == clYellow ? palette::kWhite : palette::kLegend;
  return palette::kLegend;
}

TEST(PaintedContrast, OfPrintedCaptionsIsKept) {
  PanelScene scene("board-open", kContrastScale);
  const QImage board = scene.picture();
  int seen = 0;
  for (const ControlBox& control : panel_layout()) {
    if (control.kind != ControlKind::Caption) continue;
    const bool faceplate = control.name == "Label3(5)" || control.name == "PITCH legend";
    expect_contrast(board, control.box(), palette::kLegend, faceplate ? 8.7 : 10.5, std::string(control.name));
    expect_ink(board, control.box(), caption_ink(scene.controls(), control.name), std::string(control.name));
    ++seen;
  }
  EXPECT_GT(seen, 30);
  for (std::size_t band = 0; band < kBands; ++band) {
    const QRectF box = control_box("dbLabel0", static_cast<int>(band)).box().adjusted(2, 2, -2, -2);
    const bool flat = scene.controls().dbLabel0[band].Caption.get() == " 0";
    expect_contrast(board, box, palette::kLegendUnchosen, 8.7, "a gain");
    expect_ink(board, box, flat ? palette::kLegendUnchosen : palette::kWhite, "a gain");
  }
  expect_text(board, {8, 3, 46, 8}, palette::kNameStrip, 5.6, "name strip");
  for (const char* name : {"Minimise", "Close"})
    expect_text(board, control_box(name).box(), palette::kLegend, 6.7, name);
}

// The parts of a row: number, the begin of the directory, and the file at its end.
struct Columns {
  explicit Columns(const QRectF& row)
      : number(row.left() + 8, row.top(), 22, row.height()),
        directory(row.left() + 34, row.top(), caption_width(u"/home/ana/"_s), row.height()),
        line(row) {}
  QRectF number;
  QRectF directory;
  QRectF line;
};

TEST(PaintedContrast, OfTheListIsKept) {
  const QImage picture = PanelScene("full-playlist", kContrastScale).picture();
  const QRectF box = control_box("PlayList").box();
  for (int row = 0; row < 9; ++row) {
    const Columns columns(list_row_box(box, row, 0).adjusted(0, 1, 0, -1));
    const double stripe = row % 2 == 0 ? 1 : .93;  // every second row is a little lighter,
    const double shade = row < 5 ? .77 : stripe;   // and the upper ones lie in the light that the glass catches
    const bool sounds = row == 3;
    expect_text(picture, columns.number, sounds ? palette::kWhite : palette::kLegendUnchosen, 9.9 * shade, "number");
    expect_text(picture, columns.directory, palette::kListDirectory, 6.4 * shade, "directory");
    expect_text(picture, columns.line, sounds ? palette::kWhite : palette::kListFile, 15.9 * shade, "file");
  }
  const QRectF row = list_row_box(box, 9, 0).adjusted(4, 1, -2, -1);
  const QRectF lightest(row.left(), row.top(), row.width(), 1);
  expect_contrast(picture, lightest, palette::kListSelectedDirectory, 4.7, "directory of the selected file");
  expect_contrast(picture, lightest, palette::kWhite, 6.0, "selected file");
  const Columns selected(list_row_box(box, 9, 0).adjusted(0, 1, 0, -1));
  expect_ink(picture, selected.number, palette::kWhite, "number of the selected file");
  expect_ink(picture, selected.directory, palette::kListSelectedDirectory, "directory of the selected file");
  expect_ink(picture, selected.line, palette::kWhite, "selected file");
}

/// The colour of a box that is nearest to an ink, among others that may be lighter.
int nearest(const QImage& picture, const QRectF& box, QRgb ink) {
  int least = 255;
  for (const QRgb colour : by_light(picture, box)) least = std::min(least, difference(colour, ink));
  return least;
}

TEST(PaintedContrast, OfTheNeedleMetersIsKept) {
  const QImage picture = PanelScene("full-vu", kContrastScale).picture();
  for (const QRectF& meter : {left_meter_box(), right_meter_box()}) {
    const QRectF foot(meter.left(), meter.bottom() - 18, meter.width(), 12);
    expect_text(picture, {foot.left() + 6, foot.top(), 12, 12}, palette::kSilver, 7, "L and R");
    expect_text(picture, {foot.right() - 28, foot.top(), 20, 12}, palette::kSilver, 6.9, "dB");
    const QRectF scale = meter.adjusted(4, 4, -4, -50);
    expect_contrast(picture, scale, palette::kLime, 10, "scale");
    EXPECT_LE(nearest(picture, scale, palette::kLime), kShine);
    const QRectF needle = meter.adjusted(4, 20, -4, -40);
    expect_contrast(picture, needle, palette::kNeedle, 5.9, "needle");
    EXPECT_LE(nearest(picture, needle, palette::kNeedle), kShine);
  }
}

// Whatever colour the panel's logic gives a key, its caption stands on dark.
TEST(PaintedContrast, OfAKeysCaptionIsKeptBesideEveryColour) {
  const QRectF box(10, 10, 53, 24);
  for (const QRgb colour : {palette::kLime, 0xFF0000FFU, palette::kSilver, palette::kAqua, palette::kYellow,
                            palette::kWhite, palette::kRed, 0xFF8080FFU, palette::kNeutralKey}) {
    for (const bool lit : {false, true}) {
      for (const double hover : {0., 1.}) {
        KeyState look{.back_colour = colour, .lit = lit, .interaction = {.hover = hover}};
        const auto drawn = [&] {
          return sketch({80, 44}, kContrastScale, [&](QPainter& p) { paint_key(p, box, look); });
        };
        const QRectF caption(18, 16, 37, 12);
        const QRgb ink = lit ? palette::kWhite : palette::kLegend;
        const std::string what =
            QColor(colour).name().toStdString() + (lit ? " lit" : "") + (hover > 0 ? " hover" : "");
        EXPECT_GE(contrast(ink, lightest_of(drawn(), caption)), 7) << what;
        look.caption = u"Save"_s;
        expect_ink(drawn(), caption, ink, what);
      }
    }
  }
}

// The ring lies outside the control, on what is there without it.
TEST(PaintedContrast, OfTheFocusRingIsKept) {
  PanelScene scene("full-equalizer", kContrastScale);
  const QImage without = scene.picture();
  scene.window().activateWindow();
  for (int i = 0; i < 100 && !scene.window().isActiveWindow(); ++i) QCoreApplication::processEvents();
  for (const char* name : {"PLAY", "LoadSong", "ShowPlayList"}) {
    scene.window().item(name)->setFocus(Qt::TabFocusReason);
    const QImage picture = scene.picture();
    const QRectF box = control_box(name).box();
    const QRectF below(box.left() + 4, box.bottom() + 1, box.width() - 8, 1);
    expect_contrast(without, below, palette::kFocus, 6.7, name);
    EXPECT_LE(nearest(picture, below, palette::kFocus), kShine) << name;
    EXPECT_GT(nearest(without, below, palette::kFocus), 10 * kShine) << name;
  }
  const QRectF knob = control_box("MMSwitchX1").box();
  expect_contrast(without, {knob.left(), knob.bottom() + 1, knob.width(), 1}, palette::kFocus, 6.7, "a knob");
}

}  // namespace
}  // namespace tandem
