// What is turned: the volume wheel and the rotary switches. UI thread.
#pragma once

#include "controls/kinds/dial.h"
#include "paint/controls/knob.h"
#include "widgets/items/panel_item.h"

namespace tandem {

class WheelItem final : public PanelItem {
 public:
  WheelItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Wheel& wheel)
      : PanelItem(panel, canvas, place, &wheel), wheel_(wheel) {}
  void draw(QPainter& painter) const override;
  std::optional<ItemValue> value_range() const override;
  QString accessible_value() const override;
  static constexpr std::int32_t kStep = 328;  // one per cent
  void turn(std::int32_t by);                 // a user action

 protected:
  void put_value(double value) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent*) override {}
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Wheel& wheel_;
  QPointF last_;
  double turned_ = 0;  // the value as turned, with its fraction
  int wheel_rest_ = 0;
};

class RotaryItem final : public PanelItem {
 public:
  RotaryItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Switch& model);
  void draw(QPainter& painter) const override;
  bool advance(double seconds) override;
  std::optional<ItemValue> value_range() const override;
  QString accessible_value() const override { return captions_.value(switch_.value()); }

 protected:
  void put_value(double value) override;
  void press_by_key() override { step_round(1); }
  void model_changed() override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool on_knob(const QPointF& at) const;
  void turn_to(std::int32_t position);
  void step_round(int step);
  double target_angle() const { return rotary_angle(switch_.value(), static_cast<int>(captions_.size())); }

  Switch& switch_;
  RotaryPlace geometry_;
  QStringList captions_;
  double pointer_;
  bool dragged_ = false;
  QPointF pressed_at_;
  int press_step_ = 0;
  int wheel_rest_ = 0;
};

}  // namespace tandem
