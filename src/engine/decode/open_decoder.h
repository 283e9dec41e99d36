// Chooses how to decode a file, by its content and never by its name.
// Any thread; blocks for as long as the disk does.
#pragma once

#include <memory>

#include "engine/decode/decoder.h"
#include "engine/decode/song_file.h"
#include "engine/decode/walk_guard.h"

namespace tandem {

// nullptr if the file is neither WAV nor MPEG audio, cannot be decoded, or has not one sample. `guard` watches every
// walk through the file, while it is opened and later.
std::unique_ptr<Decoder> open_decoder(const std::shared_ptr<const SongFile>& file, WalkGuard guard);

}  // namespace tandem
