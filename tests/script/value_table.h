// Printed values by their expression: "PLAY.Picture", "sl0(3).Position", "CurrentSong". UI thread.
#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>

#include "logged_graph/value_text.h"

namespace tandem {

// Numbers in decimal, Booleans True or False, texts quoted.
inline std::string printed(bool value) { return boolean_word(value); }
inline std::string printed(const std::string& value) { return quoted_text(value); }
inline std::string printed(double value) { return number_word(value); }
template <std::integral Number>
std::string printed(Number value) {
  return std::to_string(value);
}

class ValueTable {
 public:
  // A value that is read again each time.
  template <class Read>
  void add(const std::string& expression, Read read) {
    values_[expression] = [read] { return printed(read()); };
  }
  // A word that is printed as it is.
  void add_word(const std::string& expression, std::function<std::string()> word) {
    values_[expression] = std::move(word);
  }
  // "PlayList.List" takes an index after it, any number.
  template <class Read>
  void add_indexed(const std::string& expression, Read read) {
    indexed_[expression] = [read](std::int32_t index) { return printed(read(index)); };
  }

  // Throws UnknownWord.
  std::string value(const std::string& expression) const;

  const std::map<std::string, std::function<std::string()>>& all() const { return values_; }

 private:
  std::map<std::string, std::function<std::string()>> values_;
  std::map<std::string, std::function<std::string(std::int32_t)>> indexed_;
};

}  // namespace tandem
