#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "widgets/items/wheel_steps.h"
#include "widgets/values/knob_item.h"

namespace tandem {

namespace {
constexpr double kDragLength = 150;  // px for the full range
constexpr std::int32_t kPage = 3277;
}  // namespace

void WheelItem::draw(QPainter& painter) const {
  paint_wheel(painter, box(), {static_cast<double>(wheel_.value()) / wheel_.maximum(), interaction()});
}

std::optional<ItemValue> WheelItem::value_range() const {
  return ItemValue{static_cast<double>(wheel_.value()), 0, static_cast<double>(wheel_.maximum()), kStep};
}

QString WheelItem::accessible_value() const {
  return QString::number(std::lround(100.0 * wheel_.value() / wheel_.maximum())) + " %";
}

void WheelItem::put_value(double value) {
  const auto wanted = static_cast<std::int32_t>(std::lround(std::clamp(value, 0.0, double(wheel_.maximum()))));
  if (wanted != wheel_.value()) wheel_.move(wanted);
}

void WheelItem::turn(std::int32_t by) { put_value(wheel_.value() + double{1} * by); }

void WheelItem::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  set_pressed(true);
  last_ = panel_position(event->position());
  turned_ = wheel_.value();
}

void WheelItem::mouseMoveEvent(QMouseEvent* event) {
  if (!is_pressed()) return;
  const bool fine = (event->modifiers() & Qt::ShiftModifier) != 0;
  const QPointF at = panel_position(event->position());
  const double way = (last_.y() - at.y()) * wheel_.maximum() / kDragLength;
  last_ = at;
  turned_ = std::clamp(turned_ + (fine ? way / 10 : way), 0.0, static_cast<double>(wheel_.maximum()));
  put_value(turned_);
}

void WheelItem::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) set_pressed(false);
}

void WheelItem::wheelEvent(QWheelEvent* event) {
  turn(kStep * whole_wheel_steps(*event, wheel_rest_));
  event->accept();
}

void WheelItem::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Right:
      return put_value(wheel_.value() + kStep);
    case Qt::Key_Down:
    case Qt::Key_Left:
      return put_value(wheel_.value() - kStep);
    case Qt::Key_PageUp:
      return put_value(wheel_.value() + kPage);
    case Qt::Key_PageDown:
      return put_value(wheel_.value() - kPage);
    case Qt::Key_Home:
      return put_value(0);
    case Qt::Key_End:
      return put_value(wheel_.maximum());
    default:
      PanelItem::keyPressEvent(event);
  }
}

}  // namespace tandem
