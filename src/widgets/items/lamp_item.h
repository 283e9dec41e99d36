// Lamp buttons of the board and lead-time lamps of the mix strip. UI thread.
#pragma once

#include "controls/lamp.h"
#include "paint/controls/lamps.h"
#include "widgets/items/key_item.h"

namespace tandem {

class LampItem : public PushItem {
 public:
  LampItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Lamp& lamp, Colour lit_colour)
      : PushItem(panel, canvas, place, &lamp), lamp_(lamp), lit_colour_(lit_colour) {}
  QString accessible_value() const override { return lit() ? "on" : "off"; }
  std::optional<bool> checked() const override { return lit(); }
  bool lit() const { return lamp_.LEDColor == lit_colour_; }

 protected:
  void clicked() override { lamp_.click.raise(); }
  LampState look(const QString& caption) const;

 private:
  Lamp& lamp_;
  Colour lit_colour_;
};

class LampButtonItem final : public LampItem {
 public:
  using LampItem::LampItem;
  void draw(QPainter& painter) const override;

 protected:
  QRect drawn_box() const override;
};

// Left and Right move the focus along the row.
class LeadLampItem final : public LampItem {
 public:
  using LampItem::LampItem;
  void draw(QPainter& painter) const override;

 protected:
  QRect drawn_box() const override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace tandem
