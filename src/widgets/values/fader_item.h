// What is slid: equalizer faders, the pitch fader, the position slider and the two slide switches. UI thread.
#pragma once

#include "controls/kinds/dial.h"
#include "controls/kinds/slider.h"
#include "controls/mix_view.h"
#include "paint/controls/fader.h"
#include "widgets/items/panel_item.h"

namespace tandem {

// Press, changes and release of a Slider by mouse, wheel and keys. A key down is a press and a change, its release the
// release; a turn of the wheel is all three at once.
class SlidingItem : public PanelItem {
 public:
  SlidingItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Slider& slider);
  std::optional<ItemValue> value_range() const override;
  QString accessible_value() const override { return QString::number(slider_.value()); }

 protected:
  void put_value(double value) override { put_by_user(value); }
  void put_by_user(double value);  // press, change and release
  virtual std::int32_t value_at(const QPointF& panel_position) const = 0;
  // A press on it moves nothing: the pointer keeps its place on the cap. Px of the panel.
  virtual QRectF cap_now() const = 0;
  // The value after a key, or nothing for a key that is not the slider's.
  virtual std::optional<std::int32_t> value_after(int key) const = 0;
  virtual std::int32_t wheel_step() const { return 1; }
  Slider& slider() const { return slider_; }

  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void cancel_press() override;
  void move_to(std::int32_t value);

 private:
  void let_go();

  Slider& slider_;
  QPointF grip_;        // of the pointer, from the cap's middle
  int wheel_rest_ = 0;  // of a fine wheel
  int key_down_ = 0;
};

class FaderItem : public SlidingItem {
 public:
  FaderItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Slider& slider, QSizeF cap, QRgb lit_colour,
            std::int32_t page_step)
      : SlidingItem(panel, canvas, place, slider), cap_(cap), lit_colour_(lit_colour), page_step_(page_step) {}
  void draw(QPainter& painter) const override;

 protected:
  std::int32_t value_at(const QPointF& panel_position) const override;
  QRectF cap_now() const override;
  std::optional<std::int32_t> value_after(int key) const override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;  // to the middle

 private:
  FaderState look() const;
  QSizeF cap_;
  QRgb lit_colour_;
  std::int32_t page_step_;
};

// One of the 15: Left and Right go to the neighbours, 0 is flat. The window makes the one last used their one tab stop.
class BandItem final : public FaderItem {
 public:
  BandItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Slider& slider, int band);
  int band() const { return band_; }
  std::function<void(int)> go_to_band;  // the neighbour to focus
  std::function<void(BandItem&)> was_used;
  QString accessible_value() const override { return SlidingItem::accessible_value() + " dB"; }

 protected:
  std::optional<std::int32_t> value_after(int key) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  int band_;
};

// Its slider counts milliseconds; assistive technology has whole seconds.
class PositionItem final : public SlidingItem {
 public:
  using SlidingItem::SlidingItem;
  void draw(QPainter& painter) const override;
  QString accessible_value() const override;  // "1:23 of 3:45"
  QString accessible_description() const override;
  void show_mix(const MixView& view);  // the mark where the next song begins, and the other song that sounds
  std::optional<ItemValue> value_range() const override;

 protected:
  void put_value(double seconds) override;
  std::int32_t value_at(const QPointF& panel_position) const override;
  QRectF cap_now() const override { return cap_at(share()); }
  std::optional<std::int32_t> value_after(int key) const override;
  std::int32_t wheel_step() const override { return 5000; }
  void model_changed() override;
  QRect drawn_box() const override;

 private:
  double share() const;
  QRectF cap_at(double share) const;
  QRectF cap_box(double share) const;
  bool seen_apart(std::optional<double> a, std::optional<double> b) const;
  double drawn_share_ = -1;
  std::optional<double> mark_;
  std::optional<double> second_;
  QString mixing_;  // what is said while two songs sound
  QString next_;    // where the next song begins
};

class SlideSwitchItem final : public PanelItem {
 public:
  SlideSwitchItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Switch& model);
  void draw(QPainter& painter) const override;
  bool advance(double seconds) override;
  QString accessible_value() const override;
  std::optional<bool> checked() const override { return switch_.value() != 0; }
  bool can_press() const override { return true; }

 protected:
  void press_by_key() override { move_to(1 - switch_.value()); }
  void model_changed() override;
  QRect drawn_box() const override;
  QRect hit_area() const override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void move_to(std::int32_t position);
  Switch& switch_;
  double cap_;
};

}  // namespace tandem
