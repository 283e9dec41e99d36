// One running pitch shifter: the song is stretched in time by the inverse of the pitch ratio and read faster by it, so
// that the pitch moves and the tempo stays. Frame k that it gives is frame k of the song: every splice of the stretched
// sound is chosen around the place where the song should then be, so nothing adds up, however the ratio moves.
// Made and freed on the UI thread; everything else on the render thread: no allocation, no lock, no system call.
// About 0.2 MB; the filters behind it (1.4 MB) are shared by all.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
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
  // Begins at the ring's reading position. ratio: frequency given / frequency of the song, 2^(-1/3) .. 2^(1/3).
  void begin(const SongInput& song, double ratio) noexcept;

  // Goes over to another ratio within 512 frames.
  void steer(double ratio) noexcept;
  // Goes over to ratio 1 and into step with the song (0.1 to 1 s, a third of a semitone off at most); landed() is then
  // true, and what is given is the song's own frames (but for the filter's edge above 20 kHz). steer() leaves it again.
  void land() noexcept;
  bool landed() const noexcept { return path_.in_step(); }

  // Gives the next frames; fewer if the ring ran dry. The song is followed by silence.
  std::size_t render(const SongInput& song, std::span<StereoFrame> out) noexcept;
  // The song's own frame, from the next frame given on for at least those given in one call.
  StereoFrame dry(Frames at) const noexcept { return stretch_.song().frame(at); }
  Frames at() const noexcept { return at_; }  // the number of the next frame given

 private:
  friend class RetiredEngines;
  // On the way to land: the splice that brings it near is chosen once the ratio is 1; behind it there are no more.
  enum class Way { kSpliced, kLanding, kStraight };

  std::size_t provide(const SongInput& song, std::size_t count) noexcept;
  bool lengthen(const SongInput& song) noexcept;
  void read(std::span<StereoFrame> out) noexcept;
  void interpolate_into(std::span<StereoFrame> out, std::span<const double> positions, Frames base) noexcept;
  void fall_into_step_if_due() noexcept;

  TimeStretch stretch_;
  RatioRamp path_;
  const PitchFilters& filters_;
  std::size_t bank_ = 0;
  Way way_ = Way::kSpliced;
  Frames straight_from_ = 0;  // with kStraight: the frame of the stretched sound where the last fade is over
  Frames at_ = 0;
  double read_ = 0.0;  // the reader's position in the stretched sound
  PitchShifter* next_ = nullptr;
};

std::unique_ptr<PitchShifter> make_pitch_engine();

}  // namespace tandem
