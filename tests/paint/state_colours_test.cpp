// Every colour that carries a state, exact in the whole panel at its own place, at 100, 200 and 300 %.
#include <gtest/gtest.h>

#include <cstdlib>

#include "paint/strokes/palette.h"
#include "sketch.h"
#include "tools/pictures/sample_panels.h"
#include "tools/pictures/sample_picture.h"

namespace tandem {
namespace {

struct StateColour {
  const char* what;
  const char* control;
  void (*change)(PanelState& look);
  QPointF place;  ///< from the control's top left, px
  QRgb colour;
};

// A frame shows its colour 1 px inside the left edge at half height.
constexpr QPointF kKey(1.5, 15);
constexpr QPointF kLowKey(1.5, 12);
constexpr QPointF kListKey(1.5, 14);
// A round lamp beside the light spot; a lens beside its core, where the sheen is nothing.
constexpr QPointF kLead(9.2, 9.2);
constexpr QPointF kLens(2, 6);

#define STATE(expression) []([[maybe_unused]] PanelState& look) { expression; }

const StateColour kStates[] = {
    {"playing", "PLAY", STATE(), kKey, 0xFF1F7A33},
    {"not playing", "PLAY", STATE(look.transport.play = {}), kKey, 0xFF4C5259},
    {"stopped", "STOPBtn", STATE((look.transport.stop = {.back_colour = palette::kStoppedKey, .lit = true})), kKey,
     0xFF7A2A20},
    {"not stopped", "STOPBtn", STATE(), kKey, 0xFF4C5259},
    {"paused", "PAUSE", STATE((look.transport.pause = {.back_colour = palette::kYellow, .lit = true})), kKey,
     0xFFFFFF00},
    {"not paused", "PAUSE", STATE(), kKey, 0xFF808000},
    {"first", "NextBtn", STATE(), kKey, 0xFFC04000},
    {"skipping", "NextBtn",
     STATE(look.transport.next.back_colour = palette::kSilver; look.transport.next.interaction.enabled = false), kKey,
     0xFFC0C0C0},
    {"after a skip", "NextBtn", STATE((look.transport.next = {.back_colour = 0xFF8080FF, .lit = true})), kKey,
     0xFF8080FF},
    {"released", "LoadSong", STATE(), kKey, 0xFF808080},
    {"pressed", "LoadSong",
     STATE(look.transport.load.back_colour = 0xFFE0E0E0; look.transport.load.interaction.pressed = true), kKey,
     0xFFE0E0E0},
    {"released", "Command2", STATE(), {6.5, 6.5}, 0xFFC0C0C0},
    {"pressed", "Command2", STATE(look.mix.reset_pitch.pressed = true), {6.5, 6.5}, 0xFF808080},
    {"list hidden", "ShowPlayList", STATE(), kLowKey, 0xFF0000FF},
    {"list shown", "ShowPlayList", STATE((look.mix.show_list = {.back_colour = palette::kAqua, .lit = true})), kLowKey,
     0xFF00FFFF},
    {"board hidden", "ShowControls", STATE((look.mix.show_board = {.back_colour = palette::kGreen})), kLowKey,
     0xFF008000},
    {"board shown", "ShowControls", STATE((look.mix.show_board = {.back_colour = palette::kLime, .lit = true})),
     kLowKey, 0xFF00FF00},
    {"rest", "UpList", STATE(look.window.song_list = true), kListKey, 0xFF4C5259},
    {"disabled", "DownList", STATE(look.window.song_list = true; look.list.down.interaction.enabled = false), kListKey,
     0xFF4C5259},
    {"lit", "AMLed2", STATE(), kLead, 0xFFFF8000},
    {"dark", "AMLed1", STATE(), kLead, 0xFF804000},
    {"pitch below zero", "LED1", STATE(look.display.pitch_mode = true; look.display.pitch = -5), {15, 4}, 0xFFFF0000},
    {"pitch zero", "LED2", STATE(look.display.pitch_mode = true; look.display.pitch = 0), {15, 4}, 0xFF00FFFF},
    {"pitch above zero", "LED3", STATE(look.display.pitch_mode = true; look.display.pitch = 5), {15, 4}, 0xFFFF0000},
    {"dark", "LED1", STATE(look.display.pitch_mode = true; look.display.pitch = 5), {15, 3}, 0xFF800000},
    {"dark", "LED2", STATE(look.display.pitch_mode = true; look.display.pitch = 5), {15, 3}, 0xFF008080},
    {"on", "MMLEDX2", STATE(), kLens, 0xFF00FF00},
    {"off", "MMLEDX1", STATE(), kLens, 0xFF008000},
    {"default", "MMLEDX6", STATE(), kLens, 0xFFFFFF00},
    {"changed", "MMLEDX6", STATE((look.board.lamps[5] = {palette::kOlive, false})), kLens, 0xFF808000},
};

#undef STATE

QImage picture_in(const StateColour& state, double scale) {
  const auto specimen = sample_panel("board-open");
  state.change(specimen->look);
  return sketch(window_size(WindowSize::Board), scale,
                [&](QPainter& painter) { paint_panel(painter, specimen->look); });
}

// The display's glass lays its sheen, at most 5 % white, over what it covers.
constexpr int kSheen = 13;

bool is_close(QRgb a, QRgb b, int levels) {
  return std::abs(qRed(a) - qRed(b)) <= levels && std::abs(qGreen(a) - qGreen(b)) <= levels &&
         std::abs(qBlue(a) - qBlue(b)) <= levels;
}

int levels_allowed(const StateColour& state) {
  return control_box(state.control).group == ControlGroup::Display ? kSheen : 0;
}

bool has_near(const QImage& picture, const QPoint& at, QRgb colour, int levels) {
  for (int y = at.y() - 1; y <= at.y() + 1; ++y) {
    for (int x = at.x() - 1; x <= at.x() + 1; ++x) {
      if (picture.valid(x, y) && is_close(picture.pixel(x, y), colour, levels)) return true;
    }
  }
  return false;
}

TEST(StateColours, AreExactInThePanel) {
  for (const double scale : {1., 2., 3.}) {
    for (const StateColour& state : kStates) {
      const QPointF at = (control_box(state.control).box().topLeft() + state.place) * scale;
      const QPoint pixel(static_cast<int>(at.x()), static_cast<int>(at.y()));
      const QImage picture = picture_in(state, scale);
      EXPECT_TRUE(has_near(picture, pixel, state.colour, levels_allowed(state)))
          << state.control << " " << state.what << " at " << scale << ": " << std::hex << picture.pixel(pixel);
    }
  }
}

TEST(StateColours, ReadOutIsYellowAndInPitchModeAqua) {
  const QRect box = control_box("INDIC").box();
  const auto dots = [&](const char* name, QRgb colour) {
    const QImage picture = specimen_picture(name, 3).copy(QRect(box.topLeft() * 3, box.size() * 3));
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) count += is_close(picture.pixel(x, y), colour, kSheen) ? 1 : 0;
    return count;
  };
  EXPECT_GT(dots("full-equalizer", palette::kYellow), 500);
  EXPECT_EQ(dots("full-equalizer", palette::kAqua), 0);
  EXPECT_GT(dots("pitch-mode", palette::kAqua), 500);
  EXPECT_EQ(dots("pitch-mode", palette::kYellow), 0);
}

}  // namespace
}  // namespace tandem
