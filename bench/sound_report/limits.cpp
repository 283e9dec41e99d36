#include "sound_report/limits.h"

#include <cmath>
#include <cstdio>

namespace tandem::report {

namespace {

Verdict until_now;

std::string number(double value, int decimals) {
  std::string text(32, '\0');
  text.resize(static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.*f", decimals, value)));
  return text;
}

std::string judged(const std::string& limit, bool holds) {
  ++until_now.asked;
  if (!holds) ++until_now.missed;
  return "  (" + limit + (holds ? ": holds)" : ": MISSED)");
}

}  // namespace

std::string at_most(double limit, double figure, int decimals) {
  return judged("<= " + number(limit, decimals), figure <= limit);
}

std::string at_least(double limit, double figure, int decimals) {
  return judged(">= " + number(limit, decimals), figure >= limit);
}

std::string about(double middle, double reach, double figure, int decimals) {
  return judged(number(middle, decimals) + " +- " + number(reach, decimals), std::abs(figure - middle) <= reach);
}

std::string not_measured() { return judged("a figure", false); }

double greater(double a, double b) { return std::isnan(a) || a > b ? a : b; }

double lesser(double a, double b) { return std::isnan(a) || a < b ? a : b; }

Verdict verdict() { return until_now; }

}  // namespace tandem::report
