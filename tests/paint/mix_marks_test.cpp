// What shows a change of songs: the marks of the position slider and the breath of the lead lamp.
#include <gtest/gtest.h>

#include <cmath>

#include "paint/controls/fader.h"
#include "paint/controls/lamps.h"
#include "paint/strokes/palette.h"
#include "sketch.h"

namespace tandem {
namespace {

const QRectF kSlider(3, 3, 204, 14);

QImage slider_picture(const SliderState& look) {
  return sketch({210, 22}, 2, [&](QPainter& painter) { paint_slider(painter, kSlider, look); });
}

/// x at 200 % of a share of the slider.
int place(double share) {
  return static_cast<int>(std::lround(2 * (3 + kSliderCapWidth / 2 + (204 - kSliderCapWidth) * share)));
}

/// Whether a pixel within two of a place is nearly of the colour.
bool shows(const QImage& picture, int x, int y, QRgb colour) {
  const auto near = [](int a, int b) { return std::abs(a - b) < 40; };
  for (int dx = -2; dx <= 2; ++dx) {
    const QRgb pixel = picture.pixel(x + dx, y);
    if (near(qRed(pixel), qRed(colour)) && near(qGreen(pixel), qGreen(colour)) && near(qBlue(pixel), qBlue(colour)))
      return true;
  }
  return false;
}

constexpr int kFlagRow = 8;     // within the mark's triangle
constexpr int kSecondRow = 26;  // of the second bar
constexpr int kPlayedRow = 20;
constexpr int kLeadRow = 6;  // of the line over the lead

TEST(PositionSlider, MarksWhereTheNextSongStarts) {
  const QImage none = slider_picture({.share = .2});
  const QImage marked = slider_picture({.share = .2, .next_start = .75});
  EXPECT_FALSE(shows(none, place(.75), kFlagRow, palette::kMixMark));
  EXPECT_TRUE(shows(marked, place(.75), kFlagRow, palette::kMixMark));
  EXPECT_FALSE(shows(marked, place(.5), kFlagRow, palette::kMixMark));
}

TEST(PositionSlider, ASecondBarShowsTheOtherSongWhileTwoSound) {
  const QImage one = slider_picture({.share = .6, .next_start = .9});
  const QImage two = slider_picture({.share = .6, .next_start = .9, .overlapping = .3});
  EXPECT_TRUE(shows(two, place(.15), kSecondRow, palette::kOrange));
  EXPECT_FALSE(shows(two, place(.45), kSecondRow, palette::kOrange)) << "only as far as its own place";
  EXPECT_FALSE(shows(one, place(.15), kSecondRow, palette::kOrange));
  EXPECT_TRUE(shows(two, place(.15), kPlayedRow, palette::kLime)) << "the song of the counter keeps its line";
  EXPECT_TRUE(shows(two, place(.9), kFlagRow, palette::kOrange)) << "the mark is lit";
}

TEST(PositionSlider, ALineOverTheLeadLastsAsLongAsTwoSongsSound) {
  const QImage one = slider_picture({.share = .2, .next_start = .75});
  const QImage two = slider_picture({.share = .2, .next_start = .75, .overlapping = .1});
  EXPECT_TRUE(shows(two, place(.85), kLeadRow, palette::kOrange));
  EXPECT_TRUE(shows(two, place(1), kLeadRow, palette::kOrange)) << "to the end of the groove";
  EXPECT_FALSE(shows(two, place(.65), kLeadRow, palette::kOrange)) << "no sooner than the mark";
  EXPECT_FALSE(shows(one, place(.85), kLeadRow, palette::kOrange));
}

// 3.5 of 240 seconds are three pixels of the slider: the cap covers them.
TEST(PositionSlider, AMixInALongSongIsSeenAtTheCapAndOverIt) {
  constexpr double kMark = 1 - 3.5 / 240;
  constexpr int kCapRow = 28;  // below the groove, on the cap's line
  const QImage one = slider_picture({.share = kMark, .next_start = kMark});
  const QImage two = slider_picture({.share = kMark, .next_start = kMark, .overlapping = .001});
  EXPECT_TRUE(shows(two, place(kMark), kCapRow, palette::kOrange));
  EXPECT_FALSE(shows(one, place(kMark), kCapRow, palette::kOrange));
  EXPECT_TRUE(shows(two, place(1), kLeadRow, palette::kOrange));
  EXPECT_FALSE(shows(one, place(1), kLeadRow, palette::kOrange));
}

QImage lamp_picture(std::optional<double> breath) {
  const LampState look{.colour = palette::kOrange, .lit = true, .breath = breath};
  return sketch({30, 30}, 2, [&](QPainter& painter) { paint_lead_lamp(painter, {7, 7, 16, 16}, look); });
}

TEST(LeadLamp, BreathesFromItsCalmLightToABrighterOne) {
  const auto light = [](const QImage& picture) {
    int sum = 0;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) sum += qRed(picture.pixel(x, y)) + qGreen(picture.pixel(x, y));
    return sum;
  };
  EXPECT_EQ(lamp_picture(0.), lamp_picture({})) << "no jump when the overlap begins";
  EXPECT_GT(light(lamp_picture(.5)), light(lamp_picture(0.)));
  EXPECT_GT(light(lamp_picture(1.)), light(lamp_picture(.5)));
}

TEST(LeadLamp, ItsHaloGrowsByTwoPixelsWithItsBreath) {
  const auto halo = [](double breath) {  // pixels at 200 % of the middle row that are not as on a dark lamp's
    const LampState dark{.colour = palette::kOrange};
    const QImage without = sketch({30, 30}, 2, [&](QPainter& p) { paint_lead_lamp(p, {7, 7, 16, 16}, dark); });
    const QImage with = lamp_picture(breath);
    int count = 0;
    for (int x = 0; x < with.width(); ++x) count += with.pixel(x, 30) != without.pixel(x, 30);
    return count;
  };
  EXPECT_GE(halo(1), halo(0) + 2 * 2 * 2) << "two px on either side";
}

}  // namespace
}  // namespace tandem
