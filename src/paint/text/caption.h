// Printed text of the panel: Roboto Condensed from the program's own resources, sizes in px at 100 % and may be
// fractions. Grey antialiasing, letters at quarter device pixels, widths in proportion at every scale. Baselines stand
// on whole device pixels, and below 150 % the letters' horizontal strokes too, so that small text is crisp. UI thread;
// needs a QGuiApplication. If the resource cannot be loaded, the fallback families stand in.
#pragma once

#include <QFont>
#include <QPainter>
#include <QString>

namespace tandem {

struct CaptionStyle {
  double size = 10.5;
  QRgb colour = 0xFFDDE2E7;
  bool bold = false;
  double spacing = 0;  ///< added after every letter, px
};

enum class Anchor { Start, Middle, End };

/// The caption font at kFontUnits times its size: whole-pixel font sizes are too coarse for the captions, so text is
/// laid out large and its glyphs are drawn at their size.
inline constexpr double kFontUnits = 10;
QFont caption_font(double size, bool bold = false, double spacing = 0);

/// The same letters for Qt's own widgets, at the nearest whole size in pixels.
QFont widget_font(double pixels);

/// Draws with the baseline through `at`, which is the text's start, middle or end.
void draw_caption(QPainter& painter, const QPointF& at, const QString& text, const CaptionStyle& style = {},
                  Anchor anchor = Anchor::Start);

/// Advance in px at 100 %.
double caption_width(const QString& text, const CaptionStyle& style = {});

}  // namespace tandem
