#include "tools/pictures/panel_painter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "paint/panel/panel_background.h"
#include "paint/strokes/palette.h"
#include "paint/text/caption.h"
#include "sketch.h"
#include "tools/pictures/sample_panels.h"

namespace tandem {
namespace {

using namespace Qt::StringLiterals;

QImage panel_picture(const PanelState& look, double scale) {
  return sketch(window_size(look.window.size), scale, [&](QPainter& painter) { paint_panel(painter, look); });
}

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

TEST(PanelPainter, EveryExampleHasItsWindowSize) {
  for (const std::string_view name : specimen_names()) {
    const auto specimen = sample_panel(name);
    ASSERT_TRUE(specimen);
    const QImage picture = panel_picture(specimen->look, 1.25);
    const QSize size = window_size(specimen->look.window.size);
    EXPECT_EQ(picture.width(), std::lround(size.width() * 1.25)) << name;
  }
  EXPECT_FALSE(sample_panel("no such state"));
}

TEST(PanelPainter, EveryExampleLooksDifferent) {
  QList<QImage> pictures;
  for (const std::string_view name : specimen_names()) {
    const QImage picture = panel_picture(sample_panel(name)->look, 1);
    EXPECT_FALSE(pictures.contains(picture)) << name;
    pictures.append(picture);
  }
}

TEST(PanelPainter, CornersOfTheWindowStayFree) {
  const QImage picture = [] {
    QImage image(262, 165, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    set_up(painter, 1);
    paint_panel(painter, sample_panel("compact")->look);
    return image;
  }();
  for (const QPoint corner : {QPoint(0, 0), QPoint(261, 0), QPoint(0, 164), QPoint(261, 164)}) {
    EXPECT_LT(qAlpha(picture.pixel(corner)), 80);
  }
  EXPECT_EQ(qAlpha(picture.pixel(5, 5)), 255);
}

// The small window is the top left part of the large one, unchanged.
TEST(PanelPainter, CompactShowsThePartOfTheFullWindow) {
  const QImage full = panel_picture(sample_panel("full-equalizer")->look, 2);
  const QImage compact = panel_picture(sample_panel("compact")->look, 2);
  const QRect common(2 * 4, 2 * 15, 2 * 254, 2 * 147);
  EXPECT_EQ(full.copy(common), compact.copy(common));
}

TEST(PanelPainter, TheBoardLeavesTheRestAlone) {
  const QImage full = panel_picture(sample_panel("full-equalizer")->look, 1);
  auto board = sample_panel("full-equalizer");
  board->look.window.size = WindowSize::Board;
  const QRect common(4, 4, 599, 248);
  EXPECT_EQ(full.copy(common), panel_picture(board->look, 1).copy(common));
}

TEST(PanelPainter, BackgroundDependsOnTheWindowStateAlone) {
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

TEST(PanelPainter, HeadKeepsItsButtonsInEveryWindow) {
  for (const std::string_view name : {"compact", "full-vu", "board-open"}) {
    const QImage picture = panel_picture(sample_panel(name)->look, 2);
    const int x = picture.width() - 2 * 11;
    EXPECT_GT(qGray(picture.pixel(x, 15)), 150) << "the middle of the cross, " << name;
  }
}

}  // namespace
}  // namespace tandem
