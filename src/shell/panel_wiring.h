// Every event of the panel and the handler that it meets. UI thread.
#pragma once

#include <functional>
#include <string>

namespace tandem {

class Program;

// Playlist, transport, mix and time handlers end silently on an error, shaping handlers show a message.
void wire(Program& program, std::function<void(const std::string&)> show_message);

}  // namespace tandem
