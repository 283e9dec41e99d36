// Decodes WAV files of every encoding that libsndfile reads.
// Used by one thread at a time; blocks for as long as the disk does.
#pragma once

#include <memory>

#include "engine/decode/decoder.h"
#include "engine/decode/downmix.h"
#include "engine/decode/wav_view.h"

namespace tandem {

class WavDecoder : public Decoder {
 public:
  // nullptr if the encoding is unknown or there is not one sample.
  static std::unique_ptr<Decoder> open(std::shared_ptr<const SongFile> file, const WavHeader& header);

  WavDecoder(std::shared_ptr<const SongFile> file, const WavHeader& header);

  int rate() const override { return sections_.front().rate; }
  std::size_t read(std::span<StereoFrame> out) override;
  bool next_section() override { return false; }
  const std::vector<Section>& sections() override { return sections_; }
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
  SF_INFO info_{};
  std::unique_ptr<SNDFILE, Close> sound_;
  Downmix downmix_;
  std::vector<float> samples_;  // one block, interleaved
  std::vector<Section> sections_;
  Frames position_ = 0;
};

}  // namespace tandem
