// Golden pictures: what the painters draw is what tests/golden shows. After a wanted change draw them anew:
//   for n in NAME...; do for p in 100 200; do panel_picture $n $p tests/golden/$n-$p.png; done; done
// and look at them before they are committed. A picture that differs is left beside as NAME.actual.png.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <algorithm>
#include <cstdlib>

#include "tools/pictures/sample_picture.h"

namespace tandem {
namespace {

// Rounding differs a little between versions of the toolkit; a control that moves or changes its colour is much more.
constexpr int kLevels = 8;
constexpr double kShare = .005;

QString golden_path(std::string_view name, int percent, const char* end) {
  return QStringLiteral(TANDEM_GOLDEN "/%1-%2%3")
      .arg(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())))
      .arg(percent)
      .arg(QLatin1String(end));
}

bool differ(QRgb a, QRgb b) {
  return std::abs(qRed(a) - qRed(b)) > kLevels || std::abs(qGreen(a) - qGreen(b)) > kLevels ||
         std::abs(qBlue(a) - qBlue(b)) > kLevels || std::abs(qAlpha(a) - qAlpha(b)) > kLevels;
}

/// The share of pixels that differ; 1 if the sizes do.
double difference(const QImage& a, const QImage& b) {
  if (a.size() != b.size() || a.isNull()) return 1;
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) count += differ(a.pixel(x, y), b.pixel(x, y)) ? 1 : 0;
  }
  return static_cast<double>(count) / a.width() / a.height();
}

void expect_golden(std::string_view name, int percent) {
  const QString path = golden_path(name, percent, ".png");
  ASSERT_TRUE(QFile::exists(path)) << path.toStdString();
  const QImage drawn = specimen_picture(name, percent / 100.);
  const QString actual = golden_path(name, percent, ".actual.png");
  const double share = difference(QImage(path).convertToFormat(drawn.format()), drawn);
  EXPECT_LE(share, kShare) << "see " << actual.toStdString();
  if (share > kShare) {
    drawn.save(actual);
  } else {
    QFile::remove(actual);
  }
}

class Golden : public ::testing::TestWithParam<std::string_view> {};

TEST_P(Golden, LooksAsItDid) {
  expect_golden(GetParam(), 100);
  expect_golden(GetParam(), 200);
}

INSTANTIATE_TEST_SUITE_P(All, Golden, ::testing::ValuesIn(picture_names()), [](const auto& name) {
  std::string text(name.param);
  std::replace(text.begin(), text.end(), '-', '_');
  return text;
});

TEST(GoldenPictures, AStateOfOneControlIsADifference) {
  const QImage playing = specimen_picture("full-equalizer", 1);
  EXPECT_EQ(difference(playing, playing), 0);
  EXPECT_GT(difference(playing, specimen_picture("stopped", 1)), kShare);
  EXPECT_GT(difference(playing, specimen_picture("pitch-mode", 1)), kShare);
}

}  // namespace
}  // namespace tandem
