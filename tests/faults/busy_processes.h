// Other people's work on the same machine: processes that compute without a pause, and one that writes to a disk and
// waits for it, again and again. They end with this object, or with the test.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tandem::test {

class BusyProcesses {
 public:
  // The process has no other thread yet that a child might need. `file` is written over and over.
  BusyProcesses(int computing, const std::string& file);
  ~BusyProcesses();
  BusyProcesses(const BusyProcesses&) = delete;
  BusyProcesses& operator=(const BusyProcesses&) = delete;

  void end();
  double processor_seconds() const { return processor_seconds_; }  // of those that compute, once they have ended
  std::int64_t written_megabytes() const;

 private:
  template <class Work>
  void start(Work work);

  std::vector<pid_t> pids_;
  std::int64_t* written_;  // shared with the one that writes
  double processor_seconds_ = 0;
};

}  // namespace tandem::test
