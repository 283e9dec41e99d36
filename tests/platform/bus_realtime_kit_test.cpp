#include "platform/bus_realtime_kit.h"

#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>

#include "platform/bus_fixture.h"
#include "platform/monotonic_clock.h"
#include "platform/refused_thread.h"

namespace tandem {
namespace {

constexpr std::int64_t kMostRun = 200'000;  // microseconds, as rtkit has it

struct Request {
  std::string method;
  std::uint64_t thread = 0;
  std::int64_t value = 0;
  rlimit limit{};  // when it came
};

// What rtkit is to a program: tells its limits, and makes threads real-time ones for whom it likes.
class FakeRealtimeKit {
 public:
  struct Manners {
    std::int32_t highest = 20;
    std::int32_t lowest_niceness = -15;
    bool grants = true;
  };

  FakeRealtimeKit(const BusTestDaemon& bus, const Manners& manners)
      : manners_(manners),
        service_(bus, "org.freedesktop.RealtimeKit1", "/org/freedesktop/RealtimeKit1",
                 [this](sd_bus_message* call) { return answer(call); }) {}

  std::vector<Request> requests() {
    const std::lock_guard lock(mutex_);
    return requests_;
  }

 private:
  int answer(sd_bus_message* call) {
    if (sd_bus_message_is_method_call(call, "org.freedesktop.DBus.Properties", "Get") > 0) return tell_limit(call);
    Request request;
    request.method = sd_bus_message_get_member(call);
    const bool realtime = request.method == "MakeThreadRealtime";
    std::int32_t value = 0;
    sd_bus_message_read_basic(call, 't', &request.thread);
    if (sd_bus_message_read_basic(call, realtime ? 'u' : 'i', &value) <= 0) return -EINVAL;
    request.value = value;
    getrlimit(RLIMIT_RTTIME, &request.limit);
    {
      const std::lock_guard lock(mutex_);
      requests_.push_back(request);
    }
    const bool bounded = request.limit.rlim_max <= static_cast<rlim_t>(kMostRun);
    if (!manners_.grants || (realtime && !bounded)) return -EPERM;
    return sd_bus_reply_method_return(call, "");
  }

  int tell_limit(sd_bus_message* call) const {
    const char* interface = nullptr;
    const char* name = nullptr;
    if (sd_bus_message_read(call, "ss", &interface, &name) <= 0) return -EINVAL;
    if (std::string(name) == "RTTimeUSecMax") return sd_bus_reply_method_return(call, "v", "x", kMostRun);
    if (std::string(name) == "MaxRealtimePriority") return sd_bus_reply_method_return(call, "v", "i", manners_.highest);
    return sd_bus_reply_method_return(call, "v", "i", manners_.lowest_niceness);
  }

  Manners manners_;
  std::mutex mutex_;
  std::vector<Request> requests_;
  BusTestService service_;
};

class BusRealtimeKitTest : public BusFixture {
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
  std::uint64_t number() const { return static_cast<std::uint64_t>(thread_.number()); }

  rlimit limit_before_{};
  RefusedThread thread_;
  BusRealtimeKit kit_;
  std::unique_ptr<FakeRealtimeKit> fake_;
};

TEST_F(BusRealtimeKitTest, IsAskedForEveryThreadThatTheKernelRefused) {
  start({});
  thread_.ask();
  RefusedThread another;
  another.ask();
  kit_.ask();
  ASSERT_TRUE(done());
  const std::vector<Request> requests = fake_->requests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[0].method, "MakeThreadRealtime");
  EXPECT_EQ(requests[0].thread, number());
  EXPECT_EQ(requests[0].value, 5);
  EXPECT_EQ(requests[1].thread, static_cast<std::uint64_t>(another.number()));
}

TEST_F(BusRealtimeKitTest, TheKernelWatchesForRunawaysBeforeAnythingIsGranted) {
  start({});
  thread_.ask();
  kit_.ask();
  ASSERT_TRUE(done());
  ASSERT_EQ(fake_->requests().size(), 1U) << "refused: the limit was not in place";
  const rlimit limit = fake_->requests()[0].limit;
  EXPECT_LE(limit.rlim_max, static_cast<rlim_t>(kMostRun));
  EXPECT_LE(limit.rlim_cur, limit.rlim_max / 2) << "too late to demote the thread";
}

TEST_F(BusRealtimeKitTest, NoMoreIsAskedForThanIsGranted) {
  start({.highest = 3});
  thread_.ask();
  kit_.ask();
  ASSERT_TRUE(done());
  ASSERT_EQ(fake_->requests().size(), 1U);
  EXPECT_EQ(fake_->requests()[0].value, 3);
}

TEST_F(BusRealtimeKitTest, ARefusedThreadIsMadeNicer) {
  start({.grants = false});
  thread_.ask();
  kit_.ask();
  ASSERT_TRUE(done());
  const std::vector<Request> requests = fake_->requests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[1].method, "MakeThreadHighPriority");
  EXPECT_EQ(requests[1].thread, number());
  EXPECT_EQ(requests[1].value, -11);
}

TEST_F(BusRealtimeKitTest, ButNotNicerThanIsAllowed) {
  start({.lowest_niceness = -5, .grants = false});
  thread_.ask();
  kit_.ask();
  ASSERT_TRUE(done());
  ASSERT_EQ(fake_->requests().size(), 2U);
  EXPECT_EQ(fake_->requests()[1].value, -5);
}

TEST_F(BusRealtimeKitTest, NobodyIsAskedWithoutNeed) {
  start({});
  kit_.ask();
  EXPECT_FALSE(kit_.asking());
  thread_.ask();
  kit_.ask();
  EXPECT_FALSE(kit_.asking()) << "once only";
}

TEST_F(BusRealtimeKitTest, AThreadThatHasEndedIsForgotten) {
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

TEST_F(BusRealtimeKitTest, WithoutABusNothingHappens) {
  thread_.ask();
  kit_.ask();
  ASSERT_TRUE(done());
}

TEST_F(BusRealtimeKitTest, WithoutRtkitNothingHappens) {
  bus_.start();
  thread_.ask();
  kit_.ask();
  ASSERT_TRUE(done());
}

TEST_F(BusRealtimeKitTest, ABusThatHangsHoldsNobody) {
  start({});
  bus_.freeze();
  thread_.ask();
  const Nanoseconds began = monotonic_now();
  {
    BusRealtimeKit kit;
    kit.ask();
    QCoreApplication::processEvents();
    EXPECT_TRUE(kit.asking());
  }
  EXPECT_LT(monotonic_now() - began, kNanosecondsPerSecond / 2);
  bus_.kill_hard();
}

TEST_F(BusRealtimeKitTest, ABusThatDiesIsLeft) {
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
