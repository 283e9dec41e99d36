#include "paint/text/caption.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "paint/panel/panel_background.h"
#include "paint/strokes/palette.h"
#include "sketch.h"

namespace tandem {
namespace {

using namespace Qt::StringLiterals;

TEST(Caption, FontIsTheProgramsOwn) {
  EXPECT_EQ(QFontInfo(caption_font(10.5)).family(), u"Roboto Condensed"_s);
  EXPECT_GT(caption_width(u"Auto MIX"_s, {.bold = true}), caption_width(u"Auto MIX"_s));
}

TEST(Caption, SpacingIsAddedAfterEveryLetter) {
  EXPECT_NEAR(caption_width(u"IIII"_s, {.spacing = 2}) - caption_width(u"IIII"_s), 8, .05);
}

TEST(Caption, AnchorsHoldTheText) {
  const auto ink = [](Anchor anchor) {
    const QImage picture = sketch({200, 30}, 1, [&](QPainter& painter) {
      draw_caption(painter, {100, 20}, u"HHHHHHHH"_s, {}, anchor);
    });
    int sum = 0;
    int weight = 0;
    for (int x = 0; x < 200; ++x) {
      for (int y = 0; y < 30; ++y) {
        const int level = qGray(picture.pixel(x, y));
        sum += level * x;
        weight += level;
      }
    }
    return static_cast<double>(sum) / weight;
  };
  EXPECT_NEAR(ink(Anchor::Middle), 99.5, .6);
  EXPECT_GT(ink(Anchor::Start), 105);
  EXPECT_LT(ink(Anchor::End), 95);
}

TEST(Caption, HorizontalStrokesAreWholeRowsWhereTextIsSmall) {
  for (const double scale : {1., 1.25}) {
    for (const double size : {8.5, 10., 10.5, 11.}) {
      const QImage picture = sketch({60, 30}, scale, [size](QPainter& painter) {
        draw_caption(painter, {10, 20.3}, u"EEEE"_s, {.size = size, .colour = palette::kWhite});
      });
      std::vector<int> rows;  // ink of each row that has any
      for (int y = 0; y < picture.height(); ++y) {
        int ink = 0;
        for (int x = 0; x < picture.width(); ++x) ink += qGray(picture.pixel(x, y));
        if (ink > 0) rows.push_back(ink);
      }
      const int most = *std::max_element(rows.begin(), rows.end());
      EXPECT_GT(rows.front(), most * .7) << "the upper stroke, " << size << " px at " << scale;
      EXPECT_GT(rows.back(), most * .7) << "the foot, " << size << " px at " << scale;
    }
  }
}

TEST(Caption, ItsLastLetterStandsInProportionAtEveryScale) {
  const auto right_edge = [](double scale) {
    const QImage picture = sketch({120, 30}, scale, [](QPainter& painter) {
      draw_caption(painter, {10, 20}, u"Gaussiano Exponenc. HHHH"_s);
    });
    for (int x = picture.width() - 1; x > 0; --x) {
      for (int y = 0; y < picture.height(); ++y) {
        if (qGray(picture.pixel(x, y)) > 64) return (x + 1) / scale;
      }
    }
    return 0.;
  };
  const double at_full_resolution = right_edge(8);
  for (const double scale : {1., 1.25, 1.5, 2., 3.}) EXPECT_NEAR(right_edge(scale), at_full_resolution, .8) << scale;
}

TEST(PanelBackground, DependsOnTheWindowStateAlone) {
  const auto background = [](WindowState state) {
    return sketch(window_size(state.size), 1, [&](QPainter& painter) { paint_background(painter, state); });
  };
  const QImage list = background({WindowSize::Full, true});
  const QImage equalizer = background({WindowSize::Full, false});
  EXPECT_NE(list, equalizer);
  const QRect left(0, 0, 260, 258);
  EXPECT_EQ(list.copy(left), equalizer.copy(left));
  EXPECT_EQ(background({WindowSize::Full, true}), list) << "caches do not show";
}

}  // namespace
}  // namespace tandem
