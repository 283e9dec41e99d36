// Nothing under render() allocates, locks or enters the kernel, on any path that a night can take.

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "displays/display_set.h"
#include "engine/core/render_guard.h"
#include "engine/engine.h"
#include "engine/engine_threads.h"
#include "shell/program.h"
#include "simulation/simulated_player.h"
#include "support/bytes.h"
#include "support/ready_output.h"
#include "support/signal.h"
#include "support/temp_directory.h"
#include "support/wav_writer.h"
#include "trap.h"

namespace tandem::test {
namespace {

// Simulated time for the render thread: each sleep is one turn of the test, and drains the ring.
class TurnClock final : public StepClock {
 public:
  explicit TurnClock(OutputRing& ring) : ring_(ring) {}
  std::int64_t now_ns() noexcept override { return now_; }
  void sleep_until(std::int64_t ns) noexcept override {
    now_ = std::max(now_.load(), ns);
    StereoFrame frame;
    while (ring_.read({&frame, 1}) == 1) {
    }
    turns_done_.fetch_add(1);
    while (turns_done_.load() > turns_allowed_.load()) std::this_thread::yield();
  }
  void allow(std::uint64_t turns) { turns_allowed_.fetch_add(turns); }
  bool caught_up() const { return turns_done_.load() > turns_allowed_.load(); }

 private:
  OutputRing& ring_;
  std::atomic<std::int64_t> now_{0};
  std::atomic<std::uint64_t> turns_done_{0};
  std::atomic<std::uint64_t> turns_allowed_{0};
};

class RenderGuardTest : public ::testing::Test {
 protected:
  RenderGuardTest() {
    RenderGuard::watcher = trap_render;
    program_ = std::make_unique<Program>(
        [this](TimerQueue& timers) { return make_graph(timers); },
        Environment{directory_.path(), [] { return std::string("12:00"); },
                    [](std::string_view text) { return std::string(text); }, [](const std::string&) {}, dialog_});
    program_->panel.load();
  }
  ~RenderGuardTest() override {
    clock_.allow(1'000'000'000);
    engine_.reset();
    RenderGuard::watcher = nullptr;
  }

  SoundGraph make_graph(TimerQueue& timers) {
    engine_ = std::make_unique<Engine>(output_, ring_, engine_threads_);
    SoundGraph graph;
    engine_->fill(graph, timers);
    add_displays(graph);
    return graph;
  }

  void add(const std::string& path) {
    dialog_.answers.push_back(path);
    controls().LoadSong.click.raise();
  }
  std::string wav(const std::string& name, double seconds) {
    const std::string path = directory_.file(name);
    write_file(path, wav_file(music(seconds), Encoding::kInt16));
    return path;
  }

  // Lets `steps` pass, with the panel's ticks between them, as in the program. The render thread is waited for:
  // until it has reached the commands that start or stop it, and until it has made its step.
  void run(int steps) {
    for (int i = 0; i < steps; ++i) {
      clock_.allow(1);
      while (engine_->playing() && !(sounding() && clock_.caught_up())) {
        if (!sounding() && clock_.caught_up()) clock_.allow(1);  // it waits in a turn that has no sound to make
        engine_->deliver();
        std::this_thread::yield();
      }
      engine_->deliver();
      program_->timers.advance(now_ += 10);
    }
  }
  bool sounding() const { return output_.consuming() && engine_->chain().wants_render(); }
  PanelControls& controls() { return program_->controls; }

  TempDirectory directory_;
  ScriptedDialog dialog_;
  OutputRing ring_;
  ReadyOutput output_{ring_, 1280};
  TurnClock clock_{ring_};
  EngineThreads engine_threads_{clock_, [] {}};
  std::unique_ptr<Engine> engine_;
  std::unique_ptr<Program> program_;
  std::int64_t now_ = 0;
};

TEST(Trap, SeesAllocationsLocksAndSystemCalls) {
  const Trapped before = trapped();
  trap_render(true);
  provoke_allocation();
  provoke_lock();
  provoke_system_call();
  trap_render(false);
  const Trapped after = trapped();
  EXPECT_GE(after.allocations, before.allocations + 2);
  EXPECT_GE(after.locks, before.locks + 1);
  if (!after.kernel_traps) GTEST_SKIP() << "this kernel does not dispatch system calls";
  EXPECT_GE(after.system_calls, before.system_calls + 1);
}

TEST_F(RenderGuardTest, NothingForbiddenHappensOnAnyPath) {
  for (int i = 0; i < 6; ++i) add(wav("song" + std::to_string(i) + ".wav", 4));
  add(directory_.file("missing.wav"));
  const Trapped before = trapped();
  controls().AMLed1.click.raise();
  controls().PLAY.click.raise();
  run(30);
  for (std::size_t band = 0; band < kBands; ++band) controls().sl0[band].move(12);  // equalizer and limiter at work
  run(150);
  for (int pitch = -20; pitch <= 20; pitch += 5) {
    controls().SliderP.move(pitch);
    run(20);
  }
  controls().SliderP.move(0);
  run(100);
  controls().Slider1.user_press();
  controls().Slider1.move(1500);
  controls().Slider1.user_release();
  run(50);
  controls().NextBtn.click.raise();
  run(100);
  controls().Bypass.move(0);
  controls().Volume.move(9000);
  run(50);
  controls().PAUSE.click.raise();
  run(20);
  controls().PAUSE.click.raise();
  run(200);
  controls().BufferSwitch.move(1);
  run(50);
  controls().PLAY.click.raise();
  // Ends, mixes, a song that cannot be opened. The readers are real threads, so the list takes its time.
  for (int i = 0; i < 300 && controls().PLAY.Picture != 0; ++i) run(100);
  EXPECT_EQ(controls().PLAY.Picture, 0) << "the list has not played to its end";
  EXPECT_EQ(program_->state.CurrentSong, 7);
  const Trapped after = trapped();
  EXPECT_GT(after.passages, before.passages + 1000);
  EXPECT_EQ(after.allocations, before.allocations);
  EXPECT_EQ(after.locks, before.locks);
  EXPECT_EQ(after.system_calls, before.system_calls) << "the last one was number " << after.last_system_call;
  if (!after.kernel_traps)
    GTEST_SKIP() << "this kernel does not dispatch system calls; allocations and locks were none";
}

}  // namespace
}  // namespace tandem::test
