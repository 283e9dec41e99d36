#include "widgets/keys/lamp_item.h"

#include <QKeyEvent>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "paint/strokes/palette.h"

namespace tandem {

namespace {

constexpr double kBreath = 1.0;       // seconds
constexpr double kStillBreath = 0.5;  // where nothing is to move
constexpr double kStillPhase = 0.25;  // seconds into a breath that is as bright

QString text_of(const ControlBox& row) { return QString::fromUtf8(row.caption); }

}  // namespace

LampState LampItem::look(const QString& caption) const {
  return {.colour = from_bgr(static_cast<std::uint32_t>(lamp_.LEDColor.get())).rgb(),
          .lit = lit(),
          .caption = caption,
          .interaction = interaction()};
}

void LampButtonItem::draw(QPainter& painter) const { paint_lamp_button(painter, box(), look(text_of(place()))); }

QRect LampButtonItem::drawn_box() const { return LampItem::drawn_box().adjusted(0, 0, 20, 0); }

void LeadLampItem::draw(QPainter& painter) const {
  LampState lamp = look(text_of(caption_));
  if (breathing_ || breathes_out()) lamp.breath = breath();
  paint_lead_lamp(painter, box(), lamp);
}

// The caption stands in front of the lamp.
QRect LeadLampItem::drawn_box() const { return LampItem::drawn_box().adjusted(-20, 0, 0, 0); }

// It begins calm, goes on after a pause as bright as it stood, and fades out when the overlap has ended.
void LeadLampItem::set_mixing(bool mixing, bool held) {
  held = held && mixing;
  if (breathing_ == mixing && held_ == held) return;
  if (mixing) {
    seconds_ = breathing_ ? kStillPhase : 0;
  } else {
    seconds_ = moves() && lit() ? std::max(seconds_, kBreath - seconds_) : 0;
  }
  breathing_ = mixing;
  held_ = held;
  changed();
  if (moves()) start_moving();
}

bool LeadLampItem::moves() const { return (breathing_ || breathes_out()) && !held_ && !canvas().reduced_motion(); }

// Once a second, a raised cosine that begins and ends as the lamp always is.
double LeadLampItem::breath() const {
  if (!lit()) return 0;
  if (!moves()) return breathing_ ? kStillBreath : 0;
  return (1 - std::cos(2 * std::numbers::pi * seconds_ / kBreath)) / 2;
}

bool LeadLampItem::advance(double seconds) {
  const bool hovering = LampItem::advance(seconds);
  if (!moves()) return hovering;
  seconds_ += seconds;
  if (seconds_ >= kBreath) seconds_ = breathing_ ? std::fmod(seconds_, kBreath) : 0;
  if (lit()) canvas().repaint_box(drawn_box());
  return moves() || hovering;
}

void LeadLampItem::keyPressEvent(QKeyEvent* event) {
  const bool left = event->key() == Qt::Key_Left;
  if (!left && event->key() != Qt::Key_Right) return LampItem::keyPressEvent(event);
  if (PanelItem* to = left ? before_ : after_) to->setFocus(Qt::TabFocusReason);
}

}  // namespace tandem
