// make_seeds FOLDER: writes the small files from which fuzzing starts, a folder for each target.
#include <sndfile.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "settings/settings_file.h"
#include "support/bytes.h"
#include "support/mp3_maker.h"
#include "support/signal.h"
#include "support/wav_writer.h"

using namespace tandem;
using namespace tandem::test;

namespace {

std::string folder;

void keep(const std::string& name, const Bytes& bytes) {
  const std::filesystem::path path = std::filesystem::path(folder) / name;
  std::filesystem::create_directories(path.parent_path());
  write_file(path.string(), bytes);
}

void make_settings() {
  const std::string factory = factory_settings();
  keep("settings/factory", text_bytes(factory));
  keep("settings/short", text_bytes(factory.substr(0, factory.size() / 2)));
  keep("settings/overflow", text_bytes(" 99999 \r\n" + factory));
  keep("settings/fractions", text_bytes("1.5, -2.5e1,0x10\n\"7\"\n" + factory));
}

void make_playlists() {
  keep("playlist_file/three", text_bytes(" /m/a.mp3\r\n /m/b.mp3\r\n /m/c.mp3\r\n"));
  keep("playlist_file/quotes", text_bytes("\"/m/a.mp3\",\"/m/b.mp3\"\n\"/m/a.mp3"));
  keep("playlist_file/empty", {});
  std::string many;
  for (int i = 0; i < 203; ++i) many += i % 2 == 0 ? " /m/a.mp3\r\n" : "a,";
  keep("playlist_file/many", text_bytes(many));
}

void make_wavs() {
  const Signal signal = music(0.03);
  int number = 0;
  for (const Encoding encoding :
       {Encoding::kInt8, Encoding::kInt16, Encoding::kInt24, Encoding::kInt32, Encoding::kFloat32, Encoding::kFloat64})
    keep("song/wav_encoding_" + std::to_string(number++),
         wav_file(encoding == Encoding::kInt16 ? signal : music(0.01), encoding));
  keep("song/wav_mono_8000", wav_file(music(0.2, 8000, 1), Encoding::kInt16));
  keep("song/wav_six_48000", wav_file(music(0.02, 48000, 6), Encoding::kInt16));
  const Bytes format = wav_format(signal, Encoding::kInt16);
  const Bytes sound = encode(signal.samples, Encoding::kInt16);
  keep("song/wav_lying_size", wav_file(wav_chunk("fmt ", format) + wav_chunk_saying("data", sound, 0xFFFFFFFF)));
  keep("song/wav_extensible",
       wav_file(wav_chunk("fmt ", wav_format(signal, Encoding::kInt16, 3)) + wav_chunk("data", sound)));
  keep("song/wav_big_endian", wav_file(wav_chunk("fmt ", wav_format(signal, Encoding::kInt16, 0, true), true) +
                                           wav_chunk("data", encode(signal.samples, Encoding::kInt16, true), true),
                                       "RIFX", true));
}

// Encodings that only libsndfile writes.
void make_coded(const std::string& name, int format, int rate, int channels) {
  const Signal signal = music(0.06, rate, channels);
  const std::string path = folder + "/song/" + name;
  SF_INFO info{};
  info.samplerate = rate;
  info.channels = channels;
  info.format = format;
  SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
  if (file == nullptr) throw std::runtime_error("cannot write " + path);
  sf_writef_double(file, signal.samples.data(), signal.frames());
  sf_close(file);
}

void make_coded_wavs() {
  make_coded("wav_alaw", SF_FORMAT_WAV | SF_FORMAT_ALAW, 22050, 2);
  make_coded("wav_ulaw", SF_FORMAT_WAV | SF_FORMAT_ULAW, 44100, 1);
  make_coded("wav_ima", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM, 44100, 2);
  make_coded("wav_ms", SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM, 44100, 2);
  make_coded("wav_gsm", SF_FORMAT_WAV | SF_FORMAT_GSM610, 8000, 1);
  make_coded("wav_g721", SF_FORMAT_WAV | SF_FORMAT_G721_32, 8000, 1);
  make_coded("wav_extensible_24", SF_FORMAT_WAVEX | SF_FORMAT_PCM_24, 44100, 1);
  make_coded("w64", SF_FORMAT_W64 | SF_FORMAT_PCM_16, 22050, 2);
  make_coded("rf64", SF_FORMAT_RF64 | SF_FORMAT_FLOAT, 44100, 1);
}

void make_mp3s() {
  const Signal signal = music(0.2);
  const Bytes tagged = make_mp3(signal, {"-V6"});
  keep("song/mp3_tagged", tagged);
  keep("song/mp3_id3", make_id3v2(300) + tagged + make_id3v1());
  keep("song/mp3_ape", tagged + make_ape() + make_lyrics3() + make_id3v1());
  keep("song/mp3_plain", make_mp3(signal, {"-b", "64", "-t"}));
  keep("song/mp3_mono", make_mp3(music(0.3, 22050, 1), {"-b", "32"}));
  keep("song/mp3_free", make_mp3(signal, {"--freeformat", "-b", "100"}));
  keep("song/mp2", make_layer2(music(0.1)));
  keep("song/mp1", make_layer1(12));
}

}  // namespace

int main(int count, char** words) {
  if (count != 2) return 1;
  folder = words[1];
  make_settings();
  make_playlists();
  make_wavs();
  make_coded_wavs();
  make_mp3s();
  for (unsigned seed = 1; seed <= 4; ++seed)
    keep("panel_events/random_" + std::to_string(seed), random_bytes(600, seed));
  return 0;
}
