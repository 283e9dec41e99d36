#include "platform/desktop/rtkit.h"

#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>

#include "platform/desktop/bus_fixture.h"
#include "platform/desktop/fake_realtime_kit.h"
#include "platform/desktop/refused_thread.h"
#include "platform/realtime/monotonic_clock.h"

namespace tandem {
namespace {

class RtKitTest : public BusFixture {
 protected:
  void SetUp() override {
    ::setenv("DBUS_SYSTEM_BUS_ADDRESS", bus_.address().c_str(), 1);
    getrlimit(RLIMIT_RTTIME, &limit_before_);
    take_refused_threads();
    BusFixture::SetUp();
  }
  void TearDown() override {
    BusFixture::TearDown();
    setrlimit(RLIMIT_RTTIME, &limit_before_);  // for those who may
    ::unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
  }
  void start(const FakeRealtimeKit::Manners& manners) {
    bus_.start();
    fake_ = std::make_unique<FakeRealtimeKit>(bus_, manners);
  }
  bool done() {
    return soon([this] { return !kit_.asking(); });
  }
  // For the thread that the kernel refuses; whether everything has been answered.
  bool asked() {
    thread_.ask();
    kit_.ask();
    return done();
  }
  std::uint64_t number() const { return static_cast<std::uint64_t>(thread_.number()); }

  rlimit limit_before_{};
  RefusedThread thread_;
  RtKit kit_;
  std::unique_ptr<FakeRealtimeKit> fake_;
};

TEST_F(RtKitTest, IsAskedForEveryThreadThatTheKernelRefused) {
  start({});
  thread_.ask();
  RefusedThread another;
  another.ask();
  kit_.ask();
  ASSERT_TRUE(done());
  const std::vector<RealtimeRequest> requests = fake_->requests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[0].method, "MakeThreadRealtime");
  EXPECT_EQ(requests[0].thread, number());
  EXPECT_EQ(requests[0].value, 5);
  EXPECT_EQ(requests[1].thread, static_cast<std::uint64_t>(another.number()));
}

TEST_F(RtKitTest, TheKernelWatchesForRunawaysBeforeAnythingIsGranted) {
  start({});
  ASSERT_TRUE(asked());
  ASSERT_EQ(fake_->requests().size(), 1U) << "refused: the limit was not in place";
  const rlimit limit = fake_->requests()[0].limit;
  EXPECT_LE(limit.rlim_max, static_cast<rlim_t>(FakeRealtimeKit::kMostRun));
  EXPECT_LE(limit.rlim_cur, limit.rlim_max / 2) << "too late to demote the thread";
}

TEST_F(RtKitTest, NoMoreIsAskedForThanIsGranted) {
  start({.highest = 3});
  ASSERT_TRUE(asked());
  ASSERT_EQ(fake_->requests().size(), 1U);
  EXPECT_EQ(fake_->requests()[0].value, 3);
}

TEST_F(RtKitTest, ARefusedThreadIsMadeNicer) {
  start({.grants = false});
  ASSERT_TRUE(asked());
  const std::vector<RealtimeRequest> requests = fake_->requests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[1].method, "MakeThreadHighPriority");
  EXPECT_EQ(requests[1].thread, number());
  EXPECT_EQ(requests[1].value, -11);
}

TEST_F(RtKitTest, ButNotNicerThanIsAllowed) {
  start({.lowest_niceness = -5, .grants = false});
  ASSERT_TRUE(asked());
  ASSERT_EQ(fake_->requests().size(), 2U);
  EXPECT_EQ(fake_->requests()[1].value, -5);
}

TEST_F(RtKitTest, NoServiceIsAskedWithoutNeed) {
  start({});
  kit_.ask();
  EXPECT_FALSE(kit_.asking());
  thread_.ask();
  kit_.ask();
  EXPECT_FALSE(kit_.asking()) << "once only";
}

TEST_F(RtKitTest, AThreadThatHasEndedIsForgotten) {
  start({});
  pid_t ended = 0;
  {
    RefusedThread thread;
    thread.ask();
    ended = thread.number();
  }
  ASSERT_TRUE(wait_until([ended] { return tgkill(getpid(), ended, 0) != 0; })) << "the kernel is slower than join()";
  kit_.ask();
  EXPECT_FALSE(kit_.asking());
}

TEST_F(RtKitTest, WithoutABusNothingHappens) { ASSERT_TRUE(asked()); }

TEST_F(RtKitTest, WithoutRtkitNothingHappens) {
  bus_.start();
  ASSERT_TRUE(asked());
}

TEST_F(RtKitTest, ABusThatHangsBlocksNoThread) {
  start({});
  bus_.freeze();
  thread_.ask();
  const Nanoseconds began = monotonic_now();
  {
    RtKit kit;
    kit.ask();
    QCoreApplication::processEvents();
    EXPECT_TRUE(kit.asking());
  }
  EXPECT_LT(monotonic_now() - began, kNanosecondsPerSecond / 2);
  bus_.kill_hard();
}

TEST_F(RtKitTest, ABusThatDiesIsLeft) {
  start({});
  bus_.freeze();
  thread_.ask();
  kit_.ask();
  QCoreApplication::processEvents();
  ASSERT_TRUE(kit_.asking());
  bus_.kill_hard();
  EXPECT_TRUE(done());
}

}  // namespace
}  // namespace tandem
