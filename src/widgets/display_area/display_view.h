// One display in the display area: the numbers of a component, drawn. The display area asks its views in turn and knows
// nothing of their kinds. UI thread.
#pragma once

#include <QPainter>
#include <QString>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "displays/core/sound_frame.h"
#include "widgets/display_area/changed_picture.h"
#include "widgets/items/panel_item.h"

namespace tandem {

class DisplayView {
 public:
  virtual ~DisplayView() = default;

  virtual std::string_view name() const = 0;  // of its row in the layout
  virtual bool is_visible() const = 0;        // as the panel has it
  virtual void feed(std::span<const SoundFrame> heard) = 0;
  virtual bool advance(double seconds) = 0;  // true if what it shows has changed
  virtual bool at_rest() const = 0;
  virtual void reset() = 0;  // as if nothing had been heard

  // px of the panel.
  virtual QRectF area() const = 0;
  // Brings its picture up to date, wholly if it has none of this scale (device pixels to a px of the panel).
  virtual ChangedPicture update(double scale) = 0;
  virtual void draw(QPainter& painter) const = 0;  // in px of the panel

  // Shown only beside another display, which owns the area's accessible item; this one needs its own.
  virtual bool is_beside() const { return false; }
  // For assistive technology; nothing if it is no number.
  virtual std::optional<ItemValue> value() const { return std::nullopt; }
  virtual QString value_text() const { return {}; }
};

using DisplayViews = std::vector<std::unique_ptr<DisplayView>>;

// What is the same for all of them: `Display` is the component.
template <class Display>
class ViewOf : public DisplayView {
 public:
  ViewOf(Display& display, std::string_view name, const QRectF& area) : display_(display), name_(name), area_(area) {}
  QRectF area() const override { return area_; }
  std::string_view name() const override { return name_; }
  bool is_visible() const override { return display_.Visible(); }
  void feed(std::span<const SoundFrame> heard) override { display_.feed(heard); }
  bool advance(double seconds) override { return display_.advance(seconds); }
  bool at_rest() const override { return display_.at_rest(); }
  void reset() override { display_.forget(); }

 protected:
  Display& display() const { return display_; }

 private:
  Display& display_;
  std::string_view name_;
  QRectF area_;
};

}  // namespace tandem
