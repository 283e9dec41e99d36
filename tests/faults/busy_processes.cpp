#include "faults/busy_processes.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace tandem::test {

namespace {

constexpr std::size_t kBlock = std::size_t{4} << 20U;  // bytes
constexpr int kBlocks = 16;                            // of the file

[[noreturn]] void compute() {
  for (volatile unsigned turns = 0;;) turns = turns + 1;
}

[[noreturn]] void write_on(const std::string& path, volatile std::int64_t& written) {
  const std::vector<char> block(kBlock, 'x');
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  for (int i = 0;; i = (i + 1) % kBlocks) {
    const ssize_t count =
        ::pwrite(file, block.data(), block.size(), static_cast<off_t>(i) * static_cast<off_t>(kBlock));
    if (count < 0 || ::fsync(file) != 0) ::_exit(1);
    written = written + count;
  }
}

}  // namespace

BusyProcesses::BusyProcesses(int computing, const std::string& file) {
  void* shared = ::mmap(nullptr, sizeof *written_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) throw std::runtime_error("no shared memory");
  written_ = static_cast<std::int64_t*>(shared);
  start([&] { write_on(file, *written_); });
  for (int i = 0; i < computing; ++i) start(compute);
}

BusyProcesses::~BusyProcesses() {
  end();
  ::munmap(written_, sizeof *written_);
}

template <class Work>
void BusyProcesses::start(Work work) {
  const pid_t pid = ::fork();
  if (pid < 0) throw std::runtime_error("no process");
  if (pid > 0) return pids_.push_back(pid);
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  work();
}

void BusyProcesses::end() {
  for (const pid_t pid : pids_) ::kill(pid, SIGKILL);
  for (const pid_t pid : pids_) {
    rusage use{};
    ::wait4(pid, nullptr, 0, &use);
    if (pid != pids_.front()) processor_seconds_ += static_cast<double>(use.ru_utime.tv_sec);
  }
  pids_.clear();
}

std::int64_t BusyProcesses::written_megabytes() const { return *written_ >> 20U; }

}  // namespace tandem::test
