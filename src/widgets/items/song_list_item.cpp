#include "widgets/items/song_list_item.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "paint/surfaces/panels.h"
#include "widgets/items/time_text.h"
#include "widgets/items/wheel_steps.h"

namespace tandem {

namespace {
constexpr int kRowsPerNotch = 3;
}

SongListItem::SongListItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, ListBox& list,
                           std::function<void()> play_selected)
    : PanelItem(panel, canvas, place, &list), list_(list), play_selected_(std::move(play_selected)) {}

void SongListItem::draw(QPainter& painter) const {
  SongListState look;
  for (int i = top_; i < std::min(top_ + kListRows, list_.ListCount()); ++i) {
    look.rows << QString::fromStdString(list_.List(i));
    look.lengths << length_of(i);
  }
  look.top = top_;
  look.count = list_.ListCount();
  look.selected = list_.ListIndex();
  look.playing = counted_line_;
  look.overlapping = other_line_;
  look.drop = drop_;
  look.interaction = interaction();
  paint_song_list(painter, box(), look);
  paint_glass_shine(painter, box());
}

LineSound SongListItem::sound_of(int index) const {
  if (index < 0) return LineSound::None;
  if (index == counted_line_) return LineSound::Counted;
  return index == other_line_ ? LineSound::Other : LineSound::None;
}

QString SongListItem::length_of(int index) const {
  const auto line = static_cast<std::size_t>(index);
  if (line >= lengths_.size() || lengths_[line] <= 0) return {};
  return minutes_and_seconds(lengths_[line]);
}

void SongListItem::show_mix(const MixView& view) {
  const int counted = view.counted ? view.counted->line : -1;
  const int other = view.other ? view.other->line : -1;
  const bool other_lines = counted != counted_line_ || other != other_line_;
  if (!other_lines && view.lengths == lengths_) return;
  counted_line_ = counted;
  other_line_ = other;
  lengths_ = view.lengths;
  changed();
  if (const auto follower = follower_.lock(); follower && other_lines) follower->sounds_changed();
}

void SongListItem::set_drop(const std::optional<QString>& what) {
  if (drop_ == what) return;
  drop_ = what;
  changed();
}

QString SongListItem::accessible_value() const { return QString::fromStdString(list_.List(list_.ListIndex())); }

QString SongListItem::accessible_description() const {
  return list_.ListCount() == 0 ? QStringLiteral("%1 %2").arg(QString(kListHint), QString(kListHintBelow)) : QString();
}

int SongListItem::last_top() const { return std::max(0, list_.ListCount() - kListRows); }

void SongListItem::scroll_to(int top) {
  const int limited = std::clamp(top, 0, last_top());
  if (limited == top_) return;
  top_ = limited;
  changed();
}

void SongListItem::show_line(int index) {
  if (index < 0) return;
  if (index < top_) scroll_to(index);
  if (index >= top_ + kListRows) scroll_to(index - kListRows + 1);
}

void SongListItem::model_changed() {
  if (const auto follower = follower_.lock()) follower->list_changed();
  follow_additions_soon();
  scroll_to(top_);
  if (list_.ListCount() == 0) {
    last_selection_ = 0;
    emptied_ = true;
  }
  if (list_.ListIndex() != seen_selection_) follow_selection();
  changed();
}

// A selection that the panel moves is brought into view; the user's scrolling otherwise stays.
void SongListItem::follow_selection() {
  seen_selection_ = list_.ListIndex();
  if (seen_selection_ >= 0) last_selection_ = seen_selection_;
  show_line(seen_selection_);
  if (const auto follower = follower_.lock()) follower->selection_changed();
}

// When the panel's act is over: it empties and fills the list to move one song.
void SongListItem::follow_additions_soon() {
  if (!std::exchange(additions_due_, true))
    QMetaObject::invokeMethod(
        this, [this] { follow_additions(); }, Qt::QueuedConnection);
}

