// Writes 16-bit stereo sound at 44100 Hz into a WAV file; its sizes are right when the recorder is destroyed.
// Throws std::runtime_error if the file cannot be written.
#pragma once

#include <cstdint>
#include <fstream>
#include <span>
#include <string>

#include "engine/device/output_ring.h"

namespace tandem {

class WavRecorder {
 public:
  explicit WavRecorder(const std::string& path);
  ~WavRecorder();
  WavRecorder(const WavRecorder&) = delete;
  WavRecorder& operator=(const WavRecorder&) = delete;

  void write(std::span<const Sample16> frames);

 private:
  void write_header();

  std::ofstream file_;
  std::uint32_t data_bytes_ = 0;
};

}  // namespace tandem
