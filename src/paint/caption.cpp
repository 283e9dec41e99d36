#include "paint/caption.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>
#include <cmath>

#include "paint/ink.h"

// Outside the namespace because the macro declares a global function. Without it a static library loses its resource.
static void keep_fonts() { Q_INIT_RESOURCE(paint_fonts); }

namespace tandem {

namespace {

using namespace Qt::StringLiterals;

QStringList load_families() {
  keep_fonts();
  QFontDatabase::addApplicationFont(u":/paint/fonts/medium.ttf"_s);
  QFontDatabase::addApplicationFont(u":/paint/fonts/bold.ttf"_s);
  return {u"Roboto Condensed"_s, u"DejaVu Sans Condensed"_s, u"Liberation Sans Narrow"_s};
}

void make_plain(QFont& font, double size) {
  font.setPixelSize(static_cast<int>(std::lround(size * kFontUnits)));
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(QFont::StyleStrategy(QFont::NoSubpixelAntialias | QFont::PreferAntialias));
  font.setKerning(true);
}

// Glyphs go to the quarter device pixel below, so half a quarter more is the nearest; and light letters on dark lose
// weight to grey antialiasing, which a thin second pass gives back.
constexpr double kHalfStep = .125;
constexpr double kSecondPass = .15;

void draw_scaled(QPainter& painter, const QPointF& at, const QString& text, const QFont& font, QRgb colour) {
  painter.save();
  painter.translate(at + QPointF(kHalfStep / device_scale(painter), 0));
  painter.scale(1 / kFontUnits, 1 / kFontUnits);
  painter.setFont(font);
  for (const double opacity : {1.0, kSecondPass}) {
    painter.setPen(faded(colour, opacity));
    painter.drawText(QPointF(0, 0), text);
  }
  painter.restore();
}

}  // namespace

QFont caption_font(double size, bool bold, double spacing) {
  static const QStringList families = load_families();
  QFont font(families);
  font.setWeight(bold ? QFont::Bold : QFont::Medium);
  font.setLetterSpacing(QFont::AbsoluteSpacing, spacing * kFontUnits);
  make_plain(font, size);
  return font;
}

double caption_width(const QString& text, const CaptionStyle& style) {
  return QFontMetricsF(caption_font(style.size, style.bold, style.spacing)).horizontalAdvance(text) / kFontUnits;
}

void draw_caption(QPainter& painter, const QPointF& at, const QString& text, const CaptionStyle& style, Anchor anchor) {
  const QFont font = caption_font(style.size, style.bold, style.spacing);
  QPointF start = at;
  if (anchor != Anchor::Start) {
    const double width = QFontMetricsF(font).horizontalAdvance(text) / kFontUnits;
    start.rx() -= anchor == Anchor::Middle ? width / 2 : width;
  }
  draw_scaled(painter, start, text, font, style.colour);
}

void draw_arial_bold(QPainter& painter, const QPointF& at, const QString& text, double size, QRgb colour) {
  QFont font(QStringList{u"Arial"_s, u"Liberation Sans"_s, u"Arimo"_s});
  font.setWeight(QFont::Bold);
  make_plain(font, size);
  const double width = QFontMetricsF(font).horizontalAdvance(text) / kFontUnits;
  draw_scaled(painter, at - QPointF(width, 0), text, font, colour);
}

}  // namespace tandem
