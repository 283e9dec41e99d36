// A sound graph that logs every operation that the panel calls on its components, in order, and passes it on:
//   AudioFile(0).FileName(/a.mp3)  WaveMixer.Mute(0, True)  EQ.Filters(3).Gain(5)  WaveOut.start()
// What is only read is not logged. UI thread.
#pragma once

#include <functional>
#include <string>

#include "audio/sound_graph.h"

namespace tandem {

using CallLog = std::function<void(const std::string& operation)>;

SoundGraph logged_graph(SoundGraph inner, const CallLog& log);

}  // namespace tandem
