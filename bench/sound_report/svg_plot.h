// A plot of lines in an SVG file. One thread.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tandem::report {

struct Axis {
  std::string title;
  double from = 0.0;
  double to = 1.0;
  std::vector<std::pair<double, std::string>> marks;
  bool logarithmic = false;
};

struct Line {
  std::string name;
  std::vector<std::pair<double, double>> points;
};

// Throws std::runtime_error if the file cannot be written.
void write_plot(const std::string& path, const std::string& title, const Axis& x, const Axis& y,
                const std::vector<Line>& lines);

}  // namespace tandem::report
