// Decodes WAV files of every encoding that libsndfile reads.
// Used by one thread at a time; blocks for as long as the disk does.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "engine/decode/decoder.h"
#include "engine/decode/downmix.h"
#include "engine/decode/walk_guard.h"
#include "engine/decode/wav_view.h"

namespace tandem {

class WavDecoder : public Decoder {
 public:
  // nullptr if the encoding is unknown or there is not one sample.
  static std::unique_ptr<Decoder> open(std::shared_ptr<const SongFile> file, const WavHeader& header, WalkGuard guard);

  WavDecoder(std::shared_ptr<const SongFile> file, const WavHeader& header, WalkGuard guard);

  int rate() const override { return rate_; }
  std::size_t read(std::span<StereoFrame> out) override;
  bool next_section() override { return false; }
  int rate_of(std::size_t section) const override { return section == 0 ? rate_ : 0; }
  Frames reach(std::size_t /*section*/, Frames frame) override { return std::min(frame, length_); }
  Frames length(std::size_t /*section*/) override { return length_; }
  void seek(std::size_t section, Frames frame) override;

 private:
  struct Close {
    void operator()(SNDFILE* file) const noexcept { sf_close(file); }
  };

  bool reopen() noexcept;
  void measure(const WavHeader& header);
  void read_forward(Frames frames);
  std::size_t read_block(std::span<StereoFrame> out);

  WavView view_;
  WalkGuard guard_;
  SF_INFO info_{};
  std::unique_ptr<SNDFILE, Close> sound_;
  Downmix downmix_;
  std::vector<float> samples_;  // one block, interleaved
  int rate_;
  Frames length_ = 0;
  Frames position_ = 0;
};

}  // namespace tandem
