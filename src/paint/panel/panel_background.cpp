#include "paint/panel/panel_background.h"

#include "paint/controls/head_strip.h"
#include "paint/controls/knob.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/faceplate.h"
#include "paint/surfaces/panels.h"
#include "paint/text/caption.h"

namespace tandem {

namespace {

constexpr int kBands = 15;

void paint_display(QPainter& painter) {
  paint_glass(painter, control_box("MMPanelX1(1)").box());
  for (const double y : {41, 71}) fill_box(painter, snapped(painter, {15, y, 232, 1}), faded(palette::kWhite, .09));
}

void paint_pitch_marks(QPainter& painter) {
  const QRectF fader = control_box("SliderP").box();
  const double top = fader.top() + 6.5;
  const double travel = fader.height() - 13;
  for (int i = 0; i <= 8; ++i) {
    const bool major = i % 4 == 0;
    const QRectF mark(fader.center().x() + 10.5, top + travel * i / 8 - .5, major ? 7 : 4, 1);
    fill_box(painter, mark, QColor::fromRgb(major ? palette::kLegend : palette::kMark));
  }
  draw_caption(painter, {236.3, 177.6}, QStringLiteral("PITCH"), {.spacing = .9}, Anchor::Middle);
  draw_caption(painter, {249, top + 3.2}, QStringLiteral("+"), {.size = 10}, Anchor::Middle);
  draw_caption(painter, {249, top + travel + 3}, QStringLiteral("\u2212"), {.size = 10}, Anchor::Middle);
}

void paint_lower_left(QPainter& painter) {
  paint_well(painter, {4, 165, 204, 18}, 3);
  draw_caption(painter, {9, 177.6}, QString::fromUtf8(control_box("Label3", 0).caption));
  draw_caption(painter, {9, 200}, QString::fromUtf8(control_box("Label3", 5).caption), {.size = 11, .bold = true});
  paint_cut_down(painter, {95, 190}, 62);
  paint_cut_across(painter, {214, 163}, 42);
  paint_pitch_marks(painter);
}

void paint_band(QPainter& painter, int band) {
  const QRectF fader = control_box("sl0", band).box();
  const double x = fader.center().x();
  draw_caption(painter, {x, 140.5}, QString::fromUtf8(control_box("Label2", band).caption), {}, Anchor::Middle);
  for (const int db : {9, 3, -3, -9}) {
    fill_box(painter, snapped(painter, {x - 6, 150 + 3.0 * (12 - db) - .5, 12, 1}), faded(palette::kWhite, .10));
  }
  paint_well(painter, control_box("dbLabel0", band).box());
}

void paint_equalizer(QPainter& painter) {
  const ControlBox& panel = control_box("MMPanelX1(0)");
  const QRectF box = panel.box();
  paint_bevel(painter, box);
  draw_caption(painter, {box.center().x(), 126}, QString::fromUtf8(panel.caption),
               {.size = 10, .bold = true, .spacing = 1.4}, Anchor::Middle);
  constexpr std::pair<int, double> kLevels[] = {{12, .10}, {6, .07}, {0, .22}, {-6, .07}, {-12, .10}};
  for (const auto& [db, opacity] : kLevels) {
    const QRectF line(269, 150 + 3.0 * (12 - db) - .5, 328, 1);
    fill_box(painter, snapped(painter, line), faded(palette::kWhite, opacity));
  }
  for (int band = 0; band < kBands; ++band) paint_band(painter, band);
}

void paint_board_lines(QPainter& painter) {
  paint_cut_down(painter, {101, 266}, 148);
  for (const double x : {228, 352, 476}) paint_cut_down(painter, {x, 266}, 98);
  paint_cut_across(painter, {108, 368}, 490);
  paint_cut_down(painter, {415, 373}, 40);
}

void paint_board(QPainter& painter) {
  paint_bevel(painter, control_box("Board").box());
  paint_board_lines(painter);
  for (int i = 6; i < 17; ++i) {
    const ControlBox& label = control_box("Label5", i);
    const bool title = i < 10;
    const QPointF at(label.box().x() + label.w / 2.0, label.y + (title ? 10 : 9));
    draw_caption(painter, at, QString::fromUtf8(label.caption), {.size = title ? 11 : 10.5, .bold = title},
                 Anchor::Middle);
  }
}

}  // namespace

void paint_background(QPainter& painter, const WindowState& window) {
  paint_faceplate(painter, window_size(window.size), window.round ? 5 : 0);
  paint_name(painter);
  paint_display(painter);
  paint_wheel_marks(painter, control_box("Volume").box());
  if (window.size == WindowSize::Compact) return;
  paint_lower_left(painter);
  paint_glass(painter, control_box("Display well").box());
  if (window.song_list) {
    paint_glass(painter, control_box("PlayList").box());
  } else {
    paint_equalizer(painter);
  }
  if (window.size == WindowSize::Board) paint_board(painter);
}

}  // namespace tandem
