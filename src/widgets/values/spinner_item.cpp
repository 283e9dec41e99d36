#include "widgets/values/spinner_item.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "widgets/items/wheel_steps.h"

namespace tandem {

namespace {
constexpr double kFirstRepeat = 0.4;  // seconds
constexpr double kRepeat = 0.08;
}  // namespace

SpinnerItem::SpinnerItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Spinner& spinner, Digits digits)
    : PanelItem(panel, canvas, place, &spinner), spinner_(spinner), lime_(digits == Digits::Lime) {
  setMouseTracking(true);
}

bool SpinnerItem::advance(double seconds) {
  const bool hovering = PanelItem::advance(seconds);
  if (held_ == Part::None) return hovering;
  for (until_repeat_ -= seconds; until_repeat_ <= 0; until_repeat_ += kRepeat) push(held_);
  return true;
}

void SpinnerItem::cancel_press() {
  held_ = Part::None;
  changed();
}

InteractionState SpinnerItem::interaction_of(Part part) const {
  InteractionState interaction = PanelItem::interaction();
  if (under_ != part) interaction.hover = 0;
  interaction.pressed = held_ == part;
  return interaction;
}

void SpinnerItem::draw(QPainter& painter) const {
  paint_spinner(painter, box(),
                {spinner_.value(), spinner_.Digits, lime_, interaction_of(Part::Up), interaction_of(Part::Down),
                 interaction().focused});
}

std::optional<ItemValue> SpinnerItem::value_range() const {
  return ItemValue{static_cast<double>(spinner_.value()), static_cast<double>(spinner_.minimum()),
                   static_cast<double>(spinner_.maximum()), static_cast<double>(std::max(spinner_.Step, 1))};
}

// A number cannot be typed into the spinners that work by their buttons alone.
void SpinnerItem::put_value(double value) {
  const auto wanted =
      static_cast<std::int32_t>(std::lround(std::clamp(value, double(spinner_.minimum()), double(spinner_.maximum()))));
  if (wanted == spinner_.value()) return;
  if (steps_itself()) return spinner_.move(wanted);
  push(wanted > spinner_.value() ? Part::Up : Part::Down);
}

SpinnerItem::Part SpinnerItem::part_at(const QPointF& at) const {
  if (spinner_up_box(box()).contains(at)) return Part::Up;
  return spinner_down_box(box()).contains(at) ? Part::Down : Part::None;
}

void SpinnerItem::push(Part part) {
  if (part == Part::Up) spinner_.user_up();
  if (part == Part::Down) spinner_.user_down();
}

void SpinnerItem::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  held_ = part_at(panel_position(event->position()));
  if (held_ == Part::None) return;
  push(held_);
  until_repeat_ = kFirstRepeat;
  start_moving();
  changed();
}

void SpinnerItem::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) cancel_press();
}

void SpinnerItem::mouseMoveEvent(QMouseEvent* event) {
  const Part under = part_at(panel_position(event->position()));
  if (under == under_) return;
  under_ = under;
  changed();
}

void SpinnerItem::leaveEvent(QEvent* event) {
  under_ = Part::None;
  PanelItem::leaveEvent(event);
}

void SpinnerItem::wheelEvent(QWheelEvent* event) {
  const int steps = whole_wheel_steps(*event, wheel_rest_);
  for (int i = 0; i < std::abs(steps); ++i) push(steps > 0 ? Part::Up : Part::Down);
  event->accept();
}

void SpinnerItem::page(int direction) {
  if (steps_itself()) return put_value(spinner_.value() + 10.0 * direction * spinner_.Step);
  push(direction > 0 ? Part::Up : Part::Down);
}

void SpinnerItem::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
      return push(Part::Up);
    case Qt::Key_Down:
      return push(Part::Down);
    case Qt::Key_PageUp:
      return page(1);
    case Qt::Key_PageDown:
      return page(-1);
    case Qt::Key_Home:
      if (steps_itself()) put_value(spinner_.minimum());
      return;
    case Qt::Key_End:
      if (steps_itself()) put_value(spinner_.maximum());
      return;
    default:
      PanelItem::keyPressEvent(event);
  }
}

}  // namespace tandem
