#include "engine/decode/open_decoder.h"

#include <utility>

#include "engine/decode/byte_window.h"
#include "engine/decode/mp3_decoder.h"
#include "engine/decode/mp3_tags.h"
#include "engine/decode/wav_decoder.h"
#include "engine/decode/wav_header.h"

namespace tandem {
namespace {

bool is_mpeg(const WavHeader& header) {
  return header.format_tag == WavHeader::kMpegTag || header.format_tag == WavHeader::kMp3Tag;
}

}  // namespace

std::unique_ptr<Decoder> open_decoder(const std::shared_ptr<const SongFile>& file, WalkGuard guard) {
  ByteWindow window(file, file->size());
  const std::int64_t begin = skip_tags(window, 0);
  if (!is_wav(*file, begin)) return Mp3Decoder::open(file, 0, file->size(), std::move(guard));
  const auto header = read_wav_header(*file, begin);
  if (!header) return nullptr;
  if (is_mpeg(*header)) return Mp3Decoder::open(file, header->data_begin, header->data_end, std::move(guard));
  return WavDecoder::open(file, *header, std::move(guard));
}

}  // namespace tandem
