// Lamp buttons of the board and lead-time lamps of the mix strip. UI thread.
#pragma once

#include "controls/kinds/lamp.h"
#include "paint/controls/lamps.h"
#include "widgets/keys/key_item.h"

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

// One of the row of lead times. Left and Right move the focus along the row. The lit one breathes while two songs
// sound.
class LeadLampItem final : public LampItem {
 public:
  // `caption` is the row of the layout that says its lead time; its neighbours are the items before and after it.
  LeadLampItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Lamp& lamp, const ControlBox& caption)
      : LampItem(panel, canvas, place, lamp, kLeadLit), caption_(caption) {}
  void set_neighbours(PanelItem* before, PanelItem* after) {
    before_ = before;
    after_ = after;
  }
  void set_mixing(bool mixing, bool held);  // held: two songs sound as soon as the panel goes on
  void draw(QPainter& painter) const override;
  bool advance(double seconds) override;

 protected:
  QRect drawn_box() const override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  double breath() const;  // 0 as the lamp always is .. 1 brightest
  bool breathes_out() const { return !breathing_ && seconds_ > 0; }
  bool moves() const;

  const ControlBox& caption_;
  PanelItem* before_ = nullptr;
  PanelItem* after_ = nullptr;
  bool breathing_ = false;
  bool held_ = false;
  double seconds_ = 0;  // into the breath
};

}  // namespace tandem
