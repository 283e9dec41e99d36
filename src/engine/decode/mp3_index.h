// Where each frame of an MPEG stream lies, which samples of it sound, and how long it is. Grows as the stream is read.
// Used by one thread at a time; blocks for as long as the disk does, and no longer than its guard lets it.
//
// Samples are counted within their section from its first frame on; encoder delay and padding are counted, but do not
// sound. Sections differ in MPEG version, layer or rate; most streams have one.
//
// The number of frames in an encoder's information frame is trusted only if the frame's checksum holds, the stream is
// as many bytes long as it says, and its first and last frames are in place. Then it is the number of frames, whatever
// happened between them: frames that are damaged are silent. Otherwise the frames that are found count.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "engine/core/frames.h"
#include "engine/decode/mp3_frame_scanner.h"
#include "engine/decode/mp3_frame_table.h"
#include "engine/decode/mp3_info.h"
#include "engine/decode/walk_guard.h"

namespace tandem {

class Mp3Index {
 public:
  struct Section {
    std::size_t first = 0;  // frame
    MpegHeader header;
  };

  // nullptr if the bytes [begin, end) of the file hold no MPEG stream with at least one sample, or if the guard ended
  // the look at them.
  static std::unique_ptr<Mp3Index> open(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end,
                                        WalkGuard guard);

  Mp3Index(std::shared_ptr<const SongFile> file, std::int64_t begin, std::int64_t end, WalkGuard guard);

  // Whether frame number `frame` exists. Walks on as far as needed; false too if the guard ends the walk.
  bool reach(std::size_t frame);
  // The same for a seek: where all frames so far are of one bit rate, those up to `frame` are passed over, if it turns
  // out to lie where the bit rate has it.
  bool leap_to(std::size_t frame);

  const Mp3FrameTable& frames() const { return table_; }
  std::int64_t end() const { return scanner_.end(); }  // of the stream in the file, without tags

  // The sections found so far, at least one.
  const std::vector<Section>& sections() const { return sections_; }

  Frames first_sample(std::size_t section) const { return section == 0 ? skip_ : 0; }
  // The end of the section's sound, or `wanted` if it reaches that far. Walks on as far as needed; `leaps`: as for a
  // seek.
  Frames end_of_sound(std::size_t section, Frames wanted, bool leaps = false);
  // The end of the section's sound. Walks to its end, unless the encoder's count is trusted.
  Frames end_of_sound(std::size_t section);

 private:
  bool trusts(const Mp3Info& info, const Mp3Frame& first);
  bool last_frame_in_place(const MpegHeader& header);
  void take_first(const Mp3Frame& first);
  void step();
  void leap(std::int64_t frames);
  void take_trusted(const std::optional<Mp3Frame>& frame);
  bool file_is_whole() const;
  void add(const Mp3Frame& frame);
  void add_after_gap(const Mp3Frame& frame);
  void set_edges(const Mp3Info& info, const Mp3Frame& first);
  bool ends_with_padding(std::size_t frames) const;
  Frames counted_end(std::size_t section) const;
  bool sounds();

  std::shared_ptr<const SongFile> file_;
  WalkGuard guard_;
  Mp3FrameScanner scanner_;
  Mp3FrameTable table_;
  std::vector<Section> sections_;
  std::size_t noted_frames_ = 0;    // by the information frame; 0 if it has no count
  std::int64_t noted_bytes_ = 0;    // of the stream with the information frame, by itself
  bool noted_bytes_right_ = false;  // the stream is that long
  Frames skip_ = 0;                 // samples of delay in front
  Frames padding_ = 0;              // samples of padding at the end
  bool started_ = false;
  bool trusted_ = false;
  bool ended_ = false;
};

}  // namespace tandem
