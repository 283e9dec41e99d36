// The automatic mix: the next song waits on the idle deck and starts a lead time before the current one ends, at full
// level; no level is ramped. UI thread. Errors end a handler where it is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "audio/sound_graph.h"
#include "controls/run_state.h"
#include "playback/time_display.h"
#include "playback/transport.h"
#include "playlist/song_table.h"

namespace tandem {

struct PanelControls;

class AutomaticMix {
 public:
  AutomaticMix(PanelControls& controls, SoundGraph& sound, RunState& state, const SongEntries& song_table,
               TimeDisplay& display, Transport& transport)
      : controls_(controls),
        sound_(sound),
        state_(state),
        SongTable(song_table),
        display_(display),
        transport_(transport) {}

  // MixTimer, every 10 ms while playing. With 200 songs the look-ahead of the last one reads past the table: Range.
  void tick();
  // The song on this input has ended: the decks change over. Both inputs muted at the last line: the list's end.
  void input_finished(int input);

  // A click on a lead-time lamp, by its place in kLeadTimes. One that is lit goes dark and AMLed2 takes its place, but
  // the lead time stays: on purpose.
  void choose_lead_time(std::size_t choice);
  void light_lead_time(std::int16_t milliseconds);  // no lamp changes for a time that none has

  void change_buffers();  // BufferSwitch has moved: the output starts again and playing stops
  void close_output();    // the output has an error that it can't recover from

  // ListTimer, 2.5 s after the last edit of the list: the line of the audible song becomes the selection and the
  // current song. If no audible song is in the list, the selection is put after the last line, which throws; ListTimer
  // then stays on.
  void synchronise_list();

 private:
  void load_ahead();
  void start_mix();
  void enable_changes();
  bool sounds_on(std::size_t deck, std::string_view path) const;
  bool find_audible_line();

  PanelControls& controls_;
  SoundGraph& sound_;
  RunState& state_;
  const SongEntries& SongTable;
  TimeDisplay& display_;
  Transport& transport_;
};

}  // namespace tandem
