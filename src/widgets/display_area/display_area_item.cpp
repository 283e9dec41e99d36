#include "widgets/display_area/display_area_item.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "paint/surfaces/panels.h"

namespace tandem {

DisplayAreaItem::DisplayAreaItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, DisplayViews views)
    : PanelItem(panel, canvas, place, nullptr), views_(std::move(views)) {}

std::vector<const DisplayView*> DisplayAreaItem::visible() const {
  std::vector<const DisplayView*> visible;
  for (const auto& view : views_)
    if (view->is_visible()) visible.push_back(view.get());
  return visible;
}

void DisplayAreaItem::feed(std::span<const SoundFrame> heard) {
  for (const auto& view : views_) view->feed(heard);
}

// What was heard before it was hidden is over.
void DisplayAreaItem::showEvent(QShowEvent* event) {
  PanelItem::showEvent(event);
  for (const auto& view : views_) view->reset();
  if (scale_ == 0) return;
  for (const auto& view : views_)
    if (view->is_visible()) view->update(scale_);
}

bool DisplayAreaItem::at_rest() const {
  return scale_ == device_scale() && shown_ == visible() &&
         std::all_of(views_.begin(), views_.end(), [](const auto& view) { return view->at_rest(); });
}

// Other displays, or another scale: everything is drawn again.
bool DisplayAreaItem::follow_panel() {
  const bool same = scale_ == device_scale() && shown_ == visible();
  if (same) return false;
  shown_ = visible();
  scale_ = device_scale();
  canvas().visibilities_changed();
  repaint(box());
  return true;
}

bool DisplayAreaItem::move_displays(double seconds) {
  const bool all = follow_panel();
  for (const auto& view : views_) {
    const bool moved = view->advance(seconds);
    if ((moved || all) && view->is_visible()) show(*view, view->update(scale_));
  }
  return !at_rest();
}

void DisplayAreaItem::show(const DisplayView& view, const ChangedPicture& picture) {
  if (picture.image == nullptr) return repaint(view.area());
  canvas().show_picture(*picture.image, picture.at, picture.boxes);
}

// With no display at all the glass alone shows.
void DisplayAreaItem::draw(QPainter& painter) const {
  if (shown_.empty()) return paint_glass_shine(painter, control_box("Display well").box());
  for (const DisplayView* view : shown_) view->draw(painter);
}

QString DisplayAreaItem::name_in_table() const {
  if (shown_.empty()) return "Display";
  const auto name = control_box(shown_.front()->name()).accessible;
  return QString::fromUtf8(name);
}

QString DisplayAreaItem::accessible_value() const { return shown_.empty() ? QString() : shown_.front()->value_text(); }

std::optional<ItemValue> DisplayAreaItem::value_range() const {
  return shown_.empty() ? std::nullopt : shown_.front()->value();
}

}  // namespace tandem
