#include "paint/text/dot_font.h"

#include <QFont>
#include <QFontMetrics>
#include <QFontMetricsF>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <algorithm>

namespace tandem {

namespace {

constexpr int kFineColumns = 11;
constexpr int kFineRows = 14;
constexpr int kOversampling = 4;
constexpr int kInkShare = 40;  // percent of a half dot that must be covered

const DotGlyph* capital_or_base(char32_t letter) {
  if (letter == U'ß') return find_dot_glyph(U'ẞ');  // whose capital is two letters to Unicode
  if (const DotGlyph* glyph = find_dot_glyph(letter)) return glyph;
  const QString capital = QString::fromUcs4(&letter, 1).toUpper();
  const QList<uint> capitals = capital.toUcs4();
  if (capitals.size() == 1) {
    if (const DotGlyph* glyph = find_dot_glyph(capitals[0])) return glyph;
  }
  const QList<uint> base = capital.normalized(QString::NormalizationForm_KD).toUcs4();
  return base.isEmpty() ? nullptr : find_dot_glyph(base[0]);
}

/// Han, kana and Hangul fill their square; letters of other scripts are about half as high.
bool fills_its_square(char32_t letter) {
  switch (QChar::script(letter)) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Hangul:
    case QChar::Script_Bopomofo:
      return true;
    default:
      return false;
  }
}

/// The letter in white on black, squeezed into the cell if it is wider.
QImage drawn_letter(char32_t letter) {
  const QSizeF cell(kFineColumns * kOversampling, kFineRows * kOversampling);
  const bool square = fills_its_square(letter);
  QImage image(cell.toSize(), QImage::Format_Grayscale8);
  image.fill(0);
  QFont font;
  font.setPixelSize(static_cast<int>(cell.height() * (square ? .98 : 1.2)));
  font.setWeight(QFont::Medium);
  const QString text = QString::fromUcs4(&letter, 1);
  const double width = std::max(QFontMetricsF(font, &image).horizontalAdvance(text), 1.);
  const double across = std::min(1., cell.width() / width);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.translate((cell.width() - width * across) / 2, cell.height() * (square ? .86 : .78));
  painter.scale(across, 1);
  painter.drawText(QPointF(0, 0), text);
  return image;
}

bool is_inked(const QImage& image, int column, int row) {
  int sum = 0;
  for (int y = 0; y < kOversampling; ++y)
    for (int x = 0; x < kOversampling; ++x)
      sum += qGray(image.pixel(column * kOversampling + x, row * kOversampling + y));
  return sum * 100 > kInkShare * 255 * kOversampling * kOversampling;
}

constexpr FineGlyph kUnknown = {0, 0, 0x080, 0x1C0, 0x3E0, 0x7F0, 0x3E0, 0x1C0, 0x080, 0, 0};  // a diamond

FineGlyph rasterised(char32_t letter) {
  if (!QFontMetrics(QFont()).inFontUcs4(letter)) return kUnknown;
  const QImage image = drawn_letter(letter);
  FineGlyph glyph{};
  for (int column = 0; column < kFineColumns; ++column)
    for (int row = 0; row < kFineRows; ++row)
      if (is_inked(image, column, row))
        glyph[static_cast<std::size_t>(column)] |= static_cast<std::uint16_t>(1U << row);
  return glyph;
}

}  // namespace

const DotGlyph& dot_glyph(char32_t letter) {
  static constexpr DotGlyph kBlank{};
  const DotGlyph* glyph = capital_or_base(letter);
  return glyph != nullptr ? *glyph : kBlank;
}

bool has_dot_glyph(char32_t letter) { return capital_or_base(letter) != nullptr; }

const FineGlyph& fine_glyph(char32_t letter) {
  constexpr qsizetype kMost = 2048;
  static QHash<char32_t, FineGlyph> kept;
  if (!kept.contains(letter)) {
    if (kept.size() >= kMost) kept.clear();
    kept.insert(letter, rasterised(letter));
  }
  return kept[letter];
}

}  // namespace tandem
