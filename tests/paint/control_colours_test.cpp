// Colours that carry a state are exact; sampled where a control shows them without sheen.
#include <gtest/gtest.h>

#include "paint/controls/fader.h"
#include "paint/controls/gauge.h"
#include "paint/controls/key.h"
#include "paint/controls/lamps.h"
#include "paint/controls/spinner.h"
#include "paint/strokes/palette.h"
#include "sketch.h"

namespace tandem {
namespace {

using namespace Qt::StringLiterals;

constexpr double kScales[] = {1, 2, 3};

TEST(Key, ShowsItsBackColourExactlyAtHalfHeight) {
  for (const double scale : kScales) {
    for (const QRgb colour : {0xFF0000FFU, 0xFFC04000U, 0xFF808000U, 0xFFC0C0C0U, 0xFF1F7A33U}) {
      const QImage picture = sketch({60, 40}, scale, [&](QPainter& painter) {
        paint_key(painter, {10, 5, 40, 30}, {.back_colour = colour, .lit = true});
      });
      EXPECT_EQ(picture.pixel(static_cast<int>(11.5 * scale), static_cast<int>(20 * scale)), colour) << scale;
    }
  }
}

QImage key_picture(const KeyState& look) {
  return sketch({60, 40}, 2, [&](QPainter& painter) { paint_key(painter, {10, 5, 40, 30}, look); });
}

TEST(Key, GlowsOnlyWhenLitAndEnabled) {
  KeyState look{.back_colour = palette::kYellow, .lit = true};
  const QPoint outside(19, 40);  // half a pixel left of the box
  EXPECT_NE(key_picture(look).pixel(outside), 0xFF000000);
  look.interaction.enabled = false;
  EXPECT_EQ(key_picture(look).pixel(outside), 0xFF000000);
  look.interaction.enabled = true;
  look.lit = false;
  EXPECT_EQ(key_picture(look).pixel(outside), 0xFF000000);
}

TEST(Key, ADisabledKeyIgnoresTheMouse) {
  KeyState look{.icon = Icon::Next, .caption = u"x"_s};
  look.interaction.enabled = false;
  const QImage rest = key_picture(look);
  look.interaction.pressed = true;
  EXPECT_EQ(key_picture(look), rest);
}

TEST(Key, EveryStateLooksDifferent) {
  QList<QImage> pictures;
  for (int state = 0; state < 5; ++state) {
    KeyState look{.icon = Icon::Play};
    look.interaction.hover = state == 1 ? 1 : 0;
    look.interaction.pressed = state == 2;
    look.interaction.focused = state == 3;
    look.interaction.enabled = state != 4;
    for (const QImage& other : pictures) EXPECT_NE(key_picture(look), other) << state;
    pictures.append(key_picture(look));
  }
}

TEST(Key, NothingReachesBeyondThePaintMargin) {
  KeyState look{.back_colour = palette::kLime, .lit = true};
  look.interaction.focused = true;
  const QImage picture = key_picture(look);
  const QRect inside = QRect(20, 10, 80, 60).adjusted(-2 * kPaintMargin, -2 * kPaintMargin, 2 * kPaintMargin, 0);
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (x >= inside.left() && x <= inside.right()) continue;
      EXPECT_EQ(picture.pixel(x, y), 0xFF000000);
    }
  }
}

TEST(Icon, IconesAreInTheirOrder) {
  EXPECT_EQ(icone(0), Icon::Play);
  EXPECT_EQ(icone(3), Icon::PauseActive);
  EXPECT_EQ(icone(5), Icon::StopActive);
  EXPECT_EQ(icone(6), Icon::None);
  EXPECT_EQ(icone(-1), Icon::None);
}

TEST(Icon, ActivePicturesHaveTheirColours) {
  const auto middle = [](Icon icon) {
    return sketch({40, 40}, 2, [&](QPainter& p) { paint_icon(p, {20, 20}, icon, true); }).pixel(40 - 6, 40);
  };
  EXPECT_EQ(middle(Icon::PlayActive), palette::kLime);
  EXPECT_EQ(middle(Icon::PauseActive), palette::kYellow);
  EXPECT_EQ(middle(Icon::StopActive), palette::kStopRed);
  EXPECT_EQ(middle(Icon::Stop), palette::kLegend);
}

TEST(Stud, IsExactInItsMiddle) {
  for (const bool pressed : {false, true}) {
    const QImage picture = sketch({20, 20}, 3, [&](QPainter& painter) {
      paint_stud(painter, {3, 3, 13, 13}, {.hover = pressed ? 1. : 0., .pressed = pressed});  // the mouse presses
    });
    EXPECT_EQ(picture.pixel(28, 28), pressed ? 0xFF808080 : palette::kSilver);
  }
}

TEST(LeadLamp, ShowsItsColourExactly) {
  for (const QRgb colour : {palette::kOrange, palette::kBrown}) {
    const QImage picture = sketch({40, 20}, 3, [&](QPainter& painter) {
      paint_lead_lamp(painter, {20, 2, 16, 16}, {colour, colour == palette::kOrange, u"2,5"_s, {}});
    });
    EXPECT_EQ(picture.pixel(3 * 28 + 3, 3 * 10 + 3), colour);
  }
}

TEST(LampButton, ShowsItsColourExactlyBesideTheCore) {
  for (const QRgb colour : {palette::kLime, palette::kGreen, palette::kYellow, palette::kOlive}) {
    const bool lit = colour == palette::kLime || colour == palette::kYellow;
    const QImage picture = sketch({60, 30}, 3, [&](QPainter& painter) {
      paint_lamp_button(painter, {10, 8, 22, 11}, {colour, lit, u"Grid"_s, {}});
    });
    EXPECT_EQ(picture.pixel(3 * 12, 3 * 14), colour);
  }
}

