#include "engine/equalizer/band_equalizer.h"

#include <algorithm>
#include <utility>

#include "engine/core/window_shapes.h"

namespace tandem {

BandEqualizer::BandEqualizer() {
  for (std::size_t i = 0; i < fade_in_.size(); ++i) {
    const double place = (static_cast<double>(i) + 0.5) / static_cast<double>(kFadeFrames);
    fade_in_[i] = static_cast<float>(raised_cosine(place));
  }
}

void BandEqualizer::adopt(const EqualizerFilter* next) noexcept {
  if (waiting_) retire(waiting_filter_);
  waiting_ = true;
  waiting_filter_ = next;
}

const EqualizerFilter* BandEqualizer::take_retired() noexcept {
  const EqualizerFilter* const filter = retired_;
  if (filter != nullptr) retired_ = std::exchange(filter->next_retired, nullptr);
  return filter;
}

void BandEqualizer::retire(const EqualizerFilter* filter) noexcept {
  if (filter == nullptr) return;
  filter->next_retired = retired_;
  retired_ = filter;
}

void BandEqualizer::process(std::span<StereoFrame> in_out) noexcept {
  while (!in_out.empty()) {
    const std::size_t count = std::min(in_out.size(), kPartition - position_);
    std::swap_ranges(in_out.begin(), in_out.begin() + static_cast<std::ptrdiff_t>(count),
                     io_.begin() + static_cast<std::ptrdiff_t>(position_));
    in_out = in_out.subspan(count);
    position_ += count;
    if (position_ == kPartition) process_block();
  }
}

void BandEqualizer::reset() noexcept {
  if (fading_) end_fade();
  if (waiting_) {
    begin_fade();
    end_fade();
  }
  io_.fill({});
  past_.fill({});
  position_ = 0;
  transformed_ = 0;
  block_ = kPastBlocks;
  for (ActiveFilter& active : filters_) active.first = kNever;
}

void BandEqualizer::process_block() noexcept {
  position_ = 0;
  keep_input();
  if (waiting_ && !fading_) begin_fade();
  ActiveFilter& active = filters_[current_];
  if (fading_) {
    mix_fade();
  } else if (active.filter != nullptr) {
    transform_input();
    write_output(convolve(active, scratch_[0]));
  }
  // Otherwise the input, which already lies where the output is taken from, passes as it is.
  ++block_;
}

void BandEqualizer::keep_input() noexcept {
  Block& block = past_[block_ % kPastBlocks];
  for (std::size_t i = 0; i < kPartition; ++i) {
    block.left[i] = io_[i].left;
    block.right[i] = io_[i].right;
  }
}

void BandEqualizer::begin_fade() noexcept {
  waiting_ = false;
  const EqualizerFilter* const next = std::exchange(waiting_filter_, nullptr);
  if (next == filters_[current_].filter) return;  // from none to none
  current_ = 1 - current_;
  filters_[current_].filter = next;
  filters_[current_].first = kNever;
  fading_ = true;
  fade_block_ = 0;
}

void BandEqualizer::end_fade() noexcept {
  fading_ = false;
  retire(std::exchange(filters_[1 - current_].filter, nullptr));
}

void BandEqualizer::mix_fade() noexcept {
  transform_input();
  const Block& from = convolve(filters_[1 - current_], scratch_[0]);
  const Block& to = convolve(filters_[current_], scratch_[1]);
  const float* const rise = &fade_in_[fade_block_ * kPartition];
  for (std::size_t i = 0; i < kPartition; ++i) {
    io_[i].left = from.left[i] + rise[i] * (to.left[i] - from.left[i]);
    io_[i].right = from.right[i] + rise[i] * (to.right[i] - from.right[i]);
  }
  if (++fade_block_ == kFadeBlocks) end_fade();
}

// While no filter was at work only the past itself was kept; the spectra of all of it are made when one begins.
void BandEqualizer::transform_input() noexcept {
  for (std::size_t i = std::max(transformed_, block_ + 1 - kPartitions); i <= block_; ++i) {
    transform_forward(past(i - 1), past(i), spectra_, i % kPartitions);
  }

  transformed_ = block_ + 1;
}

const Block& BandEqualizer::convolve(ActiveFilter& active, Block& scratch) noexcept {
  if (active.filter == nullptr) return past(block_);
  const SpectrumTable& filter = active.filter->partitions();
  const std::size_t place = block_ - active.first;
  if (place < kAhead) {
    convolve_rest(spectra_, block_, filter, place, active.sums[place]);
    transform_back(active.sums[place], scratch);
  } else {
    active.first = block_;
    convolve_ahead(spectra_, block_, filter, active.sums);
    transform_back(active.sums[0], scratch);
  }
  return scratch;
}

void BandEqualizer::write_output(const Block& sound) noexcept {
  for (std::size_t i = 0; i < kPartition; ++i) io_[i] = {sound.left[i], sound.right[i]};
}

}  // namespace tandem
