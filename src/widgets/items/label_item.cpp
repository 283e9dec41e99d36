#include "widgets/items/label_item.h"

#include <QMouseEvent>

#include "paint/controls/gain.h"
#include "paint/controls/gauge.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/panels.h"
#include "paint/text/dot_font.h"

namespace tandem {

namespace {

constexpr double kRestSeconds = 0.8;  // before a new caption begins to move
constexpr double kColumnsPerSecond = 1000.0 * kCellColumns / LedLabel::ScrollSpeed;

}  // namespace

ClickItem::ClickItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Control* model,
                     const Notification<>* click)
    : PanelItem(panel, canvas, place, model), click_(click) {
  if (click_ != nullptr) setCursor(Qt::PointingHandCursor);
}

void ClickItem::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) set_pressed(true);
}

void ClickItem::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !is_pressed()) return;
  set_pressed(false);
  if (rect().contains(event->pos())) press_by_key();
}

void ClickItem::enterEvent(QEnterEvent* event) {
  PanelItem::enterEvent(event);
  if (pointer_over) pointer_over(true);
}

void ClickItem::leaveEvent(QEvent* event) {
  PanelItem::leaveEvent(event);
  if (pointer_over) pointer_over(false);
}

LedLabelItem::LedLabelItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, LedLabel& label,
                           bool clickable, UnlitDots unlit)
    : ClickItem(panel, canvas, place, &label, clickable ? &label.click : nullptr),
      label_(label),
      unlit_(unlit),
      shown_(label.Caption),
      steps_(kRestSeconds, kColumnsPerSecond) {}

int LedLabelItem::ring_columns() const { return led_text_columns(QString::fromStdString(label_.Caption)); }

// A text that fits the cells stands still, whatever the switch says: the panel leaves it on for the next short title.
bool LedLabelItem::scrolls() const { return label_.Scrolling && ring_columns() > label_.NumChars * kCellColumns; }

void LedLabelItem::draw(QPainter& painter) const {
  LedLabelState look;
  look.text = QString::fromStdString(label_.Caption);
  look.cells = label_.NumChars;
  look.pitch = place().pitch;
  look.colour = from_bgr(static_cast<std::uint32_t>(label_.LEDColor.get())).rgb();
  look.dark_dots = unlit_.colour;
  look.unbroken = unlit_.unbroken;
  if (scrolls()) look.scroll = column_;
  paint_led_label(painter, box().topLeft(), look);
}

void LedLabelItem::model_changed() {
  if (label_.Caption.get() != shown_) {
    shown_ = label_.Caption;
    steps_ = ScrollSteps(kRestSeconds, kColumnsPerSecond);
    column_ = 0;
  }
  changed();
  if (scrolls()) start_moving();
}

// Whole dot columns, or whole cells where motion is to be reduced; a hidden label keeps its place.
bool LedLabelItem::advance(double seconds) {
  const bool hovering = ClickItem::advance(seconds);
  if (!scrolls() || !isVisible()) return hovering;
  const int moved = steps_.advance(seconds, canvas().reduced_motion() ? kCellColumns : 1);
  if (moved > 0) {
    column_ = (column_ + moved) % ring_columns();
    canvas().repaint_at_once(drawn_box());
  }
  return true;
}

void GaugeItem::draw(QPainter& painter) const { paint_gauge(painter, box(), gauge_.Progress); }

void PitchLampItem::draw(QPainter& painter) const {
  if (next_ != nullptr) paint_lamp_link(painter, box(), next_->box());
  paint_pitch_lamp(painter, box(), from_bgr(static_cast<std::uint32_t>(lamp_.LEDColor.get())).rgb(), lit());
}

QRect PitchLampItem::drawn_box() const { return PanelItem::drawn_box().adjusted(0, 0, 75, 0); }

void AreaItem::shine_over(ClickItem& item) {
  item.pointer_over = [this](bool over) { over ? ClickItem::enterEvent(nullptr) : ClickItem::leaveEvent(nullptr); };
}

void AreaItem::draw(QPainter& painter) const {
  if (place().kind == ControlKind::GlassPanel) paint_glass_hover(painter, box(), interaction().hover);
}

void GainItem::draw(QPainter& painter) const { paint_gain(painter, box(), QString::fromStdString(caption_)); }

}  // namespace tandem
