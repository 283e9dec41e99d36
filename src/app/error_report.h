// The report of an error that ends the program: one line on standard error, and the same text in a message box when
// there is a display. UI thread.
#pragma once

#include <string>

namespace tandem {

void report_error(const std::string& text);

// The line on standard error alone.
void print_error(const std::string& text);

// Whether the environment names a display at all.
bool has_display();

}  // namespace tandem
