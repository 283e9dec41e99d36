// Faders (equalizer bands, pitch), the position slider and the slide switches. UI thread.
#pragma once

#include <QPainter>
#include <QString>
#include <array>
#include <optional>

#include "paint/strokes/interaction_state.h"

namespace tandem {

struct FaderState {
  double value = 0;
  double minimum = -12;
  double maximum = 12;
  QSizeF cap{14, 12};
  QRgb lit_colour = 0xFF00FF00;    ///< of the line from the zero mark to the cap
  InteractionState interaction{};  ///< hover lightens the cap
};

/// y of the cap's middle; the greatest value is at the top. Its inverse, not limited to the range.
double fader_y(const QRectF& box, const FaderState& look);
double fader_value(const QRectF& box, const FaderState& look, double y);
QRectF fader_cap(const QRectF& box, const FaderState& look);
void paint_fader(QPainter& painter, const QRectF& box, const FaderState& look);

struct SliderState {
  double share = 0;  ///< 0..1 from left to right
  InteractionState interaction{};
  std::optional<double> next_start{};   ///< where the next song starts, 0..1: a mark; none while nothing plays
  std::optional<double> overlapping{};  ///< place of the other song that sounds, 0..1; the mark is lit meanwhile
};

inline constexpr double kSliderCapWidth = 18;
void paint_slider(QPainter& painter, const QRectF& box, const SliderState& look);

struct SlideSwitchState {
  std::array<QString, 2> captions{};  ///< the upper and the lower position
  int position = 0;
  double cap = 0;  ///< where the cap is: 0 up .. 1 down, between while it moves
  InteractionState interaction{};
};

/// Captions stand right of the box, the chosen one white and bold.
void paint_slide_switch(QPainter& painter, const QRectF& box, const SlideSwitchState& look);

}  // namespace tandem
