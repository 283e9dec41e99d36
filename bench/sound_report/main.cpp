// Measures the sound and prints every figure with its limit, beside other programs that do the same thing on the same
// signals. Exit status 1: a figure of ours misses its limit; 2: no such section.
//   sound_report [FOLDER [SECTION...]]   plots go into FOLDER (default: the working directory); sections: depth rate
//                                        limiter pitch onsets equalizer displays downmix gapless (default: all)
// A program that is not installed is left out; tools/setup/install_packages build demo test bench installs them all.
// Takes a few minutes.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "sound_report/limits.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"

namespace {

void print_missing() {
  for (const char* program : {"sox", "lame", "mpg123", "ffmpeg", "soundstretch", "rubberband", "pulseaudio", "pacat",
                              "pipewire", "pipewire-pulse", "wireplumber"})
    if (!tandem::report::has(program)) std::printf("%s is not installed: what it would show is left out\n", program);
}

using Section = std::pair<std::string, std::function<void()>>;

bool is_known(const std::string& name, const std::vector<Section>& sections) {
  const auto has_name = [&](const Section& section) { return section.first == name; };
  if (std::any_of(sections.begin(), sections.end(), has_name)) return true;
  std::fprintf(stderr, "sound_report: there is no section \"%s\"; there are:", name.c_str());
  for (const Section& section : sections) std::fprintf(stderr, " %s", section.first.c_str());
  std::fprintf(stderr, "\n");
  return false;
}

}  // namespace

int main(int count, char** arguments) {
  using namespace tandem::report;
  const std::vector<std::string> words(arguments + 1, arguments + count);
  const std::string folder = words.empty() ? "." : words.front();
  const std::vector<Section> sections{
      {"depth", report_depth},       {"rate", [&] { report_rate(folder); }},
      {"limiter", report_limiter},   {"pitch", [&] { report_pitch(folder); }},
      {"onsets", report_onsets},     {"equalizer", [&] { report_equalizer(folder); }},
      {"displays", report_displays}, {"downmix", report_downmix},
      {"gapless", report_gapless},
  };
  for (std::size_t i = 1; i < words.size(); ++i)
    if (!is_known(words[i], sections)) return 2;
  print_missing();
  for (const auto& [name, report] : sections) {
    if (words.size() > 1 && std::find(words.begin() + 1, words.end(), name) == words.end()) continue;
    report();
    std::printf("\n");
    std::fflush(stdout);
  }
  const Verdict all = verdict();
  std::printf("%zu figures have a limit, %zu miss it\n", all.asked, all.missed);
  return all.missed == 0 ? 0 : 1;
}
