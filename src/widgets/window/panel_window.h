// The one window. It owns the items, paints them over its cached background, and follows the panel's own size, place
// and visibilities. Frameless, of a scale of its own. Where the desktop composites windows the corners are round and a
// shadow lies about the panel, in a margin of the window that takes no input; otherwise the window is square. UI
// thread.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "controls/mix_view.h"
#include "controls/panel_controls.h"
#include "widgets/display_area/display_area_item.h"
#include "widgets/items/panel_item.h"
#include "widgets/keys/key_item.h"
#include "widgets/window/direct_drawing.h"

namespace tandem {

class BandItem;
class ClickItem;
class LeadLampItem;
class PositionItem;
class SongListItem;
class WheelItem;

class PanelWindow final : public QWidget, public PanelCanvas {
 public:
  // What the window asks of the program.
  struct Hooks {
    std::function<void()> close;                                // the user closes the panel
    std::function<void()> frame_wanted;                         // something moves: call frame() soon
    std::function<void()> user_action;                          // before and after every user action
    std::function<void(const std::vector<std::string>&)> drop;  // files and folders dropped on it, as paths
    Present present;                                            // a shorter way to the screen, if there is one
    std::function<void(const QRect& panel)> outline;            // the window's part that is no shadow, px of the window
  };

  PanelWindow(PanelControls& controls, DisplayViews displays, Hooks hooks);
  ~PanelWindow() override;

  // Moves what moves by itself, by the time since the last call. False when nothing moves any more.
  bool frame(double seconds);
  DisplayAreaItem& visual() { return *visual_; }
  // Shows what sounds: marks in the list and on the position slider, the lit lead-time lamp, the total time's tip.
  void show_mix(const MixView& view);
  // Whether anything that moves could be seen at all, and whether the user is near.
  bool exposed() const;
  bool attended() const;
  void set_covered(bool covered);  // wholly, by other windows; nothing is painted then

  // Whether the desktop shows windows with transparency, at first not: the corners get round, or square again, and the
  // shadow comes or goes about a panel that keeps its place. A change makes another native window: what hangs on
  // windowHandle() must be given up before.
  void set_composited(bool composited);
  bool composited() const { return composited_; }

  PanelItem* item(std::string_view name) const;
  const std::vector<PanelItem*>& items() const { return items_; }

  // Px of the window to a px of the panel, beside the screen's own scale. At first as it suits the screen; kept between
  // 1 and the greatest step at which the panel with its board fits the screen. The place stays, as far as the window
  // then still lies on the screen.
  double scale() const { return transform_.factor(); }
  void set_scale(double scale);
  void begin_with_scale(double scale);  // any, before it is shown
  void step_scale(int steps);           // of 25 %
  double greatest_scale() const;

  // PanelCanvas.
  const PanelTransform& transform() const override { return transform_; }
  void repaint_box(const QRect& box) override;
  void repaint_at_once(const QRect& box) override;
  void show_picture(const QImage& picture, const QPointF& at, std::span<const QRect> changed) override;
  void start_moving(PanelItem& item) override;
  void visibilities_changed() override;
  void value_changed(PanelItem& item) override;
  void description_changed(PanelItem& item) override;
  bool take_wheel(const PanelItem& over, QWheelEvent& event) override;
  void mouse_pressed() override;
  void user_action() override { hooks_.user_action(); }
  bool reduced_motion() const override { return reduced_motion_; }
  // At first as the desktop's style has it: one whose animations last no time wants nothing moved. The title then
  // steps by whole cells, lights and pointers change at once.
  void set_reduced_motion(bool reduced) { reduced_motion_ = reduced; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool event(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  // panel_items.cpp
  template <class Item, class... Arguments>
  Item* add(std::string_view name, Arguments&&... arguments);
  void add_items(DisplayViews displays);
  void add_display_panel();
  void add_transport();
  void add_mix_strip();
  void add_lead_lamps();
  void add_display_area(DisplayViews displays);
  void add_equalizer();
  void add_song_list();
  void add_board();
  void chain_tabs();
  void use_band(BandItem& band);
  // window_keys.cpp
  void add_shortcuts();
  void add_shortcut(std::string_view keys, const std::function<void()>& act);
  void pause_or_play();
  // window_place.cpp
  void follow_frame();
  void take_place();
  void read_screen();
  void fit_screen();
  void suit_screen();
  void watch_screen();
  void lay_out(double scale);
  void report_outline();
  QPoint screen_origin() const;
  WindowSize size_now() const;
  // window_painting.cpp
  const QPixmap& background();
  void draw_rect(QPainter& painter, const QRect& rect);
  void draw_items(QPainter& painter, const QRect& box);
  void draw_drop_frame(QPainter& painter);
  // window_mouse.cpp
  void turn_volume(const QWheelEvent& event);
  void show_drop(const std::optional<QString>& what);

  void follow_visibilities();
  bool is_shown_in_layout(const PanelItem& item) const;

  PanelControls& controls_;
  Hooks hooks_;
  PanelTransform transform_;
  std::vector<PanelItem*> items_;  // in drawing order; owned by the window as its children
  std::map<std::string, PanelItem*, std::less<>> by_name_;
  DisplayAreaItem* visual_ = nullptr;
  PositionItem* position_ = nullptr;
  WheelItem* volume_ = nullptr;
  SongListItem* list_ = nullptr;
  ClickItem* total_ = nullptr;
  ChromeItem* minimise_ = nullptr;
  ChromeItem* close_ = nullptr;
  std::vector<BandItem*> bands_;
  std::vector<LeadLampItem*> lead_lamps_;
  struct Moving {
    PanelItem* item;
    bool fresh;  // its time begins with the next frame
    bool at_rest;
  };
  std::vector<Moving> moving_;

  QMetaObject::Connection screen_watch_;
  QPixmap background_;
  WindowState background_state_;
  double background_scale_ = 0;
  QImage part_;                      // that is drawn at once, kept for the next of its size
  std::optional<QPoint> drag_from_;  // where the pointer holds the window
  QPoint pressed_at_;                // on the screen
  std::optional<QString> drop_;      // what hovers over the window, in words
  int volume_rest_ = 0;              // of a fine wheel
  int size_rest_ = 0;
  bool dragging_ = false;  // by us: the window manager does not move it
  bool placing_ = false;   // the panel's place is being brought to the window, or the window's to the panel
  bool reduced_motion_ = false;
  bool covered_ = false;
  bool composited_ = false;
};

}  // namespace tandem
