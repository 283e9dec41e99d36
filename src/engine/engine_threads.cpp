#include "engine/engine_threads.h"

#include <utility>

#include "engine/read/reader_thread.h"
#include "engine/render/render_thread.h"

namespace tandem {

EngineThreads::EngineThreads(StepClock& clock, std::function<void()> notify_ui)
    : clock_(clock), notify_ui_(std::move(notify_ui)) {}

EngineThreads::~EngineThreads() = default;

void EngineThreads::start(const Work& work) {
  for (std::size_t i = 0; i < readers_.size(); ++i) readers_[i] = std::make_unique<ReaderThread>(work.readers[i]);
  renderer_ = std::make_unique<RenderThread>(work.chain, work.output, work.ring, clock_, notify_ui_);
}

void EngineThreads::stop() {
  renderer_.reset();
  for (auto& reader : readers_) reader.reset();
}

void EngineThreads::wake_reader(std::size_t deck) { readers_.at(deck)->wake(); }

void EngineThreads::wake_renderer() { renderer_->wake(); }

bool EngineThreads::replace_if_hung(std::size_t deck, std::uint64_t step) {
  return readers_.at(deck)->replace_if_hung(step);
}

void EngineThreads::run_freely_until(std::uint64_t step, bool deep_queue) {
  renderer_->run_freely_until(step, deep_queue);
}

void EngineThreads::put_mix_point(int deck, std::uint32_t generation, Frames frame) {
  renderer_->mix_point_wait().put(deck, generation, frame);
}

void EngineThreads::clear_mix_point() { renderer_->mix_point_wait().clear(); }

}  // namespace tandem
