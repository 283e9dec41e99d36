// Every colour that carries a state, exact in the whole panel at its own place, at 100, 200 and 300 %.
#include <gtest/gtest.h>

#include <cstdlib>

#include "paint/strokes/palette.h"
#include "tools/pictures/panel_scene.h"

namespace tandem {
namespace {

struct StateColour {
  const char* what;
  const char* control;
  void (*change)(PanelControls& c);
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

void show_list(PanelControls& c) {
  c.MMPanelX1[0].Visible = false;
  c.PlayList.Visible = true;
  for (Button* key : {&c.UpList, &c.DownList, &c.LoadList, &c.SaveList}) key->Visible = true;
}

void show_pitch(PanelControls& c, int pitch) {
  c.MeterVol.Visible = false;
  for (Lamp* lamp : {&c.LED1, &c.LED2, &c.LED3}) lamp->Visible = true;
  c.LED1.LEDColor = pitch < 0 ? clRed : clMaroon;
  c.LED2.LEDColor = pitch == 0 ? clAqua : clTeal;
  c.LED3.LEDColor = pitch > 0 ? clRed : clMaroon;
}

#define STATE(expression) []([[maybe_unused]] PanelControls& c) { expression; }

const StateColour kStates[] = {
    {"playing", "PLAY", STATE(), kKey, 0xFF1F7A33},
    {"not playing", "PLAY", STATE(c.PLAY.Picture = 0), kKey, 0xFF4C5259},
    {"stopped", "STOPBtn", STATE(c.STOPBtn.Picture = 5), kKey, 0xFF7A2A20},
    {"not stopped", "STOPBtn", STATE(), kKey, 0xFF4C5259},
    {"paused", "PAUSE", STATE(c.PAUSE.BackColor = clYellow), kKey, 0xFFFFFF00},
    {"not paused", "PAUSE", STATE(), kKey, 0xFF808000},
    {"first", "NextBtn", STATE(), kKey, 0xFFC04000},
    {"skipping", "NextBtn", STATE(c.NextBtn.BackColor = clSilver; c.NextBtn.Enabled = false), kKey, 0xFFC0C0C0},
    {"after a skip", "NextBtn", STATE(c.NextBtn.BackColor = kNextAfter), kKey, 0xFF8080FF},
    {"released", "LoadSong", STATE(), kKey, 0xFF808080},
    {"pressed", "LoadSong", STATE(c.LoadSong.BackColor = 0xE0E0E0), kKey, 0xFFE0E0E0},
    {"released", "Command2", STATE(), {6.5, 6.5}, 0xFFC0C0C0},
    {"pressed", "Command2", STATE(c.Command2.BackColor = clGrey), {6.5, 6.5}, 0xFF808080},
    {"list hidden", "ShowPlayList", STATE(), kLowKey, 0xFF0000FF},
    {"list shown", "ShowPlayList", STATE(c.ShowPlayList.BackColor = clAqua), kLowKey, 0xFF00FFFF},
    {"board hidden", "ShowControls", STATE(c.ShowControls.BackColor = clGreen), kLowKey, 0xFF008000},
    {"board shown", "ShowControls", STATE(c.ShowControls.BackColor = clLime), kLowKey, 0xFF00FF00},
    {"rest", "UpList", STATE(show_list(c)), kListKey, 0xFF4C5259},
    {"disabled", "DownList", STATE(show_list(c); c.DownList.Enabled = false), kListKey, 0xFF4C5259},
    {"lit", "AMLed2", STATE(), kLead, 0xFFFF8000},
    {"dark", "AMLed1", STATE(), kLead, 0xFF804000},
    {"pitch below zero", "LED1", STATE(show_pitch(c, -5)), {15, 4}, 0xFFFF0000},
    {"pitch zero", "LED2", STATE(show_pitch(c, 0)), {15, 4}, 0xFF00FFFF},
    {"pitch above zero", "LED3", STATE(show_pitch(c, 5)), {15, 4}, 0xFFFF0000},
    {"dark", "LED1", STATE(show_pitch(c, 5)), {15, 3}, 0xFF800000},
    {"dark", "LED2", STATE(show_pitch(c, 5)), {15, 3}, 0xFF008080},
    {"on", "MMLEDX2", STATE(), kLens, 0xFF00FF00},
    {"off", "MMLEDX1", STATE(), kLens, 0xFF008000},
    {"default", "MMLEDX6", STATE(), kLens, 0xFFFFFF00},
    {"changed", "MMLEDX6", STATE(c.MMLEDX6.LEDColor = clOlive), kLens, 0xFF808000},
};

#undef STATE

QImage picture_in(const StateColour& state, double scale) {
  PanelScene scene("board-open", scale);
  state.change(scene.controls());
  return scene.picture();
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
    const QImage picture = PanelScene(name, 3).picture().copy(QRect(box.topLeft() * 3, box.size() * 3));
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
