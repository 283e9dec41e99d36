// LED numbers with an up and a down button; a held button repeats, by the frames' time. UI thread.
#pragma once

#include "controls/kinds/spinner.h"
#include "paint/controls/spinner.h"
#include "widgets/items/panel_item.h"

namespace tandem {

class SpinnerItem final : public PanelItem {
 public:
  enum class Digits { Lime, White };
  SpinnerItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Spinner& spinner, Digits digits);
  void draw(QPainter& painter) const override;
  bool advance(double seconds) override;
  std::optional<ItemValue> value_range() const override;
  QString accessible_value() const override { return QString::number(spinner_.value()); }

 protected:
  void put_value(double value) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void cancel_press() override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum class Part { None, Up, Down };
  Part part_at(const QPointF& panel_position) const;
  void push(Part part);
  void page(int direction);
  bool steps_itself() const { return spinner_.Step != 0; }
  InteractionState interaction_of(Part part) const;

  Spinner& spinner_;
  bool lime_;
  Part held_ = Part::None;
  Part under_ = Part::None;
  double until_repeat_ = 0;  // seconds
  int wheel_rest_ = 0;
};

}  // namespace tandem
