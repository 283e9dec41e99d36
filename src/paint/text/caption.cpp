#include "paint/text/caption.h"

#include <QByteArray>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QHash>
#include <QRawFont>
#include <QResource>
#include <QStringList>
#include <QTextLayout>
#include <cmath>
#include <utility>

#include "paint/strokes/ink.h"

// Outside the namespace because the macro declares a global function. Without it a static library loses its resource.
static void keep_fonts() { Q_INIT_RESOURCE(paint_fonts); }

namespace tandem {

namespace {

using namespace Qt::StringLiterals;

// The font as it lies in the program: given by its name, Qt would keep a copy of each, 300 kB.
void add_font(const QString& name) {
  const QResource font(name);
  const auto size = static_cast<qsizetype>(font.size());
  QFontDatabase::addApplicationFontFromData(QByteArray::fromRawData(reinterpret_cast<const char*>(font.data()), size));
}

QStringList load_families() {
  keep_fonts();
  add_font(u":/paint/fonts/medium.ttf"_s);
  add_font(u":/paint/fonts/bold.ttf"_s);
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

// Below this scale a stem is hardly a pixel: horizontal strokes are then set on whole device pixels. Above it the
// letters keep their drawn shape.
constexpr double kFineScale = 1.5;

// A font at a size that need not be whole, which a QFont cannot have. Kept, because its glyphs are kept with it.
const QRawFont& sized_font(const QRawFont& font, double pixels) {
  constexpr qsizetype kMost = 64;
  using Key = std::pair<QRawFont, double>;
  static QHash<Key, QRawFont> fonts;
  const auto found = fonts.constFind({font, pixels});
  if (found != fonts.cend()) return *found;
  if (fonts.size() >= kMost) fonts.clear();
  QRawFont sized = font;
  sized.setPixelSize(pixels);
  return *fonts.insert({font, pixels}, sized);
}

// Glyphs laid out with their baseline at 0, kFontUnits times as large as they are drawn.
QList<QGlyphRun> lay_out(const QString& text, const QFont& font) {
  constexpr double kEndless = 1e6;
  QTextLayout layout(text, font);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  line.setLineWidth(kEndless);
  line.setPosition({0, -line.ascent()});
  layout.endLayout();
  return layout.glyphRuns();
}

void draw_text(QPainter& painter, const QPointF& at, const QString& text, QFont font, QRgb colour) {
  const double scale = device_scale(painter);
  const QPointF start = painter.deviceTransform().map(at);
  const QPointF origin(start.x() + kHalfStep, std::round(start.y()));
  if (scale < kFineScale) font.setHintingPreference(QFont::PreferVerticalHinting);
  const DevicePixels pixels(painter);
  for (QGlyphRun& run : lay_out(text, font)) {
    QList<QPointF> places = run.positions();
    for (QPointF& place : places) place *= scale / kFontUnits;
    run.setPositions(places);
    run.setRawFont(sized_font(run.rawFont(), run.rawFont().pixelSize() * scale / kFontUnits));
    for (const double opacity : {1.0, kSecondPass}) {
      painter.setPen(faded(colour, opacity));
      painter.drawGlyphRun(origin, run);
    }
  }
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

QFont widget_font(double pixels) { return caption_font(pixels / kFontUnits); }

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
  draw_text(painter, start, text, font, style.colour);
}

}  // namespace tandem