TEST(PitchLamp, IsExactLitAndDark) {
  const auto picture = [](bool lit, QRgb colour) {
    return sketch({40, 16}, 2, [&](QPainter& painter) { paint_pitch_lamp(painter, {5, 5, 30, 6}, colour, lit); });
  };
  EXPECT_EQ(picture(true, palette::kRed).pixel(40, 19), palette::kRed);
  EXPECT_EQ(picture(false, palette::kMaroon).pixel(40, 16), palette::kMaroon);
  EXPECT_EQ(picture(false, palette::kMaroon).pixel(40, 11), 0xFF000000) << "a dark lamp is thin";
}

QImage gauge_picture(double percent) {
  return sketch({240, 12}, 1, [&](QPainter& painter) { paint_gauge(painter, {4, 3, 231, 6}, percent); });
}

int lit_segments(const QImage& picture) {
  int lit = 0;
  for (int i = 0; i < 58; ++i) {
    const QRgb colour = picture.pixel(5 + 4 * i, 4);
    lit += colour == palette::kGauge || colour == palette::kYellow ? 1 : 0;
  }
  return lit;
}

TEST(Gauge, LightsTheRoundedShareOfItsSegments) {
  EXPECT_EQ(lit_segments(gauge_picture(0)), 0);
  EXPECT_EQ(lit_segments(gauge_picture(78)), 45);
  EXPECT_EQ(lit_segments(gauge_picture(100)), 58);
}

TEST(Gauge, SegmentsAreWholePixelsAtEveryScale) {
  for (const double scale : {1.25, 1.5, 1.75, 2., 3.}) {
    const QImage picture = sketch({260, 12}, scale, [](QPainter& painter) {
      paint_gauge(painter, {15, 3, 231, 6}, 50);
    });
    for (int x = static_cast<int>(20 * scale); x < 110 * scale; ++x) {
      const int red = qRed(picture.pixel(x, static_cast<int>(6 * scale)));
      EXPECT_TRUE(red > 188 || red < 60) << "a segment or the glow between two, at " << scale << ": " << red;
    }
  }
}

TEST(Gauge, IsYellowAboveThreeQuartersAndLowWhereDark) {
  const QImage picture = gauge_picture(90);
  EXPECT_EQ(picture.pixel(5 + 4 * 42, 5), palette::kGauge);   // segment 43 of 58: 74.1 %
  EXPECT_EQ(picture.pixel(5 + 4 * 43, 5), palette::kYellow);  // segment 44: 75.9 %
  EXPECT_EQ(picture.pixel(5 + 4 * 57, 8), palette::kOlive);
  EXPECT_EQ(picture.pixel(5 + 4 * 57, 6), 0xFF000000);
}

TEST(Fader, ValueAndPlaceAreInverse) {
  const QRectF box(267, 144, 22, 84);
  FaderState look;
  for (int value = -12; value <= 12; ++value) {
    look.value = value;
    EXPECT_DOUBLE_EQ(fader_y(box, look), 150 + 3 * (12 - value));
    EXPECT_NEAR(fader_value(box, look, fader_y(box, look)), value, 1e-9);
  }
}

TEST(Fader, ShowsALitLineOnlyAwayFromZero) {
  const auto picture = [](double value) {
    return sketch({30, 90}, 2, [&](QPainter& painter) { paint_fader(painter, {4, 3, 22, 84}, {.value = value}); });
  };
  const QPoint below_cap(30, 2 * 42);  // groove between +4 and zero
  EXPECT_GT(qGreen(picture(4).pixel(below_cap)), 200);
  EXPECT_LT(qGreen(picture(-4).pixel(QPoint(30, 2 * 3 + 2 * 30))), 40);
  const QPoint cap_line(30, 2 * (3 + 6 + 36));
  EXPECT_EQ(picture(0).pixel(cap_line), palette::kWhite) << "the cap's own line is white at zero";
}

TEST(Spinner, ShowsItsLastDigitsAndDarkLeadingOnes) {
  const auto picture = [](int value) {
    return sketch({60, 26}, 3, [&](QPainter& painter) { paint_spinner(painter, {2, 2, 56, 22}, {value, 4}); });
  };
  EXPECT_EQ(picture(12345), picture(2345));
  EXPECT_NE(picture(345), picture(345 + 8000));
  EXPECT_NE(picture(345), picture(345 + 0 * 1000 + 10000)) << "a leading zero that belongs to the number is lit";
}

TEST(Spinner, ButtonsLieInTheBox) {
  const QRectF box(100, 50, 36, 22);
  EXPECT_TRUE(box.contains(spinner_up_box(box)));
  EXPECT_TRUE(box.contains(spinner_down_box(box)));
  EXPECT_FALSE(spinner_up_box(box).intersects(spinner_down_box(box)));
  EXPECT_EQ(spinner_up_box(box), QRectF(122, 51, 13, 9.5));
}

TEST(SlideSwitch, TheCapIsAsDesigned) {
  const auto picture = [](double cap) {
    return sketch({60, 40}, 2, [&](QPainter& painter) { paint_slide_switch(painter, {4, 4, 12, 32}, {.cap = cap}); });
  };
  const auto light_at = [](const QImage& image, double y) {
    return qGray(image.pixel(2 * 6, static_cast<int>(2 * y)));
  };
  EXPECT_GT(light_at(picture(0), 8), light_at(picture(0), 32) + 50);
  EXPECT_GT(light_at(picture(1), 24), light_at(picture(1), 8) + 50);
}

}  // namespace
}  // namespace tandem
