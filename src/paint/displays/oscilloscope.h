// The oscilloscope, 337 x 91 px. UI thread.
#pragma once

#include <QImage>
#include <QPainter>
#include <span>

#include "displays/scope/oscilloscope.h"
#include "paint/strokes/distance_field.h"

namespace tandem {

inline constexpr int kScopeValues = static_cast<int>(kScopeWidth);

struct ScopePicture {
  std::span<const float> left;  ///< up to kScopeValues values, one per px; 1 is the top of the area, -1 its bottom
  std::span<const float> right;
};

/// The still part: dotted grid and middle line.
void paint_graticule(QPainter& painter, const QRectF& box);

/// The display in device pixels for one scale: its still picture, and room to draw the traces in. Keep one for each
/// image.
class ScopeBackdrop {
 public:
  /// `area` is the display area in px, `well` the glass round it.
  ScopeBackdrop(double scale, const QRectF& area, const QRectF& well);

  [[nodiscard]] QSize size() const { return still_.size(); }

  /// Draws the display area, its top left at `origin` in an RGB32 (or opaque premultiplied) image, and returns what it
  /// drew in image pixels: the whole area the first time, then the places where the traces stood and stand. No
  /// allocation.
  QRect draw(QImage& image, const QPoint& origin, const ScopePicture& picture);

 private:
  void place(DistanceField& field, std::span<const float> values) const;

  double scale_;
  QImage still_;
  bool fresh_ = true;
  StrokeProfile left_profile_;
  StrokeProfile right_profile_;
  DistanceField left_;
  DistanceField right_;
};

}  // namespace tandem
