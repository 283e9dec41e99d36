// A word of a script that names nothing, or nothing that can do what is asked.
#pragma once

#include <stdexcept>
#include <string>

namespace tandem {

class UnknownWord : public std::runtime_error {
 public:
  explicit UnknownWord(const std::string& word) : std::runtime_error("unknown: " + word) {}
};

}  // namespace tandem
