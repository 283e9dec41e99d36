// What is asked of our figures, printed beside them: "  (<= 5.0: holds)". What misses its limit is counted. One thread.
#pragma once

#include <cstddef>
#include <string>

namespace tandem::report {

// `decimals`: of the limit. A figure that is no number misses.
std::string at_most(double limit, double figure, int decimals = 0);
std::string at_least(double limit, double figure, int decimals = 0);
std::string about(double middle, double reach, double figure, int decimals = 1);

// For a figure that could not be measured: asked, and missed.
std::string not_measured();

// The greater and the lesser of two figures; no number if one of them is none, so that it misses its limit.
double greater(double a, double b);
double lesser(double a, double b);

struct Verdict {
  std::size_t asked = 0;
  std::size_t missed = 0;
};
// Of all figures until now.
Verdict verdict();

}  // namespace tandem::report
