// Golden sheets: what the painters draw is what tests/golden shows. After a wanted change draw them again:
//   for percent in 100 200; do panel_picture $percent tests/golden NAME...; done
// and look at them before they are committed. A picture that differs is left beside as NAME.actual.png.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <algorithm>
#include <vector>

#include "support/picture_difference.h"
#include "tools/pictures/sample_picture.h"

namespace tandem {
namespace {

constexpr int kHandful = 24;  // pixels of a sheet, which shows dozens of controls

QString golden_path(std::string_view name, int percent, const char* end) {
  return QStringLiteral(TANDEM_GOLDEN "/%1-%2%3")
      .arg(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())))
      .arg(percent)
      .arg(QLatin1String(end));
}

std::vector<std::string_view> sheet_names() {
  std::vector<std::string_view> names;
  for (const std::string_view name : picture_names())
    if (name.starts_with("sheet-")) names.push_back(name);
  return names;
}

void expect_golden(std::string_view name, int percent) {
  const QString path = golden_path(name, percent, ".png");
  ASSERT_TRUE(QFile::exists(path)) << path.toStdString();
  const QImage drawn = sample_picture(name, percent / 100.);
  const QString actual = golden_path(name, percent, ".actual.png");
  const QImage golden = QImage(path).convertToFormat(drawn.format());
  ASSERT_EQ(golden.size(), drawn.size());
  const int count = test::differing_pixels(golden, drawn, drawn.rect());
  EXPECT_LE(count, kHandful) << "see " << actual.toStdString();
  if (count > kHandful) {
    drawn.save(actual);
  } else {
    QFile::remove(actual);
  }
}

class GoldenSheet : public ::testing::TestWithParam<std::string_view> {};

TEST_P(GoldenSheet, LooksAsItDid) {
  expect_golden(GetParam(), 100);
  expect_golden(GetParam(), 200);
}

INSTANTIATE_TEST_SUITE_P(All, GoldenSheet, ::testing::ValuesIn(sheet_names()), [](const auto& name) {
  std::string text(name.param);
  std::replace(text.begin(), text.end(), '-', '_');
  return text;
});

}  // namespace
}  // namespace tandem
