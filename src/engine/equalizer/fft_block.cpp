#include "engine/equalizer/fft_block.h"

#include "engine/equalizer/fft_kernels.h"

namespace tandem {

namespace {
const Kernels kernels = usable_kernels().back();
}

void transform_forward(const Block& earlier, const Block& later, SpectrumTable& table, std::size_t slot) noexcept {
  kernels.forward(earlier, later, table, slot);
}

void transform_back(const Spectrum& spectrum, Block& later_half) noexcept { kernels.back(spectrum, later_half); }

void convolve_ahead(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, SpectraAhead& sums) noexcept {
  kernels.ahead(x, newest, h, sums);
}

void convolve_rest(const SpectrumTable& x, std::size_t newest, const SpectrumTable& h, std::size_t count,
                   Spectrum& sum) noexcept {
  kernels.rest(x, newest, h, count, sum);
}

}  // namespace tandem
