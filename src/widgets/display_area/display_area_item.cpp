#include "widgets/display_area/display_area_item.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "paint/displays/level_bar.h"
#include "paint/surfaces/panels.h"

namespace tandem {

namespace {

int which(const Displays& displays) {
  if (displays.MMSpectrum1.Visible()) return 0;
  if (displays.MMMeterX1.Visible()) return 1;
  return displays.MMOscopeX1.Visible() ? 2 : -1;
}

constexpr double kScaleBegin = -20;  // dB

// What the needle stands at, in whole dB of its scale.
ItemValue level_of(const NeedleMeter& meter) {
  const double level = std::clamp(scale_db(meter.deflection()), kScaleBegin, kNeedleTop);
  return {std::round(level), kScaleBegin, kNeedleTop, 1};
}

QString level_text(const NeedleMeter& meter) { return QString::number(level_of(meter).value) + " dB"; }

int percent_of(const LevelBar& bar) { return std::max(bar.lit()[0], bar.lit()[1]) * 100 / LevelBar::kRows; }

}  // namespace

DisplayAreaItem::DisplayAreaItem(QWidget* panel, PanelCanvas& canvas, const ControlBox& place, Displays displays)
    : PanelItem(panel, canvas, place, nullptr),
      displays_(displays),
      left_(left_meter_box(), false),
      right_(right_meter_box(), true) {}

void DisplayAreaItem::feed(std::span<const SoundFrame> heard) {
  displays_.MMSpectrum1.feed(heard);
  displays_.MMMeterX1.feed(heard);
  displays_.MMMeterX2.feed(heard);
  displays_.MMLevelX1.feed(heard);
  displays_.MMOscopeX1.feed(heard);
}

void DisplayAreaItem::forget() {
  displays_.MMSpectrum1.forget();
  displays_.MMMeterX1.forget();
  displays_.MMMeterX2.forget();
  displays_.MMLevelX1.forget();
  displays_.MMOscopeX1.forget();
}

// What was heard before it was hidden is over.
void DisplayAreaItem::showEvent(QShowEvent* event) {
  PanelItem::showEvent(event);
  forget();
  spectrum_.draw_anew();
  if (shown_ == 0) spectrum_.update(displays_.MMSpectrum1, scale_);
  if (shown_ == 1) left_.update(displays_.MMMeterX1, scale_);
  if (shown_ == 1) right_.update(displays_.MMMeterX2, scale_);
  if (shown_ == 2) scope_.update(displays_.MMOscopeX1, scale_);
}

bool DisplayAreaItem::at_rest() const {
  return displays_.MMSpectrum1.at_rest() && displays_.MMMeterX1.at_rest() && displays_.MMMeterX2.at_rest() &&
         displays_.MMLevelX1.at_rest() && displays_.MMOscopeX1.at_rest() && shown_ == which(displays_) &&
         scale_ == devicePixelRatioF();
}

// Another display, or another screen: everything is drawn anew.
bool DisplayAreaItem::start_anew() {
  const int shown = which(displays_);
  const double scale = devicePixelRatioF();
  const bool anew = shown != shown_ || scale != scale_;
  shown_ = shown;
  scale_ = scale;
  if (anew) canvas().visibilities_changed();
  if (anew) repaint(box());
  return anew;
}

bool DisplayAreaItem::move_displays(double seconds) {
  const bool anew = start_anew();
  if ((displays_.MMSpectrum1.advance(seconds) || anew) && shown_ == 0)
    show(spectrum_.update(displays_.MMSpectrum1, scale_));
  if ((displays_.MMMeterX1.advance(seconds) || anew) && shown_ == 1) show(left_.update(displays_.MMMeterX1, scale_));
  if ((displays_.MMMeterX2.advance(seconds) || anew) && shown_ == 1) show(right_.update(displays_.MMMeterX2, scale_));
  if (displays_.MMLevelX1.advance(seconds) && shown_ == 1) repaint(control_box("MMLevelX1").box());
  if ((displays_.MMOscopeX1.advance(seconds) || anew) && shown_ == 2) show(scope_.update(displays_.MMOscopeX1, scale_));
  return !at_rest();
}

void DisplayAreaItem::show(const ChangedPicture& picture) {
  canvas().show_picture(*picture.image, picture.at, picture.boxes);
}

void DisplayAreaItem::draw_meters(QPainter& painter) const {
  left_.draw(painter);
  right_.draw(painter);
  const QRectF bar = control_box("MMLevelX1").box();
  const auto& lit = displays_.MMLevelX1.lit();
  paint_level_bar(painter, bar, {lit[0], lit[1]});
  painter.save();
  painter.setClipRect(bar, Qt::IntersectClip);
  paint_glass_shine(painter, control_box("Display well").box());
  painter.restore();
}

// With no display at all the glass alone shows.
void DisplayAreaItem::draw(QPainter& painter) const {
  switch (shown_) {
    case 0:
      return spectrum_.draw(painter);
    case 1:
      return draw_meters(painter);
    case 2:
      return scope_.draw(painter);
    default:
      return paint_glass_shine(painter, control_box("Display well").box());
  }
}

QString DisplayAreaItem::name_in_table() const {
  constexpr const char* kNames[] = {"MMSpectrum1", "MMMeterX1", "MMOscopeX1"};
  if (shown_ < 0) return "Display";
  const auto name = control_box(kNames[shown_]).accessible;
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

QString DisplayAreaItem::accessible_value() const {
  if (shown_ != 1) return {};
  return level_text(displays_.MMMeterX1);
}

std::optional<ItemValue> DisplayAreaItem::value_range() const {
  if (shown_ != 1) return std::nullopt;
  return level_of(displays_.MMMeterX1);
}

std::optional<ItemValue> LevelItem::value_range() const {
  if (place().name == "MMMeterX2") return level_of(displays_.MMMeterX2);
  return ItemValue{static_cast<double>(percent_of(displays_.MMLevelX1)), 0, 100, 1};
}

QString LevelItem::accessible_value() const {
  if (place().name == "MMMeterX2") return level_text(displays_.MMMeterX2);
  return QString::number(percent_of(displays_.MMLevelX1)) + " %";
}

}  // namespace tandem
