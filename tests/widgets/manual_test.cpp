// The manual's list of keys is that of the window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "layout/panel_layout.h"
#include "layout/shortcuts.h"

namespace tandem::test {
namespace {

std::string manual() {
  std::stringstream text;
  text << std::ifstream(TANDEM_MANUAL).rdbuf();
  return text.str();
}

// What the column of keys of its table names.
std::set<std::string> keys_of_the_table() {
  std::set<std::string> keys;
  std::istringstream lines(manual());
  const std::regex key(R"((Ctrl|Alt)\+[^ ,;|]+|\bF\d+\b)");
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("| ")) continue;
    const std::size_t first = line.find('|', 1);
    const std::string column = line.substr(first, line.find('|', first + 1) - first);
    for (std::sregex_iterator at(column.begin(), column.end(), key), end; at != end; ++at) keys.insert(at->str());
  }
  return keys;
}

TEST(Manual, ListsEveryKeyOfTheWindowAndNoOther) {
  std::set<std::string> keys;
  for (const Shortcut& shortcut : panel_shortcuts()) keys.emplace(shortcut.keys);
  for (const std::string_view larger : kLargerKeys) keys.emplace(larger);
  for (const std::string_view smaller : kSmallerKeys) keys.emplace(smaller);
  keys.erase("Ctrl+=");  // Ctrl++ where the plus needs Shift
  EXPECT_EQ(keys_of_the_table(), keys);
}

TEST(Manual, EveryKeyPressesAControlOfTheLayout) {
  for (const Shortcut& shortcut : panel_shortcuts()) EXPECT_EQ(control_box(shortcut.control).name, shortcut.control);
}

}  // namespace
}  // namespace tandem::test
