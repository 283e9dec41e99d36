#include "paint/stroke_field.h"

#include <algorithm>
#include <cmath>

namespace tandem {

namespace {

constexpr float kFar = 1e9F;

QRgb blended(QRgb below, QRgb colour, unsigned share) {
  // Two channels at a time: red and blue, then green.
  const unsigned red_blue = ((below & 0xFF00FF) * (256 - share) + (colour & 0xFF00FF) * share) >> 8 & 0xFF00FF;
  const unsigned green = ((below & 0xFF00) * (256 - share) + (colour & 0xFF00) * share) >> 8 & 0xFF00;
  return 0xFF000000 | red_blue | green;
}

double widest(std::initializer_list<StrokeLayer> layers) {
  double width = 0;
  for (const StrokeLayer& layer : layers) width = std::max(width, layer.width);
  return width;
}

}  // namespace

StrokeProfile::StrokeProfile(QRgb colour, std::initializer_list<StrokeLayer> layers)
    : colour_(colour), reach_(widest(layers) / 2 + .5), per_entry_(static_cast<float>(kEntries / (reach_ * reach_))) {
  for (std::size_t i = 0; i < kEntries; ++i) {
    const double distance = std::sqrt((static_cast<double>(i) + .5) / static_cast<double>(per_entry_));
    double through = 1;
    for (const StrokeLayer& layer : layers) {
      // A line thinner than a pixel covers at most its width of it.
      const double covered = std::clamp(layer.width / 2 + .5 - distance, 0.0, std::min(1.0, layer.width));
      through *= 1 - layer.opacity * covered;
    }
    shares_[i] = static_cast<unsigned>(std::lround((1 - through) * 256));
  }
}

StrokeField::StrokeField(const QSize& size)
    : size_(size), squared_(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()), kFar) {}

void StrokeField::clear() {
  for (int y = touched_.top(); y <= touched_.bottom(); ++y) {
    const auto row = squared_.begin() + static_cast<std::ptrdiff_t>(y) * size_.width();
    std::fill(row + touched_.left(), row + touched_.right() + 1, kFar);
  }
  touched_ = {};
}

void StrokeField::add_line(const QPointF& from, const QPointF& to, double reach) {
  const QPointF along = to - from;
  const double length_squared = std::max(QPointF::dotProduct(along, along), 1e-9);
  const QRect box = QRect(QPoint(static_cast<int>(std::floor(std::min(from.x(), to.x()) - reach)),
                                 static_cast<int>(std::floor(std::min(from.y(), to.y()) - reach))),
                          QPoint(static_cast<int>(std::ceil(std::max(from.x(), to.x()) + reach)),
                                 static_cast<int>(std::ceil(std::max(from.y(), to.y()) + reach)))) &
                    QRect(QPoint(0, 0), size_);
  if (box.isEmpty()) return;
  touched_ |= box;
  // Only a long steep line leaves most of its box alone.
  const bool is_long = box.width() > 16 && std::abs(along.y()) > 1;
  const double per_row = is_long ? along.x() / along.y() : 0;
  const auto spread = static_cast<int>(std::ceil(std::abs(per_row) * (reach + .5) + reach));
  for (int y = box.top(); y <= box.bottom(); ++y) {
    int left = box.left();
    int right = box.right();
    if (is_long) {
      const auto middle = static_cast<int>(std::floor(from.x() + (y + .5 - from.y()) * per_row));
      left = std::max(left, middle - spread);
      right = std::min(right, middle + spread + 1);
    }
    add_row(y, left, right, from, along, length_squared);
  }
}

void StrokeField::add_row(int y, int left, int right, const QPointF& from, const QPointF& along,
                          double length_squared) {
  float* row = squared_.data() + static_cast<std::ptrdiff_t>(y) * size_.width();
  const auto ax = static_cast<float>(along.x());
  const auto ay = static_cast<float>(along.y());
  const auto inverse = static_cast<float>(1 / length_squared);
  const float first = .5F - static_cast<float>(from.x());
  const float dy = static_cast<float>(y) + .5F - static_cast<float>(from.y());
  const float rise = dy * ay;
  // Written so that the compiler takes several pixels at a time.
  for (int x = left; x <= right; ++x) {
    const float dx = static_cast<float>(x) + first;
    float at = (dx * ax + rise) * inverse;
    at = at < 0 ? 0 : at;
    at = at > 1 ? 1 : at;
    const float ex = dx - at * ax;
    const float ey = dy - at * ay;
    const float squared = ex * ex + ey * ey;
    row[x] = squared < row[x] ? squared : row[x];
  }
}

void StrokeField::blend(QImage& image, const QPoint& origin, const StrokeProfile& profile) const {
  const auto limit = static_cast<float>(profile.reach() * profile.reach());
  for (int y = touched_.top(); y <= touched_.bottom(); ++y) {
    const float* row = squared_.data() + static_cast<std::ptrdiff_t>(y) * size_.width();
    QRgb* pixels = reinterpret_cast<QRgb*>(image.scanLine(y + origin.y())) + origin.x();
    for (int x = touched_.left(); x <= touched_.right(); ++x) {
      if (row[x] < limit) pixels[x] = blended(pixels[x], profile.colour(), profile.share(row[x]));
    }
  }
}

}  // namespace tandem
