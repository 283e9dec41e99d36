// The one window. It owns the items, paints them over its cached background, and follows the panel's own size, place
// and visibilities. Frameless; the corners are round where the desktop can show it. UI thread.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/panel_controls.h"
#include "widgets/display_area/display_area_item.h"
#include "widgets/items/key_item.h"
#include "widgets/items/panel_item.h"
#include "widgets/window/direct_drawing.h"

namespace tandem {

class BandItem;

class PanelWindow final : public QWidget, public PanelCanvas {
 public:
  // What the window asks of the program.
  struct Hooks {
    std::function<void()> close;                                // the user closes the panel
    std::function<void()> frame_wanted;                         // something moves: call frame() soon
    std::function<void()> user_acts;                            // before and after every act of the user
    std::function<void(const std::vector<std::string>&)> drop;  // files and folders dropped on it, as paths
    Present present;                                            // a shorter way to the screen, if there is one
  };

  PanelWindow(PanelControls& controls, Displays displays, Hooks hooks);
  ~PanelWindow() override;

  // Moves what moves by itself, by the time since the last call. False when nothing moves any more.
  bool frame(double seconds);
  DisplayAreaItem& visual() { return *visual_; }
  // Whether anything that moves could be seen at all, and whether a hand is near.
  bool exposed() const;
  bool attended() const;
  void set_covered(bool covered);  // wholly, by other windows; nothing is painted then

  PanelItem* item(std::string_view name) const;
  const std::vector<PanelItem*>& items() const { return items_; }

  // PanelCanvas.
  void repaint_box(const QRect& box) override;
  void repaint_at_once(const QRect& box) override;
  void show_picture(const QImage& picture, const QPointF& at, std::span<const QRectF> changed) override;
  void start_moving(PanelItem& item) override;
  void visibilities_changed() override;
  void user_acts() override { hooks_.user_acts(); }
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
  void moveEvent(QMoveEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  bool event(QEvent* event) override;

 private:
  // panel_items.cpp
  template <class Item, class... Arguments>
  Item* add(std::string_view name, Arguments&&... arguments);
  void add_items(Displays displays);
  void add_display_panel();
  void add_transport();
  void add_mix_strip();
  void add_equalizer();
  void add_song_list();
  void add_board();
  void chain_tabs();
  void use_band(BandItem& band);
  // panel_keys.cpp
  void add_shortcuts();
  void add_shortcut(const char* keys, const char* item);

  void draw_rect(QPainter& painter, const QRect& rect);
  void draw_items(QPainter& painter, const QRect& rect);
  void follow_frame();
  void follow_visibilities();
  bool is_shown_in_layout(const PanelItem& item) const;
  WindowSize size_now() const;
  void read_screen();
  void shape_corners();
  const QPixmap& background();

  PanelControls& controls_;
  Hooks hooks_;
  std::vector<PanelItem*> items_;  // in drawing order; owned by the window as its children
  std::map<std::string, PanelItem*, std::less<>> by_name_;
  DisplayAreaItem* visual_ = nullptr;
  struct Moving {
    PanelItem* item;
    bool fresh;  // its time begins with the next frame
    bool at_rest;
  };
  std::vector<Moving> moving_;
  std::vector<BandItem*> bands_;
  ChromeItem* minimise_ = nullptr;
  ChromeItem* close_ = nullptr;

  QPixmap background_;
  WindowState background_state_;
  double background_scale_ = 0;
  QImage part_;                      // that is drawn at once, kept for the next of its size
  std::optional<QPoint> drag_from_;  // where the hand holds the window
  QPoint pressed_at_;                // on the screen
  bool dragging_ = false;            // by us: the desktop does not move it
  bool placing_ = false;             // the panel's place is being brought to the window, or the window's to the panel
  bool reduced_motion_ = false;
  bool covered_ = false;
};

}  // namespace tandem
