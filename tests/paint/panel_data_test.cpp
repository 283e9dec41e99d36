// The panel's texts and letters against tables of their own, and where captions are really printed.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "layout/panel_layout.h"
#include "paint/text/dot_font.h"
#include "tools/pictures/sample_picture.h"

namespace tandem {
namespace {

using Fields = std::vector<std::string>;

std::vector<Fields> read_rows(const std::string& name) {
  std::ifstream file(std::string(TANDEM_TEST_DATA "/") + name);
  std::vector<Fields> rows;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.front() == '#') continue;
    Fields fields;
    std::stringstream text(line);
    for (std::string field; std::getline(text, field, ';');) fields.push_back(field);
    rows.push_back(fields);
  }
  return rows;
}

TEST(PanelData, EveryTextIsAsDesigned) {
  const auto rows = read_rows("panel_texts.csv");
  ASSERT_EQ(rows.size(), 74U);
  std::size_t with_text = 0;
  for (const ControlBox& control : panel_layout()) {
    const bool is_drawn = control.kind != ControlKind::NotDrawn;
    if (is_drawn && (!control.caption.empty() || control.count > 0)) ++with_text;
  }
  EXPECT_EQ(with_text, rows.size());
  for (const Fields& row : rows) {
    const ControlBox& control = control_box(row.at(0));
    EXPECT_EQ(control.caption, row.at(1)) << row[0];
    EXPECT_EQ(control.count, std::stoi(row.at(2))) << row[0];
    EXPECT_EQ(control.pitch, std::stoi(row.at(3))) << row[0];
  }
}

TEST(PanelData, EveryPositionHasItsCaptionBoxAndAngle) {
  const auto rows = read_rows("panel_captions.csv");
  ASSERT_EQ(rows.size(), position_captions().size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const PositionCaption& caption = position_captions()[i];
    const Fields& row = rows[i];
    EXPECT_EQ(caption.control, row.at(0));
    EXPECT_EQ(caption.position, std::stoi(row.at(1)));
    EXPECT_EQ(caption.caption, row.at(2));
    EXPECT_EQ(caption.box(),
              QRectF(std::stod(row.at(3)), std::stod(row.at(4)), std::stod(row.at(5)), std::stod(row.at(6))));
    EXPECT_DOUBLE_EQ(caption.angle, std::stod(row.at(7)));
  }
}

TEST(PanelData, EveryLetterHasItsDots) {
  const auto rows = read_rows("dot_font.csv");
  ASSERT_EQ(rows.size(), 95U);
  for (const Fields& row : rows) {
    const auto letter = static_cast<char32_t>(std::stoul(row.at(0), nullptr, 16));
    DotGlyph dots{};
    for (std::size_t i = 0; i < dots.size(); ++i) {
      dots[i] = static_cast<std::uint8_t>(std::stoul(row.at(i + 1), nullptr, 16));
    }
    EXPECT_EQ(dot_glyph(letter), dots) << row[0];
  }
}

constexpr int kSampleScale = 4;

/// The light dots within a box of the open panel, px at 100 %; empty where nothing is printed.
QRectF ink_in(const QRectF& box) {
  static const QImage picture = sample_picture("board-open", kSampleScale);
  constexpr int kLight = 115;
  QRect ink;
  for (int y = static_cast<int>(box.top() * kSampleScale); y < box.bottom() * kSampleScale; ++y) {
    for (int x = static_cast<int>(box.left() * kSampleScale); x < box.right() * kSampleScale; ++x) {
      if (qGray(picture.pixel(x, y)) > kLight) ink |= QRect(x, y, 1, 1);
    }
  }
  return {ink.x() / double{kSampleScale}, ink.y() / double{kSampleScale}, ink.width() / double{kSampleScale},
          ink.height() / double{kSampleScale}};
}

/// Capitals stand on the baseline, which lies 0.34 of the size below the middle of the box, and are 0.71 of the size
/// high; l, f and k are somewhat higher. The baseline is a whole pixel, so it may lie half a pixel off.
void expect_printed(const QRectF& box, double size, bool centred, const std::string& what) {
  const QRectF ink = ink_in(box.adjusted(0, -1, 0, 1));
  ASSERT_FALSE(ink.isEmpty()) << what;
  const double baseline = box.center().y() + .34 * size;
  EXPECT_NEAR(ink.top(), baseline - .71 * size, 1.2) << what;
  if (what.find_first_of("gpqy,JQ") == std::string::npos) {
    EXPECT_NEAR(ink.bottom(), baseline, .8) << what;
  }
  if (centred) {
    EXPECT_NEAR(ink.center().x(), box.center().x(), .8) << what;
  }
}

TEST(PanelData, FrequenciesAndTitlesStandInTheMiddleOfTheirBoxes) {
  for (int i = 0; i < 15; ++i) {
    const ControlBox& label = control_box("Label2", i);
    expect_printed(label.box(), 10.5, true, std::string(label.caption));
  }
  for (int i = 6; i < 17; ++i) {
    const ControlBox& label = control_box("Label5", i);
    expect_printed(label.box(), i < 10 ? 11 : 10.5, true, std::string(label.caption));
  }
}

TEST(PanelData, CaptionsOfPositionsAndLampsBeginAtTheirBoxes) {
  for (const PositionCaption& caption : position_captions()) {
    const std::string what(caption.caption);
    expect_printed(caption.box(), 10.5, false, what);
    EXPECT_NEAR(ink_in(caption.box()).left(), caption.x + .8, .8) << what;
  }
  for (int i = 0; i < 6; ++i) {
    const ControlBox& label = control_box("Label5", i);
    expect_printed(label.box(), 10.5, false, std::string(label.caption));
    EXPECT_NEAR(ink_in(label.box()).left(), label.x + .8, .8) << label.caption;
  }
}

}  // namespace
}  // namespace tandem
