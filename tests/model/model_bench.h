// Runs the same events on the real panel over fakes and on the model, and compares everything after each event.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/model_events.h"

namespace tandem::model {

struct Difference {
  std::size_t event = 0;  // index of the event after which the two differ
  std::string text;       // what differs
};

// What the sequences have reached, so that a test can show that they reach what matters.
struct Reached {
  int events = 0;
  int mixes = 0;          // a mix began
  int mix_errors = 0;     // an error ended one that had begun
  int changes = 0;        // the active deck changed
  int ends = 0;           // the list ended in Stop
  int errors = 0;         // handlers that an error ended
  int full_tables = 0;    // events with more than 200 lines
  int unequal_lists = 0;  // events with ListAux2 longer than PlayList
  int negative_counts = 0;
};

std::optional<Difference> first_difference(const std::vector<Event>& events, Reached* reached = nullptr);

// The same difference by as few events as leaving out can give, as a text to read.
std::string shrunk_difference(std::vector<Event> events);

}  // namespace tandem::model
