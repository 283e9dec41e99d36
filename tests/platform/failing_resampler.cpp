#include "platform/failing_resampler.h"

#include <dlfcn.h>
#include <soxr.h>

#include <atomic>

namespace tandem::test {

namespace {

constexpr const char* kError = "malloc failed";
std::atomic<bool> fails{false};

template <class Function>
Function* next_function(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

FailingResampler::FailingResampler() { fails = true; }
FailingResampler::~FailingResampler() { fails = false; }

}  // namespace tandem::test

extern "C" {

soxr_t soxr_create(double from, double to, unsigned channels, soxr_error_t* error, const soxr_io_spec_t* io,
                   const soxr_quality_spec_t* quality, const soxr_runtime_spec_t* runtime) {
  static auto* const real = tandem::test::next_function<decltype(soxr_create)>("soxr_create");
  if (!tandem::test::fails) return real(from, to, channels, error, io, quality, runtime);
  *error = tandem::test::kError;
  return nullptr;
}

soxr_error_t soxr_process(soxr_t soxr, soxr_in_t in, size_t in_frames, size_t* used, soxr_out_t out, size_t out_frames,
                          size_t* made) {
  static auto* const real = tandem::test::next_function<decltype(soxr_process)>("soxr_process");
  return tandem::test::fails ? tandem::test::kError : real(soxr, in, in_frames, used, out, out_frames, made);
}
}
