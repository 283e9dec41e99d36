// The display area: one item for all displays, of which those are drawn that the panel shows. It moves them at every
// frame and repaints only what has changed. Displays that come into sight begin at rest. UI thread.
#pragma once

#include <span>

#include "widgets/display_area/display_view.h"

namespace tandem {

class DisplayAreaItem final : public PanelItem {
 public:
  DisplayAreaItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, DisplayViews views);

  void draw(QPainter& painter) const override;
  // Moves the displays and repaints what has changed. False when all lie at rest.
  bool move_displays(double seconds);
  void feed(std::span<const SoundFrame> heard);
  bool at_rest() const;
  const DisplayViews& views() const { return views_; }

  QString accessible_value() const override;
  std::optional<ItemValue> value_range() const override;

 protected:
  // No more than its box: beside it lies what other items draw.
  QRect drawn_box() const override { return place().box(); }
  QString name_in_table() const override;
  void showEvent(QShowEvent* event) override;

 private:
  std::vector<const DisplayView*> visible() const;
  bool follow_panel();
  void show(const DisplayView& view, const ChangedPicture& picture);
  void repaint(const QRectF& box) { canvas().repaint_box(box.toAlignedRect()); }

  DisplayViews views_;
  std::vector<const DisplayView*> shown_;  // as last drawn; the first one is the area's accessible value
  double scale_ = 0;                       // device pixels to a px of the panel
};

// The accessible item of a display that the display area draws beside its first one; draws nothing itself.
class LevelItem final : public PanelItem {
 public:
  LevelItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, const DisplayView& view)
      : PanelItem(panel, canvas, place, nullptr), view_(view) {}
  void draw(QPainter&) const override {}
  bool advance(double) override { return false; }
  bool in_use() const override { return view_.is_visible(); }
  QString accessible_value() const override { return view_.value_text(); }
  std::optional<ItemValue> value_range() const override { return view_.value(); }

 private:
  const DisplayView& view_;
};

}  // namespace tandem
