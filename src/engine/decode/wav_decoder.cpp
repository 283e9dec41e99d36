#include "engine/decode/wav_decoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "engine/decode/section.h"

namespace tandem {
namespace {

constexpr std::size_t kBlockFrames = 1024;
constexpr float kLoudest = 1000.0F;  // 60 dB above full scale: what is meant as sound never comes near it

bool is_float(const SF_INFO& info) {
  const int encoding = info.format & SF_FORMAT_SUBMASK;
  return encoding == SF_FORMAT_FLOAT || encoding == SF_FORMAT_DOUBLE;
}

bool is_uncompressed(const SF_INFO& info) {
  constexpr std::array kPlain = {SF_FORMAT_PCM_S8, SF_FORMAT_PCM_U8, SF_FORMAT_PCM_16,
                                 SF_FORMAT_PCM_24, SF_FORMAT_PCM_32, SF_FORMAT_FLOAT,
                                 SF_FORMAT_DOUBLE, SF_FORMAT_ALAW,   SF_FORMAT_ULAW};
  return std::ranges::find(kPlain, info.format & SF_FORMAT_SUBMASK) != kPlain.end();
}

// Of the compressed encodings only these begin every block afresh; the others must be decoded from the beginning on.
bool seeks_exactly(const SF_INFO& info) {
  const int encoding = info.format & SF_FORMAT_SUBMASK;
  return is_uncompressed(info) || encoding == SF_FORMAT_IMA_ADPCM || encoding == SF_FORMAT_MS_ADPCM;
}

}  // namespace

std::unique_ptr<Decoder> WavDecoder::open(std::shared_ptr<const SongFile> file, const WavHeader& header,
                                          WalkGuard guard) {
  auto decoder = std::make_unique<WavDecoder>(std::move(file), header, std::move(guard));
  if (length_at_sample_rate(decoder->length_, header.rate) <= 0) return nullptr;
  return decoder;
}

WavDecoder::WavDecoder(std::shared_ptr<const SongFile> file, const WavHeader& header, WalkGuard guard)
    : view_(std::move(file), header),
      guard_(std::move(guard)),
      downmix_(header.channels, header.channel_mask),
      samples_(kBlockFrames * static_cast<std::size_t>(header.channels)),
      rate_(header.rate) {
  if (reopen() && info_.channels == header.channels) measure(header);
}

bool WavDecoder::reopen() noexcept {
  sound_.reset();
  sound_.reset(view_.open(info_));
  position_ = 0;
  return sound_ != nullptr;
}

// Compressed sound fills whole blocks; the fact chunk holds how much of the last one counts.
void WavDecoder::measure(const WavHeader& header) {
  Frames length = info_.frames;
  const Frames block = std::max(header.block_frames, 320);
  if (!is_uncompressed(info_) && header.fact_frames > length - 2 * block) length = std::min(length, header.fact_frames);
  length_ = length;
}

std::size_t WavDecoder::read(std::span<StereoFrame> out) {
  const Frames left = length_ - position_;
  out = out.first(static_cast<std::size_t>(std::clamp<Frames>(left, 0, static_cast<Frames>(out.size()))));
  std::size_t done = 0;
  while (done < out.size()) {
    const auto block = out.subspan(done, std::min(kBlockFrames, out.size() - done));
    const std::size_t got = read_block(block);
    done += got;
    if (got < block.size()) break;
  }
  return done;
}

std::size_t WavDecoder::read_block(std::span<StereoFrame> out) {
  if (sound_ == nullptr) return 0;
  const auto got =
      std::max<sf_count_t>(0, sf_readf_float(sound_.get(), samples_.data(), static_cast<sf_count_t>(out.size())));
  const auto frames = static_cast<std::size_t>(got);
  const auto samples = std::span(samples_).first(frames * static_cast<std::size_t>(info_.channels));
  if (is_float(info_)) {
    for (float& sample : samples) sample = std::isfinite(sample) ? std::clamp(sample, -kLoudest, kLoudest) : 0.0F;
  }
  downmix_.process(samples, out.first(frames));
  position_ += got;
  return frames;
}

void WavDecoder::seek(std::size_t /*section*/, Frames frame) {
  if (sound_ != nullptr && seeks_exactly(info_) && sf_seek(sound_.get(), frame, SEEK_SET) == frame) {
    position_ = frame;
    return;
  }
  // Where the library cannot seek, or failed and stands anywhere, the sound before is decoded.
  const bool may_go_on = !seeks_exactly(info_) && frame >= position_;
  if (may_go_on || reopen()) read_forward(frame - position_);
}

void WavDecoder::read_forward(Frames frames) {
  std::vector<StereoFrame> passed(kBlockFrames);
  while (frames > 0 && (!guard_ || guard_(view_.position()))) {
    const auto count = static_cast<std::size_t>(std::min<Frames>(frames, kBlockFrames));
    const std::size_t got = read(std::span(passed).first(count));
    frames -= static_cast<Frames>(got);
    if (got == 0) break;
  }
}

}  // namespace tandem
