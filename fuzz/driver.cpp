// Runs a fuzz target without libFuzzer:
//   fuzz_NAME [--mutations N] [--seed S] FILE|FOLDER...
// every file as it is, then N mutations of them, the same for the same seed. The input that runs lies in the file named
// at the start and stays there if the program ends badly, the slowest beside it as NAME.slow. An input may take 2 s of
// processor time (TANDEM_FUZZ_SECONDS), the program 300 MB (TANDEM_FUZZ_MEGABYTES). Exit status 0, or 1.
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz_target.h"
#include "mutation.h"

namespace tandem::fuzz {

namespace {

struct Run {
  std::string current;
  double longest = 0.0;  // seconds of processor time
  std::size_t inputs = 0;

  void one(const Bytes& input) {
    std::ofstream(current, std::ios::binary)
        .write(reinterpret_cast<const char*>(input.data()), static_cast<std::streamsize>(input.size()));
    const std::clock_t begin = std::clock();
    LLVMFuzzerTestOneInput(input.data(), input.size());
    const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    if (seconds > longest && seconds > 0.5) keep_slow(input);
    longest = std::max(longest, seconds);
    ++inputs;
  }
  void keep_slow(const Bytes& input) const {
    std::ofstream(current + ".slow", std::ios::binary)
        .write(reinterpret_cast<const char*>(input.data()), static_cast<std::streamsize>(input.size()));
  }
};

Bytes bytes_of(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void collect(const std::filesystem::path& path, std::vector<Bytes>& inputs) {
  if (!std::filesystem::is_directory(path)) return inputs.push_back(bytes_of(path));
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(path)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  for (const auto& file : files) inputs.push_back(bytes_of(file));
}

double limit(const char* name, double otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::strtod(text, nullptr);
}

long megabytes_used() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

int finish(const Run& run) {
  const long used = megabytes_used();
  std::printf("%zu inputs, the longest %.3f s, %ld MB\n", run.inputs, run.longest, used);
  const bool good = run.inputs > 0 && run.longest <= limit("TANDEM_FUZZ_SECONDS", 2.0) &&
                    static_cast<double>(used) <= limit("TANDEM_FUZZ_MEGABYTES", 300.0);
  if (!good) return 1;
  std::filesystem::remove(run.current);
  std::filesystem::remove(run.current + ".slow");
  return 0;
}

int run_all(const std::vector<Bytes>& inputs, std::uint64_t mutations, std::uint64_t seed) {
  constexpr std::size_t kLimit = 200'000;
  Run run{(std::filesystem::temp_directory_path() / ("tandem-fuzz-" + std::to_string(getpid()))).string()};
  std::printf("the input that runs: %s\n", run.current.c_str());
  std::fflush(stdout);
  for (const Bytes& input : inputs) run.one(input);
  std::mt19937_64 random(seed);
  for (std::uint64_t i = 0; i < mutations; ++i) {
    const Bytes& input = inputs[static_cast<std::size_t>(random() % inputs.size())];
    const Bytes& other = inputs[static_cast<std::size_t>(random() % inputs.size())];
    run.one(mutated(input, other, kLimit, random));
  }
  return finish(run);
}

}  // namespace

}  // namespace tandem::fuzz

int main(int count, char** words) {
  std::vector<tandem::fuzz::Bytes> inputs;
  std::uint64_t mutations = 0;
  std::uint64_t seed = 1;
  for (int i = 1; i < count; ++i) {
    const bool has_value = i + 1 < count;
    if (has_value && std::strcmp(words[i], "--mutations") == 0) {
      mutations = std::strtoull(words[++i], nullptr, 10);
    } else if (has_value && std::strcmp(words[i], "--seed") == 0) {
      seed = std::strtoull(words[++i], nullptr, 10);
    } else if (std::filesystem::exists(words[i])) {
      tandem::fuzz::collect(words[i], inputs);
    }
  }
  if (inputs.empty()) {
    std::fputs("no inputs\n", stderr);
    return 1;
  }
  return tandem::fuzz::run_all(inputs, mutations, seed);
}
