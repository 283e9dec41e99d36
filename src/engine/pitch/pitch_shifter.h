// One running pitch shifter: the song is read faster or slower by the pitch ratio, which moves its pitch, and spliced
// with itself to stay in time, so that the tempo stays. Frame k given is frame k of the song: every splice is chosen by
// how far the reading then leads or lags, so nothing adds up, however the ratio moves. What is given lies at most 12 ms
// from its time, the beginning of a sound 4 ms.
// Made and freed on the UI thread; everything else on the render thread: no allocation, no lock, no system call.
// About 0.15 MB; the interpolation filters (1.5 MB) are shared by all.
#pragma once

#include <cstddef>
#include <span>

#include "engine/pitch/interpolation_filters.h"
#include "engine/pitch/ratio_ramp.h"
#include "engine/pitch/song_input.h"
#include "engine/pitch/time_stretch.h"

namespace tandem {

class PitchShifter {
 public:
  PitchShifter();

  // True if the ring holds what begin() and the first 50 ms need.
  static bool can_begin(const SongInput& song) noexcept { return song.has_ahead(TimeStretch::kAhead); }
  // Starts at the ring's reading position. ratio: frequency given / frequency of the song, 2^(-1/3) .. 2^(1/3).
  void begin(const SongInput& song, double ratio) noexcept;

  // Goes to another ratio within 512 frames.
  void set_ratio(double ratio) noexcept;
  // Goes to ratio 1 and into unison with the song (0.1 to 1 s, at most a third of a semitone off); in_unison() is true
  // then, and what is given is the song's own frames (apart from the filter's edge above 20 kHz). set_ratio() leaves
  // it.
  void return_to_unison() noexcept;
  bool in_unison() const noexcept { return ramp_.in_unison(); }

  // Gives the next frames; fewer if the ring ran dry. The song is followed by silence.
  std::size_t render(const SongInput& song, std::span<StereoFrame> out) noexcept;
  // The song's own frame: from the next frame given on, at least as many as one call gives.
  StereoFrame dry(Frames at) const noexcept { return stretch_.song().frame(at); }
  Frames at() const noexcept { return head_.time; }  // the number of the next frame given

 private:
  friend class RetiredShifters;
  // Back to unison in two steps: a last splice once the ratio is 1; when its fade is over, RatioRamp::resync().
  enum class Way { kShifting, kReturning, kResyncing };

  bool decide(const SongInput& song) noexcept;
  std::size_t provide(const SongInput& song, std::size_t wanted) noexcept;
  void read(std::span<StereoFrame> out) noexcept;
  void interpolate_into(std::span<StereoFrame> out, std::span<const double> positions, Frames base) noexcept;

  TimeStretch stretch_;
  RatioRamp ramp_;
  ReadHead head_;
  const InterpolationFilters& filters_;
  std::size_t bank_ = 0;
  Way way_ = Way::kShifting;
  PitchShifter* next_ = nullptr;
};

}  // namespace tandem
