// The program's things by the names that a script uses for them: values to print and moves to make. UI thread.
#pragma once

#include <string>

#include "script/panel_moves.h"
#include "script/value_table.h"
#include "shell/program.h"

namespace tandem {

class PanelNames {
 public:
  explicit PanelNames(Program& program);

  // The printed value of an expression such as sl0(3).Position; throws UnknownWord.
  std::string value(const std::string& expression) const;

  const ValueTable& values() const { return values_; }
  const PanelMoves& moves() const { return moves_; }

 private:
  ValueTable values_;
  PanelMoves moves_;
};

}  // namespace tandem
