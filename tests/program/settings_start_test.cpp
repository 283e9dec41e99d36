// Starting with a TP.inf that is not as it should be.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "base/runtime_error.h"
#include "program/player_rig.h"
#include "support/bytes.h"
#include "support/short_runs.h"

namespace tandem::test {
namespace {

namespace fs = std::filesystem;

class SettingsStart : public testing::Test {
 protected:
  void write(const std::string& text) { write_file(path(), text_bytes(text)); }
  std::string path() const { return directory.file("TP.inf"); }
  SimulatedPlayer::Options options() const {
    SimulatedPlayer::Options options;
    options.directory = directory.path();
    return options;
  }
  PanelControls& controls() { return player.program.controls; }
  void expect_factory() {
    EXPECT_EQ(controls().Volume.value(), 32768);
    EXPECT_EQ(controls().MMLEDSpin2.value(), 512);
    EXPECT_EQ(player.program.state.MixTimeMs, 2500);
    for (const BandSlider& slider : controls().sl0) EXPECT_EQ(slider.value(), 0);
    player.run(100);
    EXPECT_TRUE(player.engine.playing());
  }
  RuntimeErrorKind error_of(const std::function<void()>& act) {
    try {
      act();
    } catch (const RuntimeError& error) {
      EXPECT_THAT(error.what(), testing::HasSubstr(path()));
      return error.kind();
    }
    ADD_FAILURE() << "no error";
    return RuntimeErrorKind::Range;
  }

  TempDirectory directory;
  SimulatedPlayer player{options()};
};

TEST_F(SettingsStart, MissingGivesTheFactoryValuesAndIsWrittenAtTheClose) {
  player.load();
  expect_factory();
  player.unload();
  const Bytes written = read_file(path());
  EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 37);
}

TEST_F(SettingsStart, ShortGivesTheFactoryValuesForEverything) {
  write(" 12 \r\n-7 \r\n 3 \r\n");
  player.load();
  expect_factory();
}

TEST_F(SettingsStart, EveryShorterLengthStarts) {
  const std::string whole = factory_text();
  for (std::size_t size = 0; size <= whole.size(); size += test::kShortRuns ? 7 : 1) {
    write(whole.substr(0, size));
    SimulatedPlayer each(options());
    ASSERT_NO_THROW(each.load()) << size;
  }
}

TEST_F(SettingsStart, LongIsReadAsFarAsItGoes) {
  write(factory_text() + " 1 \r\n 2 \r\nmore\r\n" + std::string(100'000, 'x'));
  player.load();
  expect_factory();
}

TEST_F(SettingsStart, BinaryWithoutLinesIsAShortFile) {
  write_file(path(), Bytes(10'000, 0xFF));
  player.load();
  expect_factory();
}

TEST_F(SettingsStart, AnyBytesStartOrOverflow) {
  for (unsigned seed = 1; seed <= (test::kShortRuns ? 40U : 200U); ++seed) {
    write_file(path(), random_bytes(3000, seed));
    SimulatedPlayer each(options());
    try {
      each.load();
      each.run(50);
      EXPECT_TRUE(each.engine.playing());
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.kind(), RuntimeErrorKind::Overflow);
    }
  }
}

TEST_F(SettingsStart, ANumberThatIsTooLargeEndsTheProgram) {
  write(" 40000 \r\n" + factory_text());
  EXPECT_EQ(error_of([this] { player.load(); }), RuntimeErrorKind::Overflow);
}

TEST_F(SettingsStart, ADirectoryInItsPlaceEndsTheProgram) {
  fs::create_directory(path());
  EXPECT_EQ(error_of([this] { player.load(); }), RuntimeErrorKind::FileAccess);
}

TEST_F(SettingsStart, ADirectoryInItsPlaceAtTheCloseIsAnError) {
  player.load();
  fs::create_directory(path());
  EXPECT_EQ(error_of([this] { player.unload(); }), RuntimeErrorKind::FileAccess);
}

TEST_F(SettingsStart, AProgramDirectoryThatIsGoneAtTheCloseIsAnError) {
  player.load();
  fs::remove_all(directory.path());
  EXPECT_EQ(error_of([this] { player.unload(); }), RuntimeErrorKind::FileAccess);
}

}  // namespace
}  // namespace tandem::test
