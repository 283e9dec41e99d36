// Measures the sound and prints every figure, beside other programs that do the same thing on the same signals.
//   sound_report [FOLDER [SECTION...]]   plots go into FOLDER (default: the working directory); sections: depth rate
//                                        limiter equalizer pitch onsets (default: all)
// A program that is not installed is left out. Takes a few minutes.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "sound_report/sections.h"

int main(int count, char** arguments) {
  using namespace tandem::report;
  const std::vector<std::string> words(arguments + 1, arguments + count);
  const std::string folder = words.empty() ? "." : words.front();
  const std::vector<std::pair<std::string, std::function<void()>>> sections{
      {"depth", report_depth},
      {"rate", [&] { report_rate(folder); }},
      {"limiter", report_limiter},
      {"equalizer", [&] { report_equalizer(folder); }},
      {"pitch", [&] { report_pitch(folder); }},
      {"onsets", report_onsets},
  };
  for (const auto& [name, report] : sections) {
    if (words.size() > 1 && std::find(words.begin() + 1, words.end(), name) == words.end()) continue;
    report();
    std::printf("\n");
    std::fflush(stdout);
  }
  return 0;
}
