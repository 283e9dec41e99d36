#include "tools/panel_script/script_runner.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "script/unknown_word.h"
#include "settings/settings_file.h"
#include "support/bytes.h"
#include "support/temp_directory.h"
#include "support/wav_writer.h"
#include "tools/panel_script/script_words.h"

namespace tandem {
namespace {

using Words = std::vector<std::string>;

TEST(ScriptWords, AreSplitAtBlanksOutsideQuotes) {
  EXPECT_EQ(script_words("print  a\tb\r"), (Words{"print", "a", "b"}));
  EXPECT_EQ(script_words(R"(files "a b.mp3" c"d e"f)"), (Words{"files", "a b.mp3", "cd ef"}));
  EXPECT_EQ(script_words(R"("\"\\" "" \n)"), (Words{"\"\\", "", "\\n"}));
  EXPECT_EQ(script_words("echo a#b # the rest"), (Words{"echo", "a#b"}));
  EXPECT_EQ(script_words("  # nothing"), Words{});
  EXPECT_THROW(script_words("echo \"open"), UnknownWord);
}

struct Runner : testing::Test {
  Runner() { test::write_file(directory.file("TP.inf"), test::text_bytes(factory_settings())); }

  std::string song(const std::string& name, double seconds) const {
    const test::Bytes bytes = test::wav_file(test::tones(seconds, 440, 0.2), test::Encoding::kInt16);
    test::write_file(directory.file(name), bytes);
    return directory.file(name);
  }
  // What the lines print.
  std::string run(const Words& lines) {
    out.str("");
    for (const std::string& line : lines) runner.run_line(line);
    return out.str();
  }

  test::TempDirectory directory;
  std::ostringstream out;
  Words log;
  SimulatedPlayer player{{.directory = directory.path(),
                          .sink = {},
                          .log = [this](const std::string& operation) { log.push_back(operation); },
                          .show_message = {}}};
  ScriptRunner runner{player, out};
};

TEST_F(Runner, PrintsWhatIsAskedForAndEchoesTexts) {
  EXPECT_EQ(run({"start", "print PLAY.Picture MixTimeMs", "echo a  \"b  c\""}),
            "PLAY.Picture=Icone(0)\nMixTimeMs=2500\na b  c\n");
}

TEST_F(Runner, ProbesWithoutAPanel) {
  const std::string path = song("a.wav", 0.5);
  EXPECT_EQ(run({"probe " + path, "probe " + path + "x"}), path + "\t500\tok\n" + path + "x\t0\trefused\n");
}

TEST_F(Runner, SeveralFilesAreAddedFromTheLastToTheFirst) {
  run({"start", "files " + song("a.wav", 0.1) + " " + song("b.wav", 0.1), "click LoadSong"});
  EXPECT_EQ(run({"print PlayList.ListCount SongTable(1).SongFile LastFolder"}),
            "PlayList.ListCount=2\nSongTable(1).SongFile=\"" + directory.file("b.wav") + "\"\nLastFolder=\"" +
                directory.path() + "\"\n");
}

TEST_F(Runner, SeveralFilesOfTheRootAreFoundThere) {
  run({"start", "files /no-such-song-1.wav /no-such-song-2.wav", "click LoadSong"});
  EXPECT_EQ(run({"print PlayList.ListCount CommonDialog.InitDir LastFolder"}),
            "PlayList.ListCount=2\nCommonDialog.InitDir=\"\"\nLastFolder=\"/\"\n");
}

TEST_F(Runner, ADisabledControlIgnoresTheMouse) {
  run({"start", "files " + song("a.wav", 0.1), "click LoadSong", "click UpList"});
  EXPECT_EQ(run({"click NextBtn", "print NextBtn.Enabled CurrentSong"}), "NextBtn.Enabled=False\nCurrentSong=0\n");
}

TEST_F(Runner, UnknownWordsAreRefused) {
  for (const char* line : {"nonsense", "print nonsense", "click nonsense", "run", "run soon", "move Volume",
                           "select PlayList 0", "files /a/b /c/d", "click PlayList"})
    EXPECT_THROW(runner.run_line(line), UnknownWord) << line;
}

// A song of one second that begins at 0 has ended, and no earlier, when the step is made that ends at 1000 ms.
TEST_F(Runner, TheLogSaysWhenASongHasEnded) {
  run({"start", "files " + song("a.wav", 1), "click LoadSong", "click PLAY"});
  log.clear();
  run({"run 2000"});
  EXPECT_EQ(log, (Words{"@10 AudioFile(1).FileName()", "@10 WaveMixer.Mute(1, True)",
                        "@1000 AudioFile(0).FileName(" + directory.file("a.wav") + ")", "@1000 MixTimer.Interval(0)",
                        "@1000 WaveMixer.Mute(0, True)", "@1000 WaveMixer.Mute(1, True)"}));
}

}  // namespace
}  // namespace tandem
