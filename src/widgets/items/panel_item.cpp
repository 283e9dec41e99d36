#include "widgets/items/panel_item.h"

#include <QFocusEvent>
#include <algorithm>
#include <utility>

namespace tandem {

namespace {

constexpr double kHoverSeconds = 0.08;

bool by_keyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason ||
         reason == Qt::OtherFocusReason;
}

// The focus stays with the item while another window or a menu has the keyboard.
bool is_for_a_while(Qt::FocusReason reason) {
  return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

}  // namespace

PanelItem::PanelItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Control* model)
    : QWidget(panel), canvas_(canvas), place_(place), model_(model) {
  setObjectName(QString::fromUtf8(place.name));
  setAttribute(Qt::WA_NoSystemBackground);
  setAttribute(Qt::WA_NoMousePropagation);
  setFocusPolicy(place.tab > 0 ? Qt::StrongFocus : Qt::NoFocus);
  if (!place.tip.empty()) setToolTip(QString::fromUtf8(place.tip));
  if (model_ == nullptr) return;
  model_visible_ = model_->Visible;
  model_->view_changed.connect([this] { follow_model(); });
}

void PanelItem::follow_model() {
  if (model_->Visible.get() != model_visible_) {
    model_visible_ = model_->Visible;
    canvas_.visibilities_changed();
  }
  model_changed();
  canvas_.value_changed(*this);
}

void PanelItem::follow_transform() { setGeometry(canvas_.transform().whole(hit_area())); }

void PanelItem::set_scene_visible(bool visible) { setVisible(visible); }

void PanelItem::set_enabled_by_model() {
  if (model_ == nullptr || isEnabled() == model_->Enabled.get()) return;
  disabling_ = true;
  setEnabled(model_->Enabled);
  disabling_ = false;
}

// A key that is disabled for a while keeps the focus: the next press must not meet its neighbour.
bool PanelItem::focusNextPrevChild(bool next) { return disabling_ || QWidget::focusNextPrevChild(next); }

// What has no name of its own has its caption for one.
QString PanelItem::name_in_table() const {
  const bool named = !place_.accessible.empty() && !place_.accessible.starts_with('(');
  return QString::fromUtf8(named ? place_.accessible : place_.caption);
}

// "Song: <caption>", "Volume <Progress> %": from '<' on, the value. What stands in round brackets is said by the state.
QString PanelItem::accessible_name() const {
  const QString whole = name_in_table();
  const qsizetype mark = whole.indexOf('<');
  if (mark < 0) return whole.left(whole.indexOf('(')).trimmed();
  return (whole.left(mark) + accessible_value()).trimmed();
}

bool PanelItem::value_text_changed() {
  const ItemValue number = value_range().value_or(ItemValue{});
  const QString speaks =
      QStringLiteral("%1 %2 %3").arg(number.value).arg(checked().value_or(false)).arg(accessible_value());
  return std::exchange(spoken_, speaks) != speaks;
}

InteractionState PanelItem::interaction() const {
  return {hover_, pressed_, focus_shown_ && hasFocus(), model_ == nullptr || model_->Enabled};
}

void PanelItem::set_pressed(bool pressed) {
  if (pressed_ == pressed) return;
  pressed_ = pressed;
  changed();
}

QRect PanelItem::drawn_box() const {
  return place_.box().united(hit_area()).adjusted(-kPaintMargin, -kPaintMargin, kPaintMargin, kPaintMargin);
}

void PanelItem::changed() {
  set_enabled_by_model();
  if (isVisible()) canvas_.repaint_box(drawn_box());
}

bool PanelItem::advance(double seconds) {
  const double target = hovered_ ? 1.0 : 0.0;
  const double step = canvas_.reduced_motion() ? 1.0 : seconds / kHoverSeconds;
  const double before = hover_;
  hover_ = std::clamp(target, hover_ - step, hover_ + step);
  if (hover_ != before) changed();
  return hover_ != target;
}

void PanelItem::enterEvent(QEnterEvent*) {
  hovered_ = true;
  start_moving();
}

void PanelItem::leaveEvent(QEvent*) {
  hovered_ = false;
  start_moving();
}

void PanelItem::focusInEvent(QFocusEvent* event) {
  if (!is_for_a_while(event->reason())) focus_shown_ = by_keyboard(event->reason());
  changed();
}

void PanelItem::focusOutEvent(QFocusEvent* event) {
  if (!is_for_a_while(event->reason())) focus_shown_ = false;
  cancel_press();
  changed();
}

// A key that the control handles shows its focus ring, however it got the focus.
void PanelItem::show_focus() {
  if (std::exchange(focus_shown_, true)) return;
  changed();
}

void PanelItem::end_hover() {
  if (std::exchange(hovered_, false)) start_moving();
}

void PanelItem::hide_focus() {
  if (std::exchange(focus_shown_, false)) changed();
}

bool PanelItem::is_beyond_reach(const QEvent& event) const {
  return event.type() == QEvent::Hide || (event.type() == QEvent::EnabledChange && !isEnabled());
}

bool PanelItem::key_event(QEvent* event) {
  const UserActionScope act(canvas_);
  const bool known = QWidget::event(event);
  if (event->isAccepted() && hasFocus()) show_focus();
  return known;
}

bool PanelItem::event(QEvent* event) {
  if (is_beyond_reach(*event)) cancel_press();
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      canvas_.mouse_pressed();
      [[fallthrough]];
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
      const UserActionScope act(canvas_);
      return QWidget::event(event);
    }
    case QEvent::Wheel: {
      const UserActionScope act(canvas_);
      return canvas_.take_wheel(*this, static_cast<QWheelEvent&>(*event)) || QWidget::event(event);
    }
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return key_event(event);
    default:
      return QWidget::event(event);
  }
}

void PanelItem::press() {
  if (!isEnabled() || isHidden()) return;
  const UserActionScope act(canvas_);
  press_by_key();
}

void PanelItem::set_value(double value) {
  if (!isEnabled() || isHidden()) return;
  const UserActionScope act(canvas_);
  put_value(value);
}

}  // namespace tandem
