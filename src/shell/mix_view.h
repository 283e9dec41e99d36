// What of the panel's songs sounds now, read from its state and its components; nothing is changed. UI thread.
#pragma once

#include "controls/mix_view.h"
#include "shell/program.h"

namespace tandem {

MixView mix_view(const Program& program);

}  // namespace tandem
