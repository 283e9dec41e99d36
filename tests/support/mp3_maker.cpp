#include "support/mp3_maker.h"

#include "support/program.h"
#include "support/temp_directory.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

// What a careless reader would take for frames.
Bytes look_alike(std::size_t size) {
  const Bytes header = {0xFF, 0xFB, 0x90, 0x64};
  Bytes bytes(size);
  for (std::size_t at = 0; at + 4 <= size; at += 417)
    std::copy(header.begin(), header.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
  return bytes;
}

class BitWriter {
 public:
  void put(unsigned value, int count) {
    for (int bit = count - 1; bit >= 0; --bit) {
      if (used_ % 8 == 0) bytes_.push_back(0);
      bytes_.back() =
          static_cast<std::uint8_t>(bytes_.back() | ((value >> static_cast<unsigned>(bit) & 1U) << (7 - used_ % 8)));
      ++used_;
    }
  }
  Bytes take(std::size_t size) {
    bytes_.resize(size);
    return bytes_;
  }

 private:
  Bytes bytes_;
  unsigned used_ = 0;
};

Bytes layer1_frame(bool padded) {
  constexpr int kSubbands = 32;
  constexpr int kLoudSubband = 2;
  BitWriter bits;
  bits.put(padded ? 0xFFFF42C0U : 0xFFFF40C0U, 32);
  for (int band = 0; band < kSubbands; ++band) bits.put(band == kLoudSubband ? 7 : 0, 4);  // 8 bits a sample
  bits.put(9, 6);                                                                          // scale factor 1/4
  for (int sample = 0; sample < 12; ++sample) bits.put(sample % 2 == 0 ? 200 : 56, 8);
  return bits.take(padded ? 140 : 136);
}

}  // namespace

Bytes make_mp3(const Signal& signal, const std::vector<std::string>& options) {
  const TempDirectory directory;
  write_file(directory.file("in.wav"), wav_file(signal, Encoding::kInt16));
  std::vector<std::string> words = {"lame", "--quiet"};
  words.insert(words.end(), options.begin(), options.end());
  words.insert(words.end(), {directory.file("in.wav"), directory.file("out.mp3")});
  run_program(words);
  return read_file(directory.file("out.mp3"));
}

Bytes make_layer2(const Signal& signal) {
  const TempDirectory directory;
  write_file(directory.file("in.wav"), wav_file(signal, Encoding::kInt16));
  run_program({"sox", directory.file("in.wav"), directory.file("out.mp2")});
  return read_file(directory.file("out.mp2"));
}

Bytes make_layer1(int count) {
  Bytes stream;
  for (int frame = 0; frame < count; ++frame) stream = std::move(stream) + layer1_frame(frame % 4 == 1);
  return stream;
}

Bytes make_id3v2(std::size_t size, std::uint8_t flags) {
  const std::size_t body = size - 10;
  Bytes head = text_bytes("ID3") + Bytes{3, 0, flags};
  for (const unsigned shift : {21U, 14U, 7U, 0U}) head.push_back(static_cast<std::uint8_t>(body >> shift & 0x7FU));
  return head + look_alike(body);
}

Bytes make_id3v1() {
  Bytes tag = text_bytes("TAG") + look_alike(125);
  return tag;
}

Bytes make_ape() {
  const Bytes items = look_alike(2000);
  const auto edge = [&](std::uint32_t flags) {
    return text_bytes("APETAGEX") + number_bytes(2000, 4) + number_bytes(items.size() + 32, 4) + number_bytes(1, 4) +
           number_bytes(flags, 4) + Bytes(8);
  };
  return edge(0xA0000000U) + items + edge(0x80000000U);
}

Bytes make_lyrics3() {
  const Bytes body = text_bytes("LYRICSBEGIN") + look_alike(1000);
  std::string digits = std::to_string(body.size());
  digits.insert(0, 6 - digits.size(), '0');
  return body + text_bytes(digits + "LYRICS200");
}

}  // namespace tandem::test
