#include "paint/strokes/distance_field.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "paint/strokes/blend.h"

namespace tandem {

namespace {

constexpr float kFar = 1e9F;
constexpr int kBlock = 16;  // columns
constexpr int kLanes = 4;

// The compiler's own vectors: every target has four floats at a time, or is given the same by it.
using Four [[gnu::vector_size(16)]] = float;

Four load(const float* from) {
  Four values;
  std::memcpy(&values, from, sizeof values);
  return values;
}

void store(float* to, const Four& values) { std::memcpy(to, &values, sizeof values); }

bool none_below(const Four& values, float limit) {
  const auto below = values < limit;
  std::array<std::uint64_t, 2> bits{};
  std::memcpy(bits.data(), &below, sizeof bits);
  return (bits[0] | bits[1]) == 0;
}

/// The lines of an image from a pixel of it on.
class Pixels {
 public:
  Pixels(QImage& image, const QPoint& origin)
      : first_(image.bits() + origin.x() * qsizetype{sizeof(QRgb)} + origin.y() * image.bytesPerLine()),
        stride_(image.bytesPerLine()) {}
  [[nodiscard]] QRgb* row(int y) const { return reinterpret_cast<QRgb*>(first_ + y * stride_); }

 private:
  uchar* first_;
  qsizetype stride_;
};

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

struct DistanceField::Line {
  float x;  // of its beginning
  float y;
  float ax;  // along it
  float ay;
  float inverse;  // of its squared length
};

DistanceField::DistanceField(const QSize& size, double reach)
    : size_(size),
      stride_((size.width() + kBlock - 1) / kBlock * kBlock),
      reach_(reach),
      squared_(static_cast<std::size_t>(stride_) * static_cast<std::size_t>(size.height()), kFar),
      blocks_(static_cast<std::size_t>(stride_ / kBlock), kNoRows) {}

void DistanceField::clear() {
  for (std::size_t block = 0; block < blocks_.size(); ++block) {
    const auto left = static_cast<std::ptrdiff_t>(block) * kBlock;
    for (int y = blocks_[block].top; y <= blocks_[block].bottom; ++y) std::fill_n(row(y) + left, kBlock, kFar);
    blocks_[block] = kNoRows;
  }
}

QRect DistanceField::touched() const {
  QRect whole;
  for (std::size_t block = 0; block < blocks_.size(); ++block) {
    const Rows& rows = blocks_[block];
    if (rows.top > rows.bottom) continue;
    whole |= QRect(static_cast<int>(block) * kBlock, rows.top, kBlock, rows.bottom - rows.top + 1);
  }
  return whole & QRect(QPoint(0, 0), size_);
}

// `row` is the row whose middle lies dy below the line's beginning. By value, so that nothing is read again after a
// write to the row.
inline void DistanceField::add_row(float* row, int left, int right, float dy, Line line) {
  const int begin = left / kLanes * kLanes;
  const float first = static_cast<float>(begin) + .5F - line.x;
  Four dx = Four{first, first + 1, first + 2, first + 3};
  const Four zero{};
  const Four one = zero + 1;
  for (int x = begin; x <= right; x += kLanes, dx += kLanes) {
    Four at = (dx * line.ax + dy * line.ay) * line.inverse;
    at = at > zero ? at : zero;
    at = at < one ? at : one;
    const Four ex = dx - at * line.ax;
    const Four ey = dy - at * line.ay;
    const Four squared = ex * ex + ey * ey;
    const Four before = load(row + x);
    store(row + x, squared < before ? squared : before);
  }
}

void DistanceField::add_line(const QPointF& from, const QPointF& to) {
  const QPointF along = to - from;
  const Line line{static_cast<float>(from.x()), static_cast<float>(from.y()), static_cast<float>(along.x()),
                  static_cast<float>(along.y()),
                  static_cast<float>(1 / std::max(QPointF::dotProduct(along, along), 1e-9))};
  const QRect box = QRect(QPoint(static_cast<int>(std::floor(std::min(from.x(), to.x()) - reach_)),
                                 static_cast<int>(std::floor(std::min(from.y(), to.y()) - reach_))),
                          QPoint(static_cast<int>(std::ceil(std::max(from.x(), to.x()) + reach_)),
                                 static_cast<int>(std::ceil(std::max(from.y(), to.y()) + reach_)))) &
                    QRect(QPoint(0, 0), size_);
  if (box.isEmpty()) return;
  mark(line, box);
  // Only a long steep line leaves most of its box alone.
  const bool is_long = box.width() > kBlock && std::abs(along.y()) > 1;
  const double per_row = is_long ? along.x() / along.y() : 0;
  const auto spread = static_cast<int>(std::ceil(std::abs(per_row) * (reach_ + .5) + reach_));
  for (int y = box.top(); y <= box.bottom(); ++y) {
    int left = box.left();
    int right = box.right();
    if (is_long) {
      const auto middle = static_cast<int>(std::floor(from.x() + (y + .5 - from.y()) * per_row));
      left = std::max(left, middle - spread);
      right = std::min(right, middle + spread + 1);
    }
    add_row(row(y), left, right, static_cast<float>(y) + .5F - line.y, line);
  }
}

// A pixel within reach lies beside a point of the line whose x is within reach of the pixel's block.
void DistanceField::mark(const Line& line, const QRect& box) {
  for (int block = box.left() / kBlock; block <= box.right() / kBlock; ++block) {
    double first = 0;
    double last = 1;
    if (std::abs(line.ax) > kBlock) {
      const auto share = [&](double x) { return std::clamp((x - line.x) / line.ax, 0.0, 1.0); };
      first = share(block * kBlock - reach_);
      last = share((block + 1) * kBlock + reach_);
    }
    const double a = line.y + first * line.ay;
    const double b = line.y + last * line.ay;
    Rows& rows = blocks_[static_cast<std::size_t>(block)];
    rows.top = std::min(rows.top, std::max(box.top(), static_cast<int>(std::floor(std::min(a, b) - reach_))));
    rows.bottom = std::max(rows.bottom, std::min(box.bottom(), static_cast<int>(std::ceil(std::max(a, b) + reach_))));
  }
}

void DistanceField::blend(QImage& image, const QPoint& origin, const StrokeProfile& profile,
                          std::span<const QRgb> rows) const {
  const Pixels target(image, origin);
  const auto limit = static_cast<float>(profile.reach() * profile.reach());
  for (std::size_t block = 0; block < blocks_.size(); ++block) {
    const int left = static_cast<int>(block) * kBlock;
    const int right = std::min(left + kBlock, size_.width());
    for (int y = blocks_[block].top; y <= blocks_[block].bottom; ++y) {
      const float* distances = row(y);
      const QRgb colour = rows.empty() ? profile.colour() : rows[static_cast<std::size_t>(y)];
      QRgb* pixels = target.row(y);
      for (int x = left; x < right; x += kLanes) {
        if (none_below(load(distances + x), limit)) continue;
        for (int i = x; i < std::min(x + kLanes, right); ++i) {
          if (distances[i] < limit) pixels[i] = blended(pixels[i], colour, profile.share(distances[i]));
        }
      }
    }
  }
}

void DistanceField::restore(QImage& image, const QPoint& origin, const QImage& still) const {
  const Pixels target(image, origin);
  for (std::size_t block = 0; block < blocks_.size(); ++block) {
    const int left = static_cast<int>(block) * kBlock;
    const auto bytes = static_cast<std::size_t>(std::min(kBlock, size_.width() - left)) * sizeof(QRgb);
    for (int y = blocks_[block].top; y <= blocks_[block].bottom; ++y) {
      std::memcpy(target.row(y) + left, reinterpret_cast<const QRgb*>(still.constScanLine(y)) + left, bytes);
    }
  }
}

}  // namespace tandem
