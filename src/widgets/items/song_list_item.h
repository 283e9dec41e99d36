// The song list: ten rows in view and a scroll bar. UI thread.
#pragma once

#include <memory>

#include "controls/list_box.h"
#include "paint/controls/song_list.h"
#include "widgets/items/panel_item.h"

namespace tandem {

class AccessibleRows;

class SongListItem final : public PanelItem {
 public:
  SongListItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, ListBox& list);
  void draw(QPainter& painter) const override;
  QString accessible_value() const override;
  const ListBox& list() const { return list_; }
  int top() const { return top_; }
  QRect line_on_screen(int index) const;  // nothing if it is not in view
  void select_line(int index);            // an act of the user
  // Assistive technology has asked for the lines: from now on it is told when they change.
  void set_accessible_rows(const std::shared_ptr<AccessibleRows>& lines) { accessible_rows_ = lines; }

 protected:
  void model_changed() override;
  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int row_at(const QPointF& panel_position) const;  // index in the list, -1 for none
  int last_top() const;
  void scroll_to(int top);
  void show_line(int index);
  void select(int index);
  int next_row(int steps) const;  // from the selected one on
  void follow_selection();

  ListBox& list_;
  int top_ = 0;
  int seen_selection_ = -1;
  int last_selection_ = 0;  // the row that was selected last, in a list that has not been emptied since
  double thumb_grip_ = 0;
  bool dragging_thumb_ = false;
  int wheel_rest_ = 0;
  std::weak_ptr<AccessibleRows> accessible_rows_;
};

}  // namespace tandem
