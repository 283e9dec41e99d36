#include "sound_report/svg_plot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace tandem::report {

namespace {

constexpr double kLeft = 60.0;
constexpr double kRight = 780.0;
constexpr double kTop = 36.0;
constexpr double kBottom = 350.0;
constexpr std::array<const char*, 6> kColours{"#0b6e4f", "#c44536", "#2b59c3", "#8f5bb5", "#d98e04", "#555555"};

double share(const Axis& axis, double value) {
  const double place = axis.logarithmic ? std::log(value / axis.from) / std::log(axis.to / axis.from)
                                        : (value - axis.from) / (axis.to - axis.from);
  return std::clamp(place, 0.0, 1.0);
}
double across(const Axis& x, double value) { return kLeft + (kRight - kLeft) * share(x, value); }
double down(const Axis& y, double value) { return kBottom - (kBottom - kTop) * share(y, value); }

std::string number(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f", value);
  return text.data();
}

std::string label(double x, double y, const std::string& anchor, const std::string& text) {
  return "<text x=\"" + number(x) + "\" y=\"" + number(y) + "\" text-anchor=\"" + anchor + "\">" + text + "</text>\n";
}

std::string stroke(double x1, double y1, double x2, double y2, const std::string& colour) {
  return "<line x1=\"" + number(x1) + "\" y1=\"" + number(y1) + "\" x2=\"" + number(x2) + "\" y2=\"" + number(y2) +
         "\" stroke=\"" + colour + "\"/>\n";
}

void draw_axes(std::ostream& out, const Axis& x, const Axis& y) {
  for (const auto& [value, text] : x.marks)
    out << stroke(across(x, value), kTop, across(x, value), kBottom, "#dddddd")
        << label(across(x, value), kBottom + 16, "middle", text);
  for (const auto& [value, text] : y.marks)
    out << stroke(kLeft, down(y, value), kRight, down(y, value), "#dddddd")
        << label(kLeft - 6, down(y, value) + 4, "end", text);
  out << label((kLeft + kRight) / 2, kBottom + 34, "middle", x.title) << label(kLeft - 50, kTop - 10, "start", y.title);
}

void draw_line(std::ostream& out, const Axis& x, const Axis& y, const Line& line, const char* colour) {
  out << "<polyline fill=\"none\" stroke-width=\"1.5\" stroke=\"" << colour << "\" points=\"";
  for (const auto& [across_value, down_value] : line.points)
    out << number(across(x, across_value)) << ',' << number(down(y, down_value)) << ' ';
  out << "\"/>\n";
}

}  // namespace

void write_plot(const std::string& path, const std::string& title, const Axis& x, const Axis& y,
                const std::vector<Line>& lines) {
  std::ofstream out(path);
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 960 400\" font-family=\"sans-serif\" "
         "font-size=\"12\">\n"
      << "<rect width=\"960\" height=\"400\" fill=\"white\"/>\n"
      << label((kLeft + kRight) / 2, 20, "middle", title);
  draw_axes(out, x, y);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const char* const colour = kColours.at(i % kColours.size());
    const double row = kTop + 16 + 18 * static_cast<double>(i);
    draw_line(out, x, y, lines[i], colour);
    out << stroke(kRight + 10, row, kRight + 30, row, colour) << label(kRight + 34, row + 4, "start", lines[i].name);
  }
  out << "</svg>\n";
  if (!out) throw std::runtime_error("Cannot write " + path);
}

}  // namespace tandem::report
