// The song list: ten rows in view and a scroll bar. UI thread.
#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <vector>

#include "controls/kinds/list_box.h"
#include "controls/mix_view.h"
#include "paint/controls/song_list.h"
#include "widgets/items/panel_item.h"

namespace tandem {

// Whether a line's song sounds: as the song of the counter, or as the other one while two sound.
enum class LineSound { None, Counted, Other };

// Who follows the list's lines for assistive technology.
class SongListFollower {
 public:
  virtual ~SongListFollower() = default;
  virtual void list_changed() = 0;
  virtual void selection_changed() = 0;
  virtual void sounds_changed() = 0;  // other lines sound than before
};

class SongListItem final : public PanelItem {
 public:
  SongListItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, ListBox& list,
               std::function<void()> play_selected);
  void draw(QPainter& painter) const override;
  QString accessible_value() const override;
  QString accessible_description() const override;  // how a list without lines is filled
  const ListBox& list() const { return list_; }
  int top() const { return top_; }
  QRect line_on_screen(int index) const;  // nothing if it is not in view
  void select_line(int index);            // a user action
  // Assistive technology has asked for the lines: from now on it hears when they change.
  void set_follower(const std::shared_ptr<SongListFollower>& follower) { follower_ = follower; }
  LineSound sound_of(int index) const;  // of a line
  QString length_of(int index) const;   // "3:20", empty if it is not known
  void show_mix(const MixView& view);   // marks and lengths
  // What hovers over the list, in words; nothing once it has been dropped or has left.
  void set_drop(const std::optional<QString>& what);

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
  void follow_additions();
  void follow_additions_soon();

  ListBox& list_;
  int top_ = 0;
  int seen_selection_ = -1;
  int last_selection_ = 0;  // the row that was selected last, in a list that has not been emptied since
  double thumb_grip_ = 0;
  bool dragging_thumb_ = false;
  int wheel_rest_ = 0;
  std::function<void()> play_selected_;
  std::weak_ptr<SongListFollower> follower_;
  int counted_line_ = -1;
  int other_line_ = -1;
  std::vector<std::int32_t> lengths_;  // of the lines, milliseconds
  std::optional<QString> drop_;
  int settled_count_ = 0;  // lines after the last act of the panel
  bool additions_due_ = false;
  bool emptied_ = false;  // since the last act of the panel
};

}  // namespace tandem
