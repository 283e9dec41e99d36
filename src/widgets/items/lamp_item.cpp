#include "widgets/items/lamp_item.h"

#include <QKeyEvent>

#include "paint/strokes/palette.h"

namespace tandem {

namespace {

QString lead_caption(std::string_view name) {
  if (name == "AMLed1") return "1,0";
  if (name == "AMLed2") return "2,5";
  return name == "AMLed3" ? "3,5" : "0";
}

}  // namespace

LampState LampItem::look(const QString& caption) const {
  return {from_bgr(static_cast<std::uint32_t>(lamp_.LEDColor.get())).rgb(), lit(), caption, touch()};
}

void LampButtonItem::draw(QPainter& painter) const {
  const auto& caption = place().caption;
  paint_lamp_button(painter, box(), look(QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()))));
}

QRect LampButtonItem::drawn_box() const { return LampItem::drawn_box().adjusted(0, 0, 20, 0); }

void LeadLampItem::draw(QPainter& painter) const { paint_lead_lamp(painter, box(), look(lead_caption(place().name))); }

// The caption stands in front of the lamp.
QRect LeadLampItem::drawn_box() const { return LampItem::drawn_box().adjusted(-20, 0, 0, 0); }

void LeadLampItem::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Right) {
    if (place().name != "AMLed3") focusNextChild();
  } else if (event->key() == Qt::Key_Left) {
    if (place().name != "AMLedOff") focusPreviousChild();
  } else {
    LampItem::keyPressEvent(event);
  }
}

}  // namespace tandem
