#include "engine/read/resampler.h"

#include <soxr.h>

#include <new>
#include <stdexcept>

namespace tandem {

Resampler::Resampler(int rate) {
  const soxr_io_spec_t io = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
  const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
  soxr_error_t error = nullptr;
  soxr_ = soxr_create(rate, kSampleRate, 2, &error, &io, &quality, nullptr);
  if (soxr_ == nullptr || error != nullptr) throw std::bad_alloc();
}

Resampler::~Resampler() { soxr_delete(soxr_); }

void Resampler::reset() {
  if (soxr_clear(soxr_) != nullptr) throw std::bad_alloc();
}

Resampler::Step Resampler::process(std::span<const StereoFrame> in, std::span<StereoFrame> out) {
  Step step;
  const void* input = in.empty() ? nullptr : in.data();
  const soxr_error_t error = soxr_process(soxr_, input, in.size(), &step.used, out.data(), out.size(), &step.made);
  if (error != nullptr) throw std::runtime_error(error);
  return step;
}

}  // namespace tandem
