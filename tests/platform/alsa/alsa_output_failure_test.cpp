#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "platform/alsa/alsa_output.h"
#include "platform/alsa/alsa_test_device.h"
#include "platform/output_feeder.h"
#include "platform/output_test_server.h"

namespace tandem {
namespace {

using Fault = AlsaTestDesk::Fault;

constexpr std::uint64_t kFailingRequest = 1280;

class AlsaOutputFailureTest : public testing::Test {
 protected:
  void SetUp() override {
    void* plug_in = dlopen(TANDEM_ALSA_TEST_DEVICE, RTLD_NOW);
    ASSERT_NE(plug_in, nullptr) << dlerror();
    desk_ = reinterpret_cast<FindAlsaTestDesk>(dlsym(plug_in, "alsa_test_desk"))();
    desk_->fault = Fault::kNone;
    desk_->opened = 0;
    desk_->recording.clear();
    const std::string configuration = (server_.directory() / "faulty.conf").string();
    std::ofstream(configuration) << "pcm_type.faulty { lib \"" TANDEM_ALSA_TEST_DEVICE "\" }\n"
                                 << "pcm.card { type faulty }\n";
    ::setenv("ALSA_CONFIG_PATH", configuration.c_str(), 1);
  }
  bool played_further(const AlsaOutput& output, std::uint64_t frames) const {
    const std::uint64_t target = output.frames_played() + frames;
    return wait_until([&] { return output.frames_played() >= target; });
  }
  std::vector<Stretch> recorded() const {
    const std::lock_guard lock(desk_->mutex);
    return stretches_of(desk_->recording);
  }

  void expect_to_go_on_after(Fault fault) {
    AlsaOutput output(ring_, {"card"});
    OutputFeeder feeder(ring_, output, 2 * kFailingRequest);
    output.set_queue_length(4);
    output.start();
    for (int i = 0; i < 5; ++i) {
      ASSERT_TRUE(played_further(output, 4 * kFailingRequest));
      desk_->fault = fault;
      ASSERT_TRUE(wait_until([this] { return desk_->fault == Fault::kNone; }));
    }
    ASSERT_TRUE(played_further(output, 4 * kFailingRequest));
    EXPECT_EQ(recorded().size(), 1U) << testing::PrintToString(recorded());
    EXPECT_EQ(desk_->opened, 1) << "it was given back";
    EXPECT_EQ(output.underruns(), fault == Fault::kUnderrun ? 5U : 0U);
  }

  const OutputTestServer server_;  // not started
  OutputRing ring_;
  AlsaTestDesk* desk_ = nullptr;
};

TEST_F(AlsaOutputFailureTest, AfterAnUnderrunItGoesOnWithTheNextFrame) { expect_to_go_on_after(Fault::kUnderrun); }

TEST_F(AlsaOutputFailureTest, AfterASuspendItGoesOnWithTheNextFrame) { expect_to_go_on_after(Fault::kSuspended); }

TEST_F(AlsaOutputFailureTest, AnUnpluggedCardIsGivenBackAndFoundAgain) {
  AlsaOutput output(ring_, {"card"});
  OutputFeeder feeder(ring_, output, 2 * kFailingRequest);
  output.start();
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(played_further(output, 4 * kFailingRequest));
    desk_->fault = Fault::kGone;
    ASSERT_TRUE(wait_until([&] { return !output.consuming(); }));
    EXPECT_EQ(output.frames_played(), ring_.taken()) << "the rest is never heard";
    desk_->fault = Fault::kNone;
    ASSERT_TRUE(wait_until([&] { return output.consuming(); }, std::chrono::seconds(2)));
  }
  ASSERT_TRUE(played_further(output, 4 * kFailingRequest));
  EXPECT_EQ(desk_->opened, 4);
}

}  // namespace
}  // namespace tandem
