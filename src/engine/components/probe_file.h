// TempFile: determines within the put whether a name is a song's and how long it is; keeps no file open. UI thread.
//
// Every name that ends in .mp3 or .wav is a song's, of others those whose file holds sound. A song without sound
// (missing, broken, no regular file) has length 0 and is passed over when its turn comes: refused, it would take the
// place of the song before it in the list.
// Where the song was measured before and its file is unchanged, the put is one look at the folder, and none where the
// intake has just looked; else it measures, which blocks for as long as the disk does.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "audio/mm_audio_file.h"
#include "engine/components/measured_songs.h"

namespace tandem {

class ProbeFile final : public MMAudioFileX {
 public:
  explicit ProbeFile(std::shared_ptr<MeasuredSongs> songs) : songs_(std::move(songs)) {}

  std::string FileName() const override { return name_; }
  void put_FileName(const std::string& name) override;
  std::int32_t Length() const override { return length_ms_; }
  std::int32_t Position() const override { return 0; }
  void put_Position(std::int32_t) override {}
  void finish(std::int32_t) override {}

 private:
  std::shared_ptr<MeasuredSongs> songs_;
  std::string name_;
  std::int32_t length_ms_ = 0;
};

}  // namespace tandem
