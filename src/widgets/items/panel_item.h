// Base class of all items: one control's input and drawing. An item takes mouse, wheel and keys and turns them into
// user moves of its model; it draws itself when the panel asks, but never owns pixels: all items are drawn by the one
// panel window over its cached background, so that glow and shadow may leave an item's box. UI thread.
#pragma once

#include <QImage>
#include <QWheelEvent>
#include <QWidget>
#include <functional>
#include <optional>
#include <span>

#include "controls/kinds/control.h"
#include "layout/panel_layout.h"
#include "paint/strokes/interaction_state.h"
#include "widgets/items/panel_transform.h"

namespace tandem {

class PanelItem;

// What an item asks of the window that it lies on.
class PanelCanvas {
 public:
  virtual ~PanelCanvas() = default;
  virtual const PanelTransform& transform() const = 0;
  virtual void repaint_box(const QRect& box) = 0;      // px of the panel
  virtual void repaint_at_once(const QRect& box) = 0;  // the same, cheaper for what moves by itself again and again
  // The changed boxes, in pixels of an opaque picture in device pixels whose origin is at the panel's point `at`;
  // presented immediately.
  virtual void show_picture(const QImage& picture, const QPointF& at, std::span<const QRect> changed) = 0;
  virtual void start_moving(PanelItem& item) = 0;         // advance() is called at every frame until it returns false
  virtual void visibilities_changed() = 0;                // a control's Visible has changed
  virtual void value_changed(PanelItem& item) = 0;        // what assistive technology says of the item may have changed
  virtual void description_changed(PanelItem& item) = 0;  // its accessible_description() says something else
  // The wheel over an item, before the item gets it: true if the turn is the window's.
  virtual bool take_wheel(const PanelItem& over, QWheelEvent& event) = 0;
  virtual void mouse_pressed() = 0;  // somewhere: the focus ring is for the keyboard alone
  virtual void user_action() = 0;    // before and after every user action: sound follows at once
  virtual bool reduced_motion() const = 0;
};

// What assistive technology learns of an item beyond its name.
struct ItemValue {
  double value = 0;
  double minimum = 0;
  double maximum = 0;
  double step = 1;
};

// A user action lasts as long as this: a file dialog may be open in it, so what it began is looked after again at
// its end.
class UserActionScope {
 public:
  explicit UserActionScope(PanelCanvas& canvas) : canvas_(canvas) { canvas_.user_action(); }
  ~UserActionScope() { canvas_.user_action(); }
  UserActionScope(const UserActionScope&) = delete;
  UserActionScope& operator=(const UserActionScope&) = delete;

 private:
  PanelCanvas& canvas_;
};

class PanelItem : public QWidget {
 public:
  PanelItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Control* model);

  const ControlBox& place() const { return place_; }
  Control* model() const { return model_; }
  void set_scene_visible(bool visible);  // as the window's size and the model's Visible have it
  void set_enabled_by_model();
  void follow_transform();  // takes its place in the window
  bool shows_focus() const { return focus_shown_; }
  void end_hover();                             // the pointer has left without a leave event
  void hide_focus();                            // the focus stays, its ring goes until the next key
  virtual bool in_use() const { return true; }  // false: not shown whatever its model says

  // Draws in px of the panel, within painted_box().
  virtual void draw(QPainter& painter) const = 0;
  QRect painted_box() const { return drawn_box(); }
  // Advances the item's animation; false when it has come to rest. The first call after start_moving() passes 0
  // seconds. The base class fades the hover light in and out.
  virtual bool advance(double seconds);

  // Assistive technology.
  QString accessible_name() const;  // the table's name with the value in its place
  virtual QString accessible_value() const { return {}; }
  virtual QString accessible_description() const { return {}; }         // empty: it has none
  virtual std::optional<bool> checked() const { return std::nullopt; }  // nullopt: does not have two states
  virtual bool can_press() const { return false; }
  virtual std::optional<ItemValue> value_range() const { return std::nullopt; }  // nullopt: is not a number
  // Called once assistive technology has asked for the item: only then are its changes announced.
  void notify_accessibility() { notifies_accessibility_ = true; }
  bool notifies_accessibility() const { return notifies_accessibility_; }
  bool value_text_changed();  // otherwise than at the last call
  // The user's actions by assistive technology or a key of the window. No effect while the item is disabled or hidden.
  void press();
  void set_value(double value);

 protected:
  QRectF box() const { return place_.box(); }
  double device_scale() const { return canvas_.transform().factor() * devicePixelRatioF(); }
  InteractionState interaction() const;
  bool is_pressed() const { return pressed_; }
  void set_pressed(bool pressed);
  QPointF panel_position(const QPointF& local) const { return canvas_.transform().to_panel(local + pos()); }
  // px of the panel that the mouse may press.
  virtual QRect hit_area() const { return hit_box(place_); }
  void changed();  // something that is drawn has changed
  void start_moving() { canvas_.start_moving(*this); }
  PanelCanvas& canvas() const { return canvas_; }

  // How far beyond its hit box an item draws, where that is more than the usual margin.
  virtual QRect drawn_box() const;
  virtual void model_changed() { changed(); }
  virtual QString name_in_table() const;
  virtual void press_by_key() {}
  virtual void put_value(double) {}
  // The press ends without a mouse release: the item is disabled, hidden or has lost the focus.
  virtual void cancel_press() { set_pressed(false); }

  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent*) override {}
  bool event(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void follow_model();
  void show_focus();
  bool key_event(QEvent* event);
  bool is_beyond_reach(const QEvent& event) const;

  PanelCanvas& canvas_;
  const ControlBox& place_;
  Control* model_;
  bool model_visible_ = true;
  bool disabling_ = false;
  double hover_ = 0;
  bool hovered_ = false;
  bool pressed_ = false;
  bool focus_shown_ = false;
  bool notifies_accessibility_ = false;
  QString spoken_;  // value text with its number, as last announced
};

}  // namespace tandem
