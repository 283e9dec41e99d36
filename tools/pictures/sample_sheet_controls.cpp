// Lamps, spinners, faders, knobs, switches, pictures of keys, gauge and list in their states.
#include "paint/controls/fader.h"
#include "paint/controls/gauge.h"
#include "paint/controls/head_strip.h"
#include "paint/controls/knob.h"
#include "paint/controls/lamps.h"
#include "paint/controls/spinner.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/faceplate.h"
#include "paint/surfaces/panels.h"
#include "paint/text/caption.h"
#include "tools/pictures/sample_sheets.h"

namespace tandem {

namespace {

using namespace Qt::StringLiterals;

constexpr double kLeft = 18;
constexpr InteractionState kHover{.hover = 1};
constexpr InteractionState kFocus{.focused = true};

void paint_title(QPainter& painter, double y, const QString& title) {
  draw_caption(painter, {kLeft, y}, title, {.bold = true});
}

void paint_lamps(QPainter& painter) {
  paint_title(painter, 22, u"Lamps (dark, lit, hover, focus)"_s);
  paint_well(painter, {kLeft, 30, 240, 24}, 3);
  const LampState lead[] = {{palette::kBrown},
                            {palette::kOrange, true},
                            {.colour = palette::kBrown, .lit = false, .interaction = kHover},
                            {.colour = palette::kOrange, .lit = true, .interaction = kFocus}};
  for (int i = 0; i < 4; ++i) paint_lead_lamp(painter, {kLeft + 12 + 40 * i, 34, 16, 16}, lead[i]);
  const LampState buttons[] = {{palette::kGreen},
                               {palette::kLime, true},
                               {.colour = palette::kGreen, .lit = false, .interaction = kHover},
                               {.colour = palette::kLime, .lit = true, .interaction = kFocus},
                               {palette::kOlive},
                               {palette::kYellow, true}};
  for (int i = 0; i < 6; ++i) paint_lamp_button(painter, {kLeft + 8 + 40 * i, 66, 22, 11}, buttons[i]);
}

void paint_spinners(QPainter& painter) {
  paint_title(painter, 104, u"Spinner (rest, up hovered, up pressed, focus)"_s);
  paint_spinner(painter, {kLeft, 112, 56, 22}, {500, 4});
  paint_spinner(painter, {kLeft + 64, 112, 46, 22}, {20, 3, true, kHover});
  paint_spinner(painter, {kLeft + 118, 112, 36, 22}, {7, 2, true, {.pressed = true}});
  paint_spinner(painter, {kLeft + 168, 112, 36, 22}, {25, 2, false, {}, {}, true});
  for (int i = 0; i < 3; ++i) {
    constexpr int kNumbers[] = {1234, 5678, 90};
    paint_spinner(painter, {kLeft + 64 * i, 142, 56, 22}, {kNumbers[i], 4, i != 1});
  }
}

void paint_faders(QPainter& painter) {
  paint_title(painter, 186, u"Fader and slider (rest, hover, focus)"_s);
  paint_fader(painter, {kLeft, 194, 22, 84}, {});
  paint_fader(painter, {kLeft + 34, 194, 22, 84}, {.value = 7, .interaction = kHover});
  paint_fader(painter, {kLeft + 68, 194, 22, 84}, {.value = -8, .interaction = kFocus});
  paint_fader(painter, {kLeft + 108, 200, 20, 73}, {10, -20, 20, {18, 13}, palette::kAqua});
  paint_slider(painter, {kLeft + 140, 200, 100, 14}, {.3});
  paint_slider(painter, {kLeft + 140, 224, 100, 14}, {.share = .5, .interaction = kHover});
  paint_slider(painter, {kLeft + 140, 248, 100, 14}, {.share = .7, .interaction = kFocus});
}

void paint_knobs(QPainter& painter) {
  paint_title(painter, 302, u"Knob (rest, hover, focus), slide switch"_s);
  paint_knob(painter, {kLeft + 24, 334}, 18.5, -135, {});
  paint_knob(painter, {kLeft + 80, 334}, 18.5, 20, kHover);
  paint_knob(painter, {kLeft + 136, 334}, 18.5, 135, kFocus);
  paint_slide_switch(painter, {kLeft + 178, 318, 12, 32}, {});
  paint_slide_switch(painter, {kLeft + 202, 318, 12, 32}, {.position = 1, .cap = 1});
  paint_slide_switch(painter, {kLeft + 226, 318, 12, 32}, {.position = 1, .cap = 1, .interaction = kFocus});
}

void paint_icons(QPainter& painter) {
  paint_title(painter, 376, u"Icone(0) .. Icone(5), Minimise, Close (rest, hover, focus)"_s);
  for (int i = 0; i < 6; ++i) {
    const QRectF box(kLeft + 40 * i, 384, 34, 28);
    fill_box(painter, box, QColor(palette::kTileBottom), 2);
    paint_icon(painter, box.center(), icone(i), true);
  }
  const InteractionState touches[] = {{}, kHover, kFocus};
  for (int i = 0; i < 3; ++i) {
    paint_chrome_button(painter, {kLeft + 40 * i, 424, 16, 13}, Icon::Minimise, touches[i]);
    paint_chrome_button(painter, {kLeft + 120 + 40 * i, 424, 16, 13}, Icon::Close, touches[i]);
  }
}

void paint_gauges(QPainter& painter) {
  paint_title(painter, 454, u"Gauge 100, 50, 0; pitch lamps"_s);
  fill_box(painter, {kLeft, 462, 244, 54}, QColor(palette::kGlassMiddle), 2);
  for (int i = 0; i < 3; ++i) paint_gauge(painter, {kLeft + 6, 467. + 12 * i, 231, 6}, 100 - 50 * i);
  paint_pitch_lamp(painter, {kLeft + 6, 503, 30, 6}, palette::kRed, true);
  paint_pitch_lamp(painter, {kLeft + 70, 503, 30, 6}, palette::kAqua, true);
  paint_pitch_lamp(painter, {kLeft + 138, 503, 30, 6}, palette::kTeal, false);
  paint_pitch_lamp(painter, {kLeft + 207, 503, 30, 6}, palette::kMaroon, false);
}

}  // namespace

void paint_controls_sheet(QPainter& painter) {
  paint_faceplate(painter, {kControlsSheetWidth, kStatesSheetHeight});
  paint_lamps(painter);
  paint_spinners(painter);
  paint_faders(painter);
  paint_knobs(painter);
  paint_icons(painter);
  paint_gauges(painter);
}

}  // namespace tandem
