#include "platform/desktop/refused_thread.h"

#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>

#include "platform/realtime/realtime_priority.h"

namespace tandem {

namespace {

class NoRealtimeLimit {  // what the user may have without that right
 public:
  NoRealtimeLimit() {
    getrlimit(RLIMIT_RTPRIO, &before_);
    const rlimit none{0, before_.rlim_max};
    setrlimit(RLIMIT_RTPRIO, &none);
  }
  ~NoRealtimeLimit() { setrlimit(RLIMIT_RTPRIO, &before_); }
  NoRealtimeLimit(const NoRealtimeLimit&) = delete;
  NoRealtimeLimit& operator=(const NoRealtimeLimit&) = delete;

 private:
  rlimit before_{};
};

}  // namespace

void drop_right_to_schedule() {
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  std::array<__user_cap_data_struct, 2> rights{};
  ASSERT_EQ(syscall(SYS_capget, &header, rights.data()), 0);
  rights[0].effective &= ~(1U << CAP_SYS_NICE);
  ASSERT_EQ(syscall(SYS_capset, &header, rights.data()), 0);
}

RefusedThread::RefusedThread() : thread_([this] { run(); }) { number_ = number_promise_.get_future().get(); }

RefusedThread::~RefusedThread() {
  if (!asked_) may_ask_.set_value();
  may_end_.set_value();
  thread_.join();
}

void RefusedThread::ask() {
  asked_ = true;
  may_ask_.set_value();
  has_asked_.get_future().wait();
}

void RefusedThread::run() {
  number_promise_.set_value(gettid());
  may_ask_.get_future().wait();
  if (asked_) {
    drop_right_to_schedule();
    const NoRealtimeLimit limit;
    EXPECT_FALSE(ask_realtime_priority());
  }
  has_asked_.set_value();
  may_end_.get_future().wait();
}

}  // namespace tandem
