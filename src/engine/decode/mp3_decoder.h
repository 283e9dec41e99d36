// Decodes MPEG audio: MPEG 1, 2 and 2.5, Layers I to III, with libmpg123, frame by frame.
// Framing, seeking, length and the cutting of encoder delay and padding are Mp3Index's; libmpg123 only ever sees whole
// frames, so that each gives its full number of samples: silence where it cannot be decoded. What a last frame that was
// cut short lacks is filled up with zeros, as libmpg123 does with files.
// Used by one thread at a time; blocks for as long as the disk does.
#pragma once

#include <memory>

#include "engine/decode/decoder.h"
#include "engine/decode/mp3_index.h"

struct mpg123_handle_struct;

namespace tandem {

class Mp3Decoder : public Decoder {
 public:
  // Reads the bytes [begin, end) of the file. nullptr if they hold no MPEG stream with at least one sample.
  static std::unique_ptr<Decoder> open(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end,
                                       WalkGuard guard);

  Mp3Decoder(std::shared_ptr<const SongFile> file, std::unique_ptr<Mp3Index> index);

  int rate() const override;
  std::size_t read(std::span<StereoFrame> out) override;
  bool next_section() override;
  int rate_of(std::size_t section) const override;
  Frames reach(std::size_t section, Frames frame) override;
  Frames length(std::size_t section) override;
  void seek(std::size_t section, Frames frame) override;

 private:
  struct Delete {
    void operator()(mpg123_handle_struct* handle) const noexcept;
  };

  const MpegHeader& header() const { return index_->sections()[section_].header; }
  std::size_t first_warm_frame(std::size_t frame);
  std::int64_t reservoir_bytes(std::size_t frame);
  bool decode_next();
  bool decode(std::size_t frame);
  void open_run(const Mp3FrameTable::Run& run);
  const std::uint8_t* bytes_of(const Mp3FrameTable::Place& place);
  bool feed(const std::uint8_t* bytes, std::size_t count);
  void go_to(std::size_t section, Frames sample);
  void arrive();

  std::unique_ptr<Mp3Index> index_;
  ByteWindow window_;
  std::unique_ptr<mpg123_handle_struct, Delete> handle_;
  std::vector<StereoFrame> silence_;
  std::vector<std::uint8_t> padded_;  // the last frame, if the file ends within it
  std::size_t section_ = 0;
  Frames position_ = 0;                 // the next sample of the section that is read
  std::size_t next_frame_ = 0;          // the next frame to be decoded
  std::span<const StereoFrame> ready_;  // what is left of the frame decoded last
  bool arrived_ = false;                // the decoder stands at position_
  bool fresh_ = true;                   // the decoder knows no earlier frame
};

}  // namespace tandem
