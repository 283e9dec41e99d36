// Antialiased strokes straight into an image: the distance of every pixel near a stroke to it, then one blend by
// distance. Round caps and joins; crossing parts never add up, as in one path. Much cheaper for moving lines than
// stroking a path. UI thread.
#pragma once

#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <span>
#include <vector>

namespace tandem {

/// One line of a stroke laid over another of the same colour.
struct StrokeLayer {
  double width;  ///< device pixels
  double opacity;
};

/// What a stroke does to a pixel at a distance: its colour and how much of it.
class StrokeProfile {
 public:
  StrokeProfile(QRgb colour, std::initializer_list<StrokeLayer> layers);
  [[nodiscard]] QRgb colour() const { return colour_; }
  /// Distance beyond which the stroke leaves pixels alone.
  [[nodiscard]] double reach() const { return reach_; }
  /// 0..256 for a squared distance below reach() squared.
  [[nodiscard]] unsigned share(float squared) const { return shares_[static_cast<std::size_t>(squared * per_entry_)]; }

 private:
  static constexpr std::size_t kEntries = 512;
  QRgb colour_;
  double reach_;
  float per_entry_;
  std::array<unsigned, kEntries + 1> shares_{};
};

class DistanceField {
 public:
  /// `reach` is that of the widest profile that will be blended.
  DistanceField(const QSize& size, double reach);
  /// Forgets all strokes.
  void clear();
  /// Adds a line; coordinates in pixels of the field, parts outside it are cut.
  void add_line(const QPointF& from, const QPointF& to);
  /// Blends what was added into an image whose pixel `origin` is the field's first. Only colours change, all pixels
  /// must be opaque.
  void blend(QImage& image, const QPoint& origin, const StrokeProfile& profile) const {
    blend(image, origin, profile, {});
  }
  /// The same in a colour of its own for each row of the field, instead of the profile's.
  void blend(QImage& image, const QPoint& origin, const StrokeProfile& profile, std::span<const QRgb> rows) const;
  /// Takes what was added out of the image again, where it lies over a still picture of the field's size.
  void restore(QImage& image, const QPoint& origin, const QImage& still) const;
  /// Pixels that the strokes reach.
  [[nodiscard]] QRect touched() const;

 private:
  // Rows that the strokes reach in a block of columns.
  struct Rows {
    int top;
    int bottom;  // inclusive
  };
  static constexpr Rows kNoRows{std::numeric_limits<int>::max(), -1};
  struct Line;
  void mark(const Line& line, const QRect& box);
  static void add_row(float* row, int left, int right, float dy, Line line);
  float* row(int y) { return squared_.data() + static_cast<std::ptrdiff_t>(y) * stride_; }
  const float* row(int y) const { return squared_.data() + static_cast<std::ptrdiff_t>(y) * stride_; }

  QSize size_;
  int stride_;  // of a row, whole blocks
  double reach_;
  std::vector<float> squared_;  // squared distance of each pixel's centre, or more than any reach
  std::vector<Rows> blocks_;
};

}  // namespace tandem
