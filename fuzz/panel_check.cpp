#include <algorithm>

#include "controls/panel_groups.h"
#include "fuzz_target.h"
#include "panel_user.h"

namespace tandem::fuzz {

namespace {

constexpr std::int32_t kShortList = 10;           // lines: what is over is removed first
constexpr std::int64_t kLongestRest = 60 * 1000;  // ms: ten songs of 3 s, and half a second for each that is broken

bool one_lead_lit(const PanelControls& controls) {
  return std::count_if(kLeadTimes.begin(), kLeadTimes.end(),
                       [&](const LeadTime& lead) { return (controls.*lead.lamp).LEDColor == kLeadLit; }) == 1;
}

void check_state(const RunState& state, const PanelControls& controls) {
  require(state.ActiveDeck == 0 || state.ActiveDeck == 1, "the active deck is one of two");
  require(state.CurrentSong >= 0 && state.CurrentSong <= std::max(201, controls.PlayList.ListCount()),
          "the current song is within the list");
  require(state.BufferMode == 0 || state.BufferMode == 1, "the buffer mode is one of two");
  require(controls.Slider1.value() >= 0 && controls.Slider1.value() <= controls.Slider1.maximum(),
          "the position slider is within its range");
  require(one_lead_lit(controls), "one lead time is lit");
}

void check_lists(const PanelControls& controls) {
  require(controls.ListAux2.ListCount() >= controls.PlayList.ListCount(), "the twin is not shorter");
  require(controls.PlayList.ListIndex() < controls.PlayList.ListCount(), "the selected line exists");
  require(controls.PlayList.ListIndex() >= -1, "no selection is -1");
}

void check_sound(const SoundGraph& sound, const PanelControls& controls) {
  const bool playing = sound.MixTimer->Interval() != 0;
  require(!playing || sound.MixTimer->Interval() == 10, "the mix tick comes every 10 ms");
  require(controls.PLAY.Picture == (playing ? 1 : 0), "PLAY shows whether the panel plays");
  require(controls.STOPBtn.Picture == (playing ? 4 : 5), "STOPBtn shows the same");
  for (const auto& deck : sound.AudioFile) require(deck->Position() >= 0, "no position is negative");
}

}  // namespace

void PanelUser::check() const {
  const Program& program = player_.program;
  check_state(program.state, controls_);
  check_lists(controls_);
  check_sound(program.sound, controls_);
}

void PanelUser::leave_alone() {
  ListBox& list = controls_.PlayList;
  for (std::int32_t line = list.ListCount() - 1; line >= 0 && list.ListCount() > kShortList; --line)
    list.user_double_click(line);
  if (controls_.PAUSE.BackColor == clYellow) press(controls_.PAUSE);
  const std::int64_t end = player_.now() + kLongestRest;
  while (player_.program.sound.MixTimer->Interval() != 0) {
    require(player_.now() < end, "the list comes to its end");
    player_.run(500);
  }
}

}  // namespace tandem::fuzz
