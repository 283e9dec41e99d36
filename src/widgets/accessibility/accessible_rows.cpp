#include "widgets/accessibility/accessible_rows.h"

#include <QMetaObject>
#include <QWindow>
#include <algorithm>
#include <string_view>
#include <utility>

#include "widgets/accessibility/accessible_events.h"

namespace tandem {

namespace {

// "playing, 3:20"; what is not known is left out.
QString description_of(LineSound sound, const QString& length) {
  QStringList words;
  if (sound != LineSound::None) words << (sound == LineSound::Counted ? "playing" : "overlapping");
  if (!length.isEmpty()) words << length;
  return words.join(", ");
}

}  // namespace

class AccessibleRow final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccessibleRow(SongListItem& list, int index) : list_(list), index_(index) {}
  int index() const { return index_; }
  void set_index(int index) { index_ = index; }
  // Whether its song sounds otherwise than at the last call.
  bool sound_changed() {
    const LineSound sound = list_.sound_of(index_);
    return std::exchange(sound_, sound) != sound;
  }
  void leave() { leaving_ = true; }  // stays valid while its destruction is announced

  bool isValid() const override { return leaving_ || index_ < list_.list().ListCount(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return list_.window()->windowHandle(); }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&list_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QRect rect() const override { return list_.line_on_screen(index_); }
  void setText(QAccessible::Text, const QString&) override {}
  QString text(QAccessible::Text what) const override {
    if (what == QAccessible::Name) return QString::fromStdString(list_.list().List(index_));
    return what == QAccessible::Description ? description_of(list_.sound_of(index_), list_.length_of(index_))
                                            : QString();
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    state.selectable = true;
    state.focusable = true;
    state.selected = list_.list().Selected(index_);
    state.focused = state.selected && list_.hasFocus();
    state.offscreen = rect().isNull();
    state.invisible = !list_.isVisible();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override {
    if (name == pressAction()) list_.select_line(index_);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  SongListItem& list_;
  int index_;
  bool leaving_ = false;
  LineSound sound_ = LineSound::None;
};

namespace {

// A song is known by its path: its number changes when others come and go.
std::string_view path_of(std::string_view line) {
  const std::size_t dash = line.find(" - ");
  return dash == std::string_view::npos ? line : line.substr(dash + 3);
}

bool same_song(const std::string& a, const std::string& b) { return path_of(a) == path_of(b); }

// How many songs are unchanged at the list's start, and how many at its end.
struct Stay {
  std::size_t before;
  std::size_t after;
};

Stay what_stays(const std::vector<std::string>& old, const std::vector<std::string>& now) {
  const auto begin = std::mismatch(old.begin(), old.end(), now.begin(), now.end(), same_song);
  const auto end = std::mismatch(old.rbegin(), std::make_reverse_iterator(begin.first), now.rbegin(),
                                 std::make_reverse_iterator(begin.second), same_song);
  return {static_cast<std::size_t>(begin.first - old.begin()), static_cast<std::size_t>(end.first - old.rbegin())};
}

std::vector<std::string> lines_of(const ListBox& list) {
  std::vector<std::string> lines;
  lines.reserve(static_cast<std::size_t>(list.ListCount()));
  for (int i = 0; i < list.ListCount(); ++i) lines.push_back(list.List(i));
  return lines;
}

void announce(QAccessibleInterface* line, QAccessible::Event what) {
  QAccessibleEvent event(line, what);
  post_accessibility_event(event);
}

}  // namespace

AccessibleRows::AccessibleRows(SongListItem& list) : list_(list), texts_(lines_of(list.list())) {
  add_lines(0, texts_.size());
}

AccessibleRows::~AccessibleRows() {
  for (const QAccessible::Id id : ids_) QAccessible::deleteAccessibleInterface(id);
  for (const QAccessible::Id id : early_) QAccessible::deleteAccessibleInterface(id);
}

QAccessible::Id AccessibleRows::make_line(std::size_t index) {
  return QAccessible::registerAccessibleInterface(new AccessibleRow(list_, static_cast<int>(index)));
}

AccessibleRow* AccessibleRows::at(std::size_t index) const {
  return dynamic_cast<AccessibleRow*>(QAccessible::accessibleInterface(ids_[index]));
}

QAccessibleInterface* AccessibleRows::line(int index) {
  if (index < 0 || index >= list_.list().ListCount()) return nullptr;
  const auto wanted = static_cast<std::size_t>(index);
  while (ids_.size() + early_.size() <= wanted) early_.push_back(make_line(ids_.size() + early_.size()));
  return wanted < ids_.size() ? at(wanted) : QAccessible::accessibleInterface(early_[wanted - ids_.size()]);
}

int AccessibleRows::index_of(const QAccessibleInterface* line) {
  const auto* found = dynamic_cast<const AccessibleRow*>(line);
  return found == nullptr ? -1 : found->index();
}

void AccessibleRows::list_changed() {
  if (std::exchange(due_, true)) return;
  const auto follow_if_there = [lines = weak_from_this()] {
    if (const auto still = lines.lock()) still->follow();
  };
  QMetaObject::invokeMethod(&list_, follow_if_there, Qt::QueuedConnection);
}

void AccessibleRows::selection_changed() {
  selection_due_ = true;
  list_changed();
}

void AccessibleRows::sounds_changed() {
  for (std::size_t i = 0; i < ids_.size(); ++i)
    if (at(i)->isValid() && at(i)->sound_changed()) announce(at(i), QAccessible::DescriptionChanged);
}

void AccessibleRows::remove_lines(std::size_t from, std::size_t count) {
  for (std::size_t i = from + count; i-- > from;) {
    at(i)->leave();
    announce(at(i), QAccessible::ObjectDestroyed);
    QAccessible::deleteAccessibleInterface(ids_[i]);
  }
  const auto first = ids_.begin() + static_cast<std::ptrdiff_t>(from);
  ids_.erase(first, first + static_cast<std::ptrdiff_t>(count));
}

std::vector<QAccessible::Id> AccessibleRows::add_lines(std::size_t from, std::size_t count) {
  std::vector<QAccessible::Id> added = std::exchange(early_, {});
  for (std::size_t i = count; i < added.size(); ++i) QAccessible::deleteAccessibleInterface(added[i]);
  added.resize(std::min(count, added.size()));
  for (std::size_t i = from + added.size(); i < from + count; ++i) added.push_back(make_line(i));
  ids_.insert(ids_.begin() + static_cast<std::ptrdiff_t>(from), added.begin(), added.end());
  return added;
}

void AccessibleRows::number_lines(std::size_t from) {
  for (std::size_t i = from; i < ids_.size(); ++i) at(i)->set_index(static_cast<int>(i));
}

void AccessibleRows::follow() {
  due_ = false;
  follow_lines();
  if (std::exchange(selection_due_, false)) announce_selection();
}

// With no line selected the list itself has the focus.
void AccessibleRows::announce_selection() {
  const int selected = list_.list().ListIndex();
  QAccessibleEvent selection(&list_, QAccessible::Selection);
  QAccessibleEvent focus(&list_, QAccessible::Focus);
  selection.setChild(selected);
  focus.setChild(selected);
  if (selected >= 0) post_accessibility_event(selection);
  if (list_.hasFocus()) post_accessibility_event(focus);
}

void AccessibleRows::follow_lines() {
  const std::vector<std::string> now = lines_of(list_.list());
  const std::vector<std::string> old = std::exchange(texts_, now);
  const Stay stay = what_stays(old, now);
  const std::size_t left = old.size() - stay.before - stay.after;
  const std::size_t come = now.size() - stay.before - stay.after;
  // What is neither gone nor new is another song in the same place.
  const std::size_t replaced = std::min(left, come);
  const std::size_t from = stay.before + replaced;
  remove_lines(from, left - replaced);
  const std::vector<QAccessible::Id> added = add_lines(from, come - replaced);
  number_lines(from);
  for (const QAccessible::Id id : added) announce(QAccessible::accessibleInterface(id), QAccessible::ObjectCreated);
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (i >= from && i < from + added.size()) continue;
    const std::size_t was = i < from ? i : i - added.size() + (left - replaced);
    if (old[was] != now[i]) announce(at(i), QAccessible::NameChanged);
  }
}

}  // namespace tandem
