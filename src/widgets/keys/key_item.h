// Keys: the transport, the list's keys, Playlist and Controls; the pitch stud; Minimise and Close. UI thread.
#pragma once

#include "controls/kinds/button.h"
#include "paint/controls/key.h"
#include "widgets/items/panel_item.h"

namespace tandem {

// A push of mouse button, Space or Return; a click is a push that is let go on the item. The click comes before the
// release.
//
// A click gives it no keyboard focus: Space after it goes where it went before.
class PushItem : public PanelItem {
 public:
  PushItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Control* model)
      : PanelItem(panel, canvas, place, model) {
    if (place.tab > 0) setFocusPolicy(Qt::TabFocus);
  }
  bool can_press() const override { return true; }

 protected:
  void press_by_key() override;
  virtual void pushed() {}
  virtual void let_go() {}
  virtual void clicked() = 0;
  bool shown_pressed() const { return is_pressed() && inside_; }

  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void cancel_press() override { end_push(false); }

 private:
  void begin_push();
  void end_push(bool click);
  bool inside_ = false;
};

class ButtonItem : public PushItem {
 public:
  ButtonItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Button& button)
      : PushItem(panel, canvas, place, &button), button_(button) {}

 protected:
  void pushed() override { button_.press.raise(); }
  void let_go() override { button_.release.raise(); }
  void clicked() override { button_.click.raise(); }
  const Button& button() const { return button_; }

 private:
  Button& button_;
};

// What sets one key apart from another.
struct KeyTraits {
  std::optional<Icon> picture{};    // where it is not the model's own
  std::optional<Colour> engaged{};  // the back colour that says so, of a key that has two states
  bool bold = false;                // its caption
};

class KeyItem final : public ButtonItem {
 public:
  KeyItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Button& button, const KeyTraits& traits = {})
      : ButtonItem(panel, canvas, place, button), traits_(traits) {}
  void draw(QPainter& painter) const override;
  std::optional<bool> checked() const override;

 private:
  KeyState look() const;
  KeyTraits traits_;
};

class StudItem final : public ButtonItem {
 public:
  using ButtonItem::ButtonItem;
  void draw(QPainter& painter) const override;
};

// Minimise or Close: hangs on the right edge of the window.
class ChromeItem final : public PushItem {
 public:
  ChromeItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Icon icon, std::function<void()> act)
      : PushItem(panel, canvas, place, nullptr), icon_(icon), act_(std::move(act)) {}
  void draw(QPainter& painter) const override;
  void hang_on(WindowSize size) {
    size_ = size;
    follow_transform();
  }

 protected:
  void clicked() override { act_(); }
  QRect drawn_box() const override;
  QRect hit_area() const override { return chrome_box(place(), size_); }

 private:
  Icon icon_;
  WindowSize size_ = WindowSize::Full;
  std::function<void()> act_;
};

}  // namespace tandem
