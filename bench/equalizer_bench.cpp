// What the equalizer, the limiter and the filter design cost, in CPU time of this thread.
// usage: equalizer_bench [case [seconds of sound]]   (one case alone, for a profiler; all of them without arguments)
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "engine/equalizer/band_equalizer.h"
#include "engine/equalizer/filter_design.h"
#include "engine/render/limiter.h"
#include "support/equalizer_gains.h"

namespace tandem {
namespace {

constexpr int kStepsASecond = kSampleRate / kStepFrames;
constexpr int kRuns = 41;

double cpu_milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

std::vector<EqualizerBand> bands(double gain) { return test::bands_of(test::alternating_gains(gain)); }

std::vector<StereoFrame> noise(float amplitude) {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> level(-amplitude, amplitude);
  std::vector<StereoFrame> sound(kSampleRate);
  for (StereoFrame& frame : sound) frame = {level(random), level(random)};
  return sound;
}

// One second of sound in the chain's steps, always from the same source.
class Second {
 public:
  explicit Second(float amplitude) : sound_(noise(amplitude)) {}

  template <class Step>
  void play(Step step) {
    for (int i = 0; i < kStepsASecond; ++i) {
      const auto from = sound_.begin() + static_cast<std::ptrdiff_t>(i) * kStepFrames;
      std::copy(from, from + kStepFrames, step_.begin());
      step(std::span<StereoFrame>(step_));
    }
  }

 private:
  std::vector<StereoFrame> sound_;
  std::vector<StereoFrame> step_ = std::vector<StereoFrame>(kStepFrames);
};

struct Case {
  std::string name;
  std::function<void()> run;  // one second of sound, or one design
};

std::vector<Case> cases() {
  std::vector<Case> list;
  const auto quiet = std::make_shared<Second>(0.5F);
  const auto loud = std::make_shared<Second>(2.0F);
  const std::shared_ptr<const EqualizerFilter> a = design_filter(bands(6));

  list.push_back({"copy", [quiet] { quiet->play([](std::span<StereoFrame>) {}); }});
  const auto steady = std::make_shared<BandEqualizer>();
  steady->adopt(a.get());
  list.push_back({"steady", [quiet, steady, a] { quiet->play([&](auto step) { steady->process(step); }); }});
  const auto dry = std::make_shared<BandEqualizer>();
  list.push_back({"dry", [quiet, dry] { quiet->play([&](auto step) { dry->process(step); }); }});
  const auto fading = std::make_shared<BandEqualizer>();
  const auto turn = std::make_shared<std::size_t>(0);
  // Four filters in turn: none comes back before it is free again, so that every moment is a fade.
  const auto filters = std::make_shared<std::vector<std::unique_ptr<const EqualizerFilter>>>();
  for (const double gain : {3.0, -3.0, 9.0, -9.0}) filters->push_back(design_filter(bands(gain)));
  list.push_back({"fading", [quiet, fading, turn, filters] {
                    quiet->play([&](auto step) {
                      fading->adopt((*filters)[(*turn)++ % filters->size()].get());
                      while (fading->take_retired() != nullptr) continue;
                      fading->process(step);
                    });
                  }});
  const auto idle = std::make_shared<Limiter>();
  list.push_back({"limiter_idle", [quiet, idle] { quiet->play([&](auto step) { idle->process(step); }); }});
  const auto working = std::make_shared<Limiter>();
  list.push_back({"limiter_working", [loud, working] { loud->play([&](auto step) { working->process(step); }); }});
  list.push_back({"design_filter", [] { design_filter(bands(12)); }});
  return list;
}

void measure(const Case& entry) {
  std::vector<double> times;
  entry.run();
  for (int run = 0; run < kRuns; ++run) {
    const double start = cpu_milliseconds();
    entry.run();
    times.push_back(cpu_milliseconds() - start);
  }
  std::sort(times.begin(), times.end());
  const double median = times[times.size() / 2];
  if (entry.name == "design_filter") {
    std::printf("%-16s median %7.3f ms, best %7.3f ms a filter\n", entry.name.c_str(), median, times.front());
  } else {
    std::printf("%-16s median %7.3f ms, best %7.3f ms a second of sound; %6.2f ns a frame\n", entry.name.c_str(),
                median, times.front(), median * 1e6 / kSampleRate);
  }
}

// The greatest CPU time of one step: the one in which a filter begins and the whole past is transformed.
void measure_begin() {
  const auto filter = design_filter(bands(6));
  std::vector<double> times;
  for (int run = 0; run < kRuns; ++run) {
    BandEqualizer equalizer;
    Second(0.5F).play([&](auto step) { equalizer.process(step); });
    equalizer.adopt(filter.get());
    std::vector<StereoFrame> step(kStepFrames);
    const double start = cpu_milliseconds();
    equalizer.process(step);
    times.push_back(cpu_milliseconds() - start);
  }
  std::sort(times.begin(), times.end());
  std::printf("%-16s median %7.3f ms, best %7.3f ms a step\n", "begin", times[times.size() / 2], times.front());
}

}  // namespace
}  // namespace tandem

int main(int count, char** arguments) {
  const std::string only = count > 1 ? arguments[1] : "";
  for (const auto& entry : tandem::cases()) {
    if (only.empty()) {
      tandem::measure(entry);
    } else if (only == entry.name) {
      for (int n = count > 2 ? std::atoi(arguments[2]) : 1; n > 0; --n) entry.run();
    }
  }
  if (only.empty()) tandem::measure_begin();
  return 0;
}
