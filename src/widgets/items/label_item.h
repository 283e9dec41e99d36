// What glows on the black display panel: dot-matrix labels, the volume gauge, the pitch lamps. A click on labels and
// gauge is the panel's own affair (it changes the window's size). UI thread.
#pragma once

#include <functional>
#include <optional>

#include "controls/kinds/lamp.h"
#include "paint/text/led_label.h"
#include "widgets/items/panel_item.h"
#include "widgets/items/scroll_steps.h"

namespace tandem {

// An item whose click goes to a notification of its model.
class ClickItem : public PanelItem {
 public:
  ClickItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Control* model, const Notification<>* click);
  bool can_press() const override { return click_ != nullptr; }
  std::function<void(bool)> pointer_over;  // the pointer has come or gone

 protected:
  void press_by_key() override {
    if (click_ != nullptr) click_->raise();
  }
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  const Notification<>* click_;
};

// The unlit dots of a label.
struct UnlitDots {
  std::optional<QRgb> colour{};  // none: they do not show
  bool unbroken = false;         // one field over all cells, which stands still under a text that moves
};

// A scrolling text is a ring of whole dot columns; it starts to move a while after the caption has changed.
class LedLabelItem final : public ClickItem {
 public:
  LedLabelItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, LedLabel& label, bool clickable,
               UnlitDots unlit);
  void draw(QPainter& painter) const override;
  bool advance(double seconds) override;
  QString accessible_value() const override { return QString::fromStdString(label_.Caption).trimmed(); }

 protected:
  void model_changed() override;

 private:
  int ring_columns() const;
  bool scrolls() const;

  LedLabel& label_;
  UnlitDots unlit_;
  std::string shown_;
  ScrollSteps steps_;
  int column_ = 0;
};

class GaugeItem final : public ClickItem {
 public:
  GaugeItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Gauge& gauge)
      : ClickItem(panel, canvas, place, &gauge, &gauge.click), gauge_(gauge) {}
  void draw(QPainter& painter) const override;
  QString accessible_value() const override { return QString::number(gauge_.Progress) + " %"; }
  std::optional<ItemValue> value_range() const override {
    return ItemValue{static_cast<double>(gauge_.Progress), 0, 100, 1};
  }

 private:
  Gauge& gauge_;
};

class PitchLampItem final : public PanelItem {
 public:
  // A hair line links it with the lamp to its right, if there is one.
  PitchLampItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Lamp& lamp, const ControlBox* next)
      : PanelItem(panel, canvas, place, &lamp), lamp_(lamp), next_(next) {}
  void draw(QPainter& painter) const override;
  QString accessible_value() const override { return lit() ? "on" : "off"; }
  QString accessible_description() const override { return accessible_value(); }
  std::optional<bool> checked() const override { return lit(); }

 protected:
  QRect drawn_box() const override;

 private:
  bool lit() const { return lamp_.LEDColor == clRed || lamp_.LEDColor == clAqua; }
  Lamp& lamp_;
  const ControlBox* next_;
};

// A panel's free area. Its light is on over what lies on it and is pressed for the same, too.
class AreaItem final : public ClickItem {
 public:
  using ClickItem::ClickItem;
  void shine_over(ClickItem& item);
  void draw(QPainter& painter) const override;

 protected:
  QRect drawn_box() const override { return place().box().adjusted(-1, -1, 1, 1); }
};

// A printed caption that swallows clicks, so that the panel under it is not hit by accident; the background shows it.
class DeadItem final : public ClickItem {
 public:
  DeadItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place)
      : ClickItem(panel, canvas, place, nullptr, nullptr) {}
  void draw(QPainter&) const override {}
};

// The text of a gain window. It swallows clicks, so that the panel under it is not hit by accident.
class GainItem final : public ClickItem {
 public:
  GainItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Property<std::string>& caption, Control& model)
      : ClickItem(panel, canvas, place, &model, nullptr), caption_(caption) {}
  void draw(QPainter& painter) const override;

 protected:
  QString name_in_table() const override { return QString::fromStdString(caption_); }

 private:
  Property<std::string>& caption_;
};

}  // namespace tandem
