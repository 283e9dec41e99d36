#include "shell/mix_forecast.h"

#include <algorithm>

namespace tandem {

namespace {

constexpr TimerQueue::Milliseconds kLongestRest = 1000;  // the list may be edited meanwhile
constexpr TimerQueue::Milliseconds kMargin = 150;        // before a mix point, ticks are even again

// Then no song goes on, whatever sounded a moment ago, and the panel's next tick is wanted in time.
bool all_muted(const MMWaveMixerX& mixer) { return mixer.Mute(0) && mixer.Mute(1); }

}  // namespace

MixForecast mix_forecast(const Program& program, bool sounding) {
  if (program.sound.MixTimer->Interval() == 0) return {kLongestRest};
  const RunState& state = program.state;
  if (state.NextSongLoaded == kFalse || !sounding || all_muted(*program.sound.WaveMixer)) return {};
  const ListBox& list = program.controls.PlayList;
  if (state.MixStarted != kFalse || list.ListIndex() + 1 == list.ListCount()) return {kLongestRest};
  // The list may be longer than the table.
  if (state.CurrentSong < 1 || state.CurrentSong > std::min<std::int32_t>(list.ListCount(), SongEntries::kLastSong))
    return {};
  const std::int64_t mix_point = program.SongTable.at(state.CurrentSong).SongLength - state.MixTimeMs;
  const std::int64_t left = mix_point - program.sound.AudioFile[static_cast<std::size_t>(state.ActiveDeck)]->Position();
  return {std::clamp<TimerQueue::Milliseconds>(left - kMargin, 0, kLongestRest), state.ActiveDeck, mix_point};
}

}  // namespace tandem
