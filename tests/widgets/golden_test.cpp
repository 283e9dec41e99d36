// Golden pictures: the window in its named states looks as tests/golden shows, control by control. After a wanted
// change draw them again and look at them before they are committed:
//   for percent in 100 150 200; do panel_picture $percent tests/golden NAME...; done
// A picture that differs is left beside as NAME.actual.png.
#include <gtest/gtest.h>

#include <QFile>
#include <algorithm>

#include "support/picture_difference.h"
#include "tools/pictures/panel_scene.h"

namespace tandem::test {
namespace {

constexpr int kHandful = 6;  // pixels of one control

class Golden : public testing::TestWithParam<std::string_view> {
 protected:
  static QString path(int percent, const char* end) {
    const std::string_view name = GetParam();
    return QStringLiteral(TANDEM_GOLDEN "/%1-%2%3")
        .arg(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())))
        .arg(percent)
        .arg(QLatin1String(end));
  }
  // Each control by itself, and what no control covers.
  static int worst_part(const PanelScene& scene, QImage golden, QImage drawn) {
    int worst = 0;
    for (const PanelItem* item : scene.window().items()) {
      if (item->isHidden()) continue;
      const QRect box = scene.window().transform().to_window(QRectF(item->painted_box())).toAlignedRect();
      const int count = differing_pixels(golden, drawn, box);
      EXPECT_LE(count, kHandful) << item->place().name;
      worst = std::max(worst, count);
    }
    for (const PanelItem* item : scene.window().items()) {
      const QRect box = scene.window().transform().to_window(QRectF(item->painted_box())).toAlignedRect();
      if (item->isHidden()) continue;
      erase(golden, box);
      erase(drawn, box);
    }
    const int rest = differing_pixels(golden, drawn, golden.rect());
    EXPECT_LE(rest, kHandful) << "the faceplate and what is printed on it";
    return std::max(worst, rest);
  }
  static void erase(QImage& picture, const QRect& box) {
    const QRect seen = box & picture.rect();
    for (int y = seen.top(); y <= seen.bottom(); ++y)
      for (int x = seen.left(); x <= seen.right(); ++x) picture.setPixel(x, y, 0);
  }
};

TEST_P(Golden, LooksAsItDid) {
  for (const int percent : {100, 150, 200}) {
    PanelScene scene(GetParam(), percent / 100.0);
    const QImage drawn = scene.picture();
    const QImage golden = QImage(path(percent, ".png")).convertToFormat(drawn.format());
    ASSERT_EQ(golden.size(), drawn.size()) << path(percent, ".png").toStdString();
    const QString actual = path(percent, ".actual.png");
    if (worst_part(scene, golden, drawn) > kHandful) {
      drawn.save(actual);
      ADD_FAILURE() << "see " << actual.toStdString();
    } else {
      QFile::remove(actual);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, Golden, testing::ValuesIn(panel_states()), [](const auto& name) {
  std::string text(name.param);
  std::replace(text.begin(), text.end(), '-', '_');
  return text;
});

}  // namespace
}  // namespace tandem::test
