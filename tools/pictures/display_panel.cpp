// The contents of the two glass panels: labels and gauge on the left, the chosen display on the right.
#include "paint/controls/gauge.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/panels.h"
#include "tools/pictures/panel_painter.h"

namespace tandem {

namespace {

void paint_label(QPainter& painter, std::string_view name, const LedLabelState& look) {
  paint_led_label(painter, control_box(name).box().topLeft(), look);
}

void paint_fixed_label(QPainter& painter, std::string_view name) {
  const ControlBox& label = control_box(name);
  paint_label(painter, name,
              {.text = QString::fromUtf8(label.caption.data(), static_cast<qsizetype>(label.caption.size())),
               .cells = label.count,
               .pitch = label.pitch,
               .colour = palette::kCaptionLed});
}

void paint_pitch_lamps(QPainter& painter, int pitch) {
  const QRectF below = control_box("LED1").box();
  const QRectF zero = control_box("LED2").box();
  const QRectF above = control_box("LED3").box();
  paint_lamp_link(painter, below, zero);
  paint_lamp_link(painter, zero, above);
  paint_pitch_lamp(painter, below, pitch < 0 ? palette::kRed : palette::kMaroon, pitch < 0);
  paint_pitch_lamp(painter, zero, pitch == 0 ? palette::kAqua : palette::kTeal, pitch == 0);
  paint_pitch_lamp(painter, above, pitch > 0 ? palette::kRed : palette::kMaroon, pitch > 0);
}

void paint_spectrum(QPainter& painter, const VisualState& look) {
  const QRectF area = control_box("MMSpectrum1").box();
  const SpectrumBackdrop face(look.style, device_scale(painter), area, control_box("Display well").box());
  QImage image(face.size(), QImage::Format_RGB32);
  SpectrumTrace nothing;
  update_spectrum(image, {0, 0}, face, look.spectrum, nothing);
  const DevicePixels pixels(painter);
  painter.drawImage(pixels.at(area.topLeft()), image);
}

void paint_needle_meter(QPainter& painter, const QRectF& box, const NeedlePicture& picture) {
  NeedleBackdrop face(device_scale(painter), box, control_box("Display well").box(), picture.right);
  QImage image(face.size(), QImage::Format_RGB32);
  QRect nothing;
  face.draw(image, {0, 0}, picture.db, nothing);
  const DevicePixels pixels(painter);
  painter.drawImage(pixels.at(box.topLeft()), image);
}

void paint_needles(QPainter& painter, const VisualState& look) {
  paint_needle_meter(painter, left_meter_box(), look.left_needle);
  paint_needle_meter(painter, right_meter_box(), look.right_needle);
  const QRectF bar = control_box("MMLevelX1").box();
  paint_level_bar(painter, bar, look.level);
  painter.save();
  painter.setClipRect(bar, Qt::IntersectClip);
  paint_glass_shine(painter, control_box("Display well").box());
  painter.restore();
}

void paint_scope(QPainter& painter, const VisualState& look) {
  const QRectF area = control_box("MMOscopeX1").box();
  ScopeBackdrop face(device_scale(painter), area, control_box("Display well").box());
  QImage image(face.size(), QImage::Format_RGB32);
  face.draw(image, {0, 0}, look.scope);
  const DevicePixels pixels(painter);
  painter.drawImage(pixels.at(area.topLeft()), image);
}

}  // namespace

void paint_display_panel(QPainter& painter, const DisplayState& look) {
  const QRectF panel = control_box("MMPanelX1(1)").box();
  for (const std::string_view name : {"MMLEDLABELX1", "MMLEDLABELX2", "MMLEDLABELX3"}) paint_fixed_label(painter, name);
  paint_label(painter, "SongLabel", look.song);
  paint_label(painter, "LblPosition", look.position);
  paint_label(painter, "LblTempTot", look.total);
  paint_label(painter, "ClockLabel", look.clock);
  paint_label(painter, "INDIC", look.read_out);
  if (look.pitch_mode) {
    paint_pitch_lamps(painter, look.pitch);
  } else {
    paint_gauge(painter, control_box("MeterVol").box(), look.gauge_percent);
  }
  paint_glass_shine(painter, panel);
  paint_glass_hover(painter, panel, look.hover);
}

void paint_visual(QPainter& painter, const VisualState& look) {
  switch (look.display) {
    case VisualDisplay::Spectrum:
      paint_spectrum(painter, look);
      break;
    case VisualDisplay::Needles:
      paint_needles(painter, look);
      break;
    case VisualDisplay::Oscilloscope:
      paint_scope(painter, look);
      break;
    case VisualDisplay::None:
      paint_glass_shine(painter, control_box("Display well").box());
      break;
  }
}

}  // namespace tandem
