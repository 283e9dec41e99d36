#include "widgets/keys/key_item.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "base/colours.h"
#include "controls/panel_controls.h"
#include "paint/controls/head_strip.h"
#include "paint/strokes/palette.h"

namespace tandem {

namespace {

bool is_push_key(const QKeyEvent& event) {
  return event.key() == Qt::Key_Space || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

// The back colours that mean a lit state, and the frames of keys whose own colour says nothing.
bool is_lit_colour(Colour colour) {
  return colour == clYellow || colour == clAqua || colour == clLime || colour == kNextAfter;
}

QRgb frame_of(Icon icon, Colour back_colour) {
  if (back_colour != kKeyNeutral) return from_bgr(static_cast<std::uint32_t>(back_colour)).rgb();
  if (icon == Icon::PlayActive) return palette::kPlayingKey;
  if (icon == Icon::StopActive) return palette::kStoppedKey;
  return palette::kNeutralKey;
}

}  // namespace

void PushItem::begin_push() {
  inside_ = true;
  set_pressed(true);
  pushed();
}

void PushItem::end_push(bool click) {
  if (!is_pressed()) return;
  set_pressed(false);
  if (click) clicked();
  let_go();
}

void PushItem::press_by_key() {
  begin_push();
  end_push(true);
}

void PushItem::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) begin_push();
}

void PushItem::mouseMoveEvent(QMouseEvent* event) {
  const bool inside = rect().contains(event->pos());
  if (inside == inside_) return;
  inside_ = inside;
  changed();
}

void PushItem::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) end_push(rect().contains(event->pos()));
}

void PushItem::keyPressEvent(QKeyEvent* event) {
  if (!is_push_key(*event)) return PanelItem::keyPressEvent(event);
  if (!event->isAutoRepeat()) begin_push();
}

void PushItem::keyReleaseEvent(QKeyEvent* event) {
  if (!is_push_key(*event)) return PanelItem::keyReleaseEvent(event);
  if (!event->isAutoRepeat()) end_push(true);
}

KeyState KeyItem::look() const {
  KeyState look;
  look.icon = traits_.picture.value_or(icone(button().Picture));
  look.back_colour = frame_of(look.icon, button().BackColor);
  look.lit = is_lit_colour(button().BackColor) || look.icon == Icon::PlayActive || look.icon == Icon::StopActive;
  look.caption = QString::fromStdString(button().Caption);
  look.bold = traits_.bold;
  look.interaction = interaction();
  look.interaction.pressed = shown_pressed();
  return look;
}

std::optional<bool> KeyItem::checked() const {
  if (!traits_.engaged) return std::nullopt;
  return button().BackColor == *traits_.engaged;
}

void KeyItem::draw(QPainter& painter) const { paint_key(painter, box(), look()); }

void StudItem::draw(QPainter& painter) const {
  InteractionState stud = interaction();
  stud.pressed = button().BackColor == clGrey;  // the panel's own press feedback
  paint_stud(painter, box(), stud);
}

void ChromeItem::draw(QPainter& painter) const {
  InteractionState chrome = interaction();
  chrome.pressed = shown_pressed();
  paint_chrome_button(painter, hit_area(), icon_, chrome);
}

QRect ChromeItem::drawn_box() const {
  return hit_area().adjusted(-kPaintMargin, -kPaintMargin, kPaintMargin, kPaintMargin);
}

}  // namespace tandem
