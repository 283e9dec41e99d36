// Replays traces: what happened to the panel, event by event, and the state that must follow.
//   trace NAME...              begins a trace
//   lead MS                    the lead time
//   song NAME LENGTH [refused] a song of the list
//   EVENT [ARGUMENTS] [| STATE]
// Empty lines and lines that begin with # are passed over.
#pragma once

#include <istream>
#include <ostream>

namespace tandem {

struct TraceCount {
  int passed = 0;
  int failed = 0;
};

// The first mismatch of a trace is written to out with what was expected and what came, and fails it; at the end a line
// "N passed, M failed". A line that it can't read throws UnknownWord, with its number.
TraceCount replay_traces(std::istream& traces, std::ostream& out);

}  // namespace tandem
