#include "engine/read/song_source.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "engine/read/song_name.h"
#include "support/mp3_maker.h"
#include "support/song_check.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

Bytes short_wav() { return wav_file(tones(0.2, 500.0, 0.5), Encoding::kInt16); }

bool opens(const std::string& path) {
  const bool opened = SongSource::open(path) != nullptr;
  EXPECT_EQ(opened, measure_song(path)->opens) << path;
  return opened;
}

TEST(SongSource, RefusesWhatIsNoFile) {
  const TempDirectory directory;
  const std::string fifo = directory.file("fifo");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  directory.file("socket").copy(address.sun_path, sizeof(address.sun_path) - 1);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
  std::filesystem::create_symlink("nowhere", directory.file("link"));
  for (const std::string& path : {std::string(), std::string("- "), directory.path(), fifo, directory.file("socket"),
                                  directory.file("link"), directory.file("missing"), std::string("/dev/zero"),
                                  std::string("/dev/tty"), std::string(5000, 'x'), directory.file("- missing")}) {
    EXPECT_FALSE(opens(path)) << path;
  }
  close(socket);
}

// The superuser may read everything, so the test steps down meanwhile.
TEST(SongSource, RefusesWhatIsNotReadable) {
  constexpr uid_t kNobody = 65534;
  const uid_t user = geteuid();
  const TempDirectory directory;
  write_file(directory.file("song"), short_wav());
  ASSERT_EQ(chmod(directory.path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(directory.file("song").c_str(), 0), 0);
  if (user == 0) {
    ASSERT_EQ(seteuid(kNobody), 0);
  }
  const bool opened = opens(directory.file("song"));
  if (user == 0) {
    ASSERT_EQ(seteuid(user), 0);
  }
  EXPECT_FALSE(opened);
}

TEST(SongSource, RefusesWhatIsNoSong) {
  const TempDirectory directory;
  const std::vector<Bytes> contents = {{},
                                       text_bytes("Hello, this is no song at all.\n"),
                                       Bytes(100'000),
                                       Bytes(100'000, 0xFF),
                                       random_bytes(1'500'000, 5),
                                       make_id3v2(5000),
                                       make_id3v1(),
                                       text_bytes("RIFF") + number_bytes(100, 4) + text_bytes("AVI ") + Bytes(92),
                                       text_bytes("OggS") + random_bytes(5000, 6),
                                       text_bytes("fLaC") + random_bytes(5000, 7)};
  for (std::size_t i = 0; i < contents.size(); ++i) {
    write_file(directory.file("song"), contents[i]);
    EXPECT_FALSE(opens(directory.file("song"))) << i;
  }
}

TEST(SongSource, ContentDecidesNotTheName) {
  const TempDirectory directory;
  const Signal signal = tones(1.0, 500.0, 0.5);
  write_file(directory.file("a.wav"), make_mp3(signal, {"-b", "128"}));
  write_file(directory.file("b.mp3"), wav_file(signal, Encoding::kInt16));
  for (const char* name : {"a.wav", "b.mp3"}) {
    EXPECT_EQ(measure_song(directory.file(name))->length, signal.frames()) << name;
  }
}

TEST(SongSource, NamesAreAnyBytes) {
  const TempDirectory directory;
  const std::vector<std::string> names = {
      "with blank.wav",      "a, b; c.wav",       "it's \"quoted\".wav", "M\xC3\xBCller.wav", "\xF0\x9F\x8E\xB5.wav",
      "broken \xFF\xC3.wav", "back\\slash\n.wav", std::string(255, 'x'), "-rf.wav",           " - .wav"};
  for (const std::string& name : names) {
    write_file(directory.file(name), short_wav());
    EXPECT_TRUE(opens(directory.file(name))) << name;
  }
}

TEST(SongSource, DashesOfSavedListsAreTakenOffOneByOne) {
  const TempDirectory directory;
  const std::string song = directory.file("song.wav");
  write_file(song, short_wav());
  for (const std::string& dashes : {std::string("- "), std::string("- - - ")}) {
    EXPECT_EQ(existing_song_name(dashes + song), song);
    EXPECT_TRUE(opens(dashes + song)) << dashes;
  }
  EXPECT_FALSE(opens("-" + song));
  EXPECT_FALSE(opens(" - " + song));
}

TEST(SongSource, DashesOfAnExistingNameStay) {
  const TempDirectory directory;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(directory.path());
  write_file("- song.wav", short_wav());
  const std::string as_is = existing_song_name("- song.wav");
  const std::string shortened = existing_song_name("- - song.wav");
  std::filesystem::current_path(before);
  EXPECT_EQ(as_is, "- song.wav");
  EXPECT_EQ(shortened, "- song.wav");
}

TEST(SongSource, SeekBeyondTheEndsIsClamped) {
  const TempDirectory directory;
  write_file(directory.file("song"), short_wav());
  const auto source = SongSource::open(directory.file("song"));
  Sound out(10);
  source->seek(1'000'000'000'000);
  EXPECT_EQ(source->read(out), 0U);
  source->seek(source->length() - 3);
  EXPECT_EQ(source->read(out), 3U);
  EXPECT_EQ(source->read(out), 0U);
  source->seek(-5);
  EXPECT_TRUE(read_all(*source) == check_song(directory.file("song")).sound);
}

TEST(SongSource, MeasuringLeavesTheReadingPosition) {
  for (const Bytes& file : {make_mp3(music(3.0), {"-V2", "-t"}), wav_file(music(3.0, 48000), Encoding::kInt16)}) {
    const Sound whole = check_song(file).sound;
    const TempDirectory directory;
    write_file(directory.file("song"), file);
    const auto source = SongSource::open(directory.file("song"));
    Sound sound(1000);
    ASSERT_EQ(source->read(sound), sound.size());
    EXPECT_EQ(source->length(), static_cast<Frames>(whole.size()));
    const Sound rest = read_all(*source);
    sound.insert(sound.end(), rest.begin(), rest.end());
    EXPECT_TRUE(sound == whole);
  }
}

TEST(SongSource, FileThatIsCutWhilePlayingEndsThere) {
  for (const Bytes& file : {make_mp3(music(10.0), {"-b", "320"}), wav_file(music(10.0), Encoding::kInt16),
                            wav_file(music(10.0, 48000), Encoding::kInt16)}) {
    const Sound whole = check_song(file).sound;
    const TempDirectory directory;
    write_file(directory.file("song"), file);
    const auto source = SongSource::open(directory.file("song"));
    ASSERT_EQ(source->length(), static_cast<Frames>(whole.size()));
    Sound out(10000);
    ASSERT_EQ(source->read(out), out.size());
    std::filesystem::resize_file(directory.file("song"), file.size() / 2);
    const Sound rest = read_all(*source);
    EXPECT_LT(rest.size(), whole.size() / 2);
    EXPECT_GT(rest.size(), whole.size() / 2 - whole.size() / 10);
    EXPECT_EQ(source->read(out), 0U);
    source->seek(static_cast<Frames>(whole.size()) - 20000);
    EXPECT_EQ(source->read(out), 0U);
    source->seek(20000);
    ASSERT_EQ(source->read(out), out.size());
    EXPECT_LE(greatest_difference(out, std::span(whole).subspan(20000)), 1e-5F);
  }
}

}  // namespace
}  // namespace tandem::test
