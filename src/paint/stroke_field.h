// Antialiased strokes straight into an image: the distance of every pixel near a stroke to it, then one blend by
// distance. Round caps and joins; crossing parts never add up, as in one path. Much cheaper for moving lines than
// stroking a path. UI thread.
#pragma once

#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <array>
#include <initializer_list>
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

class StrokeField {
 public:
  explicit StrokeField(const QSize& size);
  /// Forgets all strokes.
  void clear();
  /// Adds a line; coordinates in pixels of the field, parts outside it are cut.
  void add_line(const QPointF& from, const QPointF& to, double reach);
  /// Blends what was added into an image whose pixel `origin` is the field's first. Only colours change, all pixels
  /// must be opaque.
  void blend(QImage& image, const QPoint& origin, const StrokeProfile& profile) const;
  /// Pixels that the strokes reach.
  [[nodiscard]] QRect touched() const { return touched_; }

 private:
  void add_row(int y, int left, int right, const QPointF& from, const QPointF& along, double length_squared);

  QSize size_;
  std::vector<float> squared_;  // squared distance of each pixel's centre
  QRect touched_;
};

}  // namespace tandem
