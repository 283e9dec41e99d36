// Where each frame of an MPEG stream lies, which samples of it sound, and how long it is. Grows as the stream is read.
// Used by one thread at a time; blocks for as long as the disk does.
//
// Samples are counted within their section from its first frame on; encoder delay and padding are counted, but do not
// sound. Sections differ in MPEG version, layer or rate; most streams have one.
//
// The number of frames that the encoder noted is believed only if the note's checksum holds, the stream is as many
// bytes long as the note says, and its first and last frames are in place. Then it is the number of frames, whatever
// happened between them: frames that are damaged are silent. Otherwise the frames that are found count.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "engine/decode/decoder.h"
#include "engine/decode/mp3_frame_scanner.h"
#include "engine/decode/mp3_info.h"

namespace tandem {

class Mp3Index {
 public:
  struct Place {
    std::int64_t offset = 0;
    std::int32_t bytes = 0;  // 0: a lost frame, silent
  };
  // Frames that lie one behind the other in the file. Only within a run may a frame refer to the one before.
  struct Run {
    std::size_t first = 0;
    std::int32_t free_format_bytes = 0;  // base size of a frame without padding; 0 if it has a bit rate
  };
  struct Part {
    std::size_t first = 0;
    MpegHeader header;
  };

  // nullptr if the bytes [begin, end) of the file hold no MPEG stream with at least one sample.
  static std::unique_ptr<Mp3Index> open(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end);

  Mp3Index(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end);

  // Whether frame number `frame` exists. Walks on as far as needed.
  bool reach(std::size_t frame);

  const Place& place(std::size_t frame) const { return places_[frame]; }  // of a frame that was reached
  const Run& run_of(std::size_t frame) const;

  // The parts found so far, at least one.
  const std::vector<Part>& parts() const { return parts_; }

  Frames first_sample(std::size_t part) const { return part == 0 ? skip_ : 0; }
  // The end of the part's sound, or `wanted` if it reaches that far. Walks on as far as needed.
  Frames end_of_sound(std::size_t part, Frames wanted);

  // All of the stream. Walks to its end, unless the encoder's note is believed.
  const std::vector<Section>& sections();

 private:
  bool believes(const Mp3Info& info, const Mp3Frame& first);
  bool last_frame_in_place(const MpegHeader& header);
  void start();
  bool step();
  void step_as_noted(const std::optional<Mp3Frame>& frame);
  bool file_is_whole() const;
  void add(const Mp3Frame& frame);
  void add_lost(std::size_t count);
  void add_after_gap(const Mp3Frame& frame);
  void push(const Place& place, std::int32_t free_format_bytes);
  void set_edges(const Mp3Info& info, const MpegHeader& header);
  bool sounds();

  std::shared_ptr<const SongFile> file_;
  Mp3FrameScanner walk_;
  std::vector<Place> places_;
  std::vector<Run> runs_;
  std::vector<Part> parts_;
  std::vector<Section> sections_;
  std::size_t noted_frames_ = 0;
  std::int64_t noted_bytes_ = 0;
  std::optional<Frames> cut_;  // the sample at which the padding begins
  Frames skip_ = 0;
  bool believed_ = false;
  bool ended_ = false;
};

}  // namespace tandem
