// The display area: one item for the five displays, of which those are drawn that the panel shows. It moves them at
// every frame and repaints only what has changed. Displays that come into sight begin at rest. UI thread.
#pragma once

#include <span>

#include "displays/meters/level_bar.h"
#include "displays/meters/needle_meter.h"
#include "displays/scope/oscilloscope.h"
#include "displays/spectrum/spectrum_analyser.h"
#include "widgets/display_area/picture_views.h"
#include "widgets/display_area/spectrum_view.h"
#include "widgets/items/panel_item.h"

namespace tandem {

// The panel's five displays, wherever they live.
struct Displays {
  SpectrumAnalyser& MMSpectrum1;
  NeedleMeter& MMMeterX1;
  NeedleMeter& MMMeterX2;
  LevelBar& MMLevelX1;
  Oscilloscope& MMOscopeX1;
};

class DisplayAreaItem final : public PanelItem {
 public:
  DisplayAreaItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Displays displays);

  void draw(QPainter& painter) const override;
  // Moves the displays; tells the canvas what to repaint. False when all lie at rest.
  bool move_displays(double seconds);
  void feed(std::span<const SoundFrame> heard);
  bool at_rest() const;

  QString accessible_value() const override;
  std::optional<ItemValue> value_range() const override;

 protected:
  // No more than its box: beside it lies what other items draw.
  QRect drawn_box() const override { return place().box(); }
  QString name_in_table() const override;
  void showEvent(QShowEvent* event) override;

 private:
  void forget();
  void draw_meters(QPainter& painter) const;
  bool start_anew();
  void show(const ChangedPicture& picture);
  void repaint(const QRectF& box) { canvas().repaint_box(box.toAlignedRect()); }

  Displays displays_;
  SpectrumView spectrum_;
  NeedleView left_;
  NeedleView right_;
  ScopeView scope_;
  int shown_ = -1;    // 0 spectrum, 1 meters, 2 oscilloscope
  double scale_ = 0;  // device pixels to a px
};

// Speaks for the second needle and the level bar, which the display area draws with the first.
class LevelItem final : public PanelItem {
 public:
  LevelItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Displays displays)
      : PanelItem(panel, canvas, place, nullptr), displays_(displays) {}
  void draw(QPainter&) const override {}
  bool advance(double) override { return false; }
  bool in_use() const override { return displays_.MMMeterX2.Visible(); }
  QString accessible_value() const override;
  std::optional<ItemValue> value_range() const override;

 private:
  Displays displays_;
};

}  // namespace tandem
