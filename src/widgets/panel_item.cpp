#include "widgets/panel_item.h"

#include <QFocusEvent>
#include <algorithm>

namespace tandem {

namespace {

constexpr double kHoverSeconds = 0.08;

QString text_of(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

bool by_keyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason ||
         reason == Qt::OtherFocusReason;
}

}  // namespace

PanelItem::PanelItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Control* model)
    : QWidget(panel), canvas_(canvas), place_(place), model_(model) {
  setObjectName(text_of(place.name));
  setGeometry(hit_box(place));
  setAttribute(Qt::WA_NoSystemBackground);
  setAttribute(Qt::WA_NoMousePropagation);
  setFocusPolicy(place.tab > 0 ? Qt::StrongFocus : Qt::NoFocus);
  if (!place.tip.empty()) setToolTip(text_of(place.tip));
  if (!place.accessible.empty() && place.accessible.front() != '(') setAccessibleName(text_of(place.accessible));
  if (model_ != nullptr) model_->view_changed.connect([this] { model_changed(); });
}

void PanelItem::set_scene_visible(bool visible) { setVisible(visible); }

void PanelItem::set_enabled_by_model() {
  if (model_ != nullptr && isEnabled() != model_->Enabled.get()) setEnabled(model_->Enabled);
}

QString PanelItem::spoken_name() const { return accessibleName(); }

Touch PanelItem::touch() const { return {hover_, pressed_, focus_shown_, model_ == nullptr || model_->Enabled}; }

void PanelItem::set_pressed(bool pressed) {
  if (pressed_ == pressed) return;
  pressed_ = pressed;
  changed();
}

QRect PanelItem::drawn_box() const {
  return place_.box().united(geometry()).adjusted(-kPaintMargin, -kPaintMargin, kPaintMargin, kPaintMargin);
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
  focus_shown_ = by_keyboard(event->reason());
  changed();
}

void PanelItem::focusOutEvent(QFocusEvent*) {
  focus_shown_ = false;
  changed();
}

bool PanelItem::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
      canvas_.before_user_act();
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

}  // namespace tandem
