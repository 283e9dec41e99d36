#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QtMath>
#include <algorithm>
#include <cmath>

#include "widgets/items/wheel_steps.h"
#include "widgets/values/knob_item.h"

namespace tandem {

namespace {

constexpr double kTurnSeconds = 0.09;
constexpr double kDragThreshold = 3;  // px

// Degrees clockwise from 12 o'clock.
double angle_of(const QPointF& from_centre) { return qRadiansToDegrees(std::atan2(from_centre.x(), -from_centre.y())); }

}  // namespace

RotaryItem::RotaryItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Switch& model)
    : PanelItem(panel, canvas, place, &model), switch_(model), geometry_(rotary_place(place)), pointer_(0) {
  for (const PositionCaption& text : position_captions(place.name)) captions_ << QString::fromUtf8(text.caption);
  pointer_ = target_angle();
  setContextMenuPolicy(Qt::PreventContextMenu);  // the right button turns the knob back
}

void RotaryItem::draw(QPainter& painter) const {
  paint_rotary(painter, geometry_, {captions_, switch_.value(), pointer_, interaction()});
}

std::optional<ItemValue> RotaryItem::value_range() const {
  return ItemValue{static_cast<double>(switch_.value()), 0, static_cast<double>(switch_.maximum()), 1};
}

void RotaryItem::put_value(double value) {
  turn_to(static_cast<std::int32_t>(std::lround(std::clamp(value, 0.0, double(switch_.maximum())))));
}

void RotaryItem::model_changed() {
  changed();
  start_moving();
}

// Eases out: fast at first, then slower.
bool RotaryItem::advance(double seconds) {
  const double target = target_angle();
  if (pointer_ != target) {
    const double left = canvas().reduced_motion() ? 0.0 : std::exp(-4 * seconds / kTurnSeconds);
    pointer_ = target + (pointer_ - target) * left;
    if (std::abs(pointer_ - target) < 0.3) pointer_ = target;
    changed();
  }
  const bool hovering = PanelItem::advance(seconds);
  return pointer_ != target || hovering;
}

bool RotaryItem::on_knob(const QPointF& at) const {
  const QPointF way = at - geometry_.centre;
  return std::hypot(way.x(), way.y()) <= geometry_.radius + 3;
}

void RotaryItem::turn_to(std::int32_t position) {
  const std::int32_t wanted = std::clamp(position, 0, switch_.maximum());
  if (wanted != switch_.value()) switch_.move(wanted);
}

void RotaryItem::step_round(int step) {
  const std::int32_t count = switch_.NumPositions();
  turn_to((switch_.value() + step + count) % count);
}

void RotaryItem::mousePressEvent(QMouseEvent* event) {
  const QPointF at = panel_position(event->position());
  for (const PositionCaption& text : position_captions(place().name))
    if (text.box().contains(at)) return turn_to(text.position);
  if (!on_knob(at)) return;
  const bool back = event->button() == Qt::RightButton || (event->modifiers() & Qt::ShiftModifier) != 0;
  press_step_ = back ? -1 : 1;
  pressed_at_ = at;
  dragged_ = false;
  set_pressed(true);
}

// Dragging turns the pointer towards the mouse, to the nearest position.
void RotaryItem::mouseMoveEvent(QMouseEvent* event) {
  if (!is_pressed()) return;
  const QPointF at = panel_position(event->position());
  const QPointF moved = at - pressed_at_;
  if (!dragged_ && std::hypot(moved.x(), moved.y()) < kDragThreshold) return;
  dragged_ = true;
  const double angle = angle_of(at - geometry_.centre);
  std::int32_t nearest = 0;
  for (std::int32_t i = 1; i < switch_.NumPositions(); ++i) {
    const auto away = [&](std::int32_t p) {
      return std::abs(std::remainder(angle - rotary_angle(p, switch_.NumPositions()), 360.0));
    };
    if (away(i) < away(nearest)) nearest = i;
  }
  turn_to(nearest);
}

void RotaryItem::mouseReleaseEvent(QMouseEvent*) {
  if (!is_pressed()) return;
  set_pressed(false);
  if (!dragged_) step_round(press_step_);
}

void RotaryItem::wheelEvent(QWheelEvent* event) {
  turn_to(switch_.value() - whole_wheel_steps(*event, wheel_rest_));
  event->accept();
}

void RotaryItem::keyPressEvent(QKeyEvent* event) {
  const int digit = event->key() - Qt::Key_1;
  if (digit >= 0 && digit <= switch_.maximum()) return turn_to(digit);
  switch (event->key()) {
    case Qt::Key_Up:
      return turn_to(switch_.value() - 1);
    case Qt::Key_Down:
      return turn_to(switch_.value() + 1);
    case Qt::Key_Home:
      return turn_to(0);
    case Qt::Key_End:
      return turn_to(switch_.maximum());
    default:
      PanelItem::keyPressEvent(event);
  }
}

}  // namespace tandem