// The first line that was added is brought to the top, or as near to it as the list goes. Of a list that replaces
// another one that is its first line.
void SongListItem::follow_additions() {
  additions_due_ = false;
  const int before = std::exchange(settled_count_, list_.ListCount());
  const bool replaced = std::exchange(emptied_, false);
  if ((before == 0) != (settled_count_ == 0)) canvas().description_changed(*this);
  if (settled_count_ <= before) return;
  if (replaced) {
    scroll_to(0);
  } else if (settled_count_ > top_ + kListRows) {
    scroll_to(before);
  }
}

int SongListItem::row_at(const QPointF& at) const {
  for (int row = 0; row < kListRows; ++row)
    if (list_row_box(box(), row, list_.ListCount()).contains(at))
      return top_ + row < list_.ListCount() ? top_ + row : -1;
  return -1;
}

QRect SongListItem::line_on_screen(int index) const {
  if (index < top_ || index >= top_ + kListRows) return {};
  const QRectF row = list_row_box(box(), index - top_, list_.ListCount());
  return canvas().transform().whole(row).translated(window()->mapToGlobal(QPoint()));
}

void SongListItem::select_line(int index) {
  if (!isEnabled() || isHidden()) return;
  const UserActionScope act(canvas());
  select(index);
}

// A line's tip is its whole text.
bool SongListItem::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return PanelItem::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int row = row_at(panel_position(help->pos()));
  const QString whole = row < 0 ? QString() : QString::fromStdString(list_.List(row)).toHtmlEscaped();
  if (row >= 0) QToolTip::showText(help->globalPos(), "<p style='white-space:pre'>" + whole + "</p>", this);
  return true;
}

void SongListItem::select(int index) {
  if (list_.ListCount() > 0) list_.user_select(std::clamp(index, 0, list_.ListCount() - 1));
}

// A removed song leaves nothing selected: the next one down is then the one that took its place.
int SongListItem::next_row(int steps) const {
  if (list_.ListIndex() >= 0) return list_.ListIndex() + steps;
  return last_selection_ + steps - (steps > 0 ? 1 : 0);
}

void SongListItem::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPointF at = panel_position(event->position());
  const QRectF thumb = list_thumb_box(box(), top_, list_.ListCount());
  if (last_top() > 0 && thumb.adjusted(-3, 0, 3, 0).contains(at)) {
    dragging_thumb_ = true;
    thumb_grip_ = at.y() - thumb.top();
  } else if (last_top() > 0 && list_track_box(box()).adjusted(-3, 0, 3, 0).contains(at)) {
    scroll_to(top_ + (at.y() < thumb.top() ? -kListRows : kListRows));
  } else if (const int row = row_at(at); row >= 0) {
    select(row);
  }
}

void SongListItem::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_thumb_) return;
  const QRectF track = list_track_box(box());
  const double way = track.height() - list_thumb_box(box(), top_, list_.ListCount()).height();
  const double at = panel_position(event->position()).y() - thumb_grip_ - track.top();
  scroll_to(static_cast<int>(std::lround(at / std::max(way, 1.0) * last_top())));
}

void SongListItem::mouseReleaseEvent(QMouseEvent*) { dragging_thumb_ = false; }

void SongListItem::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const int row = row_at(panel_position(event->position()));
  if (row < 0) return mousePressEvent(event);  // a fast second press on the scroll bar
  list_.user_second_press(row);
}

void SongListItem::wheelEvent(QWheelEvent* event) {
  scroll_to(top_ - kRowsPerNotch * whole_wheel_steps(*event, wheel_rest_));
  event->accept();
}

void SongListItem::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
      return select(next_row(-1));
    case Qt::Key_Down:
      return select(next_row(1));
    case Qt::Key_PageUp:
      return select(next_row(-kListRows));
    case Qt::Key_PageDown:
      return select(next_row(kListRows));
    case Qt::Key_Home:
      return select(0);
    case Qt::Key_End:
      return select(list_.ListCount() - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!event->isAutoRepeat()) play_selected_();
      return;
    case Qt::Key_Delete:
      if (list_.ListIndex() >= 0) list_.user_double_click(list_.ListIndex());
      return;
    default:
      PanelItem::keyPressEvent(event);
  }
}

}  // namespace tandem
