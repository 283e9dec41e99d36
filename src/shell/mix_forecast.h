// What the panel's mix ticks are going to do, from its own state: ticks that would do nothing can be saved, and the
// sound can wait a moment for the one tick that starts the next song. UI thread.
#pragma once

#include <cstdint>

#include "base/timer_queue.h"
#include "shell/program.h"

namespace tandem {

struct MixForecast {
  TimerQueue::Milliseconds quiet = 0;  // for how long the ticks would do nothing; 0 if that is not known
  // The next song starts at a tick that finds this deck's position past `mix_point`; -1 if none is awaited.
  int deck = -1;
  std::int64_t mix_point = 0;  // milliseconds
};

// `sounding`: an unmuted input has a song that goes on.
MixForecast mix_forecast(const Program& program, bool sounding);

}  // namespace tandem
