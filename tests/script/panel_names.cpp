#include "script/panel_names.h"

#include <charconv>

#include "script/panel_values.h"
#include "script/unknown_word.h"

namespace tandem {

namespace {

// The whole number of a text; throws UnknownWord with the expression if there is none.
std::int32_t index_in(std::string_view digits, const std::string& expression) {
  std::int32_t index = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (error != std::errc{} || end != digits.data() + digits.size()) throw UnknownWord(expression);
  return index;
}

}  // namespace

std::string ValueTable::value(const std::string& expression) const {
  if (const auto found = values_.find(expression); found != values_.end()) return found->second();
  const std::size_t open = expression.rfind('(');
  if (open == std::string::npos || !expression.ends_with(')')) throw UnknownWord(expression);
  const auto found = indexed_.find(expression.substr(0, open));
  if (found == indexed_.end()) throw UnknownWord(expression);
  const std::string_view digits(expression.data() + open + 1, expression.size() - open - 2);
  return found->second(index_in(digits, expression));
}

PanelNames::PanelNames(Program& program) : moves_(program.controls) {
  add_control_values(values_, program.controls);
  add_component_values(values_, program.sound);
  add_state_values(values_, program.state, program.SongTable);
}

// A filter that is not there yet (the panel was not loaded) has no value either.
std::string PanelNames::value(const std::string& expression) const {
  try {
    return values_.value(expression);
  } catch (const RuntimeError&) {
    throw UnknownWord(expression);
  }
}

}  // namespace tandem
