// How the panel lies in its window: enlarged by a factor, right of and below a margin that holds the window's shadow.
// All drawing and hit testing uses panel px (px at 100 %); only widgets have px of the window.
// Values; any thread.
#pragma once

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <cmath>

namespace tandem {

class PanelTransform {
 public:
  explicit PanelTransform(double factor = 1, int margin = 0) : factor_(factor), margin_(margin) {}

  double factor() const { return factor_; }  // px of the window to a px of the panel
  int margin() const { return margin_; }     // px of the window on every side

  QPointF to_window(const QPointF& panel) const { return panel * factor_ + QPointF(margin_, margin_); }
  QRectF to_window(const QRectF& panel) const { return {to_window(panel.topLeft()), panel.size() * factor_}; }
  QPointF to_panel(const QPointF& window) const { return (window - QPointF(margin_, margin_)) / factor_; }
  QRectF to_panel(const QRectF& window) const { return {to_panel(window.topLeft()), window.size() / factor_}; }

  // Each edge at the nearest whole px, so that boxes that touch on the panel touch in the window.
  QRect whole(const QRectF& panel) const {
    const QRectF box = to_window(panel);
    const auto nearest = [](double at) { return static_cast<int>(std::floor(at + .5)); };
    const QPoint corner(nearest(box.left()), nearest(box.top()));
    return {corner, QPoint(nearest(box.right()) - 1, nearest(box.bottom()) - 1)};
  }
  // The panel of this size, without the margin.
  QSize scaled(const QSize& panel) const { return whole(QRectF(QPointF(), panel)).size(); }

 private:
  double factor_;
  int margin_;
};

}  // namespace tandem
