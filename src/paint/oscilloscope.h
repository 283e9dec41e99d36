// The oscilloscope, 337 x 91 px. UI thread. Cache what paint_graticule() draws; the traces, and a glass shine after
// them, go over it at every frame.
#pragma once

#include <QPainter>
#include <span>

namespace tandem {

inline constexpr int kScopeValues = 337;

struct ScopePicture {
  std::span<const float> left;  ///< up to kScopeValues values, one per px; 1 is the top of the area, -1 its bottom
  std::span<const float> right;
};

void paint_graticule(QPainter& painter, const QRectF& box);
void paint_traces(QPainter& painter, const QRectF& box, const ScopePicture& picture);

}  // namespace tandem
