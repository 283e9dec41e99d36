// Texts and lamps can be told from what they stand on: by the palette's colours, and by what is painted.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "paint/head_strip.h"
#include "paint/palette.h"
#include "paint/panel_painter.h"
#include "paint/panel_specimens.h"
#include "sketch.h"

namespace tandem {
namespace {

using namespace Qt::StringLiterals;

constexpr double kRounding = .05;  // the ratios have one decimal

double linear(int channel) {
  const double share = channel / 255.;
  return share <= .04045 ? share / 12.92 : std::pow((share + .055) / 1.055, 2.4);
}

double luminance(QRgb colour) {
  return .2126 * linear(qRed(colour)) + .7152 * linear(qGreen(colour)) + .0722 * linear(qBlue(colour));
}

// As the Web Content Accessibility Guidelines 2 define it, 1 .. 21.
double contrast(QRgb a, QRgb b) {
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + .05) / (darker + .05);
}

TEST(Contrast, OfBlackAndWhiteIsTheGreatest) {
  EXPECT_NEAR(contrast(palette::kBlack, palette::kWhite), 21, 1e-9);
  EXPECT_NEAR(contrast(palette::kWhite, palette::kBlack), 21, 1e-9);
  EXPECT_NEAR(contrast(palette::kRed, palette::kRed), 1, 1e-9);
}

struct Pair {
  const char* what;
  QRgb colour;
  QRgb ground;  // where it goes over from one colour into another, the one with the least contrast
  double least;
};

constexpr Pair kTexts[] = {
    {"legend on a recessed panel", palette::kLegend, palette::kRecessBottom, 10.5},
    {"unchosen legend on a recessed panel", palette::kLegendUnchosen, palette::kRecessBottom, 7.1},
    {"chosen legend on a recessed panel", palette::kWhite, palette::kRecessBottom, 13.6},
    {"legend in a well", palette::kLegend, palette::kWellBottom, 12.8},
    {"unchosen legend and flat gain in a well", palette::kLegendUnchosen, palette::kWellBottom, 8.7},
    {"gain in a well", palette::kWhite, palette::kWellBottom, 16.7},
    {"caption of a key", palette::kLegend, palette::kTileTop, 9.5},
    {"caption of a lit key", palette::kWhite, palette::kTileTop, 12.3},
    {"caption of a key under the pointer", palette::kLegend, palette::kTileHoverTop, 7.6},
    {"caption of a disabled key", palette::kDisabledCaption, palette::kTileFlatTop, 4.0},
    {"face of a disabled key", palette::kDisabledFace, palette::kTileFlatTop, 3.3},
    {"name strip", palette::kNameStrip, palette::kFaceplate[0], 5.6},
    {"signs of the head", palette::kLegend, palette::kFaceplate[0], 6.7},
    {"number in the list", palette::kLegendUnchosen, palette::kGlassTop, 9.9},
    {"directory in the list", palette::kListDirectory, palette::kGlassTop, 6.4},
    {"file in the list", palette::kListFile, palette::kGlassTop, 15.9},
    {"selected file", palette::kWhite, palette::kListSelected, 9.2},
    {"directory of the selected file", palette::kListSelectedDirectory, palette::kListSelected, 7.1},
};

constexpr Pair kLights[] = {
    {"small captions on the glass", palette::kCaptionLed, palette::kGlassTop, 9.6},
    {"title on the glass", palette::kWhite, palette::kGlassTop, 19.2},
    {"title on its dark dots", palette::kWhite, palette::kWhiteDots, 14.2},
    {"position on the glass", palette::kLime, palette::kGlassTop, 14.0},
    {"position on its dark dots", palette::kLime, palette::kLimeDots, 10.0},
    {"time of day on the glass", palette::kOrange, palette::kGlassTop, 7.6},
    {"time of day on its dark dots", palette::kOrange, palette::kOrangeDots, 5.9},
    {"yellow read-out", palette::kYellow, palette::kReadOutDots, 11.3},
    {"aqua read-out", palette::kAqua, palette::kReadOutDots, 9.7},
    {"lime digits", palette::kLime, palette::kLimeSpinnerBottom, 12.3},
    {"white digits", palette::kWhite, palette::kWhiteSpinnerBottom, 10.8},
    {"lime segments, lit and dark", palette::kLime, palette::kLimeSegmentDark, 7.6},
    {"white segments, lit and dark", palette::kWhite, palette::kWhiteSegmentDark, 7.1},
    {"green lamp, lit and dark", palette::kLime, palette::kGreen, 3.7},
    {"yellow lamp, lit and dark", palette::kYellow, palette::kOlive, 3.9},
    {"orange lamp, lit and dark", palette::kOrange, palette::kBrown, 3.1},
    {"zero lamp, lit and dark", palette::kAqua, palette::kTeal, 3.8},
    {"gauge, lit and dark", palette::kGauge, palette::kOlive, 2.2},
    {"sign lamp, lit and dark", palette::kRed, palette::kMaroon, 2.7},
};

TEST(Contrast, OfTextsIsKept) {
  for (const Pair& pair : kTexts) EXPECT_GE(contrast(pair.colour, pair.ground), pair.least - kRounding) << pair.what;
}

TEST(Contrast, OfLightsIsKept) {
  for (const Pair& pair : kLights) EXPECT_GE(contrast(pair.colour, pair.ground), pair.least - kRounding) << pair.what;
}

constexpr double kScale = 2;

/// The colour at a place in the order of light: 0 is the darkest pixel of the box, 1 the lightest.
QRgb at_light(const QImage& picture, const QRectF& box, double place) {
  const QRect pixels = QRectF(box.topLeft() * kScale, box.size() * kScale).toAlignedRect();
  std::vector<QRgb> colours;
  for (int y = pixels.top(); y <= pixels.bottom(); ++y)
    for (int x = pixels.left(); x <= pixels.right(); ++x) colours.push_back(picture.pixel(x, y));
  std::sort(colours.begin(), colours.end(), [](QRgb a, QRgb b) { return luminance(a) < luminance(b); });
  return colours.at(static_cast<std::size_t>(place * static_cast<double>(colours.size() - 1)));
}

/// What a text stands on: letters cover less than half of the box.
QRgb ground_of(const QImage& picture, const QRectF& box) { return at_light(picture, box, .5); }

QImage panel(const char* specimen) {
  const PanelLook look = make_specimen(specimen)->look;
  return sketch(window_size(look.window.size), kScale, [&](QPainter& painter) { paint_panel(painter, look); });
}

void expect_contrast(const QImage& picture, const QRectF& box, QRgb colour, double least, const std::string& what) {
  EXPECT_GE(contrast(colour, ground_of(picture, box)), least - kRounding) << what;
}

TEST(Contrast, OfPositionCaptionsAsTheyArePainted) {
  const QImage picture = panel("board-open");
  for (const PositionCaption& caption : position_captions()) {
    const bool faceplate = control_box(caption.control).group == ControlGroup::Mix;
    const std::string what = std::string(caption.control) + " " + std::string(caption.caption);
    expect_contrast(picture, caption.box(), palette::kLegendUnchosen, faceplate ? 5.9 : 7.1, what);
    expect_contrast(picture, caption.box(), palette::kWhite, faceplate ? 8.7 : 10.5, what + ", chosen");
  }
}

TEST(Contrast, OfPrintedCaptionsAsTheyArePainted) {
  const QImage board = panel("board-open");
  int seen = 0;
  for (const ControlBox& control : panel_layout()) {
    if (control.kind != ControlKind::Caption) continue;
    const bool faceplate = control.name == "Label3(5)" || control.name == "PITCH legend";
    expect_contrast(board, control.box(), palette::kLegend, faceplate ? 8.7 : 10.5, std::string(control.name));
    ++seen;
  }
  EXPECT_GT(seen, 30);
  for (int band = 0; band < 15; ++band)
    expect_contrast(board, control_box("dbLabel0", band).box().adjusted(2, 2, -2, -2), palette::kLegendUnchosen, 8.7,
                    "a gain");
  expect_contrast(board, {8, 3, 46, 8}, palette::kNameStrip, 5.6, "name strip");
  for (const char* name : {"Minimise", "Close"})
    expect_contrast(board, control_box(name).box(), palette::kLegend, 6.7, name);
}

TEST(Contrast, OfTheListAsItIsPainted) {
  const QImage picture = panel("full-playlist");
  const QRectF box = control_box("PlayList").box();
  for (int row = 0; row < 9; ++row) {
    const QRectF line = list_row_box(box, row).adjusted(2, 1, -2, -1);
    const double shade = row % 2 == 0 ? 1 : .95;  // every second row is a little lighter
    expect_contrast(picture, line, palette::kListDirectory, 6.4 * shade, "directory");
    expect_contrast(picture, line, palette::kListFile, 15.9 * shade, "file");
    expect_contrast(picture, line, palette::kLegendUnchosen, 9.9 * shade, "number");
  }
  const QRectF selected = list_row_box(box, 9).adjusted(4, 1, -2, -1);
  const QRectF lightest(selected.left(), selected.top(), selected.width(), 1);
  expect_contrast(picture, lightest, palette::kListSelectedDirectory, 4.7, "directory of the selected file");
  expect_contrast(picture, lightest, palette::kWhite, 6.0, "selected file");
}

TEST(Contrast, OfTheNeedleMetersAsTheyArePainted) {
  const QImage picture = panel("full-vu");
  for (const QRectF& meter : {left_meter_box(), right_meter_box()}) {
    const QRectF foot(meter.left(), meter.bottom() - 18, meter.width(), 12);
    expect_contrast(picture, {foot.left() + 6, foot.top(), 12, 12}, palette::kSilver, 7, "L and R");
    expect_contrast(picture, {foot.right() - 28, foot.top(), 20, 12}, palette::kSilver, 7, "dB");
    expect_contrast(picture, meter.adjusted(4, 4, -4, -50), palette::kLime, 10, "scale");
    expect_contrast(picture, meter.adjusted(4, 20, -4, -40), palette::kNeedle, 5.9, "needle");
  }
}

// Whatever colour the panel's logic gives a key, its caption stands on dark.
TEST(Contrast, OfAKeysCaptionIsKeptBesideEveryColour) {
  const QRectF box(10, 10, 53, 24);
  for (const QRgb colour : {palette::kLime, 0xFF0000FFU, palette::kSilver, palette::kAqua, palette::kYellow,
                            palette::kWhite, palette::kRed, 0xFF8080FFU, palette::kNeutralKey}) {
    for (const bool lit : {false, true}) {
      for (const double hover : {0., 1.}) {
        KeyLook look{.back_colour = colour, .lit = lit, .touch = {.hover = hover}};
        const QImage picture = sketch({80, 44}, kScale, [&](QPainter& painter) { paint_key(painter, box, look); });
        const QRgb caption = lit ? palette::kWhite : palette::kLegend;
        const QRgb lightest = at_light(picture, {18, 16, 37, 12}, 1);  // where a caption would stand
        EXPECT_GE(contrast(caption, lightest), 7) << QColor(colour).name().toStdString() << ' ' << lit << ' ' << hover;
      }
    }
  }
}

TEST(Contrast, OfTheFocusRingIsKept) {
  const QImage picture = panel("full-equalizer");
  for (const char* name : {"PLAY", "LoadSong", "ShowPlayList", "MMSwitchX1"}) {
    const QRectF box = control_box(name).box();
    expect_contrast(picture, {box.left(), box.bottom() + 1, box.width(), 1}, palette::kFocus, 6.7, name);
  }
}

}  // namespace
}  // namespace tandem
