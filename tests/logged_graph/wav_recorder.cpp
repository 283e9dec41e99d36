#include "logged_graph/wav_recorder.h"

#include <stdexcept>

#include "engine/core/frames.h"

namespace tandem {

namespace {

void put(std::string& to, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) to.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
}

std::string header(std::uint32_t data_bytes) {
  constexpr std::uint32_t kBytesPerFrame = 4;
  std::string text = "RIFF";
  put(text, 36 + data_bytes, 4);
  text += "WAVEfmt ";
  put(text, 16, 4);
  put(text, 1, 2);  // PCM
  put(text, 2, 2);  // channels
  put(text, kSampleRate, 4);
  put(text, kSampleRate * kBytesPerFrame, 4);
  put(text, kBytesPerFrame, 2);
  put(text, 16, 2);  // bits
  text += "data";
  put(text, data_bytes, 4);
  return text;
}

}  // namespace

WavRecorder::WavRecorder(const std::string& path) : file_(path, std::ios::binary | std::ios::trunc) {
  write_header();
  if (!file_) throw std::runtime_error("Cannot write " + path);
}

WavRecorder::~WavRecorder() {
  file_.seekp(0);
  write_header();
}

void WavRecorder::write_header() {
  const std::string text = header(data_bytes_);
  file_.write(text.data(), static_cast<std::streamsize>(text.size()));
}

// Little-endian machines only, as the rest of the program: the frames are the file's bytes.
void WavRecorder::write(std::span<const Sample16> frames) {
  const auto bytes = std::as_bytes(frames);
  file_.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  data_bytes_ += static_cast<std::uint32_t>(bytes.size());
}

}  // namespace tandem
