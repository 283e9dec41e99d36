#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>

#include "widgets/values/fader_item.h"

namespace tandem {

namespace {

constexpr double kSlideSeconds = 0.09;

QString caption(const ControlBox& place, int position) {
  const auto text = position_captions(place.name)[static_cast<std::size_t>(position)].caption;
  return QString::fromUtf8(text);
}

}  // namespace

SlideSwitchItem::SlideSwitchItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Switch& model)
    : PanelItem(panel, canvas, place, &model), switch_(model), cap_(model.value()) {
  setFocusPolicy(Qt::TabFocus);
}

// The captions belong to what can be pressed.
QRect SlideSwitchItem::hit_area() const {
  QRectF area = box();
  for (const PositionCaption& text : position_captions(place().name)) area = area.united(text.box());
  return area.toAlignedRect();
}

QString SlideSwitchItem::accessible_value() const { return caption(place(), switch_.value()); }

void SlideSwitchItem::draw(QPainter& painter) const {
  paint_slide_switch(painter, box(),
                     {{caption(place(), 0), caption(place(), 1)}, switch_.value(), cap_, interaction()});
}

QRect SlideSwitchItem::drawn_box() const {
  return hit_area().adjusted(-kPaintMargin, -kPaintMargin, kPaintMargin, kPaintMargin);
}

void SlideSwitchItem::model_changed() {
  changed();
  start_moving();
}

bool SlideSwitchItem::advance(double seconds) {
  const double target = switch_.value();
  const double step = canvas().reduced_motion() ? 1.0 : seconds / kSlideSeconds;
  const double before = cap_;
  cap_ = std::clamp(target, cap_ - step, cap_ + step);
  if (cap_ != before) changed();
  const bool hovering = PanelItem::advance(seconds);
  return cap_ != target || hovering;
}

void SlideSwitchItem::move_to(std::int32_t position) {
  if (position != switch_.value() && position >= 0 && position <= 1) switch_.move(position);
}

// A caption chooses its position, the slot changes it.
void SlideSwitchItem::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPointF at = panel_position(event->position());
  for (const PositionCaption& text : position_captions(place().name))
    if (text.box().contains(at)) return move_to(text.position);
  move_to(1 - switch_.value());
}

void SlideSwitchItem::wheelEvent(QWheelEvent* event) {
  if (event->angleDelta().y() != 0) move_to(event->angleDelta().y() > 0 ? 0 : 1);
  event->accept();
}

void SlideSwitchItem::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
      return move_to(0);
    case Qt::Key_Down:
      return move_to(1);
    case Qt::Key_Space:
      return move_to(1 - switch_.value());
    default:
      PanelItem::keyPressEvent(event);
  }
}

}  // namespace tandem
